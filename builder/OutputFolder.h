// The folder of a finished application: made, or emptied of an earlier build. What its user made there since
// stays: data files with their segments, settings, and projects.
#pragma once

#include <string>
#include <vector>

#include "platform/Files.h"

namespace plinth {

class OutputFolder {
 public:
  // path: without trailing separator; its last part is the application's name. dataExtension: of its data
  // files.
  OutputFolder(Files& files, std::string path, std::string appName, std::string dataExtension);

  // Of a file in the folder.
  std::string pathOf(const std::string& name) const;
  // Names of the plain files that emptying would delete, the executable first. Sub-folders are never touched.
  std::vector<std::string> filesToDelete() const;
  // True when the folder holds an executable or setup program of this name: an earlier build made it.
  bool isEarlierBuild() const;
  // Deletes filesToDelete, or makes the folder. A file in use or protected ends it (locked or denied); other
  // failures are passed over and noted.
  Result<void> prepare(std::vector<std::string>& notes);

 private:
  bool isUserData(const std::string& name, const std::vector<std::string>& dataNames) const;

  Files& files_;
  std::string path_, appName_, dataExtension_;
};

}  // namespace plinth
