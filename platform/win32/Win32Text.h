// 8-bit text of a known code page to the UTF-16 of Windows' wide calls and back. The page is that of the
// text, not of the system: so a project in another character set shows right on every machine.
#pragma once

#include <string>
#include <string_view>

namespace plinth {

// By basic/CodePage.h; page 65001 stands for UTF-8.
std::wstring toWide(std::string_view text, int codePage);
std::string fromWide(std::wstring_view text, int codePage);

// The system's own page, which paths and the texts of "A" calls are in.
int systemCodePage();

}  // namespace plinth
