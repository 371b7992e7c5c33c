// The whole way as a person goes it, with the real programs: the console tool creates the application of the
// address book, the application runs on its own, is typed into, closed and started again; the tool reads its
// records. Everything between these processes goes through windows and files.
#include "platform/win32/WindowsApi.h"  // before what leans on it

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>

#include "engine/win32/ControlIds.h"
#include "platform/win32/Handles.h"
#include "platform/win32/WicPictures.h"
#include "tests/platform/TempFolder.h"

namespace plinth {
namespace {

namespace fs = std::filesystem;

constexpr DWORD kPatience = 20000;  // milliseconds

// Tries until it holds or patience ends.
template <class Condition>
bool waitFor(Condition condition) {
  const ULONGLONG end = ::GetTickCount64() + kPatience;
  while (::GetTickCount64() < end) {
    if (condition()) return true;
    ::Sleep(20);
  }
  return condition();
}

fs::path programs() {
  wchar_t path[MAX_PATH] = {};
  ::GetModuleFileNameW(nullptr, path, MAX_PATH);
  return fs::path(path).parent_path().parent_path().parent_path() / "programs";
}

class Process {
 public:
  explicit Process(const std::wstring& commandLine, HANDLE output = nullptr) {
    std::wstring line = commandLine;
    STARTUPINFOW start = {};
    start.cb = sizeof start;
    if (output) {
      start.dwFlags = STARTF_USESTDHANDLES;
      start.hStdOutput = output;
      start.hStdError = output;
    }
    PROCESS_INFORMATION started = {};
    if (::CreateProcessW(nullptr, line.data(), nullptr, nullptr, TRUE, CREATE_NO_WINDOW, nullptr, nullptr,
                         &start, &started)) {
      process_ = KernelHandle(started.hProcess);
      thread_ = KernelHandle(started.hThread);
      id_ = started.dwProcessId;
    }
  }
  ~Process() {
    if (process_ && ::WaitForSingleObject(process_.get(), 0) == WAIT_TIMEOUT)
      ::TerminateProcess(process_.get(), 99);
  }
  DWORD id() const { return id_; }
  // Its exit code; -1 when it does not end.
  int wait() const {
    DWORD code = 0;
    if (!process_ || ::WaitForSingleObject(process_.get(), kPatience) != WAIT_OBJECT_0) return -1;
    ::GetExitCodeProcess(process_.get(), &code);
    return static_cast<int>(code);
  }

 private:
  KernelHandle process_, thread_;
  DWORD id_ = 0;
};

std::wstring textOf(HWND window) {
  wchar_t text[1024] = {};
  ::SendMessageW(window, WM_GETTEXT, 1024, reinterpret_cast<LPARAM>(text));
  return text;
}

// One running copy of the application, seen from outside.
class Running {
 public:
  explicit Running(const fs::path& exe) : process_(L"\"" + exe.wstring() + L"\"") {
    waitFor([this] { return (window_ = topWindow(L"Form2")) != nullptr && ::IsWindowVisible(window_); });
  }
  HWND window() const { return window_; }
  HWND dialog() const { return topWindow(L"#32770"); }
  HWND control(int id) const {
    Search search{0, {}, id, nullptr};
    ::EnumChildWindows(
        window_,
        [](HWND child, LPARAM param) -> BOOL {
          auto& wanted = *reinterpret_cast<Search*>(param);
          if (::GetDlgCtrlID(child) == wanted.id) wanted.found = child;
          return wanted.found == nullptr;
        },
        reinterpret_cast<LPARAM>(&search));
    return search.found;
  }
  // Answers the message box that is up, or comes up soon. Its text; empty when none came.
  std::wstring answer(int button) {
    if (!waitFor([this] { return dialog() && ::IsWindowVisible(dialog()); })) return {};
    const HWND box = dialog();
    const std::wstring text = textOf(::GetDlgItem(box, 0xFFFF));
    ::PostMessageW(box, WM_COMMAND, static_cast<WPARAM>(button), 0);
    waitFor([box] { return !::IsWindow(box); });
    return text;
  }
  void click(int id) { ::PostMessageW(control(id), BM_CLICK, 0, 0); }
  // A person clicks into the box, marks all and types; no capitals.
  void type(int id, const std::wstring& text) {
    const HWND box = control(id);
    ::PostMessageW(box, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(2, 2));
    ::PostMessageW(box, WM_LBUTTONUP, 0, MAKELPARAM(2, 2));
    ::PostMessageW(box, EM_SETSEL, 0, -1);
    // Keys, from which the application's own loop makes the characters.
    for (const wchar_t ch : text)
      ::PostMessageW(box, WM_KEYDOWN, static_cast<WPARAM>(::VkKeyScanW(ch) & 0xFF), 1);
    // The characters queue up behind whatever is posted next.
    EXPECT_TRUE(waitFor([&] { return textOf(box).size() == text.size(); }));
  }
  bool shows(int id, const std::wstring& text) const {
    return waitFor([&] { return textOf(control(id)) == text; });
  }
  int close() {
    ::PostMessageW(window_, WM_CLOSE, 0, 0);
    return process_.wait();
  }

