// Whole files, folders and attributes. Paths are 8-bit text of the system's code page on Windows and raw
// bytes elsewhere; "\" and "/" both separate.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "basic/Result.h"
#include "basic/Slots.h"

namespace plinth {

class Files {
 public:
  virtual ~Files() = default;
  virtual bool exists(const std::string& path) const = 0;  // file or folder
  virtual bool isFolder(const std::string& path) const = 0;
  // By its attribute on Windows, by a mode without write bits elsewhere.
  virtual bool isReadOnly(const std::string& path) const = 0;
  virtual Result<Bytes> read(const std::string& path) const = 0;
  // Replaces or creates the file through a temporary neighbour and a rename: afterwards the file is old or
  // new, never half. Errors leave the old file as it was. Keeps the file's access mode.
  virtual Result<void> write(const std::string& path, std::span<const std::uint8_t> bytes) = 0;
  virtual Result<void> copy(const std::string& from, const std::string& to) = 0;
  virtual Result<void> removeFile(const std::string& path) = 0;
  virtual Result<void> makeFolder(const std::string& path) = 0;  // parents too; fine when it exists
  // Names (not paths) of the plain files in a folder, sorted; empty when the folder cannot be read.
  virtual std::vector<std::string> list(const std::string& folder) const = 0;
  virtual std::vector<std::string> listFolders(const std::string& folder) const = 0;
  virtual std::string currentFolder() const = 0;    // without trailing separator but at a root
  virtual std::string temporaryFolder() const = 0;  // with trailing separator
  virtual char separator() const = 0;               // "\\" on Windows, "/" elsewhere
};

// The machine's files (implemented once for each system).
Files& systemFiles();

}  // namespace plinth
