// A person searches, sorts and presses buttons in an application of 10,000 records.
#include "basic/DisplayFormat.h"
#include "engine/win32/EngineTools.h"
#include "tests/windows/EngineWindowFixture.h"
#include "widgets/win32/ListPlus.h"

namespace plinth {
namespace {

constexpr int kRecords = 10000, kLineId = 10, kListId = 10, kStatusId = 11;

// Name "Item <n>", every tenth "Zephyr <n>"; price n, count n mod 7.
class SearchWindows : public EngineWindows {
 protected:
  void SetUp() override {
    payload.fields[kName].fieldLength = 20;
    PayloadMenus& menus = payload.application.menus;
    menus.finden3 = "Sort Old-New", menus.finden4 = "Sort &A-Z", menus.finden5 = "Sort &Z-A";
    payload.header.indexCaption = "Index";
    payload.buttons[0].tag.clear();
    payload.buttons[0].caption = "Sum";
    payload.buttons[0].script = "sum Count\r\nf2=SumTotal$";
    payload.application.showColumns = {kName, kPrice, kCount};
    payload.application.resultOptions = {1, 1, 1, 1, 0};
    fill();
    EngineWindows::SetUp();
  }
  void fill() {
    const Application app = makeApplication(payload);
    auto store = FlatRecordStore::open(systemSharedFiles(), systemFiles(), app, englishLocale(),
                                       {folder / "Shop.dbd", true, false, kNow, "Shop"});
    ASSERT_TRUE(store.ok());
    RecordForm form = makeRecordForm(app);
    for (int n = 1; n <= kRecords; ++n) {
      form.fields[kName].text = (n % 10 ? "Item " : "Zephyr ") + std::to_string(n);
      form.fields[kPrice].text = std::to_string(n);
      form.fields[kCount].text = std::to_string(n % 7);
      ASSERT_TRUE((*store)->append().ok());
      ASSERT_TRUE((*store)->save(n, form).ok());
      (*store)->unlock(n);
    }
  }
  static HWND visible(const wchar_t* className) {
    HWND found = nullptr;
    while ((found = ::FindWindowExW(nullptr, found, className, nullptr)) && !::IsWindowVisible(found)) {
    }
    return found;
  }
  // Types a line into the search window and runs it; the window with what it found.
  HWND search(const wchar_t* line) {
    ::SetFocus(control(kFieldId + kName));
    pump();
    menu(MenuId::finden0);
    const HWND window = visible(L"PlinthSearch");
    EXPECT_NE(window, nullptr);
    ::SetWindowTextW(::GetDlgItem(window, kLineId), line);
    shotOf(window, "search-line");
    ::SendMessageW(::GetDlgItem(window, IDOK), BM_CLICK, 0, 0);
    pump();
    EXPECT_FALSE(::IsWindowVisible(window));
    return visible(L"PlinthResults");
  }
  static std::string textOf(HWND window, int id) {
    wchar_t text[256] = {};
    ::GetDlgItemTextW(window, id, text, 256);
    return std::filesystem::path(text).string();
  }
  void shotOf(HWND window, const std::string& name) {
    ::UpdateWindow(window);
    pump();
    std::filesystem::create_directories("screenshots");
    EXPECT_TRUE(saveScreenshot(window, "screenshots/engine-" + name + ".png"));
  }
};

TEST_F(SearchWindows, RowLeadsToItsRecord) {
  const HWND results = search(L"zephyr");
  ASSERT_NE(results, nullptr);
  const HWND list = ::GetDlgItem(results, kListId);
  ListModel& rows = *listModel(list);
  EXPECT_EQ(rows.listCount(), kRecords / 10);
  EXPECT_EQ(textOf(results, kStatusId), "Found 1,000 records");
  EXPECT_EQ(rows.getItem(2, 1), "Zephyr 30");
  rows.setCaret(2);
  shotOf(results, "results");
  ::SendMessageW(list, WM_KEYDOWN, VK_RETURN, 0);
  pump();
  EXPECT_EQ(fieldShown(kName), "Zephyr 30");
  // What was typed is saved before another row's record comes.
  typeField(kCount, L"99");
  rows.setCaret(3);
  ::SendMessageW(list, WM_KEYDOWN, VK_RETURN, 0);
  pump();
  EXPECT_EQ(fieldShown(kName), "Zephyr 40");
  session->goToRecord(30);
  EXPECT_EQ(fieldShown(kCount), "99");
  // By another column, downwards.
  rows.sortBy(3, true);
  EXPECT_EQ(rows.getItem(0, 3), "10,000.00");

  const HWND second = search(L"select Price where Count=6 Name=z*");
  EXPECT_NE(second, results);
  ::SendMessageW(second, WM_CLOSE, 0, 0);
  ::SendMessageW(results, WM_CLOSE, 0, 0);
  EXPECT_EQ(visible(L"PlinthResults"), nullptr);
  EXPECT_FALSE(settings.get("Settings", "SearchLeft", "").empty());
}

TEST_F(SearchWindows, CommandsShowTheirTotalsAndWriteOnRequest) {
  EXPECT_EQ(search(L"count Name=zephyr*"), nullptr);
  search(L"replace Code=old where Price<101");
  EXPECT_EQ(messages.texts(), (std::vector<std::string>{"1000 Total", "100 Replacements"}));
  EXPECT_EQ(fieldShown(kCode), "old");
  ::SetFocus(control(kFieldId + kName));
  pump();
  const HWND empty = search(L"nothing of this kind");
  EXPECT_EQ(textOf(empty, kStatusId), "Nothing found");
  shotOf(empty, "nothing-found");
}

TEST_F(SearchWindows, SortedViewIsWalkedDownwards) {
  ::SetFocus(control(kFieldId + kPrice));
  pump();
  menu(MenuId::finden5);
  EXPECT_EQ(fieldShown(kPrice), "10,000.00");
  click(kNavigationId + 3);
  EXPECT_EQ(fieldShown(kPrice), "9,999.00");
  shot("sorted");
  menu(MenuId::finden3);
  EXPECT_EQ(fieldShown(kPrice), "1.00");
  menu(MenuId::indexFld);
  EXPECT_TRUE(std::filesystem::exists(std::filesystem::path(folder / "ShopPrice-0.inx")));
}

TEST_F(SearchWindows, ButtonSumsIntoAField) {
  ::SetFocus(control(kButtonId));
  click(kButtonId);
  EXPECT_EQ(::GetFocus(), control(kButtonId));
  double sum = 0;
  for (int n = 1; n <= kRecords; ++n) sum += n % 7;
  EXPECT_EQ(fieldShown(kPrice), plainNumber(sum));
  EXPECT_TRUE(messages.texts().empty());
  shot("script");
}

}  // namespace
}  // namespace plinth
