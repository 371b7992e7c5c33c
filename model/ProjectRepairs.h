// What a reader makes right: elements that older versions kept elsewhere or in another unit, and values that
// no designer sets. The walk names each of these where it belongs.
#pragma once

#include <string>
#include <vector>

#include "model/ProjectDocument.h"

namespace plinth {

inline constexpr std::int16_t kUserPageSize = 22;

// The project has one slot for shape and fill of a square. The default fill, 1, leaves the shape's number as
// it is.
std::int16_t packSquareShape(const SquareRow& row);
void unpackSquareShape(SquareRow& row, std::int16_t packed);

void tildeReadsAsMinus(std::string& formula);
inline void emptyReadsAsComma(std::string& delimiter) {
  if (delimiter.empty()) delimiter.push_back(',');
}
inline void minusOneReadsAsOne(std::int16_t& value) {
  if (value == -1) value = 1;
}

// version: of the file, 1 to 22; geometry is in twips already.
void repairField(FieldRow& row, int version);
void repairTitle(TitleRow& row, int index, int version);
void repairFrame(FieldRow& row, int version);
void repairFrame(MemoRow& row, int version);
// Below version 4 the tab position stood in the tag.
void repairTab(MemoRow& row, const char* word, int index, int version);
void repairTab(ComboRow& row, const char* word, int index, int version);
void repairCheck(CheckRow& row, std::vector<ComboRow>& combos, int index, int version);

// After the last element: vacant line 0, page size by its code, references and codes that point nowhere.
void repairProject(ProjectDocument& document);
// The default font goes to all objects that exist before any is placed.
void spreadDefaultFont(ProjectDocument& document);

}  // namespace plinth
