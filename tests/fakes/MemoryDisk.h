// A disk in memory that MemoryFiles and MemorySharedFiles share: whole files and open handles see the same
// bytes. It counts accesses, and fails when a test says so.
#pragma once

#include <algorithm>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "basic/Result.h"
#include "basic/Slots.h"

namespace plinth {

struct MemoryLock {
  const void* owner;
  std::int64_t offset, count;
  bool overlaps(std::int64_t from, std::int64_t length) const {
    return from < offset + count && offset < from + length;
  }
};

struct MemoryFile {
  Bytes bytes;
  bool readOnly = false;
  std::vector<MemoryLock> locks;

  bool lockedByOther(const void* owner, std::int64_t offset, std::int64_t count) const {
    return std::any_of(locks.begin(), locks.end(), [&](const MemoryLock& lock) {
      return lock.owner != owner && lock.overlaps(offset, count);
    });
  }
};

struct MemoryDisk {
  std::map<std::string, std::shared_ptr<MemoryFile>> files;  // by clean path
  std::set<std::string> folders;                             // by clean path; parents of files need no entry
  std::optional<ErrorKind> failReads, failWrites;            // every such access fails so while set
  std::size_t capacity = SIZE_MAX;  // bytes of all files together; beyond it writes are "full"
  int reads = 0, writes = 0;        // successful accesses
  std::function<void()> onNextLock;  // what another user does right after the next lock was taken

  // "\" becomes "/", a trailing one goes (but the root's).
  static std::string clean(std::string path) {
    std::replace(path.begin(), path.end(), '\\', '/');
    while (path.size() > 1 && path.back() == '/') path.pop_back();
    return path;
  }

  MemoryFile* find(const std::string& path) const {
    const auto found = files.find(clean(path));
    return found == files.end() ? nullptr : found->second.get();
  }

  // True for folders made and for those that some file or folder lies in.
  bool isFolder(const std::string& path) const {
    const std::string folder = clean(path);
    if (folder == "/" || folders.count(folder)) return true;
    const std::string inside = folder + "/";
    const auto hasInside = [&](const auto& sorted, const auto& key) {
      const auto at = sorted.lower_bound(inside);
      return at != sorted.end() && key(*at).compare(0, inside.size(), inside) == 0;
    };
    return hasInside(files, [](const auto& entry) -> const std::string& { return entry.first; }) ||
           hasInside(folders, [](const std::string& name) -> const std::string& { return name; });
  }

  // Whether `file` (nullptr for a new one) may grow to `size` bytes.
  bool hasRoom(const MemoryFile* file, std::size_t size) const {
    std::size_t others = 0;
    for (const auto& [path, one] : files)
      if (one.get() != file) others += one->bytes.size();
    return others <= capacity && size <= capacity - others;
  }
};

inline Error memoryError(ErrorKind kind, const std::string& path) { return {kind, "memory disk: " + path}; }

}  // namespace plinth
