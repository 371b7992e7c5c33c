// The windows beside the page: login, table of users, calculator, and the menu of a box.
#include <functional>

#include "engine/win32/CalculatorWindow.h"
#include "engine/win32/EngineDialogs.h"
#include "engine/win32/UsersWindow.h"
#include "tests/windows/EngineWindowFixture.h"

namespace plinth {
namespace {

// While a window of this title or class waits for a person, the steps are done in it one by one.
class Hands {
 public:
  using Step = std::function<void(HWND)>;
  Hands(const wchar_t* kind, const wchar_t* title, std::vector<Step> steps)
      : kind_(kind), title_(title), steps_(std::move(steps)) {
    now_ = this;
    timer_ = ::SetTimer(nullptr, 0, 20, [](HWND, UINT, UINT_PTR, DWORD) { now_->step(); });
  }
  ~Hands() {
    ::KillTimer(nullptr, timer_);
    EXPECT_EQ(next_, steps_.size()) << "steps done";
  }

 private:
  void step() {
    const HWND window = ::FindWindowW(kind_, title_);
    if (window && ::IsWindowVisible(window) && next_ < steps_.size()) steps_[next_++](window);
  }
  static inline Hands* now_ = nullptr;
  const wchar_t *kind_, *title_;
  std::vector<Step> steps_;
  std::size_t next_ = 0;
  UINT_PTR timer_ = 0;
};

std::wstring textOf(HWND window, int id) {
  wchar_t text[300] = {};
  ::GetDlgItemTextW(window, id, text, 300);
  return text;
}

void pressIn(HWND window, int id) { ::SendMessageW(::GetDlgItem(window, id), BM_CLICK, 0, 0); }

Hands::Step enter(int id, const wchar_t* text) {
  return [=](HWND window) { ::SetDlgItemTextW(window, id, text); };
}

Hands::Step clickOn(int id) {
  return [=](HWND window) { pressIn(window, id); };
}

Hands::Step picture(const std::string& name) {
  return [name](HWND window) {
    std::filesystem::create_directories("screenshots");
    EXPECT_TRUE(saveScreenshot(window, "screenshots/engine-" + name + ".png"));
  };
}

constexpr wchar_t kDialog[] = L"#32770";
constexpr int kLoginName = 20, kLoginPassword = 21, kLoginPrompt = 22, kLoginBack = 23;
constexpr int kUserNumber = 100, kUserName = 120, kUserPassword = 140, kUserReadOnly = 160, kUserRemove = 180,
              kUserScroll = 200, kUsersClose = 201;

TEST_F(EngineWindows, MakesUsersAndAsksForTheMainPassword) {
  {
    const Hands hands(
        kDialog, L"Users",
        {enter(kUserName + 1, L"Bob"), enter(kUserPassword + 1, L"guest"), clickOn(kUserReadOnly + 1),
         enter(kUserName + 2, L"Gone"), enter(kUserName + 3, L"Ann"), clickOn(kUsersClose),
         [this](HWND) {
           ASSERT_FALSE(messages.shown.empty());
           EXPECT_EQ(messages.shown.back().text, "System needs a main password...");
         },
         enter(kUserName, L"Chief"), enter(kUserPassword, L"boss"), clickOn(kUserRemove + 2),
         [](HWND window) {
           EXPECT_EQ(textOf(window, kUserName + 2), L"Ann");
           EXPECT_FALSE(::IsWindowEnabled(::GetDlgItem(window, kUserRemove)));
         },
         picture("users"),
         [](HWND window) {
           // Down from the last row, a page on, and to the end by the bar.
           const HWND last = ::GetDlgItem(window, kUserPassword + 9);
           ::SetFocus(last);
           ::SendMessageW(last, WM_KEYDOWN, VK_DOWN, 0);
           EXPECT_EQ(textOf(window, kUserNumber + 9), L"10");
           ::SendMessageW(last, WM_KEYDOWN, VK_NEXT, 0);
           EXPECT_EQ(textOf(window, kUserNumber + 9), L"20");
           EXPECT_EQ(textOf(window, kUserName), L"");
         },
         [](HWND window) {
           const HWND bar = ::GetDlgItem(window, kUserScroll);
           ::SendMessageW(bar, SBM_SETPOS, 1000, TRUE);
           ::SendMessageW(window, WM_VSCROLL, SB_BOTTOM, reinterpret_cast<LPARAM>(bar));
         },
         enter(kUserName + 9, L"Last"), clickOn(kUsersClose)});
    showUsersWindow(window->handle(), *session, messages);
  }
  const UserTable& users = session->start().users;
  EXPECT_EQ(decodePassword(users.passwords[0]), "boss");
  EXPECT_EQ(users.names[2], "Ann");
  EXPECT_EQ(users.names[249], "Last");
  EXPECT_EQ(users.readOnly[1], 1);
  const Hands hands(kDialog, L"Users", {enter(kUserName + 1, L"Other"), clickOn(IDCANCEL)});
  showUsersWindow(window->handle(), *session, messages);
  EXPECT_EQ(session->start().users.names[1], "Bob");
}

TEST_F(EngineWindows, AsksForNameThenPasswordWithoutTellingNames) {
  StartUp start = session->start();
  start.users.names = {"Chief", "Bob"};
  start.users.passwords = {encodePassword("boss"), encodePassword("guest")};
  start.users.readOnly[1] = 1;
  start.loginRequired = true;
  RecordSession other(start,
                      SessionServices{systemFiles(), messages, clock, englishLocale(), shell,
                                      flatStoreOpener(systemSharedFiles(), systemFiles()), nullptr, nullptr});
  const auto asksName = [](bool expected) -> Hands::Step {
    return [expected](HWND window) {
      EXPECT_EQ(textOf(window, kLoginPrompt), expected ? L"User" : L"Password");
      EXPECT_EQ(::IsWindowVisible(::GetDlgItem(window, kLoginName)) != 0, expected);
      EXPECT_EQ(::IsWindowVisible(::GetDlgItem(window, kLoginPassword)) != 0, !expected);
    };
  };
  const auto tab = [](HWND window) { ::SendMessageW(window, WM_NEXTDLGCTL, 0, 0); };
  const Hands hands(kDialog, L"Shop",
                    {asksName(true), clickOn(IDOK), asksName(true), enter(kLoginName, L"Bob"), asksName(true),
                     picture("login-name"), enter(kLoginName, L"Nobody"), clickOn(IDOK), asksName(false),
                     enter(kLoginPassword, L"guest"), asksName(false), clickOn(kLoginBack), asksName(true),
                     enter(kLoginName, L"Bob"), tab, asksName(false), enter(kLoginPassword, L"boss"),
                     picture("login-password"), enter(kLoginPassword, L"guest")});
  EXPECT_TRUE(showLoginBox(nullptr, other));
  ASSERT_TRUE(other.login());
  EXPECT_EQ(other.login()->name, "Bob");
  EXPECT_FALSE(other.mayEditUsers());
  EXPECT_TRUE(other.openData(false));
  EXPECT_TRUE(other.readOnly());
  for (const FormCheck& check : other.form().checks) EXPECT_TRUE(check.locked);
}

TEST_F(EngineWindows, ReaderLogsInAndChangesNothing) {
  typeField(kName, L"kept");
  ::SendMessageW(window->handle(), WM_CLOSE, 0, 0);
  pump();
  users.emplace();
  users->passwords[0] = encodePassword("boss");
  users->passwords[1] = encodePassword("guest");
  users->readOnly[1] = 1;
  {
    const Hands hands(kDialog, L"Shop", {enter(kLoginPassword, L"guest")});
    ASSERT_TRUE(open());
  }
  EXPECT_EQ(fieldShown(kName), "Kept");
  typeField(kName, L"other");
  click(kNavigationId + 6);
  menu(MenuId::erasefile);
  EXPECT_EQ(fieldShown(kName), "Kept");
  EXPECT_EQ(session->recCount(), 1);
  EXPECT_NE(menuState(MenuId::erasefile) & MF_GRAYED, 0u);
  shot("reader");
}

TEST_F(EngineWindows, CalculatesBesideThePageAndFillsTheField) {
  ::SetFocus(control(kFieldId + kPrice));
  pump();
  CalculatorWindow calculator(
      session->application(), englishLocale(), settings, clipboard,
      [this](const std::string& number) { return session->fieldNumberPicked(number); });
  calculator.open(window->handle());
  const HWND handle = ::FindWindowW(L"Calculator", nullptr);
  ASSERT_TRUE(handle && ::IsWindowVisible(handle));
  for (const wchar_t ch : std::wstring(L"1250,*3.5\r")) ::SendMessageW(handle, WM_CHAR, ch, 0);
  EXPECT_EQ(textOf(handle, 10), L"4,375.");
  picture("calculator")(handle);
  constexpr int kFirstKey = 20, kDivide = kFirstKey + 3, kTwo = kFirstKey + 11, kCopy = kFirstKey + 20,
                kPaste = kFirstKey + 21, kInsert = kFirstKey + 22, kEquals = kFirstKey + 23;
  for (const int key : {kDivide, kTwo, kEquals, kCopy, kInsert}) pressIn(handle, key);
  EXPECT_EQ(clipboard.content, "2187.5");
  EXPECT_EQ(fieldShown(kPrice), "2,187.50");
  EXPECT_TRUE(session->dirty());
  clipboard.content = "1,000.25";
  pressIn(handle, kPaste);
  EXPECT_EQ(textOf(handle, 10), L"1,000.25");
  ::SetWindowPos(handle, nullptr, 77, 88, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
  ::SendMessageW(handle, WM_CLOSE, 0, 0);
  EXPECT_FALSE(::IsWindowVisible(handle));
  EXPECT_EQ(settings.get("Settings", "CalculatorLeft", ""), "77");
  EXPECT_EQ(settings.get("Settings", "CalculatorTop", ""), "88");
}

TEST_F(EngineWindows, OpensTheMenuOfABoxByARightClick) {
  typeField(kName, L"Ann");
  const HWND box = control(kFieldId + kName);
  ::SendMessageW(box, EM_SETSEL, 0, -1);
  const auto key = [box](WPARAM code) -> Hands::Step {
    return [=](HWND) { ::PostMessageW(box, WM_KEYDOWN, code, 0); };
  };
  const Hands hands(L"#32768", nullptr, {picture("box-menu"), key(VK_DOWN), key(VK_DOWN), key(VK_RETURN)});
  ::SendMessageW(box, WM_CONTEXTMENU, reinterpret_cast<WPARAM>(box), -1);
  pump();
  EXPECT_EQ(fieldShown(kName), "") << "cut";
  EXPECT_TRUE(session->dirty());
}

}  // namespace
}  // namespace plinth