 private:
  struct Search {
    DWORD process;
    std::wstring kind;
    int id;
    HWND found;
  };
  HWND topWindow(const wchar_t* kind) const {
    Search search{process_.id(), kind, 0, nullptr};
    ::EnumWindows(
        [](HWND window, LPARAM param) -> BOOL {
          auto& wanted = *reinterpret_cast<Search*>(param);
          DWORD process = 0;
          wchar_t name[64] = {};
          ::GetWindowThreadProcessId(window, &process);
          ::GetClassNameW(window, name, 64);
          if (process == wanted.process && wanted.kind == name) wanted.found = window;
          return wanted.found == nullptr;
        },
        reinterpret_cast<LPARAM>(&search));
    return search.found;
  }
  Process process_;
  HWND window_ = nullptr;
};

// The screen, for people who want to see what the test saw.
void shot(const std::string& name) {
  ::Sleep(200);
  const SizePx size{::GetSystemMetrics(SM_CXSCREEN), ::GetSystemMetrics(SM_CYSCREEN)};
  const WindowDc screen(nullptr);
  GdiBitmap bitmap(size);
  if (!bitmap.ok()) return;
  ::BitBlt(bitmap.dc(), 0, 0, size.width, size.height, screen.get(), 0, 0, SRCCOPY);
  fs::create_directories("screenshots");
  EXPECT_TRUE(savePng(bitmap.pixels(), "screenshots/journey-" + name + ".png"));
}

class Journey : public testing::Test {
 protected:
  // Runs the console tool; what it prints.
  std::string tool(const std::wstring& arguments) {
    // A new file each time: the process before may hold its own for a moment longer.
    const fs::path output = folder_ / ("out" + std::to_string(++outputs_) + ".txt");
    SECURITY_ATTRIBUTES inherit{sizeof inherit, nullptr, TRUE};
    int code = -1;
    {
      const KernelHandle file(::CreateFileW(output.c_str(), GENERIC_WRITE, FILE_SHARE_READ, &inherit,
                                            CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr));
      const Process process(L"\"" + (programs() / "plinth" / "plinth.exe").wstring() + L"\" " + arguments,
                            file.get());
      code = process.wait();
    }
    std::ostringstream text;
    text << std::ifstream(output).rdbuf();
    EXPECT_EQ(code, 0) << fs::path(arguments).string() << "\n" << text.str();
    return text.str();
  }
  void SetUp() override {
    folder_ = fs::path(temp_.path());
    const std::wstring project = L"\"" + (folder_ / "Contacts.qvf").wstring() + L"\"";
    tool(L"new " + project + L" --example contacts");
    tool(L"create " + project + L" --output \"" + folder_.wstring() + L"\"");
    exe_ = folder_ / "Contacts" / "Contacts.exe";
    ASSERT_TRUE(fs::exists(exe_));
  }
  std::string records() { return tool(L"records \"" + exe_.wstring() + L"\" list --json"); }

