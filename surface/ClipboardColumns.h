// The columns of each kind's line on the clipboard, named once in their order and walked by the writer and
// the reader. Behind the columns that every designer knows stand some that were added later; readers stop
// where they know no more, and a line may end early. The format is told in docs/formats/clipboard.md.
#pragma once

#include <algorithm>
#include <cstdint>
#include <limits>
#include <optional>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

#include "basic/Geometry.h"
#include "model/ProjectDocument.h"
#include "surface/PageView.h"
#include "widgets/PagePlaces.h"

namespace plinth {

// Text that can break neither a line nor a column: "," is "/~/" and CR LF is "&_&".
std::string EncodeField(std::string_view text);
std::string DecodeField(std::string_view column);

enum class Axis { x, y };

// Appends columns to a line that begins with the kind's word.
class ColumnWriter {
 public:
  explicit ColumnWriter(std::string& line) : line_(line) {}

  void text(const std::string& value) { put(EncodeField(value)); }
  template <class T>
  void number(const T& value, int = 0, int = 0) {
    put(std::to_string(value));
  }
  // A property of yes and no is a word, a switch that the project keeps as a number stays one.
  template <class T>
  void flag(const T& value) {
    if constexpr (std::is_same_v<T, bool>)
      put(value ? "True" : "False");
    else
      put(value != 0 ? "1" : "0");
  }
  void color(const std::int32_t& value, std::int32_t) { put(std::to_string(value)); }
  void place(const float& twips, Axis) { put(std::to_string(placePx(twips))); }
  void side(const float& twips) { put(std::to_string(std::max(0, placePx(twips)))); }
  void points(const float& value);
  // What follows from other columns or has no place in a project.
  void implied(int value) { put(std::to_string(value)); }
  void implied(std::string_view word) { put(word); }
  void items(const std::vector<std::string>& items);

 private:
  void put(std::string_view column) { line_.append(",").append(column); }
  std::string& line_;
};

// Takes the columns of a line, behind its word, one after the other. A column that is missing or holds no
// number where one should stand leaves the value as it is; numbers come out within their range.
class ColumnReader {
 public:
  // offset: added to all places, pixels.
  ColumnReader(std::string_view columns, PointPx offset) : rest_(columns), offset_(offset) {}

  // Whether there was any column.
  bool any() const { return any_; }

  void text(std::string& value);
  template <class T>
  void number(T& value, int lowest = std::numeric_limits<T>::min(),
              int highest = std::numeric_limits<T>::max()) {
    if (const auto read = nextNumber()) value = static_cast<T>(within(*read, lowest, highest));
  }
  template <class T>
  void flag(T& value) {
    if (const auto read = nextFlag()) value = static_cast<T>(*read);
  }
  // System colours of another machine read as `otherwise`.
  void color(std::int32_t& value, std::int32_t otherwise);
  void place(float& twips, Axis axis);
  void side(float& twips);
  void points(float& value);
  void implied(int) { next(); }
  void implied(std::string_view) { next(); }
  // As many as are said, or as there are.
  void items(std::vector<std::string>& items);

 private:
  static double within(double value, double lowest, double highest) {
    return std::clamp(value, lowest, highest);
  }
  std::optional<std::string_view> next();
  std::optional<double> nextNumber();
  std::optional<bool> nextFlag();

