// to_chars does the work; its scientific form is taken apart here, once for all formats. What people enter
// has few decimals and goes by whole numbers, which takes a fraction of the time.
#include "basic/FloatDigits.h"

#include <charconv>
#include <cmath>
#include <cstdlib>

namespace plinth {
namespace {

constexpr int kExactDigits = 15;

FloatDigits takeApart(const char* p, const char* end) {
  FloatDigits out;
  out.negative = *p == '-';
  if (out.negative) ++p;
  for (; p != end && *p != 'e'; ++p) {
    if (*p != '.') out.text[out.count++] = *p;
  }
  if (p != end) std::from_chars(p[1] == '+' ? p + 2 : p + 1, end, out.point);
  ++out.point;
  while (out.count > 1 && out.text[out.count - 1] == '0') --out.count;
  return out;
}

template <class T>
FloatDigits shortest(T value) {
  char text[32];
  return takeApart(text, std::to_chars(text, text + sizeof text, value, std::chars_format::scientific).ptr);
}

std::optional<FloatDigits> fewDecimals(double value) {
  const auto scaled = tenThousandths(value);
  if (!scaled) return std::nullopt;
  FloatDigits out;
  out.negative = std::signbit(value);
  const std::int64_t size = std::abs(*scaled);
  out.count = static_cast<int>(std::to_chars(out.text, out.text + sizeof out.text, size).ptr - out.text);
  out.point = size == 0 ? 1 : out.count - 4;
  while (out.count > 1 && out.text[out.count - 1] == '0') --out.count;
  return out;
}

}  // namespace

FloatDigits shortestDigits(double value) {
  const auto few = fewDecimals(value);
  return few ? *few : shortest(value);
}
FloatDigits shortestDigits(float value) { return shortest(value); }

FloatDigits fifteenDigits(double value) {
  if (const auto few = fewDecimals(value)) return *few;
  // Fewer digits than 15 that read back as the value are also its first 15; this is the fast way.
  const FloatDigits out = shortest(value);
  if (out.count <= kExactDigits) return out;
  char text[32];
  return takeApart(
      text,
      std::to_chars(text, text + sizeof text, value, std::chars_format::scientific, kExactDigits - 1).ptr);
}

}  // namespace plinth
