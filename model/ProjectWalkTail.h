// What stands behind the objects: palette, menus, the application's options and texts, reports.
#pragma once

#include "model/ProjectDocument.h"
#include "model/ProjectRepairs.h"
#include "model/ProjectWalkObjects.h"
#include "reports/block/ReportWalk.h"

namespace plinth {

template <class Archive, class Document>
void walkMenus(Archive& ar, Document& d) {
  std::int32_t allPages = d.pageColor[0];
  ar.slot(allPages, Tag::i4, "PageColorAll", below(16));
  ar.afterReading([&](auto version) {
    if constexpr (Archive::kReads)
      if (below(16).has(version)) d.pageColor.fill(allPages);
  });
  ar.list("Palette", 96,
          [&](int i) { ar.slot(d.palette[i], Tag::i4, nullptr, i < 20 ? always : above(17)); });
  auto& m = d.menus;
  ar.text(m.mlist, "Mlist");
  ar.text(m.newin, "newin");
  ar.text(m.printingit, "Printingit");
  ar.text(m.exitit, "Exitit");
  ar.text(m.copyadress, "copyadress");
  ar.text(m.erasefile, "Erasefile");
  ar.text(m.deletemarkrec, "Deletemarkrec");
  ar.text(m.finden0, "finden(0)");
  ar.text(m.finden3, "finden(3)");
  ar.text(m.cal, "Cal");
  ar.text(m.infoo, "infoo");
  ar.text(m.aboutit, "Aboutit");
  ar.text(m.newview, "newview");
  ar.text(m.fmenu, "Fmenu");
  ar.text(m.ops, "ops");
  ar.text(m.finding, "Finding");
  ar.text(m.helpit, "helpit");
  ar.text(m.viewDoc, "ViewDoc", above(15));
  ar.text(m.expot, "expot");
  ar.text(m.copying, "copying");
  ar.text(m.pasting, "pasting");
  ar.text(m.cuting, "Cuting");
  ar.text(m.finden4, "finden(4)");
  ar.text(m.finden5, "finden(5)");
  ar.text(m.importmenu, "importmenu");
  ar.constantText("E", "ConstantE", above(2));
  ar.text(d.statisticsCaption, "Statistics", above(2));
  ar.section("", above(2),
             [&] { ar.list("StatLabels", 7, [&](int i) { ar.text(d.statLabels[i], nullptr); }); });
  ar.text(d.options.text6, "Form8.Text6");
  ar.slot(d.dateVal, Tag::i2, "DateVal");
}

template <class Archive, class Document>
void walkApplication(Archive& ar, Document& d) {
  ar.fixedRows("Opt", static_cast<int>(d.programs.size()), always, [&](int i) {
    ar.slot(d.programs[i].visible, Tag::boolean, "Visible");
    ar.text(d.programs[i].caption, "Caption");
    ar.text(d.programs[i].path, "Path");
  });
  ar.text(d.options.text4, "Form8.Text4");
  ar.slot(d.tileMode, Tag::i2, "TileMode");
  ar.slot(d.options.check4, Tag::i2, "Form8.Check4");
  ar.list("EngineText", 151, [&](int i) {
    ar.text(d.engineText[i], nullptr, i < 53 ? always : i < 81 ? above(15) : above(16));
  });
  ar.list("FunctionKey", 12, [&](int i) { ar.text(d.functionKey[i], nullptr); });
  ar.slot(d.fileProp.deskIcon, Tag::i2, "FileProp.DeskIcon", above(21));
  ar.section("", above(18), [&] {
    ar.list("FileProp.Comments", 9,
            [&](int i) { ar.text(d.fileProp.comments[i], nullptr, i < 5 ? always : above(21)); });
  });
}

template <class Archive, class Document>
void walkSearch(Archive& ar, Document& d) {
  auto& s = d.search;
  ar.section("", above(18),
             [&] { ar.list("Form15.Text1", 11, [&](int i) { ar.text(s.text1[i], nullptr); }); });
  ar.fixedRows("OldColumns", 5, below(19), [&](int i) {
    ar.text(s.text1[i], "Text");
    ar.constant(Tag::i2, 0, "Ignored");
  });
  ar.slot(s.check6, Tag::i2, "Form15.Check6");
  std::string font = s.text3;
  ar.text(font, "Form15.text3");
  if constexpr (Archive::kReads)
    if (!font.empty()) s.text3 = font;
  ar.slot(s.check2, Tag::i2, "Form15.Check2");
  ar.constant(Tag::i2, 0, "LoopCounter");
  ar.slot(s.check3, Tag::i2, "Form15.Check3");
  ar.slot(s.check4, Tag::i2, "Form15.Check4");
  ar.slot(s.check5, Tag::i2, "Form15.Check5");
}

template <class Archive, class Document>
void walkSwitches(Archive& ar, Document& d) {
  auto& o = d.options;
  ar.slot(o.check5, Tag::i2, "Form8.Check5", always, minusOneReadsAsOne);
  ar.length(d.frame3Top, "Frame3.Top");
  ar.length(d.frame3Left, "Frame3.Left");
  ar.slot(d.reservedNumber, Tag::i2, "ReservedNumber");
  ar.text(o.text2, "Form8.Text2", always, emptyReadsAsComma);
  ar.list("MenuText", 60, [&](int i) { ar.text(d.menuText[i], nullptr); });
  ar.slot(o.check7, Tag::i2, "Form8.Check7");
  ar.slot(o.check8, Tag::i2, "Form8.Check8");
  ar.slot(o.check13, Tag::i2, "Form8.Check13", above(6));
  ar.slot(o.check14, Tag::i2, "Form8.Check14", above(6));
  ar.slot(o.check9, Tag::i2, "Form8.Check9");
  ar.list("Zeros", 7, [&](int) { ar.constant(Tag::i2, 0, nullptr); });
  ar.text(d.reservedText, "ReservedText");
  ar.slot(o.check11, Tag::i2, "Form8.Check11");
  ar.text(d.deleteRecordCaption, "DeleteRecord");
  ar.slot(o.check12, Tag::i2, "Form8.Check12");
  ar.slot(o.check3, Tag::i2, "Form8.Check3");
  ar.slot(d.emailField, Tag::i2, "EmailField");
  ar.slot(d.pageSizeCode, Tag::i2, "PageSizeCode");
  ar.onlyIf(d.pageSizeCode == kUserPageSize, "PageSizeCode 22", [&] {
    ar.length(d.pageWidth, "PageWidth");
    ar.length(d.pageHeight, "PageHeight");
  });
  ar.text(d.replaceMenuCaption, "ReplaceMenu");
  ar.list("PGE", kPages, [&](int i) { ar.text(d.pageCaptions[i], nullptr, i < 3 ? always : above(15)); });
}

template <class Archive, class Document>
void walkReports(Archive& ar, Document& d) {
  const TableForm form{.name = "Reports", .countTag = Tag::ui1, .limit = kReportLimit - 1};
  ar.rows(d.reports, form, everyRow, [&](auto& row, int) {
    ar.text(row.title, "Title");
    ar.onlyIf(!row.title.empty(), "Title not empty", [&] { ar.report(row); });
  });
}

template <class Archive, class Document>
void walkEnd(Archive& ar, Document& d) {
  ar.slot(d.options.fieldToolBox, Tag::i2, "Form8.FieldToolBox");
  ar.slot(d.options.wMax, Tag::i2, "Form8.wMax");
}

}  // namespace plinth
