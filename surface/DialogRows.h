// Dialogs as rows: what stands where, how a value is got and set, and when it can be used. One host builds
// any of them as a window; a fake drives any of them in tests. Texts are 8-bit text of the designer's code
// page.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "platform/Canvas.h"

namespace plinth {

enum class RowKind {
  text,     // one line
  memo,     // several lines
  check,    // value "1" or ""
  list,     // one of items()
  folder,   // a path, with a button that asks for another
  button,   // runs press()
  choice,   // a button as wide as the dialog: runs press() and ends the dialog as OK does
  note,     // text to read; its label stands in bold
  picture,  // image()
};

struct DialogRow {
  int id = 0;  // control id, unique in the dialog, from 100 on
  RowKind kind = RowKind::text;
  std::string label;  // "&" marks the access key
  std::string toolTip;
  std::function<std::string()> get;
  std::function<void(const std::string&)> set;      // at each change
  std::function<std::vector<std::string>()> items;  // lists
  std::function<std::shared_ptr<Image>()> image;    // pictures; asked again after each change
  std::function<void()> press;                      // buttons
  std::function<bool()> enabledWhen;                // none: always; asked again after each change
  int lines = 1;                                    // height of memos and lists in lines of text
};

// Rows work on values of the caller's that he keeps or forgets when the dialog is left.
struct DialogSpec {
  std::string title;
  std::string ok = "OK";          // "" for a dialog of choices
  std::string cancel = "Cancel";  // "" for a dialog that only informs
  std::function<bool()> okWhen;   // none: always
  std::vector<DialogRow> rows;
  int codePage = 1252;  // of all texts but folders, which are the system's
  int width = 460;      // pixels at 96 dpi, inside
};

class DialogRunner {
 public:
  virtual ~DialogRunner() = default;
  // Shows the dialog until it is left; true for OK.
  virtual bool run(const DialogSpec& spec) = 0;
};

}  // namespace plinth
