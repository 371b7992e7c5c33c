// The lines that the search window offers: models for the object in focus, and those that somebody kept.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "engine/Application.h"
#include "engine/FocusObject.h"
#include "engine/RecordForm.h"
#include "platform/Settings.h"

namespace plinth {

// Lines to begin from, with the object's label and what its box shows now. Empty for objects without a label.
std::vector<std::string> modelLines(const Application& application, const RecordForm& form,
                                    FocusObject object);

// Lines that stay from run to run, in the settings of the person.
class KeptLines {
 public:
  // `settings` must outlive this.
  explicit KeptLines(Settings& settings);
  const std::vector<std::string>& lines() const { return lines_; }
  bool holds(std::string_view line) const;
  // CommLines_Click: keeps a line, or forgets one that was kept; saved at once. A line that holds "}" cannot
  // be told from the end of one: it is left out, as is an empty one. True when the line is kept now.
  bool toggle(std::string_view line);

 private:
  Settings& settings_;
  std::vector<std::string> lines_;
};

}  // namespace plinth
