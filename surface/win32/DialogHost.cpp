// Rows to controls in order, so that the Tab key walks them as they are listed; Enter and Esc are the
// system's own.
#include "surface/win32/DialogHost.h"

#include <commctrl.h>
#include <shlobj.h>

#include <algorithm>
#include <vector>

#include "platform/win32/GdiCanvas.h"
#include "platform/win32/Win32Text.h"
#include "surface/win32/WindowTools.h"

namespace plinth {

namespace {

constexpr int kMargin = 14, kGap = 8, kRowHeight = 23, kLineHeight = 15, kLabelShare = 40, kPicture = 48;
constexpr int kButtonHeight = 26, kButtonWidth = 88, kBrowseWidth = 30;
constexpr int kBrowseIds = 10000;  // a folder row's button has its id and this

// A dialog template without controls, as DialogBoxIndirectParam wants it in memory.
struct EmptyTemplate {
  DLGTEMPLATE head = {DS_MODALFRAME | WS_POPUP | WS_CAPTION | WS_SYSMENU, 0, 0, 0, 0, 10, 10};
  WORD menu = 0, windowClass = 0, title = 0;
};

int CALLBACK startFolder(HWND window, UINT message, LPARAM, LPARAM folder) {
  if (message == BFFM_INITIALIZED) ::SendMessageW(window, BFFM_SETSELECTIONW, TRUE, folder);
  return 0;
}

// The folder a person chooses; "" when he does not.
std::string chooseFolder(HWND owner, const std::string& now) {
  const std::wstring start = toWide(now, systemCodePage());
  BROWSEINFOW browse = {};
  browse.hwndOwner = owner;
  browse.ulFlags = BIF_RETURNONLYFSDIRS | BIF_NEWDIALOGSTYLE;
  browse.lpfn = startFolder;
  browse.lParam = reinterpret_cast<LPARAM>(start.c_str());
  PIDLIST_ABSOLUTE chosen = ::SHBrowseForFolderW(&browse);
  if (!chosen) return "";
  std::wstring path(MAX_PATH, L'\0');
  const bool found = ::SHGetPathFromIDListW(chosen, path.data());
  ::CoTaskMemFree(chosen);
  return found ? fromWide(path.c_str(), systemCodePage()) : "";
}

class DialogWindow {
 public:
  explicit DialogWindow(const DialogSpec& spec) : spec_(spec) {}

  static INT_PTR CALLBACK procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_INITDIALOG) ::SetWindowLongPtrW(window, DWLP_USER, lParam);
    auto* self = reinterpret_cast<DialogWindow*>(::GetWindowLongPtrW(window, DWLP_USER));
    if (!self) return FALSE;
    try {
      if (message != WM_INITDIALOG) return self->handle(message, wParam, lParam);
      self->build(window);
      return FALSE;  // the focus is set
    } catch (...) {
      return FALSE;  // no exception crosses into the system
    }
  }

 private:
  int px(int pixels) const { return static_cast<int>(pixels * scale_ + 0.5); }
  int codePageOf(const DialogRow& row) const {
    return row.kind == RowKind::folder ? systemCodePage() : spec_.codePage;
  }
  HWND control(int id) const { return ::GetDlgItem(window_, id); }

  void build(HWND window) {
    window_ = window;
    scale_ = windowScale(window);
    font_ = messageFont(scale_);
    bold_ = messageFont(scale_, true);
    ::SetWindowTextW(window, toWide(spec_.title, spec_.codePage).c_str());
    tips_ =
        ::CreateWindowExW(WS_EX_TOPMOST, TOOLTIPS_CLASSW, nullptr, WS_POPUP | TTS_ALWAYSTIP | TTS_NOPREFIX, 0,
                          0, 0, 0, window, nullptr, nullptr, nullptr);
    y_ = kMargin;
    labelWidth_ = widestLabel();
    for (const DialogRow& row : spec_.rows) addRow(row);
    addButtons();
    place();
    refresh();
    const HWND first = ::GetNextDlgTabItem(window, nullptr, FALSE);
    ::SetFocus(first);
    ::SendMessageW(first, EM_SETSEL, 0, -1);
  }

