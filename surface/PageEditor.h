// What mouse and keyboard do on the page: carrying a new object, sizing it at its drop, moving and sizing a
// placed one, lines by their ends, labels typed in place. Area gestures go on to AreaSelection.
#pragma once

#include <functional>
#include <optional>
#include <string>

#include "platform/Canvas.h"
#include "platform/Events.h"
#include "surface/AreaSelection.h"
#include "surface/DesignContext.h"
#include "surface/LineEditing.h"

namespace plinth {

class PageEditor {
 public:
  PageEditor(DesignContext& context, AreaSelection& area) : c_(context), area_(area) {}

  // Events in page pixels, which may lie outside the page. hit: the front-most object there, kind -1 for
  // none; objects that are disabled now are passed over by the editor.
  void mouseDown(const MouseEvent& event, ItemRef hit);
  void mouseMove(const MouseEvent& event, ItemRef hit);  // event.button: those held, 0 for none
  void mouseUp(const MouseEvent& event);
  void doubleClick(const MouseEvent& event, ItemRef hit);
  // Arrow keys, also with Shift, which takes a step of the grid or ten pixels; Enter puts a carried object
  // down, Escape gives up what is under way, else the selection; F2 types the selected label. True when the
  // key was used.
  bool keyDown(const KeyEvent& event);
  // Releases what the mouse holds where it is; a carried object that is not pressed stays in hand. To be
  // called before commands, which may take away the held object or give it another number.
  void endGesture();
  // Forgets what the mouse holds: another project stands in the document.
  void letGo();

  // Selects an object as a press on it does; the panel fills.
  void selectObject(ObjectRef object);
  // Tab and Shift+Tab: the next or previous object of the page in tab order, then all others.
  void selectNext(int step);
  // A zone of the direction pad: -1, 0 or 1 on each axis; ten: the right button.
  void pad(int dx, int dy, bool ten);
  // Typing over the selected label (MainText).
  void editLabel();                            // begins, F2
  void typeLabel(const std::string& caption);  // at each change
  void endLabel();

  // Above the objects: line ends, handles of the selected object, UserSel. Page pixels.
  void paintOverlay(Canvas& canvas) const;

 private:
  // What the left button holds.
  enum class Hold { nothing, carried, body, edge, lineEnd };

  void press(PointPx point, ItemRef hit);
  void pressRight(PointPx point, ItemRef hit);
  void pressLine(ObjectRef line, LineEnd end, PointPx grip);
  void hold(Hold what, ObjectRef object);
  std::optional<ObjectRef> objectAt(PointPx point, ItemRef hit) const;
  std::optional<ObjectRef> carriedObject() const;

  void drag(PointPx point);
  void follow(ObjectRef object, PointPx point, bool held);
  void release(PointPx point);
  void releasePlaced();
  void putDown(ObjectRef object);
  void afterRelease(ObjectRef object);
  void hover(PointPx point, ItemRef hit);
  void setPointer(PointerShape pointer);
  void setHoverLabel(int index);
  void moved(ObjectRef object);

  bool escape();
  bool giveUpCarried();
  void deselect();
  bool nudge(int dx, int dy, bool far);
  void finishNudge(ObjectRef object, PointPx by);

  DesignContext& c_;
  AreaSelection& area_;
  Hold hold_ = Hold::nothing;
  ObjectRef held_;
  PointPx grip_;  // of the pointer, from the corner or the line's end that is dragged
  PointerShape edge_ = PointerShape::arrow;
  bool dragged_ = false;
  std::function<void()> restore_;  // brings the held object back to how it was
};

}  // namespace plinth
