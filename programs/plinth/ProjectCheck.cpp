// Each check is a small function that adds sentences; none changes the project.
#include "programs/plinth/ProjectCheck.h"

#include <charconv>
#include <map>

#include "basic/Text.h"

namespace plinth {
namespace {

using Findings = std::vector<std::string>;

// Live object n of a reference's letter.
bool refersToObject(const ProjectDocument& d, char letter, int n) {
  const auto live = [n](const auto& rows, int first) {
    return n >= first && n < static_cast<int>(rows.size()) &&
           isLivePage(rows[static_cast<std::size_t>(n)].page);
  };
  switch (letter) {
    case 'F':
      return live(d.fields, 1);
    case 'C':
      return live(d.combos, 1);
    case 'K':
      return live(d.checks, 0);
    case 'M':
      return live(d.memos, 1);
    case 'P':
      return live(d.pictures, 0);
    default:
      return true;
  }
}

// Reads a decimal number at `at`; the characters it takes, 0 for none.
std::size_t numberAt(const std::string& text, std::size_t at, int& value) {
  const char* begin = text.data() + at;
  const auto [end, error] = std::from_chars(begin, text.data() + text.size(), value);
  return error == std::errc() && *begin != '-' ? static_cast<std::size_t>(end - begin) : 0;
}

void checkText(const ProjectDocument& d, const std::string& text, const std::string& place, Findings& out) {
  bool quoted = false;
  for (std::size_t at = 0; at + 1 < text.size(); ++at) {
    if (text[at] == '"') quoted = !quoted;
    const bool starts = at == 0 || !((text[at - 1] >= 'A' && text[at - 1] <= 'Z') ||
                                     (text[at - 1] >= 'a' && text[at - 1] <= 'z') || text[at - 1] == '_');
    if (quoted || !starts || std::string_view("FCKM").find(text[at]) == std::string_view::npos) continue;
    int n = 0;
    if (numberAt(text, at + 1, n) && !refersToObject(d, text[at], n)) {
      out.push_back(place + " refers to " + text[at] + std::to_string(n) + ", which does not exist");
    }
  }
}

void checkFormulas(const ProjectDocument& d, Findings& out) {
  for (std::size_t n = 1; n < d.fields.size(); ++n) {
    if (isLivePage(d.fields[n].page))
      checkText(d, d.fields[n].formula, "the formula of F" + std::to_string(n), out);
  }
}

void checkLabels(const ProjectDocument& d, Findings& out) {
  std::map<std::string, std::string> seen;
  const auto look = [&](const auto& rows, std::size_t first, char letter) {
    for (std::size_t n = first; n < rows.size(); ++n) {
      if (!isLivePage(rows[n].page)) continue;
      const std::string reference = letter + std::to_string(n);
      if (rows[n].tag.empty()) {
        out.push_back(reference + " has no field label");
        continue;
      }
      const auto [earlier, fresh] = seen.emplace(lowerAscii(rows[n].tag), reference);
      if (!fresh)
        out.push_back(reference + " has the field label of " + earlier->second + ": " + rows[n].tag);
    }
  };
  look(d.fields, 1, 'F');
  look(d.combos, 1, 'C');
  look(d.checks, 0, 'K');
  look(d.memos, 2, 'M');
}

void checkColumns(const ProjectDocument& d, Findings& out) {
  for (const std::string& column : d.search.text1) {
    int n = 0;
    if (column.empty()) continue;
    const bool known = std::string_view("FCKM").find(column[0]) != std::string_view::npos;
    if (!known || !numberAt(column, 1, n) || !refersToObject(d, column[0], n)) {
      out.push_back("the search window's column " + column + " refers to nothing");
    }
  }
  for (const int field : {d.emailField, d.emailNameField}) {
    if (field > 0 && !refersToObject(d, 'F', field)) {
      out.push_back("the e-mail field F" + std::to_string(field) + " does not exist");
    }
  }
}

void checkReports(const ProjectDocument& d, Findings& out) {
  for (const ReportRow& report : d.reports) {
    for (const ReportLabel& label : report.labels) {
      if (label.fieldOfLabel < 0 || label.caption.empty()) continue;
      const char letter = label.caption[0] == 'x' ? 'K' : label.caption[0];
      if (!refersToObject(d, letter, label.fieldOfLabel)) {
        out.push_back("report " + report.title + " shows " + letter + std::to_string(label.fieldOfLabel) +
                      ", which does not exist");
      }
    }
    for (const ReportPicture& picture : report.pictures) {
      if (!refersToObject(d, 'P', picture.pictureOfImage)) {
        out.push_back("report " + report.title + " shows P" + std::to_string(picture.pictureOfImage) +
                      ", which does not exist");
      }
    }
  }
}

void checkPlaces(const ProjectDocument& d, Findings& out) {
  const auto look = [&](const auto& rows, std::size_t first, const char* kind) {
    for (std::size_t n = first; n < rows.size(); ++n) {
      if (isLivePage(rows[n].page) && (rows[n].left >= d.pageWidth || rows[n].top >= d.pageHeight)) {
        out.push_back(std::string(kind) + " " + std::to_string(n) + " lies outside the page");
      }
    }
  };
  if (d.pageSizeCode != 22) return;  // other sizes follow the paper
  look(d.fields, 1, "field");
  look(d.combos, 1, "combo");
  look(d.memos, 2, "memo");
  look(d.checks, 0, "check box");
  look(d.buttons, 0, "button");
}

}  // namespace

std::vector<std::string> checkProject(const ProjectDocument& document) {
  Findings out;
  checkFormulas(document, out);
  checkLabels(document, out);
  checkColumns(document, out);
  checkReports(document, out);
  checkPlaces(document, out);
  return out;
}

std::vector<std::string> missingPictures(const ProjectDocument& document, const PictureStore& pictures) {
  Findings out;
  for (std::size_t n = 0; n < document.pictures.size(); ++n) {
    const std::string& path = document.pictures[n].picturePath;
    if (path.empty() || pictures.exists(path)) continue;
    out.push_back("P" + std::to_string(n) + " shows the picture " + path + ", which is not in the file");
  }
  return out;
}

}  // namespace plinth
