// A binary file shared by several programs: positioned reads and writes and byte locks that fail at once.
#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <string>

#include "basic/Result.h"

namespace plinth {

// One open handle. Offsets are 0-based bytes. Locks are the system's byte-range locks: held by this handle,
// released by unlock() and on closing; a lock beyond the end of the file is fine. Two handles exclude each
// other even in one process. On Windows a lock also stops the reads and writes of others; elsewhere it does
// not, there lockedByOther() tells.
class SharedFile {
 public:
  virtual ~SharedFile() = default;
  // Reads up to bytes.size() bytes; the count read (0 at the end). Error locked: another program locks
  // the range.
  virtual Result<std::size_t> read(std::int64_t offset, std::span<std::uint8_t> bytes) = 0;
  // Writes all; the file grows as needed. Errors: locked, full (no space), denied, failed.
  virtual Result<void> write(std::int64_t offset, std::span<const std::uint8_t> bytes) = 0;
  virtual Result<std::int64_t> size() = 0;
  // Exclusive lock of `count` bytes at `offset`. Error locked when another program holds any of them.
  virtual Result<void> lock(std::int64_t offset, std::int64_t count) = 0;
  // Releases what lock() took with the same numbers; a range that this handle does not hold is left alone.
  virtual Result<void> unlock(std::int64_t offset, std::int64_t count) = 0;
  // Whether another handle or program holds any byte of the range. One system call, takes no lock for longer.
  virtual Result<bool> lockedByOther(std::int64_t offset, std::int64_t count) = 0;
};

enum class OpenMode {
  readOnly,   // the file must exist
  readWrite,  // created when missing
  emptied,    // as readWrite; what the file held is gone, also for those who have it open
};

class SharedFiles {
 public:
  virtual ~SharedFiles() = default;
  virtual Result<std::unique_ptr<SharedFile>> open(const std::string& path, OpenMode mode) = 0;
};

// The machine's files: others may read, write and lock them at the same time.
SharedFiles& systemSharedFiles();

}  // namespace plinth
