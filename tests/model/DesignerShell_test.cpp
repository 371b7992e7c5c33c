// The designer's life as a person meets it, on a disk in memory.
#include "model/DesignerShell.h"

#include <gtest/gtest.h>

#include "model/DerivedTexts.h"
#include "tests/fakes/FakeChooser.h"
#include "tests/fakes/FakeClock.h"
#include "tests/fakes/FakeMessages.h"
#include "tests/fakes/FakeProgress.h"
#include "tests/fakes/MemoryFiles.h"
#include "tests/fakes/MemorySettings.h"
#include "tests/model/VersionedProject.h"

namespace plinth {
namespace {

struct FakeDesignerView : DesignerView {
  void projectChanged() override { ++projects; }
  void projectSaved() override { ++saves; }
  void captionChanged(const std::string& text) override { caption = text; }
  void recentFilesChanged() override { ++recents; }
  void languageChanged() override { ++languages; }
  void setBusy(bool now) override { busy = now; }
  std::string chooseLanguage(const std::vector<std::string>& names) override {
    offered = names;
    return choice;
  }
  int projects = 0, saves = 0, recents = 0, languages = 0;
  bool busy = false;
  std::string caption, choice;
  std::vector<std::string> offered;
};

// A disk whose other end fails while the rest of it works.
struct FilesWithABadPath : MemoryFiles {
  Result<void> write(const std::string& path, std::span<const std::uint8_t> bytes) override {
    if (path == failPath) return memoryError(ErrorKind::full, path);
    return MemoryFiles::write(path, bytes);
  }
  std::string failPath;
};

std::string languageFile(const std::string& word, int charSet, const std::string& font) {
  std::string file;
  for (int i = kFirstLabel; i <= kLastLabel; ++i) file += word + std::to_string(i) + " *\n";
  return file + std::to_string(charSet) + "\n" + font + "\n";
}

class Designer : public testing::Test {
 protected:
  Designer() {
    files.put("/p/Languages/English.txt", languageFile("en", 0, "Arial"));
    files.put("/p/Languages/Russian.txt", languageFile("ru", 204, "Arial CYR"));
    files.put("/p/Icons/Default.ico", "icon");
    files.put("/tmp/PicTemp/old.bmp", "left over");
  }
  DesignerShell& shell() {
    if (!shell_)
      shell_ = std::make_unique<DesignerShell>(
          DesignerServices{files, messages, chooser, settings, clock, progress, "/p/",
                           [] { return Bytes{9}; }, first, 1252, templateSettings},
          view);
    return *shell_;
  }
  void putProject(const std::string& path, const std::string& title) {
    ProjectDocument d;
    d.appTitle = title;
    MemoryPictures none;
    files.put(path, writeProject(d, none, {path, 1}).bytes);
  }

