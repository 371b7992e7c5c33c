// The describing archive: each element of the newest version as a JSON value under its name.
#pragma once

#include <string>
#include <vector>

#include "basic/CodePage.h"
#include "basic/Json.h"
#include "model/PictureStore.h"
#include "model/ProjectDocument.h"
#include "reports/block/BlockArchive.h"

namespace plinth {

class ProjectJson {
 public:
  static constexpr bool kReads = false;
  ProjectJson(JsonWriter& json, const PictureStore& pictures, int codePage)
      : json_(json), pictures_(pictures), codePage_(codePage) {}

  int version() const { return kNewestFormat; }
  bool accepts(const std::string&) const { return true; }
  void lookIsKnown(const ProjectDocument&) {}
  void versionIsKnown(std::int16_t) {}

  template <class T, class... Repair>
  void slot(const T& value, Tag tag, const char* name, Versions when = always, Repair&&...) {
    if (!begin(name, when)) return;
    if (tag == Tag::boolean)
      json_.boolean(value != T{});
    else if (tag == Tag::r4)
      json_.real(static_cast<float>(value));
    else
      json_.whole(static_cast<std::int64_t>(value));
  }
  void length(float value, const char* name, Versions when = always) { slot(value, Tag::r4, name, when); }
  void fontSize(float value, const char* name, Versions when = always) { slot(value, Tag::r4, name, when); }
  template <class... Repair>
  void text(const std::string& value, const char* name, Versions when = always, Repair&&...) {
    if (begin(name, when)) json_.text(toUtf8(value, codePage_));
  }
  void constant(Tag tag, double value, const char* name, Versions when = always) {
    slot(value, tag, name, when);
  }
  void constantText(const char* value, const char* name, Versions when = always) { text(value, name, when); }
  void icon(const Bytes& icon, const char* name, Versions when) {
    if (begin(name, when)) file(icon);
  }
  void picture(const std::string& path, const char* name, const char* file, Versions when);
  void items(const std::vector<std::string>& items, const char* name) {
    list(name, static_cast<int>(items.size()), [&](int i) { text(items[i], nullptr); });
  }
  void report(const ReportRow& report);

  template <class F>
  void onlyIf(bool condition, const char*, F&& walk) {
    if (condition) walk();
  }
  template <class F>
  void section(const char*, Versions when, F&& walk) {
    if (when.has(kNewestFormat)) walk();
  }
  template <class F>
  void list(const char* name, int count, F&& walk) {
    json_.key(name).beginArray();
    for (int i = 0; i < count; ++i) walk(i);
    json_.endArray();
  }
  template <class F>
  void fixedRows(const char* name, int count, Versions when, F&& walk) {
    if (!when.has(kNewestFormat)) return;
    list(name, count, [&](int i) { row([&] { walk(i); }); });
  }
  template <class F>
  void afterReading(F&&) {}
  template <class Row, class Live, class F>
  void rows(const std::vector<Row>& rows, const TableForm& form, Live&& live, F&& walk) {
    json_.key(form.name).beginArray();
    for (int i = form.first; i < static_cast<int>(rows.size()); ++i)
      if (live(rows[i])) row([&] { walk(rows[i], i); });
    json_.endArray();
  }

 private:
  bool begin(const char* name, Versions when) {
    if (!when.has(kNewestFormat)) return false;
    if (name) json_.key(name);
    return true;
  }
  template <class F>
  void row(F&& walk) {
    json_.beginObject();
    walk();
    json_.endObject();
  }
  void file(std::span<const std::uint8_t> bytes);

  JsonWriter& json_;
  const PictureStore& pictures_;
  int codePage_;
};

}  // namespace plinth
