// Windows tells arguments in UTF-16; our file functions take the system's 8-bit code page.
#include "programs/plinth/Arguments.h"

#include "platform/win32/Win32Text.h"
#include "platform/win32/WindowsApi.h"

// Behind the door that has to come first.
#include <io.h>
#include <shellapi.h>

namespace plinth {
namespace {

constexpr int kUtf8Page = 65001;

}  // namespace

std::vector<std::string> utf8Arguments(int, char**) {
  int count = 0;
  LPWSTR* words = ::CommandLineToArgvW(::GetCommandLineW(), &count);
  std::vector<std::string> out;
  for (int i = 1; words && i < count; ++i) out.push_back(fromWide(words[i], kUtf8Page));
  ::LocalFree(words);
  return out;
}

std::string systemPath(std::string_view utf8) { return fromWide(toWide(utf8, kUtf8Page), systemCodePage()); }

std::string pathUtf8(std::string_view path) { return fromWide(toWide(path, systemCodePage()), kUtf8Page); }

std::string programFolder() {
  char path[MAX_PATH];
  const DWORD length = ::GetModuleFileNameA(nullptr, path, MAX_PATH);
  const std::string text(path, length);
  return text.substr(0, text.rfind('\\') + 1);
}

void prepareConsole() { ::SetConsoleOutputCP(CP_UTF8); }
bool errorIsTerminal() { return ::_isatty(2) != 0; }

}  // namespace plinth
