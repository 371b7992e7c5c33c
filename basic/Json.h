// Writing JSON for machines that read our tools: objects, arrays and values in the order they are named.
// UTF-8 out.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace plinth {

// Builds one JSON text. Keys stand in the order of the calls. Numbers: whole ones without a point, floats in
// their shortest exact form with a point ("240.0"), null when not finite. One line: ", " and ": " stand
// between items. REQUIRES each begin to be ended, and a key before each value of an object.
class JsonWriter {
 public:
  // indent: blanks a level, 0 for one line.
  explicit JsonWriter(int indent = 0) : indent_(indent) {}
  JsonWriter& beginObject();
  JsonWriter& endObject();
  JsonWriter& beginArray();
  JsonWriter& endArray();
  JsonWriter& key(std::string_view utf8);
  JsonWriter& text(std::string_view utf8);
  JsonWriter& whole(std::int64_t value);
  JsonWriter& real(float value);
  JsonWriter& real(double value);
  JsonWriter& boolean(bool value);
  JsonWriter& null();
  const std::string& str() const { return out_; }

 private:
  void lead();
  void newLine();
  JsonWriter& open(char bracket);
  JsonWriter& close(char bracket);
  JsonWriter& literal(std::string_view word);
  template <class T> JsonWriter& number(T value);
  int indent_;
  std::string out_;
  std::vector<bool> hasItems_;
  bool afterKey_ = false;
};

}  // namespace plinth
