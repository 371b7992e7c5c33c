// Pages: switch, paper sizes, units and grid, background. What the project keeps of it makes a step in the
// history; page on view, unit and grid are no part of the project.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "surface/DesignContext.h"

namespace plinth {

struct PaperEntry {
  int index;         // of the menu entry: 0 to 17, 19 portrait, 20 landscape, 22 custom
  const char* text;  // UTF-8, for no 8-bit code page has all of it
};
// In the order of the menu.
const std::vector<PaperEntry>& paperEntries();

class PageSetup {
 public:
  explicit PageSetup(DesignContext& context) : c_(context) {}

  // PGE_Click: 0 to 4; others are ignored. Nothing is selected then, and objects hidden until now show again.
  void showPage(int page);
  // Pagesize_Click with an entry but 22; others are ignored. Orientation (19 and 20) is that of all papers
  // and stays when another is chosen; a page of the user's own size is turned when it changes.
  void choosePaper(int index);
  bool paperChecked(int index) const;
  // Entry 22: width and height as typed, in the unit of the read-outs, brought into the range of a page; 0
  // becomes the smallest. Exchanged while Landscape is checked, as those of every other entry.
  void customPaper(const std::string& width, const std::string& height);
  // What the two boxes show at first: the size of the page.
  std::array<std::string, 2> customTexts() const;
  void chooseUnit(ScaleUnit unit);
  void chooseGrid(int choice);         // one of kGridChoices; others are ignored
  void pageColor(std::int32_t color);  // of the current page
  // tileMode: 0 whole page, 1 left edge, 2 top, 3 none; others are ignored. path: "" keeps the picture.
  void background(const std::string& path, int tileMode);
  void pageCaption(int page, const std::string& caption);  // 0 to 4, at each change

 private:
  void setPageSize(SizePx size);

  DesignContext& c_;
};

}  // namespace plinth
