// Resources lie in the program's image: finding one copies nothing.
#include "platform/win32/Resources.h"

#include "platform/win32/WindowsApi.h"

namespace plinth {

std::span<const std::uint8_t> resource(const char* type, int id) {
  const HRSRC found = ::FindResourceA(nullptr, MAKEINTRESOURCEA(id), type);
  const HGLOBAL loaded = found ? ::LoadResource(nullptr, found) : nullptr;
  const void* bytes = loaded ? ::LockResource(loaded) : nullptr;
  if (!bytes) return {};
  return {static_cast<const std::uint8_t*>(bytes), ::SizeofResource(nullptr, found)};
}

}  // namespace plinth
