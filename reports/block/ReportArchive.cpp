// The one instance of the report walk for reading and for writing a block on its own.
#include "reports/block/ReportArchive.h"

#include <algorithm>

#include "reports/block/ReportWalk.h"

namespace plinth {

void readReport(SlotReader& reader, ReportRow& report, int formatVersion) {
  BlockReader archive(reader, formatVersion);
  walkReport(archive, report);
}

std::size_t writeReport(SlotWriter& writer, const ReportRow& report) {
  BlockWriter archive(writer);
  const ReportRow sorted = labelsBySlot(report);
  walkReport(archive, sorted);
  return archive.cutBytes();
}

ReportRow labelsBySlot(const ReportRow& report) {
  ReportRow sorted = report;
  std::stable_sort(sorted.labels.begin(), sorted.labels.end(),
                   [](const ReportLabel& a, const ReportLabel& b) { return a.rowOfLabel < b.rowOfLabel; });
  return sorted;
}

}  // namespace plinth
