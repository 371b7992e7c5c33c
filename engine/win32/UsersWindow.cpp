#include "engine/win32/UsersWindow.h"

#include <commctrl.h>

#include "engine/UserTableEditor.h"
#include "engine/win32/AccessibleNames.h"
#include "engine/win32/ModalDialog.h"
#include "engine/win32/Window.h"
#include "platform/win32/Win32Text.h"
#include "widgets/win32/WidgetClasses.h"

namespace plinth {
namespace {

constexpr int kNumberId = 100, kNameId = 120, kPasswordId = 140, kReadOnlyId = 160, kRemoveId = 180;
constexpr int kScrollId = 200, kCloseId = 201;
constexpr int kRows = UserTableEditor::kRows;
constexpr WPARAM kMostLetters = 250;
constexpr const char* kNoPassword = "System needs a main password...";
constexpr int kWheelRows = 3;

// Of the columns, in units.
constexpr int kLeft = 16, kTop = 34, kStep = 26, kBoxHigh = 22, kNumberWide = 70, kNameWide = 150,
              kPasswordWide = 150, kCheckWide = 70, kRemoveWide = 76, kGap = 8, kBarWide = 16;
constexpr int kNameLeft = kLeft + kNumberWide + kGap, kPasswordLeft = kNameLeft + kNameWide + kGap,
              kCheckLeft = kPasswordLeft + kPasswordWide + kGap, kRemoveLeft = kCheckLeft + kCheckWide + kGap,
              kBarLeft = kRemoveLeft + kRemoveWide + kGap, kWide = kBarLeft + kBarWide + kLeft;

class UsersWindow : public ModalDialog {
 public:
  UsersWindow(const Application& application, UserTableEditor& editor, Messages& messages)
      : ModalDialog(application), editor_(editor), messages_(messages) {}

 protected:
  void build() override {
    ::SetWindowTextW(dialog_, toWide(caption(55, "Users"), application_.codePage).c_str());
    const auto head = [this](int left, int wide, const std::string& text) {
      add(L"STATIC", text, SS_NOPREFIX, {left, 12, wide, 18}, -1, font(9));
    };
    head(kNameLeft, kNameWide, caption(52, "User"));
    head(kPasswordLeft, kPasswordWide, caption(53, "Password"));
    head(kCheckLeft, kCheckWide + kGap + kRemoveWide, caption(56, "Read only"));
    for (int row = 0; row < kRows; ++row) addRow(row);
    const int bottom = kTop + kRows * kStep;
    add(kRealvScrollClass, "", 0, {kBarLeft, kTop, kBarWide, bottom - kTop - kStep + kBoxHigh}, kScrollId,
        font(9));
    SCROLLINFO range = {};
    range.cbSize = sizeof range;
    range.fMask = SIF_RANGE;
    range.nMax = kUserEntries - kRows;
    ::SendMessageW(item(kScrollId), SBM_SETSCROLLINFO, FALSE, reinterpret_cast<LPARAM>(&range));
    ::SendMessageW(item(kScrollId), kScrollSetLargeChange, kRows, 0);
    const int row = bottom + 12, wide = 88;
    add(L"BUTTON", caption(65, "Close"), WS_TABSTOP | BS_DEFPUSHBUTTON,
        {kWide - kLeft - 2 * wide - kGap, row, wide, 26}, kCloseId, font(9));
    add(L"BUTTON", caption(62, "Cancel"), WS_TABSTOP, {kWide - kLeft - wide, row, wide, 26}, IDCANCEL,
        font(9));
    ::SendMessageW(dialog_, DM_SETDEFID, kCloseId, 0);
    resize(kWide, row + 26 + 14);
    fill();
    ::SetFocus(item(kPasswordId));
  }
  bool command(int id, int notice) override {
    if (id == kCloseId || id == IDOK) return mayClose();
    if (filling_) return false;
    if (notice == EN_CHANGE && isRow(id, kNameId)) editor_.setName(id - kNameId, textOf(id));
    if (notice == EN_CHANGE && isRow(id, kPasswordId)) editor_.setPassword(id - kPasswordId, textOf(id));
    if (notice == BN_CLICKED && isRow(id, kReadOnlyId))
      editor_.setReadOnly(id - kReadOnlyId, ::IsDlgButtonChecked(dialog_, id) == BST_CHECKED);
    if (notice == BN_CLICKED && isRow(id, kRemoveId)) {
      editor_.removeUser(id - kRemoveId);
      fill();
    }
    return false;
  }
  std::optional<INT_PTR> other(UINT message, WPARAM wide, LPARAM param) override {
    switch (message) {
      case WM_CLOSE:  // the same as its button: what was typed must not be lost with the cross
        ::SendMessageW(dialog_, WM_COMMAND, kCloseId, 0);
        return TRUE;
      case WM_VSCROLL:
        scrollTo(static_cast<int>(::SendMessageW(item(kScrollId), SBM_GETPOS, 0, 0)));
        return TRUE;
      case WM_MOUSEWHEEL:
        scrollTo(editor_.scroll() - kWheelRows * static_cast<short>(HIWORD(wide)) / WHEEL_DELTA);
        return TRUE;
      case WM_CTLCOLOREDIT:
        return color(reinterpret_cast<HDC>(wide), ::GetDlgCtrlID(reinterpret_cast<HWND>(param)));
      default:
        return std::nullopt;
    }
  }

