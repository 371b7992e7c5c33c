// A design surface without a designer: the project, the state and everything from outside as plain members
// that a test sets and reads.
#pragma once

#include <string>
#include <vector>

#include "surface/DesignContext.h"
#include "surface/ObjectPlaces.h"
#include "tests/fakes/FakeClock.h"
#include "tests/fakes/FakeMessages.h"

namespace plinth {

// Counts what the controllers tell whoever shows the surface.
class RecordingView : public EditorView {
 public:
  void objectsChanged() override { ++objects; }
  void objectsMoved(const std::vector<ObjectRef>& which) override {
    ++moves;
    moved = which;
  }
  void selectionChanged() override { ++selections; }
  void readoutsChanged() override { ++readouts; }
  void overlayChanged() override { ++overlays; }
  void pointerChanged() override { ++pointers; }
  void documentChanged() override { ++documents; }
  void pageChanged() override { ++pages; }
  void popupMenu(PointPx page) override {
    ++popups;
    popup = page;
  }
  void openProperties(ObjectRef object) override { opened.push_back(object); }
  void labelEditing() override { ++labelEdits; }

  int objects = 0, moves = 0, selections = 0, readouts = 0, overlays = 0, pointers = 0, documents = 0,
      pages = 0, popups = 0, labelEdits = 0;
  std::vector<ObjectRef> moved;   // by the last call
  PointPx popup;                  // of the last menu
  std::vector<ObjectRef> opened;  // by double clicks
};

struct DesignFixture {
  DesignFixture() { settle(); }
  DesignFixture(const DesignFixture&) = delete;
  DesignFixture& operator=(const DesignFixture&) = delete;

  // Appends a live object with the outside given, as far as the kind has one; a line runs from the left top
  // corner to the right bottom one. Line 0 stays vacant, as in every project that was saved. Fields are 21
  // high whatever is asked, combos as high as their font asks.
  ObjectRef add(ObjectKind kind, RectPx place, int page = 0) {
    const int index = visitTable(document, kind, [kind](auto& rows) {
      if (kind == ObjectKind::Line && rows.empty()) rows.emplace_back();
      rows.emplace_back();
      return static_cast<int>(rows.size()) - 1;
    });
    const ObjectRef object{kind, index};
    setPage(document, object, page);
    if (kind == ObjectKind::Field) document.fields.back().height = pixelsToTwips(15);
    if (kind == ObjectKind::Line) {
      setLineEnds(document, index, {{place.left, place.top}, {place.right(), place.bottom()}});
    } else {
      resizeTo(document, object, {place.width, place.height});
      moveTo(document, object, {place.left, place.top});
    }
    return object;
  }
  // What stands in the document now is where the history begins. Call it after arranging objects.
  void settle() {
    history.start(document);
    document.dirty = false;
  }
  RectPx place(ObjectRef object) const { return placeOf(document, object, context.measure); }

  ProjectDocument document;
  DesignState state;
  History history;
  RecordingView view;
  FakeMessages messages;
  FakeClock clock;
  std::string picture;             // what a person chooses as picture file
  RectPx visible{0, 0, 640, 480};  // part of the page on view
  PointPx scrolled;
  DesignContext context{document,
                        state,
                        history,
                        view,
                        messages,
                        clock,
                        [](std::string_view text, const FontSpec&) {
                          return SizePx{6 * static_cast<int>(text.size()), 14};
                        },
                        [](int, const char* english) { return std::string(english); },
                        [this] { return picture; },
                        [this] { return visible; },
                        [this] { return scrolled; }};
};

}  // namespace plinth
