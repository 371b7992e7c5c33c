// The bytes as resources of type "CUSTOM", with the numbers that the designer uses too.

#include "programs/plinth/Stub.h"

#include <windows.h>

namespace plinth {
namespace {

std::span<const std::uint8_t> custom(int id) {
  const HRSRC found = FindResourceA(nullptr, MAKEINTRESOURCEA(id), "CUSTOM");
  const HGLOBAL loaded = found ? LoadResource(nullptr, found) : nullptr;
  const void* bytes = loaded ? LockResource(loaded) : nullptr;
  if (!bytes) return {};
  return {static_cast<const std::uint8_t*>(bytes), SizeofResource(nullptr, found)};
}

}  // namespace

std::span<const std::uint8_t> embeddedStub() { return custom(101); }
std::span<const std::uint8_t> embeddedIcon() { return custom(103); }
std::span<const std::uint8_t> embeddedEnglish() { return custom(104); }

}  // namespace plinth
