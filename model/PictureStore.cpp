// Images on disk and in memory behind one interface.
#include "model/PictureStore.h"

namespace plinth {

Result<std::string> DiskPictures::put(const std::string& safeName, std::span<const std::uint8_t> bytes) {
  const std::string path = folder_ + safeName;
  const Result<void> written = files_.write(path, bytes);
  return written.ok() ? Result<std::string>(path) : Result<std::string>(written.error());
}

std::optional<Bytes> DiskPictures::get(const std::string& path) const {
  Result<Bytes> bytes = files_.read(path);
  return bytes.ok() ? std::optional<Bytes>(std::move(*bytes)) : std::nullopt;
}

bool DiskPictures::exists(const std::string& path) const {
  return files_.exists(path) && !files_.isFolder(path);
}

Result<std::string> MemoryPictures::put(const std::string& safeName, std::span<const std::uint8_t> bytes) {
  images_[safeName].assign(bytes.begin(), bytes.end());
  return safeName;
}

std::optional<Bytes> MemoryPictures::get(const std::string& path) const {
  const auto found = images_.find(path);
  return found == images_.end() ? std::nullopt : std::optional<Bytes>(found->second);
}

bool MemoryPictures::exists(const std::string& path) const { return images_.count(path) > 0; }

}  // namespace plinth
