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
  // What an earlier run left behind.
  std::optional<Found> find() const;

  // To be called now and then with the seconds since some start. Writes when the project is dirty, differs
  // from the copy, and a minute has passed. False when it could not be written (said once, then silent).
  bool tick(ProjectDocument& document, const PictureStore& pictures, const std::string& originalPath,
            std::int64_t seconds);
  // The project was saved, or left without saving on purpose.
  void discard();

 private:
  Files& files_;
  std::string folder_;
};

}  // namespace plinth
