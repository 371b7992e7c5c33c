// Pages: switch, paper sizes, units and grid, background.
#pragma once

#include <array>
#include <string>

#include "surface/DesignContext.h"

namespace plinth {

struct PaperEntry {
  int index;  // of the menu entry: 0 to 17, 19 portrait, 20 landscape, 22 custom
  const char* text;
};
const std::vector<PaperEntry>& paperEntries();

class PageSetup {
 public:
  explicit PageSetup(DesignContext& context) : c_(context) {}

  // PGE_Click: 0 to 4; others are ignored.
  void showPage(int page);
  // Pagesize_Click with an entry but 22.
  void choosePaper(int index);
  bool paperChecked(int index) const;
  // Entry 22: width and height as typed, in the unit of the read-outs.
  void customPaper(const std::string& width, const std::string& height);
  std::array<std::string, 2> customTexts() const;
  void chooseUnit(ScaleUnit unit);
  void chooseGrid(int choice);
  void pageColor(std::int32_t color);                      // of the current page
  void background(const std::string& path, int tileMode);  // 0 to 3; "" keeps the picture
  void pageCaption(int page, const std::string& caption);

 private:
  DesignContext& c_;
};

}  // namespace plinth
