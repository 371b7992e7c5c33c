// Which letter an accented one belongs to stands in one short table over all code pages; what it does not
// know keeps the order of its characters.
#include "engine/search/TextOrder.h"

#include <algorithm>
#include <string>
#include <string_view>
#include <tuple>
#include <vector>

#include "basic/CodePage.h"
#include "basic/Substitution.h"

namespace plinth {
namespace {

struct LetterFamily {
  char16_t plain;
  std::u16string_view others;  // in any order
};
constexpr LetterFamily kFamilies[] = {
    {u'a', u"\u00AAàáâãäåæăąāǎ"},
    {u'c', u"çćčĉċ"},
    {u'd', u"ďđð"},
    {u'e', u"èéêëęěėē"},
    {u'f', u"ƒ"},
    {u'g', u"ğģ"},
    {u'i', u"ìíîïİıīį"},
    {u'k', u"ķ"},
    {u'l', u"łľĺļ"},
    {u'n', u"ñńňņ"},
    {u'o', u"\u00BAòóôõöøœőōơ"},
    {u'r', u"ŕřŗ"},
    {u's', u"śšşșß"},
    {u't', u"ťţțþ"},
    {u'u', u"ùúûüůűūųư"},
    {u'y', u"ýÿ"},
    {u'z', u"źžż"},
    {u'α', u"ά"},
    {u'ε', u"έ"},
    {u'η', u"ή"},
    {u'ι', u"ίϊΐ"},
    {u'ο', u"ό"},
    {u'σ', u"ς"},
    {u'υ', u"ύϋΰ"},
    {u'ω', u"ώ"},
    {u'г', u"ґѓ"},
    {u'д', u"ђ"},
    {u'е', u"ёє"},
    {u'з', u"ѕ"},
    {u'и', u"ії"},
    {u'й', u"ј"},
    {u'к', u"ќ"},
    {u'л', u"љ"},
    {u'н', u"њ"},
    {u'т', u"ћ"},
    {u'у', u"ў"},
    {u'ч', u"џ"},
};

char16_t plainLetter(char16_t letter) {
  for (const LetterFamily& family : kFamilies)
    if (family.others.find(letter) != std::u16string_view::npos) return family.plain;
  return letter;
}

bool isLetter(char16_t c) {
  if (c < 0x80) return c >= 'a' && c <= 'z';
  if (plainLetter(c) != c) return true;
  struct Range {
    char16_t first, last;
  };
  static constexpr Range kOthers[] = {{0x80, 0xBF},   {0xD7, 0xD7},   {0xF7, 0xF7},
                                      {0x2B0, 0x36F}, {0x600, 0x620}, {0x640, 0x640},
                                      {0xE3F, 0xE3F}, {0xE4F, 0xE5B}, {0x2000, 0xFFFF}};
  return std::none_of(std::begin(kOthers), std::end(kOthers),
                      [&](const Range& range) { return c >= range.first && c <= range.last; });
}

enum class Group { blank, control, punctuation, digit, letter };

Group groupOf(char16_t c) {
  if (c == u' ' || c == 0) return Group::blank;
  if (c < 0x20 || (c >= 0x7F && c <= 0xA0)) return Group::control;
  if (c >= u'0' && c <= u'9') return Group::digit;
  return isLetter(c) ? Group::letter : Group::punctuation;
}

bool isDoubleByte(int codePage) {
  return codePage == 932 || codePage == 936 || codePage == 949 || codePage == 950;
}

}  // namespace

std::array<std::uint8_t, 256> textWeights(int codePage) {
  struct Place {
    std::tuple<Group, char16_t, bool, char16_t>
        order;  // group, plain letter, has an accent, the letter itself
    std::size_t byte;
  };
  std::vector<Place> places;
  for (std::size_t byte = 0; byte < 256; ++byte) {
    const std::string letter =
        lowerCase(upperCase(std::string(1, static_cast<char>(byte)), codePage), codePage);
    char16_t c = toUtf16(letter, codePage)[0];
    const Group group = groupOf(c);
    if (group == Group::blank) c = u' ';
    const char16_t plain = group == Group::letter ? plainLetter(c) : c;
    places.push_back({{group, plain, plain != c, c}, byte});
  }
  std::sort(places.begin(), places.end(), [](const Place& a, const Place& b) { return a.order < b.order; });
  std::array<std::uint8_t, 256> weights{};
  std::uint8_t weight = 0;
  for (std::size_t i = 0; i < places.size(); ++i) {
    if (i > 0 && places[i - 1].order != places[i].order) ++weight;
    weights[places[i].byte] = weight;
  }
  return weights;
}

TextOrder::TextOrder(int codePage, bool scrambled)
    : codePage_(codePage), doubleByte_(isDoubleByte(codePage)) {
  std::array<std::uint8_t, 256> weights{};
  if (!doubleByte_) weights = textWeights(codePage);
  for (std::size_t byte = 0; byte < 256; ++byte) {
    const std::size_t plain = scrambled ? inverseSubstitutionTable()[byte] : byte;
    table_[byte] = doubleByte_ ? static_cast<std::uint8_t>(plain) : weights[plain];
  }
}

void TextOrder::weigh(std::span<const std::uint8_t> text, std::span<std::uint8_t> weights) const {
  const std::size_t count = std::min(text.size(), weights.size());
  for (std::size_t i = 0; i < count; ++i) weights[i] = table_[text[i]];
  if (doubleByte_) {
    const std::string folded = lowerCase({reinterpret_cast<const char*>(weights.data()), count}, codePage_);
    for (std::size_t i = 0; i < count; ++i)
      weights[i] = folded[i] == ' ' ? std::uint8_t{0} : static_cast<std::uint8_t>(folded[i]);
  }
  std::fill(weights.begin() + static_cast<std::ptrdiff_t>(count), weights.end(), std::uint8_t{0});
}

}  // namespace plinth
