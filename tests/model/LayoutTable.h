// The walk told as a table for people: each element with its type and when it is there. The page on the
// project file holds this table; a test compares the two.
#pragma once

#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "model/ProjectWalk.h"

namespace plinth {

class LayoutTable {
 public:
  static constexpr bool kReads = false;

  static std::string ofProject() {
    LayoutTable table;
    const ProjectDocument document;
    FileExtras extras;
    walkProject(table, document, extras);
    return "| Element | Type | Present |\n|---|---|---|\n" + table.out_.str();
  }

  bool accepts(const std::string&) const { return true; }
  void lookIsKnown(const ProjectDocument&) {}
  void versionIsKnown(std::int16_t) {}

  template <class T, class... Repair>
  void slot(const T&, Tag tag, const char* name, Versions when = always, Repair&&...) {
    line(name, slotOf(tag), when);
  }
  void length(float, const char* name, Versions when = always) { line(name, "V(r4) twips", when); }
  void fontSize(float, const char* name, Versions when = always) { line(name, "V(r4) points", when); }
  template <class... Repair>
  void text(const std::string&, const char* name, Versions when = always, Repair&&...) {
    line(name, "S", when);
  }
  void constant(Tag tag, double value, const char* name, Versions when = always) {
    line(name, slotOf(tag) + " " + std::to_string(static_cast<int>(value)), when);
  }
  void constantText(const char* value, const char* name, Versions when = always) {
    line(name, *value ? "S \"" + std::string(value) + "\"" : "S ignored", when);
  }
  void icon(const Bytes&, const char* name, Versions when) {
    line(name, "V(i4) length - 1, B × length", when);
  }
  void picture(const std::string&, const char* name, const char* file, Versions when) {
    line(name, "S", always);
    onlyIf(true, "FileName not empty", [&] { line(file, "L", when); });
  }
  void items(const std::vector<std::string>&, const char* name) {
    line(name, "V(i4) count, S × count", always);
  }
  void report(const ReportRow& report) { walkReport(*this, report); }

  template <class F>
  void onlyIf(bool, const char* words, F&& walk) {
    conditions_.push_back(words);
    walk();
    conditions_.pop_back();
  }
  template <class F>
  void section(const char*, Versions when, F&& walk) {
    if (when == always) return walk();
    onlyIf(true, condition(when).c_str(), walk);
  }
  template <class F>
  void list(const char* name, int count, F&& walk) {
    runs_.clear();
    inList_ = true;
    for (int i = 0; i < count; ++i) walk(i);
    inList_ = false;
    for (const auto& [element, times] : runs_)
      line(name, element.first + " × " + std::to_string(times), element.second);
  }
  template <class F>
  void fixedRows(const char* name, int count, Versions when, F&& walk) {
    line(name, std::to_string(count) + " rows", when);
    inside(name, [&] { walk(0); });
  }
  template <class F>
  void afterReading(F&&) {}
  template <class Row, class Live, class F>
  void rows(const std::vector<Row>&, const TableForm& form, Live&&, F&& walk) {
    line(form.name,
         slotOf(form.countTag) + " rows" + (form.bias ? " - 1" : "") + ", first index " +
             std::to_string(form.first),
         always);
    Row sample;
    inside(form.name, [&] { walk(sample, form.first); });
  }

 private:
  static std::string slotOf(Tag tag) {
    switch (tag) {
      case Tag::i2:
        return "V(i2)";
      case Tag::i4:
        return "V(i4)";
      case Tag::r4:
        return "V(r4)";
      case Tag::boolean:
        return "V(bool)";
      case Tag::ui1:
        return "V(ui1)";
      case Tag::text:
        return "V(text)";
    }
    return "";
  }
  static std::string condition(Versions when) {
    return when.last == INT_MAX ? "v>" + std::to_string(when.first - 1)
                                : "v<" + std::to_string(when.last + 1);
  }
  template <class F>
  void inside(const std::string& name, F&& walk) {
    const std::string outer = prefix_;
    prefix_ += name + ".";
    walk();
    prefix_ = outer;
  }
  void line(const char* name, const std::string& type, Versions when) {
    if (inList_) {
      if (runs_.empty() || runs_.back().first != std::pair(type, when)) runs_.push_back({{type, when}, 0});
      ++runs_.back().second;
      return;
    }
    std::string present;
    for (const std::string& words : conditions_) present += (present.empty() ? "" : ", ") + words;
    if (!(when == always)) present += (present.empty() ? "" : ", ") + condition(when);
    out_ << "| `" << prefix_ << name << "` | " << type << " | " << present << " |\n";
  }

  std::ostringstream out_;
  std::string prefix_;
  std::vector<std::string> conditions_;
  bool inList_ = false;
  std::vector<std::pair<std::pair<std::string, Versions>, int>> runs_;
};

}  // namespace plinth
