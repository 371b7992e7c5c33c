// Where the controls of the property panel stand: groups of rows, in which those that show close ranks. Pure
// arithmetic over what the panel tells; pixels at 96 dpi, from the panel's left top corner.
#pragma once

#include <array>
#include <functional>
#include <vector>

#include "basic/Geometry.h"
#include "surface/PropertyPanel.h"

namespace plinth {

enum class PanelGroup { selected, place, colors, text, box, options };
inline constexpr int kPanelGroups = 6;

// Sizes of texts in the panel's font.
struct PanelMeasure {
  std::function<int(PanelId)> captionWidth;            // of the caption beside a control
  std::function<int(PanelId, int width)> checkHeight;  // of a check box whose caption wraps at a width
};

struct PanelHeading {
  PanelGroup group;
  RectPx place;
};

struct PanelLayout {
  // Of controls that do not show, or have no caption, the rectangles are empty.
  std::array<RectPx, kPanelControls> control{}, caption{};
  RectPx icon;          // picture of the tool; always there, so that the rest does not jump
  RectPx pad;           // direction pad
  RectPx borderNumber;  // read-out of the border style
  std::vector<PanelHeading> headings;
  int height = 0;  // of all, with the margin below
  const RectPx& operator[](PanelId id) const { return control[static_cast<std::size_t>(id)]; }
};

inline constexpr int kPanelMargin = 12, kPanelGap = 8, kPanelRow = 24;

// width: of the panel, 160 or more.
PanelLayout layoutPanel(const std::vector<PanelControl>& controls, int width, const PanelMeasure& measure);

// The controls in the order in which they stand, group by group: that of the Tab key.
const std::vector<PanelId>& panelOrder();
// First of its group in that order.
bool opensGroup(PanelId id);
// A text by its number in the language, 0 when there is none of that number, and in English.
struct PanelCaption {
  int label = 0;
  const char* english = "";
};
// What stands beside or under a control; without English text when it says itself what it is.
PanelCaption panelCaption(const PanelControl& control);
PanelCaption panelHeading(PanelGroup group);

}  // namespace plinth
