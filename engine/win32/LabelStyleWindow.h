// A small window with the controls for the look of a free label: size, bold, italic, underline, colour.
#pragma once

#include "engine/VariableObjects.h"
#include "engine/win32/EngineHost.h"
#include "engine/win32/ToolWindow.h"

namespace plinth {

// Numbers of the controls, for tests and scripts.
inline constexpr int kLabelSizeId = 20;
inline constexpr int kLabelBoldId = 21;
inline constexpr int kLabelItalicId = 22;
inline constexpr int kLabelUnderlineId = 23;
inline constexpr int kLabelColorId = 24;

class LabelStyleWindow : public ToolWindow {
 protected:
  LabelStyleWindow(EngineHost& host, VariableObjects& objects)
      : ToolWindow(host.application()), host_(host), objects_(objects) {}
  void addStyle();
  void placeStyle(int left, int top);  // in units; 190 wide, 24 high
  void showStyle();
  // WM_COMMAND of one of the controls; false when it is none of them.
  bool styleCommand(int id, int notice);

  EngineHost& host_;
  VariableObjects& objects_;
  bool showing_ = false;  // the window itself changes its controls

 private:
  void chooseColor();
  COLORREF customColors_[16] = {};
};

}  // namespace plinth