  FilesWithABadPath files;
  FakeMessages messages;
  FakeChooser chooser;
  MemorySettings settings;
  FakeClock clock{45982.5};
  FakeProgress progress;
  FakeDesignerView view;
  bool first = true;  // no other designer runs
  Settings* templateSettings = nullptr;
  std::unique_ptr<DesignerShell> shell_;
};

TEST_F(Designer, FirstStartMakesItsFilesAndShowsTheEmptyProject) {
  view.choice = "Russian";
  ASSERT_TRUE(shell().start(""));
  EXPECT_EQ(view.offered, (std::vector<std::string>{"English", "Russian"}));
  EXPECT_TRUE(files.exists("/p/Plinth.ini"));
  EXPECT_TRUE(files.exists("/p/Default.qvf"));
  EXPECT_FALSE(files.exists("/tmp/PicTemp/old.bmp"));
  const ProjectDocument& d = shell().document();
  EXPECT_EQ(d.languageCode, 6);
  EXPECT_EQ(d.charSet, 204);
  EXPECT_EQ(d.options.fonttext, "Arial CYR");
  EXPECT_EQ(d.menuText[4], "ru184 *");
  EXPECT_EQ(d.appIcon.size(), 4u);
  EXPECT_FALSE(d.dirty);
  EXPECT_EQ(shell().projectPath() + shell().lastPath(), "");
  EXPECT_EQ(view.projects, 1);
  EXPECT_TRUE(messages.shown.empty());
  shell_.reset();
  view.offered.clear();
  ASSERT_TRUE(shell().start(""));
  EXPECT_EQ(shell().languageName(), "Russian");  // remembered
  EXPECT_TRUE(view.offered.empty());
}

TEST_F(Designer, KeepsItsPicturesApartFromThoseOfAnotherDesigner) {
  const auto open = [&](char byte) {
    MemoryPictures pictures;
    ProjectDocument d;
    d.pictures.resize(1);
    d.pictures[0].picturePath = *pictures.put("logo.bmp", Bytes{static_cast<std::uint8_t>(byte)});
    files.put("/d/a.qvf", writeProject(d, pictures, {}).bytes);
    ASSERT_TRUE(shell().start("/d/a.qvf"));
  };
  open('1');
  const std::string one = shell().document().pictures[0].picturePath;
  first = false;
  for (const char byte : {'2', '3'}) {
    shell_.reset();
    open(byte);
    EXPECT_EQ(files.textOf(shell().document().pictures[0].picturePath), std::string(1, byte));
    EXPECT_EQ(files.textOf(one), "1");
  }
  first = true;
  shell_.reset();
  ASSERT_TRUE(shell().start(""));
  EXPECT_FALSE(files.exists("/tmp/PicTemp/2/logo.bmp") || files.exists("/tmp/PicTemp/3/logo.bmp"));
}

TEST_F(Designer, StartsFromAFolderThatCannotBeWritten) {
  files.disk->folders.insert("/tmp/PicTemp");
  files.disk->failWrites = ErrorKind::denied;
  ASSERT_TRUE(shell().start(""));
  EXPECT_EQ(shell().document().titleCount(), 5);
  EXPECT_EQ(shell().languageName(), "English");
  shell_.reset();
  files.disk->files.erase("/tmp/PicTemp/old.bmp");
  files.disk->folders.clear();
  EXPECT_FALSE(shell().start(""));
  EXPECT_EQ(messages.texts().back(), "Could not find '/tmp/PicTemp/' Directory");
  shell().tick(0);
  EXPECT_TRUE(shell().mayExit());
}

TEST_F(Designer, OpensFromCommandLineAndChooserAndRemembers) {
  putProject("/d/one.qvf", "One");
  putProject("/d/two.mrf", "Two");
  ASSERT_TRUE(shell().start(" \"/d/one.qvf\" "));
  EXPECT_EQ(shell().document().appTitle, "One");
  EXPECT_EQ(shell().lastPath(), "/d/one.qvf");
  EXPECT_EQ(view.caption, "Rvn Plinth : /d/one.qvf : ");
  chooser.answers = {"/d/two.mrf", std::nullopt, "/d/gone.qvf"};
  EXPECT_TRUE(shell().open());
  EXPECT_FALSE(shell().open());
  EXPECT_FALSE(shell().open());
  EXPECT_EQ(messages.texts(), std::vector<std::string>{"en181 /d/gone.qvf"});
  EXPECT_EQ(shell().document().appTitle, "Two");
  EXPECT_EQ(shell().recentFiles()[0] + shell().recentFiles()[1], "/d/two.mrf/d/one.qvf");
  EXPECT_EQ(readRecentFiles(files.disk->find("/p/Plinth.ini")->bytes).paths[1], "/d/one.qvf");
  (void)files.removeFile("/d/one.qvf");
  EXPECT_FALSE(shell().openRecent(2));
  EXPECT_FALSE(shell().openRecent(6));
  EXPECT_EQ(shell().document().appTitle, "Two");
  EXPECT_FALSE(view.busy);
}

TEST_F(Designer, AFileThatIsNoProjectChangesNothing) {
  putProject("/d/one.qvf", "One");
  files.put("/d/text.qvf", "just some text that is long enough");
  ASSERT_TRUE(shell().start("/d/one.qvf"));
  EXPECT_FALSE(shell().openPath("/d/text.qvf"));
  EXPECT_EQ(messages.texts(), std::vector<std::string>{"en329 *"});
  EXPECT_EQ(shell().document().appTitle, "One");
  EXPECT_EQ(shell().lastPath(), "/d/one.qvf");
}

TEST_F(Designer, NewAndExamplesAreNotWrittenOver) {
  putProject("/p/Examples/shop.qvf", "Shop");
  ASSERT_TRUE(shell().start(""));
  ASSERT_EQ(shell().examples(), std::vector<std::string>{"/p/Examples/shop.qvf"});
  ASSERT_TRUE(shell().openExample(shell().examples()[0]));
  EXPECT_EQ(shell().projectPath(), "/p/Examples/shop.qvf");
  EXPECT_EQ(shell().lastPath(), "");
  EXPECT_FALSE(shell().save());  // asks for a name; the chooser was cancelled
  ASSERT_EQ(chooser.requests.size(), 1u);
  EXPECT_EQ(chooser.requests[0].title + chooser.requests[0].button, "en283 *en284 *");
  shell().document().options.fonttext = "Tahoma";
  ASSERT_TRUE(shell().newProject());
  EXPECT_EQ(shell().document().options.fonttext, "Tahoma");
  EXPECT_EQ(shell().lastPath(), "");
}

TEST_F(Designer, SaveAsSetsTheExtensionAndAsksBeforeOverwriting) {
  ASSERT_TRUE(shell().start(""));
  shell().changed();
  chooser.answers = {"/d.x/shop.v2.txt", "/d.x/shop.v2", "/d.x/shop.v2"};
  ASSERT_TRUE(shell().saveAs());
  EXPECT_TRUE(files.exists("/d.x/shop.v2.qvf"));
  EXPECT_EQ(view.caption, "Rvn Plinth V2.0 : /d.x/shop.v2.qvf");
  EXPECT_EQ(view.saves, 1);
  EXPECT_FALSE(shell().document().dirty);
  EXPECT_EQ(shell().lastPath(), "/d.x/shop.v2.qvf");
  EXPECT_TRUE(shell().saveAs());  // "/d.x/shop.qvf" is a new name
  files.put("/d.x/shop.qvf", std::string(100000, 'x'));
  EXPECT_FALSE(shell().saveAs());
  EXPECT_EQ(messages.texts(), std::vector<std::string>{"en326 /d.x/shop.qvf"});
  EXPECT_TRUE(shell().save());
  EXPECT_EQ(files.textOf("/d.x/shop.qvf").size(), 100000u);  // in place, never cut
}

TEST_F(Designer, SaysTheSystemsWordsInThePageOfItsMessages) {
  putProject("/d/\xC3\x84.qvf", "One");  // the system's words are UTF-8 and name the path
  ASSERT_TRUE(shell().start("/d/\xC3\x84.qvf"));
  files.setReadOnly("/d/\xC3\x84.qvf", true);
  EXPECT_FALSE(shell().save());
  ASSERT_EQ(messages.shown.size(), 1u);
  const std::string& text = messages.shown.back().text;
  EXPECT_NE(text.find("/\xC4.qvf", text.find('\n')), std::string::npos) << text;
}

TEST_F(Designer, ExitAsksAboutChangesAndAFailedSaveKeepsTheProgram) {
  putProject("/d/one.qvf", "One");
  ASSERT_TRUE(shell().start("/d/one.qvf"));
  EXPECT_TRUE(shell().mayExit());
  EXPECT_TRUE(messages.shown.empty());
  const std::string before = files.textOf("/d/one.qvf");
  shell().changed();
  shell().document().appTitle = "Changed";
  files.setReadOnly("/d/one.qvf", true);
  messages.answers = {true, false, true};
  EXPECT_FALSE(shell().mayExit());
  EXPECT_TRUE(shell().document().dirty);  // the file could not be opened
  EXPECT_EQ(files.textOf("/d/one.qvf"), before);
  EXPECT_TRUE(shell().mayExit());  // No
  files.setReadOnly("/d/one.qvf", false);
  EXPECT_TRUE(shell().mayExit());
  EXPECT_NE(files.textOf("/d/one.qvf"), before);
  shell().changed();
  files.disk->capacity = 100;
  EXPECT_FALSE(shell().save());
  EXPECT_FALSE(shell().document().dirty);  // the mark goes with the header
}

TEST_F(Designer, OldAndDamagedFilesLoadWithTheirMessages) {
  files.put("/d/old.qvf", VersionedProject(3).bytes);
  Bytes cut = VersionedProject(22).bytes;
  cut.resize(3000);
  files.put("/d/cut.qvf", cut);
  ASSERT_TRUE(shell().start("/d/old.qvf"));
  EXPECT_EQ(shell().document().menuText[4], "en184 *");  // texts of the designer's language
  EXPECT_EQ(shell().document().appIcon.size(), 4u);      // such files have none
  EXPECT_EQ(messages.texts(), std::vector<std::string>{"en191 *.....\\..\\logo.bmp"});
  messages.shown.clear();
  EXPECT_TRUE(shell().openPath("/d/cut.qvf"));
  EXPECT_EQ(messages.texts(), std::vector<std::string>{"en331 *"});
  EXPECT_EQ(files.textOf("/tmp/PicTemp/logo.bmp"), "\1\2\3");
}

TEST_F(Designer, ChangesTheLanguage) {
  ASSERT_TRUE(shell().start(""));
  EXPECT_FALSE(shell().chooseLanguage("Klingon"));
  ASSERT_TRUE(shell().chooseLanguage("Russian"));
  EXPECT_EQ(shell().document().statLabels[0], "ru318 *");
  EXPECT_EQ(shell().document().charSet, 204);
  EXPECT_EQ(shell().document().languageCode, 6);
  EXPECT_EQ(readRecentFiles(files.disk->find("/p/Plinth.ini")->bytes).language, "Russian");
  EXPECT_EQ(shell().document().titles[2].fontName, "Arial CYR");
  EXPECT_EQ(shell().helpFile(), "/p/Languages/English.chm");
  files.put("/p/Languages/Russian.chm", "help");
  EXPECT_EQ(shell().helpFile(), "/p/Languages/Russian.chm");
  ASSERT_TRUE(shell().newProject());  // its file still speaks English
  EXPECT_EQ(shell().document().languageCode, 6);
  EXPECT_EQ(shell().document().charSet, 204);
}

TEST_F(Designer, KeepsThePlacesOfItsWindows) {
  MemorySettings ofTemplates;
  templateSettings = &ofTemplates;
  ASSERT_TRUE(shell().start(""));
  for (const WindowPosition& known : windowPositions()) {
    const std::string key(known.key);
    EXPECT_EQ(shell().position(key), known.fallback) << key;
    shell().keepPosition(key, known.fallback - 5000);
    EXPECT_EQ(shell().position(key), known.fallback - 5000) << key;
  }
  EXPECT_EQ(ofTemplates.get("Settings", "XTempWindow", "") + ofTemplates.get("Settings", "YTempWindow", ""),
            "-4760-2700");
  EXPECT_EQ(ofTemplates.count(), 2u);
  EXPECT_EQ(shell().position("Form99Left") + shell().position("Form99Left", 240), 240);
}

TEST_F(Designer, ShowsTheTestEntriesOfCompleteTemplates) {
  ASSERT_TRUE(shell().start(""));
  auto& documents = shell().document().documents;
  documents[0] = {"xml", "", ""};
  documents[1] = {"", "<a>", ""};
  documents[9] = {"txt", "<b>", ""};
  std::vector<std::string> expected(10);
  expected[9] = "en137 *txten106 *";
  EXPECT_EQ(shell().testTemplates(), expected);
}

// Works on a project with a picture, and stops without a word to anybody.
class Crash : public Designer {
 protected:
  void workAndCrash(const std::string& path) {
    MemoryPictures pictures;
    ProjectDocument d;
    d.pictures.resize(1);
    d.pictures[0].picturePath = *pictures.put("logo.bmp", Bytes{'l', 'o'});
    files.put("/d/a.qvf", writeProject(d, pictures, {"/d/a.qvf", 1}).bytes);
    ASSERT_TRUE(shell().start(path));
    change(path.empty() ? "New" : "Changed");
    shell_.reset();
    messages.shown.clear();
  }
  void change(const std::string& title) {
    shell().document().appTitle = title;
    shell().changed();
    shell().tick(0);
    shell().tick(SafetyCopy::kSeconds);
  }
  std::size_t copies() { return files.list("/tmp/PlinthSafety").size() / 2; }
};

TEST_F(Crash, OffersTheSafetyCopyUntilTheProjectIsSaved) {
  workAndCrash("/d/a.qvf");
  for (const int round : {1, 2}) {  // a second crash before the next copy loses nothing
    messages.answers = {true};
    ASSERT_TRUE(shell().start("")) << round;
    EXPECT_EQ(messages.texts().back(),
              "Plinth was not closed properly. Open the safety copy of /d/a.qvf? If not, it is removed.");
    EXPECT_EQ(shell().document().appTitle, "Changed");
    EXPECT_EQ(files.textOf(shell().document().pictures[0].picturePath), "lo");
    EXPECT_TRUE(shell().document().dirty);
    EXPECT_EQ(view.caption, "Rvn Plinth : /d/a.qvf : ");
    if (round == 1) shell_.reset();
  }
  ASSERT_TRUE(shell().save());
  EXPECT_TRUE(chooser.requests.empty());  // the original's path is known
  EXPECT_EQ(copies(), 0u);
  shell_.reset();
  messages.shown.clear();
  ASSERT_TRUE(shell().start("/d/a.qvf"));
  EXPECT_TRUE(messages.shown.empty());
  EXPECT_EQ(shell().document().appTitle, "Changed");
}

TEST_F(Crash, OffersEachCopyOnceAndOnlyWhenNoOtherDesignerRuns) {
  workAndCrash("");
  first = false;
  workAndCrash("/d/a.qvf");
  ASSERT_EQ(copies(), 2u);
  ASSERT_TRUE(shell().start(""));
  EXPECT_TRUE(messages.shown.empty());
  shell_.reset();
  first = true;
  messages.answers = {false, false};
  ASSERT_TRUE(shell().start(""));
  ASSERT_EQ(messages.shown.size(), 2u);
  EXPECT_EQ(messages.shown[0].text,
            "Plinth was not closed properly. Open the safety copy of a new project? If not, it is removed.");
  EXPECT_EQ(shell().document().appTitle, "");
  EXPECT_FALSE(shell().document().dirty);
  EXPECT_EQ(copies(), 0u);
}

TEST_F(Crash, LeavesNoCopyOfWhatWasLeftOnPurpose) {
  ASSERT_TRUE(shell().start(""));
  change("One");
  ASSERT_EQ(copies(), 1u);
  messages.answers = {false, false};
  ASSERT_TRUE(shell().newProject());
  EXPECT_EQ(copies(), 0u);
  change("Two");
  ASSERT_EQ(copies(), 1u);
  ASSERT_TRUE(shell().mayExit());
  EXPECT_EQ(copies(), 0u);
}

TEST_F(Crash, KeepsACopyOfWhatASaveCouldNotWrite) {
  for (const bool another : {false, true}) {  // another project is opened before the end
    shell_.reset();
    ASSERT_TRUE(shell().start(""));
    change("One");
    shell().document().appTitle = "Latest";
    chooser.answers = {"/d/b.qvf"};
    files.failPath = "/d/b.qvf";
    EXPECT_FALSE(shell().save());
    if (another) {
      ASSERT_TRUE(shell().newProject());
      change("Two");
      messages.answers = {false};
    }
    ASSERT_TRUE(shell().mayExit());
    EXPECT_EQ(copies(), 1u);
    shell_.reset();
    messages.answers = {true};
    ASSERT_TRUE(shell().start(""));
    EXPECT_EQ(shell().document().appTitle, "Latest");
    messages.answers = {false};
    ASSERT_TRUE(shell().mayExit());
  }
}

}  // namespace
}  // namespace plinth
