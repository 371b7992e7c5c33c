// The commands of the menu as rows: what may run when. An entry that has no row yet shows, as the design
// says, but greyed.
#include <algorithm>

#include "basic/Text.h"
#include "engine/win32/ControlIds.h"
#include "engine/win32/EngineDialogs.h"
#include "engine/win32/EngineWindow.h"
#include "platform/win32/Win32Text.h"

namespace plinth {
namespace {

constexpr int kPasswordsCaption = 58;

}  // namespace

const EngineWindow::Command* EngineWindow::commandOf(MenuId id) {
  static constexpr Command kCommands[] = {
      {MenuId::mlist, &EngineWindow::always, &EngineWindow::openList},
      {MenuId::newin, &EngineWindow::always, &EngineWindow::newList},
      {MenuId::exitit, &EngineWindow::always, &EngineWindow::exitProgram},
      {MenuId::cuting, &EngineWindow::mayCut, &EngineWindow::editCommand},
      {MenuId::copying, &EngineWindow::mayCopy, &EngineWindow::editCommand},
      {MenuId::pasting, &EngineWindow::mayPaste, &EngineWindow::editCommand},
      {MenuId::deletemarkrec, &EngineWindow::mayWrite, &EngineWindow::newEntry},
      {MenuId::erasefile, &EngineWindow::mayWrite, &EngineWindow::clearEntry},
      {MenuId::cal, &EngineWindow::always, &EngineWindow::showCalculator},
      {MenuId::passmenu, &EngineWindow::mayEditUsers, &EngineWindow::showUsers},
      {MenuId::deleteRecord, &EngineWindow::mayWrite, &EngineWindow::deleteRecord},
      {MenuId::replaceMenu, &EngineWindow::mayReplace, &EngineWindow::replaceLine},
      {MenuId::finden0, &EngineWindow::isOpen, &EngineWindow::find},
      {MenuId::finden3, &EngineWindow::isOpen, &EngineWindow::sort},
      {MenuId::finden4, &EngineWindow::maySort, &EngineWindow::sort},
      {MenuId::finden5, &EngineWindow::maySort, &EngineWindow::sort},
      {MenuId::newview, &EngineWindow::always, &EngineWindow::newView},
      {MenuId::indexFld, &EngineWindow::mayIndex, &EngineWindow::makeIndex},
      {MenuId::opt, &EngineWindow::always, &EngineWindow::runProgram},
      {MenuId::infoo, &EngineWindow::hasHelp, &EngineWindow::showHelp},
      {MenuId::aboutit, &EngineWindow::always, &EngineWindow::showAbout},
  };
  for (const Command& command : kCommands)
    if (command.id == id) return &command;
  return nullptr;
}

bool EngineWindow::mayRun(const MenuEntry& entry) const {
  const Command* command = commandOf(entry.id);
  return command && (this->*command->enabled)();
}

void EngineWindow::choose(const MenuEntry& entry) {
  if (mayRun(entry)) (this->*commandOf(entry.id)->run)(entry);
}

// The entry for users and passwords appears for the main user; its words come with the captions.
bool EngineWindow::shows(const MenuEntry& entry) const {
  if (entry.id == MenuId::passmenu)
    return session_->mayEditUsers() && !runCaption(application(), kPasswordsCaption).empty();
  return entry.visible;
}

// Each title of the bar stands before its entries.
void EngineWindow::makeMenu() {
  menu_ = MenuHandle(::CreateMenu());
  HMENU title = nullptr;
  bool any = false;
  const std::vector<MenuEntry>& entries = application().menus;
  const auto hasEntries = [&](MenuId parent) {
    return std::any_of(entries.begin(), entries.end(),
                       [&](const MenuEntry& entry) { return entry.parent == parent && shows(entry); });
  };
  for (std::size_t i = 0; i < entries.size() && i < kMostMenuEntries; ++i) {
    const MenuEntry& entry = entries[i];
    const bool users = entry.id == MenuId::passmenu;
    const std::wstring caption =
        toWide(users ? runCaption(application(), kPasswordsCaption) : entry.caption, application().codePage);
    if (entry.parent == MenuId::none) {
      title = !entry.caption.empty() && hasEntries(entry.id) ? ::CreatePopupMenu() : nullptr;
      if (title) ::AppendMenuW(menu_.get(), MF_POPUP, reinterpret_cast<UINT_PTR>(title), caption.c_str());
      any = any || title;
      continue;
    }
    if (!shows(entry) || !title) continue;
    if ((entry.separatorBefore || users) && ::GetMenuItemCount(title) > 0)
      ::AppendMenuW(title, MF_SEPARATOR, 0, nullptr);
    ::AppendMenuW(title, MF_STRING, kMenuId + i, caption.c_str());
  }
  if (any)
    ::SetMenu(handle(), menu_.get());
  else
    menu_.reset();
}

void EngineWindow::updateMenu() {
  if (!menu_) return;
  const std::vector<MenuEntry>& entries = application().menus;
  for (std::size_t i = 0; i < entries.size() && i < kMostMenuEntries; ++i) {
    const MenuEntry& entry = entries[i];
    if (entry.parent == MenuId::none || !shows(entry)) continue;
    const auto id = static_cast<UINT>(kMenuId + i);
    if (entry.id == MenuId::finden0)
      ::ModifyMenuW(menu_.get(), id, MF_BYCOMMAND | MF_STRING, id,
                    toWide(searchCaption(entry), application().codePage).c_str());
    ::EnableMenuItem(menu_.get(), id, MF_BYCOMMAND | (mayRun(entry) ? MF_ENABLED : MF_GRAYED));
  }
}

// The search entry says what it would search.
std::string EngineWindow::searchCaption(const MenuEntry& entry) const {
  const std::string& label = session_->tools().searchLabel;
  if (label.empty() || !maySearch()) return entry.caption;
  const bool dots = entry.caption.ends_with("...");
  const std::string words = dots ? entry.caption.substr(0, entry.caption.size() - 3) : entry.caption;
  return words + " " + replaceAll(label, "&", "&&") + (dots ? "..." : "");
}

void EngineWindow::command(int id, int notice) {
  if (id >= kMenuId) {
    const auto row = static_cast<std::size_t>(id - kMenuId);
    if (row < application().menus.size()) choose(application().menus[row]);
  } else if (id >= kPageTabId && id < kPageTabId + 5 && notice == BN_CLICKED) {
    act([&] { session_->pgeClick(id - kPageTabId); });
    focusNext(false);
  } else if (id >= kNavigationId && id <= kNewRecordId) {
    navigate(id);
  }
}

void EngineWindow::navigate(int id) {
  act([&] {
    boxes_->commitFocus();
    if (id == kNewRecordId)
      session_->newbutClick();
    else
      session_->command2Click(id - kNavigationId);
  });
  restoreFocus();
}

void EngineWindow::openList(const MenuEntry&) { openDataFile(false); }
void EngineWindow::newList(const MenuEntry&) { openDataFile(true); }

void EngineWindow::openDataFile(bool save) {
  const std::string& extension = application().payload.application.dataExtension;
  ChooserRequest request;
  request.save = save;
  request.title = runCaption(application(), save ? 1 : 0);
  request.pattern = "*." + extension;
  request.initialFolder = session_->dataFile().folder;
  if (!save) request.initialName = session_->dataFile().name;
  std::optional<std::string> path = services_.chooser.choose(request);
  if (!path) return;
  const DataFile chosen = dataFileAt(*path, services_.files.separator());
  if (save && chosen.name.find('.') == std::string::npos) *path += "." + extension;
  act([&] {
    boxes_->commitFocus();
    if (session_->chooseData(dataFileAt(*path, services_.files.separator()))) session_->openData(save);
  });
}

void EngineWindow::newEntry(const MenuEntry&) { navigate(kNewRecordId); }

// What the boxes held is gone with the next move: one wrong key must not do that.
void EngineWindow::clearEntry(const MenuEntry&) {
  act([&] {
    const std::string question = runMessage(application(), 10);
    if (services_.messages.ask(question.empty() ? "Clear all boxes of this record?" : question))
      session_->erasefileClick();
  });
}

void EngineWindow::editCommand(const MenuEntry& entry) {
  const UINT message = entry.id == MenuId::cuting ? WM_CUT : entry.id == MenuId::copying ? WM_COPY : WM_PASTE;
  if (const HWND edit = focusedEdit())
    ::SendMessageW(edit, message, 0, 0);
  else if (message == WM_PASTE)
    objects_->paste();
}

void EngineWindow::showHelp(const MenuEntry&) { services_.shell.open(session_->start().helpFile); }

void EngineWindow::showAbout(const MenuEntry&) { showAboutBox(handle(), application(), services_.shell); }

// A program with arguments is told from a document by what follows its ".exe".
void EngineWindow::runProgram(const MenuEntry& entry) {
  const std::string& line =
      application().payload.application.programs[static_cast<std::size_t>(entry.index)].path;
  const std::size_t end = line.find(".exe ");
  if (line.empty()) return;
  if (end == std::string::npos)
    services_.shell.open(line);
  else
    services_.shell.open(line.substr(0, end + 4), line.substr(end + 5));
}

void EngineWindow::exitProgram(const MenuEntry&) { ::PostMessageW(handle(), WM_CLOSE, 0, 0); }

void EngineWindow::showCalculator(const MenuEntry&) {
  act([&] { boxes_->commitFocus(); });
  tools_->showCalculator();
}

void EngineWindow::showUsers(const MenuEntry&) {
  act([&] { boxes_->commitFocus(); });
  tools_->showUsers();
}

void EngineWindow::find(const MenuEntry&) {
  act([&] { boxes_->commitFocus(); });
  tools_->find();
}

// A line to fill in: the value to write and the value to look for.
void EngineWindow::replaceLine(const MenuEntry&) {
  const std::string label = session_->tools().searchLabel;
  const std::string name = label.find(' ') == std::string::npos ? label : "'" + label + "'";
  act([&] { boxes_->commitFocus(); });
  tools_->find(nullptr, "REPLACE " + name + "='' WHERE " + name + "=''");
}

void EngineWindow::sort(const MenuEntry& entry) {
  act([&] {
    boxes_->commitFocus();
    const int index = entry.id == MenuId::finden3 ? 1 : entry.id == MenuId::finden4 ? 2 : 3;
    tools_->searches().sortBy(index);
  });
  restoreFocus();
}

void EngineWindow::makeIndex(const MenuEntry&) {
  act([&] {
    boxes_->commitFocus();
    tools_->searches().buildIndexes();
  });
  restoreFocus();
}

// Another program on the same data, with a view of its own.
void EngineWindow::newView(const MenuEntry&) {
  services_.shell.open(session_->start().names.exeBase + ".exe", "\"" + session_->dataFile().path() + "\"");
}

// A record's number stays: deleting empties the record, at once and only after a question.
void EngineWindow::deleteRecord(const MenuEntry&) {
  act([&] {
    if (!services_.messages.ask(runMessage(application(), 8, std::to_string(session_->curRec())))) return;
    session_->erasefileClick();
    // Unchanged where another user holds it.
    session_->settle();
  });
}

bool EngineWindow::mayWrite() const { return session_->isOpen() && !session_->readOnly(); }
bool EngineWindow::hasHelp() const { return !session_->start().helpFile.empty(); }

// The box that edit commands work on: also the edit line inside a combo.
HWND EngineWindow::focusedEdit() const {
  const HWND focus = ::GetFocus();
  wchar_t kind[16] = {};
  if (!focus || !::IsChild(handle(), focus) || !::GetClassNameW(focus, kind, 16)) return nullptr;
  return ::lstrcmpiW(kind, L"EDIT") == 0 ? focus : nullptr;
}

bool EngineWindow::mayCopy() const {
  const HWND edit = focusedEdit();
  DWORD from = 0, to = 0;
  if (edit) ::SendMessageW(edit, EM_GETSEL, reinterpret_cast<WPARAM>(&from), reinterpret_cast<LPARAM>(&to));
  return to > from;
}

bool EngineWindow::mayCut() const {
  return mayCopy() && (::GetWindowLongPtrW(focusedEdit(), GWL_STYLE) & ES_READONLY) == 0;
}

bool EngineWindow::mayPaste() const {
  const HWND edit = focusedEdit();
  if (!edit) return objects_ && objects_->mayPaste();
  return (::GetWindowLongPtrW(edit, GWL_STYLE) & ES_READONLY) == 0 &&
         ::IsClipboardFormatAvailable(CF_UNICODETEXT);
}

}  // namespace plinth
