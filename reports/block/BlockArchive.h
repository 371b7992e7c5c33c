// What the walks over project file and report block speak to: the file's version as a condition on each
// element, and the archives that read any version or write the newest. The project's archives build on these
// two.
#pragma once

#include <algorithm>
#include <climits>
#include <cstdint>
#include <string>
#include <vector>

#include "basic/Geometry.h"
#include "basic/Slots.h"

namespace plinth {

inline constexpr int kNewestFormat = 22;  // coordinates are twips and font sizes points from here on

// The versions of the file that hold an element, first to last.
struct Versions {
  int first = INT_MIN, last = INT_MAX;
  constexpr bool has(int version) const { return first <= version && version <= last; }
  constexpr bool operator==(const Versions&) const = default;
};
inline constexpr Versions always{};
constexpr Versions above(int version) { return {version + 1, INT_MAX}; }
constexpr Versions below(int version) { return {INT_MIN, version - 1}; }

// How a table of rows lies in the file: its name in descriptions, the type of its count, the index of its
// first stored row, what is to be added to the stored count, and the highest index that the document can
// hold.
struct TableForm {
  const char* name;
  Tag countTag = Tag::i2;
  int first = 0;
  int bias = 0;
  int limit = INT16_MAX - 1;
};

// Repairs that several kinds of row share.
inline constexpr std::int32_t kWindowTextColor = -2147483640;
inline void windowTextReadsAsBlack(std::int32_t& color) {
  if (color == kWindowTextColor) color = 0;
}
inline void negativeReadsAsWhite(std::int32_t& color) {
  if (color < 0) color = 0xFFFFFF;
}
template <class T>
void overOneReadsAsOne(T& value) {
  if (value > 1) value = 1;
}

class BlockReader {
 public:
  static constexpr bool kReads = true;
  BlockReader(SlotReader& source, int version) : source_(source), version_(version) {}

  int version() const { return version_; }
  // Elements that were missing or damaged so far.
  int skipped() const { return source_.failures() + skipped_; }

  // A slot; what the file does not hold or cannot give leaves `value` as it stands. Repairs see read values
  // only.
  template <class T, class... Repair>
  void slot(T& value, Tag, const char*, Versions when = always, Repair&&... repair) {
    if (when.has(version_) && source_.number(value)) (repair(value), ...);
  }
  // A coordinate in twips: pixels in files below the newest version.
  void length(float& value, const char*, Versions when = always) { scaled(value, kTwipsPerPixel, when); }
  // A font size in points: pixels in files below the newest version.
  void fontSize(float& value, const char*, Versions when = always) { scaled(value, 0.75f, when); }
  template <class... Repair>
  void text(std::string& value, const char*, Versions when = always, Repair&&... repair) {
    if (when.has(version_) && source_.text16(value)) (repair(value), ...);
  }
  // A slot or text that every file holds and nothing needs.
  void constant(Tag, double, const char*, Versions when = always) {
    SlotValue ignored;
    if (when.has(version_)) source_.slot(ignored);
  }
  void constantText(const char*, const char*, Versions when = always) {
    std::string ignored;
    if (when.has(version_)) source_.text16(ignored);
  }

  template <class F>
  void onlyIf(bool condition, const char*, F&& walk) {
    if (condition) walk();
  }
  template <class F>
  void section(const char*, Versions when, F&& walk) {
    if (when.has(version_)) walk();
  }
  // `count` elements of one name; walk(i) gives each.
  template <class F>
  void list(const char*, int count, F&& walk) {
    for (int i = 0; i < count; ++i) walk(i);
  }
  // `count` rows of a table that always has them all.
  template <class F>
  void fixedRows(const char*, int count, Versions when, F&& walk) {
    if (when.has(version_)) list("", count, walk);
  }
  // Repairs of a whole row, after its elements.
  template <class F>
  void afterReading(F&& repair) {
    repair(version_);
  }

