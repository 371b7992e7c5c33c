// Each form of reference is found by one scan from left to right, so that no number is changed twice and no
// text ever holds a mark of ours.
#include "model/FormulaReferences.h"

#include <optional>

#include "basic/Text.h"

namespace plinth {

namespace {

using NewNumber = std::function<int(int)>;

constexpr std::size_t kMostDigits = 5;
constexpr std::size_t kFunctionKeyDigits = 4;
constexpr int kLastSystemTitle = 5;
constexpr std::string_view kReferenceLetters = "FCMK";

bool isDigit(char c) { return c >= '0' && c <= '9'; }

bool isWordCharacter(char c) {
  return isDigit(c) || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') ||
         static_cast<unsigned char>(c) > 127;
}

std::size_t endOfDigits(std::string_view text, std::size_t at) {
  while (at < text.size() && isDigit(text[at])) ++at;
  return at;
}

// The number from `at` to `end`; nullopt when it is none that an object can have, or written another way
// ("F007" is no reference).
std::optional<int> objectNumber(std::string_view text, std::size_t at, std::size_t end) {
  if (end == at || end - at > kMostDigits || (text[at] == '0' && end - at > 1)) return std::nullopt;
  int number = 0;
  for (std::size_t i = at; i < end; ++i) number = number * 10 + (text[i] - '0');
  return number;
}

// A part of a text that holds an object's number, and where it ends.
struct Found {
  std::size_t numberAt = 0, numberEnd = 0;
  std::size_t end = 0;
};

// Rewrites the numbers of all references that find(text, at) sees to begin at a place.
template <class Find>
std::string rewritten(std::string_view text, const NewNumber& newNumber, Find&& find) {
  std::string out;
  for (std::size_t at = 0; at < text.size();) {
    const std::optional<Found> found = find(text, at);
    const std::optional<int> number =
        found ? objectNumber(text, found->numberAt, found->numberEnd) : std::nullopt;
    if (!number) {
      out += text[at++];
      continue;
    }
    out.append(text.substr(at, found->numberAt - at)).append(std::to_string(newNumber(*number)));
    out.append(text.substr(found->numberEnd, found->end - found->numberEnd));
    at = found->end;
  }
  return out;
}

bool beginsReference(std::string_view text, std::size_t at) {
  return at == 0 || !(isWordCharacter(text[at - 1]) || text[at - 1] == ')');
}

// "F12", behind whose number `follows` stands when that is not 0.
auto letterFirst(char letter, char follows = 0) {
  return [=](std::string_view text, std::size_t at) -> std::optional<Found> {
    if (text[at] != letter || !beginsReference(text, at)) return std::nullopt;
    const std::size_t end = endOfDigits(text, at + 1);
    if (follows != 0 && (end == text.size() || text[end] != follows)) return std::nullopt;
    return Found{at + 1, end, end};
  };
}

// "12F", as the lists of the dialogs offer fields and check boxes. Other letters are operators there: "2C" is
// a cosine.
auto numberFirst(char letter) {
  return [=](std::string_view text, std::size_t at) -> std::optional<Found> {
    if (!isDigit(text[at]) || !beginsReference(text, at) || (at > 0 && text[at - 1] == '.'))
      return std::nullopt;
    const std::size_t end = endOfDigits(text, at);
    if (end == text.size() || text[end] != letter) return std::nullopt;
    if (end + 1 < text.size() && isWordCharacter(text[end + 1])) return std::nullopt;
    return Found{at, end, end + 1};
  };
}

// ":12F" in whatever case; of the other sign, '$', with a record slot: "$12=2F".
auto marked(char sign, char letter, bool withSlot) {
  return [=](std::string_view text, std::size_t at) -> std::optional<Found> {
    if (text[at] != sign) return std::nullopt;
    const std::size_t numberEnd = endOfDigits(text, at + 1);
    std::size_t end = numberEnd;
    if (withSlot) {
      if (end == text.size() || text[end] != '=') return std::nullopt;
      end = endOfDigits(text, end + 1);
    }
    if (end == text.size() || upperAscii(text.substr(end, 1))[0] != letter) return std::nullopt;
    return Found{at + 1, numberEnd, end + 1};
  };
}

// A link is a path or an address; values are put in where it says so with ":", or where it is a command.
std::string renumberedLink(const std::string& link, char letter, const NewNumber& newNumber) {
  const bool command = contains(lowerAscii(link), ".exe ");
  return rewritten(link, newNumber, letterFirst(letter, command ? '\0' : ':'));
}

void renumberColumn(std::string& column, char letter, const NewNumber& newNumber) {
  const std::string text = upperAscii(trim(column));
  if (text.empty() || text[0] != letter) return;
  if (const auto number = objectNumber(text, 1, endOfDigits(text, 1)))
    column = letter + std::to_string(newNumber(*number)) + text.substr(endOfDigits(text, 1));
}

std::int16_t toSlot(int number) { return static_cast<std::int16_t>(number); }

void renumberLabel(ReportLabel& label, char letter, const NewNumber& newNumber) {
  if (label.fieldOfLabel < 0) {
    label.caption = rewritten(label.caption, newNumber, marked('$', letter, true));
  } else if (letter == 'K') {
    if (!label.caption.empty() && label.caption[0] == 'x')
      label.fieldOfLabel = toSlot(newNumber(label.fieldOfLabel));
  } else if (!label.caption.empty() && label.caption[0] == letter) {
    label.fieldOfLabel = toSlot(newNumber(label.fieldOfLabel));
    const std::size_t numberEnd = endOfDigits(label.caption, 1);
    label.caption = letter + std::to_string(label.fieldOfLabel) + label.caption.substr(numberEnd);
  }
}

void renumberFieldsOfProject(ProjectDocument& d, const NewNumber& newNumber) {
  if (d.emailField > 0) d.emailField = toSlot(newNumber(d.emailField));
  if (d.emailNameField > 0) d.emailNameField = toSlot(newNumber(d.emailNameField));
  for (std::string& key : d.functionKey) {
    const std::size_t end = endOfDigits(key, 0);
    if (key.empty() || end != key.size() || end > kFunctionKeyDigits) continue;
    if (const auto number = objectNumber(key, 0, end)) key = std::to_string(newNumber(*number));
  }
}

void renumberFormulas(ProjectDocument& d, char letter, const NewNumber& newNumber) {
  for (FieldRow& row : d.fields)
    if (!row.formula.empty()) row.formula = renumbered(row.formula, letter, newNumber);
  for (ButtonRow& row : d.buttons) {
    row.buttonPath = renumbered(row.buttonPath, letter, newNumber);
    if (letter == 'F' || letter == 'K')
      row.buttonPath = rewritten(row.buttonPath, newNumber, numberFirst(letter));
    row.tag = renumberedLink(row.tag, letter, newNumber);
  }
  for (TitleRow& row : d.titles)
    if (!row.tag.empty()) row.tag = renumberedLink(row.tag, letter, newNumber);
  for (PictureRow& row : d.pictures)
    if (!row.tag.empty()) row.tag = renumberedLink(row.tag, letter, newNumber);
  for (std::string& column : d.search.text1) renumberColumn(column, letter, newNumber);
  for (ReportRow& report : d.reports)
    for (ReportLabel& label : report.labels) renumberLabel(label, letter, newNumber);
}

// Rows from `first` on that wait to be dropped go; those before it have a slot of their own and are vacant.
template <class Row>
std::vector<int> dropDeleted(std::vector<Row>& rows, int first) {
  for (int i = 0; i < first && i < static_cast<int>(rows.size()); ++i)
    if (rows[static_cast<std::size_t>(i)].page >= kPageDeleted)
      rows[static_cast<std::size_t>(i)].page = kPageVacant;
  return closeGaps(rows, [&](int i) { return rows[static_cast<std::size_t>(i)].page >= kPageDeleted; });
}

}  // namespace

std::string renumbered(std::string_view text, char letter, const NewNumber& newNumber) {
  return rewritten(text, newNumber, letterFirst(letter));
}

void renumberReferences(ProjectDocument& d, char letter, const NewNumber& newNumber) {
  if (kReferenceLetters.find(letter) != std::string_view::npos) renumberFormulas(d, letter, newNumber);
  if (letter == 'F') renumberFieldsOfProject(d, newNumber);
  if (letter == 'P')
    for (ReportRow& report : d.reports)
      for (ReportPicture& picture : report.pictures)
        picture.pictureOfImage = toSlot(newNumber(picture.pictureOfImage));
  for (DocumentTemplate& row : d.documents) {
    row.templatePath = rewritten(row.templatePath, newNumber, marked(':', letter, false));
    if (letter == 'L') row.templatePath = rewritten(row.templatePath, newNumber, marked('$', letter, false));
  }
}

std::function<int(int)> numberedBy(const std::vector<int>& numbers) {
  return [&numbers](int old) {
    return old >= 0 && old < static_cast<int>(numbers.size()) ? numbers[static_cast<std::size_t>(old)] : old;
  };
}

ProjectDocument withoutDeleted(const ProjectDocument& document) {
  ProjectDocument kept = document;
  dropDeleted(kept.squares, 0);
  dropDeleted(kept.lines, 1);
  dropDeleted(kept.buttons, 0);
  const std::vector<int> titles = dropDeleted(kept.titles, kLastSystemTitle + 1);
  const std::vector<int> checks = dropDeleted(kept.checks, 0);
  if (kept.titles.size() != document.titles.size()) renumberReferences(kept, 'L', numberedBy(titles));
  if (kept.checks.size() != document.checks.size()) renumberReferences(kept, 'K', numberedBy(checks));
  return kept;
}

}  // namespace plinth
