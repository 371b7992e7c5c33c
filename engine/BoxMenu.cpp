#include "engine/BoxMenu.h"

namespace plinth {

std::vector<BoxMenuRow> boxMenu(const Application& application, const FocusTools& tools,
                                const BoxMenuState& state,
                                const std::function<bool(const MenuEntry&)>& mayRun) {
  std::vector<BoxMenuRow> rows;
  const auto edit = [&](BoxCommand command, int caption, const char* plain, bool enabled) {
    rows.push_back(
        {command, nullptr, runCaption(application, caption, plain), enabled, command == BoxCommand::cut});
  };
  edit(BoxCommand::undo, 17, "Undo", state.canUndo && state.canWrite);
  edit(BoxCommand::cut, 14, "Cut", state.hasSelection && state.canWrite);
  edit(BoxCommand::copy, 15, "Copy", state.hasSelection);
  edit(BoxCommand::paste, 16, "Paste", state.canPaste && state.canWrite);
  struct Offer {
    MenuId id;
    bool offered;
  };
  const Offer offers[] = {{MenuId::finden0, tools.find},
                          {MenuId::finden4, tools.sort},
                          {MenuId::finden5, tools.sort},
                          {MenuId::indexFld, tools.index}};
  bool first = true;
  for (const Offer& offer : offers) {
    const MenuEntry* entry = findMenu(application.menus, offer.id);
    if (!offer.offered || !entry || !entry->visible) continue;
    rows.push_back({BoxCommand::entry, entry, entry->caption, mayRun(*entry), first});
    first = false;
  }
  return rows;
}

}  // namespace plinth
