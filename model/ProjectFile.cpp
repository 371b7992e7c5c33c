// Loading and saving as a whole: the walk, and what is to be done before and after it.
#include "model/ProjectFile.h"

#include "basic/FileName.h"
#include "model/DerivedTexts.h"
#include "model/FormulaReferences.h"
#include "model/ProjectReader.h"
#include "model/ProjectRepairs.h"
#include "model/ProjectWalk.h"
#include "model/ProjectWriter.h"

namespace plinth {
namespace {

// Images that stand beside the program or the project and may be gone since.
void checkImagePaths(LoadResult& result, const PictureStore& pictures, const ReadOptions& options) {
  if (!options.checkPaths) return;
  ProjectDocument& d = result.document;
  if (!d.tileImage.empty() && !pictures.exists(d.tileImage)) {
    result.messages.push_back({330, d.tileImage});
    d.tileImage.clear();
  }
  const bool hasDefault = !d.defaultImagePath.empty() && pictures.exists(d.defaultImagePath);
  if (!hasDefault && !options.defaultImage.empty()) d.defaultImagePath = options.defaultImage;
}

}  // namespace

std::string LoadMessage::text(const LanguageTexts& texts) const {
  return texts.text(label) + (label == 191 ? "..." : "") + path;
}

LoadResult readProject(std::span<const std::uint8_t> bytes, PictureStore& pictures,
                       const ReadOptions& options) {
  LoadResult result;
  SlotReader source(bytes);
  ProjectReader reader(source, pictures, options);
  FileExtras extras;
  result.accepted = walkProject(reader, result.document, extras);
  result.facts = {extras.caption, extras.saveDate, static_cast<std::int64_t>(bytes.size()),
                  std::min<std::int64_t>(source.position() - 1, bytes.size())};
  if (!result.accepted) return result;
  result.document.formatVersion = extras.formatVersion;
  result.messages = reader.takeMessages();
  checkImagePaths(result, pictures, options);
  repairProject(result.document);
  if (options.labels && below(6).has(extras.formatVersion)) applyLabels(*options.labels, result.document);
  result.skipped = reader.skipped();
  result.complete = result.skipped == 0;
  return result;
}

SaveResult writeProject(ProjectDocument& document, const PictureStore& pictures, const WriteOptions& options,
                        std::span<const std::uint8_t> old) {
  for (PictureRow& picture : document.pictures)
    if (!picture.picturePath.empty() && !pictures.exists(picture.picturePath)) picture.picturePath.clear();
  document.helpFile = helpFileOf(options.path);

  SaveResult result;
  result.bytes.assign(old.begin(), old.end());
  SlotWriter target(result.bytes);
  ProjectWriter writer(target, pictures);
  FileExtras extras{.caption = projectCaption(options.path), .saveDate = options.saveDate};
  const ProjectDocument rows = withoutDeleted(document);
  walkProject(writer, rows, extras);
  result.unreadablePictures = writer.takeUnreadable();
  result.cutBytes = writer.cutBytes();
  return result;
}

std::string projectCaption(const std::string& path) { return "Rvn Plinth V2.0 : " + path; }

std::string helpFileOf(const std::string& path) { return withoutExtension(path) + ".chm"; }

}  // namespace plinth
