// The system's dialogs, answered by a second thread in place of a person.
#include "platform/win32/Dialogs.h"

#include <gtest/gtest.h>

#include <thread>

#include "tests/platform/TempFolder.h"

namespace plinth {
namespace {

constexpr int kNameBox = 0x47C;  // the file name in the common dialogs
constexpr int kMessageText = 0xFFFF;

std::wstring textOf(HWND window) {
  wchar_t text[300] = {};
  ::SendMessageW(window, WM_GETTEXT, 300, reinterpret_cast<LPARAM>(text));
  return text;
}

// Answers the next dialog of a title: fills in a name where there is one, notes its texts and presses a
// button.
class Person {
 public:
  Person(const wchar_t* title, int button, std::wstring name = L"")
      : thread_([this, title, button, name] { answer(title, button, name); }) {}
  ~Person() { leave(); }
  void leave() {
    if (thread_.joinable()) thread_.join();
  }

  std::wstring text, okText;  // valid after leave()

 private:
  void answer(const wchar_t* title, int button, const std::wstring& name) {
    HWND dialog = nullptr;
    for (int i = 0; i < 500 && !dialog; ++i) {
      ::Sleep(20);
      dialog = ::FindWindowW(L"#32770", title);
      if (dialog && (!::IsWindowVisible(dialog) || !::GetDlgItem(dialog, button))) dialog = nullptr;
    }
    text = textOf(::GetDlgItem(dialog, kMessageText));
    okText = textOf(::GetDlgItem(dialog, IDOK));
    if (!name.empty())
      ::SendMessageW(::GetDlgItem(dialog, kNameBox), WM_SETTEXT, 0, reinterpret_cast<LPARAM>(name.c_str()));
    ::PostMessageW(dialog, WM_COMMAND, button, 0);
  }
  std::thread thread_;
};

TEST(MessageBoxes, showTextsOfTheirPageAndTellTheAnswer) {
  MessageBoxes messages(nullptr, "\xC4", 1251);  // a Cyrillic letter
  for (const int button : {IDYES, IDNO}) {
    Person person(L"\u0414", button);
    EXPECT_EQ(messages.ask("\xE4\xE0?"), button == IDYES);
  }
  Person person(L"\u0414", IDOK);
  messages.show("\xE4\xE0!", MessageIcon::error);
  person.leave();
  EXPECT_EQ(person.text, L"\u0434\u0430!");
}

TEST(FileChooser, returnsTheWholePathAndKeepsTheFolder) {
  const TempFolder folder;
  ASSERT_TRUE(systemFiles().write(folder / "there.qvf", Bytes{1}).ok());
  const std::string before = systemFiles().currentFolder();
  FileChooser chooser(nullptr, 1252);
  ChooserRequest request{false, "Open it...", "Take", "*.qvf;*.mrf", "", folder.path()};
  const auto choose = [&](int button, const std::wstring& name) {
    Person person(L"Open it...", button, name);
    return chooser.choose(request);
  };
  EXPECT_EQ(choose(IDOK, L"there.qvf"), folder / "there.qvf");
  EXPECT_EQ(choose(IDCANCEL, L"there.qvf"), std::nullopt);
  request.save = true;
  EXPECT_EQ(choose(IDOK, L"there.qvf"), folder / "there.qvf") << "without a question about the old one";
  EXPECT_EQ(choose(IDOK, L"new.exe"), folder / "new.exe");
  request.initialName = "Orders: all?";
  EXPECT_EQ(choose(IDCANCEL, L""), std::nullopt) << "an impossible name must not keep the dialog away";
  EXPECT_EQ(systemFiles().currentFolder(), before);
}

TEST(FileChooser, namesItsButton) {
  FileChooser chooser(nullptr, 1252);
  Person person(L"Create Application...", IDCANCEL);
  EXPECT_EQ(chooser.choose({true, "Create Application...", "Create...", "*.*", "", ""}), std::nullopt);
  person.leave();
  EXPECT_EQ(person.okText, L"Create...");
}

}  // namespace
}  // namespace plinth
