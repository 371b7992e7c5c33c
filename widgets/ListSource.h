// Rows of a list as the list asks for them: it never copies them, so that a million cost nothing until they
// are seen.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace plinth {

inline constexpr int kListColumns = 11;  // of texts, beside the record number

class ListSource {
 public:
  virtual ~ListSource() = default;
  virtual std::int32_t rows() const = 0;
  // RowId: the record number of a row. row: 0 to rows() - 1.
  virtual std::int32_t rowId(std::int32_t row) const = 0;
  // The text of a cell in the application's code page. row: 0 to rows() - 1; column: 1 to 11.
  virtual std::string cell(std::int32_t row, int column) const = 0;
};

// A source that owns its rows: lines of a record number and up to eleven texts.
class ListArray : public ListSource {
 public:
  // The rows of all lines in place of those before. Item 0 of a line as a number is its RowId, items 1 to 11
  // its texts; items that a line lacks are empty, further ones are left out.
  void addArray(const std::vector<std::string>& lines, char separator = ',');
  // The same behind the rows that there are.
  void append(const std::vector<std::string>& lines, char separator = ',');
  // The line of a row as it was added; empty outside the rows.
  std::string getArrayItem(std::int32_t row) const;
  // Takes a row away. False outside the rows. A list on this source must be told by rowRemoved().
  bool removeText(std::int32_t row);

  std::int32_t rows() const override { return static_cast<std::int32_t>(rows_.size()); }
  std::int32_t rowId(std::int32_t row) const override;
  std::string cell(std::int32_t row, int column) const override;

 private:
  // One text a row: eleven of their own would cost ten times the memory of a usual line.
  struct Row {
    std::int32_t id;
    char separator;
    std::string line;
  };
  const Row* at(std::int32_t row) const;
  std::vector<Row> rows_;
};

}  // namespace plinth
