// The window of the colour table, Config: swatches, a sample, six digits. It stays beside the page until it
// is closed, and hides then.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "surface/ColorTable.h"
#include "surface/DesignerDialogs.h"
#include "surface/win32/FlatButton.h"

namespace plinth {

struct ColorTableEvents {
  std::function<void(std::int32_t color)> use;
  std::function<void()> paletteChanged;            // a free swatch has another colour
  std::function<std::optional<POINT>()> position;  // left top corner kept from before, screen pixels
  std::function<void(POINT corner)> keepPosition;  // when it hides
};

class ColorTableWindow {
 public:
  // Control ids, for tests and assistive programs.
  static constexpr int kSwatchesId = 100, kDigitsId = 101, kUseId = 102, kMoreId = 103;

  // Belongs to `owner` and is hidden at first; table must outlive it.
  ColorTableWindow(HWND owner, ColorTable& table, ColorTableEvents events);
  ~ColorTableWindow();
  ColorTableWindow(const ColorTableWindow&) = delete;
  ColorTableWindow& operator=(const ColorTableWindow&) = delete;

  HWND window() const { return window_; }
  bool visible() const { return ::IsWindowVisible(window_); }
  // Comes up with a colour chosen: its swatch, if it is in the table.
  void open(std::int32_t color);
  void hide();
  // Paints the palette anew, after another project came.
  void refresh();
  void retext(const LabelSource& label, int labelPage);
  void scaleChanged();
  void setColors(const ChromeColors& colors);
  // To be asked for each message of the program before it is dispatched: true when the window has used it.
  bool translate(const MSG& message);

 private:
  class Swatches;
  template <class T>
  friend LRESULT CALLBACK windowProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
  LRESULT handle(UINT message, WPARAM wParam, LPARAM lParam);
  void makeFonts();
  void layout();
  void place();
  void paint();
  void command(int id, int notice);
  void chosen(bool writeDigits);
  void use();
  void more();
  LRESULT colorOf(UINT message, HDC dc) const;

  HWND window_ = nullptr, caption_ = nullptr, digits_ = nullptr;
  ColorTable& table_;
  ColorTableEvents events_;
  ChromeStyle chrome_;
  BrushHandle ground_, box_;
  std::unique_ptr<Swatches> swatches_;
  std::unique_ptr<FlatButton> use_, more_;
  RECT sample_ = {}, digitsBox_ = {};
  bool filling_ = false, placed_ = false;
};

}  // namespace plinth
