// What Create Application finds at the paths of a project: the images of its file in memory, and the
// background, the default image and the documents where they lie on this machine.
#pragma once

#include <functional>
#include <string>

#include "model/PictureStore.h"

namespace plinth {

class ToolPictures : public PictureStore {
 public:
  // systemName: a path in the project's code page as `files` takes it. All must outlive this object.
  ToolPictures(PictureStore& project, Files& files, std::function<std::string(const std::string&)> systemName)
      : project_(project), files_(files), systemName_(std::move(systemName)) {}

  Result<std::string> put(const std::string& safeName, std::span<const std::uint8_t> bytes) override {
    return project_.put(safeName, bytes);
  }
  std::optional<Bytes> get(const std::string& path) const override {
    if (project_.exists(path)) return project_.get(path);
    Result<Bytes> bytes = files_.read(systemName_(path));
    return bytes.ok() ? std::optional<Bytes>(std::move(*bytes)) : std::nullopt;
  }
  bool exists(const std::string& path) const override {
    return project_.exists(path) || (files_.exists(systemName_(path)) && !files_.isFolder(systemName_(path)));
  }

 private:
  PictureStore& project_;
  Files& files_;
  std::function<std::string(const std::string&)> systemName_;
};

}  // namespace plinth
