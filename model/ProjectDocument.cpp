// The values of a project before anything was placed or chosen: templates, palette, English captions,
// options.
#include "model/ProjectDocument.h"

#include <algorithm>
#include <string>

namespace plinth {
namespace {

// RGB with red in the low byte; the rest of the table is white and free for the user.
constexpr std::int32_t kColors[] = {
    0,        0x404040, 0x808080, 0xC0C0C0, 0xE0E0E0, 0xFFFFFF, 0xC0C0FF, 0x8080FF, 0xFF,     0xC0,
    0x80,     0x40,     0x404080, 0x4080,   0x40C0,   0x80FF,   0x80C0FF, 0xC0E0FF, 0xC0FFFF, 0x80FFFF,
    0xFFFF,   0xC0C0,   0x8080,   0x4040,   0x4000,   0x8000,   0xC000,   0xFF00,   0x80FF80, 0xC0FFC0,
    0xFFFFC0, 0xFFFF80, 0xFFFF00, 0xC0C000, 0x808000, 0x404000, 0x400000, 0x800000, 0xC00000, 0xFF0000,
    0xFF8080, 0xFFC0C0, 0xFFC0FF, 0xFF80FF, 0xFF00FF, 0xC000C0, 0x800080, 0x400040, 0xCBC0FF, 0x9314FF,
    0x660033, 0x336633, 0x666633, 0x996633, 0xCC6633, 0xFF6633, 0x999933, 0xCC9933, 0xFF9933, 0x99CC33,
    0xCCCC33, 0x990066, 0x993366, 0xCC0066, 0xCC3366, 0xCC6666, 0xFF0066, 0xFF3366, 0xFF6666, 0xFF9966,
    0x999966, 0xCC0099, 0xCC3399, 0xCC6699, 0xFF0099, 0xFF3399, 0xFF6699, 0xAAAFFA, 0xAA33FF, 0xAAFFFF,
    0xAA99FF, 0xAACCFF, 0x3399FF};

RunMenus englishMenus() {
  return {.mlist = "&Open...",
          .newin = "Create...",
          .printingit = "&Print...",
          .exitit = "E&xit",
          .copyadress = "Copy &Record",
          .erasefile = "C&lear Record",
          .deletemarkrec = "&New Record",
          .finden0 = "&Find...",
          .finden3 = "Sort Old-New",
          .cal = "Ca&lculator",
          .infoo = "&Contents",
          .aboutit = "&About...",
          .newview = "New View",
          .fmenu = "&File",
          .ops = "&Options",
          .finding = "&Search",
          .helpit = "&Help",
          .viewDoc = "Document",
          .expot = "&Export...",
          .copying = "&Copy",
          .pasting = "Paste",
          .cuting = "Cu&t",
          .finden4 = "Sort &A-Z",
          .finden5 = "Sort &Z-A",
          .importmenu = "&Import..."};
}

}  // namespace

ProjectDocument::ProjectDocument() {
  menus = englishMenus();
  palette.fill(0xFFFFFF);
  std::copy(std::begin(kColors), std::end(kColors), palette.begin());
  titles[0].caption = titles[1].caption = "Help Text Displays Here";
  titles[2].caption = titles[3].caption = "Field";
  titles[4].caption = "Date";
  titles[5].caption = "0000000001";
  for (int i = 0; i < static_cast<int>(programs.size()); ++i)
    programs[i].caption = "Program " + std::to_string(i + 1);
  memos[1].tag = "MemoField1";
  documents[0].plateExt = "xml";
  options.text3 = "This application belongs to its owner.\r\n";
  options.text6 = "www.example.com";
  options.check15 = 1;
  options.check2Calculator = options.check2AboutBox = 1;
  search.text1[0] = "F1";
}

}  // namespace plinth
