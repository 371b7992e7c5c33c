// What only Windows has: the registry, regional settings, wide text and pictures.
#include <gtest/gtest.h>

#include "basic/CodePage.h"
#include "platform/Settings.h"
#include "platform/Shell.h"
#include "platform/SystemCodec.h"
#include "platform/SystemLocale.h"
#include "platform/win32/Resources.h"
#include "platform/win32/WicPictures.h"
#include "platform/win32/Win32Errors.h"
#include "platform/win32/Win32Text.h"
#include "tests/platform/TempFolder.h"

namespace plinth {
namespace {

TEST(Win32Errors, meanTheSameAsElsewhere) {
  const struct {
    DWORD code;
    ErrorKind kind;
  } cases[] = {{2, ErrorKind::notFound}, {3, ErrorKind::notFound}, {5, ErrorKind::denied},
               {19, ErrorKind::denied},  {32, ErrorKind::locked},  {33, ErrorKind::locked},
               {112, ErrorKind::full},   {1117, ErrorKind::failed}};
  for (const auto& c : cases) {
    const Error error = windowsError(c.code, "C:\\a");
    EXPECT_EQ(error.kind, c.kind) << c.code;
    EXPECT_EQ(error.text.rfind("C:\\a: ", 0), 0u) << error.text;
    EXPECT_NE(error.text.back(), '\n');
  }
}

TEST(RegistrySettings, keepsValues) {
  const std::string application = "Test" + std::to_string(::GetCurrentProcessId());
  const auto settings = systemSettings(application);
  EXPECT_EQ(settings->get("Settings", "Left", "none"), "none");
  for (const std::string& text :
       {std::string("12"), std::string(""), std::string(5000, 'x'), std::string("\x80\xE4")}) {
    settings->set("Settings", "Left", text);
    EXPECT_EQ(systemSettings(application)->get("SETTINGS", "LEFT", "none"), text);
  }
  ::RegDeleteTreeA(HKEY_CURRENT_USER, ("Software\\Plinth\\" + application).c_str());
}

TEST(Win32Locale, followsTheRegionalSettings) {
  const auto decimalAs = [](wchar_t decimal) {
    const wchar_t text[] = {decimal, 0};
    ::SetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_SDECIMAL, text);
    return systemLocale();
  };
  const char before = systemLocale().decimalSeparator;
  EXPECT_EQ(decimalAs(L';').decimalSeparator, ';');
  const Locale locale = decimalAs(static_cast<wchar_t>(before));
  EXPECT_EQ(locale.decimalSeparator, before);
  wchar_t sunday[80] = {}, january[80] = {};
  ::GetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_SDAYNAME7, sunday, 80);
  ::GetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_SMONTHNAME1, january, 80);
  EXPECT_EQ(locale.dayNames[0], fromWide(sunday, locale.codePage));
  EXPECT_EQ(locale.monthNames[0], fromWide(january, locale.codePage));
}

TEST(Win32Text, goesByThePageOfTheText) {
  EXPECT_EQ(toWide("\xE4\x80", 1252), L"\u00E4\u20AC");
  EXPECT_EQ(toWide("\xE4", 1251), L"\u0434");
  EXPECT_EQ(fromWide(L"\u0434\u20AC", 1251), "\xE4\x88");
  EXPECT_EQ(toWide("\xC3\xA4", 65001), L"\u00E4");
  installSystemCodec();
  EXPECT_EQ(toUtf8("\x93\xFA\x96{", 932), "日本");
  EXPECT_EQ(fromUtf8("日本€", 932), "\x93\xFA\x96{?");
}

TEST(Win32Shell, waitsForAProgram) {
  EXPECT_EQ(systemShell().runAndWait("cmd /c exit 7"), 7);
  EXPECT_EQ(systemShell().runAndWait("no-such-program.exe"), -1);
  EXPECT_FALSE(systemShell().open("Z:\\no\\such\\file.nothing"));
}

TEST(Resources, areEmptyWhereThereAreNone) { EXPECT_TRUE(resource("CUSTOM", 32000).empty()); }

TEST(WicDecoder, readsWhatSavePngWrote) {
  const TempFolder folder;
  const Pixels pixels{{2, 1}, {0xFFFF0000, 0xFF123456}};
  ASSERT_TRUE(savePng(pixels, folder / "a.png"));
  EXPECT_FALSE(savePng(pixels, folder / "missing/a.png"));
  const auto image =
      std::dynamic_pointer_cast<GdiImage>(WicDecoder().decode(*systemFiles().read(folder / "a.png")));
  ASSERT_TRUE(image);
  EXPECT_EQ(image->pixels().argb, pixels.argb);
  EXPECT_FALSE(image->transparent());
}

TEST(WicDecoder, refusesDamagedBytes) {
  const TempFolder folder;
  ASSERT_TRUE(savePng({{40, 30}, std::vector<std::uint32_t>(1200, 0xFF804020)}, folder / "a.png"));
  const Bytes whole = *systemFiles().read(folder / "a.png");
  WicDecoder decoder;
  for (std::size_t cut = 0; cut < whole.size(); cut += 7)
    static_cast<void>(decoder.decode(Bytes(whole.begin(), whole.begin() + cut)));  // only has to come back
  EXPECT_FALSE(decoder.decode({}));
  EXPECT_FALSE(decoder.decode(Bytes(100, 'x')));
  EXPECT_FALSE(decoder.decode(Bytes(whole.begin(), whole.begin() + 20)));
}

}  // namespace
}  // namespace plinth
