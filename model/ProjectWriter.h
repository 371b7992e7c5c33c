// The writing archive of a project file: always the newest version.
#pragma once

#include <string>
#include <vector>

#include "model/PictureStore.h"
#include "model/ProjectDocument.h"
#include "reports/block/BlockArchive.h"

namespace plinth {

class ProjectWriter : public BlockWriter {
 public:
  ProjectWriter(SlotWriter& target, const PictureStore& pictures)
      : BlockWriter(target), pictures_(pictures) {}

  bool accepts(const std::string&) const { return true; }
  void lookIsKnown(const ProjectDocument&) {}
  void versionIsKnown(std::int16_t) {}
  void icon(const Bytes& icon, const char*, Versions);
  void picture(const std::string& path, const char*, const char*, Versions);
  void items(const std::vector<std::string>& items, const char*);
  void report(const ReportRow& report);

  // Pictures that are there but could not be read; the file says they have none.
  std::vector<std::string> takeUnreadable() { return std::move(unreadable_); }

 private:
  const PictureStore& pictures_;
  std::vector<std::string> unreadable_;
};

}  // namespace plinth
