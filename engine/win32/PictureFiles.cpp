// Paths come from the session; a file that is missing or no picture counts as none and is not tried again at
// each paint.
#include "engine/win32/PictureFiles.h"

namespace plinth {
namespace {

constexpr std::size_t kMostImages = 200;
constexpr std::int64_t kMostPixels = 32'000'000;  // of pictures that records bring; four bytes each

}  // namespace

std::shared_ptr<Image> PictureFiles::at(const std::string& path) {
  if (path.empty()) return nullptr;
  if (const auto known = images_.find(path); known != images_.end()) return known->second;
  if (images_.size() >= kMostImages) images_.clear();
  // Known from now on, also when there is no memory for it.
  std::shared_ptr<Image>& image = images_[path];
  if (const Result<Bytes> bytes = files_.read(path)) image = decoder_.decode(*bytes);
  return image;
}

// Photographs fill the memory long before there are many. Those of the record on screen are needed with every
// paint, so that they stay.
std::shared_ptr<Image> PictureFiles::ofRecord(const std::string& path) {
  if (path.empty() || images_.contains(path)) return at(path);
  std::set<std::string> shown;
  for (int n = 0; n <= session_->application().pictureCount(); ++n)
    shown.insert(session_->dataPictureFile(n));
  std::int64_t pixels = 0;
  for (const std::string& one : ofRecords_)
    if (const auto known = images_.find(one); known != images_.end() && known->second)
      pixels += std::int64_t{known->second->size().width} * known->second->size().height;
  if (pixels > kMostPixels)
    std::erase_if(ofRecords_, [&](const std::string& one) {
      const bool goes = !shown.contains(one);
      if (goes) images_.erase(one);
      return goes;
    });
  ofRecords_.insert(path);
  return at(path);
}

std::shared_ptr<Image> PictureFiles::fixedPicture(int n) {
  return at(pictureFile(session_->start(), session_->application().picture(n)));
}

std::shared_ptr<Image> PictureFiles::dataPicture(int n) {
  const std::shared_ptr<Image> image = ofRecord(session_->dataPictureFile(n));
  return image ? image : at(session_->start().blankPicture);
}

std::shared_ptr<Image> PictureFiles::freePicture(std::int32_t number) {
  if (number <= 0) return nullptr;
  const char separator = files_.separator();
  return at(session_->start().names.appPath + "Images" + separator + std::to_string(number) + ".gif");
}

std::shared_ptr<Image> PictureFiles::background() { return at(session_->start().background); }

void PictureFiles::forgetMissing() {
  std::erase_if(images_, [](const auto& entry) { return entry.second == nullptr; });
}

std::vector<int> PictureFiles::damagedPictures() {
  std::vector<int> damaged;
  for (int n = 0; n <= session_->application().pictureCount(); ++n) {
    const std::string path = session_->dataPictureFile(n);
    if (!path.empty() && files_.exists(path) && !ofRecord(path)) damaged.push_back(n);
  }
  return damaged;
}

}  // namespace plinth
