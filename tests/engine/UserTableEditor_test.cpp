// Changing the table of users.
#include "engine/UserTableEditor.h"

#include <gtest/gtest.h>

#include "tests/engine/EngineFixture.h"

namespace plinth {
namespace {

UserTable someUsers() {
  UserTable users;
  for (int i = 0; i < 3; ++i) {
    const auto at = static_cast<std::size_t>(i);
    users.names[at] = std::string(1, static_cast<char>('A' + i));
    users.passwords[at] = encodePassword("word" + users.names[at]);
  }
  users.readOnly[2] = 1;
  users.names[249] = "last";
  return users;
}

TEST(UserTableEditor, ShowsPasswordsInClearAndKeepsThemInStoredForm) {
  UserTableEditor editor(someUsers(), 0);
  EXPECT_EQ(editor.password(1), "wordB");
  editor.setPassword(1, "new");
  editor.setName(1, "Bob");
  editor.setReadOnly(1, true);
  editor.setScroll(1000);
  EXPECT_EQ(editor.entry(9), 249);
  EXPECT_EQ(editor.name(9), "last");
  editor.setPassword(9, "end");
  editor.setScroll(-5);
  EXPECT_EQ(editor.name(1), "Bob");
  const UserTable stored = editor.stored();
  EXPECT_EQ(stored.passwords[1], encodePassword("new"));
  EXPECT_EQ(stored.passwords[249], encodePassword("end"));
  EXPECT_EQ(stored.readOnly[1], 1);
  EXPECT_EQ(stored.passwords[0], someUsers().passwords[0]);
}

TEST(UserTableEditor, RemovesAUserAndMovesTheLaterOnesUp) {
  UserTableEditor editor(someUsers(), 2);
  EXPECT_EQ(editor.look(0), UserRowLook::main);
  EXPECT_EQ(editor.look(1), UserRowLook::other);
  EXPECT_EQ(editor.look(2), UserRowLook::current);
  editor.removeUser(1);
  EXPECT_EQ(editor.name(1), "C");
  EXPECT_TRUE(editor.readOnly(1));
  EXPECT_EQ(editor.look(1), UserRowLook::current);
  editor.setScroll(240);
  EXPECT_EQ(editor.name(8), "last");
  EXPECT_EQ(editor.name(9), "");
  editor.removeUser(9);
  EXPECT_EQ(editor.name(8), "last");
  editor.setScroll(0);
  EXPECT_TRUE(editor.mayClose());
  editor.setPassword(0, "");
  EXPECT_FALSE(editor.mayClose());
}

TEST(UserTableEditor, ServesWhoeverMaySetTheMainPassword) {
  // Without one everybody may, and the next start asks for it.
  User first(shopPayload());
  ASSERT_TRUE(first.session->mayEditUsers());
  UserTableEditor editor(first.session->start().users, 0);
  editor.setPassword(0, "boss");
  *first.session->editUsers() = editor.stored();
  ASSERT_TRUE(first.session->openData(true));
  first.session->close();
  UserTable kept;
  RecordForm form = first.session->form();
  readCfg(*first.files.read("/app/shop.cfg"), first.session->application(), form, kept);
  EXPECT_TRUE(loginRequired(kept));
}

std::map<std::string, Bytes> contents(const MemoryDisk& disk) {
  std::map<std::string, Bytes> all;
  for (const auto& [path, file] : disk.files) all[path] = file->bytes;
  return all;
}

TEST(UserTableEditor, AReadOnlyUserWritesNothing) {
  Payload p = shopPayload();
  p.application.mainPassword = "boss";
  p.pictures.resize(1);
  p.pictures[0].page = 0;
  p.fields[1].dummyField = -1;
  p.buttons.resize(1);
  p.buttons[0].page = 0;
  p.buttons[0].script = "F2=5";
  User boss(p);
  ASSERT_TRUE(boss.session->tryLogin("", "boss"));
  UserTableEditor editor(boss.session->start().users, 0);
  editor.setPassword(1, "guest");
  editor.setReadOnly(1, true);
  *boss.session->editUsers() = editor.stored();
  ASSERT_TRUE(boss.session->openData(true));
  boss.type(2, "3");
  ASSERT_TRUE(boss.session->changeForm([](RecordForm& form) { form.pictures[0].stem = "1.jpg"; }));
  boss.files.put("/app/ShopPics/1.jpg", {1});
  ASSERT_TRUE(boss.session->close());
  const auto before = contents(*boss.files.disk);

  User guest(p, boss.files.disk);
  StartUp start = guest.session->start();
  RecordForm scratch = start.form;
  readCfg(*guest.files.read(start.cfgPath), start.application, scratch, start.users);
  RecordSession session(start, {guest.files, guest.messages, guest.clock, englishLocale(), guest.shell,
                                flatStoreOpener(guest.shared, guest.files), nullptr, nullptr});
  ASSERT_TRUE(session.tryLogin("", "guest"));
  ASSERT_TRUE(session.openData(false));
  session.fieldGotFocus(2);
  EXPECT_FALSE(session.fieldNumberPicked("7"));
  session.fieldEdited(2, "8");
  session.fieldEdited(1, "global");
  session.fieldDatePicked(4, kTestNow);
  session.checkClick(0);
  session.comboClick(1, "Net");
  session.memoEdited(1, "text");
  session.commandClick(0);
  session.newbutClick();
  session.erasefileClick();
  EXPECT_FALSE(session.changeForm([](RecordForm& form) { form.pictures[0].stem.clear(); }));
  EXPECT_FALSE(session.editUsers());
  EXPECT_TRUE(session.close());
  EXPECT_EQ(contents(*boss.files.disk), before);
}

}  // namespace
}  // namespace plinth
