// The calculator of a finished application: buttons, keys and clipboard, beside the main window.
#pragma once

#include <functional>

#include "engine/Calculator.h"
#include "engine/win32/ToolWindow.h"
#include "platform/Clipboard.h"

namespace plinth {

class CalculatorWindow : public ToolWindow {
 public:
  // All must outlive this. insert: puts the number into the field that was in focus; false when it cannot.
  CalculatorWindow(const Application& application, const Locale& locale, Settings& settings,
                   Clipboard& clipboard, std::function<bool(const std::string&)> insert);
  // Shows the window above `owner`, where it was last.
  void open(HWND owner);

 protected:
  LRESULT message(UINT message, WPARAM wide, LPARAM param) override;

 private:
  bool make(HWND owner);
  void arrange();
  void command(int id);
  bool keyDown(int key);
  void character(wchar_t ch);
  void press(char key);
  void copy();
  void paste();
  void show();
  void hide();

  Calculator calculator_;
  Settings& settings_;
  Clipboard& clipboard_;
  std::function<bool(const std::string&)> insert_;
};

}  // namespace plinth
