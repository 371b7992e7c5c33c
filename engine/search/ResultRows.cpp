// A record is loaded as into its boxes, and the cells are what the boxes show.
#include "engine/search/ResultRows.h"

#include <algorithm>

#include "basic/DateSerial.h"
#include "basic/Text.h"
#include "engine/search/PlainTerms.h"
#include "formula/FieldDisplay.h"

namespace plinth {
namespace {

constexpr int kCheckWidth = 5;

// Object of a column code: F n, C 2000+n, K 4000+n, M 6000+n. Kind none for 0 and the codes in between.
FocusObject objectOfCode(int code) {
  if (code >= 1 && code <= 1999) return {FocusKind::field, code};
  if (code >= 2001 && code <= 3999) return {FocusKind::combo, code - 2000};
  if (code >= 4000 && code <= 5999) return {FocusKind::check, code - 4000};
  if (code > 6000) return {FocusKind::memo, code - 6000};
  return {};
}

template <class Row>
const Row* liveRow(const std::vector<Row>& rows, int index) {
  const auto i = static_cast<std::size_t>(index);
  return i < rows.size() && Application::live(rows[i].page) ? &rows[i] : nullptr;
}

int clampedWidth(std::int64_t chars) {
  return static_cast<int>(std::clamp<std::int64_t>(chars, 1, kWidestColumn));
}

// Room for the longest day in this form.
int dateWidth(int kind, const Application& application, const Locale& locale) {
  const double longDay = toSerial({2026, 9, 30});  // a Wednesday in September
  return clampedWidth(
      static_cast<std::int64_t>(formatFieldDate(kind, longDay, application.dateFormat, locale).size()));
}

// The words that stand before the date stamp, if the design has any rather than a sample date.
std::string stampHeader(const Application& application) {
  const std::string& caption = application.titleRow(4).caption;
  const bool isSample = caption.find_first_of("0123456789") != std::string::npos;
  const std::string words = trim(caption.substr(0, caption.find(':')));
  return isSample || words.empty() ? "Date" : words;
}

// Joins what is not empty.
std::string joined(const std::vector<std::string>& texts) {
  std::string out;
  for (const std::string& text : texts) {
    if (text.empty()) continue;
    if (!out.empty()) out += " | ";
    out += text;
  }
  return out;
}

std::string memoCell(std::string_view text) {
  return replaceAll(text.substr(0, kMemoCellChars), "\r\n", " ");
}

}  // namespace

ResultRows::ResultRows(RecordStore& store, const Application& application, const Locale& locale,
                       std::vector<RecordKey> keys, const ShowColumns& columns)
    : store_(store),
      application_(application),
      locale_(locale),
      keys_(std::move(keys)),
      form_(makeRecordForm(application)) {
  if (!keys_.empty()) columns_.push_back(keyColumn());
  for (const std::int16_t code : columns) addColumn(code);
}

void ResultRows::showLabelsHolding(std::string_view line, bool matchCase) {
  labelTerms_.clear();
  for (const std::string& term : takePlainLineApart(line).terms)
    labelTerms_.emplace_back(term, matchCase, application_.codePage);
}

ResultColumn ResultRows::keyColumn() const {
  const RecordKey& key = keys_.front();
  if (key.object.kind == FocusKind::field) return fieldColumn(key.object.index);
  if (key.object.kind == FocusKind::check) return {key.label, kCheckWidth};
  if (key.object.kind == FocusKind::dateStamp)
    return {stampHeader(application_), dateWidth(6, application_, locale_), false, true};
  if (key.object.kind == FocusKind::variableLabels) return {"Labels", kWidestColumn};
  return {key.label, clampedWidth(key.length)};
}

ResultColumn ResultRows::fieldColumn(int n) const {
  const PayloadField& field = application_.field(n);
  const int width = isDateKind(field.fieldType) ? dateWidth(field.fieldType, application_, locale_)
                                                : clampedWidth(field.fieldLength);
  return {field.tag, width, isNumberKind(field.fieldType), isDateKind(field.fieldType)};
}

void ResultRows::addColumn(int code) {
  const FocusObject object = objectOfCode(code);
  const Payload& p = application_.payload;
  if (object.kind == FocusKind::field && liveRow(p.fields, object.index)) {
    columns_.push_back(fieldColumn(object.index));
  } else if (const auto* combo = liveRow(p.combos, object.index); object.kind == FocusKind::combo && combo) {
    columns_.push_back({combo->tag, clampedWidth(combo->fieldLength)});
  } else if (const auto* check = liveRow(p.checks, object.index); object.kind == FocusKind::check && check) {
    columns_.push_back({check->tag, kCheckWidth});
  } else if (const auto* memo = liveRow(p.memos, object.index); object.kind == FocusKind::memo && memo) {
    columns_.push_back({memo->tag, clampedWidth(memo->fieldLength)});
  } else {
    return;
  }
  objects_.push_back(object);
}

std::vector<std::string> ResultRows::cells(std::int32_t record) {
  std::vector<std::string> cells(columns_.size());
  if (!store_.load(record, form_)) return cells;
  auto cell = cells.begin();
  if (!keys_.empty()) *cell++ = keyCell();
  for (const FocusObject& object : objects_) {
    // What was searched stands in its own column as it stands in front.
    const auto key = std::find_if(keys_.begin(), keys_.end(),
                                  [&](const RecordKey& searched) { return searched.object == object; });
    *cell++ = key == keys_.end() ? objectCell(object) : keyPart(*key);
  }
  return cells;
}

std::string ResultRows::keyCell() const {
  std::vector<std::string> parts;
  for (const RecordKey& key : keys_) parts.push_back(keyPart(key));
  return joined(parts);
}

std::string ResultRows::keyPart(const RecordKey& key) const {
  switch (key.object.kind) {
    case FocusKind::memo:
      return memoCell(objectCell(key.object));
    case FocusKind::field: {
      // Boxes may leave a zero out; a value that was searched for shows.
      const std::string text = objectCell(key.object);
      return text.empty() && isNumberKind(key.fieldKind) ? formatFieldNumber(key.fieldKind, 0, locale_) : text;
    }
    case FocusKind::dateStamp:
      return form_.dateStamp == 0 ? ""
                                  : formatFieldDate(6, form_.dateStamp, application_.dateFormat, locale_);
    case FocusKind::variableLabels:
      return labelsCell();
    default:
      return objectCell(key.object);
  }
}

std::string ResultRows::labelsCell() const {
  std::vector<std::string> texts;
  for (const VariableLabel& label : form_.labels) {
    const auto stands = [&](const TextMatch& term) { return term.found(label.text); };
    if (label.visible &&
        (labelTerms_.empty() || std::any_of(labelTerms_.begin(), labelTerms_.end(), stands)))
      texts.push_back(label.text);
  }
  return joined(texts);
}

// REQUIRES an object of the application.
std::string ResultRows::objectCell(FocusObject object) const {
  const auto i = static_cast<std::size_t>(object.index);
  switch (object.kind) {
    case FocusKind::field:
      return application_.storesField(object.index) ? form_.fields[i].text : "";
    case FocusKind::combo:
      return form_.combos[i].text;
    case FocusKind::check:
      return std::to_string(form_.checks[i].value);
    case FocusKind::memo:
      return form_.memos[i].text;
    default:
      return "";
  }
}

}  // namespace plinth
