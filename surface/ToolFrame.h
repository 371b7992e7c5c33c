// The tool panel of a finished application on the pages of its design: the record box between its buttons,
// which stands on every page where a person put it.
#pragma once

#include "basic/Geometry.h"
#include "platform/Canvas.h"
#include "platform/Events.h"
#include "surface/DesignContext.h"

namespace plinth {

bool toolFrameShown(const ProjectDocument& document);
// Outside of the panel in page pixels, its grip not counted; also while it is hidden.
RectPx toolFramePlace(const ProjectDocument& document);
// Moves the selected panel by so many pixels, as far as the page goes. False when it is not selected.
bool nudgeToolFrame(DesignContext& context, int dx, int dy);

class ToolFrame {
 public:
  explicit ToolFrame(DesignContext& context) : c_(context) {}

  // Shows the panel and selects it, or hides it and puts it back to where new projects have it.
  void toggle();
  bool shown() const { return toolFrameShown(c_.document); }
  bool selected() const { return shown() && c_.state.selKind == kSelFrame3; }

  // Events in page pixels. True when the panel used them; nobody else gets such an event.
  bool mouseDown(const MouseEvent& event);
  bool mouseMove(const MouseEvent& event);  // event.button: those held, 0 for none
  bool mouseUp(const MouseEvent& event);
  bool keyDown(const KeyEvent& event);  // all keys during a drag; Escape gives it up
  // Releases the panel where it is; before commands.
  void endGesture();
  bool held() const { return held_; }
  // Forgets a drag: another project stands in the document.
  void letGo() { held_ = false; }

  // Page pixels.
  void paint(Canvas& canvas) const;

 private:
  bool isUnder(PointPx point) const;
  void dragTo(PointPx point);

  DesignContext& c_;
  bool held_ = false, dragged_ = false;
  PointPx grip_;  // of the pointer, from the panel's corner
  float leftBefore_ = 0, topBefore_ = 0;
};

}  // namespace plinth
