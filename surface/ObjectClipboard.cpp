// The text form of objects stands in ClipboardColumns; here are the lines, and what the commands do beside.
#include "surface/ObjectClipboard.h"

#include <array>
#include <cstdlib>
#include <map>
#include <type_traits>

#include "basic/FileName.h"
#include "basic/Text.h"
#include "model/AssignTab.h"
#include "model/FormulaReferences.h"
#include "surface/ClipboardColumns.h"
#include "surface/ObjectDelete.h"

namespace plinth {

namespace {

constexpr int kPasteStep = 10;
constexpr int kFirstUserTitle = 6;
constexpr int kFieldsFull = 168;
constexpr std::string_view kLineEnd = "\r\n";

// What a line leaves out stays as a tool would make it, in pixels.
template <class Row>
Row freshRow(int width, int height) {
  Row row;
  if constexpr (requires { row.printOn; }) row.printOn = 1;
  if constexpr (requires { row.width; }) row.width = pixelsToTwips(width);
  if constexpr (requires { row.height; }) row.height = pixelsToTwips(height);
  if constexpr (requires { row.backStyle; }) row.backStyle = 1;
  return row;
}

SizePx freshSize(ObjectKind kind) {
  switch (kind) {
    case ObjectKind::Field:
      return {144, 15};
    case ObjectKind::Memo:
      return {96, 96};
    case ObjectKind::Combo:
      return {152, 19};
    case ObjectKind::Picture:
    case ObjectKind::Script:
      return {65, 45};
    case ObjectKind::Button:
      return {94, 34};
    default:
      return {15, 15};
  }
}

bool endsAsImage(std::string_view path) {
  static constexpr std::array<std::string_view, 8> kEndings{".bmp", ".gif", ".jpg",  ".jpeg",
                                                            ".png", ".tif", ".tiff", ".ico"};
  const std::string name = lowerAscii(fileNameOf(path));
  return std::ranges::any_of(kEndings, [&](std::string_view ending) { return name.ends_with(ending); });
}

// A path from the clipboard names a file that the next save would take into the project: it must be an image,
// and asking for it must not reach out to another machine.
bool mayShow(const ProjectDocument& document, const std::string& path) {
  const bool known =
      std::ranges::any_of(document.pictures, [&](const PictureRow& row) { return row.picturePath == path; });
  const bool remote = path.starts_with("\\\\") || path.starts_with("//") || path.starts_with("\\/") ||
                      path.starts_with("/\\");
  return known || (!remote && endsAsImage(path));
}

// Reads the lines of a text one after the other.
class Lines {
 public:
  // A text that another program has turned to its own line ends is taken as well.
  explicit Lines(std::string_view text)
      : rest_(text), end_(contains(text, kLineEnd) ? kLineEnd : kLineEnd.substr(1)) {}
  bool done() const { return done_; }
  std::string_view next() {
    const std::size_t end = rest_.find(end_);
    const std::string_view line = rest_.substr(0, end);
    done_ = end == rest_.npos;
    rest_.remove_prefix(done_ ? rest_.size() : end + end_.size());
    return line;
  }

 private:
  std::string_view rest_, end_;
  bool done_ = false;
};

class Paste {
 public:
  Paste(ProjectDocument& document, int page, PointPx offset)
      : document_(document), page_(std::clamp(page, 0, kPages - 1)), offset_(offset) {}

  PasteResult run(Lines lines);

 private:
  void line(std::string_view line);
  template <class Row>
  bool row(std::vector<Row>& rows, const KindInfo& info, std::string_view columns);
  void nameAndCheck(FieldRow& row, int index) { row.tag = "Field" + std::to_string(index); }
  void nameAndCheck(PictureRow& row, int) {
    if (!mayShow(document_, row.picturePath)) row.picturePath.clear();
  }
  template <class Row>
  void nameAndCheck(Row&, int) {}
  void followReferences();

