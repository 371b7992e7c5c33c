// to_chars does the work; its scientific form is taken apart here, once for all formats.
#include "basic/FloatDigits.h"

#include <charconv>

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

}  // namespace

FloatDigits shortestDigits(double value) { return shortest(value); }
FloatDigits shortestDigits(float value) { return shortest(value); }

FloatDigits fifteenDigits(double value) {
  // Fewer digits than 15 that read back as the value are also its first 15; this is the fast way.
  const FloatDigits out = shortest(value);
  if (out.count <= kExactDigits) return out;
  char text[32];
  return takeApart(
      text,
      std::to_chars(text, text + sizeof text, value, std::chars_format::scientific, kExactDigits - 1).ptr);
}

}  // namespace plinth
