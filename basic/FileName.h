// File names that come from inside a file never leave the folder they belong in, and path pieces without a
// system call.
#pragma once

#include <string>
#include <string_view>

namespace plinth {

// Reduces an embedded name to a plain file name: what stands behind the last "\", "/" or ":"; control
// characters and <>:"|?* dropped; trailing dots and blanks dropped; a device name (CON, PRN, AUX, NUL,
// COM1-9, LPT1-9, with or without extension, CONIN$, CONOUT$) gets "_" in front. "" when nothing is left.
std::string safeFileName(std::string_view name);
// What stands behind the last "\" or "/" (the whole text when there is none).
std::string fileNameOf(std::string_view path);
// The folder with its trailing separator, "" when there is none.
std::string folderOf(std::string_view path);
// The extension without ".", "" when there is none; only of the file name, not of a folder.
std::string extensionOf(std::string_view path);
// The path without "." and extension.
std::string withoutExtension(std::string_view path);

}  // namespace plinth
