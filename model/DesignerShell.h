// The life of the open project: start of the designer, New, Open, Save, Save As, recent files, language,
// exit. The main window forwards its commands to this and shows what DesignerView tells it; nothing here
// knows a window.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "model/LanguageTexts.h"
#include "model/PictureStore.h"
#include "model/ProjectDocument.h"
#include "model/ProjectFile.h"
#include "model/RecentFiles.h"
#include "model/SafetyCopy.h"
#include "platform/Chooser.h"
#include "platform/Clock.h"
#include "platform/Files.h"
#include "platform/Messages.h"
#include "platform/Progress.h"
#include "platform/Settings.h"

namespace plinth {

class DesignerView {
 public:
  virtual ~DesignerView() = default;
  // Another project stands in the document: close the dialogs, drop selection and pages, build all anew.
  virtual void projectChanged() = 0;
  // The project was saved, which may have put rows right: what is in the document now is the known state.
  virtual void projectSaved() {}
  virtual void captionChanged(const std::string& caption) = 0;
  virtual void recentFilesChanged() = 0;
  // Texts, font or character set changed: set every caption again.
  virtual void languageChanged() = 0;
  virtual void setBusy(bool busy) = 0;  // pointer
  // One of the names, or "" when the person did not choose.
  virtual std::string chooseLanguage(const std::vector<std::string>& names) = 0;
};

// The outside that the shell works with; all must outlive it.
struct DesignerServices {
  Files& files;
  Messages& messages;
  Chooser& chooser;
  Settings& settings;
  Clock& clock;
  Progress& progress;
  std::string programFolder;             // with trailing separator
  std::function<Bytes()> builtInIcon;    // the icon that the program carries
  bool firstInstance = true;             // no other designer runs: its temporary pictures may be removed
  int codePage = 1252;                   // of paths and messages
  Settings* templateSettings = nullptr;  // the store "QZ" of the template window; nullptr: in `settings`
};

// A place of a window that the settings keep, in whole twips.
struct WindowPosition {
  std::string_view key;
  int fallback;                 // where the window stands the first time
  bool ofTemplateList = false;  // kept in the store "QZ"
};
std::span<const WindowPosition> windowPositions();

// The path that a command line names, "" for none; blanks and one pair of quotes around it are dropped.
std::string withoutQuotes(const std::string& commandLine);

class DesignerShell {
 public:
  DesignerShell(DesignerServices services, DesignerView& view);

  // Everything from the icon to the first project. commandLine: path of a project, with or without quotes, or
  // "". False when the program must end (the message was shown).
  bool start(const std::string& commandLine);

  // Each shows its own messages. False: nothing was opened or saved, the open project stays. Before another
  // project takes the place of one with changes the person is asked to save it.
  bool newProject();
  bool open();                             // asks for the file
  bool openPath(const std::string& path);  // as open, with a path that is known
  bool openRecent(int number);             // 1 to 5; nothing happens when the file is gone
  bool openExample(const std::string& path);
  bool save();
  bool saveAs();
  // Asks about unsaved changes. True when the program may end (nothing to save, No, or saved): the safety
  // copy is gone then, unless a save broke off; so it is with New and Open.
  bool mayExit();
  // To be called now and then while no command runs, with the seconds since some start: keeps the safety
  // copy.
  void tick(std::int64_t seconds);
  // Marks the project as changed.
  void changed() { document_.dirty = true; }

  bool chooseLanguage(const std::string& name);
  const std::vector<std::string>& languages() const { return languages_; }
  const std::string& languageName() const { return recent_.language; }
  // Path of the help file in the language of the designer, else the English one.
  std::string helpFile() const;

  ProjectDocument& document() { return document_; }
  const ProjectDocument& document() const { return document_; }
  LanguageTexts& texts() { return texts_; }
  const LanguageTexts& texts() const { return texts_; }
  PictureStore& pictures() { return *pictures_; }
  const std::array<std::string, kRecentFiles>& recentFiles() const { return recent_.paths; }
  const std::string& caption() const { return caption_; }
  const std::string& projectPath() const { return document_.projectPath; }
  const std::string& lastPath() const { return lastPath_; }  // "": Save asks for a name
  // Paths of the example projects.
  std::vector<std::string> examples() const;
  // Captions of the entries TestTemplate, one for each document template; "" for those that are hidden.
  std::vector<std::string> testTemplates() const;
  // Window positions of the settings section "Settings", whole twips. Without a fallback the one of
  // windowPositions() counts, 0 for a key that is none of them.
  int position(const std::string& key) const;
  int position(const std::string& key, int fallback) const;
  void keepPosition(const std::string& key, int value);

 private:
  bool makePictureFolder();
  void loadIcon();
  void readIni();
  void writeIni();
  void listLanguages();
  bool loadLanguage(const std::string& name, bool fromMenu);
  void makeDefaultProject();
  ProjectDocument freshDocument() const;
  // asPath: where the project belongs, when that is not where it is read from.
  bool load(const std::string& path, bool keepLook) { return load(path, keepLook, path); }
  bool load(const std::string& path, bool keepLook, const std::string& asPath);
  void takeDocument(ProjectDocument document, const std::string& path);
  void offerSafetyCopy();
  Settings& settingsOf(const std::string& key) const;
  void rememberFile(const std::string& path);
  bool saveTo(const std::string& path);
  bool mayLeaveProject();
  bool isDefaultProject(const std::string& path) const;
  void setCaption(std::string caption);
  std::int32_t today() const;
  std::string beside(const std::string& name) const { return services_.programFolder + name; }
  std::string inFolder(const std::string& folder, const std::string& name) const;
  std::string defaultProject() const { return beside("Default.qvf"); }

  DesignerServices services_;
  DesignerView& view_;
  ProjectDocument document_;
  LanguageTexts texts_;
  RecentFiles recent_;
  std::vector<std::string> languages_;
  std::unique_ptr<DiskPictures> pictures_;
  std::unique_ptr<SafetyCopy> safety_;
  bool saveBrokeOff_ = false;
  Bytes defaultIcon_;
  std::string caption_, lastPath_, picTempDir_, defaultImage_;
};

}  // namespace plinth
