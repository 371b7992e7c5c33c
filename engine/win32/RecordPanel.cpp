// Buttons say "<<<" to programs and show arrows to people.
#include "engine/win32/RecordPanel.h"

#include <cmath>

#include "engine/win32/ControlIds.h"
#include "platform/win32/GdiBitmap.h"
#include "platform/win32/Win32Text.h"
#include "widgets/PagePainter.h"
#include "widgets/RecordPanelPlaces.h"

namespace plinth {
namespace {

constexpr int kWide = kRecordPanelWidth, kHigh = kRecordPanelHeight, kBoxLeft = kRecordPanelBoxLeft,
              kBoxWide = kRecordPanelBoxWidth, kCountRoom = kRecordPanelCountWidth - 2;
// A million records and more are counted in smaller letters.
constexpr float kLeastPoints = 6;
constexpr std::int32_t kFace = 0xF5F5F5;

struct PanelButton {
  const wchar_t* text;
  int caption;  // RunCaption of the tool tip
  const char* fallback;
};
// As kRecordPanelButtons lists them.
constexpr std::array<PanelButton, 7> kButtons{{
    {L"<<<", 2, "<<<"},
    {L"<<", 3, "<<"},
    {L"<", 4, "<"},
    {L">", 5, ">"},
    {L">>", 6, ">>"},
    {L">>>", 7, ">>>"},
    {L"<>", 9, "<>"},
}};
const FontSpec kFont{"Arial", 9, false, false, false, 0};

}  // namespace

SIZE RecordPanel::sizeUnits() { return {kWide, kHigh}; }

bool RecordPanel::open(HWND parent) {
  Request request;
  request.className = L"PlinthRecordPanel";
  request.style = WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN | WS_CLIPSIBLINGS;
  request.extended = WS_EX_CONTROLPARENT;
  request.parent = parent;
  if (!create(request)) return false;
  for (int i = 0; i < static_cast<int>(kButtons.size()); ++i) {
    const PanelButton& row = kButtons[static_cast<std::size_t>(i)];
    const HWND button = buttons_[static_cast<std::size_t>(i)] = ::CreateWindowExW(
        0, L"BUTTON", row.text, WS_CHILD | WS_VISIBLE | BS_OWNERDRAW, 0, 0, 10, 10, handle(),
        reinterpret_cast<HMENU>(static_cast<INT_PTR>(kNavigationId + i)), nullptr, nullptr);
    host_.setToolTip(button, runCaption(host_.application(), row.caption, row.fallback));
  }
  box_ = ::CreateWindowExW(
      0, L"EDIT", L"", WS_CHILD | WS_VISIBLE | WS_BORDER | WS_TABSTOP | ES_NUMBER | ES_CENTER, 0, 0, 10, 10,
      handle(), reinterpret_cast<HMENU>(static_cast<INT_PTR>(kRecordBoxId)), nullptr, nullptr);
  ::SendMessageW(box_, EM_LIMITTEXT, 10, 0);
  host_.setToolTip(box_, runCaption(host_.application(), 8, ""));
  return box_ != nullptr;
}

void RecordPanel::place(int left, int top) {
  const double scale = host_.scale();
  const auto px = [scale](int units) { return static_cast<int>(std::lround(units * scale)); };
  ::SetWindowPos(handle(), HWND_TOP, px(left), px(top), px(kWide), px(kHigh), SWP_NOACTIVATE);
  for (std::size_t i = 0; i < kButtons.size(); ++i)
    ::SetWindowPos(buttons_[i], nullptr, px(kRecordPanelButtons[i].left), 0, px(kRecordPanelButton),
                   px(kHigh), SWP_NOZORDER | SWP_NOACTIVATE);
  const int line = px(20);
  ::SetWindowPos(box_, nullptr, px(kBoxLeft), (px(kHigh) - line) / 2, px(kBoxWide), line,
                 SWP_NOZORDER | SWP_NOACTIVATE);
  ::SendMessageW(box_, WM_SETFONT,
                 reinterpret_cast<WPARAM>(
                     fonts_.get(kFont, static_cast<int>(std::lround(kFont.points * 96 / 72 * scale)))),
                 TRUE);
}

void RecordPanel::show() {
  RecordSession& session = host_.session();
  const bool open = session.isOpen();
  const std::string text = open ? session.text1() : "";
  ::SetWindowTextW(box_, std::wstring(text.begin(), text.end()).c_str());
  ::EnableWindow(box_, open);
  for (std::size_t i = 0; i < buttons_.size(); ++i)
    ::EnableWindow(buttons_[i], open && (i < 6 || !session.readOnly()));
  ::InvalidateRect(handle(), nullptr, FALSE);
}

bool RecordPanel::enter() {
  if (::GetFocus() != box_) return false;
  wchar_t text[32] = {};
  const int length = ::GetWindowTextW(box_, text, 32);
  const std::string number(text, text + length);
  host_.act([&] { host_.session().text1Enter(number); });
  show();
  ::SendMessageW(box_, EM_SETSEL, 0, -1);
  return true;
}

void RecordPanel::command(int id, int notice) {
  if (id == kRecordBoxId && notice == EN_KILLFOCUS) show();
  if (id < kNavigationId || id > kNewRecordId || notice != BN_CLICKED) return;
  // The main window knows what comes before and after a move.
  ::SendMessageW(::GetAncestor(handle(), GA_ROOT), WM_COMMAND, MAKEWPARAM(id, 0), 0);
}

void RecordPanel::drawButton(const DRAWITEMSTRUCT& item) const {
  const int index = static_cast<int>(item.CtlID) - kNavigationId;
  if (index < 0 || index >= static_cast<int>(kButtons.size())) return;
  ButtonItem look;
  look.rect = {0, 0, kRecordPanelButton, kHigh};
  look.backColor = kFace;
  look.foreColor = 0x804000;
  look.icon = kRecordPanelButtons[static_cast<std::size_t>(index)].icon;
  look.pressed = (item.itemState & ODS_SELECTED) != 0;
  look.enabled = (item.itemState & ODS_DISABLED) == 0;
  GdiCanvas canvas(item.hDC, host_.scale());
  paintItem(look, canvas);
}

void RecordPanel::paint() {
  BufferedPaint buffer(handle());
  GdiCanvas canvas(buffer.dc(), host_.scale());
  canvas.box({0, 0, kWide, kHigh}, {LineStyle::none, 1, 0}, {FillStyle::solid, kFace, false, kFace});
  if (!host_.session().isOpen()) return;
  const std::string count = "/ " + std::to_string(host_.session().recCount());
  FontSpec letters = kFont;
  while (letters.points > kLeastPoints && canvas.measure(count, letters).width > kCountRoom) --letters.points;
  canvas.text({kBoxLeft + kBoxWide + 4, 0, kCountRoom, kHigh}, count, letters, 0x404040, TextAlign::left,
              false, true);
}

LRESULT RecordPanel::message(UINT message, WPARAM wide, LPARAM param) {
  switch (message) {
    case WM_COMMAND:
      command(LOWORD(wide), HIWORD(wide));
      return 0;
    case WM_DRAWITEM:
      drawButton(*reinterpret_cast<const DRAWITEMSTRUCT*>(param));
      return TRUE;
    case WM_ERASEBKGND:
      return 1;
    case WM_PAINT:
      paint();
      return 0;
    default:
      return standard(message, wide, param);
  }
}

}  // namespace plinth
