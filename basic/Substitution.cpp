// The substitution table and its inverse. The values are one shuffle of 0 to 255, drawn once and then frozen:
// every finished application and data file depends on them. The compiler checks what the formats rely on.
#include "basic/Substitution.h"

namespace plinth {
namespace {

using Table = std::array<std::uint8_t, 256>;

constexpr Table kTable{
    178, 147, 232, 57,  186, 98,  120, 238, 74,  189, 75,  151, 46,  58,  128, 250, 56,  111, 90,  218,
    177, 169, 233, 124, 65,  118, 88,  144, 1,   38,  198, 179, 229, 220, 99,  190, 133, 86,  170, 242,
    143, 22,  167, 4,   234, 27,  194, 34,  191, 44,  228, 240, 132, 152, 21,  14,  45,  112, 135, 235,
    80,  63,  181, 47,  210, 117, 8,   163, 11,  247, 2,   101, 39,  66,  230, 155, 0,   116, 246, 175,
    150, 61,  214, 103, 6,   55,  20,  156, 160, 174, 161, 64,  16,  206, 216, 25,  153, 19,  81,  183,
    224, 158, 195, 205, 141, 68,  248, 252, 54,  211, 154, 24,  110, 105, 33,  96,  42,  245, 126, 182,
    139, 162, 200, 223, 192, 164, 138, 3,   142, 51,  148, 36,  32,  202, 215, 197, 115, 222, 59,  60,
    127, 149, 114, 113, 78,  71,  67,  221, 72,  241, 29,  145, 134, 136, 121, 237, 165, 208, 62,  10,
    93,  37,  253, 204, 203, 219, 13,  140, 131, 217, 196, 77,  43,  53,  184, 107, 89,  201, 166, 244,
    5,   41,  48,  85,  122, 70,  97,  102, 243, 227, 94,  17,  207, 123, 104, 84,  31,  180, 95,  87,
    40,  129, 199, 52,  188, 91,  35,  213, 226, 130, 159, 171, 172, 28,  73,  79,  18,  239, 76,  92,
    7,   125, 251, 231, 106, 137, 254, 168, 255, 193, 30,  249, 109, 185, 49,  26,  209, 23,  157, 108,
    83,  82,  146, 9,   225, 212, 100, 236, 15,  187, 69,  119, 50,  176, 12,  173,
};

constexpr Table inverted(const Table& table) {
  Table out{};
  for (std::size_t i = 0; i < table.size(); ++i) out[table[i]] = static_cast<std::uint8_t>(i);
  return out;
}

constexpr Table kInverse = inverted(kTable);

// Each value once, none at its own place, and no pair that merely changes places: scrambling twice never
// shows text.
constexpr bool isSound() {
  for (std::size_t i = 0; i < kTable.size(); ++i) {
    if (kInverse[kTable[i]] != i || kTable[i] == i || kTable[kTable[i]] == i) return false;
  }
  return true;
}
static_assert(isSound());

void apply(const Table& table, std::span<std::uint8_t> bytes) {
  for (std::uint8_t& byte : bytes) byte = table[byte];
}

std::string applied(const Table& table, std::string_view text) {
  std::string out(text);
  for (char& c : out) c = static_cast<char>(table[static_cast<std::uint8_t>(c)]);
  return out;
}

}  // namespace

const std::array<std::uint8_t, 256>& substitutionTable() { return kTable; }
const std::array<std::uint8_t, 256>& inverseSubstitutionTable() { return kInverse; }

std::string scrambleText(std::string_view text) { return applied(kTable, text); }
std::string unscrambleText(std::string_view text) { return applied(kInverse, text); }
void scrambleInPlace(std::span<std::uint8_t> bytes) { apply(kTable, bytes); }
void unscrambleInPlace(std::span<std::uint8_t> bytes) { apply(kInverse, bytes); }

}  // namespace plinth
