// Buttons, check boxes and swatches of the designer's own windows: the system's button underneath, so that
// keyboard and assistive programs meet what they know, with a flat face in the colours of light and dark.
#pragma once

#include <cstdint>
#include <functional>

#include "platform/win32/Handles.h"
#include "surface/win32/ChromeColors.h"

namespace plinth {

// What all controls of a window paint with; the window owns it and changes it when scale or colours do.
struct ChromeStyle {
  ChromeColors colors;
  double scale = 1;
  FontHandle font, heading;
  int px(int pixels) const { return static_cast<int>(pixels * scale + 0.5); }
};

enum class FlatLook {
  push,
  check,   // a mark before the text, which may wrap
  toggle,  // pressed in while it is checked
  swatch   // shows a colour
};

class FlatButton {
 public:
  // Paints a toggle's picture in the middle of a rectangle in device pixels.
  using Glyph = std::function<void(HDC dc, const RECT& rect, std::int32_t ink)>;

  // Makes the button as a child of `parent`: `text` is its name, shown by push buttons and checks. style
  // gives BS_ and WS_ bits; the window must outlive this, and `chrome` both.
  FlatButton(HWND parent, int id, FlatLook look, const wchar_t* text, DWORD style, const ChromeStyle& chrome,
             Glyph glyph = {});
  ~FlatButton();
  FlatButton(const FlatButton&) = delete;
  FlatButton& operator=(const FlatButton&) = delete;

  HWND window() const { return window_; }
  void setColor(std::int32_t color);  // of a swatch
  // Height that a check needs for its text at a width; both in device pixels.
  static int checkHeight(HWND anyWindow, const wchar_t* text, int width, const ChromeStyle& chrome);

 private:
  static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR id,
                                    DWORD_PTR self);
  LRESULT handle(UINT message, WPARAM wParam, LPARAM lParam);
  void paint();
  void paintCheck(HDC dc, const RECT& client, bool checked) const;
  void paintFace(HDC dc, const RECT& client, bool checked, bool pressed) const;

  HWND window_ = nullptr;
  FlatLook look_;
  const ChromeStyle& chrome_;
  Glyph glyph_;
  std::int32_t color_ = 0;
  bool hot_ = false;
};

// A rectangle in device pixels.
void fillRect(HDC dc, const RECT& rect, std::int32_t color);
// A rounded box in device pixels with an outline `edgeWidth` wide.
void paintBox(HDC dc, const RECT& rect, std::int32_t fill, std::int32_t edge, int edgeWidth, int radius);
// Text of one line, or wrapped when told; DT_ flags.
void paintText(HDC dc, RECT rect, const wchar_t* text, HFONT font, std::int32_t ink, UINT flags);

}  // namespace plinth
