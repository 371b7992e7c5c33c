// Reads of objects that do not exist give empty values and writes to them are passed over: formulas name
// numbers that the designer may have deleted since.
#include "engine/FormHost.h"

#include "formula/FieldDisplay.h"

namespace plinth {
namespace {

template <class Rows>
bool liveRow(const Rows& rows, int n) {
  return n >= 0 && n < static_cast<int>(rows.size()) &&
         Application::live(rows[static_cast<std::size_t>(n)].page);
}

}  // namespace

FormHost::FormHost(const Application& application, RecordForm& form, EngineView& view, Messages& messages,
                   const Clock& clock, const Locale& locale)
    : application_(application),
      form_(form),
      view_(view),
      messages_(messages),
      clock_(clock),
      locale_(locale) {}

bool FormHost::liveField(int n) const { return liveRow(application_.payload.fields, n); }

int FormHost::fieldType(int n) const { return liveField(n) ? application_.field(n).fieldType : 0; }

std::string_view FormHost::fieldFormula(int n) const {
  return liveField(n) ? std::string_view(application_.field(n).formula) : std::string_view();
}

int FormHost::fieldDayOffset(int n) const { return liveField(n) ? application_.field(n).dayOffset : 0; }

bool FormHost::fieldBlankWhenZero(int n) const {
  return liveField(n) && application_.field(n).noDefaultDate != 0;
}

std::string FormHost::fieldText(int n) const {
  return liveField(n) ? form_.fields[static_cast<std::size_t>(n)].text : std::string();
}

// What is assigned is cut to the room that the record has, so that the box shows what a reload will show.
void FormHost::setText(std::string& target, std::string_view text, std::int32_t room,
                       void (EngineView::*changed)(int), int n) {
  text = text.substr(0, static_cast<std::size_t>(room));
  if (target == text || !allowed()) return;
  target = text;
  (view_.*changed)(n);
}

void FormHost::setFieldText(int n, std::string_view text) {
  if (!liveField(n)) return;
  FormField& field = form_.fields[static_cast<std::size_t>(n)];
  const int kind = application_.field(n).fieldType;
  std::string shown(text);
  // A date is kept as its serial: the box shows that, in the form in which the record will show it.
  if (isDateKind(kind))
    shown = field.date == 0 ? "" : formatFieldDate(kind, field.date, application_.dateFormat, locale_);
  const bool asText = !isDateKind(kind) && !isNumberKind(kind);
  setText(field.text, shown, asText ? application_.field(n).fieldLength : kMaxFieldLength,
          &EngineView::fieldChanged, n);
}

double FormHost::fieldDate(int n) const {
  return liveField(n) ? form_.fields[static_cast<std::size_t>(n)].date : 0;
}

void FormHost::setFieldDate(int n, double serial) {
  if (!liveField(n)) return;
  double& date = form_.fields[static_cast<std::size_t>(n)].date;
  if (date != serial && allowed()) date = serial;
}

std::string FormHost::comboText(int n) const {
  return liveRow(application_.payload.combos, n) ? form_.combos[static_cast<std::size_t>(n)].text
                                                 : std::string();
}

void FormHost::setComboText(int n, std::string_view text) {
  if (liveRow(application_.payload.combos, n))
    setText(form_.combos[static_cast<std::size_t>(n)].text, text, application_.combo(n).fieldLength,
            &EngineView::comboChanged, n);
}

std::string FormHost::memoText(int n) const {
  return liveRow(application_.payload.memos, n) ? form_.memos[static_cast<std::size_t>(n)].text
                                                : std::string();
}

void FormHost::setMemoText(int n, std::string_view text) {
  if (liveRow(application_.payload.memos, n))
    setText(form_.memos[static_cast<std::size_t>(n)].text, text, application_.memo(n).fieldLength,
            &EngineView::memoChanged, n);
}

int FormHost::checkValue(int n) const {
  return liveRow(application_.payload.checks, n) && form_.checks[static_cast<std::size_t>(n)].value != 0 ? 1
                                                                                                         : 0;
}

void FormHost::setCheckValue(int n, int value) {
  if (!liveRow(application_.payload.checks, n) || checkValue(n) == value || !allowed()) return;
  form_.checks[static_cast<std::size_t>(n)].value = value;
  view_.checkChanged(n);
}

}  // namespace plinth
