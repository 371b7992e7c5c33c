// Papers in inches (0 to 10) and millimetres (11 to 17), in the order of the menu that offers them.
#include "model/PageSize.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

namespace plinth {

namespace {

struct Paper {
  float width, height;
};
constexpr std::array<Paper, 18> kPapers{{{8.5f, 11}, {11, 17}, {17, 11}, {8.5f, 14}, {5.5f, 8.5f}, {7.5f, 10.5f},
                                         {8.5f, 11}, {8.5f, 13}, {14.875f, 11}, {8.5f, 12}, {8.5f, 13}, {297, 420},
                                         {210, 297}, {148, 210}, {105, 148}, {250, 354}, {182, 257}, {215, 275}}};
constexpr int kFirstMetric = 11;
constexpr float kTwipsPerInch = 1440, kTwipsPerMillimeter = 1440 / 25.4f;
constexpr float kLeast = 10 * kTwipsPerMillimeter, kMost = 5000 * kTwipsPerMillimeter;

float sane(float twips) { return std::isfinite(twips) ? std::clamp(twips, kLeast, kMost) : kLeast; }

}  // namespace

PageSizeTwips pageSizeOf(const ProjectDocument& document) {
  const int code = document.pageSizeCode;
  if (code < 0 || code >= static_cast<int>(kPapers.size()))
    return {sane(document.pageWidth), sane(document.pageHeight)};
  const Paper& paper = kPapers[static_cast<std::size_t>(code)];
  const float unit = code < kFirstMetric ? kTwipsPerInch : kTwipsPerMillimeter;
  PageSizeTwips size{paper.width * unit, paper.height * unit};
  if (document.pageSize20) std::swap(size.width, size.height);
  return size;
}

}  // namespace plinth
