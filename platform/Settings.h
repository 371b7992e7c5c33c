// The settings store of small values by application, section and key: the registry on Windows, a text
// file elsewhere.
#pragma once

#include <memory>
#include <string>

namespace plinth {

class Settings {
 public:
  virtual ~Settings() = default;
  virtual std::string get(const std::string& section, const std::string& key,
                          const std::string& fallback) const = 0;
  virtual void set(const std::string& section, const std::string& key, const std::string& value) = 0;
};

// The person's store of an application: the registry key Software\Plinth\<application> on Windows; elsewhere
// the file <application>.ini in the "plinth" folder of $XDG_CONFIG_HOME, or of ~/.config.
std::unique_ptr<Settings> systemSettings(const std::string& application);

}  // namespace plinth
