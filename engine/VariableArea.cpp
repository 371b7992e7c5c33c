// Two counted lists. The reader trusts no count: it ends where the bytes end. The writer keeps the room of
// the picture count free, so that a full list of labels cannot push it out of the slot.
#include "engine/VariableArea.h"

#include <cstring>

#include "basic/Text.h"
#include "engine/RecordLayout.h"

namespace plinth {
namespace {

constexpr std::size_t kLabelSize = 24;  // without its text
constexpr std::size_t kPictureSize = 25;
// More than ever fit the area; a person's patience ends earlier.
constexpr int kMaxObjects = kVariableAreaSize / static_cast<int>(kLabelSize);

class AreaReader {
 public:
  explicit AreaReader(std::span<const std::uint8_t> bytes) : bytes_(bytes) {}
  bool has(std::size_t count) const { return bytes_.size() - position_ >= count; }
  int byte() { return bytes_[position_++]; }
  std::int32_t i32() {
    std::uint32_t value = 0;
    for (int i = 0; i < 4; ++i) value |= static_cast<std::uint32_t>(bytes_[position_++]) << (8 * i);
    return static_cast<std::int32_t>(value);
  }
  std::string text(std::size_t count) {
    std::string value(reinterpret_cast<const char*>(bytes_.data()) + position_, count);
    position_ += count;
    return value;
  }

 private:
  std::span<const std::uint8_t> bytes_;
  std::size_t position_ = 0;
};

class AreaWriter {
 public:
  explicit AreaWriter(std::span<std::uint8_t> bytes) : bytes_(bytes) {}
  std::size_t position() const { return position_; }
  std::size_t left() const { return bytes_.size() - position_; }
  void byte(int value) { bytes_[position_++] = static_cast<std::uint8_t>(value); }
  void i32(std::int32_t value) {
    putAt(position_, value);
    position_ += 4;
  }
  void putAt(std::size_t at, std::int32_t value) {
    for (std::size_t i = 0; i < 4; ++i)
      bytes_[at + i] = static_cast<std::uint8_t>(static_cast<std::uint32_t>(value) >> (8 * i));
  }
  void text(const std::string& value) {
    std::memcpy(bytes_.data() + position_, value.data(), value.size());
    position_ += value.size();
  }

 private:
  std::span<std::uint8_t> bytes_;
  std::size_t position_ = 0;
};

int pageByte(int value) { return value == 255 ? -1 : value; }

// 100 (underline alone) is not among the known styles: such a label keeps the style of its object. Data files
// out there rely on it.
void decodeStyle(int style, VariableLabel& label) {
  switch (style) {
    case 0:
    case 1:
    case 10:
    case 11:
    case 101:
    case 110:
    case 111:
      label.bold = style % 10 == 1;
      label.italic = style / 10 % 10 == 1;
      label.underline = style >= 100;
      break;
    default:
      break;
  }
}

bool readLabel(AreaReader& in, VariableLabel& label) {
  if (!in.has(kLabelSize)) return false;
  label.page = pageByte(in.byte());
  decodeStyle(in.byte(), label);
  label.fontSize = in.byte();
  label.charSet = in.byte();
  const std::int32_t length = in.i32();
  if (length < 0 || !in.has(static_cast<std::size_t>(length) + 16)) return false;
  label.text = in.text(static_cast<std::size_t>(length));
  label.foreColor = in.i32();
  label.left = in.i32();
  label.top = in.i32();
  label.width = in.i32();
  label.visible = true;
  return true;
}

bool readPicture(AreaReader& in, VariablePicture& picture) {
  if (!in.has(kPictureSize)) return false;
  picture.page = pageByte(in.byte());
  for (std::int32_t* value :
       {&picture.left, &picture.top, &picture.width, &picture.height, &picture.image, &picture.second})
    *value = in.i32();
  picture.visible = true;
  return true;
}

// A list of `objects`, reusing those that exist; false when its count or an object is not whole.
template <class Object, class Read>
bool readList(AreaReader& in, std::vector<Object>& objects, Read read) {
  if (!in.has(4)) return false;
  const std::int32_t count = in.i32();
  if (count < 0 || count > kMaxObjects) return false;
  for (std::int32_t i = 0; i < count; ++i) {
    if (static_cast<std::size_t>(i) == objects.size()) objects.emplace_back();
    if (!read(in, objects[static_cast<std::size_t>(i)])) return false;
  }
  return true;
}

}  // namespace

void readVariableArea(std::span<const std::uint8_t> area, RecordForm& form) {
  for (VariableLabel& label : form.labels) label.visible = false;
  for (VariablePicture& picture : form.variablePictures) picture.visible = false;
  AreaReader in(area);
  if (readList(in, form.labels, readLabel)) readList(in, form.variablePictures, readPicture);
}

int writeVariableArea(const RecordForm& form, std::span<std::uint8_t> area) {
  AreaWriter out(area);
  if (area.size() < 8) return 0;
  int dropped = 0;
  std::int32_t count = 0;
  out.i32(0);
  bool room = true;
  for (const VariableLabel& label : form.labels) {
    if (!label.visible || trim(label.text).empty()) continue;
    room = room && count < kMaxObjects && out.left() >= kLabelSize + label.text.size() + 4;
    if (!room) {
      ++dropped;
      continue;
    }
    out.byte(label.page);
    out.byte((label.bold ? 1 : 0) + (label.italic ? 10 : 0) + (label.underline ? 100 : 0));
    out.byte(label.fontSize);
    out.byte(label.charSet);
    out.i32(static_cast<std::int32_t>(label.text.size()));
    out.text(label.text);
    for (const std::int32_t value : {label.foreColor, label.left, label.top, label.width}) out.i32(value);
    ++count;
  }
  out.putAt(0, count);
  const std::size_t countAt = out.position();
  count = 0;
  out.i32(0);
  for (const VariablePicture& picture : form.variablePictures) {
    if (!picture.visible) continue;
    if (out.left() < kPictureSize || count >= kMaxObjects) {
      ++dropped;
      continue;
    }
    out.byte(picture.page);
    for (const std::int32_t value :
         {picture.left, picture.top, picture.width, picture.height, picture.image, picture.second})
      out.i32(value);
    ++count;
  }
  out.putAt(countAt, count);
  return dropped;
}

}  // namespace plinth
