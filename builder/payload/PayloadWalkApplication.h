// The order of a payload's application block: menus, options, words, search columns.
#pragma once

#include "builder/payload/Payload.h"

namespace plinth {

template <class Archive, class M>
void walkMenus(Archive& ar, M& m) {
  ar.text(m.mlist, "menu Mlist");
  ar.text(m.newin, "menu newin");
  ar.text(m.printingit, "menu Printingit");
  ar.text(m.exitit, "menu Exitit");
  ar.text(m.copyadress, "menu copyadress");
  ar.text(m.erasefile, "menu Erasefile");
  ar.text(m.deletemarkrec, "menu Deletemarkrec");
  ar.text(m.finden0, "menu finden(0)");
  ar.text(m.finden3, "menu finden(3)");
  ar.text(m.cal, "menu Cal");
  ar.text(m.infoo, "menu infoo");
  ar.text(m.aboutit, "menu Aboutit");
  ar.text(m.fmenu, "menu Fmenu");
  ar.text(m.ops, "menu ops");
  ar.text(m.finding, "menu Finding");
  ar.text(m.helpit, "menu helpit");
  ar.text(m.expot, "menu expot");
  ar.text(m.copying, "menu copying");
  ar.text(m.pasting, "menu pasting");
  ar.text(m.cuting, "menu Cuting");
  ar.text(m.finden4, "menu finden(4)");
  ar.text(m.finden5, "menu finden(5)");
  ar.text(m.newview, "menu newview");
  ar.text(m.importmenu, "menu importmenu");
}

template <class Archive, class A>
void walkSearch(Archive& ar, A& a) {
  ar.slots(a.showColumns, Tag::i2, "search columns: F n, C 2000+n, K 4000+n, M 6000+n, 0 none");
  ar.text(a.resultFont, "font of the result list");
  ar.slots(a.resultOptions, Tag::i2, "options of the search window");
  ar.slot(a.frame3Visible, Tag::boolean, "tool frame visible");
  ar.slot(a.frame3Top, Tag::r4, "tool frame top");
  ar.slot(a.frame3Left, Tag::r4, "tool frame left");
}

template <class Archive, class A>
void walkApplication(Archive& ar, A& a) {
  ar.slot(a.dateVal2, Tag::i2, "date format of the date label");
  ar.slot(a.formHeight, Tag::r4, "form height, less 380 with a status line");
  ar.slot(a.formWidth, Tag::r4, "form width");
  ar.scrambled(a.copyright, "copyright line");
  ar.slot(a.calVisible, Tag::boolean, "calculator menu visible");
  ar.text(a.helpFile, "help file name");
  ar.scrambled(a.mainPassword, "main password");
  walkMenus(ar, a.menus);
  ar.slot(a.dateVal, Tag::i2, "date format of date fields");
  ar.scrambled(a.webAddress, "web address");
  ar.text(a.replaceCaption, "menu ReplaceMenu");
  ar.texts(a.pageCaptions, "page tabs");
  ar.group(a.programs, "optional programs", [&ar](auto& row) {
    ar.slot(row.visible, Tag::boolean, "visible");
    ar.text(row.caption, "caption");
    ar.text(row.path, "path");
  });
  ar.slot(a.tileMode, Tag::i2, "background mode: 0 tiles, 1 column, 2 row, 3 none");
  ar.slot(a.exportOn, Tag::i2, "export");
  ar.texts(a.runCaptions, "run-time captions");
  ar.reserved("reserved");
  ar.texts(a.functionKeys, "function keys");
  walkSearch(ar, a);
  ar.slot(a.check13, Tag::i2, "Check13");
  ar.slot(a.check14, Tag::i2, "Check14");
  ar.text(a.csvDelimiter, "CSV delimiter");
  ar.text(a.dataExtension, "data file extension");
  ar.slot(a.guideVisible, Tag::boolean, "page guide visible");
  ar.text(a.deleteRecordCaption, "menu DeleteRecord");
  ar.slot(a.check12, Tag::i2, "Check12");
  ar.slot(a.emailField, Tag::i2, "index of the email field");
  ar.slot(a.emailNameField, Tag::i2, "index of the field with the name for it");
  ar.slot(a.showZero, Tag::i2, "zeros show");
}

}  // namespace plinth
