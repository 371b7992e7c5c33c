// The tool bar (Frame1): pictures for menu entries, the record panel, and the tool that opens what the
// focused field holds.
#pragma once

#include "engine/ApplicationMenus.h"
#include "engine/win32/RecordPanel.h"

namespace plinth {

class ToolBar : public Window {
 public:
  // `runs` tells whether a menu entry may be chosen now, `choose` does it.
  ToolBar(EngineHost& host, std::function<bool(const MenuEntry&)> runs,
          std::function<void(const MenuEntry&)> choose)
      : host_(host), runs_(std::move(runs)), choose_(std::move(choose)) {}
  bool open(HWND parent);
  // The panel to hold, or nullptr when it stands on the page.
  void hold(RecordPanel* panel) { panel_ = panel; }
  static int highUnits();
  // Puts the bar along the top of its parent and its tools in a row.
  void place(int width);
  // Which tools may be used, and the action tool.
  void show();

 protected:
  LRESULT message(UINT message, WPARAM wide, LPARAM param) override;

 private:
  struct Tool {
    const MenuEntry* entry = nullptr;
    HWND window = nullptr;
  };
  void makeTools();
  void nameSearch(const FocusTools& focus);
  void drawTool(const DRAWITEMSTRUCT& item) const;
  void command(int id);
  void paint();
  EngineHost& host_;
  std::function<bool(const MenuEntry&)> runs_;
  std::function<void(const MenuEntry&)> choose_;
  RecordPanel* panel_ = nullptr;
  std::vector<Tool> tools_;  // by row of the table; without a window where the application has no such entry
  HWND action_ = nullptr;
};

}  // namespace plinth
