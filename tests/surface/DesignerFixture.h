// The whole designer on a machine in memory, with a person's hands for mouse, keys and dialogs.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "surface/DesignerCommands.h"
#include "surface/DesignerController.h"
#include "tests/fakes/FakeChooser.h"
#include "tests/fakes/FakeClipboard.h"
#include "tests/fakes/FakeClock.h"
#include "tests/fakes/FakeMessages.h"
#include "tests/fakes/FakeProgress.h"
#include "tests/fakes/FakeShell.h"
#include "tests/fakes/MemoryFiles.h"
#include "tests/fakes/MemorySettings.h"
#include "tests/fakes/RecordingCanvas.h"

namespace plinth {

class TestWindow : public DesignerWindow {
 public:
  void invalidate() override {}
  void scrollChanged() override {}
  void pageChanged() override {}
  void tabsChanged() override {}
  void objectPointedAt(const std::string&) override {}
  void panelChanged() override {}
  void readoutsChanged() override {}
  void pointerChanged(PointerShape) override {}
  void popupMenu(PointPx) override { ++popups; }
  void labelEditing(const RectPx& place) override { label = place; }
  void objectOpened(ObjectRef) override {}
  void stepMade() override {}
  void showCaption(const std::string& utf8) override { caption = utf8; }
  void menusChanged() override {}
  void statusChanged() override {}
  void wordsChanged() override {}
  void showColorTable() override { ++colorTables; }
  void focusPanel() override {}
  void editCommonLabels(CommonLabels& labels) override {
    if (editLabels) editLabels(labels);
  }
  void setBusy(bool) override {}
  void end() override { ended = true; }
  std::string caption;
  RectPx label;
  int popups = 0, colorTables = 0;
  bool ended = false;
  std::function<void(CommonLabels&)> editLabels;
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

inline Bytes dataFile(const std::string& name) {
  std::ifstream in(std::string(PLINTH_TEST_DATA) + "/" + name, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

class DesignerFixture : public testing::Test {
 protected:
  void SetUp() override {
    files.put("/designer/Languages/English.txt", dataFile("../../Languages/English.txt"));
    files.put("/designer/Icons/Default.ico", "icon");
    files.put("/designer/Icons/Other.ico", "2x2 other");
    files.put("/designer/Icons/readme.txt", "no icon");
    files.put("/projects/contacts.qvf", dataFile("fixtures/contacts.qvf"));
    ASSERT_TRUE(files.makeFolder("/projects").ok());
    ASSERT_TRUE(designer.start("/projects/contacts.qvf"));
    designer.surface().page().resize({1400, 1000});
  }
  const ProjectDocument& document() const { return designer.shell().document(); }
  PointPx onPage(int x, int y) const {
    const PointPx origin = designer.surface().page().sheetOrigin();
    return {origin.x + x, origin.y + y};
  }
  // Mouse at points of the page, left button.
  void move(int x, int y, int button = 0) {
    const PointPx at = onPage(x, y);
    designer.surface().mouseMove({button, 0, at.x, at.y});
  }
  void press(int x, int y, int button = 1) {
    const PointPx at = onPage(x, y);
    designer.surface().mouseDown({button, 0, at.x, at.y});
  }
  void release(int x, int y, int button = 1) {
    const PointPx at = onPage(x, y);
    designer.surface().mouseUp({button, 0, at.x, at.y});
  }
  void click(int x, int y) {
    move(x, y);
    press(x, y);
    release(x, y);
  }
  void drag(int fromX, int fromY, int toX, int toY) {
    move(fromX, fromY);
    press(fromX, fromY);
    move((fromX + toX) / 2, (fromY + toY) / 2, 1);
    move(toX, toY, 1);
    release(toX, toY);
    move(toX, toY);
  }
  // Chooses a tool and drops its object.
  void place(Tool tool, int x, int y) {
    EXPECT_TRUE(runCommand(designer, static_cast<int>(Command::tool) + static_cast<int>(tool)));
    click(x, y);
    move(x + 200, y + 200);
  }
  void type(PanelId control, const std::string& text) { designer.surface().writePanel(control, text); }
  std::vector<CommandEntry> menu(std::size_t index) { return designerMenus(designer).at(index).entries; }
  bool command(Command id) { return runCommand(designer, static_cast<int>(id)); }

  MemoryFiles files;
  FakeMessages messages;
  FakeChooser chooser;
  MemorySettings settings;
  FakeClock clock;
  FakeProgress progress;
  FakeDialogs dialogs;
  FakeClipboard clipboard;
  FakeShell shell;
  FakeImageDecoder decoder;
  TestWindow window;
  Bytes stub = Bytes(5000, 7), icon = Bytes(766, 1);
  DesignerController designer{
      {{files, messages, chooser, settings, clock, progress, "/designer/", [this] { return icon; }, true},
       dialogs,
       clipboard,
       shell,
       decoder,
       [](std::string_view text, const FontSpec& font) { return RecordingCanvas().measure(text, font); },
       englishLocale(),
       stub,
       icon,
       "2.0",
       1252},
      window};
};

}  // namespace plinth
