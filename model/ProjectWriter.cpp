// Elements that only a project file has, on their way out.
#include "model/ProjectWriter.h"

#include "basic/FileName.h"
#include "reports/block/ReportWalk.h"

namespace plinth {

void ProjectWriter::icon(const Bytes& icon, const char*, Versions) {
  target().slot(Tag::i4, static_cast<double>(icon.size()) - 1);
  target().block(icon);
}

void ProjectWriter::picture(const std::string& path, const char* name, const char*, Versions) {
  std::optional<Bytes> bytes;
  if (!path.empty()) {
    bytes = pictures_.get(path);
    if (!bytes) unreadable_.push_back(path);
  }
  const std::string fileName = bytes ? fileNameOf(path) : std::string();
  text(fileName, name);
  if (fileName.empty()) return;
  target().i32(static_cast<std::int32_t>(bytes->size()));
  target().block(*bytes);
}

void ProjectWriter::items(const std::vector<std::string>& items, const char* name) {
  target().slot(Tag::i4, static_cast<double>(items.size()));
  for (const std::string& item : items) text(item, name);
}

void ProjectWriter::report(const ReportRow& report) {
  const ReportRow sorted = labelsBySlot(report);
  walkReport(*this, sorted);
}

}  // namespace plinth
