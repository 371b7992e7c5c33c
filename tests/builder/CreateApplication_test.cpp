// Create Application on files in memory: names, folders, what is kept and what goes, and the finished file
// read back.
#include "builder/CreateApplication.h"

#include <gtest/gtest.h>

#include "builder/payload/PayloadFile.h"
#include "model/PictureStore.h"
#include "tests/fakes/FakeMessages.h"
#include "tests/fakes/FakeProgress.h"
#include "tests/fakes/MemoryFiles.h"

namespace plinth {
namespace {

class LockedFiles : public MemoryFiles {
 public:
  Result<void> removeFile(const std::string& path) override {
    if (MemoryDisk::clean(path) == locked) return Error{ErrorKind::locked, path};
    return MemoryFiles::removeFile(path);
  }
  std::string locked;
};

CreateRequest named(const std::string& name) {
  CreateRequest request;
  request.name = name;
  return request;
}

class CreateApplication : public testing::Test {
 protected:
  CreateApplication() {
    document.appTitle = "Address Book";
    document.fields.resize(2);
    document.fields[1].page = 0;
    document.fields[1].tag = "Name";
    document.fields[1].fieldLength = 30;
  }
  CreateResult run(CreateRequest request) {
    if (request.folder.empty()) request.folder = "/out";
    CompileApp compile({.files = files,
                        .messages = messages,
                        .progress = progress,
                        .pictures = pictures,
                        .labelText = [](int number) { return "label " + std::to_string(number); },
                        .programFolder = "/plinth/",
                        .language = "Dutch",
                        .stub = stub,
                        .defaultIcon = icon});
    return compile.run(document, request);
  }
  Result<Payload> created(const CreateResult& result) { return readPayload(*files.read(result.executable)); }

