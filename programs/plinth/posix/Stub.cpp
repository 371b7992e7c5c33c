// The bytes as StubBytes.S places them between pairs of symbols.

#include "programs/plinth/Stub.h"

extern "C" const std::uint8_t plinthStubBegin[], plinthStubEnd[];
extern "C" const std::uint8_t plinthIconBegin[], plinthIconEnd[];
extern "C" const std::uint8_t plinthEnglishBegin[], plinthEnglishEnd[];

namespace plinth {

std::span<const std::uint8_t> embeddedStub() { return {plinthStubBegin, plinthStubEnd}; }
std::span<const std::uint8_t> embeddedIcon() { return {plinthIconBegin, plinthIconEnd}; }
std::span<const std::uint8_t> embeddedEnglish() { return {plinthEnglishBegin, plinthEnglishEnd}; }

}  // namespace plinth
