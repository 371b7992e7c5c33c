// The grid's steps are sizes in the unit of the read-outs; its choices keep the numbers of the pixel steps.
#include "surface/Units.h"

#include <algorithm>
#include <cmath>

#include "basic/DisplayFormat.h"
#include "basic/NumberReader.h"

namespace plinth {

namespace {

constexpr double kPixelsPerInch = 96;
constexpr double kMillimetersPerInch = 25.4;
constexpr double kFarthest = 30000;  // pixels, no page reaches further

struct GridStep {
  double size;  // in the unit
  const char* caption;
};

// By unit in the order pixels, inches, millimetres, centimetres; by choice from 5 on.
constexpr GridStep kGridSteps[4][4] = {
    {{5, "5 x 5px"}, {10, "10 x 10px"}, {15, "15 x 15px"}, {20, "20 x 20px"}},
    {{0.1, "1/10 x 1/10 Inc"}, {0.25, "1/4 x 1/4 Inc"}, {0.5, "1/2 x 1/2 Inc"}, {1, "1 x 1 Inc"}},
    {{1, "1 x 1mm"}, {2, "2 x 2mm"}, {3, "3 x 3mm"}, {4, "4 x 4mm"}},
    {{0.25, "1/4 x 1/4cm"}, {0.5, "1/2 x 1/2cm"}, {0.75, "3/4 x 3/4cm"}, {1, "1 x 1cm"}}};

int unitNumber(ScaleUnit unit) {
  switch (unit) {
    case ScaleUnit::pixels:
      return 0;
    case ScaleUnit::inches:
      return 1;
    case ScaleUnit::millimeters:
      return 2;
    case ScaleUnit::centimeters:
      return 3;
  }
  return 0;
}

// nullptr for None and for what is no choice.
const GridStep* gridStepOf(int choice, ScaleUnit unit) {
  const auto found = std::ranges::find(kGridChoices, choice);
  if (found == kGridChoices.begin() || found == kGridChoices.end()) return nullptr;
  return &kGridSteps[unitNumber(unit)][found - kGridChoices.begin() - 1];
}

double pixelsPerUnit(ScaleUnit unit) {
  constexpr double perUnit[] = {1, kPixelsPerInch, kPixelsPerInch / kMillimetersPerInch,
                                10 * kPixelsPerInch / kMillimetersPerInch};
  return perUnit[unitNumber(unit)];
}

}  // namespace

double fromPixels(double pixels, ScaleUnit unit) { return pixels / pixelsPerUnit(unit); }
double toPixels(double value, ScaleUnit unit) { return value * pixelsPerUnit(unit); }

std::string readout(int pixels, ScaleUnit unit) {
  if (unit == ScaleUnit::pixels) return std::to_string(pixels);
  std::string text =
      formatNumber(fromPixels(pixels, unit), {.decimals = 3, .grouping = false}, englishLocale());
  text.erase(text.find_last_not_of('0') + 1);
  if (text.back() == '.') text.pop_back();
  return text;
}

int pixelsOfReadout(const std::string& text, ScaleUnit unit) {
  // Many people's decimal separator is the comma, and a thousand of any unit lies on no page.
  std::string number = text;
  std::ranges::replace(number, ',', '.');
  return static_cast<int>(std::lround(std::clamp(toPixels(val(number), unit), -kFarthest, kFarthest)));
}

std::string gridCaption(int choice, ScaleUnit unit) {
  const GridStep* step = gridStepOf(choice, unit);
  return step ? step->caption : "None";
}

double gridStep(int choice, ScaleUnit unit) {
  const GridStep* step = gridStepOf(choice, unit);
  return step ? toPixels(step->size, unit) : 0;
}

void chooseUnit(DesignState& state, ScaleUnit unit) {
  state.scaleUnit = unit;
  state.gridStep = gridStep(state.gridChoice, unit);
}

void chooseGrid(DesignState& state, int choice) {
  state.gridChoice = gridStepOf(choice, state.scaleUnit) ? choice : 0;
  state.gridStep = gridStep(state.gridChoice, state.scaleUnit);
}

int snapped(const DesignState& state, int pixels) {
  if (!state.gridOn() || !(state.gridStep > 0)) return pixels;
  // nearbyint takes halves to the even neighbour. The rest of a pixel is cut off; a hair is added first, so
  // that a point that is a whole pixel in truth does not lose it to the unit's fractions.
  const double point = std::nearbyint(pixels / state.gridStep) * state.gridStep;
  return static_cast<int>(point + std::copysign(1e-6, point));
}

PointPx SnapPoint(const DesignState& state, PointPx point) {
  return {snapped(state, point.x), snapped(state, point.y)};
}

}  // namespace plinth
