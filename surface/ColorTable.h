// The colour table, Config: 96 swatches, a sample, six hexadecimal digits.
#pragma once

#include <array>
#include <cstdint>
#include <string>

namespace plinth {

class ColorTable {
 public:
  // palette (of 96 colours, red in the low byte) must outlive this.
  explicit ColorTable(std::array<std::int32_t, 96>& palette) : palette_(palette) {}

  static constexpr int kFirstFree = 83;  // from here on a person may put colours of his own
  std::int32_t color(int swatch) const { return palette_[static_cast<std::size_t>(swatch)]; }
  void choose(int swatch);               // a click; nothing for a number that no swatch has
  void chooseColor(std::int32_t color);  // a system colour becomes the one it stands for
  std::int32_t chosen() const { return chosen_; }
  int chosenSwatch() const { return swatch_; }  // -1 for a colour that came from elsewhere
  // RBGnumber: six hexadecimal digits, blue first.
  std::string digits() const;
  // Chooses the colour of one to six such digits; fewer are filled with "0" on the left. False: no colour;
  // nothing changes.
  bool typeDigits(const std::string& digits);
  // Puts the chosen colour into a free swatch; false for the others.
  bool keep(int swatch);

 private:
  std::array<std::int32_t, 96>& palette_;
  std::int32_t chosen_ = palette_[0];
  int swatch_ = 0;
};

}  // namespace plinth
