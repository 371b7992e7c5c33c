// Shared files on Windows. The system lets no handle lock a range twice, not even its own: each handle
// remembers what it holds, so that it behaves as on other systems.
#include <algorithm>
#include <vector>

#include "platform/SharedFile.h"
#include "platform/win32/Handles.h"
#include "platform/win32/Win32Errors.h"

namespace plinth {
namespace {

constexpr DWORD kChunk = 1u << 30;

OVERLAPPED at(std::int64_t offset) {
  OVERLAPPED position = {};
  position.Offset = static_cast<DWORD>(offset);
  position.OffsetHigh = static_cast<DWORD>(static_cast<std::uint64_t>(offset) >> 32);
  return position;
}
DWORD low(std::int64_t count) { return static_cast<DWORD>(count); }
DWORD high(std::int64_t count) { return static_cast<DWORD>(static_cast<std::uint64_t>(count) >> 32); }

class Win32SharedFile : public SharedFile {
 public:
  Win32SharedFile(KernelHandle file, std::string path) : file_(std::move(file)), path_(std::move(path)) {}
  ~Win32SharedFile() override {
    // Closing alone lets the system drop the locks some time later.
    for (const Range& range : held_) release(range);
  }

  Result<std::size_t> read(std::int64_t offset, std::span<std::uint8_t> bytes) override {
    if (offset < 0) return windowsError(ERROR_NEGATIVE_SEEK, path_);
    std::size_t done = 0;
    while (done < bytes.size()) {
      OVERLAPPED position = at(offset + static_cast<std::int64_t>(done));
      const DWORD wanted = static_cast<DWORD>(std::min<std::size_t>(bytes.size() - done, kChunk));
      DWORD count = 0;
      if (!::ReadFile(file_.get(), bytes.data() + done, wanted, &count, &position)) {
        const DWORD code = ::GetLastError();
        if (code != ERROR_HANDLE_EOF) return windowsError(code, path_);
      }
      if (count == 0) break;
      done += count;
    }
    return done;
  }

  Result<void> write(std::int64_t offset, std::span<const std::uint8_t> bytes) override {
    if (offset < 0) return windowsError(ERROR_NEGATIVE_SEEK, path_);
    for (std::size_t done = 0; done < bytes.size();) {
      OVERLAPPED position = at(offset + static_cast<std::int64_t>(done));
      const DWORD wanted = static_cast<DWORD>(std::min<std::size_t>(bytes.size() - done, kChunk));
      DWORD count = 0;
      if (!::WriteFile(file_.get(), bytes.data() + done, wanted, &count, &position))
        return lastWindowsError(path_);
      if (count == 0) return windowsError(ERROR_DISK_FULL, path_);
      done += count;
    }
    return {};
  }

  Result<std::int64_t> size() override {
    LARGE_INTEGER size;
    if (!::GetFileSizeEx(file_.get(), &size)) return lastWindowsError(path_);
    return static_cast<std::int64_t>(size.QuadPart);
  }

  Result<void> lock(std::int64_t offset, std::int64_t count) override {
    const Range range{offset, count};
    if (!range.valid()) return windowsError(ERROR_INVALID_PARAMETER, path_);
    if (std::count(held_.begin(), held_.end(), range)) return {};
    if (!take(range, LOCKFILE_EXCLUSIVE_LOCK)) return lastWindowsError(path_);
    held_.push_back(range);
    return {};
  }

  Result<void> unlock(std::int64_t offset, std::int64_t count) override {
    const auto found = std::find(held_.begin(), held_.end(), Range{offset, count});
    if (found == held_.end()) return {};
    const bool released = release(*found);
    const DWORD code = ::GetLastError();
    held_.erase(found);
    if (!released) return windowsError(code, path_);
    return {};
  }

  Result<bool> lockedByOther(std::int64_t offset, std::int64_t count) override {
    const Range range{offset, count};
    if (!range.valid()) return windowsError(ERROR_INVALID_PARAMETER, path_);
    if (std::count(held_.begin(), held_.end(), range)) return false;
    // A shared lock, so that two who ask at once do not see each other.
    if (take(range, 0)) {
      release(range);
      return false;
    }
    const Error error = lastWindowsError(path_);
    if (error.kind == ErrorKind::locked) return true;
    return error;
  }

 private:
  struct Range {
    std::int64_t offset, count;
    bool valid() const { return offset >= 0 && count > 0 && count <= INT64_MAX - offset; }
    bool operator==(const Range&) const = default;
  };
  bool take(const Range& range, DWORD flags) {
    OVERLAPPED position = at(range.offset);
    return ::LockFileEx(file_.get(), flags | LOCKFILE_FAIL_IMMEDIATELY, 0, low(range.count),
                        high(range.count), &position);
  }
  bool release(const Range& range) {
    OVERLAPPED position = at(range.offset);
    return ::UnlockFileEx(file_.get(), 0, low(range.count), high(range.count), &position);
  }

  KernelHandle file_;
  std::string path_;
  std::vector<Range> held_;
};

class Win32SharedFiles : public SharedFiles {
 public:
  Result<std::unique_ptr<SharedFile>> open(const std::string& path, OpenMode mode) override {
    const bool readOnly = mode == OpenMode::readOnly;
    KernelHandle file(::CreateFileA(path.c_str(), readOnly ? GENERIC_READ : GENERIC_READ | GENERIC_WRITE,
                                    FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                                    readOnly ? OPEN_EXISTING : OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr));
    if (!file) return lastWindowsError(path);
    if (::GetFileType(file.get()) != FILE_TYPE_DISK) return windowsError(ERROR_ACCESS_DENIED, path);
    // A new handle stands at the beginning.
    if (mode == OpenMode::emptied && !::SetEndOfFile(file.get())) return lastWindowsError(path);
    return std::unique_ptr<SharedFile>(std::make_unique<Win32SharedFile>(std::move(file), path));
  }
};

}  // namespace

SharedFiles& systemSharedFiles() {
  static Win32SharedFiles files;
  return files;
}

}  // namespace plinth
