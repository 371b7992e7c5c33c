#include "engine/search/SearchLines.h"

#include <algorithm>

namespace plinth {
namespace {

constexpr const char* kSection = "Settings";
constexpr const char* kKey = "SQLcommands";

// A word of a command: blanks need quotes around them.
std::string word(const std::string& text) {
  return text.find(' ') == std::string::npos ? text : "'" + text + "'";
}

}  // namespace

std::vector<std::string> modelLines(const Application& application, const RecordForm& form,
                                    FocusObject object) {
  const auto i = static_cast<std::size_t>(object.index);
  std::string label, value;
  bool check = false;
  if (object.kind == FocusKind::field && application.storesField(object.index)) {
    label = application.field(object.index).tag;
    value = word(form.fields[i].text);
  } else if (object.kind == FocusKind::combo) {
    label = application.combo(object.index).tag;
    value = "'" + form.combos[i].text + "'";
  } else if (object.kind == FocusKind::check) {
    label = application.check(object.index).tag;
    value = "1";
    check = true;
  }
  if (label.empty()) return {};
  const std::string name = word(label);
  const std::string count = "COUNT " + name + "=" + value, sum = "SUM " + name;
  if (check) return {count, sum};
  return {"SELECT " + name + " WHERE " + name + "=" + value, sum, count};
}

// Each line stands in braces, one behind the other.
KeptLines::KeptLines(Settings& settings) : settings_(settings) {
  const std::string text = settings.get(kSection, kKey, "");
  for (std::size_t at = 0; (at = text.find('{', at)) != std::string::npos;) {
    const std::size_t end = text.find('}', at);
    if (end == std::string::npos) break;
    if (end > at + 1) lines_.push_back(text.substr(at + 1, end - at - 1));
    at = end + 1;
  }
}

bool KeptLines::holds(std::string_view line) const {
  return std::find(lines_.begin(), lines_.end(), line) != lines_.end();
}

bool KeptLines::toggle(std::string_view line) {
  const auto found = std::find(lines_.begin(), lines_.end(), line);
  const bool keep = found == lines_.end();
  if (!keep)
    lines_.erase(found);
  else if (line.empty() || line.find('}') != std::string_view::npos)
    return false;
  else
    lines_.emplace_back(line);
  std::string text;
  for (const std::string& kept : lines_) text += "{" + kept + "}";
  settings_.set(kSection, kKey, text);
  return keep;
}

}  // namespace plinth
