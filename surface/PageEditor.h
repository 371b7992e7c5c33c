// What mouse and keyboard do on the page: carrying a new object, sizing it at its drop, moving and sizing a
// placed one, lines by their ends, labels typed in place. Area gestures go on to AreaSelection.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/Canvas.h"
#include "platform/Events.h"
#include "surface/AreaSelection.h"
#include "surface/DesignContext.h"

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
  // Arrow keys, Delete, Escape. True when the key was used.
  bool keyDown(const KeyEvent& event);

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
  DesignContext& c_;
  AreaSelection& area_;
};

}  // namespace plinth
