// The binary elements that project file, payload and reports are made of, over a byte image with a 1-based
// position: 16-byte slots that say their type, strings, raw bytes and embedded files. One order, one place:
// each format is a walk(archive, rows) template; SlotReader and SlotWriter are what its archives stand on.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace plinth {

using Bytes = std::vector<std::uint8_t>;

// Type tags of a slot.
enum class Tag : std::uint16_t { i2 = 2, i4 = 3, r4 = 4, text = 8, boolean = 11, ui1 = 17 };
inline constexpr std::int64_t kSlotSize = 16;

// What a slot holds. A boolean is kept as 0 or -1 in `number`.
struct SlotValue {
  Tag tag = Tag::i2;
  double number = 0;  // exact for every numeric tag
  std::string text;   // tag 8 only
};

// Reads elements at a position. Failing reads (bytes missing, unknown tag, negative count) return false,
// leave the target as it stands and count one failure; the position then moves by the element's fixed part
// when that is known (slots: 16) and stays otherwise.
class SlotReader {
 public:
  explicit SlotReader(std::span<const std::uint8_t> bytes, std::int64_t position = 1);

  std::int64_t position() const { return position_; }  // 1-based
  void seek(std::int64_t position) { position_ = position; }
  std::int64_t remaining() const;  // bytes from the position to the end, never negative
  int failures() const { return failures_; }

  // A slot; the tag found decides, not an expected one. The last slot of a file may end right behind its
  // value.
  bool slot(SlotValue& value);
  // A numeric slot converted to T: out-of-range numbers are brought to T's nearest value, NaN reads as 0; a
  // boolean target is true for any number but 0; a text slot counts as its leading number.
  template <class T>
  bool number(T& value);
  // Signed 16-bit count and that many bytes (project file, reports). A negative count fails.
  bool text16(std::string& value);
  // Unsigned 16-bit field less `bias`, and that many bytes (payload). A negative difference fails.
  bool biasedText(std::string& value, std::uint8_t bias);
  // Raw bytes.
  bool byte(std::uint8_t& value);
  bool i32(std::int32_t& value);
  // `count` bytes; fails without allocating when fewer are left or count is negative.
  bool block(Bytes& value, std::int64_t count);

 private:
  friend bool readTextValue(SlotReader& reader, std::string& text);
  friend bool readByteValue(SlotReader& reader, std::uint8_t& value);
  bool fail();
  const std::uint8_t* here() const { return bytes_.data() + (position_ - 1); }
  bool slotNumber(double& value);
  bool counted(std::string& value, std::int64_t fixedPart, std::int64_t count);
  std::span<const std::uint8_t> bytes_;
  std::int64_t position_;
  int failures_ = 0;
};

// Writes elements into an image that may already hold an older file: bytes that no element writes stay as
// they were, the image grows with zeros as needed and is never cut.
class SlotWriter {
 public:
  explicit SlotWriter(Bytes& image, std::int64_t position = 1);

  std::int64_t position() const { return position_; }  // 1-based
  void seek(std::int64_t position) { position_ = position; }

  // One number in its self-describing form, rounded to even and brought to the tag's nearest value; then the
  // position moves by 16 (the rest of the slot is left alone, but the image is grown to the slot's end).
  // REQUIRES a numeric tag.
  void slot(Tag tag, double number);
  // Count and bytes; longer than 32767 is cut to that. Returns the bytes cut off (0 when all went out).
  std::size_t text16(std::string_view text);
  // 16-bit field of length + bias; cut so that the field fits. Returns the bytes cut off.
  std::size_t biasedText(std::string_view text, std::uint8_t bias);
  void byte(std::uint8_t value);
  void i32(std::int32_t value);
  void block(std::span<const std::uint8_t> bytes);

 private:
  std::uint8_t* grow(std::int64_t count);
  void put(std::span<const std::uint8_t> bytes);
  std::size_t counted(std::string_view text, std::size_t limit, std::size_t bias);
  Bytes& image_;
  std::int64_t position_;
};

extern template bool SlotReader::number(bool&);
extern template bool SlotReader::number(std::uint8_t&);
extern template bool SlotReader::number(std::int16_t&);
extern template bool SlotReader::number(std::int32_t&);
extern template bool SlotReader::number(float&);
extern template bool SlotReader::number(double&);

// A self-describing value outside a slot, as the .cfg file keeps texts: tag 8, signed 16-bit length, bytes.
void appendTextValue(Bytes& image, std::string_view text);
bool readTextValue(SlotReader& reader, std::string& text);
// Tag 17 and one byte.
void appendByteValue(Bytes& image, std::uint8_t value);
bool readByteValue(SlotReader& reader, std::uint8_t& value);

}  // namespace plinth