  // A counted table. A count beyond the limit or the bytes left reads what is there; a row that cannot be
  // read ends the table and keeps what it got.
  template <class Row, class Live, class F>
  void rows(std::vector<Row>& rows, const TableForm& form, Live&&, F&& walk) {
    std::int32_t stored = -form.bias;
    const int before = source_.failures();
    source_.number(stored);
    const std::int64_t count = source_.failures() == before ? std::int64_t{stored} + form.bias : 0;
    const std::int64_t readable = std::min<std::int64_t>(count, form.limit - form.first + 1);
    if (count < 0 || count > readable) ++skipped_;
    for (int i = form.first; i < form.first + readable; ++i) {
      if (source_.remaining() == 0) {
        ++skipped_;
        break;
      }
      if (static_cast<std::size_t>(i) >= rows.size()) rows.resize(i + 1);
      walk(rows[i], i);
      if (source_.failures() != before) break;
    }
  }

 protected:
  void useVersion(int version) { version_ = version; }
  void skip() { ++skipped_; }
  SlotReader& source() { return source_; }

 private:
  void scaled(float& value, float factor, Versions when) {
    if (!when.has(version_) || !source_.number(value)) return;
    // No page and no font is that large; beyond it whole twips would not fit the arithmetic of drawing.
    constexpr float kLargest = 1e8f;
    value = std::clamp(version_ < kNewestFormat ? value * factor : value, -kLargest, kLargest);
  }

  SlotReader& source_;
  int version_;
  int skipped_ = 0;
};

// Writes the newest version, with the same calls.
class BlockWriter {
 public:
  static constexpr bool kReads = false;
  explicit BlockWriter(SlotWriter& target) : target_(target) {}

  int version() const { return kNewestFormat; }
  // Bytes of texts that were too long for their count.
  std::size_t cutBytes() const { return cutBytes_; }

  template <class T, class... Repair>
  void slot(const T& value, Tag tag, const char*, Versions when = always, Repair&&...) {
    if (when.has(kNewestFormat)) target_.slot(tag, static_cast<double>(value));
  }
  void slot(const bool& value, Tag tag, const char*, Versions when = always) {
    if (when.has(kNewestFormat)) target_.slot(tag, value ? -1 : 0);
  }
  void length(float value, const char* name, Versions when = always) { slot(value, Tag::r4, name, when); }
  void fontSize(float value, const char* name, Versions when = always) { slot(value, Tag::r4, name, when); }
  template <class... Repair>
  void text(const std::string& value, const char*, Versions when = always, Repair&&...) {
    if (when.has(kNewestFormat)) cutBytes_ += target_.text16(value);
  }
  void constant(Tag tag, double value, const char* name, Versions when = always) {
    slot(value, tag, name, when);
  }
  void constantText(const char* value, const char* name, Versions when = always) { text(value, name, when); }

  template <class F>
  void onlyIf(bool condition, const char*, F&& walk) {
    if (condition) walk();
  }
  template <class F>
  void section(const char*, Versions when, F&& walk) {
    if (when.has(kNewestFormat)) walk();
  }
  template <class F>
  void list(const char*, int count, F&& walk) {
    for (int i = 0; i < count; ++i) walk(i);
  }
  template <class F>
  void fixedRows(const char*, int count, Versions when, F&& walk) {
    if (when.has(kNewestFormat)) list("", count, walk);
  }
  template <class F>
  void afterReading(F&&) {}

  template <class Row, class Live, class F>
  void rows(const std::vector<Row>& rows, const TableForm& form, Live&& live, F&& walk) {
    const int size = std::min(static_cast<int>(rows.size()), form.limit + 1);
    int count = 0;
    for (int i = form.first; i < size; ++i) count += live(rows[i]) ? 1 : 0;
    target_.slot(form.countTag, count - form.bias);
    for (int i = form.first; i < size; ++i)
      if (live(rows[i])) walk(rows[i], i);
  }

 protected:
  SlotWriter& target() { return target_; }

 private:
  SlotWriter& target_;
  std::size_t cutBytes_ = 0;
};

}  // namespace plinth
