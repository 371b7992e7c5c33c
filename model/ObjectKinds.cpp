// The table of kinds.
#include "model/ObjectKinds.h"

#include <algorithm>

namespace plinth {

const std::array<KindInfo, kObjectKinds>& kindInfos() {
  using enum ObjectKind;
  static constexpr std::array<KindInfo, kObjectKinds> kinds{{
      {Field, "Field", "nameing", "field", "F", 1, 7, 1, kFieldLimit, 168},
      {Memo, "Notes", "notes", "memo", "M", 2, 8, 2, kMemoLimit, 169},
      {Combo, "Combo", "cbedit", "combo box", "C", 3, 10, 1, kComboLimit, 170},
      {Picture, "Picture", "Pixbox", "picture", "P", 4, 9, 0, kPictureLimit, 171},
      {CheckBox, "Checkbox", "Checkbox", "check box", "K", 5, 13, 0, kCheckLimit, 173},
      {Title, "Title", "Title", "label", "L", 6, 6, 6, kTitleLimit, 167},
      {Line, "Line", "LineXY", "line", "Line ", 7, 15, 0, kLineLimit, 172},
      {Square, "Square", "BOXes", "square", "", 8, 14, 0, kSquareLimit, 174},
      {Script, "Script", "DivBox", "script", "", 9, 27, 1, kScriptLimit, 0},
      {Button, "Button", "Command1", "button", "", 20, 20, 0, kButtonLimit, 0},
  }};
  return kinds;
}

const KindInfo& kindInfo(ObjectKind kind) { return kindInfos()[static_cast<std::size_t>(kind)]; }

std::optional<ObjectKind> kindOfSelKind(int selKind) {
  const auto& kinds = kindInfos();
  const auto found = std::ranges::find(kinds, selKind, &KindInfo::selKind);
  return found == kinds.end() ? std::nullopt : std::optional(found->kind);
}

int pageOf(const ProjectTables& tables, ObjectRef object) {
  int page = kPageVacant;
  withRow(tables, object, [&](const auto& row) { page = static_cast<int>(row.page); });
  return page;
}

void setPage(ProjectTables& tables, ObjectRef object, int page) {
  withRow(tables, object, [&](auto& row) { row.page = static_cast<std::int16_t>(page); });
}

bool isLive(const ProjectTables& tables, ObjectRef object) { return isLivePage(pageOf(tables, object)); }

}  // namespace plinth
