// The reading archive of a project file: any version, any damage.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "model/PictureStore.h"
#include "model/ProjectDocument.h"
#include "model/ProjectFile.h"
#include "reports/block/BlockArchive.h"

namespace plinth {

class ProjectReader : public BlockReader {
 public:
  ProjectReader(SlotReader& source, PictureStore& pictures, const ReadOptions& options)
      : BlockReader(source, kNewestFormat), pictures_(pictures), options_(options) {}

  bool accepts(const std::string& caption) const;
  void lookIsKnown(ProjectDocument& document);
  void versionIsKnown(std::int16_t version) { useVersion(version); }
  void icon(Bytes& icon, const char*, Versions when);
  // A file name and, in versions that embed it, the image's bytes. `path` is that of the copy in the picture
  // store.
  void picture(std::string& path, const char*, const char*, Versions embedded);
  void items(std::vector<std::string>& items, const char*);
  void report(ReportRow& report);

  // Pictures that a file names but neither holds nor finds on disk.
  std::vector<LoadMessage> takeMessages() { return std::move(messages_); }

 private:
  std::string extract(const std::string& name, const Bytes& bytes);

  PictureStore& pictures_;
  const ReadOptions& options_;
  std::vector<LoadMessage> messages_;
  struct Extracted {
    std::string path;
    int copies = 1;  // other images of this name
  };
  std::map<std::string, Extracted> extracted_;  // by the name in lower case
  int items_ = 0;
};

}  // namespace plinth
