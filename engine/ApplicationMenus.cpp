// Two tables decide the menu bar: which entries a title has, in which groups, and where each caption stands
// in the payload. The rules of hiding are applied to the rows afterwards, the same way for every title.
#include "engine/ApplicationMenus.h"

#include "basic/Text.h"

namespace plinth {
namespace {

using Caption = std::string PayloadMenus::*;

struct MenuRow {
  MenuId id, parent;
  int group;  // entries of one group stand together between lines
  Caption caption;
};

// Captions that do not stand in PayloadMenus are filled in by makeMenus.
constexpr MenuRow kRows[] = {
    {MenuId::fmenu, MenuId::none, 0, &PayloadMenus::fmenu},
    {MenuId::mlist, MenuId::fmenu, 1, &PayloadMenus::mlist},
    {MenuId::newin, MenuId::fmenu, 1, &PayloadMenus::newin},
    {MenuId::importmenu, MenuId::fmenu, 2, &PayloadMenus::importmenu},
    {MenuId::expot, MenuId::fmenu, 2, &PayloadMenus::expot},
    {MenuId::printingit, MenuId::fmenu, 3, &PayloadMenus::printingit},
    {MenuId::printReport, MenuId::fmenu, 3, nullptr},
    {MenuId::passmenu, MenuId::fmenu, 4, nullptr},
    {MenuId::exitit, MenuId::fmenu, 5, &PayloadMenus::exitit},
    {MenuId::ops, MenuId::none, 0, &PayloadMenus::ops},
    {MenuId::cuting, MenuId::ops, 1, &PayloadMenus::cuting},
    {MenuId::copying, MenuId::ops, 1, &PayloadMenus::copying},
    {MenuId::pasting, MenuId::ops, 1, &PayloadMenus::pasting},
    {MenuId::copyadress, MenuId::ops, 2, &PayloadMenus::copyadress},
    {MenuId::deletemarkrec, MenuId::ops, 2, &PayloadMenus::deletemarkrec},
    {MenuId::erasefile, MenuId::ops, 2, &PayloadMenus::erasefile},
    {MenuId::deleteRecord, MenuId::ops, 2, nullptr},
    {MenuId::replaceMenu, MenuId::ops, 3, nullptr},
    {MenuId::cal, MenuId::ops, 4, &PayloadMenus::cal},
    {MenuId::opt, MenuId::ops, 5, nullptr},
    {MenuId::finding, MenuId::none, 0, &PayloadMenus::finding},
    {MenuId::finden0, MenuId::finding, 1, &PayloadMenus::finden0},
    {MenuId::finden3, MenuId::finding, 2, &PayloadMenus::finden3},
    {MenuId::finden4, MenuId::finding, 2, &PayloadMenus::finden4},
    {MenuId::finden5, MenuId::finding, 2, &PayloadMenus::finden5},
    {MenuId::newview, MenuId::finding, 3, &PayloadMenus::newview},
    {MenuId::indexFld, MenuId::finding, 4, nullptr},
    {MenuId::statistical, MenuId::finding, 5, nullptr},
    {MenuId::viewDoc, MenuId::none, 0, nullptr},
    {MenuId::pdf, MenuId::viewDoc, 1, nullptr},
    {MenuId::viewDocName, MenuId::viewDoc, 2, nullptr},
    {MenuId::helpit, MenuId::none, 0, &PayloadMenus::helpit},
    {MenuId::infoo, MenuId::helpit, 1, &PayloadMenus::infoo},
    {MenuId::aboutit, MenuId::helpit, 2, &PayloadMenus::aboutit},
};

struct Item {
  MenuEntry entry;
  int group;
};

void add(std::vector<Item>& items, const MenuRow& row, const std::string& caption, int index = 0) {
  MenuEntry entry{row.id, row.parent, index, caption, replaceAll(caption, "&", ""), !caption.empty(), false};
  items.push_back({std::move(entry), row.group});
}

// Rows whose captions stand elsewhere in the payload, or that are as many as the application has.
void addOther(std::vector<Item>& items, const MenuRow& row, const Payload& payload) {
  const PayloadApplication& app = payload.application;
  switch (row.id) {
    case MenuId::printReport:
      for (std::size_t i = 0; i < payload.reports.size(); ++i)
        add(items, row, payload.reports[i].title, static_cast<int>(i));
      break;
    case MenuId::viewDocName:
      for (std::size_t i = 0; i < payload.templates.size(); ++i)
        add(items, row, payload.templates[i].caption, static_cast<int>(i));
      break;
    case MenuId::opt:
      for (std::size_t i = 0; i < app.programs.size(); ++i)
        add(items, row, app.programs[i].visible ? app.programs[i].caption : "", static_cast<int>(i));
      break;
    case MenuId::deleteRecord:
      add(items, row, app.deleteRecordCaption);
      break;
    case MenuId::replaceMenu:
      add(items, row, app.replaceCaption);
      break;
    case MenuId::indexFld:
      add(items, row, payload.header.indexCaption);
      break;
    case MenuId::statistical:
      add(items, row, payload.header.statisticsCaption);
      break;
    case MenuId::viewDoc:
      add(items, row, "Document");
      break;
    case MenuId::pdf:
      add(items, row, payload.documentsCaption);
      break;
    default:
      add(items, row, "");
  }
}

bool hasVisibleEntry(const std::vector<Item>& items, MenuId title) {
  for (const Item& item : items)
    if (item.entry.parent == title && item.entry.visible) return true;
  return false;
}

// A line stands above the first visible entry of a group, but never at the top of a menu.
void placeSeparators(std::vector<Item>& items) {
  MenuId title = MenuId::none;
  int lastGroup = 0;
  for (Item& item : items) {
    if (item.entry.parent != title) {
      title = item.entry.parent;
      lastGroup = 0;
    }
    if (title == MenuId::none || !item.entry.visible) continue;
    item.entry.separatorBefore = lastGroup != 0 && item.group != lastGroup;
    lastGroup = item.group;
  }
}

}  // namespace

std::vector<MenuEntry> makeMenus(const Payload& payload) {
  const PayloadApplication& app = payload.application;
  std::vector<Item> items;
  for (const MenuRow& row : kRows) {
    if (row.caption)
      add(items, row, app.menus.*row.caption);
    else
      addOther(items, row, payload);
  }
  for (Item& item : items) {
    // Switches that hide an entry whatever its caption says.
    if (item.entry.id == MenuId::expot && !app.exportOn) item.entry.visible = false;
    if (item.entry.id == MenuId::cal && !app.calVisible) item.entry.visible = false;
    if (item.entry.id == MenuId::infoo && app.helpFile.empty()) item.entry.visible = false;
  }
  placeSeparators(items);
  std::vector<MenuEntry> menus;
  menus.reserve(items.size());
  for (Item& item : items) {
    if (item.entry.parent == MenuId::none) item.entry.visible &= hasVisibleEntry(items, item.entry.id);
    menus.push_back(std::move(item.entry));
  }
  return menus;
}

const MenuEntry* findMenu(const std::vector<MenuEntry>& menus, MenuId id, int index) {
  for (const MenuEntry& entry : menus)
    if (entry.id == id && entry.index == index) return &entry;
  return nullptr;
}

}  // namespace plinth