 private:
  static bool isRow(int id, int first) { return id >= first && id < first + kRows; }
  void addRow(int row) {
    const int top = kTop + row * kStep;
    add(L"STATIC", "", SS_CENTERIMAGE | SS_NOPREFIX, {kLeft, top, kNumberWide, kBoxHigh}, kNumberId + row,
        font(9));
    add(L"EDIT", "", WS_TABSTOP | ES_AUTOHSCROLL, {kNameLeft, top, kNameWide, kBoxHigh}, kNameId + row,
        font(9));
    add(L"EDIT", "", WS_TABSTOP | ES_AUTOHSCROLL, {kPasswordLeft, top, kPasswordWide, kBoxHigh},
        kPasswordId + row, font(9));
    for (const int id : {kNameId + row, kPasswordId + row}) {
      ::SendMessageW(item(id), EM_LIMITTEXT, kMostLetters, 0);
      ::SetWindowSubclass(item(id), keys, static_cast<UINT_PTR>(id), reinterpret_cast<DWORD_PTR>(this));
    }
    add(L"BUTTON", "", WS_TABSTOP | BS_AUTOCHECKBOX, {kCheckLeft, top, 20, kBoxHigh}, kReadOnlyId + row,
        font(9));
    add(L"BUTTON", caption(60, "Remove"), WS_TABSTOP, {kRemoveLeft, top, kRemoveWide, kBoxHigh},
        kRemoveId + row, font(9));
  }
  void fill() {
    filling_ = true;
    for (int row = 0; row < kRows; ++row) {
      const int entry = editor_.entry(row);
      setText(kNumberId + row, entry == 0 ? caption(57, "Main user") : std::to_string(entry));
      setText(kNameId + row, editor_.name(row));
      setText(kPasswordId + row, editor_.password(row));
      ::CheckDlgButton(dialog_, kReadOnlyId + row, editor_.readOnly(row) ? BST_CHECKED : BST_UNCHECKED);
      nameRow(row);
      // Without the main entry the next user would become the main one.
      ::EnableWindow(item(kRemoveId + row), entry != 0);
    }
    filling_ = false;
    ::InvalidateRect(dialog_, nullptr, TRUE);
  }
  // For who cannot see in which row a box stands.
  void nameRow(int row) {
    const std::string entry = std::string(" ").append(textOf(kNumberId + row));
    const auto name = [&](int id, const std::string& what) {
      names_.set(item(id + row), toWide(what + entry, application_.codePage));
    };
    name(kNameId, caption(52, "User"));
    name(kPasswordId, caption(53, "Password"));
    name(kReadOnlyId, caption(56, "Read only"));
    name(kRemoveId, caption(60, "Remove"));
  }
  void scrollTo(int first) {
    const int before = editor_.scroll();
    editor_.setScroll(first);
    ::SendMessageW(item(kScrollId), SBM_SETPOS, static_cast<WPARAM>(editor_.scroll()), TRUE);
    if (editor_.scroll() != before) fill();
  }
  static LRESULT CALLBACK keys(HWND window, UINT message, WPARAM wide, LPARAM param, UINT_PTR id,
                               DWORD_PTR self) {
    bool taken = false;
    if (message == WM_KEYDOWN)
      guarded([&] {
        taken = reinterpret_cast<UsersWindow*>(self)->rowKey(static_cast<int>(id), static_cast<int>(wide));
      });
    return taken ? 0 : ::DefSubclassProc(window, message, wide, param);
  }
  // From row to row, and at the ends through the table.
  bool rowKey(int id, int key) {
    if (key == VK_PRIOR || key == VK_NEXT) {
      scrollTo(editor_.scroll() + (key == VK_NEXT ? kRows : -kRows));
      return true;
    }
    if (key != VK_UP && key != VK_DOWN) return false;
    const int step = key == VK_DOWN ? 1 : -1;
    const int first = isRow(id, kNameId) ? kNameId : kPasswordId;
    if (isRow(id + step, first))
      ::SetFocus(item(id + step));
    else
      scrollTo(editor_.scroll() + step);
    return true;
  }
  bool mayClose() {
    if (!editor_.mayClose()) messages_.show(kNoPassword, MessageIcon::warning);
    return editor_.mayClose();
  }
  std::optional<INT_PTR> color(HDC dc, int id) {
    const int first = isRow(id, kNameId) ? kNameId : kPasswordId;
    if (!isRow(id, first)) return std::nullopt;
    const UserRowLook look = editor_.look(id - first);
    if (look == UserRowLook::other) return std::nullopt;
    const bool current = look == UserRowLook::current;
    ::SetBkColor(dc, current ? kCurrentColor : ::GetSysColor(COLOR_INFOBK));
    return reinterpret_cast<INT_PTR>(current ? currentBrush_.get() : ::GetSysColorBrush(COLOR_INFOBK));
  }

  static constexpr COLORREF kCurrentColor = 0xEFEFEF;
  const BrushHandle currentBrush_{::CreateSolidBrush(kCurrentColor)};
  AccessibleNames names_;
  UserTableEditor& editor_;
  Messages& messages_;
  bool filling_ = false;
};

}  // namespace

void showUsersWindow(HWND owner, RecordSession& session, Messages& messages) {
  if (!session.mayEditUsers()) return;
  UserTableEditor editor(session.start().users, session.login() ? session.login()->user : 0);
  if (UsersWindow(session.application(), editor, messages).run(owner) == 1)
    *session.editUsers() = editor.stored();
}

}  // namespace plinth
