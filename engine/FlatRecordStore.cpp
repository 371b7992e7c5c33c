// One handle is open at a time, on the segment of the last record that was touched; staying within a segment
// costs no more than the read or write itself.
#include "engine/FlatRecordStore.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <limits>
#include <span>

#include "basic/DisplayFormat.h"
#include "basic/FileName.h"

namespace plinth {
namespace {

constexpr std::int64_t kSmallestFile = 9;   // shorter ones have no header yet
constexpr std::int64_t kCounterOffset = 9;  // PicCounter, over characters of the title
constexpr std::int64_t kRecLenOffset = 15;
constexpr int kMaxSegments = 9999;  // four digits in a name
constexpr int kAppendTries = 1000;
// Record 1 is never locked. While it is being made, a byte that no segment reaches keeps others from making
// it as well.
constexpr std::int64_t kFirstRecordLock = 2'147'483'646;

void putI32(std::span<std::uint8_t> bytes, std::int64_t offset, std::int32_t value) {
  for (int i = 0; i < 4; ++i) {
    const std::size_t at = static_cast<std::size_t>(offset + i);
    if (at < bytes.size())
      bytes[at] = static_cast<std::uint8_t>(static_cast<std::uint32_t>(value) >> (8 * i));
  }
}

// A record ends in a blank at least; the system fills what writers leave out with zeros.
bool isWritten(std::span<const std::uint8_t> slot) {
  return std::any_of(slot.begin(), slot.end(), [](std::uint8_t byte) { return byte != 0; });
}

}  // namespace

FlatRecordStore::FlatRecordStore(SharedFiles& sharedFiles, Files& files, RecordCodec codec,
                                 const StoreRequest& request, std::int64_t segmentBytes)
    : sharedFiles_(sharedFiles),
      files_(files),
      codec_(std::move(codec)),
      path_(request.path),
      base_(withoutExtension(request.path)),
      readOnly_(request.readOnly) {
  segRecs_ = std::max<std::int64_t>(1, segmentBytes / recLen() - 1);
  maxRecords_ =
      std::min<std::int64_t>(segmentBytes / segRecs_ * segRecs_, std::numeric_limits<std::int32_t>::max());
  buffer_.resize(static_cast<std::size_t>(recLen()));
}

Result<std::unique_ptr<FlatRecordStore>> FlatRecordStore::open(SharedFiles& sharedFiles, Files& files,
                                                               const Application& application,
                                                               const Locale& locale,
                                                               const StoreRequest& request,
                                                               std::int64_t segmentBytes) {
  const Result<RecordLayout> layout = computeLayout(application);
  if (!layout) return layout.error();
  if (!request.create && !files.exists(request.path))
    return Error{ErrorKind::notFound, request.path + " does not exist."};
  std::unique_ptr<FlatRecordStore> store(new FlatRecordStore(
      sharedFiles, files, RecordCodec(application, *layout, locale), request, segmentBytes));
  if (auto opened = store->openSegment(0); !opened) return opened.error();
  if (auto header = store->readHeader(request); !header) return header.error();
  store->findSegments();
  if (auto counted = store->refreshCount(); !counted) return counted.error();
  return store;
}

// A record whose number is a multiple of segRecs_ is the last of the segment before: slot 0 would lie in
// front of the file.
FlatRecordStore::Slot FlatRecordStore::slotOf(std::int32_t record) const {
  const std::int64_t segment = (static_cast<std::int64_t>(record) - 1) / segRecs_;
  const std::int64_t slot = record - segment * segRecs_;
  return {static_cast<int>(segment), slot * recLen() - 1};
}

std::string FlatRecordStore::segmentPath(int segment) const {
  return segment == 0 ? path_ : base_ + zeroPadded(segment, 4);
}

Result<void> FlatRecordStore::openSegment(int segment) {
  if (file_ && segment == openSeg_) return {};
  auto file = sharedFiles_.open(segmentPath(segment), readOnly_ ? OpenMode::readOnly : OpenMode::readWrite);
  if (!file) return file.error();
  // Closing the old handle gives up its lock.
  file_ = std::move(*file);
  openSeg_ = segment;
  locked_ = 0;
  makingFirst_ = false;
  return {};
}

Result<void> FlatRecordStore::readHeader(const StoreRequest& request) {
  const Result<std::int64_t> size = file_->size();
  if (!size) return size.error();
  if (*size < kSmallestFile && !readOnly_) {
    if (auto written = writeHeader(request); !written) return written.error();
  }
  // Small files may hold fewer bytes than the header's values: those count as 0.
  std::array<std::uint8_t, 13> header{};
  if (const auto read = file_->read(0, header); !read) return read.error();
  // In front of a very short record there is no room for them.
  if (recLen() <= 8) return {};
  std::memcpy(&created_, header.data(), 8);
  if (!(created_ >= 0 && created_ < 3e6)) created_ = 0;
  if (!keepsCounter()) return {};
  std::uint32_t counter = 0;
  for (std::size_t i = 0; i < 4; ++i)
    counter |= static_cast<std::uint32_t>(header[kCounterOffset + i]) << (8 * i);
  pictureCounter_ = static_cast<std::int32_t>(counter);
  return {};
}

// The header is exactly the bytes in front of the first slot, so that the first record is number 1; what does
// not fit is left out.
Result<void> FlatRecordStore::writeHeader(const StoreRequest& request) {
  Bytes header(static_cast<std::size_t>(recLen() - 1));
  const double today = std::floor(request.today);
  if (header.empty()) return {};  // nothing of this application is stored: record 1 begins the file
  std::memcpy(header.data(), &today, std::min<std::size_t>(8, header.size()));
  putI32(header, kRecLenOffset, recLen());
  if (request.create && header.size() > 8) {
    std::fill(header.begin() + 8, header.end(), std::uint8_t{0});
    std::memcpy(header.data() + 8, request.title.data(), std::min(request.title.size(), header.size() - 8));
  }
  putI32(header, kCounterOffset, 0);
  return file_->write(0, header);
}

void FlatRecordStore::findSegments() {
  lastSeg_ = 0;
  while (lastSeg_ < kMaxSegments && files_.exists(segmentPath(lastSeg_ + 1))) ++lastSeg_;
}

Result<std::int32_t> FlatRecordStore::refreshCount() {
  while (true) {
    if (auto opened = openSegment(lastSeg_); !opened) return opened.error();
    const Result<std::int64_t> size = file_->size();
    if (!size) return size.error();
    const std::int64_t records = lastSeg_ * segRecs_ + std::min(*size / recLen(), segRecs_);
    count_ = static_cast<std::int32_t>(std::min(records, maxRecords_));
    // A full segment may have got a successor from another user meanwhile.
    const bool full = records >= (static_cast<std::int64_t>(lastSeg_) + 1) * segRecs_;
    if (!full || lastSeg_ >= kMaxSegments || !files_.exists(segmentPath(lastSeg_ + 1))) return count_;
    ++lastSeg_;
  }
}

Result<void> FlatRecordStore::load(std::int32_t record, RecordForm& form) {
  if (record < 1) return Error{ErrorKind::notFound, "There is no record " + std::to_string(record) + "."};
  const Slot slot = slotOf(record);
  if (slot.segment > lastSeg_)
    return Error{ErrorKind::notFound, "There is no record " + std::to_string(record) + "."};
  if (auto opened = openSegment(slot.segment); !opened) return opened.error();
  const auto read = file_->read(slot.offset, buffer_);
  if (!read) return read.error();
  if (*read == 0) return Error{ErrorKind::notFound, "There is no record " + std::to_string(record) + "."};
  // Where locks do not stop reads the question is put, so that nobody works on a record that is being
  // changed.
  if (record > 1 && record != locked_) {
    const auto other = file_->lockedByOther(slot.offset, 1);
    if (other.ok() && *other)
      return Error{ErrorKind::locked, "Record " + std::to_string(record) + " is in use."};
  }
  // What nobody has written is 0, also where the bytes of records are substituted.
  const bool written = isWritten(std::span(buffer_).first(*read));
  std::fill(buffer_.begin() + static_cast<std::ptrdiff_t>(written ? *read : 0), buffer_.end(),
            codec_.unwrittenByte());
  codec_.decode(buffer_, form);
  return {};
}

Result<void> FlatRecordStore::save(std::int32_t record, const RecordForm& form) {
  if (record < 1) return Error{ErrorKind::wrongUsage, "There is no record " + std::to_string(record) + "."};
  if (readOnly_) return Error{ErrorKind::denied, "The data file is read-only."};
  const Slot slot = slotOf(record);
  if (auto opened = openSegment(slot.segment); !opened) return opened.error();
  codec_.encode(form, buffer_);
  if (auto written = file_->write(slot.offset, buffer_); !written) return written.error();
  lastSeg_ = std::max(lastSeg_, slot.segment);
  count_ = std::max(count_, record);
  if (record == 1) unlockFirst();
  return {};
}

Result<void> FlatRecordStore::lock(std::int32_t record) {
  if (readOnly_) return Error{ErrorKind::denied, "The data file is read-only."};
  if (record <= 1 || record == locked_) return {};
  unlock(locked_);
  const Slot slot = slotOf(record);
  if (auto opened = openSegment(slot.segment); !opened) return opened.error();
  if (auto locked = file_->lock(slot.offset, 1); !locked) return locked.error();
  locked_ = record;
  return {};
}

Result<void> FlatRecordStore::lockFirst() {
  if (auto opened = openSegment(0); !opened) return opened.error();
  auto locked = file_->lock(kFirstRecordLock, 1);
  makingFirst_ = locked.ok();
  return locked;
}

void FlatRecordStore::unlockFirst() {
  if (makingFirst_) static_cast<void>(file_->unlock(kFirstRecordLock, 1));
  makingFirst_ = false;
}

void FlatRecordStore::unlock(std::int32_t record) {
  if (record == 1) unlockFirst();
  if (record <= 1 || record != locked_) return;
  locked_ = 0;
  const Slot slot = slotOf(record);
  // The lock lives on the open handle; with another segment open it is gone already.
  if (file_ && slot.segment == openSeg_) static_cast<void>(file_->unlock(slot.offset, 1));
}

Result<SharedFile*> FlatRecordStore::passSegment(int segment) {
  if (!passFile_ || segment != passSeg_) {
    auto file = sharedFiles_.open(segmentPath(segment), readOnly_ ? OpenMode::readOnly : OpenMode::readWrite);
    if (!file) return file.error();
    passFile_ = std::move(*file);
    passSeg_ = segment;
  }
  return passFile_.get();
}

Result<std::int32_t> FlatRecordStore::readSlots(std::int32_t first, std::span<std::uint8_t> slots) {
  if (first < 1) return Error{ErrorKind::notFound, "There is no record " + std::to_string(first) + "."};
  const Slot slot = slotOf(first);
  if (slot.segment > lastSeg_) return 0;
  const auto file = passSegment(slot.segment);
  if (!file) return file.error();
  const auto wide = static_cast<std::size_t>(recLen());
  // Behind the last slot of a segment nothing is a record of its own.
  const std::int64_t left = (static_cast<std::int64_t>(slot.segment) + 1) * segRecs_ - first + 1;
  const std::size_t wanted =
      std::min<std::size_t>(slots.size() / wide, static_cast<std::size_t>(left)) * wide;
  const auto read = (*file)->read(slot.offset, slots.first(wanted));
  if (!read) return read.error();
  const std::size_t whole = *read / wide;
  if (const std::uint8_t unwritten = codec_.unwrittenByte(); unwritten != 0)
    for (std::size_t i = 0; i < whole; ++i)
      if (const auto bytes = slots.subspan(i * wide, wide); bytes[wide - 1] == 0 && !isWritten(bytes))
        std::fill(bytes.begin(), bytes.end(), unwritten);
  return static_cast<std::int32_t>(whole);
}

Result<FlatRecordStore::Slot> FlatRecordStore::existingSlot(std::int32_t record, std::int32_t position,
                                                            std::size_t count) const {
  const Slot slot = slotOf(std::max(1, record));
  const bool inside = position >= 0 && static_cast<std::int64_t>(position) +
                                               static_cast<std::int64_t>(count) <= recLen();
  if (record < 1 || record > count_ || slot.segment > lastSeg_ || !inside)
    return Error{ErrorKind::notFound, "There is no record " + std::to_string(record) + "."};
  return slot;
}

Result<void> FlatRecordStore::readPart(std::int32_t record, std::int32_t position,
                                       std::span<std::uint8_t> bytes) {
  const auto slot = existingSlot(record, position, bytes.size());
  if (!slot) return slot.error();
  const auto file = passSegment(slot->segment);
  if (!file) return file.error();
  const auto read = (*file)->read(slot->offset + position, bytes);
  if (!read) return read.error();
  if (*read < bytes.size())
    return Error{ErrorKind::notFound, "Record " + std::to_string(record) + " is cut off."};
  return {};
}

Result<void> FlatRecordStore::writePart(std::int32_t record, std::int32_t position,
                                        std::span<const std::uint8_t> bytes) {
  if (readOnly_) return Error{ErrorKind::denied, "The data file is read-only."};
  const auto slot = existingSlot(record, position, bytes.size());
  if (!slot) return slot.error();
  const auto file = passSegment(slot->segment);
  if (!file) return file.error();
  // A record that another user is changing would be overwritten as a whole when he saves it.
  if (record > 1) {
    const auto other = (*file)->lockedByOther(slot->offset, 1);
    if (other.ok() && *other)
      return Error{ErrorKind::locked, "Record " + std::to_string(record) + " is in use."};
  }
  return (*file)->write(slot->offset + position, bytes);
}

// Two users may append at once: whoever locks the slot first has the number, the other takes the next one.
// After the lock the slot is looked at, since the record may have been written between counting and locking;
// the file's length alone would not tell, because the other may have written the next one already.
Result<std::int32_t> FlatRecordStore::append() {
  if (readOnly_) return Error{ErrorKind::denied, "The data file is read-only."};
  unlock(locked_);
  std::int64_t next = 0;
  for (int attempt = 0; attempt < kAppendTries; ++attempt) {
    const auto counted = refreshCount();
    if (!counted) return counted.error();
    next = std::max<std::int64_t>(next, static_cast<std::int64_t>(*counted) + 1);
    if (next > maxRecords_) return Error{ErrorKind::full, kRecordLimitText};
    const std::int32_t record = static_cast<std::int32_t>(next);
    const Result<void> locked = record == 1 ? lockFirst() : lock(record);
    if (!locked && locked.error().kind != ErrorKind::locked) return locked.error();
    if (!locked) {
      ++next;
      continue;
    }
    const Slot slot = slotOf(record);
    const auto read = file_->read(slot.offset, buffer_);
    if (!read) return read.error();
    if (!isWritten(std::span(buffer_).first(*read))) {
      lastSeg_ = std::max(lastSeg_, slot.segment);
      return record;
    }
    unlock(record);
    count_ = std::max(count_, record);
  }
  return Error{ErrorKind::locked, "Too many users are adding records."};
}

Result<void> FlatRecordStore::setPictureCounter(std::int32_t value) {
  if (readOnly_) return Error{ErrorKind::denied, "The data file is read-only."};
  pictureCounter_ = value;
  if (!keepsCounter()) return {};
  std::array<std::uint8_t, 4> bytes{};
  putI32(bytes, 0, value);
  if (openSeg_ == 0) return file_->write(kCounterOffset, bytes);
  // Another handle, so that a lock on the open one stays.
  auto file = sharedFiles_.open(path_, OpenMode::readWrite);
  return file ? (*file)->write(kCounterOffset, bytes) : Result<void>(file.error());
}

StoreOpener flatStoreOpener(SharedFiles& sharedFiles, Files& files, std::int64_t segmentBytes) {
  return [&sharedFiles, &files, segmentBytes](const StoreRequest& request, const Application& application,
                                              const Locale& locale) -> Result<std::unique_ptr<RecordStore>> {
    auto store = FlatRecordStore::open(sharedFiles, files, application, locale, request, segmentBytes);
    if (!store) return store.error();
    return std::unique_ptr<RecordStore>(std::move(*store));
  };
}

}  // namespace plinth
