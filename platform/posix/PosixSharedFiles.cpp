// Shared files on Linux. Locks belong to the open handle ("open file description" locks), so that two handles
// of one process exclude each other, as on Windows, and closing one handle does not drop the locks of
// another.
#include <climits>

#include "platform/SharedFile.h"
#include "platform/posix/Posix.h"

namespace plinth {
namespace {

static_assert(sizeof(off_t) == 8, "data files grow beyond 2 GB");

class PosixSharedFile : public SharedFile {
 public:
  PosixSharedFile(Descriptor file, std::string path) : file_(std::move(file)), path_(std::move(path)) {}

  Result<std::size_t> read(std::int64_t offset, std::span<std::uint8_t> bytes) override {
    std::size_t done = 0;
    while (done < bytes.size()) {
      const off_t at = offset + static_cast<off_t>(done);
      const ssize_t count =
          retried([&] { return ::pread(file_.get(), bytes.data() + done, bytes.size() - done, at); });
      if (count < 0) return errnoError(errno, path_);
      if (count == 0) break;
      done += static_cast<std::size_t>(count);
    }
    return done;
  }

  Result<void> write(std::int64_t offset, std::span<const std::uint8_t> bytes) override {
    for (std::size_t done = 0; done < bytes.size();) {
      const off_t at = offset + static_cast<off_t>(done);
      const ssize_t count =
          retried([&] { return ::pwrite(file_.get(), bytes.data() + done, bytes.size() - done, at); });
      if (count < 0) return errnoError(errno == EBADF ? EACCES : errno, path_);
      done += static_cast<std::size_t>(count);
    }
    return {};
  }

  Result<std::int64_t> size() override {
    struct stat status;
    if (::fstat(file_.get(), &status) != 0) return errnoError(errno, path_);
    return static_cast<std::int64_t>(status.st_size);
  }

  Result<void> lock(std::int64_t offset, std::int64_t count) override {
    return setLock(F_WRLCK, offset, count);
  }
  Result<void> unlock(std::int64_t offset, std::int64_t count) override {
    return setLock(F_UNLCK, offset, count);
  }

  Result<bool> lockedByOther(std::int64_t offset, std::int64_t count) override {
    struct flock range = lockOf(F_WRLCK, offset, count);
    if (!isRange(offset, count)) return errnoError(EINVAL, path_);
    if (::fcntl(file_.get(), F_OFD_GETLK, &range) != 0) return errnoError(errno, path_);
    return range.l_type != F_UNLCK;
  }

 private:
  // The system takes a count of 0 for "to the end of all files".
  static bool isRange(std::int64_t offset, std::int64_t count) {
    return offset >= 0 && count > 0 && count <= INT64_MAX - offset;
  }
  static struct flock lockOf(short type, std::int64_t offset, std::int64_t count) {
    struct flock range = {};
    range.l_type = type;
    range.l_whence = SEEK_SET;
    range.l_start = offset;
    range.l_len = count;
    return range;
  }
  Result<void> setLock(short type, std::int64_t offset, std::int64_t count) {
    if (!isRange(offset, count)) return errnoError(EINVAL, path_);
    struct flock range = lockOf(type, offset, count);
    if (retried([&] { return ::fcntl(file_.get(), F_OFD_SETLK, &range); }) == 0) return {};
    if (errno == EACCES) errno = EAGAIN;  // POSIX allows both for a lock that another holds
    return errnoError(errno == EBADF ? EACCES : errno, path_);
  }

  Descriptor file_;
  std::string path_;
};

class PosixSharedFiles : public SharedFiles {
 public:
  Result<std::unique_ptr<SharedFile>> open(const std::string& path, OpenMode mode) override {
    const std::string native = nativePath(path);
    // Not blocking: a pipe of that name would wait for its other end before it can be refused.
    const int flags = (mode == OpenMode::readOnly ? O_RDONLY : O_RDWR | O_CREAT) | O_CLOEXEC | O_NONBLOCK;
    const auto opened = [&](int more) {
      return retried([&] { return ::open(native.c_str(), flags | more, 0666); });
    };
    // To note the time of access costs a tenth of each small read; only the owner may do without.
    Descriptor file(opened(O_NOATIME));
    if (!file && errno == EPERM) file = Descriptor(opened(0));
    struct stat status;
    if (!file || ::fstat(file.get(), &status) != 0) return errnoError(errno, path);
    if (!S_ISREG(status.st_mode)) return errnoError(EISDIR, path);
    if (mode != OpenMode::readOnly && lacksWriteBits(status)) return errnoError(EACCES, path);
    if (mode == OpenMode::emptied && retried([&] { return ::ftruncate(file.get(), 0); }) != 0)
      return errnoError(errno, path);
    return std::unique_ptr<SharedFile>(std::make_unique<PosixSharedFile>(std::move(file), path));
  }
};

}  // namespace

SharedFiles& systemSharedFiles() {
  static PosixSharedFiles files;
  return files;
}

}  // namespace plinth
