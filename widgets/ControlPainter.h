// How the drawn controls look, on any canvas: the window classes of both programs and tests paint by it.
// Every function fills the whole of its size, so nothing need be erased before. Colours are plain ones.
#pragma once

#include "widgets/PageItems.h"
#include "widgets/ScrollBarModel.h"

namespace plinth {

struct ControlState {
  bool enabled = true, focused = false, pressed = false;
};

struct ControlColors {
  std::int32_t surround = 0xF0F0F0;  // of the parent
  std::int32_t back = 0xFFFFFF;
  std::int32_t fore = 0x000000;
  std::int32_t mark = 0xD77800;  // the line that shows the focus
};

// Band `step` (10 to 250 by tens) of the ramp that a bar's track is painted in: each channel of the colour,
// from three quarters of itself up to all of it.
std::int32_t rampColor(std::int32_t backColor, int step);

// Looks of the thumb; other numbers are plain.
enum class ThumbPattern { plain, grip, round, flat, hatched };
struct ScrollLook {
  bool upright = true;
  int pattern = 0;
  ControlColors colors;
  ControlState state;
  ScrollZone pressed = ScrollZone::none;  // the part that is held down
};
// length and breadth of the model decide the size.
void paintScrollBar(Canvas& canvas, int breadth, const ScrollBarModel& model, const ScrollLook& look);

// Pixels that a combo's border takes on each side, by its style (see Frame).
int comboInset(int borderStyle);
// The border and the area inside it, but neither text nor arrow.
void paintComboBorder(Canvas& canvas, SizePx size, const Frame& border, const ControlColors& colors,
                      const ControlState& state);
// The arrow that drops the list; `state.pressed`: the list is open.
void paintDropArrow(Canvas& canvas, const RectPx& rect, const ControlColors& colors,
                    const ControlState& state);

struct FrameLook {
  Frame border;
  std::int32_t fill = 0xF0F0F0;
  std::string caption;
  FontSpec font;
};
// With a caption the upper edge runs through the middle of its letters.
void paintMyFrame(Canvas& canvas, SizePx size, const FrameLook& look, const ControlColors& colors,
                  const ControlState& state);

// appearance: 0 flat, else sunken. The box is the largest square that fits, in the middle.
void paintOptionBox(Canvas& canvas, SizePx size, bool checked, int appearance, const ControlColors& colors,
                    const ControlState& state);

struct TabLook {
  std::string caption;  // "&" marks an access key and is not drawn
  FontSpec font;
  bool selected = false;
  std::int32_t selectedBack = 0xFFFFFF;
};
// `colors.back` is that of a tab that is not chosen.
void paintTabButton(Canvas& canvas, SizePx size, const TabLook& look, const ControlColors& colors,
                    const ControlState& state);

// The band's frame and handles; what is inside stays as it is. borderStyle: 0 dashes, else a solid line.
void paintUserSel(Canvas& canvas, SizePx size, int borderStyle, const ControlColors& colors);

}  // namespace plinth
