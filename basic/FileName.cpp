// Names from untrusted files are cut to what Windows takes as a plain file; the same rules hold elsewhere, so
// that a project gives equal files on every system.
#include "basic/FileName.h"

#include <algorithm>

#include "basic/Text.h"

namespace plinth {
namespace {

std::size_t nameStart(std::string_view path) { return path.find_last_of("\\/") + 1; }

// Position of the "." before the extension, npos when there is none.
std::size_t extensionDot(std::string_view path) {
  const std::size_t dot = path.rfind('.');
  return dot != std::string_view::npos && dot >= nameStart(path) ? dot : std::string_view::npos;
}

bool isPortNumber(char c) {
  // Windows takes the superscripts one to three of the Western page for port numbers too.
  return (c >= '1' && c <= '9') || c == '\xB9' || c == '\xB2' || c == '\xB3';
}

// Windows sees a device whatever the extension and whatever blanks stand around the name.
bool isDevice(std::string_view name) {
  const std::string stem = upperAscii(trim(name.substr(0, name.find('.'))));
  for (std::string_view device : {"CON", "PRN", "AUX", "NUL", "CONIN$", "CONOUT$"}) {
    if (stem == device) return true;
  }
  const std::string port = stem.substr(0, 3);
  return stem.size() == 4 && (port == "COM" || port == "LPT") && isPortNumber(stem[3]);
}

}  // namespace

std::string safeFileName(std::string_view name) {
  std::string out(name.substr(name.find_last_of("\\/:") + 1));
  const auto isForbidden = [](char c) {
    return static_cast<unsigned char>(c) < ' ' ||
           std::string_view("<>\"|?*").find(c) != std::string_view::npos;
  };
  out.erase(std::remove_if(out.begin(), out.end(), isForbidden), out.end());
  out.erase(out.find_last_not_of(". ") + 1);
  if (isDevice(out)) out.insert(out.begin(), '_');
  return out;
}

std::string fileNameOf(std::string_view path) { return std::string(path.substr(nameStart(path))); }

std::string folderOf(std::string_view path) { return std::string(path.substr(0, nameStart(path))); }

std::string extensionOf(std::string_view path) {
  const std::size_t dot = extensionDot(path);
  return dot == std::string_view::npos ? std::string() : std::string(path.substr(dot + 1));
}

std::string withoutExtension(std::string_view path) {
  return std::string(path.substr(0, extensionDot(path)));
}

}  // namespace plinth
