// The three sort routines of lists: by text, by number, by date.
#pragma once

#include <random>
#include <vector>

#include "basic/Locale.h"
#include "widgets/ListSource.h"

namespace plinth {

enum class ListKey { text, number, date };

struct ListSorting {
  int column = 0;  // 0 the record number, 1 to 11
  ListKey key = ListKey::text;
  bool descending = false;
};

// The rows 0 to rows - 1 of a source in the order of a column: texts without regard to case, numbers and
// dates by the value that the locale reads in them, cells without one first. Equal rows stay in their order,
// descending too. today: serial that dates without a year lean on. Each cell is read once; the keys live as
// long as the call.
std::vector<std::int32_t> sortedRows(const ListSource& source, std::int32_t rows, const ListSorting& sorting,
                                     const Locale& locale, double today, std::minstd_rand& random);

}  // namespace plinth
