// The drawing area of the designer without a window: page tabs, the page as a sheet on a neutral ground,
// scrolling, and the events of mouse and keyboard. All pixels are of 96 dpi; the window scales.
#pragma once

#include <string>

#include "model/ProjectDocument.h"
#include "platform/Canvas.h"
#include "platform/Events.h"
#include "surface/PageView.h"
#include "widgets/PageItems.h"

namespace plinth {

// What the drawing area tells its window.
class SurfaceView {
 public:
  virtual ~SurfaceView() = default;
  virtual void invalidate() = 0;                              // paint all of it soon
  virtual void scrollChanged() = 0;                           // horizontal() or vertical() have new values
  virtual void pageChanged() = 0;                             // another page is on view
  virtual void objectPointedAt(const std::string& name) = 0;  // name and place for people; "" for none
};

// One direction of scrolling, in pixels. `content` holds the sheet with its margins.
struct ScrollAxis {
  int content = 0, view = 0, value = 0;
  int most() const { return content > view ? content - view : 0; }
};

class PageSurface {
 public:
  // All must outlive this.
  PageSurface(const ProjectDocument& document, PageImages& images, TextMeasure measure, SurfaceView& view);

  // Another project stands in the document: its first page, from the top.
  void projectChanged();
  // The rows of the document changed.
  void objectsChanged();

  int currentPage() const { return page_; }
  void showPage(int page);      // 0 to 4; others are ignored
  void showNextPage(int step);  // 1 or -1, round about
  const PageItems& items() const { return items_; }

  // Size of the whole drawing area, tabs included.
  void resize(SizePx client);
  const ScrollAxis& horizontal() const { return horizontal_; }
  const ScrollAxis& vertical() const { return vertical_; }
  void scrollTo(int x, int y);  // brought into range
  void scrollBy(int dx, int dy) { scrollTo(horizontal_.value + dx, vertical_.value + dy); }

  // Events in the drawing area's own pixels.
  void mouseDown(const MouseEvent& event);
  void mouseMove(const MouseEvent& event);
  void mouseLeave();
  // lines: up positive, in steps of a wheel's line; Shift turns it sideways.
  void wheel(int lines, unsigned shift);
  // True when the key was used.
  bool keyDown(const KeyEvent& event);

  // Where the page's top left corner lies.
  PointPx sheetOrigin() const;
  // Below the tabs.
  RectPx viewport() const;
  // The tab under a point, -1 for none.
  int tabAt(PointPx point) const;
  // Front-most object under a point of the drawing area; kind -1 for none.
  ItemRef objectAt(PointPx point) const;

  void paint(Canvas& canvas, const RectPx& clip) const;

 private:
  void layout();
  RectPx tabRect(int tab) const;
  void paintTabs(Canvas& canvas) const;
  void paintSheet(Canvas& canvas, const RectPx& clip) const;

  const ProjectDocument& document_;
  PageImages& images_;
  TextMeasure measure_;
  SurfaceView& view_;
  PageItems items_;
  PageItems tabs_;
  std::shared_ptr<Image> tile_;
  SizePx client_, pageSize_;
  ScrollAxis horizontal_, vertical_;
  int page_ = 0;
  ItemRef pointed_;
};

}  // namespace plinth
