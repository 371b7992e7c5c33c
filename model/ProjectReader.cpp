// Elements that only a project file has: icon, embedded pictures, list items. What they hold is checked
// against the bytes left before anything is allocated, and names against leaving the picture folder.
#include "model/ProjectReader.h"

#include "basic/FileName.h"
#include "basic/Text.h"
#include "model/ProjectRepairs.h"
#include "reports/block/ReportWalk.h"

namespace plinth {
namespace {

// A list box numbers its items with 16 bits; all lists together must leave memory for the rest.
constexpr int kItemsPerList = 32767, kItemsPerProject = 500000;
// A file of this name still fits into the picture folder wherever that lies.
constexpr std::size_t kLongestStem = 60, kLongestExtension = 20;

}  // namespace

bool ProjectReader::accepts(const std::string& caption) const {
  const std::string prefix = caption.substr(0, 3);
  return prefix == "Tsq" || prefix == "Rvn" || prefix == "Oml";
}

void ProjectReader::lookIsKnown(ProjectDocument& document) {
  if (options_.keepLook) {
    document.options.fonttext = options_.fontName;
    document.charSet = options_.charSet;
  }
  spreadDefaultFont(document);
}

void ProjectReader::icon(Bytes& icon, const char*, Versions when) {
  std::int32_t upperBound = -1;
  if (!when.has(version()) || !source().number(upperBound) || upperBound == -1) return;
  source().block(icon, std::int64_t{upperBound} + 1);
}

void ProjectReader::picture(std::string& path, const char*, const char*, Versions embedded) {
  std::string name;
  const int before = source().failures();
  source().text16(name);
  if (name.empty()) return;
  path = name;
  Bytes bytes;
  std::int32_t length = 0;
  if (embedded.has(version()) && source().i32(length) && source().block(bytes, length)) {
    path = extract(name, bytes);
    if (!path.empty()) return;
  }
  const bool damaged = source().failures() != before;
  if (!damaged && (!options_.checkPaths || pictures_.exists(path))) return;
  messages_.push_back({191, name});
  path.clear();
}

// Two images of one name would be one file: another image gets a number, so that none is lost.
std::string ProjectReader::extract(const std::string& name, const Bytes& bytes) {
  std::string safe = safeFileName(name);
  if (safe.empty()) safe = "picture";
  const std::string stem = withoutExtension(safe).substr(0, kLongestStem);
  const std::string extension = extensionOf(safe).substr(0, kLongestExtension);
  if (stem.size() + 1 + extension.size() < safe.size()) safe = safeFileName(stem + "." + extension);
  const auto first = extracted_.find(lowerAscii(safe));
  if (first != extracted_.end() && pictures_.get(first->second.path) == bytes) return first->second.path;
  while (extracted_.count(lowerAscii(safe)))
    safe = stem + "_" + std::to_string(++first->second.copies) + (extension.empty() ? "" : "." + extension);
  const Result<std::string> stored = pictures_.put(safe, bytes);
  if (!stored.ok()) return {};
  extracted_[lowerAscii(safe)] = {*stored, 1};
  return *stored;
}

void ProjectReader::items(std::vector<std::string>& items, const char*) {
  std::int32_t count = 0;
  const int before = source().failures();
  source().number(count);
  if (count < 0 || count > kItemsPerList) skip();
  for (int i = 0; i < std::min(count, kItemsPerList) && source().failures() == before; ++i) {
    if (++items_ > kItemsPerProject) return skip();
    std::string item;
    if (source().text16(item)) items.push_back(std::move(item));
  }
}

void ProjectReader::report(ReportRow& report) { walkReport(*this, report); }

}  // namespace plinth
