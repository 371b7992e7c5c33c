// Applications that somebody signed after they were made, and headers that lie.
#include <gtest/gtest.h>

#include <cstdint>
#include <numeric>
#include <random>

#include "builder/payload/ImageHeader.h"
#include "builder/payload/PayloadFile.h"
#include "tests/builder/payload/FillPayload.h"

namespace plinth {
namespace {

constexpr std::size_t kHeader = 128, kOptional = kHeader + 24, kCheckSum = kOptional + 64;

void put(Bytes& bytes, std::size_t offset, std::uint32_t value, int size = 4) {
  for (int i = 0; i < size; ++i)
    bytes[offset + static_cast<std::size_t>(i)] = static_cast<std::uint8_t>(value >> (8 * i));
}

struct Kind {
  std::uint32_t magic;
  std::size_t security;  // offset of the directory entry
};
constexpr Kind kKinds[] = {{0x10B, kOptional + 96 + 32}, {0x20B, kOptional + 112 + 32}};

Bytes programImage(const Kind& kind) {
  Bytes stub(1000);
  std::iota(stub.begin(), stub.end(), std::uint8_t{1});
  put(stub, 0, 0x5A4D, 2);
  put(stub, 60, kHeader);
  put(stub, kHeader, 0x4550);
  put(stub, kOptional, kind.magic, 2);
  put(stub, kCheckSum, 0x0013386E);
  put(stub, kind.security - 36, 16);  // number of directories
  put(stub, kind.security, 0), put(stub, kind.security + 4, 0);
  return stub;
}

// What a signing tool does: padding to a multiple of 8, the table, its place and a new check sum.
Bytes signedFile(Bytes file, const Kind& kind, std::size_t padding, std::uint8_t filler) {
  file.resize(file.size() + padding);
  const std::size_t table = file.size();
  file.resize(table + 1200, filler);
  put(file, kind.security, static_cast<std::uint32_t>(table));
  put(file, kind.security + 4, 1200);
  put(file, kCheckSum, 0x00ABCDEF);
  return file;
}

TEST(SignedFile, KeepsItsPayload) {
  for (const Kind& kind : kKinds)
    for (unsigned seed = 1; seed <= 3; ++seed) {
      const Payload written = filledPayload(seed);
      const Bytes file = writeApplication(programImage(kind), written)->bytes;
      EXPECT_TRUE(readPayload(file).ok());
      for (std::size_t padding = 0; padding <= 7; ++padding)
        for (const std::uint8_t filler : {0x00, 0x30, 0xFF}) {
          const Result<Payload> read = readPayload(signedFile(file, kind, padding, filler));
          ASSERT_TRUE(read.ok()) << kind.magic << " padding " << padding << ": " << read.error().text;
          EXPECT_EQ(read->fields, written.fields);
          EXPECT_EQ(read->titles, written.titles);
        }
      EXPECT_FALSE(readPayload(signedFile(file, kind, 8, 0xFF)).ok());
    }
}

TEST(SignedFile, WithALyingHeaderHasNoPayload) {
  const Kind& kind = kKinds[1];
  const Bytes plain = writeApplication(programImage(kind), filledPayload(1))->bytes;
  const Bytes good = signedFile(plain, kind, 3, 0xFF);
  const auto length = static_cast<std::uint32_t>(good.size());
  struct Lie {
    const char* what;
    std::size_t offset;
    std::uint32_t value;
  };
  const Lie lies[] = {{"no program", 0, 0x12345678},
                      {"header behind the end", 60, length},
                      {"header at the end", 60, length - 4},
                      {"header far away", 60, 0xFFFFFFFF},
                      {"no signature of a program", kHeader, 0},
                      {"unknown form", kOptional, 0},
                      {"few directories", kind.security - 36, 4},
                      {"no table", kind.security, 0},
                      {"table of no size", kind.security + 4, 0},
                      {"table behind the end", kind.security, length},
                      {"table far away", kind.security, 0xFFFFFFFF},
                      {"endless table", kind.security + 4, 0xFFFFFFFF},
                      {"table in the header", kind.security, 3},
                      {"table in the payload", kind.security, length - 1300}};
  for (const Lie& lie : lies) {
    Bytes file = good;
    put(file, lie.offset, lie.value);
    EXPECT_FALSE(readPayload(file).ok()) << lie.what;
  }
  std::mt19937 random(7);
  for (int round = 0; round < 500; ++round) {
    Bytes file = good;
    for (int i = 0; i < 3; ++i) file[random() % 400] = static_cast<std::uint8_t>(random());
    readPayloadPart(file);
  }
  // A header cut at every place.
  const Bytes stub = programImage(kind);
  for (std::size_t size = 0; size < 400; ++size) {
    Bytes cut(stub.begin(), stub.begin() + static_cast<std::ptrdiff_t>(size));
    if (const auto header = findImageHeader(cut)) clearSignedFields(cut, *header);
  }
}

}  // namespace
}  // namespace plinth
