// The decoded pictures of the page: those of the design, those of the record, and the free ones. Files are
// read once; pictures of records give way when there are many.
#pragma once

#include <map>
#include <set>
#include <string>
#include <vector>

#include "engine/RecordSession.h"
#include "engine/win32/PageLayout.h"
#include "platform/Files.h"

namespace plinth {

class PictureFiles : public PagePictures {
 public:
  PictureFiles(Files& files, ImageDecoder& decoder) : files_(files), decoder_(decoder) {}
  void attach(const RecordSession& session) { session_ = &session; }

  std::shared_ptr<Image> fixedPicture(int n) override;
  std::shared_ptr<Image> dataPicture(int n) override;
  std::shared_ptr<Image> freePicture(std::int32_t number) override;
  std::shared_ptr<Image> background();
  // Names that led to no picture are looked up again: a file may be there by now.
  void forgetMissing();
  // The data pictures of the present record whose file is there but is no picture.
  std::vector<int> damagedPictures();

 private:
  std::shared_ptr<Image> at(const std::string& path);
  std::shared_ptr<Image> ofRecord(const std::string& path);
  Files& files_;
  ImageDecoder& decoder_;
  const RecordSession* session_ = nullptr;
  std::map<std::string, std::shared_ptr<Image>> images_;
  std::set<std::string> ofRecords_;  // keys of images_ that are pictures of records
};

}  // namespace plinth
