// Whole files on POSIX systems. A file is replaced by writing a hidden neighbour, bringing it to the disk and
// renaming it, so that a crash or a full disk leaves the old one.
#include <cstdio>
#include <cstdlib>

#include <algorithm>
#include <atomic>
#include <filesystem>
#include <optional>

#include "platform/Files.h"
#include "platform/posix/Posix.h"

namespace plinth {
namespace {

namespace fs = std::filesystem;

// Endless devices end here; no file of ours comes near.
constexpr std::size_t kLargestWholeFile = std::size_t{1} << 31;

std::optional<struct stat> statusOf(const std::string& path) {
  struct stat status;
  if (::stat(path.c_str(), &status) != 0) return std::nullopt;
  return status;
}

Result<void> writeAll(int fd, std::span<const std::uint8_t> bytes, const std::string& path) {
  while (!bytes.empty()) {
    const ssize_t count = retried([&] { return ::write(fd, bytes.data(), bytes.size()); });
    if (count < 0) return errnoError(errno, path);
    bytes = bytes.subspan(static_cast<std::size_t>(count));
  }
  return {};
}

std::string folderOf(const std::string& path) {
  const std::size_t slash = path.rfind('/');
  if (slash == std::string::npos) return ".";
  return slash == 0 ? "/" : path.substr(0, slash);
}

// A file that nobody else has, in a folder; its path in `path`.
Result<Descriptor> createNeighbour(const std::string& folder, std::string& path) {
  static std::atomic<unsigned> number{0};
  for (int attempt = 0; attempt < 1000; ++attempt) {
    path = folder + "/.plinth-" + std::to_string(::getpid()) + "-" + std::to_string(number++) + ".tmp";
    const int fd = ::open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
    if (fd >= 0) return Descriptor(fd);
    if (errno != EEXIST) break;
  }
  return errnoError(errno, folder);
}

// `like`: the file whose mode and owner the new one takes; nullptr for those of a new file.
Result<void> replaceFile(const std::string& path, std::span<const std::uint8_t> bytes,
                         const struct stat* like) {
  const std::string folder = folderOf(path);
  std::string neighbour;
  Result<Descriptor> file = createNeighbour(folder, neighbour);
  if (!file.ok()) return file.error();
  Result<void> done = writeAll(file->get(), bytes, path);
  if (done.ok() && like) {
    // The owner may be out of reach for a plain user: the file is then his, as with any editor.
    if (::fchown(file->get(), like->st_uid, like->st_gid) != 0) errno = 0;
    if (::fchmod(file->get(), like->st_mode & 07777) != 0) done = errnoError(errno, path);
  }
  if (done.ok() && retried([&] { return ::fsync(file->get()); }) != 0) done = errnoError(errno, path);
  file->reset();
  if (done.ok() && ::rename(neighbour.c_str(), path.c_str()) != 0) done = errnoError(errno, path);
  if (!done.ok()) {
    ::unlink(neighbour.c_str());
    return done;
  }
  const Descriptor directory(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  if (directory) ::fsync(directory.get());
  return {};
}

// Pipes and devices have no old contents to keep, and cannot be renamed onto.
Result<void> writeDevice(const std::string& path, std::span<const std::uint8_t> bytes) {
  const Descriptor device(retried([&] { return ::open(path.c_str(), O_WRONLY | O_CLOEXEC); }));
  if (!device) return errnoError(errno, path);
  return writeAll(device.get(), bytes, path);
}

// A link is followed to what it names, so that saving does not turn it into a file.
std::string behindLinks(const std::string& path) {
  std::error_code error;
  const fs::path real = fs::canonical(path, error);
  return error ? path : real.string();
}

std::vector<std::string> names(const std::string& folder, bool folders) {
  std::vector<std::string> found;
  std::error_code error;
  fs::directory_iterator at(nativePath(folder), error), end;
  for (; !error && at != end; at.increment(error)) {
    std::error_code unknown;
    if (folders ? at->is_directory(unknown) : at->is_regular_file(unknown))
      found.push_back(at->path().filename().string());
  }
  std::sort(found.begin(), found.end());
  return found;
}

class PosixFiles : public Files {
 public:
  bool exists(const std::string& path) const override { return statusOf(nativePath(path)).has_value(); }
  bool isFolder(const std::string& path) const override {
    const auto status = statusOf(nativePath(path));
    return status && S_ISDIR(status->st_mode);
  }
  bool isReadOnly(const std::string& path) const override {
    const auto status = statusOf(nativePath(path));
    return status && lacksWriteBits(*status);
  }

  Result<Bytes> read(const std::string& path) const override {
    const std::string native = nativePath(path);
    const Descriptor file(retried([&] { return ::open(native.c_str(), O_RDONLY | O_CLOEXEC); }));
    struct stat status;
    if (!file || ::fstat(file.get(), &status) != 0) return errnoError(errno, path);
    if (S_ISDIR(status.st_mode)) return errnoError(EISDIR, path);
    Bytes bytes;
    // One byte more than the file has, so that its end shows without another round.
    std::size_t room = S_ISREG(status.st_mode) ? static_cast<std::size_t>(status.st_size) + 1 : 65536;
    for (std::size_t used = 0;;) {
      if (room > kLargestWholeFile) return errnoError(EFBIG, path);
      bytes.resize(room);
      const ssize_t count = retried([&] { return ::read(file.get(), bytes.data() + used, room - used); });
      if (count < 0) return errnoError(errno, path);
      used += static_cast<std::size_t>(count);
      if (count == 0) {
        bytes.resize(used);
        return bytes;
      }
      if (used == room) room *= 2;
    }
  }

  Result<void> write(const std::string& path, std::span<const std::uint8_t> bytes) override {
    const std::string native = behindLinks(nativePath(path));
    const auto old = statusOf(native);
    if (old && S_ISDIR(old->st_mode)) return errnoError(EISDIR, path);
    if (old && lacksWriteBits(*old)) return errnoError(EACCES, path);
    if (old && !S_ISREG(old->st_mode)) return writeDevice(native, bytes);
    return replaceFile(native, bytes, old ? &*old : nullptr);
  }

  Result<void> copy(const std::string& from, const std::string& to) override {
    const Result<Bytes> bytes = read(from);
    if (!bytes.ok()) return bytes.error();
    const bool isNew = !exists(to);
    const Result<void> written = write(to, *bytes);
    const auto source = statusOf(nativePath(from));
    if (written.ok() && isNew && source) ::chmod(nativePath(to).c_str(), source->st_mode & 0777);
    return written;
  }

  Result<void> removeFile(const std::string& path) override {
    const std::string native = nativePath(path);
    const auto old = statusOf(native);
    if (old && (S_ISDIR(old->st_mode) || lacksWriteBits(*old))) return errnoError(EACCES, path);
    if (::unlink(native.c_str()) != 0) return errnoError(errno, path);
    return {};
  }

  Result<void> makeFolder(const std::string& path) override {
    std::error_code error;
    fs::create_directories(nativePath(path), error);
    if (error) return errnoError(error.value(), path);
    return isFolder(path) ? Result<void>() : Result<void>(errnoError(ENOTDIR, path));
  }

  std::vector<std::string> list(const std::string& folder) const override { return names(folder, false); }
  std::vector<std::string> listFolders(const std::string& folder) const override {
    return names(folder, true);
  }

  std::string currentFolder() const override {
    std::error_code error;
    const fs::path path = fs::current_path(error);
    return error ? "." : path.string();
  }
  std::string temporaryFolder() const override {
    const char* named = std::getenv("TMPDIR");
    std::string folder = named && *named ? named : "/tmp";
    if (folder.back() != '/') folder += '/';
    return folder;
  }
  char separator() const override { return '/'; }
};

}  // namespace

Files& systemFiles() {
  static PosixFiles files;
  return files;
}

}  // namespace plinth
