// Little-endian elements, put together byte by byte so that neither alignment nor the machine's byte order
// matters. Every length is compared with the bytes left before anything is allocated or read.
#include "basic/Slots.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstring>
#include <limits>
#include <type_traits>

#include "basic/NumberReader.h"

namespace plinth {
namespace {

constexpr std::int64_t kTagSize = 2;
constexpr std::int64_t kCountSize = 2;
constexpr std::size_t kLongestText = 32767;
constexpr std::size_t kHighestField = 65535;

std::uint16_t u16At(const std::uint8_t* p) { return static_cast<std::uint16_t>(p[0] | p[1] << 8); }
std::int16_t i16At(const std::uint8_t* p) { return static_cast<std::int16_t>(u16At(p)); }
std::uint32_t u32At(const std::uint8_t* p) { return u16At(p) | std::uint32_t{u16At(p + 2)} << 16; }

void putUnsigned(std::uint8_t* p, std::uint32_t value, int bytes) {
  for (int i = 0; i < bytes; ++i) p[i] = static_cast<std::uint8_t>(value >> 8 * i);
}

// Bytes of a tag's value in a slot, for texts those of the count; 0 for a tag that nobody writes.
std::int64_t valueSize(std::uint16_t tag) {
  switch (static_cast<Tag>(tag)) {
    case Tag::i2:
    case Tag::boolean:
    case Tag::text:
      return 2;
    case Tag::i4:
    case Tag::r4:
      return 4;
    case Tag::ui1:
      return 1;
  }
  return 0;
}

// REQUIRES a numeric tag and its bytes.
double numberAt(Tag tag, const std::uint8_t* p) {
  switch (tag) {
    case Tag::i2:
      return i16At(p);
    case Tag::i4:
      return static_cast<std::int32_t>(u32At(p));
    case Tag::r4:
      return std::bit_cast<float>(u32At(p));
    case Tag::ui1:
      return p[0];
    case Tag::boolean:
      return u16At(p) ? -1 : 0;
    case Tag::text:
      break;
  }
  return 0;
}

template <class T>
T convertTo(double number) {
  if constexpr (std::is_same_v<T, bool>) {
    return number != 0;
  } else if constexpr (std::is_same_v<T, double>) {
    return std::isnan(number) ? 0 : number;
  } else {
    if (std::isnan(number)) return T{};
    if constexpr (std::is_integral_v<T>) number = std::nearbyint(number);
    constexpr double low = std::numeric_limits<T>::lowest();
    constexpr double high = std::numeric_limits<T>::max();
    return static_cast<T>(std::clamp(number, low, high));
  }
}

// A position far outside the image stays what it is instead of running over.
std::int64_t moved(std::int64_t position, std::int64_t by) {
  return position > std::numeric_limits<std::int64_t>::max() - by ? position : position + by;
}

}  // namespace

SlotReader::SlotReader(std::span<const std::uint8_t> bytes, std::int64_t position)
    : bytes_(bytes), position_(position) {}

std::int64_t SlotReader::remaining() const {
  const auto size = static_cast<std::int64_t>(bytes_.size());
  return position_ < 1 || position_ > size ? 0 : size - position_ + 1;
}

bool SlotReader::fail() {
  ++failures_;
  return false;
}

bool SlotReader::slot(SlotValue& value) {
  const std::int64_t left = remaining();
  const std::int64_t start = position_;
  position_ = moved(position_, kSlotSize);
  if (left < kTagSize) return fail();
  const std::uint8_t* p = bytes_.data() + (start - 1);
  const std::uint16_t tag = u16At(p);
  const std::int64_t size = valueSize(tag);
  if (size == 0 || left < kTagSize + size) return fail();
  p += kTagSize;
  if (static_cast<Tag>(tag) != Tag::text) {
    value.tag = static_cast<Tag>(tag);
    value.number = numberAt(value.tag, p);
    value.text.clear();
    return true;
  }
  const std::int16_t count = i16At(p);
  if (count < 0 || left < kTagSize + kCountSize + count) return fail();
  value.tag = Tag::text;
  value.number = 0;
  value.text.assign(reinterpret_cast<const char*>(p + kCountSize), static_cast<std::size_t>(count));
  return true;
}

bool SlotReader::slotNumber(double& value) {
  // Whole numeric slots are nearly all of a file: they skip the SlotValue and its string.
  if (remaining() >= kSlotSize) {
    const std::uint8_t* p = here();
    const std::uint16_t tag = u16At(p);
    if (static_cast<Tag>(tag) != Tag::text && valueSize(tag) != 0) {
      value = numberAt(static_cast<Tag>(tag), p + kTagSize);
      position_ += kSlotSize;
      return true;
    }
  }
  SlotValue found;
  if (!slot(found)) return false;
  value = found.tag == Tag::text ? val(found.text) : found.number;
  return true;
}

template <class T>
bool SlotReader::number(T& value) {
  double found = 0;
  if (!slotNumber(found)) return false;
  value = convertTo<T>(found);
  return true;
}

template bool SlotReader::number(bool&);
template bool SlotReader::number(std::uint8_t&);
template bool SlotReader::number(std::int16_t&);
template bool SlotReader::number(std::int32_t&);
template bool SlotReader::number(float&);
template bool SlotReader::number(double&);

bool SlotReader::counted(std::string& value, std::int64_t fixedPart, std::int64_t count) {
  if (count < 0 || remaining() < fixedPart + count) return fail();
  value.assign(reinterpret_cast<const char*>(here() + fixedPart), static_cast<std::size_t>(count));
  position_ += fixedPart + count;
  return true;
}

bool SlotReader::text16(std::string& value) {
  return remaining() < kCountSize ? fail() : counted(value, kCountSize, i16At(here()));
}

bool SlotReader::biasedText(std::string& value, std::uint8_t bias) {
  return remaining() < kCountSize ? fail() : counted(value, kCountSize, u16At(here()) - std::int64_t{bias});
}

bool SlotReader::byte(std::uint8_t& value) {
  if (remaining() < 1) return fail();
  value = *here();
  ++position_;
  return true;
}

bool SlotReader::i32(std::int32_t& value) {
  if (remaining() < 4) return fail();
  value = static_cast<std::int32_t>(u32At(here()));
  position_ += 4;
  return true;
}

bool SlotReader::block(Bytes& value, std::int64_t count) {
  if (count < 0 || remaining() < count) return fail();
  if (count == 0) {
    value.clear();
    return true;
  }
  value.assign(here(), here() + count);
  position_ += count;
  return true;
}

SlotWriter::SlotWriter(Bytes& image, std::int64_t position) : image_(image), position_(position) {}

// Makes room for `count` bytes at the position. Returns where they go, nullptr before the image's first byte.
std::uint8_t* SlotWriter::grow(std::int64_t count) {
  if (position_ < 1) return nullptr;
  const auto end = static_cast<std::size_t>(position_ - 1 + count);
  if (image_.size() < end) image_.resize(end);
  return image_.data() + (position_ - 1);
}

void SlotWriter::put(std::span<const std::uint8_t> bytes) {
  std::uint8_t* p = grow(static_cast<std::int64_t>(bytes.size()));
  if (p && !bytes.empty()) std::memcpy(p, bytes.data(), bytes.size());
  position_ += static_cast<std::int64_t>(bytes.size());
}

void SlotWriter::slot(Tag tag, double number) {
  if (std::uint8_t* p = grow(kSlotSize)) {
    putUnsigned(p, static_cast<std::uint16_t>(tag), 2);
    p += kTagSize;
    switch (tag) {
      case Tag::i2:
        putUnsigned(p, static_cast<std::uint16_t>(convertTo<std::int16_t>(number)), 2);
        break;
      case Tag::i4:
        putUnsigned(p, static_cast<std::uint32_t>(convertTo<std::int32_t>(number)), 4);
        break;
      case Tag::r4:
        putUnsigned(p, std::bit_cast<std::uint32_t>(convertTo<float>(number)), 4);
        break;
      case Tag::ui1:
        putUnsigned(p, convertTo<std::uint8_t>(number), 1);
        break;
      case Tag::boolean:
        putUnsigned(p, convertTo<bool>(number) ? 0xFFFF : 0, 2);
        break;
      case Tag::text:
        putUnsigned(p, 0, 2);
        break;
    }
  }
  position_ += kSlotSize;
}

std::size_t SlotWriter::counted(std::string_view text, std::size_t limit, std::size_t bias) {
  const std::size_t length = std::min(text.size(), limit);
  std::uint8_t field[2];
  putUnsigned(field, static_cast<std::uint32_t>(length + bias), 2);
  put(field);
  put({reinterpret_cast<const std::uint8_t*>(text.data()), length});
  return text.size() - length;
}

std::size_t SlotWriter::text16(std::string_view text) { return counted(text, kLongestText, 0); }

std::size_t SlotWriter::biasedText(std::string_view text, std::uint8_t bias) {
  return counted(text, kHighestField - bias, bias);
}

void SlotWriter::byte(std::uint8_t value) { put({&value, 1}); }

void SlotWriter::i32(std::int32_t value) {
  std::uint8_t bytes[4];
  putUnsigned(bytes, static_cast<std::uint32_t>(value), 4);
  put(bytes);
}

void SlotWriter::block(std::span<const std::uint8_t> bytes) { put(bytes); }

void appendTextValue(Bytes& image, std::string_view text) {
  const std::uint8_t tag[2] = {static_cast<std::uint8_t>(Tag::text), 0};
  SlotWriter writer(image, static_cast<std::int64_t>(image.size()) + 1);
  writer.block(tag);
  writer.text16(text);
}

bool readTextValue(SlotReader& reader, std::string& text) {
  constexpr std::int64_t fixedPart = kTagSize + kCountSize;
  if (reader.remaining() < fixedPart || u16At(reader.here()) != static_cast<std::uint16_t>(Tag::text)) {
    return reader.fail();
  }
  return reader.counted(text, fixedPart, i16At(reader.here() + kTagSize));
}

void appendByteValue(Bytes& image, std::uint8_t value) {
  image.insert(image.end(), {static_cast<std::uint8_t>(Tag::ui1), 0, value});
}

bool readByteValue(SlotReader& reader, std::uint8_t& value) {
  constexpr std::int64_t size = kTagSize + 1;
  if (reader.remaining() < size || u16At(reader.here()) != static_cast<std::uint16_t>(Tag::ui1)) {
    return reader.fail();
  }
  value = reader.here()[kTagSize];
  reader.position_ += size;
  return true;
}

}  // namespace plinth
