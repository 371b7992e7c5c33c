// The journeys of a person in the main window, without the window: typing, moving, new and erased records,
// locks.
#include "engine/RecordSession.h"

#include <gtest/gtest.h>

#include "tests/engine/EngineFixture.h"

namespace plinth {
namespace {

struct SessionTest : ::testing::Test {
  // Opens a new data file and fills records 1 to `count` with names "r1", "r2", ...
  static void fill(User& user, int count) {
    ASSERT_TRUE(user.session->openData(false));
    for (int n = 1; n <= count; ++n) {
      if (n > 1) user.session->newbutClick();
      user.type(1, "r" + std::to_string(n));
    }
    user.session->command2Click(0);
    user.view = {};
  }
  User user{shopPayload()};
  RecordSession& s = *user.session;
};

TEST_F(SessionTest, AsksBeforeItMakesTheDataFile) {
  user.messages.answers = {false};
  EXPECT_FALSE(s.openData(false));
  EXPECT_EQ(user.messages.texts().back(), "The file Shop.dbd does not exist. Create it?");
  EXPECT_FALSE(user.files.exists("/app/Shop.dbd"));
  EXPECT_FALSE(s.beginEdit());
  ASSERT_TRUE(s.openData(false));
  EXPECT_EQ(s.recCount(), 1);
  EXPECT_EQ(s.text1(), "1");
  EXPECT_EQ(user.text(4), "2023-03-15") << "today, as a date field starts";
  EXPECT_EQ(s.form().titles[4], "2023-03-15");
  EXPECT_EQ(s.form().titles[5], "00000001");
  EXPECT_FALSE(s.dirty());
}

TEST_F(SessionTest, TypedValuesAreFormattedComputedSavedAndBackAfterARestart) {
  fill(user, 1);
  user.type(1, "Apples and pears");
  user.type(2, "1234.5");
  user.type(3, "2");
  user.type(4, "12/24/2023");
  s.comboClick(1, "Cash");
  s.checkClick(0);
  s.memoGotFocus(1);
  s.memoEdited(1, "fresh");
  EXPECT_EQ(user.text(1), "Apples and") << "cut to its length";
  EXPECT_EQ(user.text(2), "1,234.50");
  EXPECT_EQ(user.text(5), "2,469.00");
  EXPECT_EQ(user.text(4), "2023-12-24");
  EXPECT_TRUE(s.dirty());
  ASSERT_TRUE(s.close());
  User again(shopPayload(), user.files.disk);
  ASSERT_TRUE(again.session->openData(false));
  EXPECT_TRUE(again.messages.shown.empty());
  EXPECT_EQ(again.text(1), "Apples and");
  EXPECT_EQ(again.text(5), "2,469.00");
  EXPECT_EQ(again.date(4), 45284);
  EXPECT_EQ(again.session->form().combos[1].text, "Cash");
  EXPECT_EQ(again.session->form().checks[0].value, 1);
  EXPECT_EQ(again.session->form().memos[1].text, "fresh");
}

TEST_F(SessionTest, NavigationClampsAndTenStepsStayInPlaceAtTheEnds) {
  fill(user, 25);
  const struct {
    int code;
    const char* at;
  } steps[] = {{2, "1"},  {3, "2"},  {4, "12"}, {1, "2"},  {1, "2"},  {4, "12"}, {4, "22"},
               {4, "22"}, {5, "25"}, {3, "25"}, {2, "24"}, {1, "14"}, {0, "1"},  {9, "1"}};
  for (const auto& step : steps) {
    s.command2Click(step.code);
    ASSERT_EQ(s.text1(), step.at) << step.code;
    EXPECT_EQ(user.text(1), "r" + s.text1());
  }
  s.text1Enter("17");
  EXPECT_EQ(user.text(1), "r17");
  s.text1Enter("99");
  EXPECT_EQ(user.text(1), "r25") << "beyond the end is the last";
  s.text1Enter("0");
  EXPECT_EQ(user.text(1), "r25");
  EXPECT_EQ(s.text1(), "25");
  EXPECT_EQ(user.messages.texts().back(), "There is no such record.");
  EXPECT_TRUE(s.formKeyDown({'1', kCtrl}));
  EXPECT_EQ(s.text1(), "1");
  EXPECT_FALSE(s.formKeyDown({'7', kCtrl}));
  EXPECT_TRUE(s.formKeyDown({45, kCtrl}));
  EXPECT_EQ(s.text1(), "26");
  s.titleClick(7);
  EXPECT_EQ(s.text1(), "26") << "its link, forward, has nowhere to go";
}

TEST_F(SessionTest, SortedViewsMoveThroughTheirOrderAndNewRecordsComeLast) {
  fill(user, 3);
  s.setView(1, {3, 1, 2});
  EXPECT_EQ(user.text(1), "r3");
  s.command2Click(3);
  EXPECT_EQ(user.text(1), "r1");
  s.newbutClick();
  s.command2Click(5);
  EXPECT_EQ(s.curRec(), 4);
  s.setView(2, {3, 1, 2});
  EXPECT_EQ(user.text(1), "r2");
}

TEST_F(SessionTest, MovingSavesWhatIsBeingTyped) {
  fill(user, 2);
  s.fieldGotFocus(4);
  s.fieldKeyDown(4, {'5', 0});
  s.fieldEdited(4, "5/6/2024");
  s.formKeyDown({'4', kCtrl});  // the box still has the focus
  s.command2Click(2);
  EXPECT_EQ(user.text(4), "2024-05-06");
}

TEST_F(SessionTest, OnlyChangesMakeARecordDirty) {
  fill(user, 2);
  s.fieldGotFocus(1);
  for (const KeyEvent key : {KeyEvent{9, 0}, {16, 0}, {35, 0}, {13, 0}, {'C', kCtrl}, {'X', kAlt}, {112, 0}})
    EXPECT_FALSE(s.fieldKeyDown(1, key).swallow) << key.key;
  EXPECT_EQ(s.fieldKeyDown(1, {38, 0}).scroll, -1);
  s.fieldLostFocus(1);
  EXPECT_FALSE(s.dirty());
  EXPECT_FALSE(s.fieldKeyDown(1, {'X', kCtrl}).swallow);
  EXPECT_TRUE(s.dirty());
  // Left without a change: nothing is computed, so the formula does not write into the box again.
  user.view.fields.clear();
  s.fieldLostFocus(1);
  EXPECT_TRUE(user.view.fields.empty());
}

TEST_F(SessionTest, FunctionKeysTypeTextsFieldsAndDates) {
  Payload p = shopPayload();
  p.application.functionKeys = {"", "Dear ", "1", "*yyyy", "", "", "", "", "", "", "", "bye"};
  User other(p);
  fill(other, 2);
  RecordSession& o = *other.session;
  EXPECT_EQ(o.fieldKeyDown(2, {113, 0}).insert, "Dear ");
  EXPECT_EQ(o.fieldKeyDown(2, {114, 0}).insert, "r1");
  EXPECT_EQ(o.fieldKeyDown(2, {115, 0}).insert, "2023");
  EXPECT_EQ(o.fieldKeyDown(2, {123, 0}).insert, "bye");
  EXPECT_FALSE(o.fieldKeyDown(2, {121, 0}).swallow) << "F10 without a text stays the menu's";
  EXPECT_EQ(o.fieldKeyDown(2, {112 + 3, kShift}).swallow, true);
  EXPECT_EQ(o.text1(), "2") << "Shift+F4 goes forward";
}

TEST_F(SessionTest, PauseKeyStopsTime) {
  fill(user, 1);
  s.fieldGotFocus(1);
  s.fieldKeyDown(1, {19, 0});
  EXPECT_TRUE(s.stopWatchRunning());
  user.clock.serial += 2.5 / 86400;
  s.fieldKeyDown(1, {19, 0});
  EXPECT_FALSE(s.stopWatchRunning());
  EXPECT_EQ(user.text(1), "2.50");
  s.fieldLostFocus(1);
  EXPECT_EQ(user.text(1), "2.50");
}

TEST_F(SessionTest, LockOnceBoxesTakeTypingInNewAndErasedRecordsOnly) {
  Payload p = shopPayload();
  p.fields[1].lockEntry = 1;
  p.combos[1].lockEntry = 1;
  User other(p);
  RecordSession& o = *other.session;
  ASSERT_TRUE(o.openData(false));
  other.type(1, "first");
  o.newbutClick();
  other.type(1, "second");
  EXPECT_EQ(other.text(1), "second");
  o.command2Click(0);
  other.type(1, "changed");
  o.comboClick(1, "Net");
  EXPECT_EQ(other.text(1), "first");
  EXPECT_EQ(o.form().combos[1].text, "");
  EXPECT_TRUE(o.fieldKeyDown(1, {'A', 0}).swallow);
  EXPECT_FALSE(o.dirty());
  o.erasefileClick();
  other.type(1, "again");
  EXPECT_EQ(other.text(1), "again");
  o.text1Enter("0");  // no such record: this one stays, but it is no new one any more
  other.type(1, "once more");
  EXPECT_EQ(other.text(1), "again");
}

TEST_F(SessionTest, ErasingEmptiesInPlaceAndReachesTheDiskWithTheNextSave) {
  Payload p = shopPayload();
  p.pictures.resize(1);
  p.pictures[0].page = 0;
  User other(p);
  RecordSession& o = *other.session;
  fill(other, 2);
  other.files.put("/app/ShopPics/00000001", "image");
  const Bytes before = other.files.disk->find("/app/Shop.dbd")->bytes;
  o.erasefileClick();
  EXPECT_EQ(other.text(1), "");
  EXPECT_EQ(other.text(4), "2023-03-15");
  EXPECT_EQ(other.files.disk->find("/app/Shop.dbd")->bytes, before);
  o.command2Click(3);
  EXPECT_EQ(o.recCount(), 2);
  EXPECT_EQ(other.text(1), "r2");
  EXPECT_NE(other.files.disk->find("/app/Shop.dbd")->bytes, before);
}

TEST_F(SessionTest, ReadOnlyFilesOpenWithEveryBoxLocked) {
  fill(user, 2);
  s.close();
  user.files.setReadOnly("/app/Shop.dbd", true);
  User reader(shopPayload(), user.files.disk);
  RecordSession& r = *reader.session;
  ASSERT_TRUE(r.openData(false));
  EXPECT_TRUE(r.readOnly());
  EXPECT_TRUE(r.form().fields[2].locked && r.form().memos[1].locked && r.form().checks[0].locked);
  reader.type(1, "no");
  r.checkClick(0);
  r.newbutClick();
  r.erasefileClick();
  EXPECT_EQ(reader.text(1), "r1");
  EXPECT_EQ(r.recCount(), 2);
  r.command2Click(3);
  EXPECT_EQ(reader.text(1), "r2");
}

TEST_F(SessionTest, ARecordInUseIsSteppedOverWithItsMessage) {
  fill(user, 3);
  User bob(shopPayload(), user.files.disk);
  RecordSession& b = *bob.session;
  ASSERT_TRUE(b.openData(false));
  s.goToRecord(2);
  user.type(1, "mine");
  b.command2Click(3);
  EXPECT_EQ(bob.messages.texts().back(), "Record 2 is in use by another user.");
  EXPECT_EQ(b.text1(), "3");
  b.command2Click(2);
  EXPECT_EQ(b.text1(), "1") << "backwards it goes on backwards";
  s.command2Click(3);
  b.command2Click(3);
  EXPECT_EQ(bob.text(1), "mine") << "saved and released";
  // Taken between Bob's reading and his first key.
  s.command2Click(2);
  user.type(1, "mine again");
  EXPECT_TRUE(b.fieldKeyDown(1, {'A', 0}).swallow);
  EXPECT_FALSE(b.dirty());
  EXPECT_EQ(b.text1(), "3");
  EXPECT_TRUE(b.goToRecord(1));
}

TEST_F(SessionTest, ANewRecordIsNobodyElsesBeforeItIsTypedInto) {
  fill(user, 1);
  User bob(shopPayload(), user.files.disk);
  ASSERT_TRUE(bob.session->openData(false));
  bool taken = false;
  user.view.onYield = [&] { taken = taken || bob.session->goToRecord(2); };
  s.newbutClick();
  EXPECT_FALSE(taken);
  EXPECT_EQ(s.text1(), "2");
  EXPECT_TRUE(s.dirty());
}

TEST_F(SessionTest, AFullDiskIsToldAndTheRecordStaysOnScreen) {
  fill(user, 2);
  user.type(1, "precious");
  user.files.disk->failWrites = ErrorKind::full;
  s.command2Click(3);
  EXPECT_EQ(user.messages.texts().back(), "The disk is full. The record was not saved.");
  EXPECT_EQ(user.text(1), "precious");
  EXPECT_EQ(s.text1(), "1");
  user.files.disk->failWrites = ErrorKind::failed;
  user.type(1, "precious2");
  for (int i = 0; i < 2; ++i) s.command2Click(3);
  EXPECT_EQ(user.text(1), "precious2");
  EXPECT_FALSE(s.close());
  user.files.disk->failWrites.reset();
  EXPECT_TRUE(s.close());
}

TEST_F(SessionTest, AnUnreadableRecordChangesNothing) {
  fill(user, 3);
  const Bytes before = user.files.disk->find("/app/Shop.dbd")->bytes;
  user.files.disk->failReads = ErrorKind::failed;
  s.command2Click(3);
  EXPECT_FALSE(user.messages.shown.empty());
  EXPECT_EQ(s.text1(), "1");
  EXPECT_EQ(user.text(1), "r1");
  user.files.disk->failReads.reset();
  s.command2Click(5);
  EXPECT_EQ(user.text(1), "r3");
  EXPECT_EQ(user.files.disk->find("/app/Shop.dbd")->bytes, before);
}

TEST_F(SessionTest, AMissingPictureIsToldAndShownBlank) {
  Payload p = shopPayload();
  p.pictures.resize(1);
  p.pictures[0].page = 0;
  User other(p);
  ASSERT_TRUE(other.session->openData(false));
  EXPECT_TRUE(other.files.isFolder("/app/ShopPics"));
  const RecordLayout layout = *computeLayout(other.session->application());
  Bytes& data = other.files.disk->find("/app/Shop.dbd")->bytes;
  const std::string stem = "00000009";
  std::copy(stem.begin(), stem.end(), data.begin() + layout.recLen - 1 + layout.pictures[0] - 1);
  other.session->loadRecord();
  EXPECT_EQ(other.messages.texts().back(), "The picture file was not found.");
  EXPECT_EQ(other.session->dataPictureFile(0), "");
  other.files.put("/app/ShopPics/00000009", "image");
  other.session->loadRecord();
  EXPECT_EQ(other.session->dataPictureFile(0), "/app/ShopPics/00000009");
}

TEST_F(SessionTest, ButtonsRunScriptsAndLinks) {
  Payload p = shopPayload();
  p.buttons.resize(6);
  for (PayloadButton& button : p.buttons) button.page = 0;
  p.buttons[0].script = "f3=5\r\nc1=\"Net\"";
  p.buttons[0].tag = ">";
  p.buttons[1].tag = "<>";
  p.buttons[2].tag = "C:\\tools\\note.exe file.txt";
  p.buttons[3].tag = "http://x/?q=F3";
  p.buttons[4].script = "select Name where Paid=1";
  p.buttons[5].tag = "shop.exe -PASTE";
  User other(p);
  fill(other, 2);
  RecordSession& o = *other.session;
  other.type(2, "1.5");
  o.commandClick(0);
  EXPECT_EQ(o.text1(), "2");
  o.command2Click(0);
  EXPECT_EQ(other.text(5), "7.50") << "set by the script, computed and saved by the move";
  EXPECT_EQ(o.form().combos[1].text, "Net");
  o.commandClick(2);
  o.commandClick(3);
  ASSERT_EQ(other.shell.opened.size(), 2u);
  EXPECT_EQ(other.shell.opened[0], (FakeShell::Opened{"C:\\tools\\note", "file.txt"}));
  EXPECT_EQ(other.shell.opened[1].target, "http://x/?q=5");
  o.commandClick(4);
  EXPECT_EQ(other.messages.shown.size(), 2u) << "creation of the file, and that no query can run";
  o.commandClick(5);
  EXPECT_EQ(other.view.pastes, 1);
  o.commandClick(1);
  EXPECT_EQ(o.text1(), "3");
}

TEST_F(SessionTest, QueryLinesAreKnownByTheirWords) {
  for (const char* query : {"SELECT a WHERE b=1", "replace a=1 where b=2", "Sum Price", "count Paid=1"})
    EXPECT_TRUE(isQueryLine(query)) << query;
  for (const char* line : {"select a", "replace x=1", "f1=3", "", "summit"})
    EXPECT_FALSE(isQueryLine(line)) << line;
}

TEST_F(SessionTest, TheActionToolOpensWhatTheBoxHolds) {
  fill(user, 1);
  user.type(1, "a@b.de");
  s.fieldGotFocus(1);
  EXPECT_EQ(s.tools().action, FieldAction::mail);
  EXPECT_EQ(s.tools().searchToolTip, "Search this field");
  s.actionClick();
  user.type(1, "www.x.de");
  s.fieldGotFocus(1);
  s.actionClick();
  user.type(1, "a://x.htm");
  s.actionClick();
  ASSERT_EQ(user.shell.opened.size(), 3u);
  EXPECT_EQ(user.shell.opened[2].target, "a://x.htm") << "complete as it is";
  EXPECT_EQ(user.shell.opened[0].target, "mailto:a@b.de");
  EXPECT_EQ(user.shell.opened[1].target, "http://www.x.de");
}

TEST_F(SessionTest, NobodyOpensProtectedDataWithoutAPassword) {
  fill(user, 1);
  s.close();
  Payload p = shopPayload();
  p.application.mainPassword = "boss";
  User guest(p, user.files.disk);
  ASSERT_TRUE(guest.files.removeFile("/app/shop.cfg").ok());
  RecordSession& g = *guest.session;
  EXPECT_FALSE(g.openData(false));
  EXPECT_FALSE(g.openData(true));
  EXPECT_FALSE(g.tryLogin("", "wrong"));
  EXPECT_FALSE(g.openData(false));
  EXPECT_TRUE(g.close());
  EXPECT_FALSE(guest.files.exists("/app/shop.cfg")) << "who was not let in leaves nothing behind";
  User boss(p, user.files.disk);
  ASSERT_TRUE(boss.session->tryLogin("", "boss"));
  UserTable* users = boss.session->editUsers();
  ASSERT_TRUE(users);
  users->passwords[1] = encodePassword("guest");
  users->names[1] = "Bob";
  users->readOnly[1] = 1;
  boss.session->close();
  // An ordinary user: read-only, no sight of the tables, and his leaving keeps them.
  User bob(p, user.files.disk);
  StartUp start = bob.session->start();
  RecordForm scratch = start.form;
  readCfg(*bob.files.read("/app/shop.cfg"), start.application, scratch, start.users);
  RecordSession session(start, {bob.files, bob.messages, bob.clock, englishLocale(), bob.shell,
                                flatStoreOpener(bob.shared, bob.files), nullptr, nullptr});
  ASSERT_TRUE(session.tryLogin("", "guest"));
  EXPECT_FALSE(session.editUsers());
  EXPECT_EQ(session.windowTitle(), "Shop                                Login : Bob");
  ASSERT_TRUE(session.openData(false));
  EXPECT_TRUE(session.readOnly());
  session.close();
  UserTable kept;
  readCfg(*bob.files.read("/app/shop.cfg"), start.application, scratch, kept);
  EXPECT_EQ(decodePassword(kept.passwords[0]), "boss");
  EXPECT_EQ(kept.names[1], "Bob");
}

TEST_F(SessionTest, GlobalFieldsOutliveRecordsAndRestarts) {
  Payload p = shopPayload();
  p.fields[1].dummyField = -1;
  User other(p);
  fill(other, 1);
  other.type(1, "everywhere");
  other.session->newbutClick();
  EXPECT_EQ(other.text(1), "everywhere");
  other.session->close();
  RecordForm form = makeRecordForm(other.session->application());
  UserTable users;
  readCfg(*other.files.read("/app/shop.cfg"), other.session->application(), form, users);
  EXPECT_EQ(form.fields[1].text, "everywhere");
}

TEST_F(SessionTest, ANewFileNeverReplacesOneThatIsThere) {
  fill(user, 3);
  s.close();
  User other(shopPayload(), user.files.disk);
  ASSERT_TRUE(other.session->openData(true));
  EXPECT_EQ(other.session->recCount(), 3);
}

}  // namespace
}  // namespace plinth
