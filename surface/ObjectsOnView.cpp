// Sight is a matter of the object's page, of its own flag and of what the surface hides for a while.
#include "surface/ObjectsOnView.h"

#include <algorithm>
#include <climits>

namespace plinth {

namespace {

constexpr int kStatusLine = 0, kHelpBar = 1;  // labels of the surface

int tabOf(const ProjectTables& tables, ObjectRef object) {
  int tab = 0;
  withRow(tables, object, [&tab](const auto& row) {
    if constexpr (requires { row.tabOrder; }) tab = static_cast<int>(row.tabOrder);
  });
  return tab > 0 ? tab : INT_MAX;
}

void addKind(const DesignContext& c, ObjectKind kind, std::vector<ObjectRef>& objects) {
  const int count = visitTable(c.document, kind, [](auto& rows) { return static_cast<int>(rows.size()); });
  for (int i = 0; i < count; ++i)
    if (isOnView(c, {kind, i})) objects.push_back({kind, i});
}

}  // namespace

bool isOnView(const DesignContext& c, ObjectRef object) {
  if (!isLive(c.document, object) || isHidden(c.state, object)) return false;
  bool visible = true;
  withRow(c.document, object, [&visible](const auto& row) {
    if constexpr (requires { row.visible; }) visible = row.visible;
  });
  if (object.kind == ObjectKind::Title) {
    if (object.index == kStatusLine) return false;
    if (object.index == kHelpBar && visible) return true;
  }
  return showsOnPage(pageOf(c.document, object), visible, c.state.currentPage);
}

std::vector<ObjectRef> tabWalk(const DesignContext& c) {
  using enum ObjectKind;
  std::vector<ObjectRef> objects;
  for (const ObjectKind kind : {Field, Memo, Combo, CheckBox}) addKind(c, kind, objects);
  std::ranges::stable_sort(objects, {}, [&c](ObjectRef object) { return tabOf(c.document, object); });
  for (const ObjectKind kind : {Title, Button, Picture, Line, Square, Script}) addKind(c, kind, objects);
  return objects;
}

PointPx onPage(const DesignContext& c, PointPx point) {
  const SizePx page = pageSizePx(c.document);
  return {std::clamp(point.x, 0, page.width), std::clamp(point.y, 0, page.height)};
}

}  // namespace plinth
