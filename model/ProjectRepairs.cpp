// Repairs of rows and of the whole project after reading.
#include "model/ProjectRepairs.h"

#include <algorithm>
#include <cmath>

#include "basic/Geometry.h"
#include "basic/NumberReader.h"
#include "basic/Text.h"
#include "model/PaperSize.h"
#include "reports/block/BlockArchive.h"

namespace plinth {
namespace {

constexpr int kLastSystemTitle = 5;

// The number at the start of an old tag, in the range of a tab position.
std::int16_t oldTab(const std::string& tag) {
  return static_cast<std::int16_t>(std::clamp(val(tag), -32768.0, 32767.0));
}

template <class Row>
void repairBoxFrame(Row& row, int version) {
  if (below(8).has(version))
    row.frameStyle = row.borderStyle;
  else if (row.appearance != 0)
    row.frameStyle = 0;
  row.appearance = 0;
  row.borderStyle = 0;
}

template <class Row>
void repairOldTab(Row& row, const char* word, int index, int version) {
  if (below(4).has(version)) {
    row.tabOrder = oldTab(row.tag);
    row.tag = word + std::to_string(index);
  }
  if (row.page >= kPageVacant) row.tabOrder = 0;
}

template <class T>
void keepWithin(T& value, int lowest, int highest, int otherwise) {
  if (value < lowest || value > highest) value = static_cast<T>(otherwise);
}

}  // namespace

std::int16_t packSquareShape(const SquareRow& row) {
  return static_cast<std::int16_t>((row.shapeType & 0xFF) | ((row.fillStyle ^ 1) & 0x7F) << 8);
}

void unpackSquareShape(SquareRow& row, std::int16_t packed) {
  row.shapeType = packed & 0xFF;
  row.fillStyle = static_cast<std::int16_t>((packed >> 8 & 0x7F) ^ 1);
}

void tildeReadsAsMinus(std::string& formula) { std::replace(formula.begin(), formula.end(), '~', '-'); }

void repairField(FieldRow& row, int version) {
  if (below(16).has(version)) {
    if (row.page > 2) row.page = kPageVacant;  // pages 3 and 4 did not exist
    row.formula = replaceAll(row.formula, ":", "");
  }
  if (below(8).has(version))
    row.height = std::round(row.fontSize * kTwipsPerPoint / kTwipsPerPixel) * kTwipsPerPixel;
  repairFrame(row, version);
  keepWithin(row.fieldType, 0, 22, 0);
  keepWithin(row.textCase, 0, 3, 0);
}

void repairTitle(TitleRow& row, int index, int version) {
  // Labels of the finished application are known by their index: the next save must not move the others up.
  if (index <= kLastSystemTitle && row.page >= kPageDeleted) row.page = kPageVacant;
  if (!trim(row.caption).empty()) return;
  row.caption = "This Blank Label Was Found, Just Delete Me";
  row.top = below(kNewestFormat).has(version) ? 20.0f * kTwipsPerPixel : 20.0f;
}

void repairFrame(FieldRow& row, int version) { repairBoxFrame(row, version); }
void repairFrame(MemoRow& row, int version) { repairBoxFrame(row, version); }

void repairTab(MemoRow& row, const char* word, int index, int version) {
  repairOldTab(row, word, index, version);
}
void repairTab(ComboRow& row, const char* word, int index, int version) {
  repairOldTab(row, word, index, version);
}

void repairCheck(CheckRow& row, std::vector<ComboRow>& combos, int index, int version) {
  // Both numbers go to the combo of the same index and not to the check box: files in use rely on it.
  ComboRow* combo = static_cast<std::size_t>(index) < combos.size() ? &combos[index] : nullptr;
  if (below(4).has(version)) {
    if (combo) combo->tabOrder = oldTab(row.tag);
    row.tag = "CheckField" + std::to_string(index);
  }
  if (combo && row.page >= kPageVacant) combo->tabOrder = 0;
}

void repairProject(ProjectDocument& d) {
  if (!d.lines.empty()) d.lines[0].page = kPageVacant;  // the drawing template
  if (d.tileImage.empty()) d.tileMode = 3;
  keepWithin(d.tileMode, 0, 3, 3);
  keepWithin(d.dateVal, 0, 5, 0);
  keepWithin(d.dateVal2, 0, 5, 0);
  keepWithin(d.emailField, 0, d.fieldCount(), 0);
  keepWithin(d.emailNameField, 0, d.fieldCount(), 0);
  keepWithin(d.pageSizeCode, 0, kUserPageSize, kUserPageSize);
  if (const auto size = paperSize(d.pageSizeCode, d.pageSize20)) {
    d.pageWidth = size->width;
    d.pageHeight = size->height;
  }
}

void spreadDefaultFont(ProjectDocument& d) {
  const std::string& font = d.options.fonttext;
  d.fields[0].fontName = d.combos[0].fontName = font;
  for (MemoRow& memo : d.memos) memo.fontName = font;
  for (TitleRow& title : d.titles) title.fontName = font;
}

}  // namespace plinth
