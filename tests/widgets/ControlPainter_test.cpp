// What the drawn controls show of their state, told by a canvas that writes its calls down.
#include "widgets/ControlPainter.h"

#include <gtest/gtest.h>

#include <functional>

#include "tests/fakes/RecordingCanvas.h"
#include "widgets/RubberBand.h"

namespace plinth {
namespace {

using Painter = std::function<void(Canvas&, SizePx, const ControlColors&, const ControlState&)>;

void paintBar(Canvas& canvas, SizePx size, const ControlColors& colors, const ControlState& state,
              int pattern) {
  ScrollBarModel model;
  model.setSize(size.height, size.width);
  model.setEnabled(state.enabled);
  paintScrollBar(canvas, size.width, model,
                 {true, pattern, colors, state, state.pressed ? ScrollZone::backArrow : ScrollZone::none});
}

const struct {
  const char* name;
  Painter paint;
} kPainters[] = {
    {"scroll bar", [](auto& c, auto size, auto& k, auto& s) { paintBar(c, size, k, s, 0); }},
    {"check", [](auto& c, auto size, auto& k, auto& s) { paintOptionBox(c, size, true, 1, k, s); }},
    {"flat check", [](auto& c, auto size, auto& k, auto& s) { paintOptionBox(c, size, false, 0, k, s); }},
    {"tab",
     [](auto& c, auto size, auto& k, auto& s) {
       paintTabButton(c, size, {"Page &1", {}}, k, s);
     }},
    {"drop arrow",
     [](auto& c, auto size, auto& k, auto& s) {
       paintDropArrow(c, {0, 0, size.width, size.height}, k, s);
     }},
    {"combo", [](auto& c, auto size, auto& k, auto& s) { paintComboBorder(c, size, {2}, k, s); }},
    {"frame",
     [](auto& c, auto size, auto& k, auto& s) {
       paintMyFrame(c, size, {{1}, 0xF0F0F0, "A&B", {}}, k, s);
     }},
};

std::string painted(const Painter& paint, SizePx size = {20, 90}, const ControlColors& colors = {},
                    const ControlState& state = {}) {
  RecordingCanvas canvas;
  paint(canvas, size, colors, state);
  return canvas.recording();
}

TEST(ControlPainter, ShowsFocusPressAndWhatCannotBeUsed) {
  for (const auto& one : kPainters) {
    const std::string name = one.name, plain = painted(one.paint);
    const auto same = [&](const ControlState& state) {
      return painted(one.paint, {20, 90}, {}, state) == plain;
    };
    EXPECT_EQ(same({true, true, false}), name == "drop arrow" || name == "frame") << name;
    EXPECT_EQ(same({true, false, true}), name == "combo" || name == "frame") << name;
    EXPECT_EQ(same({false, false, false}), name == "combo") << name;
  }
}

TEST(ControlPainter, PaintsNothingBackwardsHoweverSmall) {
  for (const auto& one : kPainters)
    for (int wide = 0; wide < 22; wide += 3)
      for (int high = 0; high < 40; high += 3) {
        const std::string calls = painted(one.paint, {wide, high});
        EXPECT_EQ(calls.find("x-"), std::string::npos) << one.name << " " << calls;
      }
}

TEST(ControlPainter, UsesNoLightColourOfItsOwnInDarkSurroundings) {
  const ControlColors dark{0x202020, 0x303030, 0xE0E0E0, 0xD77800};
  for (const auto& one : kPainters) {
    if (std::string(one.name) == "frame") continue;  // its fill is told apart
    const std::string calls = painted(one.paint, {20, 90}, dark);
    EXPECT_EQ(calls.find("brush solid #f"), std::string::npos) << one.name << " " << calls;
  }
}

TEST(ControlPainter, TheRampRisesToTheColourItself) {
  for (const std::int32_t color : {0xFFFFFF, 0x8040FF, 0x000000, 0x0000C8}) {
    EXPECT_EQ(rampColor(color, 250), color);
    for (int shift = 0; shift < 24; shift += 8)
      for (int step = 20; step <= 250; step += 10)
        EXPECT_GE(rampColor(color, step) >> shift & 0xFF, rampColor(color, step - 10) >> shift & 0xFF);
  }
  EXPECT_LT(rampColor(0xFFFFFF, 10), 0xD0D0D0);
  // A wide bar shows all 25 bands.
  RecordingCanvas canvas;
  paintBar(canvas, {250, 300}, {}, {}, 0);
  for (int i = 0; i < 25; ++i)
    EXPECT_EQ(canvas.calls[static_cast<std::size_t>(i)].find("box " + std::to_string(10 * i) + ",0 10x300"),
              0u);
}

TEST(ControlPainter, EveryPatternAndBorderLooksDifferent) {
  std::vector<std::string> looks;
  for (int pattern = 0; pattern <= 4; ++pattern)
    looks.push_back(painted([&](auto& c, auto size, auto& k, auto& s) { paintBar(c, size, k, s, pattern); }));
  for (int style = 0; style <= 5; ++style)
    looks.push_back(
        painted([&](auto& c, auto size, auto& k, auto& s) { paintComboBorder(c, size, {style}, k, s); }));
  for (std::size_t i = 0; i < looks.size(); ++i)
    for (std::size_t j = 0; j < i; ++j) EXPECT_NE(looks[i], looks[j]) << i << " " << j;
}

TEST(RubberBand, IsSizedAtItsEdgesAndMovedInside) {
  const struct {
    PointPx at;
    int pointer;
    RectPx after;  // of 100,100 80x60 dragged by 10,-20
  } kPresses[] = {{{40, 30}, 15, {110, 80, 80, 60}},
                  {{0, 0}, 8, {110, 80, 70, 80}},
                  {{79, 59}, 8, {100, 100, 90, 40}},
                  {{79, 0}, 6, {100, 80, 90, 80}},
                  {{0, 59}, 6, {110, 100, 70, 40}},
                  {{40, 4}, 7, {100, 80, 80, 80}},
                  {{40, 55}, 7, {100, 100, 80, 40}},
                  {{75, 30}, 9, {100, 100, 90, 60}},
                  {{4, 30}, 9, {110, 100, 70, 60}},
                  {{-1, 30}, 0, {}},
                  {{40, 60}, 0, {}}};
  const RectPx band{100, 100, 80, 60};
  for (const auto& one : kPresses) {
    EXPECT_EQ(bandPointerAt({80, 60}, one.at), one.pointer) << one.at.x << "," << one.at.y;
    if (one.pointer == 0) continue;
    const RectPx after = draggedBand(band, one.at, {10, -20}, 10);
    EXPECT_EQ(std::make_tuple(after.left, after.top, after.width, after.height),
              std::make_tuple(one.after.left, one.after.top, one.after.width, one.after.height))
        << one.at.x << "," << one.at.y;
  }
  const RectPx least = draggedBand(band, {0, 0}, {500, 500}, 10);  // the far corner stays
  EXPECT_TRUE(least.width == 10 && least.height == 10 && least.right() == 180 && least.bottom() == 160);
  EXPECT_EQ(bandPointerAt({12, 12}, {0, 0}), 15);
}

}  // namespace
}  // namespace plinth
