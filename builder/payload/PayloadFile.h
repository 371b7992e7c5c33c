// A finished application as bytes: the stamped engine image, the payload behind it and a four-byte trailer
// that tells where the payload begins. Readers take what they are given: nothing in such a file is trusted.
#pragma once

#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <vector>

#include "basic/Result.h"
#include "builder/payload/Payload.h"

namespace plinth {

// What could be read. Everything before the first damage stands in `payload`, the rest keeps its defaults.
struct PayloadResult {
  Payload payload;
  bool complete = false;
  std::string problem;  // where reading stopped and why; "" when complete
};

// Reads the payload at the end of a finished application's file. exe: the whole file, stamped as it is, since
// text lengths are told relative to bytes of the image. Counts and lengths are checked against limits and
// bytes left, so that memory stays in proportion to the file. In a file that was signed after it was made the
// payload is found before the certificate table.
PayloadResult readPayloadPart(std::span<const std::uint8_t> exe);

// As readPayloadPart, but anything short of a complete payload is an error (damaged, with the problem).
Result<Payload> readPayload(std::span<const std::uint8_t> exe);

// The bytes of a finished application, and what did not fit into them.
struct ApplicationImage {
  Bytes bytes;
  std::vector<std::string> cutTexts;  // the places whose texts were longer than the format can say
};

// Called after each section with the sections done and their number; false gives up.
using SectionDone = std::function<bool(int done, int total)>;

// Puts a payload behind a stamped engine image. The payload's first slot begins on the image's last byte. The
// check sum in the image's header, which stamping made untrue, is set to 0: a signature changes it, and
// readers of a signed file must know what it was. Tables longer than the format's limits are an error (full),
// as is a stub shorter than kSmallestStub (damaged); giving up is an error too (failed).
Result<ApplicationImage> writeApplication(Bytes stampedStub, const Payload& payload,
                                          const SectionDone& sectionDone = {});

// The bias bytes of the texts stand at every second position from here on (1-based), and an image must hold
// the first.
inline constexpr std::int64_t kBiasStart = 100;
inline constexpr std::size_t kSmallestStub = 102;

}  // namespace plinth
