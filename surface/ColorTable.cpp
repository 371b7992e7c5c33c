// Swatches are the project's; the chosen colour is only this window's.
#include "surface/ColorTable.h"

#include <charconv>

#include "widgets/PageItems.h"

namespace plinth {

namespace {

constexpr std::size_t kDigits = 6;

}  // namespace

void ColorTable::choose(int swatch) {
  if (swatch < 0 || swatch >= static_cast<int>(palette_.size())) return;
  swatch_ = swatch;
  chosen_ = plainColor(color(swatch));
}

void ColorTable::chooseColor(std::int32_t color) {
  chosen_ = plainColor(color);
  swatch_ = -1;
}

std::string ColorTable::digits() const {
  constexpr char kHex[] = "0123456789ABCDEF";
  std::string text(kDigits, '0');
  auto rest = static_cast<std::uint32_t>(chosen_);
  for (std::size_t i = kDigits; i-- > 0; rest >>= 4) text[i] = kHex[rest & 15];
  return text;
}

bool ColorTable::typeDigits(const std::string& digits) {
  if (digits.size() > kDigits) return false;
  std::uint32_t color = 0;
  const char* end = digits.data() + digits.size();
  const auto [stop, error] = std::from_chars(digits.data(), end, color, 16);
  if (error != std::errc{} || stop != end) return false;
  chooseColor(static_cast<std::int32_t>(color));
  return true;
}

bool ColorTable::keep(int swatch) {
  if (swatch < kFirstFree || swatch >= static_cast<int>(palette_.size())) return false;
  palette_[static_cast<std::size_t>(swatch)] = chosen_;
  swatch_ = swatch;
  return true;
}

}  // namespace plinth
