// A dialog of a finished application that is made from an empty template, so that Tab, Enter and Esc work as
// everywhere; its controls follow from the texts' sizes.
#pragma once

#include <optional>
#include <string>

#include "engine/Application.h"
#include "platform/win32/GdiCanvas.h"

namespace plinth {

class ModalDialog {
 public:
  explicit ModalDialog(const Application& application) : application_(application) {}
  virtual ~ModalDialog() = default;
  ModalDialog(const ModalDialog&) = delete;
  ModalDialog& operator=(const ModalDialog&) = delete;
  // Shows the dialog until it is closed; 1 when it was closed well.
  INT_PTR run(HWND owner);

 protected:
  virtual void build() = 0;
  virtual bool command(int id, int notice) = 0;  // true: closes the dialog well
  virtual void notify(const NMHDR&) {}
  // Other messages; the result for the system, nullopt for its own way.
  virtual std::optional<INT_PTR> other(UINT, WPARAM, LPARAM) { return std::nullopt; }
  // Esc and the title's cross: whether they close the dialog.
  virtual bool mayCancel() { return true; }

  std::string caption(int number, const char* fallback) const;
  int px(int units) const;
  HFONT font(float points, bool bold = false);
  HWND add(const wchar_t* kind, const std::string& text, DWORD style, const RectPx& place, int id,
           HFONT font);
  // Units that a text takes up.
  SizePx measure(const std::string& text, float points, bool bold = false);
  // Of the inside, in units; the middle stays where it is.
  void resize(int width, int height);
  HWND item(int id) const { return ::GetDlgItem(dialog_, id); }
  std::string textOf(int id) const;
  void setText(int id, const std::string& text) const;

  const Application& application_;
  HWND dialog_ = nullptr;

 private:
  void begin(HWND dialog);
  std::optional<INT_PTR> message(UINT message, WPARAM wide, LPARAM param);
  static INT_PTR CALLBACK procedure(HWND dialog, UINT message, WPARAM wide, LPARAM param);
  double scale_ = 1;
  FontCache fonts_;
};

}  // namespace plinth
