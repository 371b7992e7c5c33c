// Stamping against a plain scan of every offset, and the rules of names, lengths and fillers.
#include "builder/Stamping.h"

#include <gtest/gtest.h>

#include <random>

namespace plinth {
namespace {

constexpr std::string_view kProduct = "9999012345678901234567890123456789012345";
constexpr std::string_view kTrademarks = "0123456789012345678901234567890123456789";
constexpr std::string_view kCompany = "COMPANY-NAME-FIELD-PLACEHOLDER-ABCDEFGHI";

void appendWide(Bytes& image, std::string_view text) {
  for (const char c : text) {
    image.push_back(static_cast<std::uint8_t>(c));
    image.push_back(0);
  }
}

Bytes stubWith(std::initializer_list<std::string_view> texts) {
  Bytes image(50, 0x11);
  for (const std::string_view text : texts) {
    appendWide(image, text);
    image.insert(image.end(), 7, 0x22);
  }
  image.resize(image.size() + 200, 0x33);
  return image;
}

bool holdsWide(const Bytes& image, std::string_view text, std::size_t zeros) {
  Bytes wide;
  appendWide(wide, text);
  wide.insert(wide.end(), zeros, 0);
  return std::search(image.begin(), image.end(), wide.begin(), wide.end()) != image.end();
}

// Every offset in turn, as the rule reads.
std::int64_t plainReplace(Bytes& image, std::string_view search, std::string_view value) {
  Bytes stamp;
  appendWide(stamp, value);
  stamp.insert(stamp.end(), 80, 0);
  stamp.resize(2 * search.size());
  std::int64_t last = -1;
  for (std::size_t i = 1; i + 81 <= image.size(); ++i) {
    bool same = true;
    for (std::size_t k = 0; k < 15; ++k) {
      same = same && image[i + 2 * k] == static_cast<std::uint8_t>(search[k]);
    }
    if (!same) continue;
    std::copy(stamp.begin(), stamp.end(), image.begin() + static_cast<std::ptrdiff_t>(i));
    last = static_cast<std::int64_t>(i);
  }
  return last;
}

TEST(Stamping, EqualsAPlainScanOfEveryOffset) {
  std::mt19937 random(1);
  for (int round = 0; round < 60; ++round) {
    // Few different bytes and many starts of places, whole or broken, even and odd, up to both ends.
    Bytes image;
    while (image.size() < 3000) {
      const int kind = static_cast<int>(random() % 4);
      if (kind == 0) image.insert(image.end(), random() % 9, '9');
      if (kind == 1) appendWide(image, kProduct.substr(random() % 8, random() % 41));
      if (kind == 2) appendWide(image, kTrademarks.substr(0, 12 + random() % 6));
      if (kind == 3) image.push_back(static_cast<std::uint8_t>(random()));
    }
    image.resize(3000);
    Bytes expected = image;
    for (const std::string_view search : {kProduct, kTrademarks}) {
      EXPECT_EQ(ReplaceBin(image, search, "0123456789012345 new"),
                plainReplace(expected, search, "0123456789012345 new"));
      ASSERT_EQ(image, expected);
    }
  }
}

TEST(Stamping, WritesVersionTextsOverTheirPlaces) {
  const std::string forty(40, 'x');
  FileProperties properties;
  properties.comments = {"Company", "", forty + "y", "Marks", "Product", "1.0"};
  struct Case {
    std::string appName, original;
    std::size_t zeros;
  };
  for (const Case& one : {Case{"my", "my.exe", 18}, Case{"elevenchars", "elevenchars.exe", 0},
                          Case{"twelve-chars", "Application.exe", 0}}) {
    Bytes stub =
        stubWith({kCompany, "FILE-DESCRIPTION-FIELD-PLACEHOLDER-ABCDE",
                  "LEGAL-COPYRIGHT-FIELD-PLACEHOLDER-ABCDEF", kTrademarks, "Application.exe", kProduct});
    const std::size_t size = stub.size();
    stampStub(stub, {}, properties, one.appName);
    EXPECT_EQ(stub.size(), size);
    EXPECT_TRUE(holdsWide(stub, "Company", 66));
    EXPECT_TRUE(holdsWide(stub, "Marks", 70));
    EXPECT_TRUE(holdsWide(stub, "Product", 66));
    EXPECT_TRUE(holdsWide(stub, forty, 0));
    EXPECT_FALSE(holdsWide(stub, forty + "y", 0));
    EXPECT_TRUE(holdsWide(stub, one.original, one.zeros)) << one.appName;
    for (const std::string_view word : {"PLACEHOLDER", "0123456789"}) EXPECT_FALSE(holdsWide(stub, word, 0));
  }
}

Bytes iconWithPixels(std::size_t count, std::uint8_t first = 1) {
  Bytes icon(kIconPixels, 0xEE);
  for (std::size_t i = 0; i < count; ++i) icon.push_back(static_cast<std::uint8_t>(first + i % 100));
  return icon;
}

TEST(Stamping, PutsTheIconOverFillersOnly) {
  struct Case {
    const char* what;
    std::size_t before, filler, pixels;
    int stamped;
    std::size_t written;
  };
  for (const Case& one :
       {Case{"whole", 20, 640, 640, 1, 640}, Case{"cut to the filler", 20, 640, 9000, 1, 640},
        Case{"too short", 20, 10, 640, 0, 0}, Case{"just a place", 20, 11, 640, 1, 11},
        Case{"again behind a short icon", 20, 640, 209, 4, 640},
        Case{"a rest too short", 20, 640, 211, 3, 633}, Case{"no pixels", 20, 640, 0, 0, 0}}) {
    Bytes image(one.before, 0x44);
    image.insert(image.end(), one.filler, kIconFiller);
    image.insert(image.end(), 30, 0x44);
    const Bytes icon = iconWithPixels(one.pixels);
    EXPECT_EQ(stampIcon(image, icon), one.stamped) << one.what;
    for (std::size_t i = 0; i < image.size(); ++i) {
      const bool inside = i >= one.before && i < one.before + one.filler;
      const bool written = inside && i < one.before + one.written;
      const std::uint8_t expected = !inside    ? 0x44
                                    : !written ? kIconFiller
                                               : icon[kIconPixels + (i - one.before) % one.pixels];
      ASSERT_EQ(image[i], expected) << one.what << " at " << i;
    }
  }
}

// A program with one section of resources at `from`: all that the search for them reads.
Bytes programWithResources(const Bytes& code, const Bytes& resources) {
  Bytes image(0x200, 0);
  image[0] = 'M', image[1] = 'Z', image[0x3C] = 0x80;
  image[0x80] = 'P', image[0x81] = 'E', image[0x86] = 1;
  const std::string_view name = ".rsrc";
  std::copy(name.begin(), name.end(), image.begin() + 0x98);
  const auto put = [&](std::size_t at, std::size_t value) {
    for (int k = 0; k < 4; ++k) image[at + k] = static_cast<std::uint8_t>(value >> (8 * k));
  };
  put(0x98 + 16, resources.size());
  put(0x98 + 20, image.size() + code.size());
  image.insert(image.end(), code.begin(), code.end());
  image.insert(image.end(), resources.begin(), resources.end());
  return image;
}

// The library's table of digit pairs looks like a placeholder, and one of its numbers like an icon's filler;
// stamped over, the application shows no digits.
TEST(Stamping, LeavesTheProgramOutsideItsResourcesAlone) {
  Bytes digits(40, 0x55);
  for (int pair = 0; pair < 100; ++pair) {
    digits.push_back(static_cast<std::uint8_t>('0' + pair / 10));
    digits.push_back(static_cast<std::uint8_t>('0' + pair % 10));
  }
  digits.insert(digits.end(), 14, kIconFiller);
  digits.resize(digits.size() + 100, 0x55);
  Bytes image = programWithResources(digits, stubWith({kProduct, kTrademarks}));
  FileProperties properties;
  properties.comments[3] = "Marks";
  properties.comments[4] = "Product";
  stampStub(image, iconWithPixels(640), properties, "App");
  EXPECT_TRUE(std::equal(digits.begin(), digits.end(), image.begin() + 0x200));
  EXPECT_TRUE(holdsWide(image, "Marks", 20));
  EXPECT_TRUE(holdsWide(image, "Product", 20));
}

TEST(Stamping, TakesEachFillerOnceThoughTheIconHoldsOne) {
  Bytes image(5, 0);
  for (int i = 0; i < 2; ++i) {
    image.insert(image.end(), 640, kIconFiller);
    image.insert(image.end(), 5, 0);
  }
  Bytes icon = iconWithPixels(640);
  std::fill_n(icon.begin() + 300, 200, kIconFiller);
  EXPECT_EQ(stampIcon(image, icon), 2);
  EXPECT_TRUE(std::equal(icon.begin() + kIconPixels, icon.end(), image.begin() + 650));
}

}  // namespace
}  // namespace plinth
