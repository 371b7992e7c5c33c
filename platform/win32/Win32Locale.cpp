// The regional settings of the person. They are told in UTF-16, so that nothing depends on the page of the
// process; the texts leave in the system's 8-bit page.
#include <algorithm>
#include <cwchar>

#include "platform/LocaleForms.h"
#include "platform/SystemLocale.h"
#include "platform/win32/Win32Text.h"
#include "platform/win32/WindowsApi.h"

namespace plinth {
namespace {

std::wstring wideSetting(LCTYPE type) {
  wchar_t buffer[256];
  const int count = ::GetLocaleInfoW(LOCALE_USER_DEFAULT, type, buffer, 256);
  return count > 0 ? std::wstring(buffer, static_cast<std::size_t>(count - 1)) : std::wstring();
}

int numberSetting(LCTYPE type, int fallback) {
  const std::wstring text = wideSetting(type);
  return text.empty() ? fallback : static_cast<int>(std::wcstol(text.c_str(), nullptr, 10));
}

// Programs may run with UTF-8 as the system's page, which is no 8-bit page: then that of the person's
// language counts.
int pageOfPerson() {
  if (systemCodePage() != CP_UTF8) return systemCodePage();
  const int page = numberSetting(LOCALE_IDEFAULTANSICODEPAGE, 1252);
  return page == 0 || page == CP_UTF8 ? 1252 : page;
}

class Reader {
 public:
  explicit Reader(int codePage) : codePage_(codePage) {}
  // Thin blanks, which no 8-bit page has, become no-break spaces.
  std::string text(LCTYPE type) const {
    std::wstring wide = wideSetting(type);
    std::replace_if(
        wide.begin(), wide.end(), [](wchar_t c) { return c == 0x202F || c == 0x2009; }, wchar_t{0xA0});
    return fromWide(wide, codePage_);
  }
  void into(std::string& target, LCTYPE type) const {
    if (std::string found = text(type); !found.empty()) target = found;
  }
  void into(char& target, LCTYPE type) const {
    if (const std::string found = text(type); found.size() == 1) target = found[0];
  }

 private:
  int codePage_;
};

}  // namespace

Locale systemLocale() {
  Locale locale;
  locale.codePage = pageOfPerson();
  const Reader read(locale.codePage);
  read.into(locale.decimalSeparator, LOCALE_SDECIMAL);
  locale.groupSeparator = read.text(LOCALE_STHOUSAND);
  read.into(locale.currencySymbol, LOCALE_SCURRENCY);
  locale.currencyDecimals = numberSetting(LOCALE_ICURRDIGITS, locale.currencyDecimals);
  locale.positiveCurrencyFormat = numberSetting(LOCALE_ICURRENCY, locale.positiveCurrencyFormat);
  locale.negativeCurrencyFormat = numberSetting(LOCALE_INEGCURR, locale.negativeCurrencyFormat);
  read.into(locale.shortDatePattern, LOCALE_SSHORTDATE);
  read.into(locale.longDatePattern, LOCALE_SLONGDATE);
  read.into(locale.timePattern, LOCALE_STIMEFORMAT);
  locale.dateSeparator = separatorOfPattern(locale.shortDatePattern, '/');
  locale.timeSeparator = separatorOfPattern(locale.timePattern, ':');
  locale.amText = read.text(LOCALE_S1159);
  locale.pmText = read.text(LOCALE_S2359);
  for (LCTYPE day = 0; day < 7; ++day) {
    const LCTYPE fromMonday = (day + 6) % 7;
    read.into(locale.dayNames[day], LOCALE_SDAYNAME1 + fromMonday);
    read.into(locale.dayAbbreviations[day], LOCALE_SABBREVDAYNAME1 + fromMonday);
  }
  for (LCTYPE month = 0; month < 12; ++month) {
    read.into(locale.monthNames[month], LOCALE_SMONTHNAME1 + month);
    read.into(locale.monthAbbreviations[month], LOCALE_SABBREVMONTHNAME1 + month);
  }
  return locale;
}

}  // namespace plinth
