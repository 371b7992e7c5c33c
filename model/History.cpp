// A step holds only the rows that differ, of the state that is not on view; taking it exchanges them.
#include "model/History.h"

#include <algorithm>
#include <type_traits>
#include <utility>

namespace plinth {

namespace {

// The ten tables of a document as a tuple in the order of a step's.
template <class Tables>
auto tablesOf(Tables& d) {
  return std::tie(d.fields, d.memos, d.combos, d.pictures, d.checks, d.titles, d.lines, d.squares, d.scripts,
                  d.buttons);
}

// Calls visit with the elements of equal place of all tuples, one place after the other.
template <class F, class First, class... Others>
void zip(F visit, First&& first, Others&&... others) {
  [&]<std::size_t... I>(std::index_sequence<I...>) {
    const auto at = [&]<std::size_t N>(std::integral_constant<std::size_t, N>) {
      visit(std::get<N>(first), std::get<N>(others)...);
    };
    (at(std::integral_constant<std::size_t, I>{}), ...);
  }
  (std::make_index_sequence<std::tuple_size_v<std::remove_cvref_t<First>>>{});
}

}  // namespace

void History::start(const ProjectDocument& document) {
  known_ = document;
  undo_.clear();
  redo_.clear();
  seal();
}

// What known_ has and the document has not; known_ follows the document.
std::optional<History::Step> History::difference(const ProjectDocument& document) {
  Step step;
  bool differs = false;
  const auto compare = [&differs](auto& table, auto& before, const auto& after) {
    if (before.size() != after.size()) {
      differs = true;
      table.size = before.size();
    }
    for (std::size_t i = 0; i < before.size(); ++i) {
      if (i < after.size() && before[i] == after[i]) continue;
      differs = true;
      table.rows.emplace_hint(table.rows.end(), i, std::move(before[i]));
      if (i < after.size()) before[i] = after[i];
    }
    const std::size_t kept = std::min(before.size(), after.size());
    before.resize(kept);
    before.insert(before.end(), after.begin() + static_cast<std::ptrdiff_t>(kept), after.end());
  };
  zip(compare, step.tables, tablesOf(known_), tablesOf(document));
  ProjectValues& before = known_;
  const ProjectValues& after = document;
  if (before != after) {
    differs = true;
    step.values = std::exchange(before, after);
  }
  if (!differs) return std::nullopt;
  return step;
}

// The older step's state counts; it lacks what only the newer one touched.
void History::merge(Step& older, Step newer) {
  const auto join = [](auto& mine, auto& theirs) {
    if (!mine.size) mine.size = theirs.size;
    for (auto& [index, row] : theirs.rows)
      if (!mine.size || index < *mine.size) mine.rows.try_emplace(index, std::move(row));
  };
  zip(join, older.tables, newer.tables);
  if (!older.values) older.values = std::move(newer.values);
}

// Takes out of a step what is no other in the document. False when nothing is left.
bool History::dropEqual(Step& step, const ProjectDocument& document) {
  bool left = false;
  const auto drop = [&left](auto& table, const auto& rows) {
    if (table.size == rows.size()) table.size.reset();
    std::erase_if(table.rows, [&rows](const auto& row) {
      return row.first < rows.size() && row.second == rows[row.first];
    });
    left = left || table.size || !table.rows.empty();
  };
  zip(drop, step.tables, tablesOf(document));
  const ProjectValues& values = document;
  if (step.values == values) step.values.reset();
  return left || step.values;
}

bool History::commit(const ProjectDocument& document, const std::string& words, const std::string& mergeKey) {
  std::optional<Step> made = difference(document);
  if (!made) return false;
  redo_.clear();
  if (!mergeKey.empty() && mergeKey == mergeKey_ && !undo_.empty()) {
    merge(undo_.back(), std::move(*made));
    if (!dropEqual(undo_.back(), document)) {
      undo_.pop_back();
      seal();
      return true;
    }
  } else {
    made->words = words;
    undo_.push_back(std::move(*made));
    if (undo_.size() > kSteps) undo_.pop_front();
  }
  mergeKey_ = mergeKey;
  return true;
}

bool History::step(ProjectDocument& document, Steps& from, Steps& to) {
  if (from.empty()) return false;
  difference(document);  // so that known_ is the document
  Step step = std::move(from.back());
  from.pop_back();
  Step other;
  other.words = step.words;
  const auto exchangeRows = [](auto& table, auto& rows, auto& kept, auto& otherTable) {
    const std::size_t before = rows.size();
    if (table.size && *table.size != before) {
      otherTable.size = before;
      for (std::size_t i = *table.size; i < before; ++i) otherTable.rows.emplace(i, std::move(rows[i]));
      rows.resize(*table.size);
      kept.resize(*table.size);
    }
    for (auto& [index, row] : table.rows) {
      if (index >= rows.size()) break;  // a change that was not committed took the row away
      if (index < before) otherTable.rows.insert_or_assign(index, std::move(rows[index]));
      kept[index] = row;
      rows[index] = std::move(row);
    }
  };
  zip(exchangeRows, step.tables, tablesOf(document), tablesOf(known_), other.tables);
  if (step.values) {
    ProjectValues& values = document;
    static_cast<ProjectValues&>(known_) = *step.values;
    other.values = std::exchange(values, std::move(*step.values));
  }
  to.push_back(std::move(other));
  document.dirty = true;
  seal();
  return true;
}

}  // namespace plinth
