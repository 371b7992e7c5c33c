// What the controls show: the selected object's values, or in an area those of the first member that has
// any.
#include <algorithm>
#include <cmath>
#include <type_traits>

#include "surface/ObjectPlaces.h"
#include "surface/PanelRows.h"
#include "surface/Units.h"
#include "widgets/PageItems.h"
#include "widgets/PagePlaces.h"

namespace plinth {

namespace {

void show(PanelControl& control, const std::string& value) { control.text = value; }

void show(PanelControl& control, double value) {
  constexpr double kMost = 1e9;
  switch (control.input) {
    case PanelInput::button:
      control.color = plainColor(static_cast<std::int32_t>(value));
      break;
    case PanelInput::check:
      control.checked = control.id == PanelId::allPages ? value == kPageAll : value != 0;
      break;
    case PanelInput::option:
      control.checked = static_cast<int>(control.id) - static_cast<int>(PanelId::alignLeft) == value;
      break;
    default:  // halves to the even number, as sizes of fonts have always been shown
      control.text = std::to_string(
          std::isfinite(value) ? static_cast<int>(std::nearbyint(std::clamp(value, -kMost, kMost))) : 0);
  }
}

void clear(PanelControl& control) {
  control.shown = control.enabled = control.checked = false;
  control.text.clear();
  control.color = 0;
}

bool isLine(ObjectRef object) { return object.kind == ObjectKind::Line; }

bool offersWidth(ObjectRef object) { return isLine(object) || hasWidth(object.kind); }

// A field's height box can be typed into, as ever, but the field stays as high as its font: the box springs
// back.
bool offersHeight(ObjectRef object) {
  return isLine(object) || hasHeight(object.kind) || object.kind == ObjectKind::Field;
}

}  // namespace

bool takesPanelValue(const ProjectTables& tables, PanelId id, ObjectRef object) {
  bool takes = false;
  withRow(tables, object,
          [&](const auto& row) { visitPanelValue(id, row, [&](const auto&) { takes = true; }); });
  return takes;
}

void PropertyPanel::fillValue(PanelControl& control) {
  const auto first = std::ranges::find_if(
      objects_, [&](ObjectRef object) { return takesPanelValue(c_.document, control.id, object); });
  if (first == objects_.end()) return;
  control.shown = control.enabled = true;
  withRow(c_.document, *first, [&](const auto& row) {
    visitPanelValue(control.id, row, [&](const auto& value) {
      if constexpr (std::is_same_v<std::remove_cvref_t<decltype(value)>, std::string>)
        show(control, value);
      else
        show(control, static_cast<double>(value));
    });
  });
}

// The letter behind the index; squares, scripts and buttons have none, so their name stays empty.
void PropertyPanel::fillSelItem() {
  const auto object = selectedObject(c_.state, c_.document);
  if (!object) return;
  PanelControl& control = at(PanelId::selItem);
  control.shown = control.enabled = true;
  const std::string_view letter = kindInfo(object->kind).shortName;
  if (isLine(*object))
    control.text = shortName(*object);
  else if (!letter.empty())
    control.text = std::to_string(object->index) + std::string(letter);
  using enum ObjectKind;
  if (object->kind == Field || object->kind == Memo || object->kind == Combo)
    control.color = at(PanelId::color1).color;
}

void PropertyPanel::fill() {
  noticeSelection();
  for (PanelControl& control : controls_) {
    clear(control);
    fillValue(control);
  }
  fillSelItem();
  fillPlaces();
  if (typed_ && at(typed_->id).text == typed_->shown) at(typed_->id).text = typed_->text;
}

// The rectangle of an area stands for its members; they may lie anywhere by now.
PropertyPanel::Readouts PropertyPanel::readouts() const {
  Readouts r;
  const ProjectDocument& d = c_.document;
  if (c_.state.selKind == kSelFrame3) {
    r.shown = r.left = r.top = true;
    r.place = {placePx(d.frame3Left), placePx(d.frame3Top), 0, 0};
    return r;
  }
  const std::vector<ObjectRef> objects = selectedObjects(c_.state, d);
  for (const ObjectRef object : objects) {
    r.left = r.top = true;
    r.width = r.width || offersWidth(object);
    r.height = r.height || offersHeight(object);
  }
  r.shown = true;
  if (area() && c_.state.userSelVisible) {
    r.place = c_.state.userSel;
  } else if (objects.empty()) {
    r.shown = false;
  } else if (const ObjectRef first = objects.front(); isLine(first)) {
    const auto [from, to] = lineEnds(d, first.index);
    r.place = {from.x, from.y, to.x, to.y};
  } else {
    r.place = placeOf(d, first, c_.measure);
  }
  return r;
}

void PropertyPanel::fillPlaces() {
  const Readouts r = readouts();
  const bool sized = r.shown && c_.state.selKind != kSelFrame3;
  const auto put = [&](PanelId id, bool shown, bool hasText, bool enabled, int pixels) {
    PanelControl& control = at(id);
    control.shown = shown;
    control.enabled = enabled;
    control.text = hasText ? readout(pixels, c_.state.scaleUnit) : "";
  };
  // Left and top stay in view without a selection, so that the panel does not jump at each click.
  put(PanelId::left, true, r.shown, r.left, r.place.left);
  put(PanelId::top, true, r.shown, r.top, r.place.top);
  put(PanelId::width, r.shown, sized, r.width, r.place.width);
  put(PanelId::height, r.shown, sized, r.height, r.place.height);
}

}  // namespace plinth
