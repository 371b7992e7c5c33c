// Whole files on Windows. A file is replaced by writing a neighbour, bringing it to the disk and moving it
// over the old one in one step, so that a crash or a full disk leaves the old one.
#include <algorithm>
#include <atomic>

#include "platform/Files.h"
#include "platform/win32/Handles.h"
#include "platform/win32/Win32Errors.h"

namespace plinth {
namespace {

constexpr DWORD kChunk = 1u << 30;
constexpr std::int64_t kLargestWholeFile = std::int64_t{1} << 31;
// What a new file takes over from the one it replaces.
constexpr DWORD kKeptAttributes = FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM | FILE_ATTRIBUTE_ARCHIVE |
                                  FILE_ATTRIBUTE_NOT_CONTENT_INDEXED;

DWORD attributesOf(const std::string& path) { return ::GetFileAttributesA(path.c_str()); }
bool hasAttribute(const std::string& path, DWORD wanted) {
  const DWORD attributes = attributesOf(path);
  return attributes != INVALID_FILE_ATTRIBUTES && (attributes & wanted) != 0;
}

Result<void> writeAll(HANDLE file, std::span<const std::uint8_t> bytes, const std::string& path) {
  while (!bytes.empty()) {
    const DWORD wanted = static_cast<DWORD>(std::min<std::size_t>(bytes.size(), kChunk));
    DWORD count = 0;
    if (!::WriteFile(file, bytes.data(), wanted, &count, nullptr)) return lastWindowsError(path);
    if (count == 0) return windowsError(ERROR_DISK_FULL, path);
    bytes = bytes.subspan(count);
  }
  return {};
}

std::string folderOf(const std::string& path) {
  const std::size_t slash = path.find_last_of("/\\:");
  if (slash == std::string::npos) return ".\\";
  return path[slash] == ':' ? path.substr(0, slash + 1) + ".\\" : path.substr(0, slash + 1);
}

// A file that nobody else has, beside `path`; its name in `name`.
Result<KernelHandle> createNeighbour(const std::string& path, std::string& name) {
  static std::atomic<unsigned> number{0};
  for (int attempt = 0; attempt < 1000; ++attempt) {
    name = folderOf(path) + "~plinth-" + std::to_string(::GetCurrentProcessId()) + "-" +
           std::to_string(number++) + ".tmp";
    KernelHandle file(
        ::CreateFileA(name.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW, FILE_ATTRIBUTE_NORMAL, nullptr));
    if (file) return file;
    if (::GetLastError() != ERROR_FILE_EXISTS) break;
  }
  return lastWindowsError(path);
}

std::vector<std::string> names(const std::string& folder, bool folders) {
  std::vector<std::string> found;
  WIN32_FIND_DATAA entry;
  const SearchHandle search(::FindFirstFileA((folder + "\\*").c_str(), &entry));
  if (!search) return found;
  do {
    const std::string name = entry.cFileName;
    const bool isFolder = (entry.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
    if (isFolder == folders && name != "." && name != "..") found.push_back(name);
  } while (::FindNextFileA(search.get(), &entry));
  std::sort(found.begin(), found.end());
  return found;
}

class Win32Files : public Files {
 public:
  bool exists(const std::string& path) const override {
    return attributesOf(path) != INVALID_FILE_ATTRIBUTES;
  }
  bool isFolder(const std::string& path) const override {
    return hasAttribute(path, FILE_ATTRIBUTE_DIRECTORY);
  }
  bool isReadOnly(const std::string& path) const override {
    return hasAttribute(path, FILE_ATTRIBUTE_READONLY);
  }

  Result<Bytes> read(const std::string& path) const override {
    const KernelHandle file(::CreateFileA(path.c_str(), GENERIC_READ,
                                          FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                          OPEN_EXISTING, FILE_FLAG_SEQUENTIAL_SCAN, nullptr));
    LARGE_INTEGER size;
    if (!file || !::GetFileSizeEx(file.get(), &size)) return lastWindowsError(path);
    if (size.QuadPart > kLargestWholeFile) return windowsError(ERROR_FILE_TOO_LARGE, path);
    Bytes bytes(static_cast<std::size_t>(size.QuadPart));
    for (std::size_t used = 0; used < bytes.size();) {
      const DWORD wanted = static_cast<DWORD>(std::min<std::size_t>(bytes.size() - used, kChunk));
      DWORD count = 0;
      if (!::ReadFile(file.get(), bytes.data() + used, wanted, &count, nullptr))
        return lastWindowsError(path);
      used += count;
      if (count == 0) bytes.resize(used);  // cut by another meanwhile
    }
    return bytes;
  }

  Result<void> write(const std::string& path, std::span<const std::uint8_t> bytes) override {
    const DWORD old = attributesOf(path);
    const bool existed = old != INVALID_FILE_ATTRIBUTES;
    if (existed && (old & (FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_DIRECTORY)))
      return windowsError(ERROR_ACCESS_DENIED, path);
    std::string neighbour;
    Result<KernelHandle> file = createNeighbour(path, neighbour);
    if (!file.ok()) return file.error();
    Result<void> done = writeAll(file->get(), bytes, path);
    if (done.ok() && !::FlushFileBuffers(file->get())) done = lastWindowsError(path);
    file->reset();
    if (existed && (old & kKeptAttributes)) ::SetFileAttributesA(neighbour.c_str(), old & kKeptAttributes);
    if (done.ok() &&
        !::MoveFileExA(neighbour.c_str(), path.c_str(), MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH))
      done = lastWindowsError(path);
    if (!done.ok()) ::DeleteFileA(neighbour.c_str());
    return done;
  }

  Result<void> copy(const std::string& from, const std::string& to) override {
    const Result<Bytes> bytes = read(from);
    return bytes.ok() ? write(to, *bytes) : Result<void>(bytes.error());
  }
  Result<void> removeFile(const std::string& path) override {
    if (!::DeleteFileA(path.c_str())) return lastWindowsError(path);
    return {};
  }
  Result<void> makeFolder(const std::string& path) override {
    if (isFolder(path) || ::CreateDirectoryA(path.c_str(), nullptr)) return {};
    const DWORD code = ::GetLastError();
    const std::size_t slash = path.find_last_of("/\\");
    if (code == ERROR_ALREADY_EXISTS && isFolder(path)) return {};  // another was faster
    if (code != ERROR_PATH_NOT_FOUND || slash == std::string::npos || slash == 0)
      return windowsError(code, path);
    if (Result<void> parent = makeFolder(path.substr(0, slash)); !parent.ok()) return parent;
    if (isFolder(path) || ::CreateDirectoryA(path.c_str(), nullptr)) return {};
    return lastWindowsError(path);
  }
  std::vector<std::string> list(const std::string& folder) const override { return names(folder, false); }
  std::vector<std::string> listFolders(const std::string& folder) const override {
    return names(folder, true);
  }

  std::string currentFolder() const override { return folderFrom(::GetCurrentDirectoryA); }
  std::string temporaryFolder() const override { return folderFrom(::GetTempPathA); }
  char separator() const override { return '\\'; }

 private:
  static std::string folderFrom(DWORD(WINAPI* call)(DWORD, LPSTR)) {
    std::string folder(call(0, nullptr), '\0');
    folder.resize(call(static_cast<DWORD>(folder.size()), folder.data()));
    return folder;
  }
};

}  // namespace

Files& systemFiles() {
  static Win32Files files;
  return files;
}

}  // namespace plinth
