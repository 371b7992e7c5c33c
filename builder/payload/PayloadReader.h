// Reads a payload by its walk. The first element that cannot be read ends the reading: what follows would be
// read from wrong places, so rows that are not whole are dropped and the rest keeps its defaults.
#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "basic/Slots.h"
#include "builder/payload/Payload.h"

namespace plinth {

class PayloadReader {
 public:
  // exe: the whole file, which the bias bytes are taken from. The payload lies from `start` (1-based) to
  // before `end`.
  PayloadReader(std::span<const std::uint8_t> exe, std::int64_t start, std::int64_t end);

  bool ok() const { return problem_.empty(); }
  const std::string& problem() const { return problem_; }
  std::int64_t position() const { return reader_.position(); }

  template <class T>
  void slot(T& value, Tag, const char* name) {
    if (ok() && !reader_.number(value)) fail(name);
  }
  template <class T, std::size_t N>
  void slots(std::array<T, N>& values, Tag tag, const char* name) {
    for (T& value : values) slot(value, tag, name);
  }
  void paired(std::int16_t& low, std::int16_t& high, const char* name);
  void reserved(const char* name);
  void text(std::string& value, const char* name);
  void scrambled(std::string& value, const char* name);
  void file(EmbeddedFile& file, const char* name);
  void textList(std::vector<std::string>& items, const char* name);
  template <std::size_t N>
  void texts(std::array<std::string, N>& values, const char* name) {
    for (std::string& value : values) text(value, name);
  }
  template <class Row, std::size_t N, class Walk>
  void group(std::array<Row, N>& rows, const char*, Walk walk) {
    for (Row& row : rows) walk(row);
  }
  template <class Walk>
  void onlyIf(bool condition, const char*, Walk walk) {
    if (condition) walk();
  }
  template <class Walk>
  void section(const char* name, Walk walk) {
    section_ = name;
    row_ = -1;
    if (ok()) walk();
  }
  template <class Row, class Walk>
  void rows(std::vector<Row>& rows, int first, int limit, Walk walk) {
    const int highest = highestIndex(limit);
    rows.resize(static_cast<std::size_t>(first));
    for (row_ = first; row_ <= highest && ok(); ++row_) {
      rows.emplace_back();
      walk(rows.back());
      if (!ok()) rows.pop_back();
    }
    row_ = -1;
  }
  void reports(std::vector<ReportRow>& reports, int limit);

 private:
  void fail(const char* name);
  int highestIndex(int limit);

  std::span<const std::uint8_t> exe_;
  SlotReader reader_;
  std::int64_t biasPos_;
  std::int64_t itemsLeft_;
  const char* section_ = "";
  int row_ = -1;
  std::string problem_;
};

}  // namespace plinth
