// Reading and writing the settings file. Names and values are escaped, so any byte survives.
#include "platform/FileSettings.h"

#include "basic/Text.h"

namespace plinth {
namespace {

// Which bytes may not stand in a line as they are.
bool breaksLine(unsigned char c, bool inName) {
  return c < 32 || c == '%' || (inName && (c == '=' || c == '[' || c == ']'));
}

std::string escaped(const std::string& text, bool inName) {
  static const char kHex[] = "0123456789ABCDEF";
  std::string out;
  for (const char c : text) {
    const auto byte = static_cast<unsigned char>(c);
    if (breaksLine(byte, inName))
      out += {'%', kHex[byte >> 4], kHex[byte & 15]};
    else
      out += c;
  }
  return out;
}

int hexDigit(char c) {
  if (c >= '0' && c <= '9') return c - '0';
  if (c >= 'A' && c <= 'F') return c - 'A' + 10;
  return c >= 'a' && c <= 'f' ? c - 'a' + 10 : -1;
}

std::string unescaped(std::string_view text) {
  std::string out;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const int high = text[i] == '%' && i + 2 < text.size() ? hexDigit(text[i + 1]) : -1;
    const int low = high >= 0 ? hexDigit(text[i + 2]) : -1;
    if (low < 0) {
      out += text[i];
      continue;
    }
    out += static_cast<char>(high * 16 + low);
    i += 2;
  }
  return out;
}

std::string folderOf(const std::string& path) {
  const std::size_t slash = path.find_last_of("/\\");
  return slash == std::string::npos ? "" : path.substr(0, slash);
}

}  // namespace

std::map<FileSettings::Place, std::string> FileSettings::load() const {
  std::map<Place, std::string> values;
  const Result<Bytes> bytes = files_.read(path_);
  if (!bytes.ok()) return values;
  std::string section;
  for (std::string line : split(std::string(bytes->begin(), bytes->end()), "\n")) {
    if (!line.empty() && line.back() == '\r') line.pop_back();
    const std::size_t equals = line.find('=');
    if (line.size() > 1 && line.front() == '[' && line.back() == ']')
      section = unescaped(std::string_view(line).substr(1, line.size() - 2));
    else if (equals != std::string::npos)
      values[{lowerAscii(section), lowerAscii(unescaped(std::string_view(line).substr(0, equals)))}] =
          unescaped(std::string_view(line).substr(equals + 1));
  }
  return values;
}

std::string FileSettings::get(const std::string& section, const std::string& key,
                              const std::string& fallback) const {
  const auto values = load();
  const auto found = values.find({lowerAscii(section), lowerAscii(key)});
  return found == values.end() ? fallback : found->second;
}

void FileSettings::set(const std::string& section, const std::string& key, const std::string& value) {
  auto values = load();
  values[{lowerAscii(section), lowerAscii(key)}] = value;
  std::string text;
  const std::string* open = nullptr;
  for (const auto& [place, one] : values) {
    if (!open || *open != place.first) text += "[" + escaped(place.first, true) + "]\n";
    open = &place.first;
    text += escaped(place.second, true) + "=" + escaped(one, false) + "\n";
  }
  const std::string folder = folderOf(path_);
  if (!folder.empty() && !files_.isFolder(folder) && !files_.makeFolder(folder).ok()) return;
  const Result<void> written =
      files_.write(path_, {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()});
  static_cast<void>(written.ok());
}

}  // namespace plinth
