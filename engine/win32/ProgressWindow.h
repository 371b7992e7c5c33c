// How far long work has come (Form4), with a button that stops it. While it works the main window takes
// nothing; short work shows no window at all.
#pragma once

#include "engine/win32/ToolWindow.h"
#include "platform/Progress.h"

namespace plinth {

class ProgressWindow : public ToolWindow, public Progress {
 public:
  using ToolWindow::ToolWindow;
  // Once, above the main window.
  bool open(HWND owner);

  void title(std::string_view text) override;
  void setCancellable(bool cancellable) override;
  bool step(std::int64_t done, std::int64_t total) override;

 protected:
  LRESULT message(UINT message, WPARAM wide, LPARAM param) override;

 private:
  HWND owner_ = nullptr, focus_ = nullptr;  // focus_: the window that had the keyboard before
  bool working_ = false, cancellable_ = true, cancelled_ = false;
  ULONGLONG began_ = 0, drawn_ = 0;
};

// Handles the thread's waiting messages; those of disabled windows do nothing. The quit message stays in the
// queue.
void pumpWaitingMessages(const ToolWindow* window);

}  // namespace plinth
