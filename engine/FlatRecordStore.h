// Records in one flat file of fixed-length slots, cut into numbered segment files when it grows: any record
// is one positioned read away. docs/formats/data.md has the picture.
#pragma once

#include <memory>
#include <string>

#include "basic/Slots.h"
#include "engine/RecordCodec.h"
#include "engine/RecordStore.h"
#include "platform/Files.h"
#include "platform/SharedFile.h"

namespace plinth {

inline constexpr std::int64_t kSegmentBytes = 2'140'000'000;

class FlatRecordStore : public RecordStore {
 public:
  // Opens or makes request.path and finds its segments. segmentBytes: the length that segments are cut by; a
  // parameter so that tests reach the second segment. Errors: notFound, denied, locked, damaged (record too
  // long), failed. `files` and `sharedFiles`, the application and the locale must outlive the store.
  static Result<std::unique_ptr<FlatRecordStore>> open(SharedFiles& sharedFiles, Files& files,
                                                       const Application& application, const Locale& locale,
                                                       const StoreRequest& request,
                                                       std::int64_t segmentBytes = kSegmentBytes);

  bool readOnly() const override { return readOnly_; }
  std::int32_t count() const override { return count_; }
  Result<std::int32_t> refreshCount() override;
  Result<void> load(std::int32_t record, RecordForm& form) override;
  Result<void> save(std::int32_t record, const RecordForm& form) override;
  Result<void> lock(std::int32_t record) override;
  void unlock(std::int32_t record) override;
  Result<std::int32_t> append() override;
  const RecordLayout& layout() const override { return codec_.layout(); }
  Result<std::int32_t> readSlots(std::int32_t first, std::span<std::uint8_t> slots) override;
  Result<void> readPart(std::int32_t record, std::int32_t position, std::span<std::uint8_t> bytes) override;
  Result<void> writePart(std::int32_t record, std::int32_t position,
                         std::span<const std::uint8_t> bytes) override;
  std::int32_t pictureCounter() const override { return pictureCounter_; }
  Result<void> setPictureCounter(std::int32_t value) override;
  double created() const override { return created_; }

  std::int32_t recLen() const { return codec_.layout().recLen; }
  // Record slots of one segment file (SegRecs) and number of the highest segment (LastSeg).
  std::int64_t segmentRecords() const { return segRecs_; }
  int lastSegment() const { return lastSeg_; }

 private:
  FlatRecordStore(SharedFiles& sharedFiles, Files& files, RecordCodec codec, const StoreRequest& request,
                  std::int64_t segmentBytes);
  struct Slot {
    int segment;
    std::int64_t offset;  // 0-based in the segment file
  };
  Slot slotOf(std::int32_t record) const;
  std::string segmentPath(int segment) const;
  Result<void> openSegment(int segment);
  Result<SharedFile*> passSegment(int segment);
  Result<Slot> existingSlot(std::int32_t record, std::int32_t position, std::size_t count) const;
  Result<void> lockFirst();
  void unlockFirst();
  Result<void> writeHeader(const StoreRequest& request);
  Result<void> readHeader(const StoreRequest& request);
  void findSegments();
  // Whether the header in front of record 1 has room for PicCounter.
  bool keepsCounter() const { return recLen() > 13; }

  SharedFiles& sharedFiles_;
  Files& files_;
  RecordCodec codec_;
  std::string path_, base_;  // base_: path without "." and extension
  bool readOnly_ = false;
  std::int64_t segRecs_ = 1, maxRecords_ = 1;
  int lastSeg_ = 0, openSeg_ = -1;
  std::unique_ptr<SharedFile> file_;
  // Passes over many records have a handle of their own: turning to another segment gives up no lock.
  std::unique_ptr<SharedFile> passFile_;
  int passSeg_ = -1;
  std::int32_t count_ = 0, pictureCounter_ = 0, locked_ = 0;
  bool makingFirst_ = false;  // the lock on making record 1 is held
  double created_ = 0;
  Bytes buffer_;
};

// The opener of sessions for flat files.
StoreOpener flatStoreOpener(SharedFiles& sharedFiles, Files& files,
                            std::int64_t segmentBytes = kSegmentBytes);

}  // namespace plinth
