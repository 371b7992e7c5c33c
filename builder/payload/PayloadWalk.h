// The one order of a payload: each element once, with its type and its condition. PayloadReader,
// PayloadWriter and PayloadDescriber walk it; P is const Payload when the archive writes. Changing anything
// here changes the format that finished applications are read by.
#pragma once

#include "builder/payload/PayloadWalkApplication.h"
#include "builder/payload/PayloadWalkObjects.h"

namespace plinth {

inline constexpr int kPayloadSections = 15;
// List lines of all combos together: a line costs two bytes in the file but far more in memory.
inline constexpr std::int64_t kPayloadItemLimit = 1'000'000;

template <class Archive, class P>
void walkHeader(Archive& ar, P& h) {
  ar.slot(h.pattern, Tag::i2, "scroll bar pattern");
  ar.slot(h.valueMax, Tag::i4, "scroll bar maximum");
  ar.slot(h.statusLineVisible, Tag::boolean, "status line visible");
  ar.text(h.exportExtension, "export extension");
  ar.slot(h.varObjects, Tag::i2, "tool box for variable objects");
  ar.slot(h.pageWidth, Tag::r4, "page width");
  ar.slot(h.pageHeight, Tag::r4, "page height");
  ar.slot(h.windowState, Tag::i2, "window state: 2 maximised, else 0");
  ar.slot(h.pageSize20, Tag::boolean, "page size 20 chosen");
  ar.slot(h.calendar, Tag::i2, "calendar");
  ar.text(h.indexCaption, "index menu");
  ar.text(h.statisticsCaption, "statistics menu");
  ar.texts(h.statLabels, "statistics labels");
  ar.slot(h.scrambleData, Tag::i2, "records are scrambled");
  ar.text(h.title, "application title");
  ar.slot(h.languageCode, Tag::ui1, "language code");
  ar.text(h.fontName, "default font");
  ar.slot(h.charSet, Tag::i2, "character set");
  ar.slot(h.border, Tag::i2, "window border: 1 sizable, else 2");
  ar.texts(h.runMessages, "run-time messages");
}

template <class Archive, class P>
void walkDocuments(Archive& ar, P& p) {
  ar.text(p.documentsCaption, "documents menu");
  ar.group(p.templates, "documents", [&ar](auto& row) {
    ar.text(row.extension, "extension");
    ar.text(row.body, "body");
    ar.text(row.caption, "menu caption");
  });
  ar.slots(p.pageColors, Tag::i4, "page colours");
}

template <class Archive, class P>
void walkPayload(Archive& ar, P& p) {
  ar.section("Header", [&] { walkHeader(ar, p.header); });
  ar.section("Squares", [&] { ar.rows(p.squares, 0, 5000, [&](auto& row) { walkSquare(ar, row); }); });
  ar.section("Lines", [&] { ar.rows(p.lines, 0, 5000, [&](auto& row) { walkLine(ar, row); }); });
  ar.section("Pictures", [&] { ar.rows(p.pictures, 0, 500, [&](auto& row) { walkPicture(ar, row); }); });
  ar.section("Titles", [&] { ar.rows(p.titles, 1, 5000, [&](auto& row) { walkTitle(ar, row); }); });
  ar.section("Fields", [&] { ar.rows(p.fields, 1, 2000, [&](auto& row) { walkField(ar, row); }); });
  ar.section("Combos", [&] { ar.rows(p.combos, 1, 2000, [&](auto& row) { walkCombo(ar, row); }); });
  ar.section("Memos", [&] { ar.rows(p.memos, 1, 500, [&](auto& row) { walkMemo(ar, row); }); });
  ar.section("Check boxes", [&] { ar.rows(p.checks, 0, 2000, [&](auto& row) { walkCheck(ar, row); }); });
  ar.section("Buttons", [&] { ar.rows(p.buttons, 0, 2000, [&](auto& row) { walkButton(ar, row); }); });
  ar.section("Application", [&] { walkApplication(ar, p.application); });
  ar.section("HTML fragments",
             [&] { ar.rows(p.fragments, 1, 2000, [&](auto& row) { walkFragment(ar, row); }); });
  ar.section("Documents and page colours", [&] { walkDocuments(ar, p); });
  ar.section("Reports", [&] { ar.reports(p.reports, 21); });
  ar.section("Background", [&] { ar.file(p.background, "background picture"); });
}

}  // namespace plinth
