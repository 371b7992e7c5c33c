// Where the settings file of an application lies.
#include <cstdlib>

#include "platform/FileSettings.h"

namespace plinth {
namespace {

std::string configFolder() {
  const char* named = std::getenv("XDG_CONFIG_HOME");
  if (named && *named == '/') return named;  // relative ones are to be ignored
  const char* home = std::getenv("HOME");
  return std::string(home && *home ? home : ".") + "/.config";
}

}  // namespace

std::unique_ptr<Settings> systemSettings(const std::string& application) {
  std::string name = application;
  for (char& c : name)
    if (c == '/' || c == '\\' || c == '\0') c = '_';
  return std::make_unique<FileSettings>(systemFiles(), configFolder() + "/plinth/" + name + ".ini");
}

}  // namespace plinth
