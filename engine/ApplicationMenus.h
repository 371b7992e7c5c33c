// The finished application's menus as rows: what the payload's captions leave of them, with every rule of
// hiding already applied. A window builds its menu bar and the tips of its tool bar from these rows and
// decides nothing.
#pragma once

#include <string>
#include <vector>

#include "builder/payload/Payload.h"

namespace plinth {

enum class MenuId {
  none,
  fmenu,
  mlist,
  newin,
  importmenu,
  expot,
  printingit,
  printReport,
  exitit,
  ops,
  copying,
  pasting,
  cuting,
  copyadress,
  deletemarkrec,
  erasefile,
  deleteRecord,
  replaceMenu,
  cal,
  opt,
  finding,
  finden0,
  finden3,
  finden4,
  finden5,
  newview,
  indexFld,
  statistical,
  viewDoc,
  pdf,
  viewDocName,
  helpit,
  infoo,
  aboutit,
  passmenu,
};

struct MenuEntry {
  MenuId id = MenuId::none;
  MenuId parent = MenuId::none;  // none: a title of the menu bar
  int index = 0;                 // printReport, viewDocName, opt: index of the report, template or program
  std::string caption;           // with "&"
  std::string toolTip;           // the caption without "&"
  bool visible = false;          // false for an empty caption, and for a title without visible entries
  bool separatorBefore = false;  // a line above; false wherever it would stand alone
};

// All entries in the order of the menu bar, each title before its entries. `passmenu` is always hidden here:
// it appears for the main user after the login.
std::vector<MenuEntry> makeMenus(const Payload& payload);

// The row of an entry; nullptr when the application has none of that id and index.
const MenuEntry* findMenu(const std::vector<MenuEntry>& menus, MenuId id, int index = 0);

}  // namespace plinth
