// A settings store in memory; section and key do not tell upper from lower case, as in the registry.
#pragma once

#include <map>
#include <string>
#include <utility>

#include "basic/Text.h"
#include "platform/Settings.h"

namespace plinth {

class MemorySettings : public Settings {
 public:
  std::string get(const std::string& section, const std::string& key,
                  const std::string& fallback) const override {
    const auto found = values_.find(place(section, key));
    return found == values_.end() ? fallback : found->second;
  }
  void set(const std::string& section, const std::string& key, const std::string& value) override {
    values_[place(section, key)] = value;
  }
  std::size_t count() const { return values_.size(); }

 private:
  using Place = std::pair<std::string, std::string>;
  static Place place(const std::string& section, const std::string& key) {
    return {lowerAscii(section), lowerAscii(key)};
  }
  std::map<Place, std::string> values_;
};

}  // namespace plinth
