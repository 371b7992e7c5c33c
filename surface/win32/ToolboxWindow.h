// The toolbox at the left edge: a column of buttons for the tools, the area selection and the lock. Tab
// reaches the column, arrow keys the buttons, Space presses.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "surface/DesignSurface.h"
#include "surface/win32/FlatButton.h"

namespace plinth {

class ToolboxWindow {
 public:
  static constexpr int kFirstTool = 301, kSelectArea = 351, kLock = 352, kErase = 353, kUndo = 354,
                       kRedo = 355;
  // command: runs a command of the designer by its id.
  using RunCommand = std::function<void(int command)>;
  using TextOf = std::function<std::wstring(int label, const char* english)>;

  ToolboxWindow(HWND parent, int id, const DesignSurface& surface, RunCommand run);
  ~ToolboxWindow();
  ToolboxWindow(const ToolboxWindow&) = delete;
  ToolboxWindow& operator=(const ToolboxWindow&) = delete;

  HWND window() const { return window_; }
  int width() const;  // device pixels
  // Shows which tool is carried, area mode and lock; with the controls locked the tools are gone.
  void show();
  void retext(const TextOf& text);
  void scaleChanged();
  void setColors(const ChromeColors& colors);
  // Keys between the buttons. True when the message was used.
  bool translate(MSG& message);

 private:
  template <class T>
  friend LRESULT CALLBACK windowProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
  struct Button {
    int id, command, label;
    const char* english;
    bool tool;  // hidden by the lock
    int gap;    // pixels above
    std::unique_ptr<FlatButton> button;
  };
  LRESULT handle(UINT message, WPARAM wParam, LPARAM lParam);
  void addButton(int id, int command, int label, const char* english, bool tool, int gap,
                 FlatButton::Glyph glyph);
  void makeButtons();
  void layout();
  void paint();
  void move(int step);

  HWND window_ = nullptr, tips_ = nullptr;
  const DesignSurface& surface_;
  RunCommand run_;
  ChromeStyle style_;
  std::vector<Button> buttons_;
};

}  // namespace plinth
