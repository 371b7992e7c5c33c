// A value is written as it stands in one line. Line ends inside a text become blanks, since a line more would
// shift all that follow.
#include "engine/search/IndexFiles.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstring>

#include "basic/DisplayFormat.h"
#include "basic/NumberReader.h"
#include "basic/Substitution.h"
#include "engine/RecordCodec.h"
#include "engine/FieldEntry.h"
#include "engine/search/BlockReader.h"
#include "engine/search/RecordSteps.h"

namespace plinth {
namespace {

constexpr std::size_t kBufferBytes = 256 * 1024;
constexpr std::size_t kLongestLine = std::size_t{1} << 20;  // what is longer in a damaged file is cut
constexpr std::string_view kLineEnd = "\r\n";

void appendWhole(std::string& out, std::uint64_t value) {
  char digits[20];
  const auto end = std::to_chars(digits, digits + sizeof digits, value).ptr;
  out.append(digits, end);
}

// value x 10,000 as a decimal number without trailing zeros.
void appendScaled(std::string& out, std::int64_t scaled) {
  const auto bits = static_cast<std::uint64_t>(scaled);
  const std::uint64_t size = scaled < 0 ? 0 - bits : bits;
  if (scaled < 0) out += '-';
  appendWhole(out, size / 10000);
  std::uint64_t fraction = size % 10000;
  if (fraction == 0) return;
  out += '.';
  for (; fraction != 0; fraction = fraction % 1000 * 10) out += static_cast<char>('0' + fraction / 1000);
}

// Turns stored bytes into lines.
class LineMaker {
 public:
  LineMaker(const RecordKey& key, bool scrambled, const Locale& locale)
      : key_(key), scrambled_(scrambled), locale_(locale) {}

  // bytes: those of the key.
  void append(std::string& out, std::span<const std::uint8_t> bytes) const {
    switch (key_.type) {
      case KeyType::number:
        out += plainNumber(keyNumber(plain(bytes)));
        break;
      case KeyType::currency:
      case KeyType::date:
        appendScaled(out, keyScaled(plain(bytes)));
        break;
      case KeyType::whole: {
        const std::int64_t value = keyWhole(plain(bytes));
        appendScaled(out, value * 10000);
        break;
      }
      case KeyType::check:
        appendWhole(out, plain(bytes)[0]);
        break;
      case KeyType::time:
        appendTime(out, bytes);
        break;
      case KeyType::text:
      case KeyType::variableLabels:
        appendText(out, bytes);
        break;
    }
  }

 private:
  // The bytes of a number.
  std::array<std::uint8_t, 8> plain(std::span<const std::uint8_t> bytes) const {
    std::array<std::uint8_t, 8> number{};
    const std::size_t count = std::min(bytes.size(), number.size());
    std::copy_n(bytes.begin(), count, number.begin());
    if (scrambled_) unscrambleInPlace(std::span(number).first(count));
    return number;
  }
  void appendText(std::string& out, std::span<const std::uint8_t> bytes) const {
    const std::size_t start = out.size();
    if (scrambled_) {
      out.append(reinterpret_cast<const char*>(bytes.data()), bytes.size());
      const std::span text(reinterpret_cast<std::uint8_t*>(out.data()) + start, bytes.size());
      unscrambleInPlace(text);
      out.resize(start + keyText(text).size());
    } else {
      out += keyText(bytes);
    }
    for (const char lineEnd : {'\r', '\n'})
      for (auto at = out.find(lineEnd, start); at != std::string::npos; at = out.find(lineEnd, at))
        out[at] = ' ';
  }

  // Times are stored as characters; their lines are serials, as those of dates.
  void appendTime(std::string& out, std::span<const std::uint8_t> bytes) const {
    const std::size_t start = out.size();
    appendText(out, bytes);
    const double time = heldTime(key_.fieldKind, std::string_view(out).substr(start), locale_);
    out.resize(start);
    out += plainNumber(time);
  }

  const RecordKey& key_;
  bool scrambled_;
  const Locale& locale_;
};

// A new index file, written in large pieces.
class IndexWriter {
 public:
  static Result<IndexWriter> open(SharedFiles& files, const std::string& path) {
    auto file = files.open(path, OpenMode::emptied);
    if (!file) return file.error();
    return IndexWriter(files, path, std::move(*file));
  }
  // Lines are appended here.
  std::string& text() { return text_; }
  Result<void> writeWhenFull() { return text_.size() < kBufferBytes ? Result<void>() : write(); }
  // An index that could not be written whole is left empty: half a value would be taken for one.
  Result<void> write() {
    const std::span bytes(reinterpret_cast<const std::uint8_t*>(text_.data()), text_.size());
    auto written = file_->write(offset_, bytes);
    if (!written) {
      static_cast<void>(files_->open(path_, OpenMode::emptied));
      return Error{written.error().kind, path_ + ": " + written.error().text};
    }
    offset_ += static_cast<std::int64_t>(text_.size());
    text_.clear();
    return {};
  }

