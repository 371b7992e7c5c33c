// Any bytes as a report block of any version: the first byte says which.
#include <cstdint>
#include <cstdlib>

#include "reports/block/ReportArchive.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace plinth;
  if (size == 0) return 0;
  SlotReader reader({data + 1, size - 1});
  ReportRow report;
  readReport(reader, report, data[0] % 24);
  Bytes first, second;
  SlotWriter firstWriter(first), secondWriter(second);
  writeReport(firstWriter, report);
  SlotReader again(first);
  ReportRow same;
  readReport(again, same, 22);
  writeReport(secondWriter, same);
  if (again.failures() != 0 || first != second) std::abort();
  return 0;
}
