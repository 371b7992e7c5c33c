// A window beside the main one (search, results, progress): it stays above its owner, its controls are
// reached by Tab, Enter and Esc, and its texts are the application's.
#pragma once

#include <string>
#include <vector>

#include "engine/Application.h"
#include "engine/win32/Window.h"
#include "platform/Settings.h"
#include "platform/win32/GdiCanvas.h"

namespace plinth {

class ToolWindow : public Window {
 public:
  explicit ToolWindow(const Application& application) : application_(application) {}
  bool visible() const { return handle() && ::IsWindowVisible(handle()); }
  // Whether a message of the thread's queue was one of this window's keys; it is then done with.
  bool takes(const MSG& message) const;

 protected:
  // What a window does not handle itself: the grey paper behind its controls, and all else as usual.
  LRESULT standard(UINT message, WPARAM wide, LPARAM param);
  // Makes the window, hidden, above `owner`; sizes in units of 1/96 inch of its inside.
  bool openAbove(HWND owner, const wchar_t* className, const std::string& title, DWORD style, SIZE inside);
  HWND add(const wchar_t* kind, const std::string& text, DWORD style, int id, DWORD extended = 0);
  void put(int id, int left, int top, int width, int height) const;
  HWND item(int id) const { return ::GetDlgItem(handle(), id); }
  std::string textOf(int id) const;
  void setText(int id, const std::string& text) const;
  // The application's caption of a number, or plain words where it has none.
  std::string caption(int number, const char* plain) const;
  int px(int units) const;
  int units(int pixels) const;
  SIZE inside() const;  // in units
  // In the middle of its owner, or `step` windows further down and right.
  void centre(HWND owner, int step = 0);
  // Right of its owner; where the screen ends before that, as far to the right and as low as it goes, for the
  // owner shows what this window works on.
  void standBeside(HWND owner);
  // The part of a window's screen that windows may fill.
  static RECT workAreaAround(HWND window);
  // Sends the font of this window's scale to all controls.
  void setFonts();
  std::wstring wide(std::string_view text) const;
  // Places kept between runs, in pixels; the fallback where nothing was kept or no screen shows it any more.
  void restorePlace(const Settings& settings, const std::string& prefix);
  void keepPlace(Settings& settings, const std::string& prefix) const;

  const Application& application_;
  double scale_ = 1;

 private:
  FontCache fonts_;
};

}  // namespace plinth
