// A list of many rows without its window: columns, order, marks and caret, and what keys and mouse make of
// them. Rows are numbered as their source does; positions are places in the order that is shown.
#pragma once

#include <optional>

#include "basic/Geometry.h"
#include "platform/Events.h"
#include "widgets/ListSort.h"

namespace plinth {

struct ListColumn {
  std::string header;
  int width = 0;            // pixels; 0: not shown
  bool alignRight = false;  // numbers: at the right, and sorted by value
  bool dates = false;       // sorted by the dates that the texts say
};

enum class ListZone { nothing, head, headEdge, row };
struct ListHit {
  ListZone zone = ListZone::nothing;
  int column = -1;             // of a head, of an edge at its right
  std::int32_t position = -1;  // of a row
};

// What an operation brought about.
struct ListOutcome {
  bool handled = false;           // the key or press is one of lists
  bool selectionChanged = false;  // caret or marks
  bool chosen = false;            // a row was clicked, or Enter pressed on it
  bool activated = false;         // a row was clicked twice
  bool sorted = false;
  bool columnSized = false;
  int fitColumn = -1;  // a column that wants the width of what is seen of it
};

class ListModel {
 public:
  // The source, which must outlive its use here; nullptr for none. As for a new list: not sorted, no marks,
  // at the beginning.
  void setSource(const ListSource* source);
  // The source has more, fewer or other rows. Position, marks and caret stay where their rows still are; a
  // sorted list sorts again when rows came in, so add them in few large blocks.
  void rowsChanged();
  // One row went out of the source: those behind it have moved up by one, with marks and order.
  void rowRemoved(std::int32_t row);
  // Column 0 is the record number, 1 to 11 the texts, as far as there are entries.
  void setColumns(std::vector<ListColumn> columns);
  const std::vector<ListColumn>& columns() const { return columns_; }
  // Pixels; at least kLeastColumn. Nothing for columns that are not shown.
  void setColumnWidth(int column, int width);
  // How numbers and dates are read for sorting, and case is folded. today: as in readDate().
  void setLocale(const Locale& locale, double today);
  // mSelect. Marks are lost when it is switched off.
  void setMultiSelect(bool mSelect);
  bool multiSelect() const { return mSelect_; }
  void setRandomSeed(unsigned seed) { random_.seed(seed); }

  // All of the list in pixels, with the room that a bar takes when it is needed; row and head at least 1.
  void setSize(SizePx whole, int barBreadth);
  void setRowHeights(int row, int head);
  // What is left of the list beside its bars: head and rows.
  SizePx view() const { return view_; }
  bool verticalBar() const { return verticalBar_; }
  bool horizontalBar() const { return horizontalBar_; }
  int rowHeight() const { return rowHeight_; }
  int headHeight() const { return headHeight_; }
  int rowsInView() const;    // whole ones, at least 1
  int columnsWidth() const;  // of all shown together
  // Where a column begins, in pixels from the left of the view; scrolled ones below 0.
  int columnLeft(int column) const;
  ListHit hitTest(PointPx point) const;

  std::int32_t listCount() const { return rows_; }
  // RowOrder: the row at a position, 0 to listCount() - 1.
  std::int32_t rowAt(std::int32_t position) const;
  // Position of a row; -1 when there is no such row. Looks through all of a sorted list.
  std::int32_t positionOf(std::int32_t row) const;
  // The record number at a position; 0 outside the rows.
  std::int32_t getContentNo(std::int32_t position) const;
  // The text of a cell as it is shown; empty outside rows and columns.
  std::string getItem(std::int32_t position, int column) const;
  // All shown cells of a position, with tabs between them.
  std::string getText(std::int32_t position) const;

  std::optional<ListSorting> sorting() const { return sorting_; }
  // Sorts by a column, 0 to 11, be it shown or not; nothing for others. Caret and marks stay with their rows;
  // the view goes to the caret, or to the beginning while nobody has set it.
  void sortBy(int column, bool descending);

