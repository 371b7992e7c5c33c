// JSON as a flat list of paths and raw values ("Fields[0].Tag" -> "\"Name\""), so that two texts compare key
// by key.
#pragma once

#include <map>
#include <string>
#include <string_view>

namespace plinth {

class FlatJson {
 public:
  using Values = std::map<std::string, std::string>;
  static Values of(std::string_view text) {
    FlatJson reader(text);
    reader.value("");
    return reader.values_;
  }

 private:
  explicit FlatJson(std::string_view text) : rest_(text) {}

  char next() {
    while (!rest_.empty() && std::string_view(" \n\r\t,:").find(rest_.front()) != std::string_view::npos)
      rest_.remove_prefix(1);
    return rest_.empty() ? '\0' : rest_.front();
  }
  std::string string() {
    std::size_t end = 1;
    while (rest_[end] != '"') end += rest_[end] == '\\' ? 2 : 1;
    return take(end + 1);
  }
  std::string take(std::size_t count) {
    const std::string taken(rest_.substr(0, count));
    rest_.remove_prefix(count);
    return taken;
  }
  void value(const std::string& path) {
    const char first = next();
    if (first == '{' || first == '[') {
      const char last = first == '{' ? '}' : ']';
      take(1);
      for (int i = 0; next() != last; ++i) {
        if (first == '[') {
          value(path + "[" + std::to_string(i) + "]");
        } else {
          const std::string key = string();
          value(path + (path.empty() ? "" : ".") + key.substr(1, key.size() - 2));
        }
      }
      take(1);
    } else {
      values_[path] = first == '"' ? string() : take(rest_.find_first_of(",]} \n"));
    }
  }

  std::string_view rest_;
  Values values_;
};

}  // namespace plinth
