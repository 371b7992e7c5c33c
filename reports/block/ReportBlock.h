// One report as plain rows: a page layout of shapes, lines, pictures and labels. The project file and the
// finished application hold it in the same stretch of bytes (ReportWalk.h), so these rows know nothing of
// either.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace plinth {

// All positions and sizes are twips; colours are RGB with red in the low byte; font sizes are points.
struct ReportShape {
  std::int16_t borderStyle = 1;
  std::int16_t fillStyle = 1;    // 0 solid, 1 transparent, ...
  std::int16_t shapeType = 0;    // 0 rectangle ... 3 circle; stored in the high byte of the fill style's slot
  std::int16_t borderWidth = 1;  // pixels
  std::int16_t backStyle = 1;
  std::int32_t fillColor = 0xFFFFFF;
  std::int32_t borderColor = 0;
  float height = 0, width = 0, top = 0, left = 0;
  bool operator==(const ReportShape&) const = default;
};

struct ReportLine {
  std::int32_t borderColor = 0;
  float x1 = 0, y1 = 0, x2 = 0, y2 = 0;
  bool operator==(const ReportLine&) const = default;
};

struct ReportPicture {
  float top = 0, left = 0, height = 0, width = 0;
  std::int16_t pictureOfImage = 0;  // index of the picture object it shows
  std::int16_t rowOfPicture = 1;    // record slot on the page
  bool operator==(const ReportPicture&) const = default;
};

struct ReportLabel {
  std::string fontName = "Arial";
  bool fontBold = false, fontItalic = false, fontUnderline = false;
  float fontSize = 9;
  std::int32_t foreColor = 0;
  float top = 0, left = 0, width = 0, height = 0;
  std::int16_t alignment = 0;  // 0 left, 1 right, 2 centre
  bool autoSize = true;
  std::int16_t fieldOfLabel = -1;  // -1 plain text, else the object number
  std::string caption;             // plain text, or "F<n>,<slot>" and its kin
  std::int16_t rowOfLabel = 0;     // record slot on the page, 0 upward
  bool operator==(const ReportLabel&) const = default;
};

struct ReportRow {
  std::string title;                               // an empty title has no body in a file
  float windowWidth = 12840, windowHeight = 9000;  // window height as stored: 1440 less than the window's
  float paperWidth = 12240, paperHeight = 15840;
  std::vector<ReportShape> shapes;
  std::vector<ReportLine> lines;
  std::vector<ReportPicture> pictures;
  std::vector<ReportLabel> labels;
  bool operator==(const ReportRow&) const = default;
};

}  // namespace plinth
