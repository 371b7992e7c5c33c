// The only place that knows the order of a report's elements. Project file and finished application walk the
// same block; the title stands before it, outside.
#pragma once

#include "reports/block/BlockArchive.h"
#include "reports/block/ReportBlock.h"

namespace plinth {

// Fill style and shape type share a slot, since the block has none for the second.
inline std::int16_t packReportFill(std::int16_t fillStyle, std::int16_t shapeType) {
  return static_cast<std::int16_t>((fillStyle & 0xFF) | (shapeType & 0x7F) << 8);
}

template <class Archive, class Shape>
void walkReportShape(Archive& ar, Shape& shape) {
  ar.constant(Tag::boolean, -1, "Live");
  ar.slot(shape.borderStyle, Tag::i2, "BorderStyle");
  std::int16_t fill = packReportFill(shape.fillStyle, shape.shapeType);
  ar.slot(fill, Tag::i2, "FillStyle");
  if constexpr (Archive::kReads) {
    shape.fillStyle = fill & 0xFF;
    shape.shapeType = fill >> 8 & 0x7F;
  }
  ar.slot(shape.borderWidth, Tag::i2, "BorderWidth");
  ar.slot(shape.backStyle, Tag::i2, "BackStyle");
  ar.slot(shape.fillColor, Tag::i4, "FillColor");
  ar.slot(shape.borderColor, Tag::i4, "BorderColor");
  ar.length(shape.height, "Height");
  ar.length(shape.width, "Width");
  ar.length(shape.top, "Top");
  ar.length(shape.left, "Left");
}

template <class Archive, class Line>
void walkReportLine(Archive& ar, Line& line) {
  ar.constant(Tag::boolean, -1, "Live");
  ar.slot(line.borderColor, Tag::i4, "BorderColor");
  ar.length(line.x1, "X1");
  ar.length(line.y1, "Y1");
  ar.length(line.x2, "X2");
  ar.length(line.y2, "Y2");
}

inline void rowZeroReadsAsOne(std::int16_t& row) {
  if (row == 0) row = 1;
}

template <class Archive, class Picture>
void walkReportPicture(Archive& ar, Picture& picture) {
  ar.constant(Tag::boolean, -1, "Live");
  ar.length(picture.top, "Top");
  ar.length(picture.left, "Left");
  ar.length(picture.height, "Height");
  ar.length(picture.width, "Width");
  ar.slot(picture.pictureOfImage, Tag::i2, "PictureOfImage");
  ar.slot(picture.rowOfPicture, Tag::i2, "RowOfPicture", always, rowZeroReadsAsOne);
}

template <class Archive, class Label>
void walkReportLabel(Archive& ar, Label& label) {
  ar.constant(Tag::boolean, -1, "Live");
  ar.text(label.fontName, "FontName");
  ar.slot(label.fontBold, Tag::boolean, "FontBold");
  ar.slot(label.fontItalic, Tag::boolean, "FontItalic");
  ar.slot(label.fontUnderline, Tag::boolean, "FontUnderline");
  ar.fontSize(label.fontSize, "FontSize");
  ar.slot(label.foreColor, Tag::i4, "ForeColor");
  ar.length(label.top, "Top");
  ar.length(label.left, "Left");
  ar.length(label.width, "Width");
  ar.length(label.height, "Height");
  ar.slot(label.alignment, Tag::i2, "Alignment");
  ar.slot(label.autoSize, Tag::boolean, "AutoSize");
  ar.slot(label.fieldOfLabel, Tag::i2, "FieldOfLabel");
  ar.text(label.caption, "Caption");
  ar.slot(label.rowOfLabel, Tag::i2, "RowOfLabel");
}

// report: its labels must be in the order of their slots when the archive writes (see labelsBySlot).
template <class Archive, class Report>
void walkReport(Archive& ar, Report& report) {
  const auto all = [](const auto&) { return true; };
  ar.length(report.windowWidth, "WindowWidth");
  ar.length(report.windowHeight, "WindowHeight");
  ar.length(report.paperWidth, "PaperWidth");
  ar.length(report.paperHeight, "PaperHeight");
  ar.section("Shapes", above(19), [&] {
    ar.rows(report.shapes, {.name = "Shapes"}, all, [&](auto& row, int) { walkReportShape(ar, row); });
  });
  ar.section("Lines", above(15), [&] {
    ar.rows(report.lines, {.name = "Lines"}, all, [&](auto& row, int) { walkReportLine(ar, row); });
  });
  ar.rows(report.pictures, {.name = "Pictures"}, all, [&](auto& row, int) { walkReportPicture(ar, row); });
  ar.rows(report.labels, {.name = "Labels"}, all, [&](auto& row, int) { walkReportLabel(ar, row); });
}

// The report as it goes out: labels in ascending order of their slot, those of one slot as they stood.
ReportRow labelsBySlot(const ReportRow& report);

}  // namespace plinth