  std::string_view rest_;
  PointPx offset_;
  bool any_ = false, ended_ = false;
};

inline constexpr std::int32_t kWhite = 0xFFFFFF, kBlack = 0;

template <class Archive, class Row>
void walkRectangle(Archive& ar, Row& row) {
  ar.place(row.left, Axis::x);
  ar.place(row.top, Axis::y);
  ar.side(row.width);
  ar.side(row.height);
}

// The columns that fields and memos share, behind their word.
template <class Archive, class Row>
void walkBox(Archive& ar, Row& row, const RectPx& frame) {
  ar.implied(frame.left);
  ar.implied(frame.top);
  ar.implied(frame.width);
  ar.implied(frame.height);
  ar.color(row.frameColor, kBlack);
  ar.number(row.frameStyle, 0, std::numeric_limits<std::int16_t>::max());
  ar.implied(row.backColor);  // the frame's fill
  walkRectangle(ar, row);
  if constexpr (requires { row.alignment; })
    ar.number(row.alignment, 0, 2);
  else
    ar.implied(0);
  ar.implied("False");  // input mask
  ar.color(row.backColor, kWhite);
  ar.color(row.foreColor, kBlack);
  ar.text(row.fontName);
  ar.points(row.fontSize);
  ar.flag(row.fontBold);
  ar.flag(row.fontItalic);
  ar.implied("False");  // boxes are never underlined
  ar.text(row.helpText);
  ar.implied("True");  // tab stop
  ar.number(row.fieldLength, 0, std::numeric_limits<std::int32_t>::max());
  ar.flag(row.printOn);
  ar.flag(row.lockEntry);
  ar.flag(row.noSearch);
}

// What a line tells beside the object's row.
struct LineFacts {
  int index = 0;  // of a field where it was copied: formulas of the copies find each other by it; 0: unknown
  int charSet = 0;  // of the project
};

template <class Archive, class Row>
requires std::is_same_v<std::remove_const_t<Row>, FieldRow>
void walkColumns(Archive& ar, Row& row, LineFacts& facts) {
  walkBox(ar, row, fieldFrame(placePx(row.left, row.top, row.width, row.height)));
  ar.number(row.dayOffset);
  ar.number(row.fieldType, 0, 22);
  ar.flag(row.noDefaultDate);
  ar.flag(row.dummyField);
  ar.text(row.formula);
  ar.implied(row.formula.empty() ? "False" : "True");
  ar.number(facts.index, 0, kFieldLimit);
  ar.number(row.textCase, 0, 3);
  ar.flag(row.noChart);
  ar.text(row.defaultText);
}

template <class Archive, class Row>
requires std::is_same_v<std::remove_const_t<Row>, MemoRow>
void walkColumns(Archive& ar, Row& row, LineFacts&) {
  walkBox(ar, row, memoFrame(placePx(row.left, row.top, row.width, row.height), row.frameStyle));
  ar.text(row.tag);
}

template <class Archive, class Row>
requires std::is_same_v<std::remove_const_t<Row>, ComboRow>
void walkColumns(Archive& ar, Row& row, LineFacts& facts) {
  ar.place(row.left, Axis::x);
  ar.place(row.top, Axis::y);
  ar.side(row.width);
  ar.implied(comboTextHeight(row.fontSize));
  ar.color(row.backColor, kWhite);
  ar.color(row.foreColor, kBlack);
  ar.text(row.fontName);
  ar.points(row.fontSize);
  ar.flag(row.fontBold);
  ar.flag(row.fontItalic);
  ar.implied(facts.charSet);
  ar.number(row.textCase, 0, 3);
  ar.number(row.fieldLength, 0);
  ar.number(row.frameStyle, 0, std::numeric_limits<std::int16_t>::max());
  ar.color(row.frameColor, kBlack);
  ar.text(row.tag);
  ar.flag(row.printOn);
  ar.flag(row.lockEntry);
  ar.flag(row.noSearch);
  ar.items(row.items);
  ar.number(row.comboType, 0, 5);
  ar.flag(row.noChart);
  ar.text(row.helpText);
}

template <class Archive, class Row>
requires std::is_same_v<std::remove_const_t<Row>, PictureRow>
void walkColumns(Archive& ar, Row& row, LineFacts&) {
  ar.text(row.picturePath);
  walkRectangle(ar, row);
  ar.number(row.picBorder, 0);
  ar.number(row.pictureMode, 0);
  ar.text(row.tag);
  ar.text(row.picField);
  ar.flag(row.printOn);
  ar.flag(row.picFlag);
  ar.text(row.helpText);
}

template <class Archive, class Row>
requires std::is_same_v<std::remove_const_t<Row>, CheckRow>
void walkColumns(Archive& ar, Row& row, LineFacts&) {
  ar.place(row.left, Axis::x);
  ar.place(row.top, Axis::y);
  ar.number(row.appearance);
  ar.number(row.value, 0, 1);
  ar.implied(0);
  ar.text(row.tag);
  ar.flag(row.printOn);
  ar.flag(row.lockEntry);
  ar.flag(row.noSearch);
  ar.text(row.helpText);
  ar.flag(row.noChart);
}

template <class Archive, class Row>
requires std::is_same_v<std::remove_const_t<Row>, TitleRow>
void walkColumns(Archive& ar, Row& row, LineFacts&) {
  ar.text(row.caption);
  ar.flag(row.printOn);
  ar.place(row.left, Axis::x);
  ar.place(row.top, Axis::y);
  ar.number(row.alignment, 0, 2);
  ar.text(row.fontName);
  ar.flag(row.fontBold);
  ar.flag(row.fontItalic);
  ar.flag(row.fontUnderline);
  ar.points(row.fontSize);
  ar.text(row.tag);
  ar.text(row.helpText);
  ar.color(row.foreColor, kBlack);
}

template <class Archive, class Row>
requires std::is_same_v<std::remove_const_t<Row>, LineRow>
void walkColumns(Archive& ar, Row& row, LineFacts&) {
  ar.place(row.x1, Axis::x);
  ar.place(row.y1, Axis::y);
  ar.place(row.x2, Axis::x);
  ar.place(row.y2, Axis::y);
  ar.color(row.borderColor, kBlack);
  ar.flag(row.printOn);
}

template <class Archive, class Row>
requires std::is_same_v<std::remove_const_t<Row>, SquareRow>
void walkColumns(Archive& ar, Row& row, LineFacts&) {
  walkRectangle(ar, row);
  ar.color(row.backColor, kWhite);
  ar.color(row.borderColor, kBlack);
  ar.number(row.borderStyle, 0);
  ar.number(row.fillStyle, 0, 7);
  ar.number(row.shapeType, 0, 5);
  ar.color(row.fillColor, kWhite);
  ar.number(row.borderWidth, 0);
  ar.flag(row.printOn);
  ar.number(row.backStyle, 0);
}

template <class Archive, class Row>
requires std::is_same_v<std::remove_const_t<Row>, ScriptRow>
void walkColumns(Archive& ar, Row& row, LineFacts&) {
  walkRectangle(ar, row);
  ar.text(row.tag);
}

template <class Archive, class Row>
requires std::is_same_v<std::remove_const_t<Row>, ButtonRow>
void walkColumns(Archive& ar, Row& row, LineFacts&) {
  walkRectangle(ar, row);
  ar.text(row.fontName);
  ar.points(row.fontSize);
  ar.flag(row.fontBold);
  ar.flag(row.fontItalic);
  ar.flag(row.fontUnderline);
  ar.color(row.backColor, 0xC0C0C0);
  ar.color(row.foreColor, kBlack);
  ar.text(row.caption);
  ar.text(row.helpText);
  ar.implied(EncodeField(row.helpText));
  ar.text(row.buttonPath);
  ar.number(row.buttonIcon, 0);
  ar.text(row.tag);
}

}  // namespace plinth