  ProjectDocument& document_;
  int page_;
  PointPx offset_;
  PasteResult result_;
  std::map<int, int> copies_;  // of fields: where it was copied, where it is now
};

template <class Row>
bool Paste::row(std::vector<Row>& rows, const KindInfo& info, std::string_view columns) {
  // The first line is vacant after the next load, and the slots of the application's own labels stay theirs.
  const int first = info.kind == ObjectKind::Line ? 1 : info.firstIndex;
  const int index = std::max(static_cast<int>(rows.size()), first);
  if (index > info.limit) {
    result_.fieldsFull = result_.fieldsFull || info.kind == ObjectKind::Field;
    return false;
  }
  const SizePx size = freshSize(info.kind);
  Row row = freshRow<Row>(size.width, size.height);
  ColumnReader reader(columns, offset_);
  LineFacts facts;
  walkColumns(reader, row, facts);
  if (!reader.any()) return false;
  row.page = static_cast<decltype(row.page)>(page_);
  nameAndCheck(row, index);
  rows.resize(static_cast<std::size_t>(index));
  rows.push_back(std::move(row));
  if (facts.index > 0) copies_.try_emplace(facts.index, index);
  result_.objects.push_back({info.kind, index});
  return true;
}

void Paste::line(std::string_view line) {
  const std::size_t comma = line.find(',');
  const std::string_view word = line.substr(0, comma);
  const auto info = std::ranges::find(kindInfos(), word, &KindInfo::word);
  const bool made =
      info != kindInfos().end() && comma != line.npos &&
      visitTable(document_, info->kind, [&](auto& rows) { return row(rows, *info, line.substr(comma + 1)); });
  if (!made) ++result_.skipped;
}

void Paste::followReferences() {
  const auto copyOf = [this](int old) {
    const auto copy = copies_.find(old);
    return copy == copies_.end() ? old : copy->second;
  };
  for (const ObjectRef object : result_.objects) {
    if (object.kind != ObjectKind::Field) continue;
    std::string& formula = document_.fields[static_cast<std::size_t>(object.index)].formula;
    formula = renumbered(formula, 'F', copyOf);
  }
}

PasteResult Paste::run(Lines lines) {
  if (lines.next() != kClipboardSignature || lines.done()) return {};
  std::string_view first = lines.next();
  if (first.empty()) return {};
  line(first);
  while (!lines.done())
    if (const std::string_view next = lines.next(); !next.empty()) line(next);
  followReferences();
  if (!result_.objects.empty()) assignTab(document_);
  return std::move(result_);
}

}  // namespace

std::string clipboardText(const ProjectDocument& document, const std::vector<ObjectRef>& objects,
                          const TextMeasure&) {
  std::string text(kClipboardSignature);
  text += kLineEnd;
  for (const ObjectRef object : objects) {
    if (!isLive(document, object)) continue;
    text += kindInfo(object.kind).word;
    withRow(document, object, [&](const auto& row) {
      ColumnWriter writer(text);
      LineFacts facts{object.index, document.charSet};
      walkColumns(writer, row, facts);
    });
    text += kLineEnd;
  }
  return text;
}

PasteResult pasteObjects(ProjectDocument& document, std::string_view text, int page, PointPx offset) {
  return Paste(document, page, offset).run(Lines(text));
}

std::string ObjectClipboard::copy() {
  if (area_.active()) {
    area_.collect();
    c_.view.selectionChanged();
  }
  return selectionText();
}

std::string ObjectClipboard::selectionText() {
  const PointPx scroll = c_.scroll();
  c_.state.scrollXAtCopy = std::abs(scroll.x);
  c_.state.scrollYAtCopy = std::abs(scroll.y);
  const std::vector<ObjectRef> objects = selectedObjects(c_.state, c_.document);
  return objects.empty() ? "" : clipboardText(c_.document, objects, c_.measure);
}

void ObjectClipboard::endSelection() {
  if (c_.state.editedTitle >= 0) c_.view.labelEditing();
  area_.leave();
  selectNothing(c_.state);
}

void ObjectClipboard::paste(std::string_view text) {
  finishCarried(c_);
  const PointPx scroll = c_.scroll();
  const PointPx offset{kPasteStep + std::abs(scroll.x) - c_.state.scrollXAtCopy,
                       kPasteStep + std::abs(scroll.y) - c_.state.scrollYAtCopy};
  const int firstField = c_.document.fieldCount();
  const PasteResult pasted = pasteObjects(c_.document, text, c_.state.currentPage, offset);
  if (pasted.objects.empty() && pasted.skipped == 0) return;
  c_.state.pasteFirstField = firstField;
  endSelection();
  if (pasted.objects.size() > 1)
    area_.show(pasted.objects);
  else if (!pasted.objects.empty())
    select(c_.state, pasted.objects.front());
  if (!pasted.objects.empty()) {
    finish(c_, "paste of " + shortName(pasted.objects));
    c_.view.objectsChanged();
  }
  c_.view.selectionChanged();
  if (pasted.fieldsFull) showLabel(c_, kFieldsFull, "No more than 2000 field boxes can be placed.");
}

void ObjectClipboard::remove() {
  const std::vector<ObjectRef> objects = selectedObjects(c_.state, c_.document);
  if (objects.empty()) return;
  finishCarried(c_);
  const bool ofArea = area_.active();
  endSelection();
  revealHidden(c_);
  c_.state.hoverLabel.index = -1;
  deleteObjects(c_.document, objects, ofArea);
  for (const KindInfo& info : kindInfos())
    selectedIndex(c_.state, info.kind) = info.kind == ObjectKind::Title ? kFirstUserTitle - 1 : 0;
  finish(c_, "deletion of " + shortName(objects));
  c_.view.objectsChanged();
  c_.view.selectionChanged();
}

void ObjectClipboard::moveToPage(int page) {
  if (page < 0 || page >= kPages) return;
  finishCarried(c_);
  const std::vector<ObjectRef> objects = selectedObjects(c_.state, c_.document);
  for (const ObjectRef object : objects) setPage(c_.document, object, page);
  if (!finish(c_, "move of " + shortName(objects) + " to page " + std::to_string(page + 1))) return;
  if (page != c_.state.currentPage) endSelection();
  c_.view.objectsChanged();
  c_.view.selectionChanged();
}

}  // namespace plinth
