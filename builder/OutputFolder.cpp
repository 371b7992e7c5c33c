// See OutputFolder.h.
#include "builder/OutputFolder.h"

#include <algorithm>

#include "basic/FileName.h"
#include "basic/Text.h"

namespace plinth {

namespace {

constexpr std::size_t kSegmentDigits = 4;

bool isDigit(char c) { return c >= '0' && c <= '9'; }

}  // namespace

OutputFolder::OutputFolder(Files& files, std::string path, std::string appName, std::string dataExtension)
    : files_(files),
      path_(std::move(path)),
      appName_(std::move(appName)),
      dataExtension_(std::move(dataExtension)) {}

std::string OutputFolder::pathOf(const std::string& name) const { return path_ + files_.separator() + name; }

bool OutputFolder::isEarlierBuild() const {
  const std::vector<std::string> names = files_.list(path_);
  return std::any_of(names.begin(), names.end(), [this](const std::string& name) {
    return equalAsciiNoCase(name, appName_ + ".exe") || equalAsciiNoCase(name, appName_ + "_Setup.exe");
  });
}

bool OutputFolder::isUserData(const std::string& name, const std::vector<std::string>& dataNames) const {
  const std::string extension = extensionOf(name);
  if (equalAsciiNoCase(extension, "exe")) return false;
  for (const char* kept : {"cfg", "qvf", "mrf"}) {
    if (equalAsciiNoCase(extension, kept)) return true;
  }
  if (!extension.empty()) return equalAsciiNoCase(extension, dataExtension_);
  // "<data name>0001": a further segment of a data file.
  if (name.size() <= kSegmentDigits || !std::all_of(name.end() - kSegmentDigits, name.end(), isDigit))
    return false;
  const std::string base = name.substr(0, name.size() - kSegmentDigits);
  return std::any_of(dataNames.begin(), dataNames.end(),
                     [&](const std::string& data) { return equalAsciiNoCase(withoutExtension(data), base); });
}

std::vector<std::string> OutputFolder::filesToDelete() const {
  const std::vector<std::string> names = files_.list(path_);
  std::vector<std::string> dataNames, unwanted;
  for (const std::string& name : names) {
    if (!dataExtension_.empty() && equalAsciiNoCase(extensionOf(name), dataExtension_))
      dataNames.push_back(name);
  }
  for (const std::string& name : names) {
    if (!isUserData(name, dataNames)) unwanted.push_back(name);
  }
  // While the earlier build runs nothing of it may go: its executable is tried first.
  std::stable_partition(unwanted.begin(), unwanted.end(), [this](const std::string& name) {
    return equalAsciiNoCase(name, appName_ + ".exe");
  });
  return unwanted;
}

Result<void> OutputFolder::prepare(std::vector<std::string>& notes) {
  if (!files_.isFolder(path_)) return files_.makeFolder(path_);
  for (const std::string& name : filesToDelete()) {
    const Result<void> removed = files_.removeFile(pathOf(name));
    if (removed.ok() || removed.error().kind == ErrorKind::notFound) continue;
    if (removed.error().kind == ErrorKind::locked || removed.error().kind == ErrorKind::denied)
      return removed.error();
    notes.push_back(name + " could not be deleted: " + removed.error().text);
  }
  return {};
}

}  // namespace plinth
