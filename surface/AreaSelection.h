// The second way to select: a rectangle (UserSel) and the objects inside it (MultiSel), and what can be done
// with many objects at once.
#pragma once

#include "platform/Events.h"
#include "surface/DesignContext.h"

namespace plinth {

enum class Alignment {
  left,
  right,
  top,
  bottom,
  centerHorizontal,
  centerVertical,
  sameWidth,
  sameHeight,
  sameSize,
  evenHorizontal,
  evenVertical
};

class AreaSelection {
 public:
  explicit AreaSelection(DesignContext& context) : c_(context) {}

  bool active() const { return c_.state.selKind == kSelArea; }
  void toggle();  // Select_Button
  void leave();
  void selectAll();

  // Mouse on the page while active, page pixels.
  void mouseDown(const MouseEvent& event);
  void mouseMove(const MouseEvent& event);  // event.button: those held
  void mouseUp(const MouseEvent& event);

  // Fills MultiSel with the visible objects of the page fully inside the rectangle, in the collecting order:
  // lines, labels, squares, pictures, fields, memos, check boxes, combos, buttons, scripts.
  void collect();
  // Makes these the area selection with the rectangle around them; nothing when empty.
  void show(const std::vector<ObjectRef>& objects);

  // Moves rectangle and members, the rectangle kept on the page; a step in the history.
  void moveBy(int dx, int dy);
  // Lines up or spreads the members; objects are at least two, three for even gaps, else nothing.
  void align(Alignment alignment);

 private:
  DesignContext& c_;
};

}  // namespace plinth