  HWND add(const wchar_t* type, const std::wstring& text, DWORD style, DWORD exStyle, RECT at, int id) {
    const HWND made =
        ::CreateWindowExW(exStyle, type, text.c_str(), WS_CHILD | WS_VISIBLE | style, px(at.left), px(at.top),
                          px(at.right - at.left), px(at.bottom - at.top), window_,
                          reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)), nullptr, nullptr);
    ::SendMessageW(made, WM_SETFONT, reinterpret_cast<WPARAM>(font_.get()), FALSE);
    return made;
  }

  // Width in 96 dpi pixels of a text in the dialog's font.
  int widthOf(const std::wstring& text, const FontHandle& font) const {
    const WindowDc dc(window_);
    const Selected selected(dc.get(), font.get());
    RECT area = {};
    ::DrawTextW(dc.get(), text.c_str(), -1, &area, DT_CALCRECT | DT_SINGLELINE);
    return static_cast<int>((area.right + 1) / scale_) + 1;
  }

  static bool hasLabelBeside(const DialogRow& row) {
    return !row.label.empty() && (row.kind == RowKind::text || row.kind == RowKind::memo ||
                                  row.kind == RowKind::list || row.kind == RowKind::folder);
  }

  int widestLabel() const {
    int widest = 0;
    for (const DialogRow& row : spec_.rows)
      if (hasLabelBeside(row)) widest = std::max(widest, widthOf(toWide(row.label, spec_.codePage), font_));
    return widest == 0 ? 0 : std::min(widest, spec_.width * kLabelShare / 100) + kGap;
  }

  void addLabel(const DialogRow& row, int lines) {
    if (row.label.empty()) return;
    add(L"STATIC", toWide(row.label, spec_.codePage), SS_LEFT, 0,
        {kMargin, y_ + 4, kMargin + labelWidth_ - kGap, y_ + 4 + lines * kLineHeight}, -1);
  }

  void addRow(const DialogRow& row) {
    const int left = kMargin + labelWidth_, right = kMargin + spec_.width;
    const std::wstring value = row.get ? toWide(row.get(), codePageOf(row)) : L"";
    const std::wstring label = toWide(row.label, spec_.codePage);
    const int top = y_;
    switch (row.kind) {
      case RowKind::text:
      case RowKind::folder: {
        const int browse = row.kind == RowKind::folder ? kBrowseWidth + 4 : 0;
        addLabel(row, 1);
        add(L"EDIT", value, ES_AUTOHSCROLL | WS_TABSTOP, WS_EX_CLIENTEDGE,
            {left, y_, right - browse, y_ + kRowHeight}, row.id);
        if (browse > 0)
          add(L"BUTTON", L"...", BS_PUSHBUTTON | WS_TABSTOP, 0,
              {right - kBrowseWidth, y_, right, y_ + kRowHeight}, row.id + kBrowseIds);
        y_ += kRowHeight + kGap;
        break;
      }
      case RowKind::memo: {
        const int high = row.lines * kLineHeight + 6;
        addLabel(row, 2);
        add(L"EDIT", value, ES_MULTILINE | ES_AUTOVSCROLL | ES_WANTRETURN | WS_VSCROLL | WS_TABSTOP,
            WS_EX_CLIENTEDGE, {left, y_, right, y_ + high}, row.id);
        y_ += high + kGap;
        break;
      }
      case RowKind::list:
        addList(row, left, right);
        break;
      case RowKind::picture:  // in the label's column beside the row before it
        add(L"STATIC", L"", SS_OWNERDRAW, 0,
            {kMargin, listTop_ + 2 * kLineHeight + kGap, kMargin + kPicture,
             listTop_ + 2 * kLineHeight + kGap + kPicture},
            row.id);
        break;
      case RowKind::check: {
        const HWND box = add(L"BUTTON", label, BS_AUTOCHECKBOX | WS_TABSTOP, 0,
                             {left, y_, right, y_ + kRowHeight}, row.id);
        if (row.get && !row.get().empty()) ::SendMessageW(box, BM_SETCHECK, BST_CHECKED, 0);
        y_ += kRowHeight + kGap;
        break;
      }
      case RowKind::note:
        addNote(label, value, right);
        break;
      case RowKind::button:
        buttons_.push_back(&row);
        break;
      case RowKind::choice:
        add(L"BUTTON", label, BS_PUSHBUTTON | WS_TABSTOP, 0, {left, y_, right, y_ + kButtonHeight}, row.id);
        y_ += kButtonHeight + kGap / 2;
        break;
    }
    addTip(row, {left, top, right, y_});
  }

  void addList(const DialogRow& row, int left, int right) {
    listTop_ = y_;
    addLabel(row, 2);
    const int high = row.lines * kLineHeight + 6;
    const HWND list = add(L"LISTBOX", L"", LBS_NOTIFY | LBS_NOINTEGRALHEIGHT | WS_VSCROLL | WS_TABSTOP,
                          WS_EX_CLIENTEDGE, {left, y_, right, y_ + high}, row.id);
    for (const std::string& item : row.items()) {
      const auto at = ::SendMessageW(list, LB_ADDSTRING, 0,
                                     reinterpret_cast<LPARAM>(toWide(item, spec_.codePage).c_str()));
      if (row.get && item == row.get()) ::SendMessageW(list, LB_SETCURSEL, static_cast<WPARAM>(at), 0);
    }
    y_ += high + kGap;
  }

  void addNote(const std::wstring& title, const std::wstring& text, int right) {
    const HWND head =
        add(L"STATIC", title, SS_LEFT | SS_NOPREFIX, 0, {kMargin, y_, right, y_ + kLineHeight + 2}, -1);
    ::SendMessageW(head, WM_SETFONT, reinterpret_cast<WPARAM>(bold_.get()), FALSE);
    y_ += kLineHeight + kGap;
    const WindowDc dc(window_);
    const Selected selected(dc.get(), font_.get());
    RECT area{0, 0, px(spec_.width), 0};
    ::DrawTextW(dc.get(), text.c_str(), -1, &area, DT_CALCRECT | DT_WORDBREAK | DT_NOPREFIX);
    const int high = static_cast<int>(area.bottom / scale_) + 2;
    add(L"STATIC", text, SS_LEFT | SS_NOPREFIX, 0, {kMargin, y_, right, y_ + high}, -1);
    y_ += high + kGap;
  }

  // A tip also answers over a control that cannot be used and gets no mouse: so it belongs to the place.
  void addTip(const DialogRow& row, RECT at) {
    if (row.toolTip.empty() || row.kind == RowKind::button) return;
    const bool usable = !row.enabledWhen || row.enabledWhen();
    tip(row, usable ? control(row.id) : nullptr, {px(at.left), px(at.top), px(at.right), px(at.bottom)});
  }

  void tip(const DialogRow& row, HWND over, RECT at) {
    std::wstring text = toWide(row.toolTip, spec_.codePage);
    TTTOOLINFOW tool = {};
    tool.cbSize = TTTOOLINFOW_V1_SIZE;
    tool.uFlags = TTF_SUBCLASS | (over ? TTF_IDISHWND : 0u);
    tool.hwnd = window_;
    tool.uId = over ? reinterpret_cast<UINT_PTR>(over) : static_cast<UINT_PTR>(row.id);
    tool.rect = at;
    tool.lpszText = text.data();
    ::SendMessageW(tips_, TTM_ADDTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
  }

  int buttonWidth(const std::wstring& text) const {
    return std::max(kButtonWidth, widthOf(text, font_) + 24);
  }

  void addButtons() {
    y_ += kGap;
    int left = kMargin;
    for (const DialogRow* row : buttons_) {
      const std::wstring text = toWide(row->label, spec_.codePage);
      const int wide = buttonWidth(text);
      const HWND button = add(L"BUTTON", text, BS_PUSHBUTTON | WS_TABSTOP, 0,
                              {left, y_, left + wide, y_ + kButtonHeight}, row->id);
      if (!row->toolTip.empty()) tip(*row, button, {});
      left += wide + kGap;
    }
    int right = kMargin + spec_.width;
    const std::wstring ok = toWide(spec_.ok, spec_.codePage), cancel = toWide(spec_.cancel, spec_.codePage);
    const int cancelWidth = spec_.cancel.empty() ? 0 : buttonWidth(cancel), okWidth = buttonWidth(ok);
    const int okRight = cancelWidth == 0 ? right : right - cancelWidth - kGap;
    if (!ok.empty())
      add(L"BUTTON", ok, BS_DEFPUSHBUTTON | WS_TABSTOP, 0,
          {okRight - okWidth, y_, okRight, y_ + kButtonHeight}, IDOK);
    if (cancelWidth > 0)
      add(L"BUTTON", cancel, BS_PUSHBUTTON | WS_TABSTOP, 0,
          {right - cancelWidth, y_, right, y_ + kButtonHeight}, IDCANCEL);
    y_ += kButtonHeight + kMargin;
  }

  // As large as its rows, in the middle of its owner and on the screen.
  void place() {
    RECT area{0, 0, px(spec_.width + 2 * kMargin), px(y_)};
    ::AdjustWindowRectEx(&area, static_cast<DWORD>(::GetWindowLongW(window_, GWL_STYLE)), FALSE,
                         static_cast<DWORD>(::GetWindowLongW(window_, GWL_EXSTYLE)));
    const int wide = area.right - area.left, high = area.bottom - area.top;
    const HWND owner = ::GetWindow(window_, GW_OWNER);
    MONITORINFO monitor = {};
    monitor.cbSize = sizeof monitor;
    ::GetMonitorInfoW(::MonitorFromWindow(owner ? owner : window_, MONITOR_DEFAULTTONEAREST), &monitor);
    RECT around = monitor.rcWork;
    if (owner && ::IsWindowVisible(owner) && !::IsIconic(owner)) ::GetWindowRect(owner, &around);
    const auto within = [](LONG at, int size, LONG from, LONG to) {
      return std::max(from, std::min(at, to - static_cast<LONG>(size)));
    };
    const LONG left =
        within((around.left + around.right - wide) / 2, wide, monitor.rcWork.left, monitor.rcWork.right);
    const LONG top =
        within((around.top + around.bottom - high) / 2, high, monitor.rcWork.top, monitor.rcWork.bottom);
    ::SetWindowPos(window_, nullptr, left, top, wide, high, SWP_NOZORDER);
  }

  void refresh() {
    for (const DialogRow& row : spec_.rows) {
      if (row.enabledWhen) ::EnableWindow(control(row.id), row.enabledWhen());
      if (row.kind == RowKind::picture) {
        picture_ = row.image ? row.image() : nullptr;
        ::InvalidateRect(control(row.id), nullptr, TRUE);
      }
    }
    ::EnableWindow(control(IDOK), !spec_.okWhen || spec_.okWhen());
  }

  void paintPicture(const DRAWITEMSTRUCT& item) const {
    GdiCanvas canvas(item.hDC, scale_);
    canvas.box({0, 0, kPicture, kPicture}, {LineStyle::solid, 1, 0xB0B0B0},
               {FillStyle::solid, 0xFFFFFF, false, 0});
    if (!picture_) return;
    const SizePx size = picture_->size();
    const int wide = std::min(size.width, kPicture - 4), high = std::min(size.height, kPicture - 4);
    canvas.picture({(kPicture - wide) / 2, (kPicture - high) / 2, wide, high}, *picture_);
  }

  void store(const DialogRow& row) {
    if (!row.set) return;
    if (row.kind == RowKind::check) {
      row.set(::SendMessageW(control(row.id), BM_GETCHECK, 0, 0) == BST_CHECKED ? "1" : "");
    } else if (row.kind == RowKind::list) {
      const auto at = ::SendMessageW(control(row.id), LB_GETCURSEL, 0, 0);
      const std::vector<std::string> items = row.items();
      if (at >= 0 && at < static_cast<LRESULT>(items.size())) row.set(items[static_cast<std::size_t>(at)]);
    } else {
      row.set(windowText(control(row.id), codePageOf(row)));
    }
  }

  void command(int id, int notice) {
    if (id == IDOK && !::IsWindowEnabled(control(IDOK))) return;  // Enter also comes when the button is grey
    if (id == IDOK || id == IDCANCEL) {
      ::EndDialog(window_, id == IDOK);
      return;
    }
    for (const DialogRow& row : spec_.rows) {
      if (id == row.id + kBrowseIds && row.kind == RowKind::folder) {
        const std::string chosen = chooseFolder(window_, row.get());
        if (!chosen.empty()) ::SetWindowTextW(control(row.id), toWide(chosen, systemCodePage()).c_str());
      }
      if (id != row.id) continue;
      const bool edit = row.kind == RowKind::text || row.kind == RowKind::memo || row.kind == RowKind::folder;
      if (row.kind == RowKind::button && notice == BN_CLICKED && row.press) row.press();
      if (row.kind == RowKind::choice && notice == BN_CLICKED) {
        if (row.press) row.press();
        ::EndDialog(window_, TRUE);
        return;
      }
      if ((edit && notice == EN_CHANGE) || (row.kind == RowKind::check && notice == BN_CLICKED) ||
          (row.kind == RowKind::list && notice == LBN_SELCHANGE)) {
        store(row);
        refresh();
      }
    }
  }

  INT_PTR handle(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
      case WM_COMMAND:
        command(LOWORD(wParam), HIWORD(wParam));
        return TRUE;
      case WM_DRAWITEM:
        paintPicture(*reinterpret_cast<const DRAWITEMSTRUCT*>(lParam));
        return TRUE;
      case WM_CLOSE:
        ::EndDialog(window_, FALSE);
        return TRUE;
      default:
        return FALSE;
    }
  }

  const DialogSpec& spec_;
  HWND window_ = nullptr, tips_ = nullptr;
  double scale_ = 1;
  FontHandle font_, bold_;
  std::vector<const DialogRow*> buttons_;
  std::shared_ptr<Image> picture_;
  int y_ = 0, labelWidth_ = 0, listTop_ = 0;
};

}  // namespace

bool DialogHost::run(const DialogSpec& spec) {
  alignas(4) static const EmptyTemplate kTemplate;
  DialogWindow dialog(spec);
  HWND owner = owner_ ? owner_() : nullptr;
  const HWND popup = owner ? ::GetLastActivePopup(owner) : nullptr;  // a dialog opened from a dialog
  return ::DialogBoxIndirectParamW(::GetModuleHandleW(nullptr), &kTemplate.head, popup ? popup : owner,
                                   DialogWindow::procedure, reinterpret_cast<LPARAM>(&dialog)) == TRUE;
}

}  // namespace plinth
