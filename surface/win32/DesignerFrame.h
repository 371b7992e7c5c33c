// The designer's main window, Form1: menu, toolbox, the application's menus, drawing area, property panel and
// status bar around a DesignerController.
#pragma once

#include <memory>
#include <span>
#include <string>
#include <vector>

#include "platform/win32/Handles.h"
#include "surface/DesignerCommands.h"
#include "surface/DesignerController.h"
#include "surface/win32/ColorTableWindow.h"
#include "surface/win32/MenuStrip.h"
#include "surface/win32/PageArea.h"
#include "surface/win32/PanelWindow.h"
#include "surface/win32/ToolboxWindow.h"

namespace plinth {

// What the frame is given; the frame itself is the progress bar. References must outlive it.
struct DesignerSetup {
  Files& files;
  Messages& messages;
  Chooser& chooser;
  Settings& settings;
  Clock& clock;
  DialogRunner& dialogs;
  Clipboard& clipboard;
  Shell& shell;
  std::string programFolder;  // with trailing separator
  bool firstInstance = true;
  std::span<const std::uint8_t> stub, defaultIcon;
  std::string version;
};

class DesignerFrame : private DesignerWindow, private Progress {
 public:
  // Control ids, for tests and assistive programs.
  static constexpr int kPageAreaId = 100, kStatusId = 101, kProgressId = 102, kToolboxId = 103,
                       kPanelId = 104, kMenuStripId = 105;
  static constexpr const wchar_t* kClass = L"PlinthDesigner";

  explicit DesignerFrame(const DesignerSetup& setup);
  ~DesignerFrame() override;
  DesignerFrame(const DesignerFrame&) = delete;
  DesignerFrame& operator=(const DesignerFrame&) = delete;

  // Opens the first project and shows the window as the system asks (SW_...). False: the program must end.
  bool start(const std::string& commandLine, int show);
  HWND window() const { return window_; }
  // To be asked for each message of the program before it is dispatched: true when it was a key that moves
  // between the parts of the window, or one of the menu's.
  bool translate(MSG& message);
  DesignerController& designer() { return designer_; }

 private:
  template <class T>
  friend LRESULT CALLBACK windowProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
  LRESULT handle(UINT message, WPARAM wParam, LPARAM lParam);
  void makeChildren();
  void place(int show);
  void keepPlace();
  void layout();
  void layoutStatus();
  void scaleChanged(const RECT& suggested);
  void applyColors();
  void runFromTool(int command);
  void retext();
  bool onCommandKey(const MSG& message);
  void focusNextPart(int step);
  void dropFiles(WPARAM drop);

  // SurfaceView, SurfaceWindow, DesignerWindow; in FrameViews.cpp.
  void invalidate() override;
  void invalidateArea(const RectPx& area) override;
  void scrollChanged() override;
  void pageChanged() override;
  void tabsChanged() override;
  void objectPointedAt(const std::string& name) override;
  void panelChanged() override;
  void readoutsChanged() override;
  void pointerChanged(PointerShape pointer) override;
  static constexpr UINT kShowPopup = WM_APP + 1;  // lParam: point of the screen
  void popupMenu(PointPx point) override;
  void showPopup(POINT at);
  void labelEditing(const RectPx& place) override;
  void objectOpened(ObjectRef object) override;
  void stepMade() override;
  void showCaption(const std::string& utf8) override;
  void menusChanged() override;
  void statusChanged() override;
  void wordsChanged() override;
  void setBusy(bool busy) override;
  void showColorTable() override;
  void focusPanel() override;
  void editCommonLabels(CommonLabels& labels) override;
  void end() override;
  // Progress
  void title(std::string_view text) override;
  bool step(std::int64_t done, std::int64_t total) override;
  void pump();

  HWND window_ = nullptr, status_ = nullptr, bar_ = nullptr;
  double scale_ = 1;
  FontHandle font_;
  MemoryDc measuring_;
  std::vector<Menu> menus_;
  bool waiting_ = false, working_ = false, cancelled_ = false, ready_ = false;
  DesignerController designer_;
  std::unique_ptr<PageArea> area_;
  std::unique_ptr<ToolboxWindow> toolbox_;
  std::unique_ptr<PanelWindow> panel_;
  std::unique_ptr<MenuStrip> strip_;
  std::unique_ptr<ColorTableWindow> colors_;
};

}  // namespace plinth
