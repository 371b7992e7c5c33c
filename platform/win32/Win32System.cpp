// The small ones of the machine: clock, settings in the registry, opening and running.
#include "platform/win32/WindowsApi.h"

#include <shellapi.h>

#include "basic/DateSerial.h"
#include "platform/Clock.h"
#include "platform/Settings.h"
#include "platform/Shell.h"
#include "platform/win32/Handles.h"

namespace plinth {
namespace {

class RegistrySettings : public Settings {
 public:
  explicit RegistrySettings(std::string root) : root_(std::move(root)) {}

  std::string get(const std::string& section, const std::string& key,
                  const std::string& fallback) const override {
    HKEY opened = nullptr;
    if (::RegOpenKeyExA(HKEY_CURRENT_USER, pathOf(section).c_str(), 0, KEY_READ, &opened) != ERROR_SUCCESS)
      return fallback;
    const RegistryKey owner(opened);
    for (;;) {  // another program may lengthen the value between the two questions
      DWORD size = 0;
      if (::RegGetValueA(opened, nullptr, key.c_str(), RRF_RT_REG_SZ, nullptr, nullptr, &size) !=
          ERROR_SUCCESS)
        return fallback;
      std::string value(size, '\0');
      const LONG result =
          ::RegGetValueA(opened, nullptr, key.c_str(), RRF_RT_REG_SZ, nullptr, value.data(), &size);
      if (result == ERROR_MORE_DATA) continue;
      if (result != ERROR_SUCCESS || size == 0) return fallback;
      value.resize(size - 1);  // less its NUL
      return value;
    }
  }

  void set(const std::string& section, const std::string& key, const std::string& value) override {
    HKEY opened = nullptr;
    if (::RegCreateKeyExA(HKEY_CURRENT_USER, pathOf(section).c_str(), 0, nullptr, 0, KEY_WRITE, nullptr,
                          &opened, nullptr) != ERROR_SUCCESS)
      return;
    const RegistryKey owner(opened);
    ::RegSetValueExA(opened, key.c_str(), 0, REG_SZ, reinterpret_cast<const BYTE*>(value.c_str()),
                     static_cast<DWORD>(value.size() + 1));
  }

 private:
  std::string pathOf(const std::string& section) const {
    return section.empty() ? root_ : root_ + "\\" + section;
  }
  std::string root_;
};

class Win32Shell : public Shell {
 public:
  bool open(const std::string& target, const std::string& arguments = "") override {
    const HINSTANCE result =
        ::ShellExecuteA(nullptr, "open", target.c_str(), arguments.empty() ? nullptr : arguments.c_str(),
                        nullptr, SW_SHOWNORMAL);
    return reinterpret_cast<INT_PTR>(result) > 32;  // up to 32 are error codes
  }

  int runAndWait(const std::string& commandLine) override {
    STARTUPINFOA startUp = {};
    startUp.cb = sizeof startUp;
    startUp.dwFlags = STARTF_USESHOWWINDOW;
    startUp.wShowWindow = SW_HIDE;
    PROCESS_INFORMATION started = {};
    std::string line = commandLine;  // the call writes into it
    if (!::CreateProcessA(nullptr, line.data(), nullptr, nullptr, FALSE, CREATE_NO_WINDOW, nullptr, nullptr,
                          &startUp, &started))
      return -1;
    const KernelHandle process(started.hProcess), thread(started.hThread);
    ::WaitForSingleObject(process.get(), INFINITE);
    DWORD code = 0;
    return ::GetExitCodeProcess(process.get(), &code) ? static_cast<int>(code) : -1;
  }
};

}  // namespace

double SystemClock::now() const {
  SYSTEMTIME local;
  ::GetLocalTime(&local);
  return toSerial({local.wYear, local.wMonth, local.wDay, local.wHour, local.wMinute, local.wSecond});
}

std::unique_ptr<Settings> systemSettings(const std::string& application) {
  std::string name = application;
  for (char& c : name)
    if (c == '\\') c = '_';  // it would open a key below
  return std::make_unique<RegistrySettings>("Software\\Plinth\\" + name);
}

Shell& systemShell() {
  static Win32Shell shell;
  return shell;
}

}  // namespace plinth
