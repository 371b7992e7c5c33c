// The settings store of small values by application, section and key: the registry on Windows, a text file elsewhere.
#pragma once

#include <string>

namespace plinth {

class Settings {
 public:
  virtual ~Settings() = default;
  virtual std::string get(const std::string& section, const std::string& key, const std::string& fallback) const = 0;
  virtual void set(const std::string& section, const std::string& key, const std::string& value) = 0;
};

}  // namespace plinth
