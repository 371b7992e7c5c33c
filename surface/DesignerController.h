// The designer without windows: owns the shell and the drawing area, runs the commands and the dialogs. The
// main window forwards events to it and shows what DesignerWindow tells.
#pragma once

#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <vector>

#include "builder/CreateApplication.h"
#include "model/DesignerShell.h"
#include "platform/Canvas.h"
#include "platform/Clipboard.h"
#include "platform/Shell.h"
#include "surface/CommonLabels.h"
#include "surface/DesignSurface.h"
#include "surface/DesignerDialogs.h"
#include "surface/DialogRows.h"
#include "surface/PageView.h"

namespace plinth {

// What the designer asks of its main window, beside what the surface tells.
class DesignerWindow : public SurfaceWindow {
 public:
  virtual void showCaption(const std::string& utf8) = 0;
  virtual void menusChanged() = 0;   // designerMenus() tells another story now
  virtual void statusChanged() = 0;  // so does status()
  virtual void wordsChanged() = 0;   // the mirrored menus, or the entry whose words are edited
  virtual void setBusy(bool busy) = 0;
  virtual void showColorTable() = 0;
  virtual void focusPanel() = 0;
  virtual void editCommonLabels(CommonLabels& labels) = 0;  // shows Form20 until it is left
  virtual void end() = 0;                                   // the program may end; the person was asked
};

// Everything from outside; must outlive the controller.
struct DesignerParts {
  DesignerServices services;
  DialogRunner& dialogs;
  Clipboard& clipboard;
  Shell& shell;
  ImageDecoder& decoder;
  TextMeasure measure;
  Locale locale;                       // of the dates on pages
  std::span<const std::uint8_t> stub;  // the engine that the program carries
  std::span<const std::uint8_t> defaultIcon;
  std::string version;        // of this program
  int systemCodePage = 1252;  // of paths
};

class DesignerController : private DesignerView {
 public:
  DesignerController(DesignerParts parts, DesignerWindow& window);

  // Opens the first project. False: the program must end, the person was told.
  bool start(const std::string& commandLine);

  // Commands; menus and keys reach them through the table in DesignerCommands.h. None runs while another
  // does.
  void newProject();
  void open();
  void save();
  void saveAs();
  void openRecent(int number);  // 1 to 5
  void openPath(const std::string& path);
  void createApplication();
  // Starts an application of the project as it stands, made in the temporary folder.
  void tryProject();
  void fileProperties();
  void about();
  void exit();
  // The system wants to end: asks as exit() does. While a command runs nobody can be asked; false then when
  // something would be lost.
  bool mayEnd();
  void openExample(int index);     // into the shell's examples()
  void chooseLanguage(int index);  // into languages()
  void commonLabels();
  void help();
  bool helpThere() const;
  void showPage(int page);
  void showNextPage(int step);

  // Commands on the page.
  void place(Tool tool);
  template <class F>
  void placement(F work) {
    surface_.run([&] { work(surface_.placement()); });
  }
  void selectArea();
  void selectAll();
  void alignArea(Alignment alignment);
  void moveToPage(int page);
  void editLabel();
  void focusPanel() { window_.focusPanel(); }
  void namePage();
  void choosePaper(int index);
  void customPaper();
  void chooseUnit(ScaleUnit unit);
  void chooseGrid(int choice);
  void choosePageColor();
  void chooseBackground();
  void tileBackground(int tileMode);
  void showColorTable() { window_.showColorTable(); }
  // The words of a mirrored menu entry: shown for editing, changed at each letter, left.
  void beginWords(int id);
  void changeWords(const std::string& words);
  void endWords();

  // A key that the page got. True when it was used.
  bool keyDown(const KeyEvent& event);
  // To be called every few seconds with the seconds since some start: the page's clock, the safety copy.
  void tick(std::int64_t seconds);

  bool busy() const { return busy_; }
  const DesignerShell& shell() const { return shell_; }
  DesignerShell& shell() { return shell_; }
  DesignSurface& surface() { return surface_; }
  const DesignSurface& surface() const { return surface_; }
  // A text of the chosen language, or the English one where the language has none.
  std::string text(int label, const char* english) const;
  int languageCodePage() const;
  int systemCodePage() const { return parts_.systemCodePage; }
  // The caption of a page's tab as menus show it, UTF-8.
  std::string pageName(int page) const;
  // Parts of the status bar, UTF-8: project or last result, what is selected, page size in pixels, objects on
  // the page and in the project, object under the pointer.
  std::vector<std::string> status() const;
  void setPointed(const std::string& name);

 private:
  // Marks the time in which a command runs: message boxes and progress pump events that would start another.
  class Turn;

  void projectChanged() override;
  void captionChanged(const std::string& caption) override;
  void recentFilesChanged() override;
  void languageChanged() override;
  void setBusy(bool busy) override;
  std::string chooseLanguage(const std::vector<std::string>& names) override;
  void projectSaved() override;
  std::string choosePicture();
  CreateEnvironment createEnvironment();
  void report(const CreateResult& result);
  bool runDialog(DialogSpec spec);
  LabelSource labels() const;
  void run(const std::function<void()>& command);

  DesignerParts parts_;
  DesignerWindow& window_;
  DesignerShell shell_;
  StoredImages images_;
  DesignSurface surface_;
  std::string pointed_, result_;
  bool busy_ = false;
};

}  // namespace plinth
