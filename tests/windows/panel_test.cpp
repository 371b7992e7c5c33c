// The property panel and the colour table as windows, worked by keys and clicks on a real project.
#include "platform/win32/WindowsApi.h"  // before what leans on it

#include <gtest/gtest.h>
#include <objbase.h>

#include <algorithm>
#include <filesystem>
#include <set>
#include <vector>

#include "platform/win32/GdiBitmap.h"
#include "platform/win32/GdiCanvas.h"
#include "platform/win32/Screenshot.h"
#include "surface/ToolIcons.h"
#include "surface/win32/ColorTableWindow.h"
#include "surface/win32/PanelWindow.h"
#include "surface/win32/WindowTools.h"
#include "tests/surface/DesignFixture.h"
#include "widgets/win32/WidgetClasses.h"

namespace plinth {
namespace {

constexpr int kCodePage = 1252;

void pump() {
  MSG message;
  while (::PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
    ::TranslateMessage(&message);
    ::DispatchMessageW(&message);
  }
}

void shot(HWND window, const std::string& name) {
  std::filesystem::create_directories("screenshots");
  pump();
  EXPECT_TRUE(saveScreenshot(window, "screenshots/panel-" + name + ".png"));
}

// Pixels at 96 dpi in those of the screen at hand.
int px(int pixels) { return static_cast<int>(pixels * windowScale(nullptr) + 0.5); }

RECT placeOn(HWND parent, HWND child) {
  RECT at;
  ::GetWindowRect(child, &at);
  ::MapWindowPoints(nullptr, parent, reinterpret_cast<POINT*>(&at), 2);
  return at;
}

std::vector<HWND> visibleChildren(HWND parent) {
  std::vector<HWND> found;
  for (HWND each = ::GetWindow(parent, GW_CHILD); each; each = ::GetWindow(each, GW_HWNDNEXT))
    if (::IsWindowVisible(each)) found.push_back(each);
  return found;
}

// A key as the program's message loop passes it on: first to the window's translate().
template <class Window>
void key(Window& window, WPARAM code) {
  const MSG message{::GetFocus(), WM_KEYDOWN, code, 1, 0, {}};
  if (!window.translate(message)) ::SendMessageW(message.hwnd, WM_KEYDOWN, code, 1);
  pump();
}

void type(HWND window, const char* letters) {
  for (; *letters; ++letters) ::SendMessageW(window, WM_CHAR, static_cast<WPARAM>(*letters), 1);
}

// A top-level window to hold the one under test.
class Owner {
 public:
  explicit Owner(SIZE client) {
    ::CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
    RECT area{0, 0, client.cx, client.cy};
    ::AdjustWindowRect(&area, WS_OVERLAPPEDWINDOW, FALSE);
    window_ =
        ::CreateWindowExW(0, L"STATIC", L"", WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN, 0, 0,
                          area.right - area.left, area.bottom - area.top, nullptr, nullptr, nullptr, nullptr);
    ::ShowWindow(window_, SW_SHOW);
    ::SetForegroundWindow(window_);
  }
  ~Owner() {
    ::DestroyWindow(window_);
    pump();
    ::CoUninitialize();
  }
  HWND window() const { return window_; }

 private:
  HWND window_;
};

class PanelWindows : public testing::Test {
 protected:
  PanelWindows() {
    for (const KindInfo& info : kindInfos()) objects.push_back(design.add(info.kind, {20, 30, 120, 60}));
    design.document.fields.back().tag = "Name";
    design.settle();
    ::MoveWindow(window.window(), 0, 0, window.width(), px(kHigh), TRUE);
  }
  void pick(ObjectKind kind) {
    select(design.state, objects[static_cast<std::size_t>(kind)]);
    show();
  }
  void show() {
    panel.fill();
    window.show(panel);
    pump();
  }
  // What the frame does when a person changes something.
  PanelEvents events() {
    return {[this](PanelId id, const std::string& value) {
              written.push_back({id, value});
              panel.write(id, value);
              show();
            },
            [this](PanelId id) { opened.push_back(id); },
            [this](int dx, int dy, bool ten) {
              moves.push_back({dx, dy, ten});
            },
            [this] { ++left; }};
  }
  HWND control(PanelId id) const { return window.control(id); }
  std::string text(PanelId id) const { return windowText(control(id), kCodePage); }
  void click(HWND at) { ::SendMessageW(at, BM_CLICK, 0, 0); }
  void zone(UINT message, int column, int row) {
    const HWND pad = ::GetDlgItem(window.window(), PanelWindow::kPadId);
    RECT area;
    ::GetClientRect(pad, &area);
    ::SendMessageW(pad, message, 0,
                   MAKELPARAM(area.right * (2 * column + 1) / 6, area.bottom * (2 * row + 1) / 6));
  }

