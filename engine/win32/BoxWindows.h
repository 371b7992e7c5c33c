// The child windows of a page: edit boxes, combos, memos, check boxes and buttons. They show what the record
// form holds and tell the session what the person does; they decide nothing.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "engine/win32/EngineHost.h"
#include "engine/win32/PageLayout.h"
#include "platform/win32/GdiCanvas.h"

namespace plinth {

enum class BoxType { none, field, combo, memo, check, button, dateButton };
struct BoxId {
  BoxType type = BoxType::none;
  int index = 0;
};
// What a control's number stands for.
BoxId boxOfId(int id);

class BoxWindows {
 public:
  // Both must outlive this.
  BoxWindows(EngineHost& host, const PageLayout& layout) : host_(host), layout_(layout) {}

  // Makes all windows, hidden, as children of the page. Once.
  void create(HWND page);
  // Puts them to their places with their fonts, at the host's present scale.
  void place();
  void showPage(int page);

  // From the form into one window, or all.
  void showField(int n);
  void showCombo(int n);
  void showMemo(int n);
  void showCheck(int n);
  void showAll();
  void enableButton(int n, bool enabled);

  // Messages that the page gets from its children; false: not one of them.
  bool command(int id, int notice, HWND control);
  bool drawItem(const DRAWITEMSTRUCT& item);
  // Brush and colours of a box; nullptr when it has none of its own.
  HBRUSH colors(HDC dc, HWND control);

  // Windows that Tab visits now: boxes in tab order, then buttons.
  std::vector<HWND> tabStops() const;
  // A press beside the letters but inside a box's frame gives it the focus; false when there is no box.
  bool focusBoxAt(PointPx point);
  // Presses the button that has the focus; false when none has it.
  bool clickFocusedButton() const;
  // Tells the session which box has the focus, where it came there unheard: behind a message box, say.
  void announceFocus();
  // Tells the session that the focused field was left and entered again, so that what was typed counts before
  // a command that moves no focus.
  void commitFocus();
  // The box of field n on the screen, below which its calendar drops down.
  RECT dateBoxOnScreen(int n) const;

 private:
  HWND make(const wchar_t* kind, DWORD style, int id, const std::string& caption = {});
  HWND listen(HWND window, int id);
  void createFields();
  void createCombos();
  void createMemos();
  void createChecks();
  void createButtons();
  void nameBoxes() const;
  void moveTo(HWND window, const RectPx& place) const;
  void placeField(int n);
  RECT device(const RectPx& rect) const;
  void setFont(HWND window, const PayloadFont& font);
  void setText(HWND window, const std::string& text);
  void setLocked(HWND window, bool locked) const;
  bool closed() const { return !host_.session().isOpen(); }
  const Application& app() const { return host_.application(); }
  std::wstring wide(std::string_view text) const;
  std::wstring wideText(HWND window) const;

  // Events (BoxEvents.cpp).
  static LRESULT CALLBACK subclass(HWND window, UINT message, WPARAM wide, LPARAM param, UINT_PTR id,
                                   DWORD_PTR self);
  std::optional<LRESULT> boxMessage(HWND window, UINT message, WPARAM wide, LPARAM param, BoxId box);
  bool keyDown(HWND window, BoxId box, int key);
  std::optional<wchar_t> keyPress(HWND window, BoxId box, wchar_t ch);
  void openMenu(HWND edit, LPARAM point);
  void gotFocus(BoxId box, HWND control);
  void edited(BoxId box, HWND control);
  void comboNotice(int n, int notice, HWND control);
  void clicked(int button, HWND control);

  EngineHost& host_;
  const PageLayout& layout_;
  HWND page_ = nullptr;
  std::vector<HWND> fields_, combos_, memos_, checks_, buttons_, dateButtons_;
  FontCache fonts_;
  std::map<COLORREF, BrushHandle> brushes_;
  bool showing_ = false;        // texts come from the form: changes are not the person's
  bool dropCharacter_ = false;  // of the last key
  int shownPage_ = 0;
};

}  // namespace plinth
