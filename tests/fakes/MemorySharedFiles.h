// Shared files in memory, with byte locks between all handles and a disk that can be full, failing or
// refusing.
#pragma once

#include <algorithm>
#include <memory>
#include <string>
#include <utility>

#include "platform/SharedFile.h"
#include "tests/fakes/MemoryDisk.h"

namespace plinth {

class MemorySharedFile : public SharedFile {
 public:
  MemorySharedFile(std::shared_ptr<MemoryDisk> disk, std::shared_ptr<MemoryFile> file, std::string path,
                   bool writable, bool mandatory)
      : disk_(std::move(disk)),
        file_(std::move(file)),
        path_(std::move(path)),
        writable_(writable),
        mandatory_(mandatory) {}
  ~MemorySharedFile() override { dropLocks(0, INT64_MAX); }
  MemorySharedFile(const MemorySharedFile&) = delete;
  MemorySharedFile& operator=(const MemorySharedFile&) = delete;

  Result<std::size_t> read(std::int64_t offset, std::span<std::uint8_t> bytes) override {
    if (disk_->failReads) return fail(*disk_->failReads);
    if (offset < 0) return fail(ErrorKind::wrongUsage);
    if (blocked(offset, bytes.size())) return fail(ErrorKind::locked);
    ++disk_->reads;
    const Bytes& all = file_->bytes;
    if (offset >= static_cast<std::int64_t>(all.size())) return std::size_t{0};
    const std::size_t count = std::min(bytes.size(), all.size() - static_cast<std::size_t>(offset));
    std::copy_n(all.begin() + offset, count, bytes.begin());
    return count;
  }
  Result<void> write(std::int64_t offset, std::span<const std::uint8_t> bytes) override {
    if (disk_->failWrites) return fail(*disk_->failWrites);
    if (!writable_) return fail(ErrorKind::denied);
    if (offset < 0) return fail(ErrorKind::wrongUsage);
    if (blocked(offset, bytes.size())) return fail(ErrorKind::locked);
    const std::size_t end = static_cast<std::size_t>(offset) + bytes.size();
    if (end > file_->bytes.size()) {
      if (!disk_->hasRoom(file_.get(), end)) return fail(ErrorKind::full);
      file_->bytes.resize(end);
    }
    ++disk_->writes;
    std::copy(bytes.begin(), bytes.end(), file_->bytes.begin() + offset);
    return {};
  }
  Result<std::int64_t> size() override { return static_cast<std::int64_t>(file_->bytes.size()); }
  Result<void> lock(std::int64_t offset, std::int64_t count) override {
    if (offset < 0 || count <= 0) return fail(ErrorKind::wrongUsage);
    if (file_->lockedByOther(this, offset, count)) return fail(ErrorKind::locked);
    file_->locks.push_back({this, offset, count});
    if (const auto other = std::exchange(disk_->onNextLock, nullptr)) other();
    return {};
  }
  Result<void> unlock(std::int64_t offset, std::int64_t count) override {
    dropLocks(offset, count);
    return {};
  }
  Result<bool> lockedByOther(std::int64_t offset, std::int64_t count) override {
    return file_->lockedByOther(this, offset, count);
  }

 private:
  Error fail(ErrorKind kind) const { return memoryError(kind, path_); }
  bool blocked(std::int64_t offset, std::size_t count) const {
    return mandatory_ && file_->lockedByOther(this, offset, static_cast<std::int64_t>(count));
  }
  // Only locks that lie within the range: callers unlock what they locked.
  void dropLocks(std::int64_t offset, std::int64_t count) {
    std::erase_if(file_->locks, [&](const MemoryLock& lock) {
      return lock.owner == this && lock.offset >= offset && lock.count <= count - (lock.offset - offset);
    });
  }

  std::shared_ptr<MemoryDisk> disk_;
  std::shared_ptr<MemoryFile> file_;
  std::string path_;
  bool writable_, mandatory_;
};

class MemorySharedFiles : public SharedFiles {
 public:
  explicit MemorySharedFiles(std::shared_ptr<MemoryDisk> disk = std::make_shared<MemoryDisk>())
      : disk(std::move(disk)) {}

  Result<std::unique_ptr<SharedFile>> open(const std::string& path, OpenMode mode) override {
    const std::string name = MemoryDisk::clean(path);
    if (failOpen) return memoryError(*failOpen, path);
    if (disk->isFolder(name)) return memoryError(ErrorKind::denied, path);
    std::shared_ptr<MemoryFile> file;
    if (const auto found = disk->files.find(name); found != disk->files.end()) file = found->second;
    if (!file && mode == OpenMode::readOnly) return memoryError(ErrorKind::notFound, path);
    if (file && file->readOnly && mode != OpenMode::readOnly) return memoryError(ErrorKind::denied, path);
    if (!file) file = disk->files[name] = std::make_shared<MemoryFile>();
    if (mode == OpenMode::emptied) file->bytes.clear();
    return std::unique_ptr<SharedFile>(
        new MemorySharedFile(disk, file, path, mode != OpenMode::readOnly, mandatoryLocks));
  }

  std::shared_ptr<MemoryDisk> disk;
  std::optional<ErrorKind> failOpen;  // every open() fails so while set
  bool mandatoryLocks = true;         // as on Windows: others' locks stop reads and writes; false as on Linux
};

}  // namespace plinth
