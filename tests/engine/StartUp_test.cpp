// From the program's own file to an application: names, payload, pictures beside the program, data file.
#include "engine/StartUp.h"

#include <gtest/gtest.h>

#include "builder/payload/PayloadFile.h"
#include "engine/CfgFile.h"
#include "tests/engine/EngineFixture.h"

namespace plinth {
namespace {

Bytes exeOf(const Payload& payload) {
  Bytes stub(4000);
  for (std::size_t i = 0; i < stub.size(); ++i) stub[i] = static_cast<std::uint8_t>(i * 7);
  return writeApplication(stub, payload)->bytes;
}

TEST(StartUp, NamesFollowTheRunningFileAndTheCommandLine) {
  const struct {
    const char *exe, *line, *base, *data;
  } cases[] = {
      {"/app/my shop.exe", "", "/app/my shop", "/app/My Shop.dbd"},
      {"/app/shop.exe", "-paste", "/app/shop", "/app/Shop.dbd"},
      {"/app/shop.exe", "\"/other/Stock.DBD\"", "/app/shop", "/other/Stock.DBD"},
      {"/app/shop.exe", "\"/other/Stock.DBD\" -paste", "/app/shop", "/other/Stock.DBD"},
      {"/app/shop.exe", "old.dbd", "/app/shop", "/desk/old.dbd"},
      {"/app/shop.exe", "letter.txt", "/app/shop", "/app/Shop.dbd"},
      {"/app/shop.exe", "STORE.EXE", "/app/shop", "/app/Store.dbd"},
      {"shop", "", "./shop", "./Shop.dbd"},
  };
  const MemoryFiles files;
  for (const auto& c : cases) {
    const StartRequest request{c.exe, c.line, true};
    const ProgramNames names = programNames(request, '/');
    EXPECT_EQ(names.exeBase, c.base);
    EXPECT_EQ(dataFileOf(request, names, "dbd", 1252, files).path(), c.data);
    EXPECT_EQ(names.paste, std::string(c.line).find("-paste") != std::string::npos);
  }
}

TEST(StartUp, TakesAnExistingDataFileThatDiffersInCase) {
  MemoryFiles files;
  files.put("/app/shop.DBD", "x");
  const StartRequest request{"/app/shop.exe", "", true};
  EXPECT_EQ(dataFileOf(request, programNames(request, '/'), "dbd", 1252, files).path(), "/app/shop.DBD");
  const DataFile data{"/app/", "my shop.dbd", true};
  EXPECT_EQ(baseNameOf(data, 1252), "My Shop");
  EXPECT_EQ(pictureFolderOf(data, 1252, '/'), "/app/My ShopPics/");
}

TEST(StartUp, ReadsThePayloadAndPutsMissingFilesBesideTheProgram) {
  Payload p = shopPayload();
  p.pictures.resize(3);
  for (PayloadPicture& picture : p.pictures) picture.page = 0;
  p.pictures[0].image = {"shop1.gif", {1, 2, 3}};
  p.pictures[1].image = {"..\\..\\evil.dll", {4}};
  p.background = {"shop2.jpg", {9}};
  MemoryFiles files;
  files.put("/app/shop.exe", exeOf(p));
  files.put("/app/shop1.gif", "edited");
  files.put("/app/0.jpg", "blank");
  FakeMessages messages;
  const StartUp start = startUp({"/app/shop.exe", "", true}, files, messages);
  ASSERT_TRUE(start.proceed);
  EXPECT_TRUE(messages.shown.empty());
  EXPECT_EQ(start.application.title, "Shop");
  EXPECT_EQ(start.application.field(5).formula, "F2*F3");
  EXPECT_EQ(files.textOf("/app/shop1.gif"), "edited") << "an edited picture wins";
  EXPECT_EQ(files.textOf("/app/evil.dll"), "\x04") << "its name cannot leave the folder";
  EXPECT_EQ(start.background, "/app/shop2.jpg");
  EXPECT_EQ(start.blankPicture, "/app/0.jpg");
  EXPECT_TRUE(start.application.hasDataPictures);
  EXPECT_FALSE(start.loginRequired);
}

TEST(StartUp, ADamagedPayloadEndsInAMessage) {
  const Bytes whole = exeOf(shopPayload());
  MemoryFiles files;
  for (std::size_t cut = 0; cut < whole.size(); cut += cut < 3990 ? 133 : 7) {
    files.put("/app/shop.exe", Bytes(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(cut)));
    FakeMessages messages;
    const StartUp start = startUp({"/app/shop.exe", "", false}, files, messages);
    EXPECT_FALSE(start.proceed) << cut;
    ASSERT_FALSE(messages.shown.empty()) << cut;
    EXPECT_GT(messages.shown.back().text.size(), 7u);
  }
  FakeMessages messages;
  EXPECT_FALSE(startUp({"/app/none.exe", "", true}, files, messages).proceed);
  EXPECT_EQ(messages.shown.size(), 1u);
}

TEST(StartUp, PasswordsOfTheFileAndOfTheDesignAskForALogin) {
  Payload p = shopPayload();
  MemoryFiles files;
  FakeMessages messages;
  files.put("/app/shop.exe", exeOf(p));
  const Application app = makeApplication(p);
  UserTable users;
  users.passwords[0] = encodePassword("later");
  files.put("/app/shop.cfg", writeCfg(app, makeRecordForm(app), users));
  EXPECT_TRUE(startUp({"/app/shop.exe", "", true}, files, messages).loginRequired);
  p.application.mainPassword = "design";
  files.put("/app/shop.exe", exeOf(p));
  files.put("/app/shop.cfg", "garbage");
  EXPECT_TRUE(startUp({"/app/shop.exe", "", true}, files, messages).loginRequired);
}

}  // namespace
}  // namespace plinth
