// The designer without windows: owns the shell and the drawing area, runs the commands and the dialogs. The
// main window forwards events to it and shows what DesignerWindow tells.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "builder/CreateApplication.h"
#include "model/DesignerShell.h"
#include "platform/Canvas.h"
#include "surface/DesignerDialogs.h"
#include "surface/DialogRows.h"
#include "surface/PageSurface.h"
#include "surface/PageView.h"

namespace plinth {

// What the designer asks of its main window, beside painting and scrolling.
class DesignerWindow : public SurfaceView {
 public:
  virtual void showCaption(const std::string& utf8) = 0;
  virtual void menusChanged() = 0;   // designerMenus() tells another story now
  virtual void statusChanged() = 0;  // so does status()
  virtual void setBusy(bool busy) = 0;
  virtual void end() = 0;  // the program may end; the person was asked
};

// Everything from outside; must outlive the controller.
struct DesignerParts {
  DesignerServices services;
  DialogRunner& dialogs;
  ImageDecoder& decoder;
  TextMeasure measure;
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
  void fileProperties();
  void about();
  void exit();
  void chooseLanguage(int index);  // into languages()
  void showPage(int page);
  void showNextPage(int step);

  // True when the key was used.
  bool keyDown(const KeyEvent& event);

  bool busy() const { return busy_; }
  const DesignerShell& shell() const { return shell_; }
  DesignerShell& shell() { return shell_; }
  PageSurface& surface() { return surface_; }
  const PageSurface& surface() const { return surface_; }
  // A text of the chosen language, or the English one where the language has none.
  std::string text(int label, const char* english) const;
  int languageCodePage() const;
  int systemCodePage() const { return parts_.systemCodePage; }
  // Parts of the status bar, UTF-8: project or last result, page size in pixels, objects on the page and in
  // the project, object under the pointer.
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
  CreateEnvironment createEnvironment();
  void report(const CreateResult& result);
  bool runDialog(DialogSpec spec);
  LabelSource labels() const;
  template <class F>
  void run(F command);

  DesignerParts parts_;
  DesignerWindow& window_;
  DesignerShell shell_;
  StoredImages images_;
  PageSurface surface_;
  std::string pointed_, result_;
  bool busy_ = false;
};

}  // namespace plinth
