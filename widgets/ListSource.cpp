// Lines are split when a cell is asked for, which is when it is drawn.
#include "widgets/ListSource.h"

#include <algorithm>
#include <limits>

#include "basic/NumberReader.h"

namespace plinth {

namespace {

// Item n of a line, from 0; empty when there are fewer.
std::string_view itemOf(std::string_view line, char separator, int n) {
  for (; n > 0; --n) {
    const std::size_t end = line.find(separator);
    if (end == std::string_view::npos) return {};
    line.remove_prefix(end + 1);
  }
  return line.substr(0, line.find(separator));
}

std::int32_t numberOf(std::string_view item) {
  constexpr double kLeast = std::numeric_limits<std::int32_t>::min();
  constexpr double kMost = std::numeric_limits<std::int32_t>::max();
  return static_cast<std::int32_t>(std::clamp(val(item), kLeast, kMost));
}

}  // namespace

void ListArray::addArray(const std::vector<std::string>& lines, char separator) {
  rows_.clear();
  append(lines, separator);
}

void ListArray::append(const std::vector<std::string>& lines, char separator) {
  rows_.reserve(rows_.size() + lines.size());
  for (const std::string& line : lines)
    rows_.push_back({numberOf(itemOf(line, separator, 0)), separator, line});
}

const ListArray::Row* ListArray::at(std::int32_t row) const {
  return row >= 0 && row < rows() ? &rows_[static_cast<std::size_t>(row)] : nullptr;
}

std::string ListArray::getArrayItem(std::int32_t row) const {
  const Row* found = at(row);
  return found ? found->line : std::string();
}

bool ListArray::removeText(std::int32_t row) {
  if (!at(row)) return false;
  rows_.erase(rows_.begin() + row);
  return true;
}

std::int32_t ListArray::rowId(std::int32_t row) const {
  const Row* found = at(row);
  return found ? found->id : 0;
}

std::string ListArray::cell(std::int32_t row, int column) const {
  const Row* found = at(row);
  if (!found || column < 1 || column > kListColumns) return {};
  return std::string(itemOf(found->line, found->separator, column));
}

}  // namespace plinth
