// A page as a list of plain items in pixels, back to front: what both programs paint, whoever made the list.
// An item says how it looks and nothing about projects or records; `ref` carries the maker's own name for it.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <variant>
#include <vector>

#include "basic/Geometry.h"
#include "platform/Canvas.h"

namespace plinth {

// What an item stands for, in the words of whoever made the list: a kind (-1 for none) and an index.
struct ItemRef {
  int kind = -1;
  int index = -1;
  bool operator==(const ItemRef&) const = default;
};

// Shape numbers of squares as files hold them.
enum class ShapeForm { rectangle, square, oval, circle, roundedRectangle, roundedSquare };

struct SquareItem {
  RectPx rect;
  ShapeForm form = ShapeForm::rectangle;  // the regular forms lie centred in the rectangle
  Pen pen;
  Brush brush;
};

struct LineItem {
  PointPx from, to;
  Pen pen;
};

// Frame styles of boxes: 0 none, 1 a thin line, 2 sunken, 3 raised, 4 etched, above that a double line.
struct Frame {
  int style = 0;
  std::int32_t color = 0x808080;
};

struct PictureItem {
  RectPx rect;
  std::shared_ptr<Image> image;  // nullptr: `placeholder` stands there
  bool stretch = false;          // else natural size from the top left corner, cut at the rectangle
  int border = 0;                // above 0: a thin line
  bool holder = false;           // a place for pictures of records: white paper with a drawn sign
  std::string placeholder;
};

// As large as its text; `rect` comes from measuring.
struct TitleItem {
  RectPx rect;
  std::string text;
  FontSpec font;
  std::int32_t color = 0;
  TextAlign align = TextAlign::left;  // of the lines to each other
};

// Field box or memo. The frame surrounds the text's rectangle and is filled with the same colour.
struct BoxItem {
  RectPx rect;  // frame outside
  RectPx textRect;
  Frame frame;
  std::string text;
  FontSpec font;
  std::int32_t foreColor = 0, backColor = 0xFFFFFF;
  TextAlign align = TextAlign::left;
  bool memo = false;  // several lines and a scroll bar
};

struct ComboItem {
  RectPx rect;
  RectPx textRect;  // text and drop arrow
  Frame frame;
  std::string text;
  FontSpec font;
  std::int32_t foreColor = 0, backColor = 0xFFFFFF;
};

struct CheckItem {
  RectPx rect;
  bool checked = false;
  bool sunken = true;
};

// Numbers of the built-in button pictures.
enum class ButtonIcon {
  none,
  first,
  fastBack,
  back,
  next,
  fastNext,
  last,
  newRecord,
  find,
  print,
  mail,
  copy,
  calendar,
  help,
  document,
  calculator,  // from here on: only of tools
  sort
};
// The picture of a stored number: 1 to 13 as listed, above 13 the document, all else none.
ButtonIcon buttonIconOf(int number);

struct ButtonItem {
  RectPx rect;
  std::string caption;  // "&" marks an access key and is not drawn
  FontSpec font;
  std::int32_t foreColor = 0, backColor = 0xF0F0F0;
  ButtonIcon icon = ButtonIcon::none;
  bool pressed = false, focused = false, enabled = true;
};

// A block of page text for export, shown while designing only.
struct ScriptItem {
  RectPx rect;
  std::string text;
};

struct TabItem {
  RectPx rect;
  std::string caption;
  FontSpec font;
  bool selected = false;
};

using ItemShape = std::variant<SquareItem, LineItem, PictureItem, TitleItem, BoxItem, ComboItem, CheckItem,
                               ButtonItem, ScriptItem, TabItem>;

struct PageItem {
  ItemRef ref;
  ItemShape shape;
};
using PageItems = std::vector<PageItem>;

// The smallest rectangle around all that an item paints; a line is at least one pixel wide and high.
RectPx boundsOf(const ItemShape& shape);
RectPx intersection(const RectPx& a, const RectPx& b);  // width and height 0 when they do not meet
RectPx inflated(const RectPx& rect, int by);            // grown on all sides, sizes never negative

// Stored values in the canvas's words. A negative colour is a system colour and becomes its usual look.
std::int32_t plainColor(std::int32_t color);
TextAlign alignOf(int alignment);  // 0 left, 1 right, 2 centre; others left
// borderStyle 0 none, 1 and 6 solid, 2 to 5 dashed; width in pixels, at least 1.
Pen squarePen(int borderStyle, int borderWidth, std::int32_t color);
// backStyle 1 paints backColor; fillStyle 0 solid in fillColor, 1 transparent, 2 to 7 hatches.
Brush squareBrush(int backStyle, std::int32_t backColor, int fillStyle, std::int32_t fillColor);
ShapeForm shapeFormOf(int shapeType);  // outside 0 to 5: rectangle
// A caption as it is drawn: "&" falls out, "&&" is one "&".
std::string withoutAccessKey(std::string_view caption);

}  // namespace plinth
