// All objects of a kind go in one pass, so that an area costs no more than one object.
#include "surface/ObjectDelete.h"

#include <array>

#include "model/AssignTab.h"
#include "model/FormulaReferences.h"

namespace plinth {

namespace {

constexpr int kDocumentBox = 1;
constexpr int kLastSystemTitle = 5;

using Marks = std::array<std::vector<bool>, kObjectKinds>;

Marks marksOf(const ProjectDocument& document, const std::vector<ObjectRef>& objects) {
  Marks marks;
  for (const ObjectRef object : objects) {
    if (!isLive(document, object)) continue;
    std::vector<bool>& ofKind = marks[static_cast<std::size_t>(object.kind)];
    visitTable(document, object.kind, [&](const auto& rows) { ofKind.resize(rows.size()); });
    ofKind[static_cast<std::size_t>(object.index)] = true;
  }
  return marks;
}

bool closesGaps(ObjectKind kind) {
  using enum ObjectKind;
  return kind == Field || kind == Memo || kind == Combo || kind == Picture || kind == Script;
}

// The first slot of squares, lines and buttons and those of the labels that belong to the application are
// never dropped.
int pageWhenDeleted(ObjectRef object, bool ofArea) {
  if (object.kind == ObjectKind::CheckBox && ofArea) return kPageVacant;
  const int lastKept = object.kind == ObjectKind::Title ? kLastSystemTitle : 0;
  return object.index > lastKept ? kPageDeleted : kPageVacant;
}

void clearEmail(ProjectDocument& d, const std::vector<bool>& removed) {
  for (std::int16_t* number : {&d.emailField, &d.emailNameField})
    if (*number > 0 && static_cast<std::size_t>(*number) < removed.size() &&
        removed[static_cast<std::size_t>(*number)])
      *number = 0;
}

void removeRows(ProjectDocument& document, ObjectKind kind, std::vector<bool>& removed) {
  if (kind == ObjectKind::Field) clearEmail(document, removed);
  // The document box has a slot of its own.
  if (kind == ObjectKind::Memo && removed.size() > kDocumentBox && removed[kDocumentBox]) {
    document.memos[kDocumentBox].page = kPageVacant;
    removed[kDocumentBox] = false;
  }
  const int first = kindInfo(kind).firstIndex;
  const std::vector<int> numbers = visitTable(document, kind, [&](auto& rows) {
    return closeGaps(rows, [&](int i) { return i >= first && removed[static_cast<std::size_t>(i)]; });
  });
  if (kind != ObjectKind::Script)
    renumberReferences(document, kindInfo(kind).shortName[0], numberedBy(numbers));
}

}  // namespace

void deleteObjects(ProjectDocument& document, const std::vector<ObjectRef>& objects, bool ofArea) {
  Marks marks = marksOf(document, objects);
  for (const KindInfo& info : kindInfos()) {
    std::vector<bool>& removed = marks[static_cast<std::size_t>(info.kind)];
    if (removed.empty()) continue;
    if (closesGaps(info.kind)) {
      removeRows(document, info.kind, removed);
      continue;
    }
    for (int i = 0; i < static_cast<int>(removed.size()); ++i) {
      const ObjectRef object{info.kind, i};
      if (removed[static_cast<std::size_t>(i)]) setPage(document, object, pageWhenDeleted(object, ofArea));
    }
  }
  assignTab(document);
}

}  // namespace plinth
