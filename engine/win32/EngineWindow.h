// The main window (Form2) of a finished application: menu, tool bar, page tabs and the page. It forwards what
// the person does to the session and shows what the session tells it.
#pragma once

#include <array>
#include <deque>
#include <memory>

#include "engine/win32/BoxWindows.h"
#include "engine/win32/CalendarPopup.h"
#include "engine/win32/EngineTools.h"
#include "engine/win32/ObjectTools.h"
#include "engine/win32/PageView.h"
#include "engine/win32/PageWindow.h"
#include "engine/win32/ToolBar.h"
#include "platform/Chooser.h"
#include "platform/Clipboard.h"
#include "platform/Settings.h"
#include "platform/SharedFile.h"

namespace plinth {

// What the window needs of the outside; everything must outlive it.
struct EngineWindowServices {
  Messages& messages;
  Chooser& chooser;
  Shell& shell;
  Files& files;
  ImageDecoder& decoder;
  SharedFiles& sharedFiles;
  Settings& settings;
  Clipboard& clipboard;
};

class EngineWindow : public Window, public EngineView, private EngineHost {
 public:
  explicit EngineWindow(const EngineWindowServices& services);
  ~EngineWindow() override;
  // Makes the window for a session whose view this is, lets somebody log in where that is asked for, opens
  // the data and shows everything. False: nobody was let in or the window cannot be made. `session` must
  // outlive the window. `owner` is set to the window as soon as there is one, for dialogs before it.
  bool open(RecordSession& session, HWND& owner);
  // Runs until the window is closed; the program's exit code.
  int run();
  // One message of the thread's queue: keys that the window takes before its boxes, else its way to its
  // window.
  void dispatch(const MSG& message);

  // EngineView.
  void fieldChanged(int n) override { boxes_->showField(n); }
  void entryRefused(int) override { ::MessageBeep(MB_OK); }
  void comboChanged(int n) override { boxes_->showCombo(n); }
  void memoChanged(int n) override { boxes_->showMemo(n); }
  void checkChanged(int n) override { boxes_->showCheck(n); }
  void recordShown() override;
  void titleChanged(int n) override;
  void pageShown(int page) override;
  void toolsChanged() override;
  void databaseChanged() override;
  void buttonEnabled(int n, bool enabled) override { boxes_->enableButton(n, enabled); }
  void pictureChanged(int n) override;
  void yieldEvents() override;

 protected:
  LRESULT message(UINT message, WPARAM wide, LPARAM param) override;

 private:
  struct Command {
    MenuId id;
    bool (EngineWindow::*enabled)() const;
    void (EngineWindow::*run)(const MenuEntry& entry);
  };
  static const Command* commandOf(MenuId id);

  // EngineHost.
  const Application& application() const override { return session_->application(); }
  RecordSession& session() override { return *session_; }
  void act(const std::function<void()>& event) override;
  void later(std::function<void()> event) override;
  double scale() const override { return scale_; }
  void openCalendar(int field) override;
  void scrollPage(int lines) override;
  void focusMoved(HWND control) override { lastFocus_ = control; }
  void setToolTip(HWND control, const std::string& text) override;

  // Making and arranging (EngineWindow.cpp).
  bool makeFrame();
  void makeParts();
  void makeTabs();
  void arrange();
  void rescale(double scale);
  void sizeFrame();
  void showTabs();
  void placePageTips();
  void updateWindowState();
  // Commands (EngineCommands.cpp).
  void makeMenu();
  void updateMenu();
  bool mayRun(const MenuEntry& entry) const override;
  void choose(const MenuEntry& entry) override;
  bool shows(const MenuEntry& entry) const;
  std::string searchCaption(const MenuEntry& entry) const;
  void navigate(int id);
  void openList(const MenuEntry&);
  void newList(const MenuEntry&);
  void openDataFile(bool save);
  void newEntry(const MenuEntry&);
  void clearEntry(const MenuEntry&);
  void editCommand(const MenuEntry& entry);
  void showHelp(const MenuEntry&);
  void showAbout(const MenuEntry&);
  void runProgram(const MenuEntry& entry);
  void exitProgram(const MenuEntry&);
  void find(const MenuEntry&);
  void replaceLine(const MenuEntry&);
  void sort(const MenuEntry& entry);
  void makeIndex(const MenuEntry&);
  void newView(const MenuEntry&);
  void deleteRecord(const MenuEntry&);
  void showCalculator(const MenuEntry&);
  void showUsers(const MenuEntry&);
  bool always() const { return true; }
  bool mayWrite() const;
  bool mayCopy() const;
  bool mayCut() const;
  bool mayPaste() const;
  bool hasHelp() const;
  bool mayEditUsers() const { return session_->mayEditUsers(); }
  bool isOpen() const { return session_->isOpen(); }
  bool maySearch() const { return tools_->searches().maySearch(); }
  bool maySort() const { return tools_->searches().maySort(); }
  bool mayIndex() const { return tools_->searches().mayIndex(); }
  bool mayReplace() const { return mayWrite() && maySearch(); }
  HWND focusedEdit() const;
  // Events (EngineEvents.cpp).
  bool preTranslate(const MSG& message);
  bool keyDown(int key);
  void focusNext(bool back);
  void restoreFocus();
  void flushLater();
  void timer(UINT_PTR id);
  void tendStopWatch();
  bool mayClose();
  void showPicturesAgain();
  void command(int id, int notice);

  EngineWindowServices services_;
  RecordSession* session_ = nullptr;
  std::unique_ptr<PageLayout> layout_;
  std::unique_ptr<PictureFiles> pictures_;
  std::unique_ptr<BoxWindows> boxes_;
  std::unique_ptr<PageWindow> page_;
  std::unique_ptr<ToolBar> toolBar_;
  std::unique_ptr<RecordPanel> panel_;
  std::unique_ptr<EngineTools> tools_;
  std::unique_ptr<ObjectTools> objects_;
  PageView view_;
  CalendarPopup calendar_;
  std::array<HWND, 5> tabs_{};
  HWND grip_ = nullptr, tips_ = nullptr, lastFocus_ = nullptr;
  MenuHandle menu_;
  std::deque<std::function<void()>> later_;
  int acting_ = 0;  // events being handled, one inside the other
  double scale_ = 1;
  UINT_PTR pageTips_ = 0;  // places of the page that have a tip
  bool stopWatchTimer_ = false, closing_ = false;
};

}  // namespace plinth
