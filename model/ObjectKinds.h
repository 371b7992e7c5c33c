// The ten kinds of object as one table, and ways to reach any object's row by kind and index. What depends on
// the kind alone stands here and nowhere else.
#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string_view>
#include <utility>
#include <vector>

#include "model/ProjectDocument.h"

namespace plinth {

inline constexpr int kObjectKinds = 10;

// An object's identity: kind and index into the kind's table.
struct ObjectRef {
  ObjectKind kind = ObjectKind::Field;
  int index = 0;
  bool operator==(const ObjectRef&) const = default;
};

// Codes of SelKind and PlaceTool that stand for no kind.
inline constexpr int kSelNone = 0, kSelArea = 99, kSelFrame3 = 21;
inline constexpr int kToolNone = 100, kToolRefused = 99;

struct KindInfo {
  ObjectKind kind;
  std::string_view word;         // opens an object's line on the clipboard
  std::string_view controlName;  // names the kind in an area selection
  std::string_view noun;         // for people: "field"
  std::string_view shortName;    // before the index: "F", "Line "; "" for squares and scripts
  int selKind, placeTool;
  int firstIndex;  // of a user's object
  int limit;       // highest index
  int limitLabel;  // message when the table is full; 0: none
};
const KindInfo& kindInfo(ObjectKind kind);
const std::array<KindInfo, kObjectKinds>& kindInfos();  // in the order of ObjectKind
// nullopt for codes that stand for no kind.
std::optional<ObjectKind> kindOfSelKind(int selKind);

// The table of a kind in a statement: visitTable(document, kind, [](auto& rows) { ... }).
template <class Tables, class F>
decltype(auto) visitTable(Tables& tables, ObjectKind kind, F&& visit) {
  switch (kind) {
    case ObjectKind::Field:
      return visit(tables.fields);
    case ObjectKind::Memo:
      return visit(tables.memos);
    case ObjectKind::Combo:
      return visit(tables.combos);
    case ObjectKind::Picture:
      return visit(tables.pictures);
    case ObjectKind::CheckBox:
      return visit(tables.checks);
    case ObjectKind::Title:
      return visit(tables.titles);
    case ObjectKind::Line:
      return visit(tables.lines);
    case ObjectKind::Square:
      return visit(tables.squares);
    case ObjectKind::Script:
      return visit(tables.scripts);
    case ObjectKind::Button:
      break;
  }
  return visit(tables.buttons);
}

// Calls visit(kind, rows) for the ten tables in the order of ObjectKind.
template <class Tables, class F>
void forEachTable(Tables& tables, F&& visit) {
  for (const KindInfo& info : kindInfos())
    visitTable(tables, info.kind, [&](auto& rows) { visit(info.kind, rows); });
}

// Calls visit(row) with the object's row; does nothing when there is none, so that a stale index is harmless.
// True when it was called.
template <class Tables, class F>
bool withRow(Tables& tables, ObjectRef object, F&& visit) {
  return visitTable(tables, object.kind, [&](auto& rows) {
    if (object.index < 0 || object.index >= static_cast<int>(rows.size())) return false;
    visit(rows[static_cast<std::size_t>(object.index)]);
    return true;
  });
}

// Page of an object; kPageVacant when there is none.
int pageOf(const ProjectTables& tables, ObjectRef object);
void setPage(ProjectTables& tables, ObjectRef object, int page);
// Exists and lies on a page, or on all.
bool isLive(const ProjectTables& tables, ObjectRef object);

}  // namespace plinth