 private:
  IndexWriter(SharedFiles& files, std::string path, std::unique_ptr<SharedFile> file)
      : files_(&files), path_(std::move(path)), file_(std::move(file)) {}
  SharedFiles* files_;
  std::string path_;
  std::unique_ptr<SharedFile> file_;
  std::string text_;
  std::int64_t offset_ = 0;
};

// Writes both files from one walk over the data where the lines of all records fit in memory, else from two.
class IndexBuild {
 public:
  // unreadable, keptBytes: as in buildIndex(). All must outlive the build.
  IndexBuild(RecordStore& store, const RecordKey& key, const LineMaker& maker, RecordSteps& steps,
             const std::function<void(std::int32_t)>& unreadable, std::size_t keptBytes)
      : store_(store), key_(key), maker_(maker), steps_(steps), unreadable_(unreadable), room_(keptBytes) {}

  // Lines of all records; false when the person cancelled.
  Result<bool> writeDown(IndexWriter& writer) {
    BlockReader blocks(store_, {1, store_.count(), true}, {key_.position, key_.length});
    while (const auto block = blocks.next()) {
      const auto lost = blocks.unreadable();
      if (unreadable_) std::for_each(lost.begin(), lost.end(), unreadable_);
      makeLines(*block, lost);
      for (std::size_t i = ends_.size(); i-- > 0;) {
        const std::size_t start = i > 0 ? ends_[i - 1] : 0;
        writer.text().append(lines_, start, ends_[i] - start);
        if (!steps_.next()) return false;
      }
      keep();
      if (auto written = writer.writeWhenFull(); !written) return written.error();
    }
    return true;
  }

  // The same after writeDown().
  Result<bool> writeUp(IndexWriter& writer) {
    if (keeps_) {
      for (; !kept_.empty(); kept_.pop_back()) {
        const auto written = writeBlock(writer, kept_.back().lines, kept_.back().records);
        if (!written || !*written) return written;
      }
      return true;
    }
    BlockReader blocks(store_, {1, store_.count(), false}, {key_.position, key_.length});
    while (const auto block = blocks.next()) {
      makeLines(*block, blocks.unreadable());
      const auto written = writeBlock(writer, lines_, ends_.size());
      if (!written || !*written) return written;
    }
    return true;
  }

 private:
  struct KeptBlock {
    std::string lines;
    std::size_t records;
  };

  // The lines of a block, from its first record up, and where each ends.
  void makeLines(const SlotBlock& block, std::span<const std::int32_t> lost) {
    const auto wide = static_cast<std::size_t>(store_.layout().recLen);
    const auto slots = block.slots.subspan(static_cast<std::size_t>(key_.position));
    lines_.clear();
    ends_.clear();
    for (std::int32_t i = 0; i < block.count; ++i) {
      const auto at = static_cast<std::size_t>(i) * wide;
      if (lost.empty() || !std::binary_search(lost.begin(), lost.end(), block.first + i))
        maker_.append(lines_, slots.subspan(at, static_cast<std::size_t>(key_.length)));
      lines_ += kLineEnd;
      ends_.push_back(lines_.size());
    }
  }

  void keep() {
    if (!keeps_) return;
    const std::size_t size = lines_.size() + sizeof(KeptBlock);
    keeps_ = size <= room_;
    if (keeps_) {
      room_ -= size;
      kept_.push_back({lines_, ends_.size()});
    } else {
      std::vector<KeptBlock>().swap(kept_);
    }
  }

  Result<bool> writeBlock(IndexWriter& writer, std::string_view lines, std::size_t records) {
    writer.text() += lines;
    while (records-- > 0)
      if (!steps_.next()) return false;
    if (auto written = writer.writeWhenFull(); !written) return written.error();
    return true;
  }

