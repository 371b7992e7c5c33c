// Writes a payload by its walk, behind a stamped engine image.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "basic/Slots.h"
#include "builder/payload/Payload.h"
#include "builder/payload/PayloadFile.h"

namespace plinth {

class PayloadWriter {
 public:
  // image: the stamped engine, at least kSmallestStub bytes. The first slot goes over its last byte.
  PayloadWriter(Bytes& image, std::vector<std::string>& cutTexts, const SectionDone& sectionDone);

  bool ok() const { return error_.kind == ErrorKind::none; }
  const Error& error() const { return error_; }
  void trailer();

  template <class T>
  void slot(const T& value, Tag tag, const char*) {
    if constexpr (std::is_same_v<T, bool>) {
      writer_.slot(tag, value ? -1 : 0);
    } else {
      writer_.slot(tag, value);
    }
  }
  template <class T, std::size_t N>
  void slots(const std::array<T, N>& values, Tag tag, const char* name) {
    for (const T& value : values) slot(value, tag, name);
  }
  void paired(std::int16_t low, std::int16_t high, const char* name);
  void reserved(const char* name) { slot(std::int16_t{0}, Tag::i2, name); }
  void text(const std::string& value, const char* name);
  void scrambled(const std::string& value, const char* name);
  void file(const EmbeddedFile& file, const char* name);
  void textList(const std::vector<std::string>& items, const char* name);
  template <std::size_t N>
  void texts(const std::array<std::string, N>& values, const char* name) {
    for (const std::string& value : values) text(value, name);
  }
  template <class Row, std::size_t N, class Walk>
  void group(const std::array<Row, N>& rows, const char*, Walk walk) {
    for (const Row& row : rows) walk(row);
  }
  template <class Walk>
  void onlyIf(bool condition, const char*, Walk walk) {
    if (condition) walk();
  }
  template <class Walk>
  void section(const char* name, Walk walk) {
    if (!ok()) return;
    section_ = name;
    row_ = -1;
    walk();
    finishSection();
  }
  template <class Row, class Walk>
  void rows(const std::vector<Row>& rows, int first, int limit, Walk walk) {
    const int highest = highestIndex(static_cast<std::int64_t>(rows.size()), first, limit);
    for (row_ = first; row_ <= highest; ++row_) walk(rows[static_cast<std::size_t>(row_)]);
    row_ = -1;
  }
  void reports(const std::vector<ReportRow>& reports, int limit);

 private:
  std::string place(const char* name) const;
  int highestIndex(std::int64_t size, int first, int limit);
  void tooMany();
  void finishSection();

  Bytes& image_;
  std::vector<std::string>& cutTexts_;
  const SectionDone& sectionDone_;
  SlotWriter writer_;
  std::int64_t start_;
  std::int64_t biasPos_ = kBiasStart;
  std::int64_t itemsLeft_;
  const char* section_ = "";
  int row_ = -1;
  int sectionsDone_ = 0;
  Error error_;
};

}  // namespace plinth
