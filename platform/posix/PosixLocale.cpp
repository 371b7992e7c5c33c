// The locale of the environment, read without touching the one the program runs in. Its texts come in
// whatever encoding the environment names and leave in the 8-bit page of its language.
#include <langinfo.h>
#include <locale.h>

#include <climits>
#include <cstdlib>

#include "basic/CodePage.h"
#include "basic/Text.h"
#include "platform/LocaleForms.h"
#include "platform/SystemLocale.h"
#include "platform/posix/Iconv.h"

namespace plinth {
namespace {

class EnvironmentLocale {
 public:
  EnvironmentLocale() : handle_(::newlocale(LC_ALL_MASK, "", nullptr)) {}
  ~EnvironmentLocale() {
    if (handle_) ::freelocale(handle_);
  }
  EnvironmentLocale(const EnvironmentLocale&) = delete;
  EnvironmentLocale& operator=(const EnvironmentLocale&) = delete;
  explicit operator bool() const { return handle_ != nullptr; }
  std::string info(nl_item item) const { return ::nl_langinfo_l(item, handle_); }
  // lconv is the current locale's only: this thread's is changed and put back.
  template <class Use>
  void withLconv(Use use) const {
    const locale_t before = ::uselocale(handle_);
    use(*::localeconv());
    ::uselocale(before);
  }

 private:
  locale_t handle_;
};

// The locale name that the environment gives a category; "" for the C library's own, which knows no person's
// forms.
std::string nameOf(const char* category) {
  for (const char* variable : {"LC_ALL", category, "LANG"}) {
    const char* value = std::getenv(variable);
    if (!value || !*value) continue;
    const std::string name = value;
    return name == "POSIX" || name == "C" || name.rfind("C.", 0) == 0 ? "" : name;
  }
  return "";
}

int codePageOfEnvironment() {
  for (const char* category : {"LC_CTYPE", "LC_TIME", "LC_NUMERIC", "LC_MONETARY"})
    if (const std::string name = nameOf(category); !name.empty()) return codePageOfLocaleName(name);
  return 1252;
}

// Environment text to 8-bit text. Thin blanks, which no 8-bit page has, become no-break spaces.
class TextOfLocale {
 public:
  TextOfLocale(const std::string& encoding, int codePage)
      : toUtf8_("UTF-8", encoding.c_str()), codePage_(codePage) {}
  std::string operator()(const std::string& text) {
    std::string utf8 = toUtf8_.ok() ? toUtf8_.convert(text, "?") : text;
    for (const char* thin : {"\xE2\x80\xAF", "\xE2\x80\x89"}) utf8 = replaceAll(utf8, thin, "\xC2\xA0");
    return fromUtf8(utf8, codePage_);
  }

 private:
  Iconv toUtf8_;
  int codePage_;
};

void readNumbers(const lconv& forms, TextOfLocale& text, Locale& locale) {
  const std::string decimal = text(forms.decimal_point);
  if (decimal.size() == 1) locale.decimalSeparator = decimal[0];
  locale.groupSeparator = text(forms.thousands_sep);
}

void readMoney(const lconv& forms, TextOfLocale& text, Locale& locale) {
  const std::string symbol = text(forms.currency_symbol);
  if (!symbol.empty()) locale.currencySymbol = symbol;
  if (forms.frac_digits != CHAR_MAX) locale.currencyDecimals = forms.frac_digits;
  if (forms.p_cs_precedes != CHAR_MAX)
    locale.positiveCurrencyFormat =
        positiveCurrencyFormat(forms.p_cs_precedes != 0, forms.p_sep_by_space != 0);
  if (forms.n_cs_precedes != CHAR_MAX)
    locale.negativeCurrencyFormat =
        negativeCurrencyFormat(forms.n_cs_precedes != 0, forms.n_sep_by_space != 0, forms.n_sign_posn);
}

void readDates(const EnvironmentLocale& environment, TextOfLocale& text, Locale& locale) {
  for (int day = 0; day < 7; ++day) {
    locale.dayNames[day] = text(environment.info(DAY_1 + day));
    locale.dayAbbreviations[day] = text(environment.info(ABDAY_1 + day));
  }
  for (int month = 0; month < 12; ++month) {
    locale.monthNames[month] = text(environment.info(MON_1 + month));
    locale.monthAbbreviations[month] = text(environment.info(ABMON_1 + month));
  }
  locale.amText = text(environment.info(AM_STR));
  locale.pmText = text(environment.info(PM_STR));
  const std::string date = text(patternOfStrftime(environment.info(D_FMT)));
  if (!date.empty()) locale.shortDatePattern = date;
  locale.longDatePattern = longDatePatternLike(locale.shortDatePattern);
  const std::string time = text(patternOfStrftime(environment.info(T_FMT)));
  if (!time.empty()) locale.timePattern = time;
  locale.dateSeparator = separatorOfPattern(locale.shortDatePattern, '/');
  locale.timeSeparator = separatorOfPattern(locale.timePattern, ':');
}

}  // namespace

Locale systemLocale() {
  Locale locale;
  const EnvironmentLocale environment;
  if (!environment) return locale;
  locale.codePage = codePageOfEnvironment();
  TextOfLocale text(environment.info(CODESET), locale.codePage);
  environment.withLconv([&](const lconv& forms) {
    if (!nameOf("LC_NUMERIC").empty()) readNumbers(forms, text, locale);
    if (!nameOf("LC_MONETARY").empty()) readMoney(forms, text, locale);
  });
  if (!nameOf("LC_TIME").empty()) readDates(environment, text, locale);
  return locale;
}

}  // namespace plinth
