// The sizes as the menu's makers gave them, in inches and millimetres.
#include "model/PaperSize.h"

#include <cmath>
#include <iterator>
#include <utility>

#include "basic/Geometry.h"

namespace plinth {
namespace {

constexpr int kFirstMillimetreCode = 11;
constexpr double kSizes[][2] = {{8.5, 11},  {11, 17},   {17, 11},     {8.5, 14},  {5.5, 8.5}, {7.5, 10.5},
                                {8.5, 11},  {8.5, 13},  {14.875, 11}, {8.5, 12},  {8.5, 13},  {297, 420},
                                {210, 297}, {148, 210}, {105, 148},   {250, 354}, {182, 257}, {215, 275}};

float wholePixels(double size, bool millimetres) {
  return static_cast<float>(std::lround(size * 96 / (millimetres ? 25.4 : 1)) * kTwipsPerPixel);
}

}  // namespace

std::optional<PaperSize> paperSize(int code, bool landscape) {
  if (code < 0 || code >= static_cast<int>(std::size(kSizes))) return std::nullopt;
  const bool millimetres = code >= kFirstMillimetreCode;
  PaperSize size{wholePixels(kSizes[code][0], millimetres), wholePixels(kSizes[code][1], millimetres)};
  if (landscape) std::swap(size.width, size.height);
  return size;
}

}  // namespace plinth
