// Slots, texts and blocks: what is written comes back, and damaged bytes fail without moving the targets.
#include "basic/Slots.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace plinth {
namespace {

TEST(Slots, WriterMakesTheDocumentedBytes) {
  Bytes image(20, 0xEE);  // an older, longer file
  SlotWriter writer(image, 2);
  writer.slot(Tag::i4, -2);
  writer.text16("ab");
  EXPECT_EQ(writer.position(), 22);
  const Bytes expected{0xEE, 3,    0,    0xFE, 0xFF, 0xFF, 0xFF, 0xEE, 0xEE, 0xEE, 0xEE,
                       0xEE, 0xEE, 0xEE, 0xEE, 0xEE, 0xEE, 2,    0,    'a',  'b'};
  EXPECT_EQ(image, expected);
  writer.byte(7);
  writer.i32(-70000);
  EXPECT_EQ(image.size(), 26u);
}

TEST(Slots, EveryElementReadsBackAsWritten) {
  Bytes image;
  SlotWriter writer(image);
  writer.slot(Tag::i2, -32768);
  writer.slot(Tag::i4, 2147483647);
  writer.slot(Tag::r4, 0.1f);
  writer.slot(Tag::ui1, 255);
  writer.slot(Tag::boolean, 5);
  EXPECT_EQ(writer.text16(std::string("a\0b", 3)), 0u);
  EXPECT_EQ(writer.biasedText("text", 200), 0u);
  writer.block(Bytes{1, 2, 3});
  SlotReader reader(image);
  double number = 0;
  for (double expected : {-32768.0, 2147483647.0, static_cast<double>(0.1f), 255.0, -1.0}) {
    ASSERT_TRUE(reader.number(number));
    EXPECT_EQ(number, expected);
  }
  std::string text;
  ASSERT_TRUE(reader.text16(text));
  EXPECT_EQ(text, std::string("a\0b", 3));
  ASSERT_TRUE(reader.biasedText(text, 200));
  EXPECT_EQ(text, "text");
  Bytes block;
  ASSERT_TRUE(reader.block(block, 3));
  EXPECT_EQ(block, (Bytes{1, 2, 3}));
  EXPECT_EQ(reader.remaining(), 0);
  EXPECT_EQ(reader.failures(), 0);
}

template <class T>
T converted(Tag tag, double value) {
  Bytes image;
  SlotWriter(image).slot(tag, value);
  T out{};
  EXPECT_TRUE(SlotReader(image).number(out));
  return out;
}

TEST(Slots, NumbersAreBroughtToTheNearestOfTheirTarget) {
  EXPECT_EQ(converted<std::uint8_t>(Tag::i4, -5), 0);
  EXPECT_EQ(converted<std::int16_t>(Tag::i4, 70000), 32767);
  EXPECT_EQ(converted<std::int32_t>(Tag::r4, std::numeric_limits<float>::infinity()), 2147483647);
  EXPECT_EQ(converted<std::int32_t>(Tag::r4, NAN), 0);
  EXPECT_EQ(converted<std::int16_t>(Tag::r4, 2.5), 2);
  EXPECT_EQ(converted<std::int16_t>(Tag::r4, -3.5), -4);
  EXPECT_TRUE(converted<bool>(Tag::i2, 256));
  EXPECT_EQ(converted<double>(Tag::i2, 99999), 32767);
  EXPECT_EQ(converted<double>(Tag::ui1, 300), 255);
}

TEST(Slots, ATextSlotCountsAsItsLeadingNumber) {
  const Bytes image{8, 0, 4, 0, ' ', '1', '2', 'x'};
  int number = 0;
  SlotReader reader(image);
  EXPECT_TRUE(reader.number(number));
  EXPECT_EQ(number, 12);
  EXPECT_EQ(reader.position(), 17);
}

TEST(Slots, TheLastSlotMayEndBehindItsValue) {
  const Bytes image{2, 0, 9, 0};
  int number = 0;
  EXPECT_TRUE(SlotReader(image).number(number));
  EXPECT_EQ(number, 9);
}

TEST(Slots, FailuresAreCountedAndLeaveTheTarget) {
  struct Case {
    Bytes image;
    std::int64_t position;
  };
  for (const auto& [image, position] : {Case{{}, 1},
                                        {{2, 0, 9}, 1},
                                        {{99, 0, 1, 0, 0, 0}, 1},
                                        {{8, 0, 0xFF, 0xFF, 1, 1}, 1},  // a negative count
                                        {{8, 0, 3, 0, 'a', 'b'}, 1},
                                        {{2, 0, 9, 0}, 0},
                                        {{2, 0, 9, 0}, -20},
                                        {{2, 0, 9, 0}, std::numeric_limits<std::int64_t>::max() - 3}}) {
    SlotReader reader(image, position);
    int number = 42;
    EXPECT_FALSE(reader.number(number));
    EXPECT_EQ(number, 42);
    EXPECT_EQ(reader.failures(), 1);
    EXPECT_TRUE(position > 100 || reader.position() == position + 16);
  }
}

TEST(Slots, FalseCountsFailWhereTheyStand) {
  const Bytes image{0xFF, 0xFF, 1, 2};
  std::string text = "kept";
  Bytes block{9};
  SlotReader reader(image);
  EXPECT_FALSE(reader.text16(text));
  EXPECT_FALSE(reader.biasedText(text, 0));
  EXPECT_FALSE(reader.block(block, 5));
  EXPECT_FALSE(reader.block(block, -1));
  EXPECT_FALSE(reader.block(block, std::numeric_limits<std::int64_t>::max()));
  EXPECT_EQ(text, "kept");
  EXPECT_EQ(block, Bytes{9});
  EXPECT_EQ(reader.position(), 1);
  EXPECT_EQ(reader.failures(), 5);
  const Bytes below{5, 0, 'a', 'b', 'c', 'd', 'e'};
  EXPECT_FALSE(SlotReader(below).biasedText(text, 6));  // a length of -1
}

TEST(Slots, TextsTooLongForTheirFieldAreCut) {
  const std::string longText(70000, 'x');
  Bytes image;
  SlotWriter writer(image);
  EXPECT_EQ(writer.text16(longText), 70000u - 32767u);
  EXPECT_EQ(writer.biasedText(longText, 35), 70000u - 65500u);
  SlotReader reader(image);
  std::string text;
  ASSERT_TRUE(reader.text16(text));
  EXPECT_EQ(text.size(), 32767u);
  ASSERT_TRUE(reader.biasedText(text, 35));
  EXPECT_EQ(text.size(), 65500u);
}

TEST(Slots, ValuesOutsideSlotsKeepTheirTag) {
  Bytes image;
  appendTextValue(image, "pass");
  appendByteValue(image, 7);
  EXPECT_EQ(image, (Bytes{8, 0, 4, 0, 'p', 'a', 's', 's', 17, 0, 7}));
  SlotReader reader(image);
  std::string text;
  std::uint8_t byte = 0;
  EXPECT_FALSE(readByteValue(reader, byte));
  EXPECT_TRUE(readTextValue(reader, text));
  EXPECT_EQ(text, "pass");
  EXPECT_FALSE(readTextValue(reader, text));
  EXPECT_TRUE(readByteValue(reader, byte));
  EXPECT_EQ(byte, 7);
  EXPECT_EQ(reader.failures(), 2);
}

}  // namespace
}  // namespace plinth
