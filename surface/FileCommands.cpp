// Commands of the menus File, Language and Help.
#include "basic/CodePage.h"
#include "basic/FileName.h"
#include "surface/CommandTable.h"
#include "surface/DesignerController.h"

namespace plinth {

namespace {

using D = DesignerController;
using MenuPlace::file, MenuPlace::help, MenuPlace::language, MenuPlace::test;

constexpr unsigned kCtrlShift = kCtrl | kShift;

std::string numbered(int index, const std::string& text) {
  return "&" + std::to_string(index + 1) + " " + menuText(text);
}

std::string recentText(const D& d, int i) {
  const std::string& path = d.shell().recentFiles()[static_cast<std::size_t>(i)];
  return path.empty() ? "" : numbered(i, toUtf8(path, d.systemCodePage()));
}

std::string exampleText(const D& d, int i) {
  const std::vector<std::string> examples = d.shell().examples();
  if (i >= static_cast<int>(examples.size())) return "";
  return "Example " + menuText(toUtf8(withoutExtension(fileNameOf(examples[static_cast<std::size_t>(i)])),
                                      d.systemCodePage()));
}

std::string templateText(const D& d, int i) {
  return menuText(toUtf8(d.shell().testTemplates()[static_cast<std::size_t>(i)], d.languageCodePage()));
}

// Scripts are tried where templates are.
std::string scriptText(const D& d, int) {
  for (const std::string& shown : d.shell().testTemplates())
    if (!shown.empty()) return "Test &Script";
  return "";
}

bool isLanguage(const D& d, int i) { return i < static_cast<int>(d.shell().languages().size()); }

std::string languageText(const D& d, int i) {
  return isLanguage(d, i)
             ? menuText(toUtf8(d.shell().languages()[static_cast<std::size_t>(i)], d.systemCodePage()))
             : "";
}

bool isChosenLanguage(const D& d, int i) {
  return isLanguage(d, i) && d.shell().languages()[static_cast<std::size_t>(i)] == d.shell().languageName();
}

}  // namespace

// clang-format off
std::span<const CommandRow> fileCommands() {
  static constexpr CommandRow rows[] = {
      {Command::newProject, file, 152, "&New Project", "Ctrl+N", {'N', kCtrl}, [](D& d, int) { d.newProject(); }},
      {Command::open, file, 153, "&Open...", "Ctrl+O", {'O', kCtrl}, [](D& d, int) { d.open(); }},
      {Command::save, file, 155, "&Save", "Ctrl+S", {'S', kCtrl}, [](D& d, int) { d.save(); }},
      {Command::saveAs, file, 156, "Save &As...", "Ctrl+Shift+S", {'S', kCtrlShift}, [](D& d, int) { d.saveAs(); }},
      {Command::createApplication, file, 179, "Create &Application...", "F9", {kF9Key, 0},
       [](D& d, int) { d.createApplication(); }, true},
      {Command::fileProperties, file, 0, "File &Properties...", "", {}, [](D& d, int) { d.fileProperties(); }},
      {Command::openExample, file, 0, "", "", {}, [](D& d, int i) { d.openExample(i); }, true, 10, exampleText},
      {Command::recent, file, 0, "", "", {}, [](D& d, int i) { d.openRecent(i + 1); }, true, kRecentFiles, recentText},
      {Command::exit, file, 157, "E&xit", "Alt+F4", {}, [](D& d, int) { d.exit(); }, true},
      {Command::tryProject, test, 0, "&Test Application", "F5", {kF5Key, 0}, [](D& d, int) { d.tryProject(); }},
      {Command::testTemplate, test, 0, "", "", {}, [](D& d, int) { d.tryProject(); }, true, 10, templateText},
      {Command::testScript, test, 0, "", "", {}, [](D& d, int) { d.tryProject(); }, false, 1, scriptText},
      {Command::language, language, 0, "", "", {}, [](D& d, int i) { d.chooseLanguage(i); }, false, 99, languageText,
       nullptr, isChosenLanguage},
      {Command::commonLabels, language, 176, "Common Labels...", "", {}, [](D& d, int) { d.commonLabels(); }, true},
      {Command::help, help, 373, "&Contents", "F1", {kF1Key, 0}, [](D& d, int) { d.help(); }, false, 1, nullptr,
       [](const D& d, int) { return d.helpThere(); }},
      {Command::about, help, 0, "&About Plinth...", "", {}, [](D& d, int) { d.about(); }},
  };
  return rows;
}
// clang-format on

}  // namespace plinth
