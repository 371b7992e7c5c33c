// The window of a finished application, driven in its own process by the messages that a person's hands
// cause: typing, Tab, clicks, keys.
#include <algorithm>
#include <set>

#include "tests/windows/EngineWindowFixture.h"

namespace plinth {
namespace {

TEST_F(EngineWindows, AsksForItsDataFileAndBeginsInTheFirstBox) {
  ASSERT_EQ(messages.shown.size(), 1u);
  EXPECT_TRUE(messages.shown[0].question);
  EXPECT_NE(messages.shown[0].text.find("Shop.dbd"), std::string::npos);
  EXPECT_EQ(::GetFocus(), control(kFieldId + kName));
  EXPECT_EQ(session->form().titles[1], "Help for Name");
  EXPECT_EQ(shown(kRecordBoxId), "1");
  EXPECT_EQ(fieldShown(kDue), "3/15/2023");
  // The window holds the whole page.
  const HWND view = ::FindWindowExW(window->handle(), nullptr, L"PlinthPageView", nullptr);
  for (const wchar_t* kind : {kRealhScrollClass, kRealvScrollClass}) {
    const HWND bar = ::FindWindowExW(view, nullptr, kind, nullptr);
    ASSERT_NE(bar, nullptr);
    EXPECT_FALSE(::IsWindowVisible(bar));
  }
}

TEST_F(EngineWindows, ScrollsThePageThatIsLargerThanItsWindow) {
  ::SetWindowPos(window->handle(), nullptr, 0, 0, 320, 280, SWP_NOMOVE | SWP_NOZORDER);
  pump();
  const HWND page = ::GetParent(control(kFieldId + kName)), view = ::GetParent(page);
  const auto at = [&] {
    POINT corner = {};
    ::MapWindowPoints(page, view, &corner, 1);
    return corner;
  };
  RECT room = {}, whole = {};
  ::GetClientRect(view, &room);
  ::GetClientRect(page, &whole);
  const HWND focus = ::GetFocus();
  for (const bool upright : {true, false}) {
    const HWND bar = ::FindWindowExW(view, nullptr, upright ? kRealvScrollClass : kRealhScrollClass, nullptr);
    ASSERT_TRUE(::IsWindowVisible(bar));
    RECT place = {};
    ::GetClientRect(bar, &place);
    const LPARAM end = upright ? MAKELPARAM(4, place.bottom - 4) : MAKELPARAM(place.right - 4, 4);
    ::SendMessageW(bar, WM_LBUTTONDOWN, MK_LBUTTON, end);
    ::SendMessageW(bar, WM_LBUTTONUP, 0, end);
    EXPECT_LT(upright ? at().y : at().x, 0);
    // By the thumb to the very end, where the last of the page stands at the bar.
    const auto thumb = static_cast<short>(::SendMessageW(bar, kScrollGetThumbPos, 0, 0) + 2);
    const auto point = [&](short along) { return upright ? MAKELPARAM(4, along) : MAKELPARAM(along, 4); };
    ::SendMessageW(bar, WM_LBUTTONDOWN, MK_LBUTTON, point(thumb));
    ::SendMessageW(bar, WM_MOUSEMOVE, MK_LBUTTON, point(2000));
    ::SendMessageW(bar, WM_LBUTTONUP, 0, point(2000));
    RECT other = {};
    ::GetClientRect(::FindWindowExW(view, nullptr, upright ? kRealhScrollClass : kRealvScrollClass, nullptr),
                    &other);
    EXPECT_EQ(upright ? at().y + whole.bottom : at().x + whole.right,
              upright ? room.bottom - other.bottom : room.right - other.right);
  }
  EXPECT_EQ(::GetFocus(), focus);
  shot("scrolled");
}

TEST_F(EngineWindows, KeepsTypedRecordsThroughMovesAndARestart) {
  typeField(kName, L"anna maria x");  // longer than the field
  press(VK_TAB);
  EXPECT_EQ(::GetFocus(), control(kFieldId + kPrice));
  EXPECT_EQ(fieldShown(kName), "Anna Maria");
  typeField(kPrice, L"a12.5b");
  press(VK_TAB);
  EXPECT_EQ(fieldShown(kPrice), "12.50");
  typeField(kCount, L"1.4");  // whole numbers have no point
  typeField(kDue, L"2023-12-24");
  ::SendMessageW(control(kComboId + 1), CB_SETCURSEL, 1, 0);
  ::SendMessageW(::GetParent(control(kComboId + 1)), WM_COMMAND, MAKEWPARAM(kComboId + 1, CBN_SELCHANGE),
                 reinterpret_cast<LPARAM>(control(kComboId + 1)));
  click(kCheckId);
  type(kMemoId + 1, L"one\rtwo");
  EXPECT_EQ(fieldShown(kTotal), "175.00");
  EXPECT_EQ(fieldShown(kDue), "12/24/2023");
  shot("record");

  click(kNewRecordId);
  EXPECT_EQ(shown(kRecordBoxId), "2");
  EXPECT_EQ(fieldShown(kName), "");
  EXPECT_EQ(shown(kMemoId + 1), "");
  EXPECT_EQ(::SendMessageW(control(kCheckId), BM_GETCHECK, 0, 0), BST_UNCHECKED);
  typeField(kName, L"second");
  ::SendMessageW(window->handle(), WM_CLOSE, 0, 0);  // without leaving the box
  EXPECT_EQ(window->handle(), nullptr);

  ASSERT_TRUE(open());
  EXPECT_EQ(fieldShown(kName), "Anna Maria");
  EXPECT_EQ(fieldShown(kTotal), "175.00");
  EXPECT_EQ(shown(kComboId + 1), "Net");
  EXPECT_EQ(shown(kMemoId + 1), "one\r\ntwo");
  EXPECT_EQ(::SendMessageW(control(kCheckId), BM_GETCHECK, 0, 0), BST_CHECKED);
  press('6', true);
  EXPECT_EQ(fieldShown(kName), "Second");
}

TEST_F(EngineWindows, MovesByEveryWayThereIs) {
  for (int n = 2; n <= 13; ++n) click(kNewRecordId);
  const struct {
    const char* what;
    std::function<void()> move;
    const char* record;
  } kMoves[] = {
      {"first", [&] { click(kNavigationId + 0); }, "1"},
      {"forward 10", [&] { click(kNavigationId + 4); }, "11"},
      {"no 10 forward are left", [&] { click(kNavigationId + 4); }, "11"},
      {"back", [&] { click(kNavigationId + 2); }, "10"},
      {"Ctrl+4", [&] { press('4', true); }, "11"},
      {"Ctrl+2", [&] { press('2', true); }, "1"},
      {"page's link",
       [&] {
         ::SendMessageW(::GetParent(control(kFieldId + kName)), WM_LBUTTONDOWN, 0, MAKELPARAM(485, 45));
       },
       "2"},
      {"record box",
       [&] {
         ::SetFocus(control(kRecordBoxId));
         ::SetWindowTextW(control(kRecordBoxId), L"7");
         press(VK_RETURN);
       },
       "7"},
      {"last", [&] { click(kNavigationId + 5); }, "13"},
      {"page's button", [&] { click(kButtonId); }, "1"},
      {"Ctrl+Insert", [&] { press(VK_INSERT, true); }, "14"},
  };
  for (const auto& one : kMoves) {
    one.move();
    EXPECT_EQ(shown(kRecordBoxId), one.record) << one.what;
    EXPECT_EQ(session->form().record, std::stoi(one.record)) << one.what;
  }
}

TEST_F(EngineWindows, SwitchesPagesWithTheirBoxesAndColours) {
  shot("page-1");
  const Pixels before = windowPixels(window->handle());
  EXPECT_GT(std::set<std::uint32_t>(before.argb.begin(), before.argb.end()).size(), 12u);
  const auto visible = [&](int id) { return ::IsWindowVisible(control(id)) != FALSE; };
  EXPECT_FALSE(visible(kFieldId + kSecondPage));
  click(kPageTabId + 1);
  EXPECT_TRUE(visible(kFieldId + kSecondPage));
  EXPECT_TRUE(visible(kButtonId));
  for (const int id : {kFieldId + kName, kComboId + 1, kMemoId + 1, kCheckId, kDateButtonId + kDue})
    EXPECT_FALSE(visible(id)) << id;
  EXPECT_EQ(::GetFocus(), control(kFieldId + kSecondPage));
  shot("page-2");
  const Pixels after = windowPixels(window->handle());
  EXPECT_GT(std::count(after.argb.begin(), after.argb.end(), 0xFFE0FFE0u),
            std::count(before.argb.begin(), before.argb.end(), 0xFFE0FFE0u) + 10000);
  press(VK_PRIOR, true);
  EXPECT_TRUE(visible(kFieldId + kName));
}

TEST_F(EngineWindows, TilesThePageAndPaintsItsPicturesAndShapes) {
  constexpr std::uint32_t kTile = 0xFF123456u, kPicture = 0xFFAB3412u, kSquare = 0xFF00C8FFu;
  const auto solid = [&](const char* name, int side, std::uint32_t color) {
    const Pixels pixels{{side, side},
                        std::vector<std::uint32_t>(static_cast<std::size_t>(side * side), color)};
    ASSERT_TRUE(savePng(pixels, folder / name));
  };
  solid("tile.png", 10, kTile);
  solid("Shop1.png", 4, kPicture);
  background = folder / "tile.png";
  PayloadPicture picture;
  picture.page = 0;
  picture.image.storedName = "Shop1.png";
  picture.left = 6000, picture.top = 3000, picture.width = 750, picture.height = 600;
  picture.stretch = 1;
  payload.pictures = {picture};
  PayloadSquare square;
  square.page = -1;
  square.left = 7200, square.top = 3000, square.width = 600, square.height = 600;
  square.backStyle = 1, square.backColor = 0xFFC800, square.borderColor = 0xFFC800;
  payload.squares = {square};
  // How the page is filled, and how many pixels of the tile's colour that leaves at least and at most.
  const struct {
    std::int16_t mode;
    int least, most;
  } kModes[] = {{0, 150000, 310000}, {1, 4000, 4800}, {2, 5000, 6400}, {3, 0, 0}};
  for (const auto& one : kModes) {
    payload.application.tileMode = one.mode;
    ::SendMessageW(window->handle(), WM_CLOSE, 0, 0);
    pump();
    ASSERT_TRUE(open());
    const Pixels page = windowPixels(::GetParent(control(kFieldId + kName)));
    const auto count = [&](std::uint32_t color) {
      return std::count(page.argb.begin(), page.argb.end(), color);
    };
    EXPECT_GE(count(kTile), one.least) << one.mode;
    EXPECT_LE(count(kTile), one.most) << one.mode;
    EXPECT_EQ(count(kPicture), 50 * 40) << one.mode;
    EXPECT_EQ(count(kSquare), 40 * 40) << one.mode;
  }
}

TEST_F(EngineWindows, TabVisitsBoxesInTheirOrderAndComesRound) {
  std::vector<int> visited;
  for (int i = 0; i < 11; ++i) {
    // A combo's focus is in its edit line.
    const HWND focus = ::GetFocus(), combo = control(kComboId + 1);
    visited.push_back(::GetDlgCtrlID(::IsChild(combo, focus) ? combo : focus));
    press(VK_TAB);
  }
  EXPECT_EQ(visited, (std::vector<int>{kFieldId + kName, kFieldId + kPrice, kFieldId + kCount,
                                       kFieldId + kDue, kFieldId + kTotal, kFieldId + kCode, kComboId + 1,
                                       kCheckId, kMemoId + 1, kButtonId, kRecordBoxId}));
  EXPECT_EQ(::GetFocus(), control(kFieldId + kName));
}

TEST_F(EngineWindows, ACombosListIsOpenedAndChosenFromByKeys) {
  const HWND combo = control(kComboId + 1);
  ::SetFocus(combo);
  press(VK_F4);
  EXPECT_TRUE(::SendMessageW(combo, CB_GETDROPPEDSTATE, 0, 0));
  press(VK_DOWN);
  press(VK_DOWN);
  press(VK_RETURN);
  EXPECT_FALSE(::SendMessageW(combo, CB_GETDROPPEDSTATE, 0, 0));
  EXPECT_EQ(shown(kComboId + 1), "Net");
  EXPECT_EQ(session->form().combos[1].text, "Net");
  // A wheel over it scrolls the page and leaves the record alone.
  ::SendMessageW(::GetFocus(), WM_MOUSEWHEEL, MAKEWPARAM(0, WHEEL_DELTA), 0);
  EXPECT_EQ(session->form().combos[1].text, "Net");
  for (const wchar_t ch : std::wstring(L"xy")) ::SendMessageW(::GetFocus(), WM_CHAR, ch, 0);
  EXPECT_EQ(session->form().combos[1].text, shown(kComboId + 1));
  EXPECT_NE(shown(kComboId + 1).find("xy"), std::string::npos);
}

TEST_F(EngineWindows, RefusesWhatARecordCannotHold) {
  typeField(kName, L"\u0416\u4E2D");  // no letters of this application's character set
  EXPECT_EQ(fieldShown(kName), "");
  typeField(kCode, L"ab1");
  EXPECT_EQ(fieldShown(kCode), "AB1");
  click(kNavigationId + 5);
  // Locked once entered: the box shows it and takes nothing.
  click(kNewRecordId);
  click(kNavigationId + 0);
  EXPECT_NE(::GetWindowLongPtrW(control(kFieldId + kCode), GWL_STYLE) & ES_READONLY, 0);
  typeField(kCode, L"zz");
  EXPECT_EQ(fieldShown(kCode), "AB1");
  EXPECT_EQ(::GetWindowLongPtrW(control(kFieldId + kName), GWL_STYLE) & ES_READONLY, 0);
}

TEST_F(EngineWindows, WritesInTheCharacterSetOfTheApplication) {
  ::SendMessageW(window->handle(), WM_CLOSE, 0, 0);
  pump();
  payload.header.charSet = 238;
  payload.header.title = "Ksi\xB9\xBFka";
  ASSERT_TRUE(open());
  wchar_t title[64] = {};
  ::GetWindowTextW(window->handle(), title, 64);
  EXPECT_EQ(std::wstring(title), L"Ksi\u0105\u017Cka");
  typeField(kName, L"\u0142\u00F3d\u017A");
  EXPECT_EQ(session->form().fields[kName].text, "\xA3\xF3\x64\x9F");  // its first letter in upper case
  wchar_t text[64] = {};
  ::GetWindowTextW(control(kFieldId + kName), text, 64);
  EXPECT_EQ(std::wstring(text), L"\u0141\u00F3d\u017A");
}

TEST_F(EngineWindows, CarriesTheRecordPanelOnThePageWhereTheDesignPutsIt) {
  ::SendMessageW(window->handle(), WM_CLOSE, 0, 0);
  pump();
  payload.application.guideVisible = false;
  payload.application.frame3Visible = true;
  payload.application.frame3Left = 300;
  payload.application.frame3Top = 4500;
  ASSERT_TRUE(open());
  const HWND panel = ::GetParent(control(kRecordBoxId)), page = ::GetParent(control(kFieldId + kName));
  EXPECT_EQ(::GetParent(panel), page);
  RECT place = {};
  ::GetWindowRect(panel, &place);
  ::MapWindowPoints(nullptr, page, reinterpret_cast<POINT*>(&place), 1);
  EXPECT_EQ(place.left, 20);
  EXPECT_EQ(place.top, 300);
  EXPECT_EQ(::FindWindowExW(window->handle(), nullptr, L"PlinthToolBar", nullptr), nullptr);
  click(kNewRecordId);
  EXPECT_EQ(shown(kRecordBoxId), "2");
  shot("panel");
}

TEST_F(EngineWindows, LeavesARecordAloneThatAnotherUserEdits) {
  click(kNewRecordId);
  typeField(kName, L"mine");
  click(kNavigationId + 0);
  click(kNavigationId + 5);
  auto other = FlatRecordStore::open(systemSharedFiles(), systemFiles(), session->application(),
                                     englishLocale(), {folder / "Shop.dbd", false, false, 0, ""});
  ASSERT_TRUE(other.ok());
  ASSERT_TRUE((*other)->lock(2).ok());
  typeField(kName, L"x");
  // The message tells why, and the record before it shows, untouched by the keys.
  ASSERT_EQ(messages.shown.size(), 2u);
  EXPECT_EQ(shown(kRecordBoxId), "1");
  EXPECT_EQ(fieldShown(kName), "");
  EXPECT_FALSE(session->dirty());
  (*other)->unlock(2);
  click(kNavigationId + 5);
  EXPECT_EQ(fieldShown(kName), "Mine");
}

TEST_F(EngineWindows, OffersWhatWorksAndGreysTheRest) {
  EXPECT_EQ(menuState(MenuId::newin) & MF_GRAYED, 0u);
  EXPECT_EQ(menuState(MenuId::erasefile) & MF_GRAYED, 0u);
  EXPECT_EQ(menuState(MenuId::copyadress) & (MF_GRAYED | MF_POPUP), MF_GRAYED + 0u);
  EXPECT_EQ(menuState(MenuId::cuting), static_cast<UINT>(-1));  // without a caption it is not there
  EXPECT_EQ(::GetMenuItemCount(::GetMenu(window->handle())), 3);
  typeField(kName, L"old");
  chooser.answers = {folder / "Other"};
  menu(MenuId::newin);
  EXPECT_TRUE(std::filesystem::exists(folder / "Other.dbd"));
  EXPECT_EQ(fieldShown(kName), "");
  typeField(kName, L"gone");
  messages.answers = {true};
  menu(MenuId::erasefile);
  EXPECT_EQ(fieldShown(kName), "");
  chooser.answers = {folder / "Shop.dbd"};
  menu(MenuId::mlist);
  EXPECT_EQ(fieldShown(kName), "Old");
  EXPECT_EQ(chooser.requests[1].pattern, "*.dbd");
}

TEST_F(EngineWindows, ShowsHelpAndActionsOfTheFocusedBox) {
  ::SetFocus(control(kFieldId + kPrice));
  pump();
  EXPECT_EQ(session->form().titles[1], "Help for Price");
  typeField(kName, L"www.a.org");
  ::SetFocus(control(kFieldId + kPrice));
  pump();
  EXPECT_FALSE(::IsWindowVisible(control(kActionToolId)));
  ::SetFocus(control(kFieldId + kName));
  pump();
  ASSERT_TRUE(::IsWindowVisible(control(kActionToolId)));
  click(kActionToolId);
  ASSERT_EQ(shell.opened.size(), 1u);
  EXPECT_EQ(shell.opened[0].target, "http://Www.a.org");
}

// Types each of the passwords into the login as soon as it stands there; then gives up.
class LoginHands {
 public:
  explicit LoginHands(std::vector<std::wstring> passwords) : passwords_(std::move(passwords)) {
    now_ = this;
    timer_ = ::SetTimer(nullptr, 0, 20, [](HWND, UINT, UINT_PTR, DWORD) { now_->step(); });
  }
  ~LoginHands() { ::KillTimer(nullptr, timer_); }

