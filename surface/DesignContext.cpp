// Small things that every controller does alike.
#include "surface/DesignContext.h"

namespace plinth {

namespace {

// Only the flag of page 0 is kept in files, and only there it has a meaning.
void setVisible(ProjectDocument& document, ObjectRef object, bool visible) {
  withRow(document, object, [visible](auto& row) {
    if constexpr (requires { row.visible; })
      if (row.page == 0) row.visible = visible;
  });
}

}  // namespace

bool finish(DesignContext& context, const std::string& words, const std::string& mergeKey) {
  if (!context.history.commit(context.document, words, mergeKey)) return false;
  context.document.dirty = true;
  context.view.documentChanged();
  return true;
}

std::string placingKey(ObjectRef object) { return "place " + shortName(object); }

void finishCarried(DesignContext& context) {
  if (!context.state.placingActive) return;
  if (const auto object = selectedObject(context.state, context.document))
    finish(context, "placing of " + shortName(*object), placingKey(*object));
}

void showLabel(DesignContext& context, int label, const char* english) {
  context.messages.show(context.label(label, english), MessageIcon::information);
}

std::string shortName(ObjectRef object) {
  const KindInfo& info = kindInfo(object.kind);
  const std::string name(info.shortName);
  return (name.empty() || object.kind == ObjectKind::Button ? std::string(info.noun) + " " : name) +
         std::to_string(object.index);
}

std::string shortName(const std::vector<ObjectRef>& objects) {
  if (objects.size() == 1) return shortName(objects.front());
  return std::to_string(objects.size()) + " objects";
}

void hideObject(DesignContext& context, ObjectRef object) {
  if (!isHidden(context.state, object)) context.state.hidden.push_back(object);
  setVisible(context.document, object, false);
  context.view.objectsChanged();
}

void revealHidden(DesignContext& context) {
  for (const ObjectRef object : context.state.hidden) setVisible(context.document, object, true);
  context.state.hidden.clear();
}

}  // namespace plinth
