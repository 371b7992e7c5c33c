// Header, documents and looks: the first stretch of a project file, before any object.
#pragma once

#include <string>

#include "model/ProjectDocument.h"
#include "reports/block/BlockArchive.h"

namespace plinth {

// What a file holds beside the document.
struct FileExtras {
  std::string caption;
  std::int16_t formatVersion = kFormatVersion;
  std::int32_t saveDate = 0;
};

inline constexpr std::int16_t kLastPattern = 5;
template <class T>
void wrongPatternReadsAsFive(T& value) {
  if (value < 0 || value > kLastPattern) value = kLastPattern;
}

// False when the first text is no project's.
template <class Archive, class Document>
bool walkHeader(Archive& ar, Document& d, FileExtras& extras) {
  ar.text(extras.caption, "Caption");
  if (!ar.accepts(extras.caption)) return false;
  ar.text(d.appTitle, "AppTitle");
  ar.slot(d.languageCode, Tag::ui1, "LanguageCode");
  ar.text(d.options.fonttext, "Form8.Fonttext");
  ar.slot(d.charSet, Tag::i2, "CharSet");
  ar.lookIsKnown(d);
  ar.slot(extras.formatVersion, Tag::i2, "FormatVersion");
  ar.versionIsKnown(extras.formatVersion);
  ar.text(d.indexFeldCaption, "IndexFeld", above(18));
  ar.icon(d.appIcon, "AppIcon", above(16));
  return true;
}

template <class Archive, class Document>
void walkDocuments(Archive& ar, Document& d) {
  ar.fixedRows("Documents", static_cast<int>(d.documents.size()), above(15), [&](int i) {
    ar.text(d.documents[i].plateExt, "PlateExt");
    ar.text(d.documents[i].templatePath, "TemplatePath");
    ar.text(d.documents[i].viewDocName, "ViewDocName");
  });
  ar.afterReading([&](auto version) {
    if constexpr (Archive::kReads)
      if (!above(15).has(version)) d.documents = {};
  });
  ar.text(d.options.text9, "Form8.Text9", above(15));
  ar.section("", above(15), [&] {
    ar.list("PageColor", kPages, [&](int i) { ar.slot(d.pageColor[i], Tag::i4, nullptr); });
  });
}

template <class Archive, class Document>
void walkLooks(Archive& ar, Document& d, FileExtras& extras) {
  ar.slot(extras.saveDate, Tag::i4, "SaveDate", above(11));
  ar.slot(d.pageSize20, Tag::boolean, "PageSize(20)", above(11));
  ar.slot(d.options.check15, Tag::i2, "Form8.Check15", above(8));
  ar.slot(d.pattern, Tag::i2, "Pattern", always, wrongPatternReadsAsFive<std::int16_t>);
  auto valueMax = d.valueMax;
  ar.slot(valueMax, Tag::i4, "ValueMax");
  ar.afterReading([&](auto version) {
    // Older files counted the scroll range in pixels of a page that is gone.
    if constexpr (Archive::kReads) d.valueMax = above(21).has(version) ? valueMax : d.valueMax;
  });
  ar.constant(Tag::i2, 0, "Zero");
  ar.length(d.guideWidth, "Shape1(0).Width");
  ar.slot(d.dateVal2, Tag::i2, "DateVal2");
  ar.length(d.scrollLeft, "VScroll.Left");
  ar.length(d.guideTop, "Shape1(1).Top");
  ar.length(d.scrollHeight, "VScroll.Height");
  ar.length(d.formHeight, "form2.Height");
  ar.length(d.formWidth, "form2.Width");
  ar.text(d.options.text3, "Form8.text3");
  ar.text(d.tileImage, "TileImage");
  ar.slot(d.calVisible, Tag::boolean, "Cal.Visible");
  ar.slot(d.options.check2Calculator, Tag::i2, "Form8.Check2(0)");
  ar.slot(d.options.check2AboutBox, Tag::i2, "Form8.Check2(1)");
  ar.slot(d.aboutitVisible, Tag::boolean, "Aboutit.Visible");
  ar.slot(d.options.check1, Tag::i2, "Form8.Check1");
  ar.text(d.helpFile, "HelpFile");
  ar.text(d.options.text5, "Form8.Text5");
}

}  // namespace plinth