  // The row that keys start from, -1 only in a list without rows.
  std::int32_t caret() const { return caret_; }
  void setCaret(std::int32_t position);  // clamped; shows it, and marks it alone
  bool isSelected(std::int32_t position) const;
  std::int32_t markedCount() const { return markedCount_; }
  // The rows that printing and export take, in the order shown: the marked ones, or all when none is.
  std::vector<std::int32_t> selectedRows() const;

  std::int32_t firstRow() const { return first_; }
  void setFirstRow(std::int32_t position);  // clamped so that the last page stays full
  int offset() const { return offset_; }
  void setOffset(int pixels);  // clamped

  ListOutcome key(const KeyEvent& event);
  // A typed character: the caret goes to the next row whose cell begins with all that was typed without a
  // pause of a second, in the sorted column or else the first of texts that is shown. Looks at no more than
  // 100,000 rows. milliseconds: of any clock that goes on from call to call.
  ListOutcome type(std::string_view character, std::uint32_t milliseconds);
  // Rows, negative towards the beginning.
  void wheel(int rows);
  ListOutcome press(const MouseEvent& event, bool twice = false);
  // The pointer moved while the button is held; above or below the rows each call goes on by one row.
  ListOutcome drag(PointPx point);
  ListOutcome release(PointPx point);
  // The mouse was taken away: nothing is chosen, a width that was dragged stays.
  void cancel() { held_ = {}; }
  // The head that is held down, -1 for none.
  int pressedHead() const { return held_.zone == ListZone::head ? held_.column : -1; }

 private:
  enum class Moving { select, extend, caretOnly };
  struct Held {
    ListZone zone = ListZone::nothing;
    int column = -1;
    int grip = 0;  // from the pointer to the column's edge
    int line = 0;  // of the rows in view, where a row was pressed
    bool twice = false, dragged = false;
    unsigned shift = 0;
  };
  bool shown(int column) const;
  ListKey keyOf(int column) const;
  int typingColumn() const;
  std::int32_t lastFirstRow() const;
  void layOut();
  void reveal(std::int32_t position);
  // Sorts as a sorting says and takes it over; without memory everything stays as it was.
  void applyOrder(const ListSorting& sorting);
  void placeCaret(std::int32_t row);
  bool isMarked(std::int32_t row) const;
  void setMark(std::int32_t row, bool marked);
  void clearMarks();
  void markRange(std::int32_t from, std::int32_t to);
  bool moveCaret(std::int64_t position, Moving moving);
  bool toggleCaret();
  std::optional<std::int64_t> keyTarget(int key) const;
  std::optional<ListOutcome> markingKey(const KeyEvent& event);
  ListOutcome pressRow(std::int32_t position, const MouseEvent& event, bool twice);
  int lineAt(int y) const;
  ListOutcome dragRow(int y);

  const ListSource* source_ = nullptr;
  std::int32_t rows_ = 0;
  std::vector<ListColumn> columns_;
  Locale locale_;
  double today_ = 0;
  std::minstd_rand random_;
  std::vector<std::int32_t> rowOrder_;  // empty: rows stand as in their source
  std::optional<ListSorting> sorting_;
  std::vector<bool> rowMark_;  // empty: none
  std::int32_t markedCount_ = 0;
  bool mSelect_ = false, caretSet_ = false;
  std::int32_t caret_ = -1, anchor_ = -1, first_ = 0;
  int offset_ = 0, rowHeight_ = 16, headHeight_ = 20, barBreadth_ = 0;
  SizePx whole_, view_;
  bool verticalBar_ = false, horizontalBar_ = false;
  Held held_;
  std::string typed_;
  std::uint32_t typedAt_ = 0;  // milliseconds
};

inline constexpr int kLeastColumn = 12;  // pixels that a shown column keeps

}  // namespace plinth
