// The settings file and the logins in it: what is kept, and that no damage lets anybody in.
#include "engine/CfgFile.h"

#include <gtest/gtest.h>

#include "tests/engine/EngineFixture.h"

namespace plinth {
namespace {

Payload globalsPayload() {
  Payload p = shopPayload();
  p.fields[1].dummyField = -1;
  p.application.mainPassword = "boss";
  return p;
}

TEST(Users, StoredFormIsThreeDigitsACharacter) {
  EXPECT_EQ(encodePassword("AB"), "734732");
  EXPECT_EQ(encodePassword("12345").size(), 15u);
  std::string all;
  for (int c = 1; c < 256; ++c) all += static_cast<char>(c);
  EXPECT_EQ(decodePassword(encodePassword(all)), all.substr(0, 250));
  for (const char* bad : {"", "7", "73", "999", "000", "abc", "-12"})
    EXPECT_EQ(decodePassword(bad), "") << bad;
  EXPECT_EQ(decodePassword("734x"), "A");
}

TEST(Users, OnlyAMatchingEntryLogsIn) {
  UserTable users;
  EXPECT_FALSE(loginRequired(users));
  users.passwords[0] = encodePassword("boss");
  users.passwords[3] = encodePassword("guest");
  users.readOnly[3] = 1;
  EXPECT_TRUE(loginRequired(users));
  EXPECT_TRUE(checkLogin(users, "", "boss")->mainUser);
  EXPECT_EQ(checkLogin(users, "anything", "guest")->user, 3);
  EXPECT_TRUE(checkLogin(users, "", "guest")->readOnly);
  for (const char* wrong : {"", "Boss", "bos", "boss ", "734732"})
    EXPECT_FALSE(checkLogin(users, "", wrong)) << wrong;
  users.names[0] = "Ann";
  users.names[3] = "Bob";
  EXPECT_TRUE(loginAsksName(users));
  EXPECT_FALSE(checkLogin(users, "Bob", "boss"));
  EXPECT_FALSE(checkLogin(users, "", "boss"));
  EXPECT_EQ(checkLogin(users, "Bob", "guest")->name, "Bob");
  EXPECT_FALSE(checkLogin(users, "Bob", "guest")->mainUser);
  // Who knows the main password is the main user under every name.
  users.passwords[4] = encodePassword("boss");
  users.names[4] = "Deputy";
  EXPECT_EQ(checkLogin(users, "Deputy", "boss")->user, 4);
  EXPECT_TRUE(checkLogin(users, "Deputy", "boss")->mainUser);
}

TEST(CfgFile, KeepsTitlesGlobalFieldsAndUsers) {
  const Application app = makeApplication(globalsPayload());
  RecordForm form = makeRecordForm(app);
  form.titles[6] = "Changed";
  form.fields[1].text = "for all records";
  UserTable users = initialUsers(app);
  users.names[0] = "Ann";
  users.readOnly[249] = 1;
  const Bytes bytes = writeCfg(app, form, users);
  EXPECT_EQ(std::string(bytes.begin(), bytes.begin() + 4), std::string("\x08\0\x07\0", 4)) << "tag, length";
  EXPECT_NE(std::string(bytes.begin() + 4, bytes.begin() + 11), "Changed") << "titles are substituted";
  RecordForm back = makeRecordForm(app);
  UserTable read = initialUsers(app);
  const CfgContents contents = readCfg(bytes, app, back, read);
  EXPECT_TRUE(contents.titles && contents.users);
  EXPECT_EQ(back.titles[6], "Changed");
  EXPECT_EQ(back.fields[1].text, "for all records");
  EXPECT_EQ(read.names[0], "Ann");
  EXPECT_EQ(read.readOnly[249], 1);
  EXPECT_EQ(decodePassword(read.passwords[0]), "boss");
}

TEST(CfgFile, ANewDesignKeepsItsOwnLabelsAndTheOldTexts) {
  Payload p = globalsPayload();
  const Application before = makeApplication(p);
  RecordForm form = makeRecordForm(before);
  form.fields[1].text = "kept";
  const Bytes bytes = writeCfg(before, form, initialUsers(before));
  p.titles[6].caption = "New caption";
  p.titles.resize(10);
  const Application after = makeApplication(p);
  RecordForm back = makeRecordForm(after);
  UserTable users = initialUsers(after);
  EXPECT_FALSE(readCfg(bytes, after, back, users).titles);
  EXPECT_EQ(back.titles[6], "New caption");
  EXPECT_EQ(back.fields[1].text, "kept");
}

TEST(CfgFile, DamageNeverRemovesThePassword) {
  const Application app = makeApplication(globalsPayload());
  UserTable users = initialUsers(app);
  Bytes bytes = writeCfg(app, makeRecordForm(app), users);
  const auto stillLocked = [&](std::span<const std::uint8_t> damaged) {
    RecordForm form = makeRecordForm(app);
    UserTable read = initialUsers(app);
    readCfg(damaged, app, form, read);
    return loginRequired(read);
  };
  for (std::size_t cut = 0; cut < bytes.size(); ++cut)
    ASSERT_TRUE(stillLocked(std::span(bytes).first(cut))) << cut;
  for (std::size_t at = 0; at < bytes.size(); ++at) {
    const std::uint8_t old = bytes[at];
    bytes[at] ^= 0xFF;
    ASSERT_TRUE(stillLocked(bytes)) << at;
    bytes[at] = old;
  }
  // Tables of a file without any password.
  EXPECT_TRUE(stillLocked(writeCfg(app, makeRecordForm(app), UserTable{})));
}

}  // namespace
}  // namespace plinth
