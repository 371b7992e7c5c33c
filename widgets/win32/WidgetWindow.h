// What all widgets are: an object behind each window of a class, painted through a buffer, with colours, font
// and pointer that the parent sets.
#pragma once

#include <memory>
#include <string>

#include "platform/win32/GdiCanvas.h"
#include "widgets/ControlPainter.h"
#include "widgets/win32/WidgetClasses.h"

namespace plinth {

class WidgetWindow {
 public:
  explicit WidgetWindow(HWND window) : window_(window) {}
  virtual ~WidgetWindow() = default;
  WidgetWindow(const WidgetWindow&) = delete;
  WidgetWindow& operator=(const WidgetWindow&) = delete;

 protected:
  // Handles one message; a widget gives what it does not know to this one.
  virtual LRESULT message(UINT message, WPARAM wide, LPARAM param);
  // Fills all of the widget.
  virtual void paint(Canvas& canvas, SizePx size) = 0;
  // The pointer over the widget while the parent wants none of its own; nullptr: the class's.
  virtual HCURSOR ownPointer() { return nullptr; }

  HWND window() const { return window_; }
  HWND parent() const { return ::GetParent(window_); }
  SizePx size() const;
  DWORD style() const { return static_cast<DWORD>(::GetWindowLongPtrW(window_, GWL_STYLE)); }
  void setStyle(DWORD mask, DWORD bits);
  void repaint() const { ::InvalidateRect(window_, nullptr, FALSE); }
  // Colours as they are on this system, whatever was set.
  ControlColors colors() const;
  ControlState state() const;
  std::string text() const;  // in the code page of the font
  // WM_COMMAND to the parent.
  void tell(WORD notice) const;
  // The system's pointer of a number as kWidgetSetMousePointer knows them; nullptr for others.
  static HCURSOR pointerOf(int number);

  // A system colour as colours of ours name it.
  static constexpr std::int32_t systemColor(int number) {
    return static_cast<std::int32_t>(0x80000000u | static_cast<unsigned>(number));
  }

  ControlColors colors_{systemColor(COLOR_BTNFACE), systemColor(COLOR_WINDOW), systemColor(COLOR_WINDOWTEXT),
                        systemColor(COLOR_HIGHLIGHT)};
  FontSpec font_{"Arial", 8, false, false, false, 0};  // until one is set; points of the window's pixels

 private:
  friend class WidgetProcedure;
  HWND window_;
  void setFont(HFONT font);
  HFONT fontHandle_ = nullptr;
  HCURSOR pointer_ = nullptr;
  int depth_ = 0;  // messages being handled: a parent may destroy the widget that tells it something
  bool gone_ = false;
};

// Class names to objects.
class WidgetProcedure {
 public:
  using Make = std::unique_ptr<WidgetWindow> (*)(HWND);
  template <class T>
  static bool add(HINSTANCE program, const wchar_t* name, UINT classStyle = 0) {
    return add(program, name, classStyle, procedure<T>);
  }

 private:
  static bool add(HINSTANCE program, const wchar_t* name, UINT classStyle, WNDPROC procedure);
  static LRESULT dispatch(HWND window, UINT message, WPARAM wide, LPARAM param, Make make);
  template <class T>
  static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wide, LPARAM param) {
    return dispatch(window, message, wide, param,
                    [](HWND made) -> std::unique_ptr<WidgetWindow> { return std::make_unique<T>(made); });
  }
};

// The classes of each file, for registerWidgets().
bool registerScrollBars(HINSTANCE program);
bool registerComboBorder(HINSTANCE program);
bool registerClickWidgets(HINSTANCE program);
bool registerFrameWidgets(HINSTANCE program);
bool registerListPlus(HINSTANCE program);

}  // namespace plinth
