// Every operation makes an exact result in a whole number of up to 224 bits with a scale, and
// DecimalWork::fit then rounds once to what 96 bits and 28 decimals hold: there is one place of rounding and
// one of overflow.
#include "basic/Decimal28.h"

#include <algorithm>
#include <charconv>
#include <cmath>

namespace plinth {
namespace {

__extension__ using U128 = unsigned __int128;

constexpr int kMaxScale = 28;
constexpr U128 kMaxMagnitude = (U128{1} << 96) - 1;

enum class Rounding { halfEven, halfAway };

// Whole number of 224 bits, little-endian 32-bit words: holds a product of two 96-bit numbers, and a 128-bit
// number times 10^28.
struct Wide {
  std::array<std::uint32_t, 7> words{};

  explicit Wide(U128 value) {
    for (int i = 0; i < 4; ++i) words[i] = static_cast<std::uint32_t>(value >> 32 * i);
  }
  bool fits() const { return (words[3] | words[4] | words[5] | words[6]) == 0; }
  U128 low() const {
    return U128{words[3]} << 96 | U128{words[2]} << 64 | std::uint64_t{words[1]} << 32 | words[0];
  }
  void multiply(std::uint32_t factor) {
    std::uint64_t carry = 0;
    for (std::uint32_t& word : words) {
      carry += std::uint64_t{word} * factor;
      word = static_cast<std::uint32_t>(carry);
      carry >>= 32;
    }
  }
  void scaleUp(int digits) {
    while (digits-- > 0) multiply(10);
  }
  // Returns the digit that falls off.
  int dropDigit() {
    std::uint64_t rest = 0;
    for (int i = static_cast<int>(words.size()) - 1; i >= 0; --i) {
      rest = rest << 32 | words[i];
      words[i] = static_cast<std::uint32_t>(rest / 10);
      rest %= 10;
    }
    return static_cast<int>(rest);
  }
  void add(const Wide& other) {
    std::uint64_t carry = 0;
    for (std::size_t i = 0; i < words.size(); ++i) {
      carry += std::uint64_t{words[i]} + other.words[i];
      words[i] = static_cast<std::uint32_t>(carry);
      carry >>= 32;
    }
  }
  // REQUIRES *this >= other.
  void subtract(const Wide& other) {
    std::int64_t borrow = 0;
    for (std::size_t i = 0; i < words.size(); ++i) {
      borrow += std::int64_t{words[i]} - other.words[i];
      words[i] = static_cast<std::uint32_t>(borrow);
      borrow >>= 32;
    }
  }
  int compare(const Wide& other) const {
    for (int i = static_cast<int>(words.size()) - 1; i >= 0; --i) {
      if (words[i] != other.words[i]) return words[i] < other.words[i] ? -1 : 1;
    }
    return 0;
  }
};

Wide product(U128 a, U128 b) {
  if (a >> 64 == 0 && b >> 64 == 0) return Wide(a * b);
  Wide out{0};
  for (int shift = 2; shift >= 0; --shift) {
    for (int i = static_cast<int>(out.words.size()) - 1; i > 0; --i) out.words[i] = out.words[i - 1];
    out.words[0] = 0;
    Wide part(a);
    part.multiply(static_cast<std::uint32_t>(b >> 32 * shift));
    out.add(part);
  }
  return out;
}

bool roundsUp(int digit, bool sticky, bool odd, Rounding rounding) {
  if (digit != 5) return digit > 5;
  return sticky || odd || rounding == Rounding::halfAway;
}

}  // namespace

class DecimalWork {
 public:
  static U128 magnitude(const Decimal28& d) {
    return U128{d.words_[2]} << 64 | std::uint64_t{d.words_[1]} << 32 | d.words_[0];
  }
  static int scale(const Decimal28& d) { return d.scale_; }

  // REQUIRES magnitude <= kMaxMagnitude and scale 0 to 28.
  static Decimal28 make(U128 magnitude, int scale, bool negative) {
    Decimal28 out;
    for (int i = 0; i < 3; ++i) out.words_[i] = static_cast<std::uint32_t>(magnitude >> 32 * i);
    out.scale_ = static_cast<std::uint8_t>(scale);
    out.negative_ = negative && magnitude != 0;
    return out;
  }

