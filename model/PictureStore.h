// Where the images of a project live while it is open: files of the temporary picture folder in the designer,
// memory in the tool and in tests. A picture row knows its image by the path that the store gave it.
#pragma once

#include <map>
#include <optional>
#include <span>
#include <string>

#include "basic/Result.h"
#include "basic/Slots.h"
#include "platform/Files.h"

namespace plinth {

class PictureStore {
 public:
  virtual ~PictureStore() = default;
  // Keeps bytes under a plain file name (see safeFileName), over an older image of that name. The path to get
  // them by.
  virtual Result<std::string> put(const std::string& safeName, std::span<const std::uint8_t> bytes) = 0;
  // The image's bytes; nullopt when there is none or it cannot be read.
  virtual std::optional<Bytes> get(const std::string& path) const = 0;
  virtual bool exists(const std::string& path) const = 0;
};

// Files in a folder, whose path ends with a separator; it must exist. get and exists answer for any path.
class DiskPictures : public PictureStore {
 public:
  DiskPictures(Files& files, std::string folder) : files_(files), folder_(std::move(folder)) {}
  Result<std::string> put(const std::string& safeName, std::span<const std::uint8_t> bytes) override;
  std::optional<Bytes> get(const std::string& path) const override;
  bool exists(const std::string& path) const override;

 private:
  Files& files_;
  std::string folder_;
};

// Images in memory; a path is the name itself.
class MemoryPictures : public PictureStore {
 public:
  Result<std::string> put(const std::string& safeName, std::span<const std::uint8_t> bytes) override;
  std::optional<Bytes> get(const std::string& path) const override;
  bool exists(const std::string& path) const override;

 private:
  std::map<std::string, Bytes> images_;
};

}  // namespace plinth