 private:
  void step() {
    const HWND dialog = ::FindWindowW(L"#32770", L"Shop");
    if (!dialog) return;
    const HWND password = ::FindWindowExW(dialog, nullptr, L"EDIT", nullptr);
    if (next_ < passwords_.size())
      ::SetWindowTextW(password, passwords_[next_++].c_str());
    else
      ::PostMessageW(dialog, WM_COMMAND, IDCANCEL, 0);
  }
  static inline LoginHands* now_ = nullptr;
  std::vector<std::wstring> passwords_;
  std::size_t next_ = 0;
  UINT_PTR timer_ = 0;
};

TEST_F(EngineWindows, LetsNobodyInWithoutThePassword) {
  ::SendMessageW(window->handle(), WM_CLOSE, 0, 0);
  pump();
  payload.application.mainPassword = "sesame";
  {
    const LoginHands hands({L"", L"Sesame", L"sesame "});
    EXPECT_FALSE(open());
    EXPECT_FALSE(session->isOpen());
  }
  const LoginHands hands({L"wrong", L"sesame"});
  ASSERT_TRUE(open());
  EXPECT_TRUE(session->isOpen());
}

TEST_F(EngineWindows, PicksADayFromTheCalendar) {
  click(kDateButtonId + kDue);
  const HWND popup = ::FindWindowW(L"PlinthCalendar", nullptr);
  ASSERT_NE(popup, nullptr);
  const HWND calendar = ::GetWindow(popup, GW_CHILD);
  SYSTEMTIME day = {};
  day.wYear = 2024, day.wMonth = 2, day.wDay = 29;
  constexpr UINT kSetDay = 0x1002;  // MCM_SETCURSEL
  ASSERT_TRUE(::SendMessageW(calendar, kSetDay, 0, reinterpret_cast<LPARAM>(&day)));
  ::SendMessageW(calendar, WM_KEYDOWN, VK_RETURN, 0);
  pump();
  EXPECT_EQ(fieldShown(kDue), "2/29/2024");
  EXPECT_EQ(::FindWindowW(L"PlinthCalendar", nullptr), nullptr);
}

TEST_F(EngineWindows, ButtonKeepsTheKeyboardAfterItsWork) {
  ::SetFocus(control(kButtonId));
  pump();
  for (const int key : {VK_SPACE, VK_RETURN}) {
    session->newbutClick();
    ASSERT_NE(session->curRec(), 1);
    press(key);
    ::SendMessageW(control(kButtonId), WM_KEYUP, static_cast<WPARAM>(key), 0);
    pump();
    EXPECT_EQ(session->curRec(), 1) << key;
    EXPECT_EQ(::GetFocus(), control(kButtonId)) << key;
  }
}

TEST_F(EngineWindows, ButtonForANewRecordLeadsToTheFirstBox) {
  click(kPageTabId + 1);
  ::SetFocus(control(kButtonId + 1));
  pump();
  const std::int32_t before = session->curRec();
  press(VK_RETURN);
  EXPECT_NE(session->curRec(), before);
  EXPECT_EQ(::GetFocus(), control(kFieldId + kSecondPage));
}

TEST_F(EngineWindows, BoxShowsWhatWillBeSaved) {
  const HWND name = control(kFieldId + kName);
  ::SetFocus(name);
  pump();
  ::SendMessageW(name, EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(L"a\x0416"));  // pasted
  wchar_t text[8] = {};
  ::GetWindowTextW(name, text, 8);
  EXPECT_STREQ(text, L"a?");
  EXPECT_EQ(session->form().fields[kName].text, "a?");
}

}  // namespace
}  // namespace plinth
