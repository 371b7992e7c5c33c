// The designer's real windows, driven by messages as a person's hands would: main window, menu, dialogs.
#include "tests/windows/DesignerWindowFixture.h"

#include <functional>
#include <set>
#include <vector>

#include "surface/DesignerDialogs.h"

namespace plinth {
namespace {

namespace fs = std::filesystem;

// Hands for modal dialogs: as soon as one has come up, each step of the script gets it; what outlives the
// script is closed, so that no test waits for a person.
class Hands {
 public:
  using Step = std::function<void(HWND dialog)>;
  explicit Hands(std::vector<Step> steps) : steps_(std::move(steps)) {
    now_ = this;
    timer_ = ::SetTimer(nullptr, 0, 30, tick);
  }
  ~Hands() {
    ::KillTimer(nullptr, timer_);
    now_ = nullptr;
  }
  std::size_t done() const { return next_; }

 private:
  static void CALLBACK tick(HWND, UINT, UINT_PTR, DWORD) {
    const HWND dialog = ::GetActiveWindow();
    wchar_t name[16] = {};
    if (!now_ || now_->acting_ || !dialog || !::IsWindowVisible(dialog) ||
        !::GetClassNameW(dialog, name, 16) || std::wstring(name) != L"#32770")
      return;
    if (now_->next_ == now_->steps_.size()) {
      ::PostMessageW(dialog, WM_COMMAND, IDCANCEL, 0);
      return;
    }
    const Step& step = now_->steps_[now_->next_++];
    now_->acting_ = true;  // a screenshot lets timers run
    step(dialog);
    if (now_) now_->acting_ = false;
  }
  static inline Hands* now_ = nullptr;
  std::vector<Step> steps_;
  std::size_t next_ = 0;
  UINT_PTR timer_ = 0;
  bool acting_ = false;
};

void press(HWND dialog, int id) { ::PostMessageW(dialog, WM_COMMAND, MAKEWPARAM(id, BN_CLICKED), 0); }

class DesignerWindows : public DesignerWindowFixture {};

TEST_F(DesignerWindows, ShowsThePagesOfTheProject) {
  ASSERT_TRUE(messages.shown.empty()) << messages.shown[0].text;
  EXPECT_NE(textOf(frame.window()).find(L"contacts.qvf"), std::wstring::npos);
  EXPECT_NE(status(2).find("640 x 480"), std::string::npos);
  shot(frame.window(), "page-1");
  const Pixels first = windowPixels(area());
  // Paper, ground, title bar of the form, frames, letters: a page that did not paint has far fewer colours.
  EXPECT_GT(std::set<std::uint32_t>(first.argb.begin(), first.argb.end()).size(), 20u);
  ::SendMessageW(::GetDlgItem(area(), PageArea::kFirstTab + 1), BM_CLICK, 0, 0);
  EXPECT_EQ(frame.designer().surface().state().currentPage, 1);
  shot(frame.window(), "page-2");
  EXPECT_TRUE(windowPixels(area()).argb != first.argb);
  command(static_cast<int>(Command::page));
  EXPECT_EQ(frame.designer().surface().state().currentPage, 0);
  pump();
  EXPECT_TRUE(windowPixels(area()).argb == first.argb);
}

TEST_F(DesignerWindows, ScrollBarsFollowTheWindow) {
  ::SetWindowPos(frame.window(), nullptr, 0, 0, 420, 340, SWP_NOMOVE | SWP_NOZORDER);
  pump();
  const HWND bar = ::GetDlgItem(area(), PageArea::kVerticalId);
  const ScrollAxis& axis = frame.designer().surface().page().vertical();
  EXPECT_TRUE(::IsWindowVisible(bar));
  ::SendMessageW(bar, WM_KEYDOWN, VK_END, 0);
  ::SendMessageW(bar, WM_KEYUP, VK_END, 0);
  EXPECT_GT(axis.most(), 0);
  ::SendMessageW(bar, SBM_SETPOS, static_cast<WPARAM>(axis.most()), TRUE);
  ::SendMessageW(area(), WM_VSCROLL, SB_THUMBTRACK, reinterpret_cast<LPARAM>(bar));
  EXPECT_EQ(axis.value, axis.most());
  ::SendMessageW(area(), WM_MOUSEWHEEL, MAKEWPARAM(0, WHEEL_DELTA * 100), 0);
  EXPECT_EQ(axis.value, 0);
  EXPECT_EQ(::SendMessageW(bar, SBM_GETPOS, 0, 0), 0);
}

TEST_F(DesignerWindows, NewOpenSaveAndRecentFilesThroughTheMenu) {
  command(Command::newProject);
  EXPECT_EQ(textOf(frame.window()).find(L"contacts.qvf"), std::wstring::npos);
  chooser.answers = {folder / "mine", folder / "contacts.qvf"};
  command(Command::saveAs);
  EXPECT_TRUE(fs::exists(folder / "mine.qvf"));
  command(Command::open);
  EXPECT_NE(textOf(frame.window()).find(L"contacts.qvf"), std::wstring::npos);
  wchar_t text[300] = {};
  ::GetMenuStringW(::GetMenu(frame.window()), static_cast<UINT>(Command::recent), text, 300, MF_BYCOMMAND);
  EXPECT_NE(std::wstring(text).find(L"mine.qvf"), std::wstring::npos) << fs::path(text).string();
  command(static_cast<int>(Command::recent));
  EXPECT_NE(textOf(frame.window()).find(L"mine.qvf"), std::wstring::npos);
}

TEST_F(DesignerWindows, CreatesAnApplicationFromTheDialog) {
  owner = frame.window();
  const std::string out = folder / "out";
  fs::create_directories(out);
  const int name = 101, where = 102, icons = 103, setup = 105, properties = 106, company = 101;
  ::SetForegroundWindow(frame.window());
  Hands hands({[&](HWND dialog) {
                 shot(dialog, "create");
                 EXPECT_EQ(textOf(::GetDlgItem(dialog, name)), L"Contacts");
                 ::SetDlgItemTextW(dialog, name, L"");
                 EXPECT_FALSE(::IsWindowEnabled(::GetDlgItem(dialog, IDOK)));
                 ::SetDlgItemTextW(dialog, name, L"Mine");
                 ::SetDlgItemTextA(dialog, where, out.c_str());
                 EXPECT_EQ(::SendDlgItemMessageW(dialog, icons, LB_GETCOUNT, 0, 0), 1);
                 EXPECT_FALSE(::IsWindowEnabled(::GetDlgItem(dialog, setup)));
                 press(dialog, properties);
               },
               [&](HWND dialog) {
                 shot(dialog, "properties");
                 ::SetDlgItemTextW(dialog, company, L"Mill & Sons");
                 press(dialog, IDOK);
               },
               [&](HWND dialog) { press(dialog, IDOK); }});
  command(Command::createApplication);
  EXPECT_EQ(hands.done(), 3u);
  EXPECT_TRUE(messages.shown.empty()) << messages.shown[0].text;
  EXPECT_TRUE(fs::exists(out + "\\Mine\\Mine.exe"));
  EXPECT_EQ(frame.designer().shell().document().fileProp.comments[0], "Mill & Sons");
  EXPECT_NE(status(0).find("Mine.exe"), std::string::npos) << status(0);
}

TEST_F(DesignerWindows, DialogsAreLeftByEnterAndEscAndShowWhatTheyKnow) {
  owner = frame.window();
  ::SetForegroundWindow(frame.window());
  FileProperties values;
  values.comments[4] = "Contacts";
  const LabelSource labels = [](int, const char* english) { return std::string(english); };
  const auto type = [](HWND dialog, WPARAM key) {
    ::PostMessageW(::GetFocus() ? ::GetFocus() : dialog, WM_KEYDOWN, key, 0);
  };
  {
    Hands hands({[&](HWND dialog) {
      EXPECT_EQ(textOf(::GetDlgItem(dialog, 105)), L"Contacts");
      EXPECT_EQ(::GetDlgCtrlID(::GetFocus()), 101);
      EXPECT_EQ(::GetDlgCtrlID(::GetNextDlgTabItem(dialog, ::GetFocus(), FALSE)), 102);
      type(dialog, VK_RETURN);
    }});
    EXPECT_TRUE(dialogs.run(filePropertiesDialog(values, labels)));
  }
  Hands hands({[&](HWND dialog) { type(dialog, VK_ESCAPE); }});
  EXPECT_FALSE(dialogs.run(aboutDialog("2.0", labels)));
}

TEST_F(DesignerWindows, CommonLabelsAreFoundByEnterAndReachTheProject) {
  static int step, number;
  step = number = 0;
  ::SetTimer(nullptr, 0, 30, [](HWND, UINT, UINT_PTR timer, DWORD) {
    constexpr int kNoText = 100, kTextE = 120, kFind = 143;
    const HWND window = ::FindWindowW(L"PlinthCommonLabels", nullptr);
    if (!window) return;
    if (step++ == 0) {
      ::SetDlgItemTextW(window, kFind, L"ready.");
      ::SetFocus(::GetDlgItem(window, kFind));
      ::PostMessageW(::GetDlgItem(window, kFind), WM_KEYDOWN, VK_RETURN, 1);
      return;
    }
    ::KillTimer(nullptr, timer);
    number = static_cast<int>(::GetDlgItemInt(window, kNoText, nullptr, FALSE));
    ::SetDlgItemTextW(window, kTextE, L"Done.");
    ::SendMessageW(window, WM_CLOSE, 0, 0);
  });
  command(Command::commonLabels);
  EXPECT_EQ(number, 180);
  EXPECT_EQ(document().menuText[0], "Done.");
  EXPECT_TRUE(::IsWindowEnabled(frame.window()));
}

TEST_F(DesignerWindows, UndoTakesBackTheWordsOfTheMenusOnView) {
  constexpr int kFileMenu = 19;
  const HWND strip = ::GetDlgItem(frame.window(), DesignerFrame::kMenuStripId);
  const auto title = [strip] { return textOf(::GetDlgItem(strip, MenuStrip::kFirstTitle)); };
  const std::wstring before = title();
  frame.designer().beginWords(kFileMenu);
  frame.designer().changeWords("Cards");
  frame.designer().endWords();
  EXPECT_EQ(title(), L"Cards");
  command(Command::undo);
  EXPECT_EQ(title(), before);
}

TEST_F(DesignerWindows, TheColorTableStaysAwayOnceTheWindowWasMinimised) {
  command(Command::colorTable);
  const HWND table = ::FindWindowW(L"PlinthColorTable", nullptr);
  ASSERT_TRUE(::IsWindowVisible(table));
  ::ShowWindow(frame.window(), SW_SHOWMINNOACTIVE);
  ::ShowWindow(frame.window(), SW_SHOWNOACTIVATE);
  pump();
  EXPECT_FALSE(::IsWindowVisible(table));
  command(Command::colorTable);
  EXPECT_TRUE(::IsWindowVisible(table));
  ::SendMessageW(frame.window(), WM_CLOSE, 0, 0);
  EXPECT_NE(settings.get("Settings", "ConfigLeft", "none"), "none");
}

TEST_F(DesignerWindows, ClosingAsksAboutChangesAndKeepsTheWindowsPlace) {
  frame.designer().shell().changed();
  messages.answers = {true, false};
  chooser.answers = {};
  const fs::path project(folder / "contacts.qvf");
  fs::remove(project);
  fs::create_directories(project);  // the wanted save must fail
  ::SendMessageW(frame.window(), WM_CLOSE, 0, 0);
  EXPECT_TRUE(::IsWindow(frame.window()));
  frame.designer().shell().changed();
  ::SendMessageW(frame.window(), WM_CLOSE, 0, 0);
  EXPECT_EQ(frame.window(), nullptr);
  EXPECT_NE(settings.get("Settings", "Form1Left", "none"), "none");
}

}  // namespace
}  // namespace plinth
