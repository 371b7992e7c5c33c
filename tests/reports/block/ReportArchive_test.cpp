// Report blocks written, read and damaged on their own.
#include "reports/block/ReportArchive.h"

#include <gtest/gtest.h>

namespace plinth {
namespace {

ReportRow sample() {
  ReportRow report;
  report.shapes.resize(2);
  report.shapes[1].shapeType = 3;
  report.shapes[1].fillStyle = 0;
  report.lines.resize(1);
  report.lines[0].x2 = 11640;
  report.pictures.resize(1);
  report.pictures[0].rowOfPicture = 0;
  for (const int slot : {2, 1, 2, 0, 1}) {
    ReportLabel label;
    label.rowOfLabel = static_cast<std::int16_t>(slot);
    label.caption = "F" + std::to_string(report.labels.size()) + "," + std::to_string(slot);
    report.labels.push_back(label);
  }
  return report;
}

Bytes written(const ReportRow& report) {
  Bytes bytes;
  SlotWriter writer(bytes);
  EXPECT_EQ(writeReport(writer, report), 0u);
  return bytes;
}

ReportRow read(std::span<const std::uint8_t> bytes, int version = 22) {
  SlotReader reader(bytes);
  ReportRow report;
  readReport(reader, report, version);
  return report;
}

TEST(ReportArchive, LabelsComeBackBySlotAndEqualSlotsInTheirOrder) {
  const Bytes bytes = written(sample());
  const ReportRow report = read(bytes);
  std::string captions;
  for (const ReportLabel& label : report.labels) captions += label.caption + " ";
  EXPECT_EQ(captions, "F3,0 F1,1 F4,1 F0,2 F2,2 ");
  EXPECT_EQ(report.shapes[1].shapeType, 3);
  EXPECT_EQ(report.shapes[1].fillStyle, 0);
  EXPECT_EQ(report.lines[0].x2, 11640);
  EXPECT_EQ(report.pictures[0].rowOfPicture, 1);
  ReportRow again = report;
  again.pictures[0].rowOfPicture = 0;
  EXPECT_EQ(written(again), bytes);
}

TEST(ReportArchive, AnEmptyReportIsFourSizesAndFourCounts) { EXPECT_EQ(written({}).size(), 8u * kSlotSize); }

TEST(ReportArchive, DamageLeavesWhatWasReadAndNeverMoreThanTheBytesHold) {
  const Bytes whole = written(sample());
  for (std::size_t size = 0; size < whole.size(); ++size) {
    const ReportRow report = read(std::span(whole).first(size));
    EXPECT_LE(report.labels.size(), 5u);
    EXPECT_LE(report.shapes.size(), 2u);
  }
  for (std::size_t slot = 0; slot < whole.size() / kSlotSize; ++slot) {
    Bytes damaged = whole;
    damaged[slot * kSlotSize + 2] = 0xFF;
    damaged[slot * kSlotSize + 3] = 0x7F;
    EXPECT_LE(read(damaged).shapes.size() + read(damaged).labels.size(), 100u) << slot;
  }
}

}  // namespace
}  // namespace plinth