  // The decimal nearest to value / 10^scale, where `sticky` says that a little more than value is meant.
  static std::optional<Decimal28> fit(Wide value, int scale, bool negative, bool sticky = false) {
    int digit = 0;
    const auto drop = [&] {
      sticky |= digit != 0;
      digit = value.dropDigit();
      --scale;
    };
    for (; scale < 0; ++scale) {
      if (!value.fits()) return std::nullopt;
      if (value.low() == 0) scale = -1;
      value.multiply(10);
    }
    while (scale > kMaxScale) {
      if (value.fits() && value.low() == 0 && digit == 0)
        scale = kMaxScale + 1;  // a zero however far behind the point
      drop();
    }
    for (;;) {
      while (!value.fits()) {
        if (scale == 0) return std::nullopt;
        drop();
      }
      const U128 whole = value.low();
      if (!roundsUp(digit, sticky, whole & 1, Rounding::halfEven)) return make(whole, scale, negative);
      if (whole < kMaxMagnitude) return make(whole + 1, scale, negative);
      if (scale == 0) return std::nullopt;
      drop();  // the carry needs a digit more than there is room for
    }
  }

  static Decimal28 withDecimals(const Decimal28& d, int decimals, Rounding rounding) {
    int left = scale(d) - std::clamp(decimals, 0, kMaxScale);
    if (left <= 0) return d;
    U128 whole = magnitude(d);
    int digit = 0;
    bool sticky = false;
    for (; left > 0; --left) {
      sticky |= digit != 0;
      digit = static_cast<int>(whole % 10);
      whole /= 10;
    }
    if (roundsUp(digit, sticky, whole & 1, rounding)) ++whole;
    return make(whole, std::clamp(decimals, 0, kMaxScale), d.isNegative());
  }

