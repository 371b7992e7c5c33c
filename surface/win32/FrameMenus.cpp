// What can be used and what is chosen is asked when a menu opens, not kept.
#include "surface/win32/FrameMenus.h"

#include <algorithm>
#include <string>

#include "surface/win32/WindowTools.h"

namespace plinth {

namespace {

std::wstring entryText(const CommandEntry& entry) {
  return wideUtf8(entry.keyText.empty() ? entry.text : entry.text + "\t" + entry.keyText);
}

bool sameEntry(const CommandEntry& a, const CommandEntry& b) {
  return a.id == b.id && a.text == b.text &&
         std::equal(a.entries.begin(), a.entries.end(), b.entries.begin(), b.entries.end(), sameEntry);
}

void refreshEntries(HMENU menu, const std::vector<CommandEntry>& entries) {
  for (const CommandEntry& entry : entries) {
    if (entry.id == 0) continue;
    if (!entry.entries.empty()) {
      refreshEntries(menu, entry.entries);
      continue;
    }
    const auto id = static_cast<UINT>(entry.id);
    std::wstring text = entryText(entry);
    MENUITEMINFOW item = {};
    item.cbSize = sizeof item;
    item.fMask = MIIM_STATE | MIIM_STRING;
    item.fState = (entry.enabled ? MFS_ENABLED : MFS_GRAYED) | (entry.checked ? MFS_CHECKED : MFS_UNCHECKED);
    item.dwTypeData = text.data();
    ::SetMenuItemInfoW(menu, id, FALSE, &item);
  }
}

}  // namespace

bool sameStory(const std::vector<Menu>& a, const std::vector<Menu>& b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(), [](const Menu& x, const Menu& y) {
    return x.title == y.title &&
           std::equal(x.entries.begin(), x.entries.end(), y.entries.begin(), y.entries.end(), sameEntry);
  });
}

HMENU popupOf(const std::vector<CommandEntry>& entries) {
  const HMENU popup = ::CreatePopupMenu();
  for (const CommandEntry& entry : entries) {
    const UINT state = (entry.enabled ? MF_ENABLED : MF_GRAYED) | (entry.checked ? MF_CHECKED : MF_UNCHECKED);
    if (entry.id == 0)
      ::AppendMenuW(popup, MF_SEPARATOR, 0, nullptr);
    else if (entry.entries.empty())
      ::AppendMenuW(popup, MF_STRING | state, static_cast<UINT_PTR>(entry.id), entryText(entry).c_str());
    else
      ::AppendMenuW(popup, MF_POPUP | state, reinterpret_cast<UINT_PTR>(popupOf(entry.entries)),
                    entryText(entry).c_str());
  }
  return popup;
}

HMENU menuBar(const std::vector<Menu>& menus) {
  const HMENU bar = ::CreateMenu();
  for (const Menu& menu : menus)
    ::AppendMenuW(bar, MF_POPUP, reinterpret_cast<UINT_PTR>(popupOf(menu.entries)),
                  wideUtf8(menu.title).c_str());
  return bar;
}

// Submenus cannot be named by an id, so those of this menu are told by their place.
void refreshMenu(HMENU menu, const DesignerController& designer) {
  for (const Menu& now : designerMenus(designer)) {
    refreshEntries(menu, now.entries);
    const bool mine = ::GetMenuItemCount(menu) == static_cast<int>(now.entries.size()) &&
                      !now.entries.empty() && now.entries.front().id != 0 &&
                      ::GetMenuItemID(menu, 0) == static_cast<UINT>(now.entries.front().id);
    for (std::size_t i = 0; mine && i < now.entries.size(); ++i)
      if (!now.entries[i].entries.empty())
        ::EnableMenuItem(menu, static_cast<UINT>(i),
                         MF_BYPOSITION | (now.entries[i].enabled ? MF_ENABLED : MF_GRAYED));
  }
}

}  // namespace plinth
