// Each picture is a list of strokes on a grid of 20 by 20; one function paints any list.
#include "surface/ToolIcons.h"

#include <algorithm>
#include <array>
#include <span>

namespace plinth {

namespace {

constexpr int kGrid = 20;
constexpr std::int32_t kAccent = 0xD08028, kGrey = 0x989898;  // a blue and a grey for light and dark grounds

enum class Shape {
  line,      // from (left, top) to (right, bottom)
  box,       // outline
  round,     // outline with rounded corners
  dashes,    // dashed outline
  plate,     // filled
  ring,      // ellipse
  disc,      // filled ellipse
  arch,      // the upper half of a rounded outline, twice as high as told
  bowRight,  // the right half of a rounded outline, twice as wide as told
  bowLeft
};
enum class Paint { ink, accent };

struct Stroke {
  Shape shape;
  int left, top, right, bottom;
  Paint paint = Paint::ink;
  int width = 1;
};

constexpr Paint kBlue = Paint::accent;

constexpr Stroke kLabel[] = {{Shape::line, 4, 17, 10, 3, Paint::ink, 2},
                             {Shape::line, 10, 3, 16, 17, Paint::ink, 2},
                             {Shape::line, 6, 12, 14, 12, kBlue, 2}};
constexpr Stroke kField[] = {{Shape::box, 1, 5, 19, 15}, {Shape::plate, 4, 7, 6, 13, kBlue}};
constexpr Stroke kEmail[] = {
    {Shape::box, 1, 4, 19, 16}, {Shape::line, 2, 5, 9, 11, kBlue}, {Shape::line, 10, 11, 17, 5, kBlue}};
constexpr Stroke kMemo[] = {{Shape::box, 2, 2, 18, 18},
                            {Shape::line, 5, 6, 14, 6, kBlue},
                            {Shape::line, 5, 9, 14, 9, kBlue},
                            {Shape::line, 5, 12, 14, 12, kBlue},
                            {Shape::line, 5, 15, 10, 15, kBlue}};
constexpr Stroke kCombo[] = {{Shape::box, 1, 5, 19, 15},
                             {Shape::line, 11, 6, 11, 13},
                             {Shape::line, 13, 8, 16, 8, kBlue},
                             {Shape::line, 13, 9, 16, 9, kBlue},
                             {Shape::line, 14, 10, 15, 10, kBlue}};
constexpr Stroke kPictureField[] = {{Shape::box, 2, 3, 18, 17},    {Shape::disc, 12, 5, 16, 9, kBlue},
                                    {Shape::line, 3, 14, 7, 9},    {Shape::line, 7, 9, 12, 15},
                                    {Shape::line, 11, 14, 14, 11}, {Shape::line, 14, 11, 16, 14}};
constexpr Stroke kPictureArt[] = {{Shape::line, 5, 6, 10, 1, kBlue},  {Shape::line, 10, 1, 15, 6, kBlue},
                                  {Shape::box, 2, 6, 18, 19},         {Shape::box, 4, 8, 16, 17},
                                  {Shape::line, 6, 14, 9, 11, kBlue}, {Shape::line, 9, 11, 13, 15, kBlue}};
constexpr Stroke kCheckBox[] = {{Shape::round, 2, 2, 18, 18},
                                {Shape::line, 6, 10, 9, 13, kBlue, 2},
                                {Shape::line, 9, 13, 14, 7, kBlue, 2}};
constexpr Stroke kLine[] = {{Shape::line, 4, 15, 15, 4, Paint::ink, 2},
                            {Shape::plate, 1, 14, 6, 19, kBlue},
                            {Shape::plate, 14, 1, 19, 6, kBlue}};
constexpr Stroke kSquare[] = {{Shape::box, 1, 2, 13, 13}, {Shape::ring, 7, 7, 19, 19, kBlue}};
constexpr Stroke kButton[] = {{Shape::round, 1, 5, 19, 16}, {Shape::line, 6, 10, 13, 10, kBlue, 2}};
constexpr Stroke kScript[] = {{Shape::line, 6, 5, 1, 10},
                              {Shape::line, 1, 10, 6, 15},
                              {Shape::line, 13, 5, 18, 10},
                              {Shape::line, 18, 10, 13, 15},
                              {Shape::line, 11, 4, 8, 16, kBlue, 2}};

constexpr Stroke kSelectArea[] = {{Shape::dashes, 3, 3, 17, 17},
                                  {Shape::plate, 1, 1, 6, 6, kBlue},
                                  {Shape::plate, 14, 1, 19, 6, kBlue},
                                  {Shape::plate, 1, 14, 6, 19, kBlue},
                                  {Shape::plate, 14, 14, 19, 19, kBlue}};
constexpr Stroke kLock[] = {{Shape::arch, 6, 2, 14, 9, Paint::ink, 2}, {Shape::plate, 3, 9, 17, 18, kBlue}};
constexpr Stroke kUnlock[] = {{Shape::arch, 11, 2, 19, 9, Paint::ink, 2},
                              {Shape::plate, 1, 9, 14, 18, kBlue}};
constexpr Stroke kErase[] = {{Shape::line, 2, 4, 17, 4},
                             {Shape::line, 7, 2, 12, 2},
                             {Shape::box, 4, 4, 16, 19},
                             {Shape::plate, 7, 8, 9, 16, kBlue},
                             {Shape::plate, 11, 8, 13, 16, kBlue}};
constexpr Stroke kUndo[] = {{Shape::line, 2, 7, 12, 7, kBlue, 2},
                            {Shape::line, 2, 7, 6, 3, kBlue, 2},
                            {Shape::line, 2, 7, 6, 11, kBlue, 2},
                            {Shape::bowRight, 12, 6, 18, 16, kBlue, 2},
                            {Shape::line, 6, 15, 12, 15, kBlue, 2}};
constexpr Stroke kRedo[] = {{Shape::line, 18, 7, 8, 7, kBlue, 2},
                            {Shape::line, 18, 7, 14, 3, kBlue, 2},
                            {Shape::line, 18, 7, 14, 11, kBlue, 2},
                            {Shape::bowLeft, 2, 6, 8, 16, kBlue, 2},
                            {Shape::line, 8, 15, 14, 15, kBlue, 2}};
constexpr Stroke kCopy[] = {{Shape::line, 2, 2, 12, 2},
                            {Shape::line, 2, 2, 2, 14},
                            {Shape::line, 2, 14, 5, 14},
                            {Shape::line, 12, 2, 12, 4},
                            {Shape::box, 7, 6, 18, 19, kBlue}};
constexpr Stroke kPaste[] = {{Shape::box, 2, 3, 18, 19},
                             {Shape::plate, 6, 1, 14, 6},
                             {Shape::line, 5, 9, 14, 9, kBlue},
                             {Shape::line, 5, 12, 14, 12, kBlue},
                             {Shape::line, 5, 15, 11, 15, kBlue}};

using Strokes = std::span<const Stroke>;
constexpr std::array<Strokes, kTools> kToolStrokes{kLabel, kField,        kEmail,      kMemo,
                                                   kCombo, kPictureField, kPictureArt, kCheckBox,
                                                   kLine,  kSquare,       kButton,     kScript};
constexpr std::array<Strokes, kActionIcons> kActions{kSelectArea, kLock, kUnlock, kErase,
                                                     kUndo,       kRedo, kCopy,   kPaste};

// A half of a rounded outline: the other half lies outside of the clip.
void paintHalf(Canvas& canvas, const RectPx& clip, const RectPx& whole, const Pen& pen, int radius) {
  canvas.pushClip(clip);
  canvas.box(whole, pen, {FillStyle::none, 0, false, 0}, radius);
  canvas.popClip();
}

void paintStroke(Canvas& canvas, const RectPx& rect, const Stroke& stroke, std::int32_t color) {
  const auto scaled = [](int grid, int size) { return (grid * size + kGrid / 2) / kGrid; };
  const auto x = [&](int grid) { return rect.left + scaled(grid, rect.width); };
  const auto y = [&](int grid) { return rect.top + scaled(grid, rect.height); };
  const RectPx box{x(stroke.left), y(stroke.top), x(stroke.right) - x(stroke.left),
                   y(stroke.bottom) - y(stroke.top)};
  const Pen pen{LineStyle::solid, std::max(1, scaled(stroke.width, rect.width)), color};
  const Brush none{FillStyle::none, 0, false, 0}, fill{FillStyle::solid, color, false, 0};
  const Pen noPen{LineStyle::none, 1, 0};
  const int corner = std::max(1, rect.width / 8);
  switch (stroke.shape) {
    case Shape::line:
      canvas.line({box.left, box.top}, {box.right(), box.bottom()}, pen);
      break;
    case Shape::box:
      canvas.box(box, pen, none);
      break;
    case Shape::round:
      canvas.box(box, pen, none, corner);
      break;
    case Shape::dashes:
      canvas.box(box, {LineStyle::dot, 1, color}, none);
      break;
    case Shape::plate:
      canvas.box(box, noPen, fill);
      break;
    case Shape::ring:
      canvas.ellipse(box, pen, none);
      break;
    case Shape::disc:
      canvas.ellipse(box, noPen, fill);
      break;
    case Shape::arch:
      paintHalf(canvas, box, {box.left, box.top, box.width, 2 * box.height}, pen, box.width / 2);
      break;
    case Shape::bowRight:
      paintHalf(canvas, box, {box.left - box.width, box.top, 2 * box.width, box.height}, pen, box.height / 2);
      break;
    case Shape::bowLeft:
      paintHalf(canvas, box, {box.left, box.top, 2 * box.width, box.height}, pen, box.height / 2);
      break;
  }
}

void paintStrokes(Canvas& canvas, const RectPx& rect, Strokes strokes, std::int32_t ink, bool enabled) {
  for (const Stroke& stroke : strokes) {
    const std::int32_t color = stroke.paint == Paint::ink ? ink : kAccent;
    paintStroke(canvas, rect, stroke, enabled ? color : kGrey);
  }
}

Tool toolOf(ObjectKind kind) {
  switch (kind) {
    case ObjectKind::Field:
      return Tool::field;
    case ObjectKind::Memo:
      return Tool::memo;
    case ObjectKind::Combo:
      return Tool::combo;
    case ObjectKind::Picture:
      return Tool::pictureField;
    case ObjectKind::CheckBox:
      return Tool::checkBox;
    case ObjectKind::Title:
      return Tool::label;
    case ObjectKind::Line:
      return Tool::line;
    case ObjectKind::Square:
      return Tool::square;
    case ObjectKind::Script:
      return Tool::script;
    case ObjectKind::Button:
      break;
  }
  return Tool::button;
}

}  // namespace

void paintToolIcon(Canvas& canvas, const RectPx& rect, Tool tool, std::int32_t ink, bool enabled) {
  paintStrokes(canvas, rect, kToolStrokes[static_cast<std::size_t>(tool)], ink, enabled);
}

void paintToolIcon(Canvas& canvas, const RectPx& rect, ActionIcon action, std::int32_t ink, bool enabled) {
  paintStrokes(canvas, rect, kActions[static_cast<std::size_t>(action)], ink, enabled);
}

void paintToolIcon(Canvas& canvas, const RectPx& rect, ObjectKind kind, std::int32_t ink, bool enabled) {
  paintToolIcon(canvas, rect, toolOf(kind), ink, enabled);
}

}  // namespace plinth
