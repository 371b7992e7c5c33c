// What all tools do alike, in the order that shows in what a refusal leaves behind. The objects with slots
// of their own stand in SpecialObjects.cpp.
#include "surface/Placement.h"

#include <algorithm>
#include <optional>

#include "surface/AreaSelection.h"
#include "surface/NewObjects.h"
#include "surface/ObjectPlaces.h"
#include "surface/Units.h"

namespace plinth {

namespace {

constexpr int kMargin = 12;               // pixels
constexpr int kPictureFieldLimit = 499;   // of the index selected before, not of the table
constexpr int kPictureFieldsLabel = 163;  // label of its refusal

// Says that the kind's table is full.
const char* limitText(ObjectKind kind) {
  switch (kind) {
    case ObjectKind::Field:
      return "No more than 2000 field boxes can be placed.";
    case ObjectKind::Memo:
      return "No more than 500 memo boxes can be placed.";
    case ObjectKind::Combo:
      return "No more than 2000 combo boxes can be placed.";
    case ObjectKind::Picture:
      return "No more than 500 pictures can be placed.";
    case ObjectKind::CheckBox:
      return "No more than 2000 check boxes can be placed.";
    case ObjectKind::Title:
      return "No more than 5000 labels can be placed.";
    case ObjectKind::Line:
      return "No more than 5000 lines can be placed.";
    case ObjectKind::Square:
      return "No more than 5000 squares can be placed.";
    case ObjectKind::Script:
      return "No more than 2000 scripts can be placed.";
    case ObjectKind::Button:
      break;
  }
  return "No more than 2000 buttons can be placed.";
}

// The kind that buttonR hides; nullopt for tools that leave their object where it is.
std::optional<ObjectKind> hiddenKindOf(int placeTool) {
  constexpr int kOldFieldTool = 12;
  if (placeTool == kOldFieldTool) return ObjectKind::Field;
  const auto& kinds = kindInfos();
  const auto found = std::ranges::find(kinds, placeTool, &KindInfo::placeTool);
  if (found == kinds.end() || found->kind == ObjectKind::Button || found->kind == ObjectKind::Script)
    return std::nullopt;
  return found->kind;
}

int highestIndex(const ProjectTables& tables, ObjectKind kind) {
  return visitTable(tables, kind, [](const auto& rows) { return static_cast<int>(rows.size()) - 1; });
}

}  // namespace

const std::array<ToolInfo, kTools>& toolInfos() {
  static constexpr std::array<ToolInfo, kTools> tools{{
      {Tool::label, ObjectKind::Title, 112, "Label"},
      {Tool::field, ObjectKind::Field, 101, "Field Box"},
      {Tool::email, ObjectKind::Field, 113, "E-mail Field"},
      {Tool::memo, ObjectKind::Memo, 103, "Memo Box"},
      {Tool::combo, ObjectKind::Combo, 104, "Combo Box"},
      {Tool::pictureField, ObjectKind::Picture, 108, "Picture Field Box"},
      {Tool::pictureArt, ObjectKind::Picture, 126, "Picture Box..."},
      {Tool::checkBox, ObjectKind::CheckBox, 107, "Check Box"},
      {Tool::line, ObjectKind::Line, 122, "Line"},
      {Tool::square, ObjectKind::Square, 102, "Square"},
      {Tool::button, ObjectKind::Button, 109, "Add Button..."},
      {Tool::script, ObjectKind::Script, 110, "Add Script..."},
  }};
  return tools;
}

std::optional<Tool> toolInHand(const DesignState& state, const ProjectDocument& document) {
  const auto object = selectedObject(state, document);
  if (!state.placingActive || !object || object->index < kindInfo(object->kind).firstIndex)
    return std::nullopt;
  if (object->kind == ObjectKind::Field && object->index == document.emailField) return Tool::email;
  if (object->kind == ObjectKind::Picture && !state.pictureArtMode) return Tool::pictureArt;
  return std::ranges::find(toolInfos(), object->kind, &ToolInfo::kind)->tool;
}

void Placement::place(Tool tool) {
  DesignState& state = c_.state;
  if (state.locked) return;
  begin();
  const ObjectKind kind = toolInfos()[static_cast<std::size_t>(tool)].kind;
  // Before the limit, so that a refusal leaves it changed: the panel then shows the kind that is full.
  state.selKind = kindInfo(kind).selKind;
  if (!allowed(tool)) return;
  if (kind != ObjectKind::Button && kind != ObjectKind::Script) hideCarried();
  const int before = highestIndex(c_.document, kind);
  const ObjectRef object = make(tool);
  if (object.index > before)
    moveTo(c_.document, object, startCorner());
  else
    std::erase(state.hidden, object);
  hand(object, "placing of " + shortName(object));
}

// Whatever went on ends: the area selection, typing in a label. The step to come is one of its own.
void Placement::begin() {
  finishCarried(c_);
  if (c_.state.userSelVisible || c_.state.selKind == kSelArea) AreaSelection(c_).leave();
  if (c_.state.editedTitle >= 0) {
    c_.state.editedTitle = -1;
    c_.view.labelEditing();
  }
  if (c_.state.lineEndsShown) {
    c_.state.lineEndsShown = false;
    c_.view.overlayChanged();
  }
  c_.history.seal();
}

// Shows the reason when not.
bool Placement::allowed(Tool tool) {
  if (tool == Tool::email && c_.document.emailField > 0) {
    refuse(kToolNone);
    c_.messages.show("The mail field box has already been placed");
    return false;
  }
  const KindInfo& info = kindInfo(toolInfos()[static_cast<std::size_t>(tool)].kind);
  const bool full = highestIndex(c_.document, info.kind) >= info.limit;
  if (tool == Tool::pictureField && (full || c_.state.selPicture >= kPictureFieldLimit)) {
    refuse(kToolNone);
    showLabel(c_, kPictureFieldsLabel, "No more than 499 picture fields can be placed.");
    return false;
  }
  if (!full) return true;
  refuse(tool == Tool::line ? kToolRefused : kToolNone);
  showLabel(c_, info.limitLabel, limitText(info.kind));
  return false;
}

void Placement::refuse(int placeTool) {
  // What was carried stays where it is, since no tool carries it any more.
  c_.state.placingActive = false;
  c_.state.placePhase = PlacePhase::none;
  c_.state.placeTool = placeTool;
  c_.view.selectionChanged();
}

void Placement::hideCarried() {
  DesignState& state = c_.state;
  if (!state.placingActive) return;
  state.placingActive = false;
  state.placePhase = PlacePhase::none;
  const std::optional<ObjectKind> kind = hiddenKindOf(state.placeTool);
  if (!kind) return;
  const ObjectRef object{*kind, selectedIndex(state, *kind)};
  // Objects with a slot of their own stay: only their command could bring them back.
  if (object.index >= kindInfo(*kind).firstIndex && isLive(c_.document, object)) hideObject(c_, object);
}

void Placement::cancelCarried() {
  if (!c_.state.placingActive) return;
  c_.history.seal();
  hideCarried();
  selectNothing(c_.state);
  c_.view.selectionChanged();
  finish(c_, "putting aside of an object");
}

ObjectRef Placement::make(Tool tool) {
  switch (tool) {
    case Tool::label:
      return newLabel(c_);
    case Tool::field:
      return newField(c_);
    case Tool::email:
      return newEmailField(c_);
    case Tool::memo:
      return newMemo(c_);
    case Tool::combo:
      return newCombo(c_);
    case Tool::pictureField:
      c_.state.pictureArtMode = true;
      return newPictureField(c_);
    case Tool::pictureArt: {
      c_.state.pictureArtMode = false;
      const std::string path = c_.choosePicture();
      return newPictureArt(c_, path, path.empty() || !pictureSize_ ? SizePx{} : pictureSize_(path));
    }
    case Tool::checkBox:
      return newCheckBox(c_);
    case Tool::line:
      return newLine(c_);
    case Tool::square:
      return newSquare(c_);
    case Tool::button:
      return newButton(c_);
    case Tool::script:
      break;
  }
  return newScript(c_);
}

// Where people see an object that no mouse has moved yet.
PointPx Placement::startCorner() const {
  const RectPx seen = c_.visiblePage();
  return SnapPoint(c_.state, {std::max(0, seen.left) + kMargin, std::max(0, seen.top) + kMargin});
}

// Selects the object, lets the mouse carry it and makes the step.
void Placement::hand(ObjectRef object, const std::string& words) {
  select(c_.state, object);
  c_.state.placingActive = true;
  c_.state.placePhase = PlacePhase::none;
  c_.view.objectsChanged();
  c_.view.selectionChanged();
  finish(c_, words, placingKey(object));
}

}  // namespace plinth
