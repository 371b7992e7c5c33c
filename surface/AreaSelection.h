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

  // Mouse on the page while active, page pixels. A press outside the rectangle begins a new one, a press
  // inside takes hold of rectangle and members. A new rectangle without members stays: tables fill it. While
  // the controls are locked, only leave(), show() and selectAll() do anything.
  void mouseDown(const MouseEvent& event);
  void mouseMove(const MouseEvent& event);  // event.button: those held
  void mouseUp(const MouseEvent& event);

  // Fills MultiSel with the visible objects of the page fully inside the rectangle, in the collecting order:
  // lines, labels, squares, pictures, fields, memos, check boxes, combos, buttons, scripts. A rectangle below
  // 10 pixels in either direction becomes 10 first.
  void collect();
  // Makes these the area selection with the rectangle around them; nothing when empty.
  void show(const std::vector<ObjectRef>& objects);

  // Moves rectangle and members, pixels; a step in the history, one for moves that follow each other. The
  // rectangle's corner stays on the page, 20 pixels from its far edges; members go as far as the rectangle
  // does.
  void moveBy(int dx, int dy);
  // Lines up, spreads or sizes the members; objects are at least two, three for even gaps, else nothing.
  // Places are those within the members' bounds. Sizes are those of the topmost, then leftmost member that
  // has that side; kinds without it keep theirs. The rectangle lies around the members afterwards.
  void align(Alignment alignment);

 private:
  enum class Drag { none, stretching, moving };

  void enter();
  void release();
  void endDrag();
  bool shift(int dx, int dy);
  void stretchTo(PointPx pointer);
  void enclose(const std::vector<ObjectRef>& objects);
  void setPointer(PointerShape pointer);
  std::vector<ObjectRef> members() const { return selectedObjects(c_.state, c_.document); }

  DesignContext& c_;
  Drag drag_ = Drag::none;
  bool moved_ = false;  // the drag was more than a click
};

}  // namespace plinth
