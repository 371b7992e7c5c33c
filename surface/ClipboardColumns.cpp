// One column out, one column in; which one it is stands in the header.
#include "surface/ClipboardColumns.h"

#include <charconv>
#include <cmath>

#include "basic/Text.h"

namespace plinth {

namespace {

constexpr double kFarthest = 30000;  // pixels: no page reaches further
constexpr double kSmallestFont = 1, kLargestFont = 200;
constexpr std::size_t kMostItems = 32767;

}  // namespace

std::string EncodeField(std::string_view text) {
  return replaceAll(replaceAll(text, ",", "/~/"), "\r\n", "&_&");
}

std::string DecodeField(std::string_view column) {
  return replaceAll(replaceAll(column, "/~/", ","), "&_&", "\r\n");
}

void ColumnWriter::points(const float& value) {
  char digits[32];
  const float size = std::isfinite(value) ? std::clamp<float>(value, kSmallestFont, kLargestFont) : 9.0f;
  const auto end = std::to_chars(digits, digits + sizeof digits, size).ptr;
  put({digits, static_cast<std::size_t>(end - digits)});
}

void ColumnWriter::items(const std::vector<std::string>& items) {
  put(std::to_string(items.size()));
  for (const std::string& item : items) put(EncodeField(item));
}

std::optional<std::string_view> ColumnReader::next() {
  if (ended_) return std::nullopt;
  any_ = true;
  const std::size_t comma = rest_.find(',');
  const std::string_view column = rest_.substr(0, comma);
  ended_ = comma == rest_.npos;
  rest_.remove_prefix(ended_ ? rest_.size() : comma + 1);
  return column;
}

std::optional<double> ColumnReader::nextNumber() {
  const auto column = next();
  if (!column) return std::nullopt;
  const std::string digits = trim(*column);
  double value = 0;
  const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), value);
  if (error != std::errc() || end != digits.data() + digits.size() || !std::isfinite(value))
    return std::nullopt;
  return value;
}

std::optional<bool> ColumnReader::nextFlag() {
  const ColumnReader before = *this;
  const auto column = next();
  if (!column) return std::nullopt;
  const std::string word = trim(*column);
  if (equalAsciiNoCase(word, "true")) return true;
  if (equalAsciiNoCase(word, "false")) return false;
  *this = before;
  const auto value = nextNumber();
  return value ? std::optional(*value != 0) : std::nullopt;
}

void ColumnReader::text(std::string& value) {
  if (const auto column = next()) value = DecodeField(*column);
}

void ColumnReader::color(std::int32_t& value, std::int32_t otherwise) {
  const auto read = nextNumber();
  if (read) value = *read < 0 || *read > kWhite ? otherwise : static_cast<std::int32_t>(*read);
}

void ColumnReader::place(float& twips, Axis axis) {
  const auto read = nextNumber();
  const int moved = axis == Axis::x ? offset_.x : offset_.y;
  if (read)
    twips = pixelsToTwips(static_cast<int>(std::lround(within(*read + moved, -kFarthest, kFarthest))));
}

void ColumnReader::side(float& twips) {
  if (const auto read = nextNumber())
    twips = pixelsToTwips(static_cast<int>(std::lround(within(*read, 0, kFarthest))));
}

void ColumnReader::points(float& value) {
  if (const auto read = nextNumber()) value = static_cast<float>(within(*read, kSmallestFont, kLargestFont));
}

void ColumnReader::items(std::vector<std::string>& items) {
  double count = nextNumber().value_or(0);
  items.clear();
  for (; count >= 1 && items.size() < kMostItems; --count) {
    const auto column = next();
    if (!column) return;
    items.push_back(DecodeField(*column));
  }
}

}  // namespace plinth
