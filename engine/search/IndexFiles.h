// The snapshots of one field's values beside the data file: plain text, one value a line, in record order up
// ("-1.inx") and down ("-0.inx"). Nothing ties them to the data: what changed since the build is not in them.
// docs/formats/index.md has the picture.
#pragma once

#include <functional>
#include <optional>
#include <string>

#include "basic/Locale.h"
#include "engine/RecordStore.h"
#include "engine/StartUp.h"
#include "engine/search/RecordKey.h"
#include "platform/Progress.h"
#include "platform/SharedFile.h"

namespace plinth {

enum class IndexDirection { down = 0, up = 1 };  // the number in the file's name

// Path of an index file: base name of the data, label, "-0.inx" or "-1.inx", in the data file's folder. A
// label that holds separators or other characters that no file name takes has them replaced, so that the file
// stays in that folder.
std::string indexFilePath(const DataFile& data, const std::string& label, IndexDirection direction,
                          int codePage);

// Whether an object can have an index: fields, combos and check boxes with a label.
bool canIndex(const RecordKey& key);

// A stored value as an index line has it: text as it stands without padding, numbers with "." as the point,
// dates and times as their serial, a check box as the number of its byte. bytes: no longer substituted.
// locale: of the times that records hold as text.
std::string indexValue(const RecordKey& key, std::span<const std::uint8_t> bytes, const Locale& locale);

// A line of a currency or date key as value x 10,000, exact up to four decimals; 0 where there is no number.
std::int64_t indexScaled(std::string_view line);

inline constexpr std::size_t kIndexKeptBytes = 128 * 1024 * 1024;

enum class IndexEnd { done, cancelled };
// Builds both files. A cancelled build leaves what was written so far, as readers expect. Errors: denied,
// full, failed with the file's name. unreadable: called with a record that could not be read; its line is
// empty. keptBytes: up to so many bytes the lines of the first file are kept for the second, which otherwise
// reads the data again; a parameter so that tests reach both ways.
Result<IndexEnd> buildIndex(RecordStore& store, const RecordKey& key, const DataFile& data,
                            const Application& application, const Locale& locale, SharedFiles& files,
                            Progress& progress, const std::function<void(std::int32_t)>& unreadable,
                            std::size_t keptBytes = kIndexKeptBytes);

// Reads an index file forward in large blocks.
class IndexReader {
 public:
  // nullopt when there is no such file or it cannot be read. `down`: the count line is read here.
  static std::optional<IndexReader> open(SharedFiles& files, const std::string& path,
                                         IndexDirection direction);
  // Count line of a "-0.inx" (0 when damaged or negative); of a "-1.inx" 0.
  std::int32_t count() const { return count_; }
  // The next whole line without its end; nullopt at the end of the file. Valid until the next call.
  std::optional<std::string_view> line();
  // The next value as a sequential reader takes it: also a comma ends one. Sorting reads this way.
  std::optional<std::string_view> value();

 private:
  explicit IndexReader(std::unique_ptr<SharedFile> file) : file_(std::move(file)) {}
  std::optional<std::string_view> upTo(bool commaEnds);
  bool refill();
  std::unique_ptr<SharedFile> file_;
  std::int64_t offset_ = 0;
  std::string buffer_, carried_;
  std::size_t at_ = 0;
  std::int32_t count_ = 0;
  bool ended_ = false;
};

}  // namespace plinth
