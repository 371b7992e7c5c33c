// The tools that place objects: each makes one new object of its kind, selects it and hands it to the mouse.
#pragma once

#include <array>
#include <string_view>

#include "surface/DesignContext.h"

namespace plinth {

enum class Tool {
  label,
  field,
  email,
  memo,
  combo,
  pictureField,
  pictureArt,
  checkBox,
  line,
  square,
  button,
  script
};
inline constexpr int kTools = 12;

struct ToolInfo {
  Tool tool;
  ObjectKind kind;
  int label;  // language text of the tool tip
  const char* english;
};
const std::array<ToolInfo, kTools>& toolInfos();  // in the order of the toolbox

class Placement {
 public:
  explicit Placement(DesignContext& context) : c_(context) {}

  // Makes the object, or shows why not. Nothing while the controls are locked.
  void place(Tool tool);

  // Objects with a slot of their own.
  void documentBox();
  void recordId();
  void dateStamp(int format);  // 0 to 5
  void date(int format);
  void clock();
  void toggleHelpBar();
  bool helpBarShown() const;
  // Fills the area selection's rectangle with cells; columns 1, 2, 3, 4, 6, 7 or 8, nothing for others and
  // without a rectangle.
  void table(int columns);

  // Today in the six formats of the date menus.
  std::array<std::string, 6> dateCaptions() const;

  // Puts the object in hand aside, if one is carried: buttonR.
  void cancelCarried();

 private:
  DesignContext& c_;
};

}  // namespace plinth
