// Commands that work on the selection: undo, clipboard, areas, alignment.
#include <array>

#include "surface/CommandTable.h"
#include "surface/DesignerController.h"

namespace plinth {

namespace {

using D = DesignerController;
using MenuPlace::align, MenuPlace::edit, MenuPlace::moveToPage;

constexpr int kLabelCopy = 117, kLabelCut = 119, kLabelPaste = 120;

bool anySelected(const D& d, int) { return d.surface().hasSelection(); }

std::string stepText(const char* verb, const std::string& words) {
  return words.empty() ? std::string("&") + verb : std::string("&") + verb + " " + menuText(words);
}
std::string undoText(const D& d, int) { return stepText("Undo", d.surface().history().undoWords()); }
std::string redoText(const D& d, int) { return stepText("Redo", d.surface().history().redoWords()); }

constexpr auto kAlignments =
    std::to_array<const char*>({"&Left Edges", "&Right Edges", "&Top Edges", "&Bottom Edges",
                                "Centers &Horizontally", "Centers &Vertically", "Same &Width", "Same H&eight",
                                "Same &Size", "Even &Gaps Across", "Even Gaps &Down"});
std::string alignmentText(const D&, int i) { return kAlignments[static_cast<std::size_t>(i)]; }

bool canAlign(const D& d, int i) {
  const std::size_t needed = static_cast<Alignment>(i) >= Alignment::evenHorizontal ? 3 : 2;
  return d.surface().state().selKind == kSelArea && d.surface().state().multiSel.size() >= needed;
}

std::string pageText(const D& d, int i) { return "&" + std::to_string(i + 1) + " " + d.pageName(i); }

}  // namespace

// clang-format off
std::span<const CommandRow> editCommands() {
  static constexpr CommandRow rows[] = {
      {Command::undo, edit, 0, "", "Ctrl+Z", {'Z', kCtrl}, [](D& d, int) { d.surface().undo(); }, false, 1, undoText,
       [](const D& d, int) { return d.surface().history().canUndo(); }},
      {Command::redo, edit, 0, "", "Ctrl+Y", {'Y', kCtrl}, [](D& d, int) { d.surface().redo(); }, false, 1, redoText,
       [](const D& d, int) { return d.surface().history().canRedo(); }},
      {Command::cut, edit, kLabelCut, "Cu&t", "Ctrl+X", {'X', kCtrl}, [](D& d, int) { d.surface().cut(); }, true, 1,
       nullptr, anySelected},
      {Command::copy, edit, kLabelCopy, "&Copy", "Ctrl+C", {'C', kCtrl}, [](D& d, int) { d.surface().copy(); }, false, 1,
       nullptr, anySelected},
      {Command::paste, edit, kLabelPaste, "&Paste", "Ctrl+V", {'V', kCtrl}, [](D& d, int) { d.surface().paste(); }},
      {Command::remove, edit, 115, "&Delete selected object...", "Del", {kDeleteKey, 0},
       [](D& d, int) { d.surface().remove(); }, false, 1, nullptr, anySelected},
      {Command::selectArea, edit, 0, "&Select Area", "Ctrl+R", {'R', kCtrl}, [](D& d, int) { d.selectArea(); }, true, 1,
       nullptr, nullptr, [](const D& d, int) { return d.surface().state().selKind == kSelArea; }},
      {Command::selectAll, edit, 0, "Select A&ll", "Ctrl+A", {'A', kCtrl}, [](D& d, int) { d.selectAll(); }},
      {Command::none, edit, 0, "Al&ign", "", {}, nullptr, true, 1, nullptr,
       [](const D& d, int) { return canAlign(d, 0); }, nullptr, align},
      {Command::none, edit, 0, "&Move to Page", "", {}, nullptr, false, 1, nullptr, anySelected, nullptr, moveToPage},
      {Command::editLabel, edit, 0, "&Edit Text", "F2", {kF2Key, 0}, [](D& d, int) { d.editLabel(); }, false, 1, nullptr,
       [](const D& d, int) { return d.surface().state().selKind == kindInfo(ObjectKind::Title).selKind; }},
      {Command::focusPanel, edit, 0, "P&roperties", "F4", {kF4Key, 0}, [](D& d, int) { d.focusPanel(); }},
      {Command::lock, edit, 111, "Loc&k Controls...", "Ctrl+L", {'L', kCtrl}, [](D& d, int) { d.surface().toggleLock(); },
       true, 1, nullptr, nullptr, [](const D& d, int) { return d.surface().state().locked; }},
      {Command::align, align, 0, "", "", {},
       [](D& d, int i) { d.alignArea(static_cast<Alignment>(i)); }, false, static_cast<int>(kAlignments.size()),
       alignmentText, canAlign},
      {Command::moveToPage, moveToPage, 0, "", "", {}, [](D& d, int i) { d.moveToPage(i); }, false, kPages, pageText,
       anySelected},
  };
  return rows;
}
// clang-format on

}  // namespace plinth
