// A copy is a project file with its pictures inside, and beside it a small file with the path of the project
// that it stands for. The names count up, so that designers that run side by side keep apart.
#include "model/SafetyCopy.h"

#include "basic/FileName.h"
#include "basic/Text.h"
#include "model/Digest.h"
#include "model/ProjectFile.h"

namespace plinth {
namespace {

constexpr const char* kStem = "Safety";
constexpr const char* kCopyExtension = "qvf";
constexpr int kLastNumber = 999;

std::string noteOf(const std::string& copyPath) { return withoutExtension(copyPath) + ".txt"; }

}  // namespace

std::string SafetyCopy::originalOf(const std::string& copyPath) const {
  const Result<Bytes> note = files_.read(noteOf(copyPath));
  return note.ok() ? std::string(note->begin(), note->end()) : "";
}

std::optional<SafetyCopy::Found> SafetyCopy::find() const {
  for (const std::string& name : files_.list(folder_)) {
    const std::string path = folder_ + name;
    if (path == copyPath_ || !name.starts_with(kStem)) continue;
    if (equalAsciiNoCase(extensionOf(name), kCopyExtension)) return Found{path, originalOf(path)};
  }
  return std::nullopt;
}

void SafetyCopy::take(const Found& found) {
  discard();
  copyPath_ = found.copyPath;
}

bool SafetyCopy::remove(const Found& found) {
  // The copy first: a note alone is nothing that would be offered.
  const bool removed = files_.removeFile(found.copyPath).ok();
  if (removed) (void)files_.removeFile(noteOf(found.copyPath));
  return removed;
}

void SafetyCopy::discard() {
  if (!copyPath_.empty()) (void)remove({copyPath_, ""});
  leave();
}

void SafetyCopy::leave() {
  copyPath_.clear();
  written_.clear();
  since_.reset();
  failed_ = false;
}

// The first name that no copy has, not even one that waits to be offered.
bool SafetyCopy::claimName() {
  if (!copyPath_.empty()) return true;
  if (!files_.makeFolder(folder_.substr(0, folder_.size() - 1)).ok()) return false;
  for (int number = 1; number <= kLastNumber && copyPath_.empty(); ++number) {
    const std::string path = folder_ + kStem + std::to_string(number) + "." + kCopyExtension;
    if (!files_.exists(path) && !files_.exists(noteOf(path))) copyPath_ = path;
  }
  return !copyPath_.empty();
}

bool SafetyCopy::tick(ProjectDocument& document, const PictureStore& pictures,
                      const std::string& originalPath, std::int64_t seconds) {
  if (!document.dirty) {
    since_.reset();
    return true;
  }
  if (!since_ || seconds < *since_) since_ = seconds;
  if (seconds - *since_ < kSeconds) return true;
  since_ = seconds;
  const bool written = write(document, pictures, originalPath);
  const bool told = failed_;
  failed_ = !written;
  return written || told;
}

bool SafetyCopy::write(const ProjectDocument& document, const PictureStore& pictures,
                       const std::string& originalPath) {
  // Writing puts rows right; the project that is being worked on must not change under the person's hands.
  ProjectDocument copy = document;
  const Bytes bytes = writeProject(copy, pictures, {originalPath, 0}).bytes;
  const std::string digest = sha256(bytes) + originalPath;
  if (digest == written_) return true;
  if (!claimName()) return false;
  const std::string& note = originalPath;
  const bool done = files_.write(noteOf(copyPath_), Bytes(note.begin(), note.end())).ok() &&
                    files_.write(copyPath_, bytes).ok();
  if (done)
    written_ = digest;
  else if (!files_.exists(copyPath_))
    copyPath_.clear();  // another designer may take the name meanwhile
  return done;
}

}  // namespace plinth
