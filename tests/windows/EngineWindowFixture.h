// A finished application's window over real files in a folder of its own, with fakes for all that would wait
// for a person, and hands to drive it.
#pragma once

#include "platform/win32/WindowsApi.h"  // before what leans on it

#include <gtest/gtest.h>
#include <objbase.h>

#include <filesystem>

#include "engine/FlatRecordStore.h"
#include "engine/win32/ControlIds.h"
#include "engine/win32/EngineWindow.h"
#include "platform/win32/Screenshot.h"
#include "platform/win32/WicPictures.h"
#include "tests/fakes/FakeChooser.h"
#include "tests/fakes/FakeClipboard.h"
#include "tests/fakes/FakeClock.h"
#include "tests/fakes/FakeMessages.h"
#include "tests/fakes/FakeShell.h"
#include "tests/fakes/MemorySettings.h"
#include "tests/platform/TempFolder.h"
#include "widgets/win32/WidgetClasses.h"

namespace plinth {

inline constexpr double kNow = 45000.5;  // 2023-03-15, noon

enum FieldNumber { kName = 1, kPrice, kCount, kDue, kTotal, kCode, kSecondPage };

inline PayloadField field(const char* tag, int kind, int length, float left, float top, int order) {
  PayloadField row;
  row.page = 0;
  row.tag = tag;
  row.fieldType = static_cast<std::uint8_t>(kind);
  row.fieldLength = length;
  row.left = left, row.top = top, row.width = 2400, row.height = 300;
  row.frame = {true, 1, 0x808080};
  row.exportOrder = static_cast<std::int16_t>(order + 10);
  row.helpText = std::string("Help for ") + tag;
  return row;
}

// Two pages: name, price, count, due day, total = price x count, a code that is locked once entered; terms,
// paid and notes; on the second page one more field and a button for a new record. A button and a link to the
// next record on both.
inline Payload shop() {
  Payload p;
  p.header.title = "Shop";
  p.header.calendar = 1;
  p.header.border = 1;
  p.header.statusLineVisible = true;
  p.fields = {PayloadField{},
              field("Name", 0, 10, 300, 300, 1),
              field("Price", 2, 12, 300, 750, 2),
              field("Count", 5, 10, 300, 1200, 3),
              field("Due", 7, 30, 300, 1650, 4),
              field("Total", 2, 12, 300, 2100, 5),
              field("Code", 0, 8, 3600, 300, 6),
              field("Remark", 0, 20, 300, 300, 10)};
  p.fields[kName].textCase = 2;
  p.fields[kCode].lockEntry = 1;
  p.fields[kCode].textCase = 1;
  p.fields[kTotal].formula = "F2*F3";
  p.fields[kSecondPage].page = 1;
  p.combos = {PayloadCombo{}, PayloadCombo{}};
  p.combos[1].page = 0;
  p.combos[1].tag = "Terms";
  p.combos[1].items = {"Cash", "Net"};
  p.combos[1].left = 3600, p.combos[1].top = 750, p.combos[1].width = 2400, p.combos[1].exportOrder = 17;
  p.checks = {PayloadCheck{}};
  p.checks[0].page = 0;
  p.checks[0].tag = "Paid";
  p.checks[0].left = 3600, p.checks[0].top = 1300, p.checks[0].exportOrder = 18;
  p.memos = {PayloadMemo{}, PayloadMemo{}};
  p.memos[1].page = 0;
  p.memos[1].tag = "Notes";
  p.memos[1].fieldLength = 100;
  p.memos[1].left = 3600, p.memos[1].top = 1650, p.memos[1].width = 2400, p.memos[1].height = 900;
  p.memos[1].exportOrder = 19;
  p.titles.resize(8);
  for (const int n : {1, 5, 7}) p.titles[static_cast<std::size_t>(n)].page = -1;
  p.titles[1].left = 300, p.titles[1].top = 3600;
  p.titles[5].left = 7200, p.titles[5].top = 60;
  p.titles[7].left = 7200, p.titles[7].top = 600;
  p.titles[7].caption = "Next one";
  p.titles[7].link = ">";
  p.buttons = {PayloadButton{}};
  p.buttons[0].page = -1;
  p.buttons[0].caption = "First";
  p.buttons[0].tag = "<<<";
  p.buttons[0].left = 300, p.buttons[0].top = 2700, p.buttons[0].width = 1500, p.buttons[0].height = 450;
  p.buttons[0].backColor = 0xE0E0E0;
  p.buttons[0].image = 1;
  p.buttons.push_back(p.buttons[0]);
  p.buttons[1].page = 1;
  p.buttons[1].caption = "New";
  p.buttons[1].tag = "<>";
  p.buttons[1].left = 2100;
  PayloadMenus& menus = p.application.menus;
  menus.fmenu = "&File", menus.mlist = "&Open...", menus.newin = "&New...", menus.exitit = "E&xit";
  menus.ops = "&Edit", menus.pasting = "&Paste", menus.copyadress = "Copy &Record", menus.erasefile = "C&lear", menus.finding = "&Search",
  menus.finden0 = "&Find";
  p.application.guideVisible = true;
  p.application.pageCaptions = {"Goods", "More", "", "", ""};
  p.pageColors = {0xFFFFFF, 0xE0FFE0, 0, 0, 0};
  return p;
}

class EngineWindows : public testing::Test {
 protected:
  void SetUp() override {
    ::CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
    messages.answers = {true};  // make the data file
    ASSERT_TRUE(open());
  }
  void TearDown() override {
    window.reset();
    session.reset();
    ::CoUninitialize();
  }
  // False: nobody was let in.
  bool open() {
    StartUp start;
    start.proceed = true;
    start.application = makeApplication(payload);
    start.form = makeRecordForm(start.application);
    start.names.appPath = folder / "";
    start.users = users ? *users : initialUsers(start.application);
    start.loginRequired = loginRequired(start.users);
    start.background = background;
    start.cfgPath = folder / "shop.cfg";
    start.data = {folder / "", "Shop.dbd", false};
    window = std::make_unique<EngineWindow>(
        EngineWindowServices{messages, chooser, shell, systemFiles(), decoder, systemSharedFiles(), settings,
                             clipboard});
    session = std::make_unique<RecordSession>(
        std::move(start),
        SessionServices{systemFiles(), messages, clock, englishLocale(), shell,
                        flatStoreOpener(systemSharedFiles(), systemFiles()), window.get(), nullptr});
    HWND owner = nullptr;
    if (!window->open(*session, owner)) return false;
    ::SetForegroundWindow(window->handle());
    pump();
    return true;
  }
  void pump() {
    MSG message;
    while (::PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE))
      if (message.message != WM_QUIT) window->dispatch(message);
  }
  // A control anywhere in the window, by its number.
  HWND control(int id) const {
    struct Search {
      int id;
      HWND found;
    } search{id, nullptr};
    ::EnumChildWindows(
        window->handle(),
        [](HWND child, LPARAM param) -> BOOL {
          auto& wanted = *reinterpret_cast<Search*>(param);
          if (::GetDlgCtrlID(child) == wanted.id) wanted.found = child;
          return wanted.found == nullptr;
        },
        reinterpret_cast<LPARAM>(&search));
    EXPECT_NE(search.found, nullptr) << "control " << id;
    return search.found;
  }
  std::string shown(int id) const {
    wchar_t text[512] = {};
    ::GetWindowTextW(control(id), text, 512);
    return std::filesystem::path(text).string();
  }
  std::string fieldShown(int n) const { return shown(kFieldId + n); }
  void press(int key, bool control = false) {
    BYTE keys[256] = {};
    ::GetKeyboardState(keys);
    keys[VK_CONTROL] = control ? 0x80 : 0;
    ::SetKeyboardState(keys);
    ::PostMessageW(::GetFocus() ? ::GetFocus() : window->handle(), WM_KEYDOWN, static_cast<WPARAM>(key), 0);
    pump();
    keys[VK_CONTROL] = 0;
    ::SetKeyboardState(keys);
  }
  // Goes to a box and types over what it holds; the box keeps the focus.
  void type(int id, const std::wstring& text) {
    ::SetFocus(control(id));
    ::SendMessageW(control(id), EM_SETSEL, 0, -1);
    ::SendMessageW(control(id), WM_KEYDOWN, 'X', 0);
    for (const wchar_t ch : text) ::SendMessageW(control(id), WM_CHAR, ch, 0);
    pump();
  }
  void typeField(int n, const std::wstring& text) { type(kFieldId + n, text); }
  void click(int id) {
    ::SendMessageW(control(id), BM_CLICK, 0, 0);
    pump();
  }
  void menu(MenuId id) {
    const std::vector<MenuEntry>& rows = session->application().menus;
    for (std::size_t i = 0; i < rows.size(); ++i)
      if (rows[i].id == id) ::SendMessageW(window->handle(), WM_COMMAND, kMenuId + i, 0);
    pump();
  }
  UINT menuState(MenuId id) {
    const HMENU bar = ::GetMenu(window->handle());
    ::SendMessageW(window->handle(), WM_INITMENUPOPUP, reinterpret_cast<WPARAM>(bar), 0);
    const std::vector<MenuEntry>& rows = session->application().menus;
    for (std::size_t i = 0; i < rows.size(); ++i)
      if (rows[i].id == id) return ::GetMenuState(bar, static_cast<UINT>(kMenuId + i), MF_BYCOMMAND);
    return static_cast<UINT>(-1);
  }
  void shot(const std::string& name) {
    pump();
    std::filesystem::create_directories("screenshots");
    EXPECT_TRUE(saveScreenshot(window->handle(), "screenshots/engine-" + name + ".png"));
  }

  Payload payload = shop();
  TempFolder folder;
  std::string background;          // path of the picture behind the page
  std::optional<UserTable> users;  // in place of the design's own
  FakeMessages messages;
  FakeChooser chooser;
  FakeShell shell;
  FakeClipboard clipboard;
  MemorySettings settings;
  FakeClock clock{kNow};
  WicDecoder decoder;
  std::unique_ptr<EngineWindow> window;
  std::unique_ptr<RecordSession> session;
};

}  // namespace plinth
