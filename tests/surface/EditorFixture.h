// A page editor on a project of its own, and gestures written as a person makes them.
#pragma once

#include <gtest/gtest.h>

#include <ostream>

#include "surface/AreaSelection.h"
#include "surface/PageEditor.h"
#include "tests/surface/DesignFixture.h"

namespace plinth {

inline bool operator==(const RectPx& a, const RectPx& b) {
  return a.left == b.left && a.top == b.top && a.width == b.width && a.height == b.height;
}
inline bool operator==(PointPx a, PointPx b) { return a.x == b.x && a.y == b.y; }
inline std::ostream& operator<<(std::ostream& out, const RectPx& r) {
  return out << r.left << "," << r.top << " " << r.width << "x" << r.height;
}
inline std::ostream& operator<<(std::ostream& out, PointPx p) { return out << p.x << "," << p.y; }
inline std::ostream& operator<<(std::ostream& out, ObjectRef object) { return out << shortName(object); }

inline ItemRef hitOf(ObjectRef object) { return {static_cast<int>(object.kind), object.index}; }

class PageEditorTest : public testing::Test {
 protected:
  void move(PointPx to, ItemRef hit = {}) { editor.mouseMove({0, 0, to.x, to.y}, hit); }
  void press(PointPx at, ItemRef hit = {}) { editor.mouseDown({1, 0, at.x, at.y}, hit); }
  void dragTo(PointPx to) { editor.mouseMove({1, 0, to.x, to.y}, {}); }
  void release(PointPx at) { editor.mouseUp({1, 0, at.x, at.y}); }
  // A whole gesture on a placed object.
  void drag(ObjectRef object, PointPx from, PointPx to) {
    press(from, hitOf(object));
    dragTo({(from.x + to.x) / 2, (from.y + to.y) / 2});
    dragTo(to);
    release(to);
  }
  bool key(int code, unsigned shift = 0) { return editor.keyDown({code, shift}); }

  // An object as the tools hand it to the mouse.
  ObjectRef carried(ObjectKind kind, RectPx place) {
    const ObjectRef object = d.add(kind, place);
    if (kind == ObjectKind::Title) d.document.titles.back().caption = "Label";
    select(d.state, object);
    d.state.placingActive = true;
    d.state.placePhase = PlacePhase::none;
    finish(d.context, "placing of " + shortName(object), "place " + shortName(object));
    return object;
  }
  void grid(int pixels) {
    d.state.gridChoice = pixels;
    d.state.gridStep = pixels;
  }
  // Line ends as one value: left and top of the start, then the way to the end.
  RectPx ends(ObjectRef line) const {
    const LineEnds e = lineEnds(d.document, line.index);
    return {e.from.x, e.from.y, e.to.x - e.from.x, e.to.y - e.from.y};
  }

  DesignFixture d;
  AreaSelection area{d.context};
  PageEditor editor{d.context, area};
};

}  // namespace plinth
