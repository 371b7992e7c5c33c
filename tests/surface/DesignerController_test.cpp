// The designer as a person uses it, on a machine in memory: commands, keys, dialogs and what the window is
// told.
#include "surface/DesignerController.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <iterator>

#include "surface/DesignerCommands.h"
#include "tests/fakes/FakeChooser.h"
#include "tests/fakes/FakeClock.h"
#include "tests/fakes/FakeMessages.h"
#include "tests/fakes/FakeProgress.h"
#include "tests/fakes/MemoryFiles.h"
#include "tests/fakes/MemorySettings.h"
#include "tests/fakes/RecordingCanvas.h"

namespace plinth {
namespace {

class TestWindow : public DesignerWindow {
 public:
  void invalidate() override {}
  void scrollChanged() override {}
  void pageChanged() override {}
  void objectPointedAt(const std::string&) override {}
  void showCaption(const std::string& utf8) override { caption = utf8; }
  void menusChanged() override {}
  void statusChanged() override {}
  void setBusy(bool) override {}
  void end() override { ended = true; }
  std::string caption;
  bool ended = false;
};

// A person who fills in dialogs by script.
class FakeDialogs : public DialogRunner {
 public:
  bool run(const DialogSpec& spec) override {
    titles.push_back(spec.title);
    return person ? person(spec) && (!spec.okWhen || spec.okWhen()) : false;
  }
  static const DialogRow& row(const DialogSpec& spec, std::string_view label) {
    const auto found = std::find_if(spec.rows.begin(), spec.rows.end(), [&](const DialogRow& r) {
      return r.label.find(label) != std::string::npos;
    });
    EXPECT_NE(found, spec.rows.end()) << label;
    return *found;
  }
  std::function<bool(const DialogSpec&)> person;
  std::vector<std::string> titles;
};

Bytes dataFile(const std::string& name) {
  std::ifstream in(std::string(PLINTH_TEST_DATA) + "/" + name, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

class DesignerControllerTest : public testing::Test {
 protected:
  void SetUp() override {
    files.put("/designer/Languages/English.txt", dataFile("../../Languages/English.txt"));
    files.put("/designer/Icons/Default.ico", "icon");
    files.put("/designer/Icons/Other.ico", "2x2 other");
    files.put("/designer/Icons/readme.txt", "no icon");
    files.put("/projects/contacts.qvf", dataFile("fixtures/contacts.qvf"));
    ASSERT_TRUE(files.makeFolder("/projects").ok());
    ASSERT_TRUE(designer.start("/projects/contacts.qvf"));
  }
  std::vector<MenuEntry> menu(std::size_t index) { return designerMenus(designer).at(index).entries; }
  bool command(Command id) { return runCommand(designer, static_cast<int>(id)); }

  MemoryFiles files;
  FakeMessages messages;
  FakeChooser chooser;
  MemorySettings settings;
  FakeClock clock;
  FakeProgress progress;
  FakeDialogs dialogs;
  FakeImageDecoder decoder;
  TestWindow window;
  Bytes stub = Bytes(5000, 7), icon = Bytes(766, 1);
  DesignerController designer{
      {{files, messages, chooser, settings, clock, progress, "/designer/", [this] { return icon; }, true},
       dialogs,
       decoder,
       [](std::string_view text, const FontSpec& font) { return RecordingCanvas().measure(text, font); },
       stub,
       icon,
       "2.0",
       1252},
      window};
};

TEST_F(DesignerControllerTest, ShowsTheProjectOfTheCommandLine) {
  EXPECT_TRUE(messages.shown.empty()) << messages.shown[0].text;
  EXPECT_NE(window.caption.find("/projects/contacts.qvf"), std::string::npos);
  EXPECT_GT(designer.surface().items().size(), 40u);
  EXPECT_EQ(designer.status()[0], "/projects/contacts.qvf");
  EXPECT_EQ(designer.status()[1], "640 x 480 px");
  EXPECT_TRUE(dialogs.titles.empty());  // one language: nobody is asked
  bool recent = false;
  for (const MenuEntry& entry : menu(0)) recent = recent || entry.text == "&1 /projects/contacts.qvf";
  EXPECT_TRUE(recent);
  EXPECT_EQ(menu(1)[0].text, "&1 Contact");
  EXPECT_TRUE(menu(1)[0].checked);
}

TEST_F(DesignerControllerTest, EveryMenuEntryRunsAndKeysReachTheSameCommands) {
  for (const Menu& menu : designerMenus(designer))
    for (const MenuEntry& entry : menu.entries) {
      if (entry.id == 0) continue;
      EXPECT_TRUE(entry.enabled && !entry.text.empty());
      EXPECT_TRUE(runCommand(designer, entry.id)) << entry.text;
    }
  EXPECT_TRUE(window.ended);
  EXPECT_FALSE(runCommand(designer, 1));
  designer.showPage(0);
  EXPECT_TRUE(designer.keyDown({.key = 34, .shift = kCtrl}));
  EXPECT_EQ(designer.surface().currentPage(), 1);
  EXPECT_EQ(commandOfKey({'S', kCtrl | kShift}), static_cast<int>(Command::saveAs));
  EXPECT_EQ(commandOfKey({'S', 0}), 0);
}

TEST_F(DesignerControllerTest, ExitAsksOnlyWhenSomethingWouldBeLost) {
  designer.shell().changed();
  EXPECT_NE(designer.status()[0].find('*'), std::string::npos);
  messages.answers = {true};
  const std::string before = files.textOf("/projects/contacts.qvf");
  files.disk->failWrites = ErrorKind::denied;
  EXPECT_TRUE(command(Command::exit));
  EXPECT_FALSE(window.ended);  // the wanted save failed: the person stays with the work
  EXPECT_EQ(files.textOf("/projects/contacts.qvf"), before);
  files.disk->failWrites.reset();
  messages.answers = {false};
  command(Command::exit);
  EXPECT_TRUE(window.ended);
}

TEST_F(DesignerControllerTest, SavesUnderANewNameAndOpensItAgain) {
  command(Command::newProject);
  EXPECT_LT(designer.surface().items().size(), 10u);
  chooser.answers = {"/projects/mine.old"};
  command(Command::save);  // the empty project has no name yet
  EXPECT_TRUE(files.exists("/projects/mine.qvf"));
  EXPECT_EQ(designer.status()[0], "/projects/mine.qvf");
  designer.openRecent(2);
  EXPECT_EQ(designer.status()[0], "/projects/contacts.qvf");
  designer.openPath("/projects/none.qvf");
  EXPECT_EQ(messages.shown.back().text, "The file /projects/none.qvf was not found.");
  EXPECT_EQ(designer.status()[0], "/projects/contacts.qvf");
}

TEST_F(DesignerControllerTest, CreatesAnApplicationFromItsDialogs) {
  dialogs.person = [this](const DialogSpec& spec) {
    if (spec.title == "File Properties") {
      FakeDialogs::row(spec, "Company").set("Mill & Sons");
      return true;
    }
    EXPECT_EQ(FakeDialogs::row(spec, "Name").get(), "Contacts");
    EXPECT_EQ(FakeDialogs::row(spec, "Icon").items(), (std::vector<std::string>{"Default.ico", "Other.ico"}));
    EXPECT_FALSE(FakeDialogs::row(spec, "Setup").enabledWhen());
    FakeDialogs::row(spec, "Icon").set("Other.ico");
    FakeDialogs::row(spec, "Folder").set("/out");
    FakeDialogs::row(spec, "Properties").press();
    EXPECT_FALSE(runCommand(designer, static_cast<int>(Command::newProject)));  // one command at a time
    return true;
  };
  ASSERT_TRUE(files.makeFolder("/out").ok());
  command(Command::createApplication);
  EXPECT_TRUE(messages.shown.empty()) << messages.shown[0].text;
  EXPECT_GT(files.textOf("/out/Contacts/Contacts.exe").size(), stub.size());
  EXPECT_EQ(designer.shell().document().fileProp.comments[0], "Mill & Sons");
  EXPECT_EQ(designer.shell().document().appIconPath, "/designer/Icons/Other.ico");
  EXPECT_TRUE(designer.shell().document().dirty);
  EXPECT_NE(designer.status()[0].find("/out/Contacts/Contacts.exe"), std::string::npos);
  EXPECT_EQ(dialogs.titles, (std::vector<std::string>{"Create Application...", "File Properties"}));
  EXPECT_EQ(progress.titles.back(), "");
}

TEST_F(DesignerControllerTest, CreatesNothingWithoutANameOrWithTooSmallRecords) {
  dialogs.person = [](const DialogSpec& spec) {
    FakeDialogs::row(spec, "Name").set("");
    return true;
  };
  command(Command::createApplication);
  EXPECT_FALSE(designer.shell().document().dirty);
  command(Command::newProject);
  dialogs.titles.clear();
  command(Command::createApplication);
  ASSERT_EQ(messages.shown.size(), 1u);
  EXPECT_NE(messages.shown[0].text.find("30 characters"), std::string::npos);
  EXPECT_TRUE(dialogs.titles.empty());
}

TEST_F(DesignerControllerTest, CancelledPropertiesChangeNothing) {
  dialogs.person = [](const DialogSpec& spec) {
    FakeDialogs::row(spec, "Company").set("Never");
    FakeDialogs::row(spec, "Desktop").set("1");
    return false;
  };
  const auto before = designer.shell().document().fileProp.comments;
  command(Command::fileProperties);
  EXPECT_EQ(designer.shell().document().fileProp.comments, before);
  EXPECT_FALSE(designer.shell().document().dirty);
}

}  // namespace
}  // namespace plinth
