// The settings store as a text file: sections in brackets, one "key=value" a line. For systems without a
// registry, and wherever a program shall keep its settings beside itself.
#pragma once

#include <map>
#include <string>
#include <utility>

#include "platform/Files.h"
#include "platform/Settings.h"

namespace plinth {

// Every set() reads the file again and replaces it whole, so that two programs lose nothing but the same key.
// Section and key do not tell upper from lower case. Bytes that would break a line are written as "%" and two
// hex digits. A file that cannot be read counts as empty; one that cannot be written loses the value
// silently, as no program stops for a window position.
class FileSettings : public Settings {
 public:
  FileSettings(Files& files, std::string path) : files_(files), path_(std::move(path)) {}
  std::string get(const std::string& section, const std::string& key,
                  const std::string& fallback) const override;
  void set(const std::string& section, const std::string& key, const std::string& value) override;

 private:
  using Place = std::pair<std::string, std::string>;  // section, key
  std::map<Place, std::string> load() const;
  Files& files_;
  std::string path_;
};

}  // namespace plinth
