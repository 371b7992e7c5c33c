// Windows tells arguments in UTF-16; our file functions take the system's 8-bit code page.
#include "programs/plinth/Arguments.h"

#include <windows.h>
#include <shellapi.h>
#include <io.h>

#include "basic/CodePage.h"

namespace plinth {
namespace {

std::string narrow(std::wstring_view text, UINT codePage) {
  const int size = WideCharToMultiByte(codePage, 0, text.data(), static_cast<int>(text.size()), nullptr, 0, nullptr, nullptr);
  std::string out(static_cast<std::size_t>(size), '\0');
  WideCharToMultiByte(codePage, 0, text.data(), static_cast<int>(text.size()), out.data(), size, nullptr, nullptr);
  return out;
}

std::wstring wide(std::string_view text, UINT codePage) {
  const int size = MultiByteToWideChar(codePage, 0, text.data(), static_cast<int>(text.size()), nullptr, 0);
  std::wstring out(static_cast<std::size_t>(size), L'\0');
  MultiByteToWideChar(codePage, 0, text.data(), static_cast<int>(text.size()), out.data(), size);
  return out;
}

}  // namespace

std::vector<std::string> utf8Arguments(int, char**) {
  int count = 0;
  LPWSTR* words = CommandLineToArgvW(GetCommandLineW(), &count);
  std::vector<std::string> out;
  for (int i = 1; words && i < count; ++i) out.push_back(narrow(words[i], CP_UTF8));
  LocalFree(words);
  return out;
}

std::string systemPath(std::string_view utf8) { return narrow(wide(utf8, CP_UTF8), CP_ACP); }
std::string pathUtf8(std::string_view path) { return narrow(wide(path, CP_ACP), CP_UTF8); }

std::string programFolder() {
  char path[MAX_PATH];
  const DWORD length = GetModuleFileNameA(nullptr, path, MAX_PATH);
  const std::string text(path, length);
  return text.substr(0, text.rfind('\\') + 1);
}

void prepareConsole() { SetConsoleOutputCP(CP_UTF8); }
bool errorIsTerminal() { return _isatty(2) != 0; }

}  // namespace plinth