  static std::optional<Decimal28> sum(const Decimal28& a, const Decimal28& b, bool negateB) {
    const int common = std::max(scale(a), scale(b));
    Wide x(magnitude(a)), y(magnitude(b));
    x.scaleUp(common - scale(a));
    y.scaleUp(common - scale(b));
    const bool bNegative = b.isNegative() != negateB;
    if (a.isNegative() == bNegative) {
      x.add(y);
      return fit(x, common, bNegative);
    }
    if (x.compare(y) >= 0) {
      x.subtract(y);
      return fit(x, common, a.isNegative());
    }
    y.subtract(x);
    return fit(y, common, bNegative);
  }
};

Decimal28::Decimal28(std::int64_t whole) {
  const auto bits = static_cast<std::uint64_t>(whole);
  *this = DecimalWork::make(whole < 0 ? 0 - bits : bits, 0, whole < 0);
}

std::optional<Decimal28> Decimal28::fromDouble(double value) {
  if (!std::isfinite(value)) return std::nullopt;
  char text[64];
  const auto end = std::to_chars(text, text + sizeof text, value, std::chars_format::scientific, 14).ptr;
  return fromText({text, static_cast<std::size_t>(end - text)});
}

std::optional<Decimal28> Decimal28::fromText(std::string_view text) {
  const auto isDigit = [&](std::size_t i) { return i < text.size() && text[i] >= '0' && text[i] <= '9'; };
  std::size_t at = 0;
  const bool negative = text.starts_with('-');
  if (negative || text.starts_with('+')) ++at;
  constexpr U128 kEnough = kMaxMagnitude * 100;  // digits beyond only decide a tie
  U128 value = 0;
  std::int64_t scale = 0;
  bool sticky = false, any = false, point = false;
  for (; isDigit(at) || (at < text.size() && text[at] == '.' && !point); ++at) {
    if (text[at] == '.') {
      point = true;
      continue;
    }
    any = true;
    const int digit = text[at] - '0';
    if (value < kEnough) {
      value = value * 10 + digit;
      scale += point;
    } else {
      sticky |= digit != 0;
      scale -= !point;
    }
  }
  if (!any) return std::nullopt;
  if (at < text.size() && (text[at] == 'e' || text[at] == 'E')) {
    ++at;
    const bool down = at < text.size() && text[at] == '-';
    if (down || (at < text.size() && text[at] == '+')) ++at;
    if (!isDigit(at)) return std::nullopt;
    std::int64_t exponent = 0;
    for (; isDigit(at); ++at)
      exponent = std::min<std::int64_t>(exponent * 10 + (text[at] - '0'), 1'000'000'000);
    scale += down ? exponent : -exponent;
  }
  if (at != text.size()) return std::nullopt;
  scale = std::clamp<std::int64_t>(scale, -1000, 1000);  // far outside either way
  return DecimalWork::fit(Wide(value), static_cast<int>(scale), negative, sticky);
}

double Decimal28::toDouble() const {
  const std::string text = toText();
  double value = 0;
  std::from_chars(text.data(), text.data() + text.size(), value);
  return value;
}

std::string Decimal28::toText() const {
  char digits[40];
  char* const end = digits + sizeof digits;
  char* p = end;
  U128 whole = DecimalWork::magnitude(*this);
  bool significant = false;
  for (int place = scale_; whole != 0 || place >= 0; --place) {
    const char digit = static_cast<char>('0' + static_cast<int>(whole % 10));
    whole /= 10;
    significant |= digit != '0' || place <= 0;
    if (significant) *--p = digit;
    if (place == 1 && p != end) *--p = '.';
  }
  if (negative_) *--p = '-';
  return {p, end};
}

bool Decimal28::isZero() const { return (words_[0] | words_[1] | words_[2]) == 0; }
bool Decimal28::isNegative() const { return negative_; }

Decimal28 Decimal28::negated() const {
  Decimal28 out = *this;
  out.negative_ = !negative_ && !isZero();
  return out;
}

Decimal28 Decimal28::absolute() const { return negative_ ? negated() : *this; }

Decimal28 Decimal28::rounded(int decimals) const {
  return DecimalWork::withDecimals(*this, decimals, Rounding::halfEven);
}

Decimal28 Decimal28::roundedAway(int decimals) const {
  return DecimalWork::withDecimals(*this, decimals, Rounding::halfAway);
}

std::optional<Decimal28> Decimal28::add(const Decimal28& a, const Decimal28& b) {
  return DecimalWork::sum(a, b, false);
}

std::optional<Decimal28> Decimal28::subtract(const Decimal28& a, const Decimal28& b) {
  return DecimalWork::sum(a, b, true);
}

std::optional<Decimal28> Decimal28::multiply(const Decimal28& a, const Decimal28& b) {
  return DecimalWork::fit(product(DecimalWork::magnitude(a), DecimalWork::magnitude(b)), a.scale_ + b.scale_,
                          a.negative_ != b.negative_);
}

std::optional<Decimal28> Decimal28::divide(const Decimal28& a, const Decimal28& b) {
  const U128 divisor = DecimalWork::magnitude(b);
  if (divisor == 0) return std::nullopt;
  U128 quotient = DecimalWork::magnitude(a) / divisor;
  U128 rest = DecimalWork::magnitude(a) % divisor;
  int scale = a.scale_ - b.scale_;
  // Long division to at least one digit more than can stay, so that fit alone rounds.
  while (rest != 0 && quotient <= kMaxMagnitude && scale <= kMaxScale) {
    rest *= 10;
    quotient = quotient * 10 + rest / divisor;
    rest %= divisor;
    ++scale;
  }
  return DecimalWork::fit(Wide(quotient), scale, a.negative_ != b.negative_, rest != 0);
}

int Decimal28::compare(const Decimal28& a, const Decimal28& b) {
  if (a.negative_ != b.negative_) return a.negative_ ? -1 : 1;
  Wide x(DecimalWork::magnitude(a)), y(DecimalWork::magnitude(b));
  const int common = std::max(a.scale_, b.scale_);
  x.scaleUp(common - a.scale_);
  y.scaleUp(common - b.scale_);
  return a.negative_ ? y.compare(x) : x.compare(y);
}

}  // namespace plinth
