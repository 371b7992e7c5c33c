// Units of the read-outs, and the grid.
#pragma once

#include <array>
#include <string>

#include "basic/Geometry.h"
#include "surface/DesignState.h"

namespace plinth {

// Pixels at 96 dpi in a unit and back; toPixels keeps fractions.
double fromPixels(double pixels, ScaleUnit unit);
double toPixels(double value, ScaleUnit unit);
// A read-out: whole pixels, else up to three decimals, without trailing zeros; "." as point.
std::string readout(int pixels, ScaleUnit unit);
// What a person typed, in pixels; 0 for what is no number.
int pixelsOfReadout(const std::string& text, ScaleUnit unit);

inline constexpr std::array<int, 5> kGridChoices{0, 5, 10, 15, 20};
// Caption of a grid menu entry in a unit: "5 x 5px". Choice 0: "None".
std::string gridCaption(int choice, ScaleUnit unit);
// Grid step in pixels; 0 for choice 0.
double gridStep(int choice, ScaleUnit unit);
// Sets unit or grid; the step follows both.
void chooseUnit(DesignState& state, ScaleUnit unit);
void chooseGrid(DesignState& state, int choice);

// To the nearest grid point, halves to the even one; unchanged while no grid is chosen.
int snapped(const DesignState& state, int pixels);
PointPx SnapPoint(const DesignState& state, PointPx point);

}  // namespace plinth
