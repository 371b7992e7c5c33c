// Files in memory: paths and folders as the machine's, but nothing touches a disk and errors come on demand.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/Files.h"
#include "tests/fakes/MemoryDisk.h"

namespace plinth {

class MemoryFiles : public Files {
 public:
  explicit MemoryFiles(std::shared_ptr<MemoryDisk> disk = std::make_shared<MemoryDisk>())
      : disk(std::move(disk)) {}

  // For tests: puts a file there whatever the disk's errors are.
  void put(const std::string& path, std::string_view text) {
    disk->files[MemoryDisk::clean(path)] =
        std::make_shared<MemoryFile>(MemoryFile{Bytes(text.begin(), text.end()), false, {}});
  }
  void put(const std::string& path, const Bytes& bytes) {
    disk->files[MemoryDisk::clean(path)] = std::make_shared<MemoryFile>(MemoryFile{bytes, false, {}});
  }
  // The file's bytes as text; "" when there is none.
  std::string textOf(const std::string& path) const {
    const MemoryFile* file = disk->find(path);
    return file ? std::string(file->bytes.begin(), file->bytes.end()) : "";
  }
  void setReadOnly(const std::string& path, bool readOnly) {
    if (MemoryFile* file = disk->find(path)) file->readOnly = readOnly;
  }

  bool exists(const std::string& path) const override { return disk->find(path) || disk->isFolder(path); }
  bool isFolder(const std::string& path) const override { return disk->isFolder(path); }
  bool isReadOnly(const std::string& path) const override {
    const MemoryFile* file = disk->find(path);
    return file && file->readOnly;
  }
  Result<Bytes> read(const std::string& path) const override {
    if (disk->failReads) return memoryError(*disk->failReads, path);
    const MemoryFile* file = disk->find(path);
    if (!file) return memoryError(ErrorKind::notFound, path);
    ++disk->reads;
    return file->bytes;
  }
  Result<void> write(const std::string& path, std::span<const std::uint8_t> bytes) override {
    if (disk->failWrites) return memoryError(*disk->failWrites, path);
    MemoryFile* file = disk->find(path);
    if ((file && file->readOnly) || disk->isFolder(path)) return memoryError(ErrorKind::denied, path);
    if (!disk->hasRoom(file, bytes.size())) return memoryError(ErrorKind::full, path);
    ++disk->writes;
    put(path, Bytes(bytes.begin(), bytes.end()));
    return {};
  }
  Result<void> copy(const std::string& from, const std::string& to) override {
    const Result<Bytes> bytes = read(from);
    return bytes.ok() ? write(to, *bytes) : Result<void>(bytes.error());
  }
  Result<void> removeFile(const std::string& path) override {
    if (disk->failWrites) return memoryError(*disk->failWrites, path);
    if (isReadOnly(path)) return memoryError(ErrorKind::denied, path);
    if (!disk->files.erase(MemoryDisk::clean(path))) return memoryError(ErrorKind::notFound, path);
    return {};
  }
  Result<void> makeFolder(const std::string& path) override {
    if (disk->failWrites) return memoryError(*disk->failWrites, path);
    if (disk->find(path)) return memoryError(ErrorKind::failed, path);
    disk->folders.insert(MemoryDisk::clean(path));
    return {};
  }
  std::vector<std::string> list(const std::string& folder) const override {
    std::vector<std::string> names;
    for (const auto& [path, file] : disk->files) addChild(folder, path, false, names);
    return names;
  }
  std::vector<std::string> listFolders(const std::string& folder) const override {
    std::vector<std::string> names;
    for (const auto& [path, file] : disk->files) addChild(folder, path, true, names);
    for (const std::string& path : disk->folders) addChild(folder, path + "/", true, names);
    std::sort(names.begin(), names.end());
    names.erase(std::unique(names.begin(), names.end()), names.end());
    return names;
  }
  std::string currentFolder() const override { return current; }
  std::string temporaryFolder() const override { return temporary; }
  char separator() const override { return separatorUsed; }

  std::shared_ptr<MemoryDisk> disk;
  std::string current = "/desk", temporary = "/tmp/";
  char separatorUsed = '/';

 private:
  // The first name of `path` behind `folder`: a plain file's when nothing follows it, a folder's when
  // something does.
  static void addChild(const std::string& folder, const std::string& path, bool asFolder,
                       std::vector<std::string>& names) {
    std::string inside = MemoryDisk::clean(folder);
    if (inside.empty() || inside.back() != '/') inside += '/';
    if (path.size() <= inside.size() || path.compare(0, inside.size(), inside) != 0) return;
    const std::size_t slash = path.find('/', inside.size());
    if ((slash != std::string::npos) == asFolder)
      names.push_back(path.substr(inside.size(), slash - inside.size()));
  }
};

}  // namespace plinth
