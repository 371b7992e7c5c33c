// A record in memory for tests and fuzzing: boxes by number, every write remembered in what they show.
#pragma once

#include <string>
#include <vector>

#include "formula/FormulaHost.h"

namespace plinth {

struct FakeField {
  int type = 0;
  std::string text{};
  std::string formula{};
  double date = 0;
  int dayOffset = 0;
  bool blankWhenZero = false;
  bool operator==(const FakeField&) const = default;
};

class FakeRecord : public FormulaHost {
 public:
  std::vector<FakeField> fields;    // field 1 first
  std::vector<std::string> combos;  // combo 1 first
  std::vector<std::string> memos;   // memo 1 first
  std::vector<int> checks;          // check box 0 first
  std::vector<std::string> messages;
  long record = 7;
  Locale place = englishLocale();
  double time = 45306.25;  // 2024-01-15 06:00

  int fieldCount() const override { return static_cast<int>(fields.size()); }
  int comboCount() const override { return static_cast<int>(combos.size()); }
  int memoCount() const override { return static_cast<int>(memos.size()); }
  int checkCount() const override { return static_cast<int>(checks.size()) - 1; }
  int fieldType(int n) const override { return fields.at(n - 1).type; }
  std::string_view fieldFormula(int n) const override { return fields.at(n - 1).formula; }
  int fieldDayOffset(int n) const override { return fields.at(n - 1).dayOffset; }
  bool fieldBlankWhenZero(int n) const override { return fields.at(n - 1).blankWhenZero; }
  std::string fieldText(int n) const override { return fields.at(n - 1).text; }
  void setFieldText(int n, std::string_view text) override { fields.at(n - 1).text = text; }
  double fieldDate(int n) const override { return fields.at(n - 1).date; }
  void setFieldDate(int n, double serial) override { fields.at(n - 1).date = serial; }
  std::string comboText(int n) const override { return combos.at(n - 1); }
  void setComboText(int n, std::string_view text) override { combos.at(n - 1) = text; }
  std::string memoText(int n) const override { return memos.at(n - 1); }
  void setMemoText(int n, std::string_view text) override { memos.at(n - 1) = text; }
  int checkValue(int n) const override { return checks.at(n); }
  void setCheckValue(int n, int value) override { checks.at(n) = value; }
  long recordNumber() const override { return record; }
  void showMessage(std::string_view text) override { messages.emplace_back(text); }
  const Locale& locale() const override { return place; }
  double now() const override { return time; }
  int codePage() const override { return place.codePage; }
};

}  // namespace plinth
