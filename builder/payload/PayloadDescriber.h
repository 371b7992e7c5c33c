// Walks a payload's order without any bytes and writes it down as the tables of docs/formats/payload.md.
#pragma once

#include <array>
#include <string>
#include <vector>

#include "basic/Slots.h"
#include "builder/payload/Payload.h"

namespace plinth {

class PayloadDescriber {
 public:
  // The tables: a heading for each section, then a row for each element.
  const std::string& text() const { return text_; }

  template <class T>
  void slot(T&, Tag tag, const char* name) {
    line(letter(tag), name);
  }
  template <class T, std::size_t N>
  void slots(std::array<T, N>&, Tag tag, const char* name) {
    line(std::to_string(N) + " x " + letter(tag), name);
  }
  void paired(std::int16_t&, std::int16_t&, const char* name) { line("I", name); }
  void reserved(const char* name) { line("I", name); }
  void text(std::string&, const char* name) { line("S", name); }
  void scrambled(std::string&, const char* name) { line("X", name); }
  void file(EmbeddedFile&, const char* name);
  void textList(std::vector<std::string>&, const char* name);
  template <std::size_t N>
  void texts(std::array<std::string, N>&, const char* name) {
    line(std::to_string(N) + " x S", name);
  }
  template <class Row, std::size_t N, class Walk>
  void group(std::array<Row, N>& rows, const char* name, Walk walk) {
    each(std::to_string(N) + " " + name, [&] { walk(rows[0]); });
  }
  template <class Walk>
  void onlyIf(bool, const char* words, Walk walk) {
    each(words, walk);
  }
  template <class Walk>
  void section(const char* name, Walk walk) {
    begin(name);
    walk();
  }
  template <class Row, class Walk>
  void rows(std::vector<Row>&, int first, int limit, Walk walk) {
    line("I", "highest index, at most " + std::to_string(limit));
    Row row;
    each("each from " + std::to_string(first), [&] { walk(row); });
  }
  void reports(std::vector<ReportRow>&, int limit);

 private:
  static std::string letter(Tag tag);
  void begin(const char* name);
  void line(const std::string& type, const std::string& name);
  // Elements inside say when they are there.
  template <class Walk>
  void each(const std::string& words, Walk walk) {
    const std::string outside = condition_;
    condition_ += (condition_.empty() ? "" : ", ") + words;
    walk();
    condition_ = outside;
  }

  std::string text_;
  std::string condition_;
};

// All tables of the payload, in file order.
std::string describePayload();

}  // namespace plinth