  static constexpr int kHigh = 740;
  using Written = std::vector<std::pair<PanelId, std::string>>;
  struct Step {
    int dx, dy;
    bool ten;
    bool operator==(const Step&) const = default;
  };
  DesignFixture design;
  std::vector<ObjectRef> objects;  // one of each kind
  PropertyPanel panel{design.context};
  Owner owner{{px(PanelWindow::kWidth), px(kHigh)}};
  Written written;
  std::vector<PanelId> opened;
  std::vector<Step> moves;
  int left = 0;
  PanelWindow window{owner.window(), 100, events()};
};

TEST_F(PanelWindows, ShowsWhatAKindHasWithoutOverlapsOrHoles) {
  constexpr int kMostGap = 48;  // a heading between two groups
  for (const KindInfo& info : kindInfos()) {
    SCOPED_TRACE(info.noun);
    pick(info.kind);
    shot(owner.window(), std::string(info.noun));
    for (const PanelControl& each : panel.controls())
      EXPECT_EQ(static_cast<bool>(::IsWindowVisible(control(each.id))), each.shown) << each.english;
    std::vector<RECT> places;
    for (const HWND child : visibleChildren(window.window()))
      places.push_back(placeOn(window.window(), child));
    std::sort(places.begin(), places.end(), [](const RECT& a, const RECT& b) { return a.top < b.top; });
    LONG below = 0;
    for (auto each = places.begin(); each != places.end(); ++each) {
      EXPECT_LE(each->top - below, px(kMostGap));
      below = std::max(below, each->bottom);
      EXPECT_GE(each->left, 0);
      EXPECT_LE(each->right, window.width());
      for (auto other = places.begin(); other != each; ++other) {
        RECT both;
        EXPECT_FALSE(::IntersectRect(&both, &*each, &*other)) << both.left << ", " << both.top;
      }
    }
  }
  selectNothing(design.state);
  show();
  shot(owner.window(), "nothing");
  for (const PanelId id : panelOrder())
    EXPECT_FALSE(::IsWindowEnabled(control(id)) && ::IsWindowVisible(control(id)));
}

TEST_F(PanelWindows, TabReachesEachControlOnceAndEachHasAName) {
  pick(ObjectKind::Field);
  ::SetFocus(control(PanelId::fieldLabel));
  std::vector<HWND> stops;
  for (int i = 0; i < 40; ++i) {
    key(window, VK_TAB);
    HWND stop = ::GetFocus();
    while (::GetParent(stop) != window.window()) stop = ::GetParent(stop);
    if (std::find(stops.begin(), stops.end(), stop) != stops.end()) break;
    stops.push_back(stop);
    const HWND before = ::GetWindow(stop, GW_HWNDPREV);
    wchar_t type[20] = {};
    ::GetClassNameW(before, type, 20);
    const bool captioned = std::wstring(type) == L"Static" && !windowText(before, kCodePage).empty();
    EXPECT_TRUE(captioned || !windowText(stop, kCodePage).empty()) << ::GetDlgCtrlID(stop);
  }
  std::set<HWND> wanted{::GetDlgItem(window.window(), PanelWindow::kPadId)};
  for (const PanelControl& each : panel.controls())  // of the options one stands for all
    if (each.enabled && each.input != PanelInput::label && (each.input != PanelInput::option || each.checked))
      wanted.insert(control(each.id));
  EXPECT_EQ(std::set<HWND>(stops.begin(), stops.end()), wanted);
  EXPECT_TRUE(written.empty()) << "the focus alone must change nothing";
}

TEST_F(PanelWindows, LinesWriteAtEachChangeThroughTheFilterAndKeepTheirCaret) {
  pick(ObjectKind::Field);
  const HWND name = control(PanelId::fieldLabel), length = control(PanelId::fieldLength);
  ::SetFocus(name);
  ::SendMessageW(name, EM_SETSEL, 1, 1);
  type(name, ", x");
  EXPECT_EQ(text(PanelId::fieldLabel), "N_xame");
  EXPECT_EQ(written, (Written{{PanelId::fieldLabel, "N_ame"}, {PanelId::fieldLabel, "N_xame"}}));
  DWORD caret = 0;
  ::SendMessageW(name, EM_GETSEL, reinterpret_cast<WPARAM>(&caret), 0);
  EXPECT_EQ(caret, 3u);
  ::SendMessageW(length, EM_SETSEL, 0, -1);
  type(length, "3x01");
  EXPECT_EQ(text(PanelId::fieldLength), "300") << "above the limit the panel puts its own text";
}

TEST_F(PanelWindows, ReadOutsWriteWhenTheyAreFinished) {
  pick(ObjectKind::Memo);
  const HWND x = control(PanelId::left);
  const auto retype = [x](const char* letters) {
    ::SetFocus(x);
    ::SendMessageW(x, EM_SETSEL, 0, -1);
    type(x, letters);
  };
  retype("77");
  EXPECT_TRUE(written.empty());
  window.showPlaces(panel);
  EXPECT_EQ(text(PanelId::left), "77") << "what is being typed stays";
  key(window, VK_RETURN);
  EXPECT_EQ(written, (Written{{PanelId::left, "77"}}));
  EXPECT_EQ(left, 1);
  retype("88");
  ::SetFocus(control(PanelId::top));
  EXPECT_EQ(written.back(), (std::pair{PanelId::left, std::string("88")}));
  retype("99");
  key(window, VK_ESCAPE);
  EXPECT_EQ(text(PanelId::left), "88");
  EXPECT_EQ(written.size(), 2u);
  EXPECT_EQ(left, 2);
  retype("66");
  window.finish();  // a command of the menu: nothing takes the focus away
  EXPECT_EQ(written.back(), (std::pair{PanelId::left, std::string("66")}));
  EXPECT_EQ(::GetFocus(), x);
}

TEST_F(PanelWindows, ClicksReachThePanel) {
  pick(ObjectKind::Field);
  click(control(PanelId::color2));
  EXPECT_EQ(opened, std::vector{PanelId::color2});
  click(control(PanelId::bold));
  click(control(PanelId::alignRight));
  click(control(PanelId::alignRight));  // chosen already
  click(control(PanelId::allPages));
  click(control(PanelId::allPages));
  EXPECT_EQ(written, (Written{{PanelId::bold, "1"},
                              {PanelId::alignRight, "1"},
                              {PanelId::allPages, "1"},
                              {PanelId::allPages, ""}}));
  written.clear();
  const HWND border = control(PanelId::borderStyle);
  ::SendMessageW(border, SBM_SETPOS, 4, TRUE);
  ::SendMessageW(window.window(), WM_HSCROLL, MAKEWPARAM(SB_THUMBTRACK, 4), reinterpret_cast<LPARAM>(border));
  EXPECT_EQ(written, (Written{{PanelId::borderStyle, "4"}}));
  zone(WM_LBUTTONDOWN, 0, 0);
  zone(WM_RBUTTONDOWN, 2, 1);
  zone(WM_LBUTTONDOWN, 1, 1);  // the middle moves nothing
  ::SendMessageW(::GetDlgItem(window.window(), PanelWindow::kPadId), WM_KEYDOWN, VK_DOWN, 1);
  EXPECT_EQ(moves, (std::vector<Step>{{-1, -1, false}, {1, 0, true}, {0, 1, false}}));
}

TEST_F(PanelWindows, FontsAreChosenFromTheListOrTyped) {
  pick(ObjectKind::Title);
  const HWND sizes = control(PanelId::fontSize), names = control(PanelId::fontName);
  EXPECT_GT(::SendMessageW(names, CB_GETCOUNT, 0, 0), 1);
  ::SendMessageW(sizes, CB_SETCURSEL, 4, 0);
  const HWND inner = reinterpret_cast<HWND>(::SendMessageW(sizes, kComboGetInner, 0, 0));
  ::SendMessageW(::GetParent(inner), WM_COMMAND, MAKEWPARAM(::GetDlgCtrlID(inner), CBN_SELCHANGE),
                 reinterpret_cast<LPARAM>(inner));
  EXPECT_EQ(written, (Written{{PanelId::fontSize, "12"}}));
  EXPECT_EQ(design.document.titles.back().fontSize, 12);
  const HWND line = reinterpret_cast<HWND>(::SendMessageW(sizes, kComboGetEdit, 0, 0));
  ::SendMessageW(line, EM_SETSEL, 0, -1);
  type(line, "20");
  EXPECT_EQ(design.document.titles.back().fontSize, 20);
}

TEST_F(PanelWindows, TheSameAgainPaintsNothing) {
  pick(ObjectKind::Field);
  ::RedrawWindow(window.window(), nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
  window.show(panel);
  window.showPlaces(panel);
  EXPECT_FALSE(::GetUpdateRect(window.window(), nullptr, FALSE));
  for (const HWND child : visibleChildren(window.window()))
    EXPECT_FALSE(::GetUpdateRect(child, nullptr, FALSE)) << ::GetDlgCtrlID(child);
}

TEST_F(PanelWindows, ALowWindowScrollsByWheelAndToTheFocus) {
  pick(ObjectKind::Field);
  ::MoveWindow(window.window(), 0, 0, window.width(), px(300), TRUE);
  const auto top = [this](PanelId id) { return placeOn(window.window(), control(id)).top; };
  const LONG before = top(PanelId::left);
  ::SendMessageW(window.window(), WM_MOUSEWHEEL, MAKEWPARAM(0, -WHEEL_DELTA), 0);
  EXPECT_LT(top(PanelId::left), before);
  shot(owner.window(), "scrolled");
  ::SendMessageW(window.window(), WM_MOUSEWHEEL, MAKEWPARAM(0, 100 * WHEEL_DELTA), 0);
  EXPECT_EQ(top(PanelId::left), before);
  ::SetFocus(control(PanelId::fieldLabel));
  for (int i = 0; i < 30 && ::GetFocus() != control(PanelId::noChart); ++i) key(window, VK_TAB);
  const RECT last = placeOn(window.window(), control(PanelId::noChart));
  EXPECT_TRUE(last.top >= 0 && last.bottom <= px(300)) << last.top;
}

TEST_F(PanelWindows, DarkColorsAndAnotherLanguageReachEveryControl) {
  pick(ObjectKind::Field);
  const auto brightest = [this] {
    std::uint64_t sum = 0;
    const Pixels pixels = windowPixels(window.window());
    for (const std::uint32_t pixel : pixels.argb) sum += (pixel >> 8 & 0xFF);
    return sum / std::max<std::size_t>(1, pixels.argb.size());
  };
  window.setColors(chromeColors(false));
  shot(owner.window(), "light");
  EXPECT_GT(brightest(), 190u);
  window.setColors(chromeColors(true));
  window.retext([](int, const char* english) { return "\xDC" + std::string(english); }, kCodePage);
  shot(owner.window(), "dark");
  EXPECT_LT(brightest(), 90u);
  EXPECT_EQ(text(PanelId::noChart),
            "\xDC"
            "Field can be charted...");
  EXPECT_EQ(text(PanelId::fieldLabel), "Name") << "texts of objects are not the language's";
  design.document.fields.back().foreColor = 0xFFFFFF;
  show();
  shot(owner.window(), "white-item");
}

// Presses OK in the system's colour dialog when it has come up.
void CALLBACK pressOk(HWND, UINT, UINT_PTR, DWORD) {
  wchar_t type[10] = {};
  const HWND dialog = ::GetActiveWindow();
  if (dialog && ::GetClassNameW(dialog, type, 10) && std::wstring(type) == L"#32770")
    ::PostMessageW(dialog, WM_COMMAND, IDOK, 0);
}

TEST(ColorTableWindows, ChoosesByKeysMouseAndDigits) {
  const Owner owner({600, 400});
  ProjectDocument document;
  ColorTable table(document.palette);
  std::vector<std::int32_t> used;
  POINT kept{};
  int palettes = 0;
  ColorTableWindow window(owner.window(), table,
                          {[&](std::int32_t color) { used.push_back(color); }, [&] { ++palettes; },
                           [] {
                             return std::optional<POINT>({40, 50});
                           },
                           [&](POINT at) { kept = at; }});
  window.retext([](int, const char* english) { return std::string(english); }, kCodePage);
  EXPECT_EQ(windowText(window.window(), kCodePage), "Color Table");
  const HWND swatches = ::GetDlgItem(window.window(), ColorTableWindow::kSwatchesId),
             digits = ::GetDlgItem(window.window(), ColorTableWindow::kDigitsId);
  window.open(document.palette[20]);
  shot(window.window(), "colors");
  EXPECT_EQ(table.chosenSwatch(), 20);
  key(window, VK_LEFT);
  key(window, VK_DOWN);
  EXPECT_EQ(table.chosenSwatch(), 35);
  for (int i = 0; i < 9; ++i) key(window, VK_DOWN);
  EXPECT_EQ(table.chosenSwatch(), 83);
  key(window, VK_RETURN);
  RECT area;
  ::GetClientRect(swatches, &area);
  const LPARAM second = MAKELPARAM(area.right * 3 / 32, area.bottom / 12);
  ::SendMessageW(swatches, WM_LBUTTONDOWN, 0, second);
  EXPECT_EQ(windowText(digits, kCodePage), "404040");
  ::SendMessageW(swatches, WM_LBUTTONDBLCLK, 0, second);
  key(window, VK_TAB);
  ASSERT_EQ(::GetFocus(), digits);
  type(digits, "12ab3");
  shot(window.window(), "colors-typed");
  EXPECT_EQ(table.chosen(), 0x12AB3);
  key(window, VK_RETURN);
  EXPECT_EQ(used, (std::vector<std::int32_t>{document.palette[83], 0x404040, 0x12AB3}));
  const UINT_PTR timer = ::SetTimer(nullptr, 0, 30, pressOk);
  ::SendMessageW(window.window(), WM_COMMAND, ColorTableWindow::kMoreId, 0);
  ::KillTimer(nullptr, timer);
  EXPECT_EQ(document.palette[83], 0x12AB3) << "the first free swatch takes it";
  EXPECT_EQ(palettes, 1);
  window.setColors(chromeColors(true));
  shot(window.window(), "colors-dark");
  key(window, VK_ESCAPE);
  EXPECT_FALSE(window.visible());
  EXPECT_EQ(kept.x, 40);
  EXPECT_EQ(kept.y, 50);
}

TEST(ToolIcons, DifferFromEachOtherAndStayInTheirSquare) {
  constexpr std::int32_t kInk = 0xFFFFFF;
  for (const int size : {12, 16, 20, 24, 37, 64}) {
    SCOPED_TRACE(size);
    std::set<std::vector<std::uint32_t>> faces;
    const auto add = [&](auto icon, bool enabled) {
      const GdiBitmap bitmap(SizePx{size + 8, size + 8});
      {
        GdiCanvas canvas(bitmap.dc());
        paintToolIcon(canvas, {4, 4, size, size}, icon, kInk, enabled);
      }
      const Pixels pixels = bitmap.pixels();
      for (int y = 0; y < size + 8; ++y)
        for (int x = 0; x < size + 8; ++x) {
          const bool inside = x >= 4 && y >= 4 && x < size + 4 && y < size + 4;
          const auto at = static_cast<std::size_t>(y * (size + 8) + x);
          if (inside) continue;
          ASSERT_EQ(pixels.argb[at] & 0xFFFFFF, 0u) << static_cast<int>(icon) << ": " << x << ", " << y;
        }
      faces.insert(pixels.argb);
    };
    for (int tool = 0; tool < kTools; ++tool)
      for (const bool enabled : {true, false}) add(static_cast<Tool>(tool), enabled);
    for (int action = 0; action < kActionIcons; ++action)
      for (const bool enabled : {true, false}) add(static_cast<ActionIcon>(action), enabled);
    EXPECT_EQ(faces.size(), 2u * (kTools + kActionIcons));
    for (const KindInfo& info : kindInfos()) add(info.kind, true);  // each is one of the tools'
    EXPECT_EQ(faces.size(), 2u * (kTools + kActionIcons));
  }
}

}  // namespace
}  // namespace plinth
