// Area averaging, one direction after the other, with whole-number weights: no rounding but the last.
#include "platform/Pixels.h"

#include <algorithm>

namespace plinth {
namespace {

constexpr std::uint32_t channel(std::uint32_t pixel, int shift) { return pixel >> shift & 255; }

// One row or column of `from` pixels, `fromStep` apart, into `to` pixels, `toStep` apart.
void reduceLine(const std::uint32_t* source, std::int64_t from, std::int64_t fromStep, std::uint32_t* target,
                std::int64_t to, std::int64_t toStep) {
  for (std::int64_t i = 0; i < to; ++i) {
    // In units of 1/to source pixels the i-th target pixel covers [i * from, (i + 1) * from).
    const std::int64_t begin = i * from, end = begin + from;
    std::uint64_t sums[4] = {};
    for (std::int64_t at = begin / to; at * to < end; ++at) {
      const std::uint64_t weight = std::min(end, (at + 1) * to) - std::max(begin, at * to);
      const std::uint32_t pixel = source[at * fromStep];
      for (int c = 0; c < 4; ++c) sums[c] += weight * channel(pixel, 8 * c);
    }
    std::uint32_t mean = 0;
    for (int c = 0; c < 4; ++c) mean |= static_cast<std::uint32_t>((sums[c] + from / 2) / from) << 8 * c;
    target[i * toStep] = mean;
  }
}

}  // namespace

bool premultiply(Pixels& pixels) {
  bool transparent = false;
  for (std::uint32_t& pixel : pixels.argb) {
    const std::uint32_t alpha = channel(pixel, 24);
    if (alpha == 255) continue;
    transparent = true;
    std::uint32_t out = alpha << 24;
    for (int shift = 0; shift < 24; shift += 8) out |= (channel(pixel, shift) * alpha + 127) / 255 << shift;
    pixel = out;
  }
  return transparent;
}

Pixels reduced(const Pixels& source, SizePx size) {
  const int width = std::max(1, std::min(size.width, source.size.width));
  const int height = std::max(1, std::min(size.height, source.size.height));
  if (source.argb.empty()) return {};
  Pixels narrow{{width, source.size.height}, {}};
  narrow.argb.resize(static_cast<std::size_t>(width) * source.size.height);
  for (std::int64_t y = 0; y < source.size.height; ++y)
    reduceLine(&source.argb[y * source.size.width], source.size.width, 1, &narrow.argb[y * width], width, 1);
  Pixels out{{width, height}, {}};
  out.argb.resize(static_cast<std::size_t>(width) * height);
  for (int x = 0; x < width; ++x)
    reduceLine(&narrow.argb[x], source.size.height, width, &out.argb[x], height, width);
  return out;
}

}  // namespace plinth
