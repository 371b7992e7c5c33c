// Keys are made once, in one block of memory; texts carry their first letters beside them, which settles
// most comparisons without a look at the rest.
#include "widgets/ListSort.h"

#include <algorithm>
#include <limits>
#include <tuple>
#include <unordered_map>
#include <utility>

#include "basic/CodePage.h"
#include "basic/DateSerial.h"
#include "basic/NumberReader.h"

namespace plinth {

namespace {

constexpr std::ptrdiff_t kShortRange = 16;
constexpr double kNoValue = -std::numeric_limits<double>::infinity();

// Sorts what lies between two bounds, in memory for the bounds alone. The larger half waits on the stack, so
// that it never holds more than 64 ranges; random pivots keep ordered lists from being the slowest.
template <class T, class Less>
void veryQuickSort(std::vector<T>& items, Less less, std::minstd_rand& random) {
  using Bounds = std::pair<std::ptrdiff_t, std::ptrdiff_t>;
  std::vector<Bounds> stack{{0, static_cast<std::ptrdiff_t>(items.size()) - 1}};
  while (!stack.empty()) {
    auto [first, last] = stack.back();
    stack.pop_back();
    while (last - first >= kShortRange) {
      const T pivot =
          items[static_cast<std::size_t>(std::uniform_int_distribution<std::ptrdiff_t>(first, last)(random))];
      std::ptrdiff_t low = first, high = last;
      while (low <= high) {
        while (less(items[static_cast<std::size_t>(low)], pivot)) ++low;
        while (less(pivot, items[static_cast<std::size_t>(high)])) --high;
        if (low > high) break;
        std::swap(items[static_cast<std::size_t>(low++)], items[static_cast<std::size_t>(high--)]);
      }
      const Bounds before{first, high}, after{low, last};
      const bool beforeIsLarger = high - first > last - low;
      stack.push_back(beforeIsLarger ? before : after);
      std::tie(first, last) = beforeIsLarger ? after : before;
    }
    for (std::ptrdiff_t i = first + 1; i <= last; ++i) {
      const T moved = items[static_cast<std::size_t>(i)];
      std::ptrdiff_t to = i;
      for (; to > first && less(moved, items[static_cast<std::size_t>(to - 1)]); --to)
        items[static_cast<std::size_t>(to)] = items[static_cast<std::size_t>(to - 1)];
      items[static_cast<std::size_t>(to)] = moved;
    }
  }
}

struct NumberItem {
  double value;
  std::int32_t row;
};

struct TextItem {
  std::uint64_t letters;  // the first eight, the first one highest
  std::size_t offset;
  std::uint32_t length;
  std::int32_t row;
};

std::uint64_t firstLetters(std::string_view text) {
  std::uint64_t letters = 0;
  for (std::size_t i = 0; i < sizeof letters; ++i)
    letters = letters << 8 | (i < text.size() ? static_cast<unsigned char>(text[i]) : 0u);
  return letters;
}

template <class T>
std::vector<std::int32_t> rowsOf(const std::vector<T>& items) {
  std::vector<std::int32_t> rows;
  rows.reserve(items.size());
  for (const T& item : items) rows.push_back(item.row);
  return rows;
}

std::vector<std::int32_t> rowsByText(const ListSource& source, std::int32_t rows, const ListSorting& sorting,
                                     int codePage, std::minstd_rand& random) {
  std::string keys;
  std::vector<TextItem> items;
  items.reserve(static_cast<std::size_t>(rows));
  for (std::int32_t row = 0; row < rows; ++row) {
    const std::string key = lowerCase(source.cell(row, sorting.column), codePage);
    items.push_back({firstLetters(key), keys.size(), static_cast<std::uint32_t>(key.size()), row});
    keys += key;
  }
  const std::string_view all = keys;
  veryQuickSort(
      items,
      [all, descending = sorting.descending](const TextItem& a, const TextItem& b) {
        if (a.letters != b.letters) return (a.letters < b.letters) != descending;
        const int order = all.substr(a.offset, a.length).compare(all.substr(b.offset, b.length));
        if (order != 0) return (order < 0) != descending;
        return a.row < b.row;
      },
      random);
  return rowsOf(items);
}

double numberIn(std::string_view text, const Locale& locale) {
  if (const auto number = readNumber(text, locale)) return *number;
  if (text.find_first_of("0123456789") == std::string_view::npos) return kNoValue;
  return val(normalizeNumber(text, locale));
}

// Reading a date is slow, and long columns repeat the same few thousand days.
class KnownDates {
 public:
  KnownDates(const Locale& locale, double today) : locale_(locale), today_(today) {}
  double value(const std::string& text) {
    const auto found = known_.find(text);
    if (found != known_.end()) return found->second;
    const double value = readDate(text, locale_, today_).value_or(kNoValue);
    if (known_.size() < kMostKnown) known_.emplace(text, value);
    return value;
  }

 private:
  static constexpr std::size_t kMostKnown = 20000;
  const Locale& locale_;
  double today_;
  std::unordered_map<std::string, double> known_;
};

std::vector<NumberItem> numberItems(const ListSource& source, std::int32_t rows, const ListSorting& sorting,
                                    const Locale& locale, double today) {
  std::vector<NumberItem> items;
  items.reserve(static_cast<std::size_t>(rows));
  KnownDates dates(locale, today);
  for (std::int32_t row = 0; row < rows; ++row)
    items.push_back({sorting.column == 0              ? source.rowId(row)
                     : sorting.key == ListKey::number ? numberIn(source.cell(row, sorting.column), locale)
                                                      : dates.value(source.cell(row, sorting.column)),
                     row});
  return items;
}

}  // namespace

std::vector<std::int32_t> sortedRows(const ListSource& source, std::int32_t rows, const ListSorting& sorting,
                                     const Locale& locale, double today, std::minstd_rand& random) {
  if (sorting.column != 0 && sorting.key == ListKey::text)
    return rowsByText(source, rows, sorting, locale.codePage, random);
  std::vector<NumberItem> items = numberItems(source, rows, sorting, locale, today);
  veryQuickSort(
      items,
      [descending = sorting.descending](const NumberItem& a, const NumberItem& b) {
        if (a.value < b.value) return !descending;
        if (b.value < a.value) return descending;
        return a.row < b.row;
      },
      random);
  return rowsOf(items);
}

}  // namespace plinth
