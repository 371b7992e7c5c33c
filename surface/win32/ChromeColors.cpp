// The system tells light from dark by a value of the registry alone.
#include "surface/win32/ChromeColors.h"

#include <string_view>

namespace plinth {

namespace {

bool systemIsDark() {
  DWORD light = 1, size = sizeof light;
  const LSTATUS read =
      ::RegGetValueW(HKEY_CURRENT_USER, L"Software\\Microsoft\\Windows\\CurrentVersion\\Themes\\Personalize",
                     L"AppsUseLightTheme", RRF_RT_REG_DWORD, nullptr, &light, &size);
  return read == ERROR_SUCCESS && light == 0;
}

bool highContrast() {
  HIGHCONTRASTW setting = {};
  setting.cbSize = sizeof setting;
  return ::SystemParametersInfoW(SPI_GETHIGHCONTRAST, sizeof setting, &setting, 0) &&
         (setting.dwFlags & HCF_HIGHCONTRASTON) != 0;
}

ChromeColors contrastColors() {
  const auto color = [](int index) { return static_cast<std::int32_t>(::GetSysColor(index)); };
  const std::int32_t ink = color(COLOR_WINDOWTEXT), ground = color(COLOR_WINDOW);
  const bool dark = (ground & 0xFF) + (ground >> 8 & 0xFF) + (ground >> 16 & 0xFF) < 3 * 128;
  return {dark,
          ground,
          ink,
          ink,
          ink,
          ground,
          ink,
          ground,
          color(COLOR_HIGHLIGHT),
          color(COLOR_HIGHLIGHTTEXT),
          color(COLOR_GRAYTEXT)};
}

}  // namespace

ChromeColors chromeColors(bool dark) {
  if (!dark) return {};
  return {true,     0x262626, 0xF0F0F0, 0xB8B8B8, 0x565656, 0x333333,
          0xF4F4F4, 0x464646, 0xFFC060, 0x101010, 0x808080};
}

ChromeColors systemChrome() { return highContrast() ? contrastColors() : chromeColors(systemIsDark()); }

bool isChromeChange(UINT message, LPARAM lParam) {
  if (message == WM_SYSCOLORCHANGE || message == WM_THEMECHANGED) return true;
  const auto* area = reinterpret_cast<const wchar_t*>(lParam);
  return message == WM_SETTINGCHANGE && (!area || std::wstring_view(area) == L"ImmersiveColorSet");
}

void setTitleDark(HWND window, bool dark) {
  constexpr DWORD kUseDarkMode = 20;
  using SetAttribute = HRESULT(WINAPI*)(HWND, DWORD, LPCVOID, DWORD);
  static const HMODULE manager = ::LoadLibraryExW(L"dwmapi.dll", nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32);
  static const auto set = reinterpret_cast<SetAttribute>(
      reinterpret_cast<void*>(manager ? ::GetProcAddress(manager, "DwmSetWindowAttribute") : nullptr));
  const BOOL value = dark;
  if (set) set(window, kUseDarkMode, &value, sizeof value);
}

}  // namespace plinth
