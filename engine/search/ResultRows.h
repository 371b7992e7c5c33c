// What the rows of a result list show of a record: texts as the boxes would show them.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "basic/Locale.h"
#include "engine/search/QueryLine.h"
#include "engine/search/RecordKey.h"
#include "engine/search/TextMatch.h"
#include "engine/RecordStore.h"

namespace plinth {

struct ResultColumn {
  std::string header;       // the object's label; of a joined key its label
  int widthChars = 10;      // from MaxLength, at most kWidestColumn
  bool alignRight = false;  // numeric
  bool date = false;        // sorted by the day that its texts say
};

// Reads single records into cells.
class ResultRows {
 public:
  // keys: the searched objects, whose joined texts are the first column; empty for a select, which has none.
  // columns: codes; 0 stands for no column, and so do codes of objects that are not there. A global field has
  // a column but no texts, since records do not hold it. store, application and locale must outlive this.
  ResultRows(RecordStore& store, const Application& application, const Locale& locale,
             std::vector<RecordKey> keys, const ShowColumns& columns);

  // Of free labels the first column has those that hold a term of this search line; without one, all.
  void showLabelsHolding(std::string_view line, bool matchCase);

  const std::vector<ResultColumn>& columns() const { return columns_; }
  // One text for each column; empty texts when the record cannot be read.
  std::vector<std::string> cells(std::int32_t record);

 private:
  void addColumn(int code);
  ResultColumn keyColumn() const;
  ResultColumn fieldColumn(int n) const;
  std::string keyCell() const;
  std::string keyPart(const RecordKey& key) const;
  std::string labelsCell() const;
  std::string objectCell(FocusObject object) const;
  RecordStore& store_;
  const Application& application_;
  const Locale& locale_;
  std::vector<RecordKey> keys_;
  std::vector<FocusObject> objects_;  // behind the key's column
  std::vector<ResultColumn> columns_;
  std::vector<TextMatch> labelTerms_;
  RecordForm form_;  // working space
};

// Longest text of a memo in the first column; its line ends show as blanks.
inline constexpr std::size_t kMemoCellChars = 200;
inline constexpr int kWidestColumn = 60;

}  // namespace plinth
