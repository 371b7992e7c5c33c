// A folder of its own for each test on the real disk, gone afterwards with all that is in it.
#pragma once

#include <filesystem>
#include <random>
#include <string>

#include "platform/Files.h"

namespace plinth {

class TempFolder {
 public:
  TempFolder()
      : path_(systemFiles().temporaryFolder() + "plinth-test-" + std::to_string(std::random_device()())) {
    std::filesystem::create_directories(path_);
  }
  ~TempFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }
  TempFolder(const TempFolder&) = delete;
  TempFolder& operator=(const TempFolder&) = delete;

  std::string path() const { return path_; }
  std::string operator/(const std::string& name) const { return path_ + systemFiles().separator() + name; }

 private:
  std::string path_;
};

}  // namespace plinth