  RecordStore& store_;
  const RecordKey& key_;
  const LineMaker& maker_;
  RecordSteps& steps_;
  const std::function<void(std::int32_t)>& unreadable_;
  std::string lines_;
  std::vector<std::size_t> ends_;
  std::vector<KeptBlock> kept_;  // the last records' lines first
  std::size_t room_;
  bool keeps_ = true;
};

}  // namespace

std::string indexFilePath(const DataFile& data, const std::string& label, IndexDirection direction,
                          int codePage) {
  std::string name = label;
  for (char& c : name)
    if (static_cast<unsigned char>(c) < ' ' || std::strchr("<>:\"/\\|?*", c)) c = '_';
  return data.folder + baseNameOf(data, codePage) + name + (direction == IndexDirection::up ? "-1" : "-0") +
         ".inx";
}

bool canIndex(const RecordKey& key) {
  const FocusKind kind = key.object.kind;
  return !key.label.empty() &&
         (kind == FocusKind::field || kind == FocusKind::combo || kind == FocusKind::check);
}

std::string indexValue(const RecordKey& key, std::span<const std::uint8_t> bytes, const Locale& locale) {
  std::string out;
  LineMaker(key, false, locale).append(out, bytes);
  return out;
}

std::int64_t indexScaled(std::string_view line) {
  const bool negative = line.starts_with('-');
  const std::string_view digits = line.substr(negative ? 1 : 0);
  const std::size_t point = std::min(digits.find('.'), digits.size());
  // Anything but plain digits goes the long way.
  constexpr std::size_t kWholeDigits = 14, kDecimals = 4;
  std::int64_t scaled = 0;
  for (std::size_t i = 0; i < digits.size(); ++i) {
    if (i == point) continue;
    const bool tooMany = i > point + kDecimals || i >= kWholeDigits;
    if (tooMany || digits[i] < '0' || digits[i] > '9') return scaledFromText(line, englishLocale());
    scaled = scaled * 10 + (digits[i] - '0');
  }
  const std::size_t decimals = point < digits.size() ? digits.size() - point - 1 : 0;
  for (std::size_t i = decimals; i < kDecimals; ++i) scaled *= 10;
  return negative ? -scaled : scaled;
}

Result<IndexEnd> buildIndex(RecordStore& store, const RecordKey& key, const DataFile& data,
                            const Application& application, const Locale& locale, SharedFiles& files,
                            Progress& progress, const std::function<void(std::int32_t)>& unreadable,
                            std::size_t keptBytes) {
  if (!canIndex(key)) return Error{ErrorKind::wrongUsage, "This object cannot be indexed."};
  RecordSteps steps(progress, "Indexing " + key.label, 2 * static_cast<std::int64_t>(store.count()));
  const LineMaker lines(key, application.scrambleData, locale);
  IndexBuild build(store, key, lines, steps, unreadable, keptBytes);
  for (const IndexDirection direction : {IndexDirection::down, IndexDirection::up}) {
    const bool down = direction == IndexDirection::down;
    auto writer = IndexWriter::open(files, indexFilePath(data, key.label, direction, application.codePage));
    if (!writer) return writer.error();
    if (down) writer->text() += std::to_string(store.count()).append(kLineEnd);
    const auto all = down ? build.writeDown(*writer) : build.writeUp(*writer);
    if (!all) return all.error();
    if (auto written = writer->write(); !written) return written.error();
    if (!*all) return IndexEnd::cancelled;
  }
  return IndexEnd::done;
}

std::optional<IndexReader> IndexReader::open(SharedFiles& files, const std::string& path,
                                             IndexDirection direction) {
  auto file = files.open(path, OpenMode::readOnly);
  if (!file) return std::nullopt;
  IndexReader reader(std::move(*file));
  if (direction == IndexDirection::down) {
    const double count = val(reader.line().value_or(""));
    if (count >= 1) reader.count_ = static_cast<std::int32_t>(std::min(count, 2147483647.0));
  }
  return reader;
}

std::optional<std::string_view> IndexReader::line() { return upTo(false); }
std::optional<std::string_view> IndexReader::value() { return upTo(true); }

namespace {

std::size_t valueEnd(std::string_view text) {
  std::size_t end = 0;
  while (end < text.size() && text[end] != '\n' && text[end] != ',') ++end;
  return end;
}

}  // namespace

std::optional<std::string_view> IndexReader::upTo(bool commaEnds) {
  carried_.clear();
  const auto withoutReturn = [](std::string_view text) {
    if (!text.empty() && text.back() == '\r') text.remove_suffix(1);
    return text;
  };
  do {
    const std::string_view rest = std::string_view(buffer_).substr(at_);
    const std::size_t end = commaEnds ? valueEnd(rest) : std::min(rest.find('\n'), rest.size());
    const std::string_view piece = rest.substr(0, end);
    const bool ended = end < rest.size();
    at_ += end + (ended ? 1 : 0);
    if (ended && carried_.empty()) return withoutReturn(piece);
    carried_.append(piece.substr(0, kLongestLine - carried_.size()));
    if (ended) return withoutReturn(carried_);
  } while (refill());
  if (carried_.empty()) return std::nullopt;
  return withoutReturn(carried_);
}

// The next piece of the file; false at its end.
bool IndexReader::refill() {
  at_ = 0;
  buffer_.resize(ended_ ? 0 : kBufferBytes);
  if (ended_) return false;
  const auto read = file_->read(offset_, {reinterpret_cast<std::uint8_t*>(buffer_.data()), buffer_.size()});
  buffer_.resize(read ? *read : 0);
  offset_ += static_cast<std::int64_t>(buffer_.size());
  ended_ = buffer_.empty();
  return !ended_;
}

}  // namespace plinth
