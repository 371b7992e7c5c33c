// The JSON of a project is one more walk over it; the listing for people is a few lines an object.
#include "model/ProjectDescription.h"

#include <sstream>

#include "basic/FileName.h"
#include "basic/Text.h"
#include "model/Digest.h"
#include "model/ProjectJson.h"
#include "model/ProjectWalk.h"

namespace plinth {

void ProjectJson::picture(const std::string& path, const char* name, const char* fileName, Versions) {
  const std::optional<Bytes> bytes = path.empty() ? std::nullopt : pictures_.get(path);
  text(bytes ? fileNameOf(path) : std::string(), name);
  if (!bytes) return;
  json_.key(fileName);
  file(*bytes);
}

void ProjectJson::file(std::span<const std::uint8_t> bytes) {
  json_.beginObject();
  json_.key("length").whole(static_cast<std::int64_t>(bytes.size()));
  json_.key("sha256").text(sha256(bytes));
  json_.endObject();
}

void ProjectJson::report(const ReportRow& report) {
  const ReportRow sorted = labelsBySlot(report);
  walkReport(*this, sorted);
}

std::string describeProject(const ProjectDocument& document, const PictureStore& pictures,
                            const FileFacts& facts) {
  JsonWriter json(1);
  ProjectJson archive(json, pictures, codePageOfCharSet(document.charSet));
  FileExtras extras{.caption = facts.caption, .saveDate = facts.saveDate};
  json.beginObject();
  walkProject(archive, document, extras);
  if (facts.size > 0) {
    json.key("_file").beginObject();
    json.key("end").whole(facts.end).key("size").whole(facts.size);
    json.endObject();
  }
  json.endObject();
  return json.str();
}

namespace {

// Rows of a listing: one line an object, in the order of tables and indices.
class Listing {
 public:
  explicit Listing(const ProjectDocument& d) : d_(d), codePage_(codePageOfCharSet(d.charSet)) {}

  std::string all() {
    out_ << utf8(d_.appTitle.empty() ? "Untitled" : d_.appTitle) << "\n";
    counts();
    for (int page = 0; page < kPages; ++page)
      onPage(page, "Page " + std::to_string(page + 1), d_.pageCaptions[page]);
    onPage(kPageAll, "All pages", "");
    for (std::size_t i = 0; i < d_.reports.size(); ++i) report(static_cast<int>(i), d_.reports[i]);
    return out_.str();
  }

 private:
  std::string utf8(const std::string& text) const { return oneLine(toUtf8(text, codePage_)); }

  void counts() {
    const auto live = [](const auto& rows, std::size_t first) {
      int count = 0;
      for (std::size_t i = first; i < rows.size(); ++i) count += isLivePage(rows[i].page) ? 1 : 0;
      return count;
    };
    out_ << "  format version " << d_.formatVersion << ", page " << d_.pageWidth / kTwipsPerPixel << " x "
         << d_.pageHeight / kTwipsPerPixel << " pixels\n"
         << "  fields " << live(d_.fields, 1) << ", memos " << live(d_.memos, 1) << ", combos "
         << live(d_.combos, 1) << ", pictures " << live(d_.pictures, 0) << ", check boxes "
         << live(d_.checks, 0) << ", labels " << live(d_.titles, 1) << ", lines " << live(d_.lines, 0)
         << ", squares " << live(d_.squares, 0) << ", scripts " << live(d_.scripts, 1) << ", buttons "
         << live(d_.buttons, 0) << ", reports " << d_.reports.size() << "\n";
  }

  // `what`: what else to tell of a row, in the project's code page.
  template <class Rows, class What>
  void table(const Rows& rows, const std::string& letter, int page, What&& what) {
    for (std::size_t i = 0; i < rows.size(); ++i) {
      if (rows[i].page != page) continue;
      out_ << "    " << letter << i;
      const std::string text = utf8(what(rows[i]));
      if (!text.empty()) out_ << "  " << text;
      out_ << "\n";
    }
  }

  void onPage(int page, const std::string& heading, const std::string& caption) {
    out_ << "  " << heading << (caption.empty() ? "" : ": " + utf8(caption)) << "\n";
    const auto tagged = [](const auto& row) { return row.tag; };
    table(d_.fields, "F", page,
          [](const FieldRow& row) { return row.tag + (row.formula.empty() ? "" : " = " + row.formula); });
    table(d_.memos, "M", page, tagged);
    table(d_.combos, "C", page, [](const ComboRow& row) {
      return row.tag + " (" + std::to_string(row.items.size()) + " entries)";
    });
    table(d_.pictures, "P", page, [](const PictureRow& row) {
      return row.picFlag ? row.picField + " (of each record)" : fileNameOf(row.picturePath);
    });
    table(d_.checks, "K", page, tagged);
    table(d_.titles, "L", page, [](const TitleRow& row) { return '"' + row.caption + '"'; });
    table(d_.lines, "Line ", page, [](const LineRow&) { return std::string(); });
    table(d_.squares, "Square ", page, [](const SquareRow&) { return std::string(); });
    table(d_.scripts, "Script ", page,
          [](const ScriptRow& row) { return row.tag.substr(0, row.tag.find_first_of("\r\n")); });
    table(d_.buttons, "Button ", page,
          [](const ButtonRow& row) { return '"' + row.caption + "\" " + row.tag; });
  }

  void report(int index, const ReportRow& report) {
    if (report.title.empty()) return;
    out_ << "  Report " << index << ": " << utf8(report.title) << " (" << report.labels.size() << " labels, "
         << report.pictures.size() << " pictures, " << report.lines.size() << " lines, "
         << report.shapes.size() << " shapes)\n";
  }

  const ProjectDocument& d_;
  int codePage_;
  std::ostringstream out_;
};

}  // namespace

std::string showProject(const ProjectDocument& document) { return Listing(document).all(); }

}  // namespace plinth
