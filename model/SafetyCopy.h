// A copy of the unsaved project each minute, for the day the program or the machine stops: it is offered when
// the designer starts again, and removed when the project is saved or left on purpose.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "model/PictureStore.h"
#include "model/ProjectDocument.h"
#include "platform/Files.h"

namespace plinth {

class SafetyCopy {
 public:
  static constexpr int kSeconds = 60;
  // folder: of the copies, with trailing separator, outside what a start empties.
  SafetyCopy(Files& files, std::string folder) : files_(files), folder_(std::move(folder)) {}

  struct Found {
    std::string copyPath, originalPath;  // original "": was never saved
  };
  // What an earlier run left behind; the copy of this run is none of it. Only the designer that is alone may
  // ask, since the copies of others that run look just the same.
  std::optional<Found> find() const;
  // The project goes on from what was found: it is the copy of this run now, which discard() removes.
  void take(const Found& found);
  // False when the copy cannot be removed.
  bool remove(const Found& found);

  // To be called now and then with the seconds since some start. Writes when the project is dirty, differs
  // from the copy, and a minute has passed. False when it could not be written (said once, then silent).
  bool tick(ProjectDocument& document, const PictureStore& pictures, const std::string& originalPath,
            std::int64_t seconds);
  // Writes the copy whatever the time is. False when it could not be written.
  bool write(const ProjectDocument& document, const PictureStore& pictures, const std::string& originalPath);
  // The project was saved, or left without saving on purpose.
  void discard();
  // The copy stays for the next start, and the project that comes gets one of its own.
  void leave();

 private:
  bool claimName();
  std::string originalOf(const std::string& copyPath) const;

  Files& files_;
  std::string folder_;
  std::string copyPath_;               // of this run, "" for none
  std::string written_;                // digest of its bytes and of the original's path
  bool failed_ = false;                // and the person was told
  std::optional<std::int64_t> since_;  // begin of the minute, while the project is dirty
};

}  // namespace plinth
