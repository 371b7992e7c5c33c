// Small pictures of the tools and commands, drawn with lines so that they are sharp at each size and follow
// the colours of light and dark.
#pragma once

#include <cstdint>

#include "model/ObjectKinds.h"
#include "platform/Canvas.h"
#include "surface/Placement.h"

namespace plinth {

// Commands that have a picture beside the tools.
enum class ActionIcon { selectArea, lock, unlock, erase, undo, redo, copy, paste };
inline constexpr int kActionIcons = 8;

// Paints a picture that fills `rect`, a square of 12 to 64 units, and leaves its ground as it is. ink: colour
// of the lines. Disabled ones are grey.
void paintToolIcon(Canvas& canvas, const RectPx& rect, Tool tool, std::int32_t ink, bool enabled = true);
void paintToolIcon(Canvas& canvas, const RectPx& rect, ActionIcon action, std::int32_t ink,
                   bool enabled = true);
// The picture of the tool that makes objects of a kind.
void paintToolIcon(Canvas& canvas, const RectPx& rect, ObjectKind kind, std::int32_t ink,
                   bool enabled = true);

}  // namespace plinth
