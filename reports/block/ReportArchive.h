// Reads and writes one report at the position of a slot reader or writer: the project file and the finished
// application hold reports in the same bytes, with plain texts in both. The order itself is ReportWalk.h.
#pragma once

#include "basic/Slots.h"
#include "reports/block/ReportBlock.h"

namespace plinth {

// Fills `report` but its title, which stands before the block and may be absent with it.
// formatVersion: of the file around it, 1 to 22; below 22 pixels become twips and pixel font sizes points.
// A damaged stretch leaves what was read until then; never more rows than 32767 a list or than bytes are
// left.
void readReport(SlotReader& reader, ReportRow& report, int formatVersion);

// Writes the block behind the title in the newest version: labels in ascending order of their record slot,
// labels of one slot in their order here. Returns the bytes of text that had to be cut (0 when all went out).
std::size_t writeReport(SlotWriter& writer, const ReportRow& report);

}  // namespace plinth
