// Any bytes as a finished application, or as the payload behind a small engine image. What reads as complete
// must survive being written and read again.
#include <cstdlib>

#include "builder/payload/PayloadFile.h"

namespace {

constexpr std::size_t kStub = 110;

plinth::Bytes behindStub(std::span<const std::uint8_t> payload) {
  plinth::Bytes exe(kStub - 1, 1);
  exe.insert(exe.end(), payload.begin(), payload.end());
  for (int shift = 0; shift < 32; shift += 8)
    exe.push_back(static_cast<std::uint8_t>(payload.size() >> shift));
  return exe;
}

void check(std::span<const std::uint8_t> exe) {
  const plinth::PayloadResult first = plinth::readPayloadPart(exe);
  if (!first.complete) return;
  const auto image = plinth::writeApplication(plinth::Bytes(kStub, 2), first.payload);
  if (!image.ok() || !plinth::readPayload(image->bytes).ok()) std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::span<const std::uint8_t> bytes(data, size);
  check(bytes);
  check(behindStub(bytes));
  return 0;
}
