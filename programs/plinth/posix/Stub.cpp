// The stub as StubBytes.S places it between two symbols.

#include "programs/plinth/Stub.h"

extern "C" const std::uint8_t plinthStubBegin[];
extern "C" const std::uint8_t plinthStubEnd[];

namespace plinth {

std::span<const std::uint8_t> embeddedStub() {
  return {plinthStubBegin, static_cast<std::size_t>(plinthStubEnd - plinthStubBegin)};
}

}  // namespace plinth
