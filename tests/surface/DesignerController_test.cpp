// The designer as a person uses it, on a machine in memory: commands, keys, dialogs and what the window is
// told.
#include "tests/surface/DesignerFixture.h"

namespace plinth {
namespace {

class DesignerControllerTest : public DesignerFixture {};

TEST_F(DesignerControllerTest, ShowsTheProjectOfTheCommandLine) {
  EXPECT_TRUE(messages.shown.empty()) << messages.shown[0].text;
  EXPECT_NE(window.caption.find("/projects/contacts.qvf"), std::string::npos);
  EXPECT_GT(designer.surface().page().items().size(), 40u);
  EXPECT_EQ(designer.status()[0], "/projects/contacts.qvf");
  EXPECT_EQ(designer.status()[2], "640 x 480 px");
  EXPECT_TRUE(dialogs.titles.empty());  // one language: nobody is asked
  bool recent = false;
  for (const CommandEntry& entry : menu(0)) recent = recent || entry.text == "&1 /projects/contacts.qvf";
  EXPECT_TRUE(recent);
  EXPECT_EQ(menu(3)[0].text, "&1 Contact");
  EXPECT_TRUE(menu(3)[0].checked);
}

TEST_F(DesignerControllerTest, AKeyOpensEachMenu) {
  std::string keys;
  for (const Menu& menu : designerMenus(designer)) {
    const std::size_t mark = menu.title.find('&');
    ASSERT_LT(mark + 1, menu.title.size()) << menu.title;
    EXPECT_EQ(keys.find(menu.title[mark + 1]), std::string::npos) << menu.title;
    keys += menu.title[mark + 1];
  }
  EXPECT_EQ(keys, "FEAPTOLH");
}

TEST_F(DesignerControllerTest, EveryMenuEntryRunsAndKeysReachTheSameCommands) {
  int ran = 0;
  const std::function<void(const std::vector<CommandEntry>&)> runAll =
      [&](const std::vector<CommandEntry>& entries) {
        for (const CommandEntry& entry : entries) {
          if (entry.id == 0) continue;
          EXPECT_FALSE(entry.text.empty());
          if (!entry.entries.empty())
            runAll(entry.entries);
          else
            ran += runCommand(designer, entry.id);
        }
      };
  for (const Menu& menu : designerMenus(designer)) runAll(menu.entries);
  EXPECT_GT(ran, 60);
  EXPECT_TRUE(window.ended);
  EXPECT_FALSE(runCommand(designer, 1));
  designer.showPage(0);
  EXPECT_TRUE(designer.keyDown({.key = kPageDownKey, .shift = kCtrl}));
  EXPECT_EQ(designer.surface().state().currentPage, 1);
  EXPECT_EQ(commandOfKey({'S', kCtrl | kShift}), static_cast<int>(Command::saveAs));
  EXPECT_EQ(commandOfKey({'S', 0}), 0);
}

TEST_F(DesignerControllerTest, TriesTheProjectInTheTemporaryFolderWithoutChangingIt) {
  EXPECT_TRUE(command(Command::tryProject));
  ASSERT_EQ(shell.opened.size(), 1u);
  const std::string program = shell.opened[0].target;
  EXPECT_EQ(program.rfind(files.temporaryFolder(), 0), 0u) << program;
  EXPECT_TRUE(files.exists(program));
  EXPECT_FALSE(document().dirty);
  EXPECT_FALSE(designer.surface().history().canUndo());
  EXPECT_TRUE(command(Command::tryProject));  // over the one before, without a question
  EXPECT_TRUE(messages.shown.empty());
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
  EXPECT_LT(designer.surface().page().items().size(), 10u);
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

TEST_F(DesignerControllerTest, CommonLabelsReachTheProjectButNotTheWordsOfItsMenus) {
  const std::string pasting = document().menus.pasting;
  window.editLabels = [](CommonLabels& labels) {
    const std::pair<int, const char*> edits[] = {{383, "Insert"}, {184, "Make *?"}, {319, "Mean"}};
    for (const auto& [number, text] : edits) {
      labels.scrollTo(number - kFirstLabel);
      labels.change(number - kFirstLabel - labels.first(), text);
    }
  };
  command(Command::commonLabels);
  EXPECT_EQ(designer.text(383, ""), "Insert");
  EXPECT_EQ(document().engineText[133], "Insert");
  EXPECT_EQ(document().menuText[4] + document().statLabels[1], "Make *?Mean");
  EXPECT_EQ(document().menus.pasting, pasting);
  EXPECT_TRUE(document().dirty);
  EXPECT_EQ(designer.surface().history().undoWords(), "common labels");
  EXPECT_TRUE(command(Command::undo));
  EXPECT_NE(document().menuText[4], "Make *?");
  EXPECT_FALSE(designer.surface().history().canUndo());
}

TEST_F(DesignerControllerTest, TheSystemMayEndOnlyWhenNothingIsLost) {
  EXPECT_TRUE(designer.mayEnd());
  bool whileDialog = true;
  dialogs.person = [&](const DialogSpec&) {
    whileDialog = designer.mayEnd();
    return false;
  };
  command(Command::fileProperties);
  EXPECT_TRUE(whileDialog);
  designer.shell().changed();
  command(Command::fileProperties);
  EXPECT_FALSE(whileDialog);
  EXPECT_TRUE(messages.shown.empty());
  messages.answers = {false};
  EXPECT_TRUE(designer.mayEnd());
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
