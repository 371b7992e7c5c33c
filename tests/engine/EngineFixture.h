// Applications and sessions for the engine's tests: everything in memory, with the payload open to each test.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "engine/FlatRecordStore.h"
#include "engine/RecordSession.h"
#include "engine/StartUp.h"
#include "tests/fakes/FakeClock.h"
#include "tests/fakes/FakeMessages.h"
#include "tests/fakes/FakeShell.h"
#include "tests/fakes/MemoryFiles.h"
#include "tests/fakes/MemorySharedFiles.h"

namespace plinth {

// 2023-03-15 12:00:00, a Wednesday.
inline constexpr double kTestNow = 45000.5;

inline PayloadField fieldRow(const std::string& tag, int kind, int length) {
  PayloadField row;
  row.page = 0;
  row.tag = tag;
  row.fieldType = static_cast<std::uint8_t>(kind);
  row.fieldLength = length;
  return row;
}

// F1 Name (text 10), F2 Price (2 decimals), F3 Count (whole), F4 Due (date), F5 Total = F2*F3, C1 Terms, K0
// Paid, M1 Notes.
inline Payload shopPayload() {
  Payload p;
  p.header.title = "Shop";
  p.fields = {PayloadField{},           fieldRow("Name", 0, 10), fieldRow("Price", 2, 12),
              fieldRow("Count", 5, 10), fieldRow("Due", 6, 30),  fieldRow("Total", 2, 12)};
  p.fields[5].formula = "F2*F3";
  PayloadCombo combo;
  combo.page = 0;
  combo.fieldLength = 8;
  combo.tag = "Terms";
  combo.items = {"Cash", "Net"};
  p.combos = {PayloadCombo{}, combo};
  PayloadCheck check;
  check.page = 0;
  check.tag = "Paid";
  p.checks = {check};
  PayloadMemo memo;
  memo.page = 0;
  memo.tag = "Notes";
  memo.fieldLength = 40;
  p.memos = {PayloadMemo{}, memo};
  std::int16_t order = 11;
  for (std::size_t n = 1; n < p.fields.size(); ++n) p.fields[n].exportOrder = order++;
  p.combos[1].exportOrder = order++;
  p.checks[0].exportOrder = order++;
  p.memos[1].exportOrder = order;
  p.titles.resize(8);
  p.titles[4].page = 0;
  p.titles[5].page = 0;
  p.titles[6].page = 0;
  p.titles[6].caption = "Goods";
  p.titles[7].page = 0;
  p.titles[7].link = ">";
  p.application.runCaptions[19] = "Search this field";
  return p;
}

// A view that writes down what it was told.
struct RecordingView : EngineView {
  std::vector<int> fields;
  int records = 0, pastes = 0;
  std::function<void()> onYield;  // what happens while waiting events run
  void yieldEvents() override {
    if (onYield) onYield();
  }
  void fieldChanged(int n) override { fields.push_back(n); }
  void recordShown() override { ++records; }
  void pasteRequested() override { ++pastes; }
};

// One user's program on a disk that several may share.
struct User {
  explicit User(const Payload& payload, std::shared_ptr<MemoryDisk> disk = std::make_shared<MemoryDisk>(),
                std::int64_t segmentBytes = kSegmentBytes)
      : files(disk), shared(disk) {
    messages.otherwise = true;
    StartUp start;
    start.proceed = true;
    start.application = makeApplication(payload);
    start.form = makeRecordForm(start.application);
    start.users = initialUsers(start.application);
    start.loginRequired = loginRequired(start.users);
    start.cfgPath = "/app/shop.cfg";
    start.data = {"/app/", "Shop.dbd", false};
    session = std::make_unique<RecordSession>(
        std::move(start), SessionServices{files, messages, clock, englishLocale(), shell,
                                          flatStoreOpener(shared, files, segmentBytes), &view, nullptr});
  }
  std::string text(int n) const { return session->form().fields[static_cast<std::size_t>(n)].text; }
  double date(int n) const { return session->form().fields[static_cast<std::size_t>(n)].date; }
  // Types over a field's text and leaves it.
  void type(int n, const std::string& text) {
    session->fieldGotFocus(n);
    session->fieldKeyDown(n, {'A', 0});
    session->fieldEdited(n, text);
    session->fieldLostFocus(n);
  }

  MemoryFiles files;
  MemorySharedFiles shared;
  FakeMessages messages;
  FakeClock clock{kTestNow};
  FakeShell shell;
  RecordingView view;
  std::unique_ptr<RecordSession> session;
};

}  // namespace plinth
