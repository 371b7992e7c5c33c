// Selection by kind and index.
#include "surface/DesignState.h"

#include <algorithm>

namespace plinth {

namespace {

template <class State>
auto& indexOf(State& s, ObjectKind kind) {
  switch (kind) {
    case ObjectKind::Field:
      return s.selField;
    case ObjectKind::Memo:
      return s.selMemo;
    case ObjectKind::Combo:
      return s.selCombo;
    case ObjectKind::Picture:
      return s.selPicture;
    case ObjectKind::CheckBox:
      return s.selCheck;
    case ObjectKind::Title:
      return s.selTitle;
    case ObjectKind::Line:
      return s.selLine;
    case ObjectKind::Square:
      return s.selSquare;
    case ObjectKind::Script:
      return s.selScript;
    case ObjectKind::Button:
      break;
  }
  return s.selButton;
}

}  // namespace

int& selectedIndex(DesignState& state, ObjectKind kind) { return indexOf(state, kind); }
int selectedIndex(const DesignState& state, ObjectKind kind) { return indexOf(state, kind); }

void select(DesignState& state, ObjectRef object) {
  state.selKind = kindInfo(object.kind).selKind;
  state.placeTool = kindInfo(object.kind).placeTool;
  selectedIndex(state, object.kind) = object.index;
}

void selectNothing(DesignState& state) {
  state.selKind = kSelNone;
  state.placeTool = kToolNone;
  state.placingActive = false;
  state.placePhase = PlacePhase::none;
  state.lineEndsShown = false;
  state.userSelVisible = false;
  state.multiSel.clear();
  state.editedTitle = -1;
}

std::optional<ObjectRef> selectedObject(const DesignState& state, const ProjectTables& tables) {
  const auto kind = kindOfSelKind(state.selKind);
  if (!kind) return std::nullopt;
  const ObjectRef object{*kind, selectedIndex(state, *kind)};
  return isLive(tables, object) ? std::optional(object) : std::nullopt;
}

std::vector<ObjectRef> selectedObjects(const DesignState& state, const ProjectTables& tables) {
  std::vector<ObjectRef> objects;
  if (state.selKind == kSelArea) {
    std::ranges::copy_if(state.multiSel, std::back_inserter(objects),
                         [&](ObjectRef object) { return isLive(tables, object); });
  } else if (const auto object = selectedObject(state, tables)) {
    objects.push_back(*object);
  }
  return objects;
}

bool isHidden(const DesignState& state, ObjectRef object) {
  return std::ranges::find(state.hidden, object) != state.hidden.end();
}

}  // namespace plinth
