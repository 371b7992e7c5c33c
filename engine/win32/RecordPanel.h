// The record box with the navigation buttons around it and the button for a new record. It stands in the tool
// bar, or on the page where the design puts it.
#pragma once

#include <array>

#include "engine/win32/EngineHost.h"
#include "engine/win32/Window.h"
#include "platform/win32/GdiCanvas.h"

namespace plinth {

class RecordPanel : public Window {
 public:
  explicit RecordPanel(EngineHost& host) : host_(host) {}
  bool open(HWND parent);
  // Left top corner in units of 1/96 inch; the size follows from the host's scale.
  void place(int left, int top);
  static SIZE sizeUnits();
  // Record number, count and what may be pressed.
  void show();
  HWND recordBox() const { return box_; }
  // Takes over what was typed into the record box. False when it does not have the focus.
  bool enter();

 protected:
  LRESULT message(UINT message, WPARAM wide, LPARAM param) override;

 private:
  void command(int id, int notice);
  void drawButton(const DRAWITEMSTRUCT& item) const;
  void paint();
  EngineHost& host_;
  std::array<HWND, 7> buttons_{};
  HWND box_ = nullptr;
  FontCache fonts_;
};

}  // namespace plinth
