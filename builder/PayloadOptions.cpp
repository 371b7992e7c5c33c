// See PayloadOptions.h.
#include "builder/PayloadOptions.h"

#include <algorithm>

#include "basic/Geometry.h"
#include "basic/NumberReader.h"
#include "basic/Text.h"
#include "builder/PayloadFromProject.h"
#include "model/PictureStore.h"

namespace plinth {

namespace {

constexpr float kStatusLineHeight = 380;  // twips
constexpr std::size_t kLongestPath = 260;

bool statusLineVisible(const ProjectDocument& document) {
  if (document.titles.size() < 2) return false;
  const TitleRow& line = document.titles[1];
  return isLivePage(line.page) && (line.page != 0 || line.visible);
}

PayloadMenus payloadMenus(const ProjectDocument& document) {
  const RunMenus& m = document.menus;
  return {.mlist = m.mlist,
          .newin = m.newin,
          .printingit = m.printingit,
          .exitit = m.exitit,
          .copyadress = m.copyadress,
          .erasefile = m.erasefile,
          .deletemarkrec = m.deletemarkrec,
          .finden0 = m.finden0,
          .finden3 = m.finden3,
          .cal = m.cal,
          .infoo = m.infoo,
          // An empty caption is the only way to hide an entry that has no flag of its own.
          .aboutit = document.aboutitVisible ? m.aboutit : "",
          .fmenu = m.fmenu,
          .ops = m.ops,
          .finding = m.finding,
          .helpit = m.helpit,
          .expot = m.expot,
          .copying = m.copying,
          .pasting = m.pasting,
          .cuting = m.cuting,
          .finden4 = m.finden4,
          .finden5 = m.finden5,
          .newview = m.newview,
          .importmenu = m.importmenu};
}

std::string pixelText(float twips) { return std::to_string(twipsToPixels(std::clamp(twips, -1e6f, 1e6f))); }

std::string quoted(const std::string& text) { return '"' + text + '"'; }

template <class Row>
std::string elements(const std::vector<Row>& rows, std::size_t first, std::string Row::*label, char mark) {
  std::string text;
  for (std::size_t i = first; i < rows.size(); ++i) {
    const std::string& name = rows[i].*label;
    if (!isLivePage(rows[i].page) || name.empty()) continue;
    text += "  <" + name + ">:" + std::to_string(i) + mark + "</" + name + ">\r\n";
  }
  return text;
}

std::string templateBody(const std::string& stored, const PictureStore& pictures) {
  if (stored.size() >= kLongestPath || stored.find_first_of("\r\n<") != std::string::npos) return stored;
  const std::optional<Bytes> file = stored.empty() ? std::nullopt : pictures.get(stored);
  return file ? std::string(file->begin(), file->end()) : stored;
}

}  // namespace

PayloadHeader payloadHeader(const ProjectDocument& document) {
  const AppOptions& options = document.options;
  return {.pattern = document.pattern,
          .valueMax = document.valueMax,
          .statusLineVisible = statusLineVisible(document),
          .exportExtension = options.text9,
          .varObjects = options.fieldToolBox,
          .pageWidth = document.pageWidth,
          .pageHeight = document.pageHeight,
          .windowState = static_cast<std::int16_t>(options.wMax != 0 ? 2 : 0),
          .pageSize20 = document.pageSize20,
          .calendar = options.check15,
          .indexCaption = document.indexFeldCaption,
          .statisticsCaption = document.statisticsCaption,
          .statLabels = document.statLabels,
          .scrambleData = options.check7,
          .title = document.appTitle,
          .languageCode = document.languageCode,
          .fontName = options.fonttext,
          .charSet = document.charSet,
          .border = static_cast<std::int16_t>(options.check8 != 0 ? 1 : 2),
          .runMessages = document.menuText};
}

std::int16_t columnCode(const ProjectDocument& document, std::string_view column) {
  const std::string text = upperAscii(trim(column));
  if (text.empty()) return 0;
  const struct {
    char letter;
    int first, highest, base;
  } kinds[] = {{'F', 1, document.fieldCount(), 0},
               {'C', 1, document.comboCount(), 2000},
               {'K', 0, document.checkCount(), 4000},
               {'M', 1, document.memoCount(), 6000}};
  const double number = val(std::string_view(text).substr(1));
  for (const auto& kind : kinds) {
    if (text[0] == kind.letter && number >= kind.first && number <= kind.highest) {
      return static_cast<std::int16_t>(kind.base + static_cast<int>(number));
    }
  }
  return 0;
}

PayloadApplication payloadApplication(ProjectDocument& document, const std::string& appName) {
  const AppOptions& options = document.options;
  PayloadApplication app;
  app.dateVal2 = document.dateVal2;
  app.formHeight = document.formHeight - (statusLineVisible(document) ? kStatusLineHeight : 0);
  app.formWidth = document.formWidth;
  app.copyright = options.text3;
  app.calVisible = document.calVisible;
  app.helpFile = appName + ".chm";
  app.mainPassword = options.text5;
  app.menus = payloadMenus(document);
  app.dateVal = document.dateVal;
  app.webAddress = options.text6;
  app.replaceCaption = document.replaceMenuCaption;
  app.pageCaptions = document.pageCaptions;
  for (std::size_t i = 0; i < app.programs.size(); ++i) {
    const OptionalProgram& program = document.programs[i];
    app.programs[i] = {program.visible, program.caption, program.path};
  }
  app.tileMode = document.tileMode;
  app.exportOn = options.check4;
  std::copy_n(document.engineText.begin(), app.runCaptions.size(), app.runCaptions.begin());
  app.functionKeys = document.functionKey;
  for (std::size_t i = 0; i < app.showColumns.size(); ++i) {
    app.showColumns[i] = columnCode(document, document.search.text1[i]);
    if (app.showColumns[i] == 0) document.search.text1[i].clear();
  }
  const SearchOptions& search = document.search;
  app.resultFont = search.text3;
  app.resultOptions = {search.check2, search.check3, search.check4, search.check5, search.check6};
  app.frame3Visible = options.check5 == 1;
  app.frame3Top = document.frame3Top;
  app.frame3Left = document.frame3Left;
  app.check13 = options.check13;
  app.check14 = options.check14;
  app.csvDelimiter = options.text2;
  app.dataExtension = options.text4;
  app.guideVisible = options.check9 == 0;
  app.deleteRecordCaption = document.deleteRecordCaption;
  app.check12 = options.check12;
  app.emailField = document.emailField;
  app.emailNameField = document.emailNameField;
  app.showZero = options.check3;
  return app;
}

std::vector<PayloadFragment> payloadFragments(const ProjectDocument& document) {
  std::vector<PayloadFragment> fragments(1);
  for (std::size_t i = 1; i < document.scripts.size(); ++i) {
    const ScriptRow& row = document.scripts[i];
    const std::string style =
        "Left:" + pixelText(row.left) + "px; POSITION: absolute; Top:" + pixelText(row.top) + "px;";
    fragments.push_back({"<Div Width=" + quoted(pixelText(row.width)) +
                             " Height=" + quoted(pixelText(row.height)) + " Style=" + quoted(style) + ">" +
                             row.tag + "</Div>",
                         row.page});
  }
  return fragments;
}

std::array<PayloadTemplate, 10> payloadTemplates(const ProjectDocument& document, const std::string& appName,
                                                 const PictureStore& pictures) {
  std::array<PayloadTemplate, 10> templates;
  for (std::size_t i = 0; i < templates.size(); ++i) {
    const DocumentTemplate& row = document.documents[i];
    std::string body = templateBody(row.templatePath, pictures);
    if (body.empty() && equalAsciiNoCase(row.plateExt, "xml")) body = XMLc(document, appName);
    const bool usable = !row.plateExt.empty() && !body.empty();
    templates[i] = {row.plateExt, std::move(body), usable ? row.viewDocName : ""};
  }
  return templates;
}

std::string XMLc(const ProjectDocument& document, const std::string& appName) {
  std::string text = "<?xml version=\"1.0\" ?>\r\n<" + appName + "_Record_>\r\n";
  text += elements(document.fields, 1, &FieldRow::tag, 'F');
  text += elements(document.combos, 1, &ComboRow::tag, 'C');
  text += elements(document.checks, 0, &CheckRow::tag, 'K');
  text += elements(document.memos, 1, &MemoRow::tag, 'M');
  for (std::size_t i = 0; i < document.pictures.size(); ++i) {
    const PictureRow& row = document.pictures[i];
    if (!isLivePage(row.page) || !row.picFlag || row.picField.empty()) continue;
    text += "  <" + row.picField + ">:" + std::to_string(i) + "P</" + row.picField + ">\r\n";
  }
  return text + "</" + appName + "_Record_>\r\n";
}

}  // namespace plinth