  LockedFiles files;
  FakeMessages messages;
  FakeProgress progress;
  MemoryPictures pictures;
  ProjectDocument document;
  Bytes stub = Bytes(2000, 7), icon = Bytes(766, 5);
};

TEST_F(CreateApplication, WritesAnExecutableInAFolderOfItsName) {
  struct Case {
    std::string typed, appName;
    CreateStatus status;
  };
  const Case cases[] = {
      {"my.app", "my", CreateStatus::created},    {"Address Book", "Address Book", CreateStatus::created},
      {"  ", "", CreateStatus::noName},           {"..", "", CreateStatus::badName},
      {".app", "", CreateStatus::badName},        {"../../up", "up", CreateStatus::created},
      {"C:\\a\\b.c", "b", CreateStatus::created}, {"con", "_con", CreateStatus::created},
      {"/", "", CreateStatus::badName},           {"end .x", "end", CreateStatus::created}};
  for (const Case& one : cases) {
    files.disk->files.clear();
    files.disk->folders.clear();
    messages.shown.clear();
    const CreateResult result = run(named(one.typed));
    EXPECT_EQ(result.status, one.status) << one.typed;
    EXPECT_EQ(result.appName, one.appName) << one.typed;
    EXPECT_EQ(messages.shown.size(), one.status == CreateStatus::badName ? 1u : 0u) << one.typed;
    ASSERT_EQ(files.disk->files.size(), result.ok() ? 1u : 0u) << one.typed;
    if (!result.ok()) continue;
    EXPECT_EQ(files.disk->files.begin()->first, "/out/" + one.appName + "/" + one.appName + ".exe");
    EXPECT_EQ(created(result)->header.title, "Address Book");
  }
  EXPECT_TRUE(document.dirty);
  EXPECT_EQ(progress.titles.front(), "label 336");
  EXPECT_EQ(progress.titles.back(), "");
}

TEST_F(CreateApplication, RefusesRecordsOfLessThanThirtyCharacters) {
  document.fields[1].fieldLength = 28;
  document.checks.resize(1);
  document.checks[0].page = 0;
  EXPECT_EQ(run(named("small")).status, CreateStatus::tooSmall);
  EXPECT_EQ(messages.texts(), (std::vector<std::string>{"label 398"}));
  EXPECT_TRUE(files.disk->files.empty());
  document.checks.push_back(document.checks[0]);
  EXPECT_TRUE(run(named("small")).ok());
}

TEST_F(CreateApplication, EmptiesAnEarlierBuildButKeepsWhatItsUserMade) {
  for (const char* name : {"app.exe", "app.chm", "0.jpg", "notes0001", "old.txt", "app1.bmp", "app.dbd",
                           "APP0001", "second.DBD", "second0012", "app.cfg", "app.qvf", "Pics/a.jpg"}) {
    files.put(std::string("/out/app/") + name, name);
  }
  files.put("/out/outside.txt", "x");
  ASSERT_TRUE(run(named("app")).ok());
  EXPECT_EQ(files.list("/out/app"), (std::vector<std::string>{"APP0001", "app.cfg", "app.dbd", "app.exe",
                                                              "app.qvf", "second.DBD", "second0012"}));
  EXPECT_TRUE(files.exists("/out/app/Pics/a.jpg"));
  EXPECT_TRUE(files.exists("/out/outside.txt"));
  EXPECT_TRUE(messages.shown.empty());
}

TEST_F(CreateApplication, AsksBeforeItEmptiesAFolderThatNoBuildMade) {
  files.put("/out/app/letter.doc", "x");
  EXPECT_EQ(run(named("app")).status, CreateStatus::refused);
  EXPECT_EQ(files.list("/out/app"), (std::vector<std::string>{"letter.doc"}));
  messages.answers = {true};
  EXPECT_TRUE(run(named("app")).ok());
  EXPECT_EQ(files.list("/out/app"), (std::vector<std::string>{"app.exe"}));
}

TEST_F(CreateApplication, LeavesARunningBuildWhole) {
  files.put("/out/app/a.txt", "x");
  files.put("/out/app/app.exe", "old");
  files.locked = "/out/app/app.exe";
  EXPECT_EQ(run(named("app")).status, CreateStatus::inUse);
  EXPECT_EQ(messages.texts(), (std::vector<std::string>{"Close previous running Application"}));
  EXPECT_EQ(files.list("/out/app").size(), 2u);
  EXPECT_EQ(files.textOf("/out/app/app.exe"), "old");
}

TEST_F(CreateApplication, LeavesTheEarlierBuildWhenCancelledOrImpossible) {
  files.put("/out/app/app.exe", "old");
  progress.cancelAtStep = 4;
  EXPECT_EQ(run(named("app")).status, CreateStatus::cancelled);
  progress.cancelAtStep = 0;
  stub.clear();
  EXPECT_EQ(run(named("app")).status, CreateStatus::failed);
  EXPECT_EQ(messages.shown.size(), 1u);
  EXPECT_EQ(files.textOf("/out/app/app.exe"), "old");
}

TEST_F(CreateApplication, BringsHelpToolImagesAndDefaultImageAlong) {
  files.put("/plinth/Languages/Englishb.chm", "help");
  for (const char* image : {"99999", "100000", "100064", "100065"}) {
    files.put("/plinth/Images/" + std::string(image) + ".GIF", image);
  }
  files.put("/plinth/main.jpg", "main");
  document.options.check1 = 1;
  document.options.fieldToolBox = 1;
  document.pictures.resize(1);
  document.pictures[0].page = 1;
  document.pictures[0].picFlag = true;
  CreateResult result = run(named("app"));
  ASSERT_TRUE(result.ok());
  EXPECT_EQ(files.textOf("/out/app/app.chm"), "help");
  EXPECT_EQ(files.list("/out/app/Images"), (std::vector<std::string>{"100000.GIF", "100064.GIF"}));
  EXPECT_EQ(files.textOf("/out/app/Images/100064.GIF"), "100064");
  EXPECT_EQ(files.textOf("/out/app/0.jpg"), "main");
  EXPECT_TRUE(result.notes.empty()) << "images that are missing are passed over";
  files.put("/plinth/Languages/Dutchb.chm", "hulp");
  document.defaultImagePath = *pictures.put("mine.jpg", Bytes{'m'});
  ASSERT_TRUE(run(named("app")).ok());
  EXPECT_EQ(files.textOf("/out/app/app.chm"), "hulp");
  EXPECT_EQ(files.textOf("/out/app/0.jpg"), "m");
}

TEST_F(CreateApplication, IsWholeWithoutTheToolImages) {
  document.options.fieldToolBox = 1;
  EXPECT_TRUE(run(named("none")).notes.empty());
  EXPECT_TRUE(files.isFolder("/out/none/Images"));
  files.put("/plinth/Images/100000.GIF", "gif");
  files.put("/out/blocked/blocked.exe", "old");
  files.put("/out/blocked/Images/100000.GIF", "mine");
  files.setReadOnly("/out/blocked/Images/100000.GIF", true);
  const CreateResult result = run(named("blocked"));
  EXPECT_TRUE(result.ok());
  EXPECT_EQ(result.notes.size(), 1u);
  document.options.fieldToolBox = 0;
  ASSERT_TRUE(run(named("off")).ok());
  EXPECT_FALSE(files.isFolder("/out/off/Images"));
}

TEST_F(CreateApplication, StampsTheChosenIconElseTheProjectsElseTheDefault) {
  std::fill_n(stub.begin() + 500, 640, std::uint8_t{0x99});
  const auto stamped = [&](const CreateRequest& request) {
    return files.read(run(request).executable)->at(600);
  };
  EXPECT_EQ(stamped(named("app")), 5);
  document.appIcon = Bytes(766, 6);
  EXPECT_EQ(stamped(named("app")), 6);
  CreateRequest request = named("app");
  request.iconBytes = Bytes(766, 8);
  EXPECT_EQ(stamped(request), 8);
}

TEST_F(CreateApplication, SaysThatItCannotMakeASetupProgram) {
  CreateRequest request = named("app");
  request.setup = true;
  EXPECT_TRUE(run(request).ok());
  EXPECT_EQ(messages.shown.size(), 1u);
}

}  // namespace
}  // namespace plinth
