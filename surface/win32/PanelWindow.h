// The window of the property panel: controls in groups, made from what PropertyPanel tells. What they do is
// the panel's business.
#pragma once

#include <array>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "surface/PanelLayout.h"
#include "surface/PropertyPanel.h"
#include "surface/win32/FlatButton.h"
#include "surface/win32/PadWindow.h"

namespace plinth {

// What a person does in the panel.
struct PanelEvents {
  std::function<void(PanelId, const std::string&)> write;  // as PropertyPanel::write
  std::function<void(PanelId color)> openColors;           // a swatch was pressed
  std::function<void(int dx, int dy, bool ten)> pad;       // -1, 0 or 1 each; ten: ten units
  std::function<void()> focusPage;                         // done here: the keys belong to the page again
};

class PanelWindow {
 public:
  static constexpr int kWidth = 232;         // pixels at 96 dpi
  static constexpr int kFirstControl = 200;  // control ids: this and the PanelId
  static constexpr int kPadId = 240;

  // A child window of `parent` with this control id, without controls until show().
  PanelWindow(HWND parent, int id, PanelEvents events);
  ~PanelWindow();
  PanelWindow(const PanelWindow&) = delete;
  PanelWindow& operator=(const PanelWindow&) = delete;

  HWND window() const { return window_; }
  // Device pixels it wants to be wide.
  int width() const { return chrome_.px(kWidth); }
  HWND control(PanelId id) const { return parts_[static_cast<std::size_t>(id)].window; }

  // Shows what the panel holds; only what changed is touched. `panel` must outlive the window.
  void show(const PropertyPanel& panel);
  // The read-outs alone.
  void showPlaces(const PropertyPanel& panel);
  // Texts of the language, which are in labelPage. textPage: of the objects' texts, 0 for the same.
  void retext(const LabelSource& label, int labelPage, int textPage = 0);
  // Takes what was typed into a read-out as if the person had left it: a command must not pass it over.
  void finish();
  void scaleChanged();
  void setColors(const ChromeColors& colors);
  // To be asked for each message of the program before it is dispatched: true when the panel has used it, a
  // key that moves the focus or leaves the panel.
  bool translate(const MSG& message);

 private:
  template <class T>
  friend LRESULT CALLBACK windowProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
  struct Part {
    HWND window = nullptr, caption = nullptr;
    std::unique_ptr<FlatButton> button;
    RECT box = {};  // around an edit line, painted by the panel; empty for others
    std::string text;
    bool shown = false, enabled = true, checked = false;
    bool pending = false;  // a read-out that a person has changed and not finished
    std::int32_t color = 0;
  };
  Part& part(PanelId id) { return parts_[static_cast<std::size_t>(id)]; }
  LRESULT handle(UINT message, WPARAM wParam, LPARAM lParam);
  static bool isEdit(PanelInput input) { return input == PanelInput::text || input == PanelInput::number; }

  // Making and naming controls; PanelControls.cpp.
  void makeControls();
  void makeControl(const PanelControl& control);
  void makeFlat(const PanelControl& control, DWORD style);
  void makeCombo(const PanelControl& control, DWORD style);
  FlatButton::Glyph glyph(PanelId id) const;
  HWND makeChild(const wchar_t* type, DWORD style, int id) const;
  void makeFonts();
  void setFonts();
  void setTexts();
  void setTip(HWND over, const std::wstring& text);
  void dressWidgets();
  std::wstring labelText(PanelCaption caption) const;
  static LRESULT CALLBACK keyProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR id,
                                       DWORD_PTR self);
  static LRESULT CALLBACK wheelProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR id,
                                         DWORD_PTR self);
  wchar_t filtered(PanelId id, wchar_t typed) const;
  bool pasteFiltered(HWND edit, PanelId id) const;

  // Placing and painting; PanelWindow.cpp.
  void showControl(const PanelControl& control);
  void showText(const PanelControl& control);
  void layout();
  void arrange();
  void placeControl(PanelId id);
  RECT device(const RectPx& place) const;
  void scrollTo(int top);
  void reveal(HWND control);
  void paint();
  void paintHeading(HDC dc, const PanelHeading& heading) const;
  void paintIcon(HDC dc) const;
  LRESULT colorOf(UINT message, HDC dc, HWND control);

  // What a person does; PanelActions.cpp.
  void command(int id, int notice);
  void editChanged(PanelId id);
  void finishReadout(PanelId id);
  void clicked(PanelId id);
  void scrolled(HWND bar);
  void write(PanelId id, const std::string& value);
  void leave(bool keep);
  bool moveFocus(WPARAM key);
  HWND focusedChild() const;

  HWND window_ = nullptr, tips_ = nullptr, borderNumber_ = nullptr;
  PanelEvents events_;
  const PropertyPanel* panel_ = nullptr;
  LabelSource label_;
  int labelPage_ = 1252, textPage_ = 1252;
  ChromeStyle chrome_;
  FontHandle italic_, underlined_;
  BrushHandle ground_, box_;
  std::array<Part, kPanelControls> parts_;
  std::unique_ptr<PadWindow> pad_;
  PanelLayout layout_;
  std::optional<ObjectKind> icon_;
  bool filling_ = false;
  int scroll_ = 0, wheelRest_ = 0;  // device pixels
};

}  // namespace plinth
