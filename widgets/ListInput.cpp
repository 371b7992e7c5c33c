// What keys, wheel and mouse make of a list.
#include <algorithm>

#include "basic/CodePage.h"
#include "widgets/ListModel.h"

namespace plinth {

namespace {

constexpr int kLetterA = 65;
constexpr int kEdgeReach = 4;                 // pixels on both sides of a column's edge that take hold of it
constexpr std::uint32_t kTypingPause = 1000;  // milliseconds
constexpr std::int32_t kMostTried = 100000;
constexpr int kOffsetStep = 20;  // pixels of a press of Left or Right

}  // namespace

ListHit ListModel::hitTest(PointPx point) const {
  if (!RectPx{0, 0, view_.width, view_.height}.contains(point)) return {};
  if (point.y >= headHeight_) {
    const std::int64_t position = std::int64_t{first_} + (point.y - headHeight_) / rowHeight_;
    if (position >= rows_) return {};
    return {ListZone::row, -1, static_cast<std::int32_t>(position)};
  }
  for (int column = 0; column < static_cast<int>(columns_.size()); ++column) {
    if (!shown(column)) continue;
    const int right = columnLeft(column) + columns_[static_cast<std::size_t>(column)].width;
    if (point.x < right - kEdgeReach) return {ListZone::head, column, -1};
    if (point.x < right + kEdgeReach) return {ListZone::headEdge, column, -1};
  }
  return {};
}

// Says whether anything changed that is selected.
bool ListModel::moveCaret(std::int64_t position, Moving moving) {
  if (rows_ == 0) return false;
  const auto target = static_cast<std::int32_t>(std::clamp<std::int64_t>(position, 0, rows_ - 1));
  const bool moved = target != caret_ || !caretSet_;
  caret_ = target;
  caretSet_ = true;
  reveal(target);
  if (!mSelect_ || moving == Moving::caretOnly) {
    if (!mSelect_) anchor_ = target;
    return moved;
  }
  if (moving == Moving::select) anchor_ = target;
  clearMarks();
  markRange(anchor_, target);
  return true;
}

bool ListModel::toggleCaret() {
  if (rows_ == 0) return false;
  caretSet_ = true;
  anchor_ = caret_;
  setMark(rowAt(caret_), !isMarked(rowAt(caret_)));
  return true;
}

// Where a key takes the caret, also beyond the ends.
std::optional<std::int64_t> ListModel::keyTarget(int key) const {
  const std::int64_t last = std::int64_t{first_} + rowsInView() - 1;
  switch (key) {
    case kUpKey:
      return std::int64_t{caret_} - 1;
    case kDownKey:
      return std::int64_t{caret_} + 1;
    case kPageUpKey:  // to the edge of what is seen first, then by pages
      return caret_ > first_ && caret_ <= last ? first_ : std::int64_t{caret_} - rowsInView();
    case kPageDownKey:
      return caret_ >= first_ && caret_ < last ? last : std::int64_t{caret_} + rowsInView();
    case kHomeKey:
      return 0;
    case kEndKey:
      return std::int64_t{rows_} - 1;
    default:
      return std::nullopt;
  }
}

// The keys of a list with marks.
std::optional<ListOutcome> ListModel::markingKey(const KeyEvent& event) {
  ListOutcome out{.handled = true};
  if (event.key == kSpaceKey) {
    out.selectionChanged = toggleCaret();
    reveal(std::max(0, caret_));
    return out;
  }
  if (event.key != kLetterA || event.shift != kCtrl) return std::nullopt;
  markRange(0, rows_ - 1);
  out.selectionChanged = rows_ > 0;
  return out;
}

ListOutcome ListModel::key(const KeyEvent& event) {
  if (event.shift & kAlt) return {};
  ListOutcome out{.handled = true};
  if (const auto target = keyTarget(event.key)) {
    const Moving moving = event.shift & kShift  ? Moving::extend
                          : event.shift & kCtrl ? Moving::caretOnly
                                                : Moving::select;
    out.selectionChanged = moveCaret(*target, moving);
    return out;
  }
  if (mSelect_)
    if (const auto marked = markingKey(event)) return *marked;
  if (event.key == kLeftKey || event.key == kRightKey) {
    setOffset(offset_ + (event.key == kLeftKey ? -kOffsetStep : kOffsetStep));
    return out;
  }
  if (event.key != kEnterKey) return {};
  out.chosen = rows_ > 0;
  return out;
}

int ListModel::typingColumn() const {
  if (sorting_ && shown(sorting_->column)) return sorting_->column;
  int column = 1;
  while (column < kListColumns && !shown(column)) ++column;
  return column;
}

ListOutcome ListModel::type(std::string_view character, std::uint32_t milliseconds) {
  if (milliseconds - typedAt_ > kTypingPause) typed_.clear();
  typedAt_ = milliseconds;
  if (typed_.empty() && character == " ") return {};
  // What a row begins with so far may still be that of the row with the caret.
  const std::int64_t from = std::int64_t{caret_} + (typed_.empty() ? 1 : 0);
  typed_ += character;
  ListOutcome out{.handled = true};
  const int column = typingColumn();
  for (std::int64_t i = 0; i < std::min(rows_, kMostTried); ++i) {
    const auto position = static_cast<std::int32_t>((from + i) % rows_);
    const std::string cell = getItem(position, column);
    if (compareFolded(std::string_view(cell).substr(0, typed_.size()), typed_, locale_.codePage) != 0)
      continue;
    out.selectionChanged = moveCaret(position, Moving::select);
    break;
  }
  return out;
}

void ListModel::wheel(int rows) {
  const std::int64_t wanted = std::int64_t{first_} + rows;
  setFirstRow(static_cast<std::int32_t>(std::clamp<std::int64_t>(wanted, 0, rows_)));
}

ListOutcome ListModel::pressRow(std::int32_t position, const MouseEvent& event, bool twice) {
  ListOutcome out{.handled = true};
  if (event.button != 1) {
    // A menu opens for what is selected, or for the row below the pointer.
    if (!isSelected(position)) out.selectionChanged = moveCaret(position, Moving::select);
    return out;
  }
  held_ = {ListZone::row, -1, 0, lineAt(event.y), twice, false, event.shift & (kShift | kCtrl)};
  out.activated = twice;
  const bool extends = event.shift & kShift, adds = event.shift & kCtrl;
  if (!mSelect_ || (!extends && !adds)) {
    out.selectionChanged = moveCaret(position, Moving::select);
  } else if (extends && !adds) {
    out.selectionChanged = moveCaret(position, Moving::extend);
  } else {
    moveCaret(position, Moving::caretOnly);
    if (extends)
      markRange(anchor_, position);
    else
      toggleCaret();
    out.selectionChanged = true;
  }
  return out;
}

ListOutcome ListModel::press(const MouseEvent& event, bool twice) {
  const ListHit hit = hitTest({event.x, event.y});
  held_ = {};
  ListOutcome out{.handled = hit.zone != ListZone::nothing};
  if (hit.zone == ListZone::row) return pressRow(hit.position, event, twice);
  if (event.button != 1 || !out.handled) return out;
  if (hit.zone == ListZone::headEdge && twice) {
    out.fitColumn = hit.column;
    return out;
  }
  held_.zone = hit.zone;
  held_.column = hit.column;
  held_.grip = columnLeft(hit.column) + columns_[static_cast<std::size_t>(hit.column)].width - event.x;
  return out;
}

// -1 above the rows, rowsInView() below them.
int ListModel::lineAt(int y) const {
  return y < headHeight_ ? -1 : std::min((y - headHeight_) / rowHeight_, rowsInView());
}

ListOutcome ListModel::dragRow(int y) {
  const int line = lineAt(y);
  ListOutcome out{.handled = true};
  // A row that was cut off below has moved up when it was pressed: the pointer is still on it.
  if (!held_.dragged && line == held_.line) return out;
  const auto target =
      static_cast<std::int32_t>(std::clamp<std::int64_t>(std::int64_t{first_} + line, 0, rows_ - 1));
  if (target == caret_) return out;
  held_.dragged = true;
  if (mSelect_ && held_.shift & kCtrl) {
    moveCaret(target, Moving::caretOnly);
    markRange(anchor_, target);
    out.selectionChanged = true;
  } else {
    out.selectionChanged = moveCaret(target, Moving::extend);
  }
  return out;
}

ListOutcome ListModel::drag(PointPx point) {
  if (held_.zone == ListZone::row && rows_ > 0) return dragRow(point.y);
  ListOutcome out{.handled = held_.zone != ListZone::nothing};
  if (held_.zone != ListZone::headEdge) return out;
  setColumnWidth(held_.column, point.x + held_.grip - columnLeft(held_.column));
  out.columnSized = true;
  return out;
}

ListOutcome ListModel::release(PointPx point) {
  const Held held = held_;
  held_ = {};
  ListOutcome out{.handled = held.zone != ListZone::nothing};
  if (held.zone == ListZone::row) {
    out.chosen = rows_ > 0 && !held.dragged && !held.twice && (!mSelect_ || held.shift == 0);
    return out;
  }
  const ListHit hit = hitTest(point);
  if (held.zone != ListZone::head || hit.zone != ListZone::head || hit.column != held.column) return out;
  sortBy(held.column, sorting_ && sorting_->column == held.column && !sorting_->descending);
  out.sorted = true;
  return out;
}

}  // namespace plinth
