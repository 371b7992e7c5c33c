// Stored numbers into drawing words, and the geometry of items.
#include "widgets/PageItems.h"

#include <algorithm>
#include <array>

namespace plinth {

namespace {

template <class... Fs>
struct Overloaded : Fs... {
  using Fs::operator()...;
};
template <class... Fs>
Overloaded(Fs...) -> Overloaded<Fs...>;

}  // namespace

ButtonIcon buttonIconOf(int number) {
  if (number <= 0) return ButtonIcon::none;
  return static_cast<ButtonIcon>(std::min(number, static_cast<int>(ButtonIcon::document)));
}

RectPx boundsOf(const ItemShape& shape) {
  return std::visit(Overloaded{[](const LineItem& line) {
                                 const int left = std::min(line.from.x, line.to.x);
                                 const int top = std::min(line.from.y, line.to.y);
                                 const int wide = std::max(line.from.x, line.to.x) - left + 1;
                                 const int high = std::max(line.from.y, line.to.y) - top + 1;
                                 return inflated({left, top, wide, high}, line.pen.width / 2);
                               },
                               [](const auto& item) { return item.rect; }},
                    shape);
}

RectPx intersection(const RectPx& a, const RectPx& b) {
  const int left = std::max(a.left, b.left), top = std::max(a.top, b.top);
  const int right = std::min(a.right(), b.right()), bottom = std::min(a.bottom(), b.bottom());
  return {left, top, std::max(0, right - left), std::max(0, bottom - top)};
}

RectPx inflated(const RectPx& rect, int by) {
  return {rect.left - by, rect.top - by, std::max(0, rect.width + 2 * by), std::max(0, rect.height + 2 * by)};
}

std::int32_t plainColor(std::int32_t color) {
  if (color >= 0) return color & 0xFFFFFF;
  // In the order of the system's own numbers, in today's usual look.
  static constexpr std::array<std::int32_t, 25> kSystem{
      0xC8C8C8, 0x000000, 0xD1B499, 0xDBCDBF, 0xF0F0F0, 0xFFFFFF, 0x646464, 0x000000, 0x000000,
      0x000000, 0xB4B4B4, 0xFCF7F4, 0xABABAB, 0xD77800, 0xFFFFFF, 0xF0F0F0, 0xA0A0A0, 0x6D6D6D,
      0x000000, 0x000000, 0xFFFFFF, 0x696969, 0xE3E3E3, 0x000000, 0xE1FFFF};
  const auto number = static_cast<std::size_t>(color & 0xFF);
  return number < kSystem.size() ? kSystem[number] : 0xFFFFFF;
}

TextAlign alignOf(int alignment) {
  return alignment == 1 ? TextAlign::right : alignment == 2 ? TextAlign::center : TextAlign::left;
}

Pen squarePen(int borderStyle, int borderWidth, std::int32_t color) {
  static constexpr std::array<LineStyle, 7> kStyles{
      LineStyle::none,    LineStyle::solid,      LineStyle::dash, LineStyle::dot,
      LineStyle::dashDot, LineStyle::dashDotDot, LineStyle::solid};
  const bool known = borderStyle >= 0 && borderStyle < static_cast<int>(kStyles.size());
  return {known ? kStyles[static_cast<std::size_t>(borderStyle)] : LineStyle::solid,
          std::clamp(borderWidth, 1, 500), plainColor(color)};
}

Brush squareBrush(int backStyle, std::int32_t backColor, int fillStyle, std::int32_t fillColor) {
  const std::int32_t back = plainColor(backColor), fill = plainColor(fillColor);
  if (fillStyle == 0) return {FillStyle::solid, fill, false, back};
  if (fillStyle >= 2 && fillStyle <= 7) {
    static constexpr std::array<FillStyle, 6> kHatches{FillStyle::horizontal,     FillStyle::vertical,
                                                       FillStyle::upwardDiagonal, FillStyle::downwardDiagonal,
                                                       FillStyle::cross,          FillStyle::diagonalCross};
    return {kHatches[static_cast<std::size_t>(fillStyle - 2)], fill, backStyle != 0, back};
  }
  if (backStyle != 0) return {FillStyle::solid, back, false, back};
  return {FillStyle::none, back, false, back};
}

ShapeForm shapeFormOf(int shapeType) {
  return shapeType >= 0 && shapeType <= 5 ? static_cast<ShapeForm>(shapeType) : ShapeForm::rectangle;
}

std::string withoutAccessKey(std::string_view caption) {
  std::string out;
  for (std::size_t i = 0; i < caption.size(); ++i) {
    if (caption[i] == '&' && ++i == caption.size()) break;
    out += caption[i];
  }
  return out;
}

}  // namespace plinth
