// The stub as resource "CUSTOM" 101, where the designer has it too.

#include "programs/plinth/Stub.h"

#include <windows.h>

namespace plinth {

std::span<const std::uint8_t> embeddedStub() {
  const HRSRC found = FindResourceA(nullptr, MAKEINTRESOURCEA(101), "CUSTOM");
  const HGLOBAL loaded = found ? LoadResource(nullptr, found) : nullptr;
  const void* bytes = loaded ? LockResource(loaded) : nullptr;
  if (!bytes) return {};
  return {static_cast<const std::uint8_t*>(bytes), SizeofResource(nullptr, found)};
}

}  // namespace plinth
