// The bytes of finished applications: elements by hand, every element there and back, and damage of all
// kinds.
#include "builder/payload/PayloadFile.h"

#include <gtest/gtest.h>

#include <fstream>
#include <numeric>
#include <sstream>

#include "basic/Substitution.h"
#include "builder/payload/PayloadDescriber.h"
#include "tests/builder/payload/FillPayload.h"

namespace plinth {
namespace {

constexpr std::size_t kStub = 1000;

Bytes countingStub(std::size_t size = kStub) {
  Bytes stub(size);
  std::iota(stub.begin(), stub.end(), std::uint8_t{0});
  return stub;
}

Bytes imageOf(const Payload& payload) {
  Result<ApplicationImage> image = writeApplication(countingStub(), payload);
  EXPECT_TRUE(image.ok());
  return image.ok() ? image->bytes : Bytes{};
}

Bytes part(const Bytes& image, std::size_t offset, std::size_t length) {
  return {image.begin() + static_cast<std::ptrdiff_t>(offset),
          image.begin() + static_cast<std::ptrdiff_t>(offset + length)};
}

// The first `length` bytes of an application, with a trailer that points at the payload's start.
Bytes cutTo(const Bytes& image, std::size_t length) {
  Bytes cut = part(image, 0, length);
  const auto payloadLength = static_cast<std::uint32_t>(length + 1 - kStub);
  for (int shift = 0; shift < 32; shift += 8)
    cut.push_back(static_cast<std::uint8_t>(payloadLength >> shift));
  return cut;
}

TEST(PayloadFile, LaysElementsOutAsComputedByHand) {
  Payload payload;
  payload.header.pattern = 0x1234;
  payload.header.valueMax = -2;
  payload.header.statusLineVisible = true;
  payload.background = {"b.gif", {7, 8, 9}};
  const Bytes image = imageOf(payload);
  EXPECT_EQ(part(image, 0, 999), part(countingStub(), 0, 999));
  EXPECT_EQ(part(image, 999, 4), (Bytes{2, 0, 0x34, 0x12}));  // over the stub's last byte
  EXPECT_EQ(part(image, 999 + 16, 6), (Bytes{3, 0, 0xFE, 0xFF, 0xFF, 0xFF}));
  EXPECT_EQ(part(image, 999 + 32, 4), (Bytes{11, 0, 0xFF, 0xFF}));
  EXPECT_EQ(part(image, 999 + 48, 5), (Bytes{3 + 101, 0, 'c', 's', 'v'}));  // position 102 holds byte 101
  // The background's name is text 255 of an application without objects: its bias is at 100 + 510, byte 609 &
  // 255.
  const std::size_t end = image.size() - 4;
  EXPECT_EQ(part(image, end - 14, 14), (Bytes{5 + 97, 0, 'b', '.', 'g', 'i', 'f', 2, 0, 0, 0, 7, 8, 9}));
  const std::size_t length = end - 999;
  EXPECT_EQ(part(image, end, 4),
            (Bytes{static_cast<std::uint8_t>(length), static_cast<std::uint8_t>(length >> 8), 0, 0}));
}

TEST(PayloadFile, ConcealsSomeTextsAndBringsThemBack) {
  Payload payload;
  payload.titles.resize(2);
  payload.titles[1].caption = "Address Book of everybody";
  const Bytes image = imageOf(payload);
  const std::string all(image.begin(), image.end());
  EXPECT_EQ(all.find("Address"), std::string::npos);
  EXPECT_NE(all.find(scrambleText("Address Book of everybody")), std::string::npos);
  EXPECT_EQ(readPayload(image)->titles[1].caption, "Address Book of everybody");
}

TEST(PayloadFile, CarriesEveryElementThereAndBack) {
  for (unsigned seed = 1; seed <= 20; ++seed) {
    const Payload written = filledPayload(seed);
    const Bytes image = imageOf(written);
    const Result<Payload> read = readPayload(image);
    ASSERT_TRUE(read.ok()) << read.error().text;
    EXPECT_TRUE(read->header == written.header);
    EXPECT_EQ(read->squares, written.squares);
    EXPECT_EQ(read->lines, written.lines);
    EXPECT_EQ(read->pictures, written.pictures);
    EXPECT_EQ(read->titles, written.titles);
    EXPECT_EQ(read->fields, written.fields);
    EXPECT_EQ(read->combos, written.combos);
    EXPECT_EQ(read->memos, written.memos);
    EXPECT_EQ(read->checks, written.checks);
    EXPECT_EQ(read->buttons, written.buttons);
    EXPECT_TRUE(read->application == written.application);
    EXPECT_EQ(read->fragments, written.fragments);
    EXPECT_EQ(read->templates, written.templates);
    EXPECT_EQ(read->pageColors, written.pageColors);
    EXPECT_EQ(read->background, written.background);
    ASSERT_EQ(read->reports.size(), 2u);
    EXPECT_EQ(read->reports[0].labels[0].caption, "F1,0");
    EXPECT_EQ(imageOf(*read), image);
  }
}

TEST(PayloadFile, CutsTextsThatDoNotFitAndSaysWhere) {
  Payload payload;
  payload.header.title = std::string(70000, 'x');
  const Result<ApplicationImage> image = writeApplication(countingStub(), payload);
  EXPECT_EQ(image->cutTexts, (std::vector<std::string>{"Header, application title"}));
  const std::size_t titleBias = (100 + 2 * 11 - 1) & 0xFF;  // the eleventh text
  EXPECT_EQ(readPayload(image->bytes)->header.title.size(), 65535 - titleBias);
}

TEST(PayloadFile, RefusesWhatNoReaderWouldTake) {
  Payload payload;
  payload.memos.resize(502);
  EXPECT_EQ(writeApplication(countingStub(), payload).error().kind, ErrorKind::full);
  EXPECT_FALSE(writeApplication(countingStub(kSmallestStub - 1), {}).ok());
  EXPECT_TRUE(readPayload(writeApplication(countingStub(kSmallestStub), {})->bytes).ok());
  EXPECT_FALSE(writeApplication(countingStub(), {}, [](int done, int) { return done < 3; }).ok());
}

TEST(PayloadFile, EndsInAPartialPayloadWhereverItIsCut) {
  const Bytes image = imageOf(filledPayload(3));
  ASSERT_TRUE(readPayload(image).ok());
  std::vector<std::size_t> places;
  for (std::size_t i = 0; i < 4096; ++i) places.push_back(kStub - 1 + i);
  std::mt19937 random(5);
  for (int i = 0; i < 200; ++i) places.push_back(kStub + random() % (image.size() - 5 - kStub));
  for (const std::size_t place : places) {
    EXPECT_FALSE(readPayloadPart(cutTo(image, place)).complete) << place;
    EXPECT_FALSE(readPayloadPart(part(image, 0, place)).complete) << place;
  }
  const PayloadResult most = readPayloadPart(cutTo(image, image.size() - 5));
  EXPECT_EQ(most.payload.fields.size(), 7u);
  EXPECT_NE(most.problem, "");
}

TEST(PayloadFile, SurvivesAnyChangedBytes) {
  const Bytes image = imageOf(filledPayload(4));
  std::mt19937 random(6);
  for (int round = 0; round < 1500; ++round) {
    Bytes changed = image;
    for (int i = 0; i < 3; ++i)
      changed[kStub - 1 + random() % (image.size() - kStub + 1)] = static_cast<std::uint8_t>(random());
    readPayloadPart(changed);
  }
}

TEST(PayloadFile, BelievesNoCount) {
  Payload payload;
  payload.combos.resize(2);
  payload.background = {"b.gif", {7, 8, 9}};
  const Bytes image = imageOf(payload);
  int refused = 0;
  // Every slot in turn claims the most that it can say.
  for (std::size_t i = kStub - 1; i + 6 < image.size(); ++i) {
    Bytes changed = image;
    const std::uint8_t tag = changed[i];
    if ((tag != 2 && tag != 3) || changed[i + 1] != 0) continue;
    std::fill_n(changed.begin() + static_cast<std::ptrdiff_t>(i + 2), tag == 2 ? 1 : 3, std::uint8_t{0xFF});
    changed[i + (tag == 2 ? 3 : 5)] = 0x7F;
    if (!readPayloadPart(changed).complete) ++refused;
  }
  EXPECT_GE(refused, 12);  // ten tables, the list lines, the reports
  for (const std::size_t size : {0u, 3u, 4u, 100u}) EXPECT_FALSE(readPayload(Bytes(size, 0)).ok());
}

TEST(PayloadFile, IsDescribedByItsDocumentation) {
  std::ifstream file(PLINTH_TEST_DATA "/../../docs/formats/payload.md", std::ios::binary);
  std::stringstream page;
  page << file.rdbuf();
  EXPECT_NE(page.str().find(describePayload()), std::string::npos)
      << "docs/formats/payload.md must hold these tables:\n"
      << describePayload();
}

}  // namespace
}  // namespace plinth
