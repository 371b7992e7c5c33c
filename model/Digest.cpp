// The compression runs block by block over a padded copy of the tail, so that large images are not copied.
#include "model/Digest.h"

#include <array>
#include <bit>
#include <cmath>
#include <vector>

namespace plinth {
namespace {

constexpr std::size_t kBlock = 64;

// The first bits of the fractions of the square (2) and cube (3) roots of the first primes.
template <std::size_t N>
std::array<std::uint32_t, N> primeRoots(int root) {
  std::array<std::uint32_t, N> bits{};
  std::size_t found = 0;
  for (int n = 2; found < N; ++n) {
    bool prime = true;
    for (int i = 2; i * i <= n; ++i) prime = prime && n % i != 0;
    if (!prime) continue;
    const long double value =
        root == 2 ? std::sqrt(static_cast<long double>(n)) : std::cbrt(static_cast<long double>(n));
    bits[found++] = static_cast<std::uint32_t>((value - std::floor(value)) * 4294967296.0L);
  }
  return bits;
}

using State = std::array<std::uint32_t, 8>;

void compress(State& state, const std::uint8_t* block) {
  static const auto constants = primeRoots<64>(3);
  std::array<std::uint32_t, 64> w;
  for (int i = 0; i < 16; ++i)
    w[i] =
        std::uint32_t{block[4 * i]} << 24 | block[4 * i + 1] << 16 | block[4 * i + 2] << 8 | block[4 * i + 3];
  for (int i = 16; i < 64; ++i) {
    const std::uint32_t s0 = std::rotr(w[i - 15], 7) ^ std::rotr(w[i - 15], 18) ^ w[i - 15] >> 3;
    const std::uint32_t s1 = std::rotr(w[i - 2], 17) ^ std::rotr(w[i - 2], 19) ^ w[i - 2] >> 10;
    w[i] = w[i - 16] + s0 + w[i - 7] + s1;
  }
  auto [a, b, c, d, e, f, g, h] = state;
  for (int i = 0; i < 64; ++i) {
    const std::uint32_t s1 = std::rotr(e, 6) ^ std::rotr(e, 11) ^ std::rotr(e, 25);
    const std::uint32_t t1 = h + s1 + ((e & f) ^ (~e & g)) + constants[i] + w[i];
    const std::uint32_t s0 = std::rotr(a, 2) ^ std::rotr(a, 13) ^ std::rotr(a, 22);
    const std::uint32_t t2 = s0 + ((a & b) ^ (a & c) ^ (b & c));
    h = g, g = f, f = e, e = d + t1, d = c, c = b, b = a, a = t1 + t2;
  }
  const State round{a, b, c, d, e, f, g, h};
  for (std::size_t i = 0; i < state.size(); ++i) state[i] += round[i];
}

}  // namespace

std::string sha256(std::span<const std::uint8_t> bytes) {
  State state = primeRoots<8>(2);
  std::size_t done = 0;
  for (; bytes.size() - done >= kBlock; done += kBlock) compress(state, bytes.data() + done);
  std::vector<std::uint8_t> tail(bytes.begin() + done, bytes.end());
  tail.push_back(0x80);
  while (tail.size() % kBlock != kBlock - 8) tail.push_back(0);
  for (int shift = 56; shift >= 0; shift -= 8)
    tail.push_back(static_cast<std::uint8_t>(std::uint64_t{bytes.size()} * 8 >> shift));
  for (std::size_t i = 0; i < tail.size(); i += kBlock) compress(state, tail.data() + i);

  std::string hex;
  for (const std::uint32_t word : state)
    for (int shift = 28; shift >= 0; shift -= 4) hex += "0123456789abcdef"[word >> shift & 15];
  return hex;
}

}  // namespace plinth
