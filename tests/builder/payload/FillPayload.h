// An archive that gives every element of a payload a value of its own: what is not carried to the file and
// back shows.
#pragma once

#include <random>

#include "builder/payload/PayloadWalk.h"

namespace plinth {

class PayloadFiller {
 public:
  PayloadFiller(unsigned seed, int rowsEach) : random_(seed), rowsEach_(rowsEach) {}

  template <class T>
  void slot(T& value, Tag, const char* name) {
    if constexpr (std::is_same_v<T, bool>) {
      value = number(0, 1) != 0;
    } else if (std::string_view(name) == "page") {
      value = static_cast<T>(number(-1, 5));
    } else {
      value = static_cast<T>(number(0, 255));
      if constexpr (sizeof(T) > 1) value = static_cast<T>(value * 120 - 3000);
    }
  }
  template <class T, std::size_t N>
  void slots(std::array<T, N>& values, Tag tag, const char* name) {
    for (T& value : values) slot(value, tag, name);
  }
  void paired(std::int16_t& low, std::int16_t& high, const char*) {
    low = static_cast<std::int16_t>(number(0, 7));
    high = static_cast<std::int16_t>(number(0, 5));
  }
  void reserved(const char*) {}
  void text(std::string& value, const char*) {
    value.clear();
    for (int left = number(0, 30); left > 0; --left) value += static_cast<char>(number(0, 255));
  }
  void scrambled(std::string& value, const char* name) { text(value, name); }
  void file(EmbeddedFile& file, const char*) {
    if (number(0, 1) == 0) return;
    file = {"x" + std::to_string(number(0, 99)) + ".bmp",
            Bytes(static_cast<std::size_t>(number(0, 300)), 0x55)};
  }
  void textList(std::vector<std::string>& items, const char* name) {
    items.resize(static_cast<std::size_t>(number(0, 4)));
    for (std::string& item : items) text(item, name);
  }
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
  void section(const char*, Walk walk) {
    walk();
  }
  template <class Row, class Walk>
  void rows(std::vector<Row>& rows, int first, int, Walk walk) {
    rows.resize(static_cast<std::size_t>(first));
    for (int i = 0; i < rowsEach_; ++i) walk(rows.emplace_back());
  }
  void reports(std::vector<ReportRow>& reports, int) {
    reports.resize(2);
    reports[0].title = "List";
    reports[0].shapes.resize(2);
    reports[0].labels = {{.fieldOfLabel = 1, .caption = "F1,0"}, {.caption = "plain", .rowOfLabel = 1}};
  }

 private:
  int number(int low, int high) { return std::uniform_int_distribution<int>(low, high)(random_); }
  std::mt19937 random_;
  int rowsEach_;
};

inline Payload filledPayload(unsigned seed = 1, int rowsEach = 6) {
  Payload payload;
  PayloadFiller filler(seed, rowsEach);
  walkPayload(filler, payload);
  return payload;
}

}  // namespace plinth
