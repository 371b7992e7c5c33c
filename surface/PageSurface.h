// The drawing area of the designer without a window: page tabs, the page as a sheet on a neutral ground,
// scrolling, and the events of mouse and keyboard, which go on to the page editor in the page's own pixels.
// All pixels are of 96 dpi; the window scales.
#pragma once

#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

#include "model/ProjectDocument.h"
#include "platform/Canvas.h"
#include "platform/Events.h"
#include "surface/DesignState.h"
#include "surface/PageView.h"
#include "widgets/PageItems.h"

namespace plinth {

// What the drawing area tells its window.
class SurfaceView {
 public:
  virtual ~SurfaceView() = default;
  virtual void invalidate() = 0;                                // paint all of it soon
  virtual void invalidateArea(const RectPx&) { invalidate(); }  // paint this part of the drawing area soon
  virtual void scrollChanged() = 0;                             // horizontal() or vertical() have new values
  virtual void pageChanged() = 0;                               // another page is on view
  virtual void tabsChanged() = 0;                               // tabs() have other captions or places
  virtual void objectPointedAt(const std::string& name) = 0;    // name and place for people; "" for none
};

// Who works on the page that the drawing area shows. Page pixels; points may lie outside the page.
class PageHand {
 public:
  virtual ~PageHand() = default;
  virtual void pressed(const MouseEvent& event, ItemRef hit) = 0;
  virtual void moved(const MouseEvent& event, ItemRef hit) = 0;
  virtual void released(const MouseEvent& event) = 0;
  virtual void pressedTwice(const MouseEvent& event, ItemRef hit) = 0;
  virtual void paintOverlay(Canvas& canvas) const = 0;  // above the objects
};

// Colours of the designer around the page.
struct SurfaceColors {
  std::int32_t ground = 0xD6D2CE, strip = 0xEFEDEB, shadow = 0xB4B0AC, edge = 0x9A9692, ruler = 0xB0B0B0;
};

// One direction of scrolling, in pixels. `content` holds the sheet with its margins.
struct ScrollAxis {
  int content = 0, view = 0, value = 0;
  int most() const { return content > view ? content - view : 0; }
};

class PageSurface {
 public:
  // All must outlive this.
  PageSurface(const ProjectDocument& document, const DesignState& state, PageImages& images,
              TextMeasure measure, SurfaceView& view, PageHand& hand);

  // Another project stands in the document: from the top.
  void projectChanged();
  // The rows of the document changed, or another page is on view.
  void objectsChanged();
  // These objects changed their places, nothing else did.
  void objectsMoved(const std::vector<ObjectRef>& objects);
  // What paintOverlay() shows, or the linked label under the pointer, changed.
  void overlayChanged();
  void setColors(const SurfaceColors& colors);

  int currentPage() const { return state_.currentPage; }
  const PageItems& items() const { return items_; }

  // Size of the whole drawing area, tabs included.
  void resize(SizePx client);
  const ScrollAxis& horizontal() const { return horizontal_; }
  const ScrollAxis& vertical() const { return vertical_; }
  void scrollTo(int x, int y);  // brought into range
  void scrollBy(int dx, int dy) { scrollTo(horizontal_.value + dx, vertical_.value + dy); }
  // Scrolls so that a place of the page is on view, as far as it fits.
  void reveal(const RectPx& place);

  // Events in the drawing area's own pixels. A press on the page keeps the mouse until its release.
  void mouseDown(const MouseEvent& event);
  void mouseMove(const MouseEvent& event);  // event.button: those held, 0 for none
  void mouseUp(const MouseEvent& event);
  void doubleClick(const MouseEvent& event);
  void mouseLeave();
  // lines: up positive, in steps of a wheel's line; Shift turns it sideways.
  void wheel(int lines, unsigned shift);
  // Scrolling keys. True when the key was used.
  bool keyDown(const KeyEvent& event);

  // Where the page's top left corner lies.
  PointPx sheetOrigin() const;
  // Below the tabs.
  RectPx viewport() const;
  // The part of the page that is on view, page pixels.
  RectPx visiblePage() const;
  // The tabs of the five pages; whoever shows the drawing area puts buttons there.
  const PageItems& tabs() const { return tabs_; }
  // Front-most object under a point of the drawing area; kind -1 for none.
  ItemRef objectAt(PointPx point) const;

  void paint(Canvas& canvas, const RectPx& clip) const;

 private:
  void layout();
  void layoutTabs();
  void refresh(std::size_t item);
  void tellPointed(ItemRef now);
  std::string pointedWords() const;
  MouseEvent onPage(const MouseEvent& event) const;
  void paintStrip(Canvas& canvas) const;
  void paintSheet(Canvas& canvas, const RectPx& clip) const;
  void paintGrid(Canvas& canvas, const RectPx& clip, std::int32_t pageColor) const;

  const ProjectDocument& document_;
  const DesignState& state_;
  PageImages& images_;
  TextMeasure measure_;
  SurfaceView& view_;
  PageHand& hand_;
  PageItems items_;
  std::unordered_map<int, std::size_t> places_;  // of items_, by kind and index
  PageItems tabs_;
  std::shared_ptr<Image> tile_;
  SurfaceColors colors_;
  SizePx client_, pageSize_;
  ScrollAxis horizontal_, vertical_;
  ItemRef pointed_;
  ObjectRef hovered_{ObjectKind::Title, -1};
};

}  // namespace plinth
