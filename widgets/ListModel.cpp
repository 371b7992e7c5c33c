// What a list remembers: rows and their order, marks, caret, and what of them is in view.
#include "widgets/ListModel.h"

#include <algorithm>

namespace plinth {

namespace {

constexpr int kMostColumn = 30000;  // pixels; all columns together stay far from the limits of an int

}  // namespace

void ListModel::setSource(const ListSource* source) {
  source_ = source;
  rows_ = 0;
  rowOrder_.clear();
  sorting_.reset();
  clearMarks();
  caretSet_ = false;
  caret_ = anchor_ = -1;
  first_ = offset_ = 0;
  held_ = {};
  typed_.clear();
  rowsChanged();
}

void ListModel::rowsChanged() {
  const std::int32_t before = rows_, caretRow = caret_ < 0 ? -1 : rowAt(caret_);
  rows_ = source_ ? std::max(0, source_->rows()) : 0;
  if (!rowMark_.empty()) {
    rowMark_.resize(static_cast<std::size_t>(rows_));
    markedCount_ = static_cast<std::int32_t>(std::count(rowMark_.begin(), rowMark_.end(), true));
  }
  if (sorting_ && rows_ > before)
    applyOrder(*sorting_);
  else
    std::erase_if(rowOrder_, [&](std::int32_t row) { return row >= rows_; });
  placeCaret(caretRow);
  layOut();
}

void ListModel::rowRemoved(std::int32_t row) {
  const std::int32_t position = positionOf(row);
  if (position < 0) return;
  setMark(row, false);
  if (!rowMark_.empty()) rowMark_.erase(rowMark_.begin() + row);
  if (!rowOrder_.empty()) rowOrder_.erase(rowOrder_.begin() + position);
  for (std::int32_t& one : rowOrder_)
    if (one > row) --one;
  --rows_;
  for (std::int32_t* place : {&caret_, &anchor_, &first_})
    if (position < *place) --*place;
  caret_ = std::min(caret_, rows_ - 1);
  anchor_ = std::min(anchor_, rows_ - 1);
  layOut();
}

void ListModel::setColumns(std::vector<ListColumn> columns) {
  if (columns.size() > kListColumns + 1) columns.resize(kListColumns + 1);
  for (ListColumn& column : columns)
    column.width = column.width <= 0 ? 0 : std::clamp(column.width, kLeastColumn, kMostColumn);
  columns_ = std::move(columns);
  held_ = {};
  layOut();
}

void ListModel::setColumnWidth(int column, int width) {
  if (!shown(column)) return;
  columns_[static_cast<std::size_t>(column)].width = std::clamp(width, kLeastColumn, kMostColumn);
  layOut();
}

void ListModel::setLocale(const Locale& locale, double today) {
  locale_ = locale;
  today_ = today;
}

void ListModel::setMultiSelect(bool mSelect) {
  mSelect_ = mSelect;
  if (!mSelect) clearMarks();
}

void ListModel::setSize(SizePx whole, int barBreadth) {
  whole_ = whole;
  barBreadth_ = std::max(0, barBreadth);
  layOut();
}

void ListModel::setRowHeights(int row, int head) {
  rowHeight_ = std::max(1, row);
  headHeight_ = std::max(1, head);
  layOut();
}

// A bar takes room, and so may call for the other one.
void ListModel::layOut() {
  verticalBar_ = horizontalBar_ = false;
  for (int pass = 0; pass < 3; ++pass) {
    view_ = {std::max(0, whole_.width - (verticalBar_ ? barBreadth_ : 0)),
             std::max(0, whole_.height - (horizontalBar_ ? barBreadth_ : 0))};
    verticalBar_ = verticalBar_ || rows_ > rowsInView();
    horizontalBar_ = horizontalBar_ || columnsWidth() > view_.width;
  }
  setFirstRow(first_);
  setOffset(offset_);
}

int ListModel::rowsInView() const { return std::max(1, (view_.height - headHeight_) / rowHeight_); }

bool ListModel::shown(int column) const {
  return column >= 0 && column < static_cast<int>(columns_.size()) &&
         columns_[static_cast<std::size_t>(column)].width > 0;
}

int ListModel::columnsWidth() const {
  int width = 0;
  for (const ListColumn& column : columns_) width += column.width;
  return width;
}

int ListModel::columnLeft(int column) const {
  int left = -offset_;
  for (int i = 0; i < column && i < static_cast<int>(columns_.size()); ++i)
    left += columns_[static_cast<std::size_t>(i)].width;
  return left;
}

std::int32_t ListModel::rowAt(std::int32_t position) const {
  const auto at = static_cast<std::size_t>(position);
  return at < rowOrder_.size() ? rowOrder_[at] : position;
}

std::int32_t ListModel::positionOf(std::int32_t row) const {
  if (row < 0 || row >= rows_) return -1;
  const auto found = std::find(rowOrder_.begin(), rowOrder_.end(), row);
  return found == rowOrder_.end() ? row : static_cast<std::int32_t>(found - rowOrder_.begin());
}

// The source may have lost rows that nobody has told of yet.
std::int32_t ListModel::getContentNo(std::int32_t position) const {
  if (position < 0 || position >= rows_) return 0;
  const std::int32_t row = rowAt(position);
  return row < source_->rows() ? source_->rowId(row) : 0;
}

std::string ListModel::getItem(std::int32_t position, int column) const {
  if (position < 0 || position >= rows_ || column < 0 || column > kListColumns) return {};
  const std::int32_t row = rowAt(position);
  if (row >= source_->rows()) return {};
  return column == 0 ? std::to_string(source_->rowId(row)) : source_->cell(row, column);
}

std::string ListModel::getText(std::int32_t position) const {
  std::string text;
  bool first = true;
  for (int column = 0; column < static_cast<int>(columns_.size()); ++column) {
    if (!shown(column)) continue;
    if (!first) text += '\t';
    first = false;
    text += getItem(position, column);
  }
  return text;
}

ListKey ListModel::keyOf(int column) const {
  if (column >= static_cast<int>(columns_.size())) return ListKey::text;
  const ListColumn& told = columns_[static_cast<std::size_t>(column)];
  return told.dates ? ListKey::date : told.alignRight ? ListKey::number : ListKey::text;
}

void ListModel::applyOrder(const ListSorting& sorting) {
  if (source_) rowOrder_ = sortedRows(*source_, rows_, sorting, locale_, today_, random_);
  sorting_ = sorting;
}

void ListModel::sortBy(int column, bool descending) {
  if (column < 0 || column > kListColumns) return;
  const std::int32_t caretRow = caret_ < 0 ? -1 : rowAt(caret_);
  applyOrder({column, keyOf(column), descending});
  placeCaret(caretRow);
  first_ = 0;
  reveal(caret_);
}

void ListModel::placeCaret(std::int32_t row) {
  const std::int32_t position = caretSet_ ? positionOf(row) : 0;
  caret_ = std::min(position >= 0 ? position : caret_, rows_ - 1);
  if (rows_ > 0) caret_ = std::max(0, caret_);
  anchor_ = caret_;
}

void ListModel::setCaret(std::int32_t position) { moveCaret(position, Moving::select); }

bool ListModel::isMarked(std::int32_t row) const {
  const auto at = static_cast<std::size_t>(row);
  return at < rowMark_.size() && rowMark_[at];
}

bool ListModel::isSelected(std::int32_t position) const {
  if (position < 0 || position >= rows_) return false;
  return mSelect_ ? isMarked(rowAt(position)) : position == caret_;
}

std::vector<std::int32_t> ListModel::selectedRows() const {
  std::vector<std::int32_t> rows;
  rows.reserve(static_cast<std::size_t>(markedCount_ > 0 ? markedCount_ : rows_));
  for (std::int32_t position = 0; position < rows_; ++position) {
    const std::int32_t row = rowAt(position);
    if (markedCount_ == 0 || isMarked(row)) rows.push_back(row);
  }
  return rows;
}

void ListModel::setMark(std::int32_t row, bool marked) {
  if (isMarked(row) == marked) return;
  if (rowMark_.empty()) rowMark_.resize(static_cast<std::size_t>(rows_));
  rowMark_[static_cast<std::size_t>(row)] = marked;
  markedCount_ += marked ? 1 : -1;
}

void ListModel::clearMarks() {
  rowMark_.clear();
  markedCount_ = 0;
}

void ListModel::markRange(std::int32_t from, std::int32_t to) {
  for (std::int32_t position = std::max(0, std::min(from, to)); position <= std::max(from, to); ++position)
    setMark(rowAt(position), true);
}

std::int32_t ListModel::lastFirstRow() const { return std::max(0, rows_ - rowsInView()); }

void ListModel::setFirstRow(std::int32_t position) { first_ = std::clamp(position, 0, lastFirstRow()); }

void ListModel::setOffset(int pixels) {
  offset_ = std::clamp(pixels, 0, std::max(0, columnsWidth() - view_.width));
}

void ListModel::reveal(std::int32_t position) {
  if (position < first_)
    setFirstRow(position);
  else if (position >= first_ + rowsInView())
    setFirstRow(position - rowsInView() + 1);
}

}  // namespace plinth
