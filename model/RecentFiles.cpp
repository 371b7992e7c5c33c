// Plinth.ini is small and read whole; a record that lies keeps its neighbours readable, since all are of one
// size.
#include "model/RecentFiles.h"

#include <algorithm>

#include "basic/Text.h"

namespace plinth {
namespace {

constexpr std::size_t kRecordSize = 128, kLengthSize = 2;

std::string record(std::span<const std::uint8_t> bytes, std::size_t number) {
  const std::size_t start = number * kRecordSize;
  if (bytes.size() < start + kLengthSize) return {};
  const std::size_t length = bytes[start] | bytes[start + 1] << 8;
  if (length > kRecordSize - kLengthSize || bytes.size() < start + kLengthSize + length) return {};
  const auto text = bytes.begin() + start + kLengthSize;
  return std::string(text, text + length);
}

void appendRecord(Bytes& bytes, const std::string& text) {
  const std::size_t end = bytes.size() + kRecordSize;
  const std::size_t length = text.size() > kRecordSize - kLengthSize ? 0 : text.size();
  bytes.push_back(static_cast<std::uint8_t>(length));
  bytes.push_back(0);
  bytes.insert(bytes.end(), text.begin(), text.begin() + length);
  bytes.resize(end);
}

}  // namespace

bool RecentFiles::add(const std::string& path) {
  const auto same = [&](const std::string& one) { return equalAsciiNoCase(one, path); };
  if (path.empty() || std::any_of(paths.begin(), paths.end(), same)) return false;
  std::rotate(paths.begin(), paths.end() - 1, paths.end());
  paths[0] = path;
  return true;
}

RecentFiles readRecentFiles(std::span<const std::uint8_t> bytes) {
  RecentFiles recent;
  for (std::size_t i = 0; i < recent.paths.size(); ++i) recent.paths[i] = record(bytes, i);
  recent.language = record(bytes, recent.paths.size());
  return recent;
}

Bytes writeRecentFiles(const RecentFiles& recent) {
  Bytes bytes;
  for (const std::string& path : recent.paths) appendRecord(bytes, path);
  appendRecord(bytes, recent.language);
  return bytes;
}

}  // namespace plinth