  TempFolder temp_;
  fs::path folder_, exe_;
  int outputs_ = 0;
};

// Fields of the address book.
constexpr int kFirstName = kFieldId + 1, kLastName = kFieldId + 2, kQuantity = kFieldId + 15,
              kPrice = kFieldId + 16, kTotal = kFieldId + 17;

TEST_F(Journey, TypesTwoRecordsAndReadsThemBack) {
  {
    Running app(exe_);
    ASSERT_NE(app.window(), nullptr);
    EXPECT_NE(app.answer(IDYES).find(L"Contacts.dbd"), std::wstring::npos);
    ASSERT_TRUE(app.shows(kRecordBoxId, L"1"));
    app.type(kFirstName, L"ada");
    app.type(kLastName, L"lovelace");
    EXPECT_TRUE(app.shows(kLastName, L"Lovelace"));
    shot("contact");
    app.click(kPageTabId + 1);
    EXPECT_TRUE(waitFor([&] { return ::IsWindowVisible(app.control(kQuantity)) != FALSE; }));
    app.type(kQuantity, L"3");
    app.type(kPrice, L"12.5");
    app.click(kPageTabId);
    EXPECT_TRUE(app.shows(kTotal, L"37.50"));
    app.click(kPageTabId + 1);
    shot("order");
    app.click(kNewRecordId);
    ASSERT_TRUE(app.shows(kRecordBoxId, L"2"));
    app.click(kPageTabId);
    app.type(kFirstName, L"grace");
    EXPECT_TRUE(app.shows(kFirstName, L"Grace"));
    app.click(kNavigationId + 2);
    EXPECT_TRUE(app.shows(kFirstName, L"Ada"));
    EXPECT_EQ(app.close(), 0);
  }
  {
    Running app(exe_);
    ASSERT_TRUE(app.shows(kFirstName, L"Ada"));
    EXPECT_TRUE(app.shows(kTotal, L"37.50"));
    app.click(kNavigationId + 5);
    EXPECT_TRUE(app.shows(kFirstName, L"Grace"));
    shot("restarted");
    EXPECT_EQ(app.close(), 0);
  }
  const std::string all = records();
  EXPECT_NE(all.find("\"record\": 1"), std::string::npos);
  EXPECT_NE(all.find("\"Last_Name\": \"Lovelace\""), std::string::npos);
  EXPECT_NE(all.find("\"Total\": \"37.50\""), std::string::npos);
  EXPECT_NE(all.find("\"First_Name\": \"Grace\""), std::string::npos);
  EXPECT_EQ(all.find("\"record\": 3"), std::string::npos);
}

TEST_F(Journey, TwoCopiesShareOneFile) {
  Running first(exe_);
  ASSERT_FALSE(first.answer(IDYES).empty());
  ASSERT_TRUE(first.shows(kRecordBoxId, L"1"));
  first.click(kNewRecordId);
  ASSERT_TRUE(first.shows(kRecordBoxId, L"2"));
  first.click(kNavigationId + 0);
  ASSERT_TRUE(first.shows(kRecordBoxId, L"1"));
  Running second(exe_);
  ASSERT_TRUE(second.shows(kRecordBoxId, L"1"));
  // The first holds record 2 from its first key on.
  first.click(kNavigationId + 5);
  ASSERT_TRUE(first.shows(kRecordBoxId, L"2"));
  first.type(kFirstName, L"first");
  ASSERT_TRUE(first.shows(kFirstName, L"First"));
  second.click(kNavigationId + 5);
  EXPECT_NE(second.answer(IDOK).find(L"2"), std::wstring::npos);
  EXPECT_TRUE(second.shows(kRecordBoxId, L"1"));
  // Saved, it is everybody's.
  first.click(kNavigationId + 0);
  ASSERT_TRUE(first.shows(kRecordBoxId, L"1"));
  second.click(kNavigationId + 5);
  EXPECT_TRUE(second.shows(kRecordBoxId, L"2"));
  EXPECT_TRUE(second.shows(kFirstName, L"First"));
  EXPECT_EQ(first.close(), 0);
  EXPECT_EQ(second.close(), 0);
}

}  // namespace
}  // namespace plinth
