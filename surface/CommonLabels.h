// The editor of the numbered texts, Form20: eight rows over an order that can be by number or by text.
#pragma once

#include <string>
#include <vector>

#include "model/LanguageTexts.h"

namespace plinth {

class CommonLabels {
 public:
  static constexpr int kRows = 8;
  explicit CommonLabels(LanguageTexts& texts);

  void orderByNumber();
  // By the bytes of the texts as they are now; equal ones by number.
  void orderByText();
  int first() const { return first_; }
  int most() const;           // highest value of the scroll bar
  void scrollTo(int first);   // brought into range
  int number(int row) const;  // NoText(row): 101 to 399
  const std::string& text(int row) const;
  void change(int row, std::string text);  // TextE(row), at each change
  // Row order position of the first text that holds `part`, from the position after the first row on and
  // round about; -1 for none. Case does not count, nor the "&" of keys; "" is in none.
  int find(const std::string& part) const;

 private:
  LanguageTexts& texts_;
  std::vector<int> order_;
  int first_ = 0;
};

}  // namespace plinth
