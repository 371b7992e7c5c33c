// Events in, one round of telling out. What the events do is in the controllers.
#include "surface/DesignSurface.h"

#include <cmath>
#include <utility>

#include "basic/CodePage.h"
#include "surface/ObjectPlaces.h"

namespace plinth {

namespace {

constexpr int kClockTitle = 2;

std::string clockText(double now) {
  constexpr int kMinutesADay = 24 * 60;
  const int minutes = static_cast<int>((now - std::floor(now)) * kMinutesADay);
  const int hour = minutes / 60, minute = minutes % 60;
  return std::to_string(hour % 12 == 0 ? 12 : hour % 12) + (minute < 10 ? ":0" : ":") +
         std::to_string(minute) + (hour < 12 ? "am" : "pm");
}

}  // namespace

DesignSurface::DesignSurface(SurfaceServices services, SurfaceWindow& window)
    : services_(std::move(services)),
      window_(window),
      context_{services_.document,
               state_,
               history_,
               *this,
               services_.messages,
               services_.clock,
               services_.measure,
               services_.label,
               services_.choosePicture,
               [this] { return page_.visiblePage(); },
               [this] {
                 return PointPx{page_.horizontal().value, page_.vertical().value};
               }},
      area_(context_),
      editor_(context_, area_),
      toolFrame_(context_),
      placement_(context_, services_.locale,
                 [this](const std::string& path) {
                   const std::shared_ptr<Image> image = services_.images.at(path);
                   return image ? image->size() : SizePx{};
                 }),
      panel_(context_),
      clipboard_(context_, area_),
      setup_(context_),
      words_(context_),
      colors_(services_.document.palette),
      page_(services_.document, state_, services_.images, services_.measure, window, *this) {}

void DesignSurface::projectChanged() {
  editor_.letGo();
  toolFrame_.letGo();
  // What belongs to the person or to the clipboard stays.
  DesignState fresh;
  fresh.scaleUnit = state_.scaleUnit;
  fresh.gridChoice = state_.gridChoice;
  fresh.gridStep = state_.gridStep;
  fresh.scrollXAtCopy = state_.scrollXAtCopy;
  fresh.scrollYAtCopy = state_.scrollYAtCopy;
  state_ = std::move(fresh);
  history_.start(services_.document);
  run([this] { objectsDirty_ = selectionDirty_ = labelDirty_ = pageDirty_ = stepDirty_ = true; });
  page_.projectChanged();
}

void DesignSurface::textsChanged() {
  run([this] { objectsDirty_ = selectionDirty_ = true; });
}

bool DesignSurface::finished(const std::string& words, const std::string& mergeKey) {
  bool made = false;
  run([&] {
    made = finish(context_, words, mergeKey);
    if (made) objectsDirty_ = true;
  });
  return made;
}

void DesignSurface::tell() {
  if (std::exchange(pageDirty_, false)) window_.pageChanged();
  const std::vector<ObjectRef> moved = std::exchange(moved_, {});
  const bool all = std::exchange(objectsDirty_, false);
  if (all)
    page_.objectsChanged();
  else if (!moved.empty())
    page_.objectsMoved(moved);
  if (std::exchange(overlayDirty_, false) && !all) page_.overlayChanged();
  if (std::exchange(selectionDirty_, false) || all) {
    readoutsDirty_ = false;
    panel_.fill();
    window_.panelChanged();
    page_.overlayChanged();
  } else if (std::exchange(readoutsDirty_, false)) {
    panel_.fillPlaces();
    window_.readoutsChanged();
  }
  if (std::exchange(labelDirty_, false)) {
    RectPx place;
    if (state_.editedTitle >= 0) {
      place = placeOf(services_.document, {ObjectKind::Title, state_.editedTitle}, services_.measure);
      const PointPx origin = page_.sheetOrigin();
      place.left += origin.x;
      place.top += origin.y;
    }
    window_.labelEditing(place);
  }
  if (std::exchange(stepDirty_, false)) window_.stepMade();
}

void DesignSurface::mouseDown(const MouseEvent& event) {
  pressed_ = true;
  turn([&] { page_.mouseDown(event); });
}
void DesignSurface::mouseMove(const MouseEvent& event) {
  turn([&] { page_.mouseMove(event); });
}
void DesignSurface::mouseUp(const MouseEvent& event) {
  pressed_ = false;
  turn([&] { page_.mouseUp(event); });
}
void DesignSurface::doubleClick(const MouseEvent& event) {
  turn([&] { page_.doubleClick(event); });
}

bool DesignSurface::keyDown(const KeyEvent& event) {
  constexpr int kTab = 9;
  bool used = false;
  turn([&] {
    if (toolFrame_.keyDown(event)) {
      used = true;
    } else if (event.key == kTab && (event.shift & ~kShift) == 0) {
      editor_.selectNext((event.shift & kShift) != 0 ? -1 : 1);
      used = true;
      if (const auto object = selectedObject(state_, services_.document))
        page_.reveal(placeOf(services_.document, *object, services_.measure));
    } else {
      used = editor_.keyDown(event) || page_.keyDown(event);
    }
  });
  return used;
}

void DesignSurface::typeLabel(const std::string& caption) {
  turn([&] { editor_.typeLabel(caption); });
}
void DesignSurface::endLabel() {
  turn([this] { editor_.endLabel(); });
}
void DesignSurface::writePanel(PanelId id, const std::string& value) {
  turn([&] { panel_.write(id, value); });
}
void DesignSurface::pad(int dx, int dy, bool ten) {
  turn([&] { editor_.pad(dx, dy, ten); });
}

void DesignSurface::chooseColorFor(PanelId id) {
  panel_.write(id, "");
  colors_.chooseColor(panel_.control(id).color);
}

void DesignSurface::waitForPageColor() {
  state_.colorTarget = ColorTarget::pageColor;
  colors_.chooseColor(pageColorOf(services_.document, state_.currentPage));
}

void DesignSurface::useColor(std::int32_t color) {
  turn([&] {
    if (state_.colorTarget == ColorTarget::pageColor)
      setup_.pageColor(color);
    else
      panel_.useColor(color);
  });
}

void DesignSurface::undo() {
  run([this] {
    finishCarried(context_);
    editor_.endLabel();
    if (history_.undo(services_.document)) stepTaken();
  });
}

void DesignSurface::redo() {
  run([this] {
    finishCarried(context_);
    editor_.endLabel();
    if (history_.redo(services_.document)) stepTaken();
  });
}

// What was selected may be gone, or be another object now.
void DesignSurface::stepTaken() {
  state_.placingActive = false;
  state_.placePhase = PlacePhase::none;
  state_.hidden.clear();
  if (state_.selKind == kSelArea) {
    std::erase_if(state_.multiSel, [this](ObjectRef object) { return !isLive(services_.document, object); });
    if (state_.multiSel.empty())
      selectNothing(state_);
    else
      area_.show(std::vector<ObjectRef>(state_.multiSel));
  } else if (!selectedObject(state_, services_.document) && !toolFrame_.selected()) {
    selectNothing(state_);
  }
  objectsDirty_ = selectionDirty_ = stepDirty_ = overlayDirty_ = true;
}

bool DesignSurface::keepOnClipboard(const std::string& text) {
  return !text.empty() && services_.clipboard.setText(text, codePageOfCharSet(services_.document.charSet));
}

void DesignSurface::copy() {
  run([this] { keepOnClipboard(clipboard_.copy()); });
}

// What another program's hold of the clipboard kept from being copied stays.
void DesignSurface::cut() {
  run([this] {
    if (keepOnClipboard(clipboard_.selectionText())) clipboard_.remove();
  });
}

void DesignSurface::paste() {
  run([this] { clipboard_.paste(services_.clipboard.text(codePageOfCharSet(services_.document.charSet))); });
}

void DesignSurface::remove() {
  run([this] { clipboard_.remove(); });
}

void DesignSurface::toggleLock() {
  run([this] {
    state_.locked = !state_.locked;
    selectionDirty_ = overlayDirty_ = stepDirty_ = true;
  });
}

void DesignSurface::toggleToolPanel() {
  run([this] { toolFrame_.toggle(); });
}

void DesignSurface::tick() {
  ProjectDocument& document = services_.document;
  // Time goes on while a message box stands in the middle of a step.
  if (depth_ > 0 || inGesture() || !isLive(document, {ObjectKind::Title, kClockTitle})) return;
  std::string& caption = document.titles[kClockTitle].caption;
  const std::string now = clockText(services_.clock.now());
  if (caption == now) return;
  caption = now;
  history_.adopt(document);  // time passes by itself: nothing to undo, nothing to save
  turn([this] { objectsDirty_ = true; });
}

std::string DesignSurface::selectionWords() const {
  const std::vector<ObjectRef> objects = selectedObjects(state_, services_.document);
  if (objects.empty()) return toolFrame_.selected() ? "tool panel" : "";
  if (objects.size() > 1) return std::to_string(objects.size()) + " objects";
  return objectName(services_.document, objects.front().kind, objects.front().index);
}

void DesignSurface::objectsMoved(const std::vector<ObjectRef>& objects) {
  moved_.insert(moved_.end(), objects.begin(), objects.end());
}

void DesignSurface::pointerChanged() { window_.pointerChanged(state_.pointer); }

void DesignSurface::pageChanged() { pageDirty_ = objectsDirty_ = true; }

void DesignSurface::popupMenu(PointPx page) {
  const PointPx origin = page_.sheetOrigin();
  window_.popupMenu({page.x + origin.x, page.y + origin.y});
}

void DesignSurface::openProperties(ObjectRef object) { window_.objectOpened(object); }

void DesignSurface::pressed(const MouseEvent& event, ItemRef hit) {
  if (!toolFrame_.mouseDown(event)) editor_.mouseDown(event, hit);
}
void DesignSurface::moved(const MouseEvent& event, ItemRef hit) {
  if (!toolFrame_.mouseMove(event)) editor_.mouseMove(event, hit);
}
void DesignSurface::released(const MouseEvent& event) {
  if (!toolFrame_.mouseUp(event)) editor_.mouseUp(event);
}
// The panel has nothing that a double click could open.
void DesignSurface::pressedTwice(const MouseEvent& event, ItemRef hit) {
  if (!toolFrame_.mouseDown(event)) editor_.doubleClick(event, hit);
}

// What the mouse can grasp is in front: the panel, or in an area the members under it.
void DesignSurface::paintOverlay(Canvas& canvas) const {
  const bool area = state_.selKind == kSelArea;
  if (area) toolFrame_.paint(canvas);
  editor_.paintOverlay(canvas);
  if (!area) toolFrame_.paint(canvas);
}

}  // namespace plinth
