// What the rows of a result list show of a record: texts as the boxes would show them.
#pragma once

#include <string>
#include <vector>

#include "basic/Locale.h"
#include "engine/search/QueryLine.h"
#include "engine/search/RecordKey.h"
#include "engine/RecordStore.h"

namespace plinth {

struct ResultColumn {
  std::string header;      // the object's label; of a joined key its label
  int widthChars = 10;     // from MaxLength
  bool alignRight = false;  // numeric
};

// Reads single records into cells.
class ResultRows {
 public:
  // keys: the searched objects, whose joined texts are the first column; empty for a select, which has none.
  // columns: codes; 0 stands for no column. All arguments must outlive this.
  ResultRows(RecordStore& store, const Application& application, const Locale& locale,
             std::vector<RecordKey> keys, const ShowColumns& columns);

  const std::vector<ResultColumn>& columns() const { return columns_; }
  // One text for each column; empty texts when the record cannot be read.
  std::vector<std::string> cells(std::int32_t record);

 private:
  std::string keyCell(const RecordForm& form) const;
  std::string codeCell(const RecordForm& form, int code) const;
  RecordStore& store_;
  const Application& application_;
  const Locale& locale_;
  std::vector<RecordKey> keys_;
  std::vector<int> codes_;
  std::vector<ResultColumn> columns_;
  RecordForm form_;
};

// Longest text of a memo in the first column; its line ends show as blanks.
inline constexpr std::size_t kMemoCellChars = 200;

}  // namespace plinth
