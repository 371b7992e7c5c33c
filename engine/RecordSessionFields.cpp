// What boxes do on focus, key, typing and leaving. The window forwards; what a key or a text means is decided
// here.
#include <algorithm>

#include "basic/DateSerial.h"
#include "basic/DisplayFormat.h"
#include "basic/NumberReader.h"
#include "basic/Text.h"
#include "engine/FieldEntry.h"
#include "engine/RecordSession.h"
#include "formula/FieldDisplay.h"

namespace plinth {
namespace {

// Keys that change no text: they must not mark a record as changed.
bool isNavigationKey(const KeyEvent& key) {
  if (key.shift & kAlt) return true;
  if (key.shift & kCtrl)
    return key.key != 'X' && key.key != 'V' && key.key != 'Z' && key.key != 8 && key.key != kDeleteKey;
  if (key.key == kInsertKey) return !(key.shift & kShift);
  constexpr int kOthers[] = {9, 13, 16, 17, 18, kPauseKey, 20, 27, 44, 91, 92, 93, 144, 145};
  return (key.key >= kPageUpKey && key.key <= kDownKey) || (key.key >= kF1Key && key.key <= 135) ||
         std::find(std::begin(kOthers), std::end(kOthers), key.key) != std::end(kOthers);
}

// Clipboard and undo commands arrive as characters too; they are no text.
bool isCommandCharacter(unsigned char ch) { return ch == 1 || ch == 3 || ch == 22 || ch == 24 || ch == 26; }

std::string_view upTo(const std::string& text, int caret) {
  return std::string_view(text).substr(0, static_cast<std::size_t>(std::max(0, caret)));
}

}  // namespace

bool RecordSession::liveField(int n) const {
  return n >= 1 && n <= application().fieldCount() && Application::live(application().field(n).page);
}

// Texts are cut to the room that the record has, so that the box shows what a reload will show.
void RecordSession::setField(int n, std::string text, double date) {
  const PayloadField& row = application().field(n);
  if (!isNumberKind(row.fieldType) && !isDateKind(row.fieldType) &&
      text.size() > static_cast<std::size_t>(row.fieldLength))
    text.resize(static_cast<std::size_t>(row.fieldLength));
  FormField& box = field(n);
  box.date = date;
  if (box.text == text) return;
  box.text = std::move(text);
  view().fieldChanged(n);
}

void RecordSession::setFocus(int kind, int index, FocusTools tools, const std::string& helpText) {
  focusKind_ = kind;
  focusIndex_ = index;
  tools.searchToolTip = runCaption(application(), 19);
  tools_ = std::move(tools);
  view().toolsChanged();
  if (!application().helpInStatusLine) return;
  form_.titles[1] = helpText;
  view().titleChanged(1);
}

void RecordSession::fieldGotFocus(int n) {
  if (!liveField(n) || busy_) return;
  const PayloadField& row = application().field(n);
  const bool stored = application().storesField(n);
  const FieldActionRow action = fieldAction(field(n).text);
  FocusTools tools;
  tools.searchLabel = row.tag;
  tools.chart = application().chartOn && row.noChart == 0 && isNumberKind(row.fieldType);
  tools.sort = stored;
  tools.index = tools.find = stored && row.noSearch == 0;
  tools.action = action.action;
  tools.actionToolTip = action.toolTip;
  setFocus(1, n, std::move(tools), row.helpText);
  rememberFocused();
}

std::string RecordSession::functionKeyText(int number) const {
  const std::string& entry = application().functionKeys[static_cast<std::size_t>(number)];
  if (!entry.empty() && entry[0] == '*')
    return formatDate(services_.clock.now(), std::string_view(entry).substr(1), services_.locale);
  if (!entry.empty() && entry.size() <= 4 && entry.find_first_not_of("0123456789") == std::string::npos) {
    const int n = static_cast<int>(val(entry));
    if (liveField(n)) return form_.fields[static_cast<std::size_t>(n)].text;
  }
  return entry;
}

// What all boxes share: a key that changes text begins the edit, and is swallowed when that fails.
KeyResult RecordSession::editKey(const KeyEvent& key, bool locked) {
  KeyResult result;
  if (isNavigationKey(key)) return result;
  result.swallow = !mayEdit(locked) || !beginEdit();
  return result;
}

KeyResult RecordSession::fieldKeyDown(int n, const KeyEvent& key) {
  if (!liveField(n) || busy_) return KeyResult::swallowed();
  if (key.key == kPauseKey) return toggleStopWatch(n);
  if (key.key > kF1Key && key.key <= kF12Key && key.shift == 0) {
    KeyResult result{false, functionKeyText(key.key - kF1Key), 0};
    // A key without a text keeps its meaning for the window.
    result.swallow = !result.insert.empty();
    if (!result.insert.empty() && (!mayEdit(field(n).locked) || !beginEdit())) result.insert.clear();
    return result;
  }
  if (key.key >= kF1Key && key.key <= kF5Key && key.shift == kShift) {
    command2Click(key.key - kF1Key);
    return KeyResult::swallowed();
  }
  if ((key.key == kUpKey || key.key == kDownKey) && key.shift == 0)
    return {true, {}, key.key == kUpKey ? -1 : 1};
  return editKey(key, field(n).locked);
}

KeyResult RecordSession::toggleStopWatch(int n) {
  if (stopWatchField_ != 0) {
    stopWatchTick();
    stopWatchField_ = 0;
  } else if (mayEdit(field(n).locked) && beginEdit()) {
    stopWatchField_ = n;
    stopWatchStart_ = services_.clock.now();
  }
  return KeyResult::swallowed();
}

void RecordSession::stopWatchTick() {
  if (stopWatchField_ == 0) return;
  const double seconds = (services_.clock.now() - stopWatchStart_) * 86400.0;
  setField(stopWatchField_, formatNumber(seconds, {.decimals = 2, .grouping = false}, services_.locale), 0);
}

unsigned char RecordSession::fieldKeyPress(int n, unsigned char ch, int caret) {
  if (isCommandCharacter(ch)) return ch;
  if (!liveField(n) || !mayEdit(field(n).locked)) return 0;
  const PayloadField& row = application().field(n);
  const unsigned char filtered = keyPressFilter(row.fieldType, ch);
  return casedKey(row.textCase, filtered, upTo(field(n).text, caret), application().codePage);
}

void RecordSession::fieldEdited(int n, std::string_view text) {
  if (!liveField(n) || field(n).text == text) return;
  if (!mayEdit(field(n).locked) || !beginEdit()) return view().fieldChanged(n);
  setField(n, std::string(text), field(n).date);
}

void RecordSession::commitFocus() {
  if (focusKind_ == 1 && liveField(focusIndex_)) fieldLostFocus(focusIndex_);
}

void RecordSession::fieldLostFocus(int n) {
  if (!liveField(n)) return;
  if (stopWatchField_ == n) stopWatchField_ = 0;
  if (focusKind_ != 1 || focusIndex_ != n || field(n).text == fieldBefore_ || curRec_ < 1) return;
  enter(n, field(n).text, {fieldBefore_, dateBefore_});
}

void RecordSession::enter(int n, std::string_view text, const EnteredField& before) {
  const EnteredField entered =
      enterField(application(), n, text, before, services_.clock.now(), services_.locale);
  setField(n, entered.text, entered.date);
  if (!entered.taken) view().entryRefused(n);
  rememberFocused();
  runFormulas();
  // A formula may have written into this very box.
  rememberFocused();
}

void RecordSession::fieldDatePicked(int n, double serial) {
  if (!liveField(n) || !isDateKind(application().field(n).fieldType)) return;
  if (!mayEdit(field(n).locked) || !beginEdit()) return;
  const int kind = application().field(n).fieldType;
  setField(n, formatFieldDate(kind, serial, application().dateFormat, services_.locale), serial);
  rememberFocused();
  runFormulas();
}

bool RecordSession::fieldNumberPicked(std::string_view number) {
  const int n = focusIndex_;
  if (focusKind_ != 1 || !liveField(n) || !isNumberKind(application().field(n).fieldType)) return false;
  if (!mayEdit(field(n).locked) || !beginEdit()) return false;
  enter(n, number, {field(n).text, field(n).date});
  return true;
}

void RecordSession::actionClick() {
  if (focusKind_ != 1 || !liveField(focusIndex_)) return;
  const std::string& text = field(focusIndex_).text;
  const FieldActionRow row = fieldAction(text);
  if (row.action == FieldAction::none) return;
  const std::string lower = lowerAscii(text);
  // An address may also name its own way, as "https://" does.
  const bool complete = contains(lower, row.prefix) || contains(lower, "://");
  services_.shell.open(complete ? text : row.prefix + text);
}

void RecordSession::comboGotFocus(int n) {
  if (busy_ || n < 1 || n > application().comboCount()) return;
  const PayloadCombo& row = application().combo(n);
  FocusTools tools;
  tools.searchLabel = row.tag;
  tools.sort = true;
  tools.index = tools.find = row.noSearch == 0;
  setFocus(2, n, std::move(tools), row.helpText);
}

KeyResult RecordSession::comboKeyDown(int n, const KeyEvent& key) {
  if (n < 1 || n > application().comboCount()) return KeyResult::swallowed();
  return editKey(key, form_.combos[static_cast<std::size_t>(n)].locked);
}

unsigned char RecordSession::comboKeyPress(int n, unsigned char ch, int caret) {
  if (isCommandCharacter(ch)) return ch;
  if (n < 1 || n > application().comboCount()) return 0;
  const FormText& box = form_.combos[static_cast<std::size_t>(n)];
  if (!mayEdit(box.locked)) return 0;
  return casedKey(application().combo(n).textCase, ch, upTo(box.text, caret), application().codePage);
}

void RecordSession::comboEdited(int n, std::string_view text) {
  if (n < 1 || n > application().comboCount()) return;
  FormText& box = form_.combos[static_cast<std::size_t>(n)];
  if (box.text == text) return;
  if (!mayEdit(box.locked) || !beginEdit()) return view().comboChanged(n);
  box.text = text.substr(0, static_cast<std::size_t>(application().combo(n).fieldLength));
  if (box.text.size() != text.size()) view().comboChanged(n);
}

void RecordSession::comboClick(int n, std::string_view text) {
  comboEdited(n, text);
  if (n >= 1 && n <= application().comboCount() && mayEdit(form_.combos[static_cast<std::size_t>(n)].locked))
    runFormulas();
}

void RecordSession::memoGotFocus(int n) {
  if (busy_ || n < 1 || n > application().memoCount()) return;
  const PayloadMemo& row = application().memo(n);
  FocusTools tools;
  tools.searchLabel = row.tag;
  tools.sort = true;
  tools.find = row.noSearch == 0;
  setFocus(4, n, std::move(tools), row.helpText);
}

KeyResult RecordSession::memoKeyDown(int n, const KeyEvent& key) {
  if (n < 1 || n > application().memoCount()) return KeyResult::swallowed();
  KeyEvent plain = key;
  // Enter is text in a memo.
  if (plain.key == 13) plain.key = 'M';
  return editKey(plain, form_.memos[static_cast<std::size_t>(n)].locked);
}

void RecordSession::memoEdited(int n, std::string_view text) {
  if (n < 1 || n > application().memoCount()) return;
  FormText& box = form_.memos[static_cast<std::size_t>(n)];
  if (box.text == text) return;
  if (!mayEdit(box.locked) || !beginEdit()) return view().memoChanged(n);
  box.text = text.substr(0, static_cast<std::size_t>(application().memo(n).fieldLength));
  if (box.text.size() != text.size()) view().memoChanged(n);
}

void RecordSession::checkGotFocus(int n) {
  if (busy_ || n < 0 || n > application().checkCount()) return;
  FocusTools tools;
  tools.searchLabel = application().check(n).tag;
  tools.sort = true;
  tools.index = tools.find = application().check(n).noSearch == 0;
  setFocus(3, n, std::move(tools), application().check(n).caption);
}

void RecordSession::checkClick(int n) {
  if (n < 0 || n > application().checkCount()) return;
  FormCheck& box = form_.checks[static_cast<std::size_t>(n)];
  if (mayEdit(box.locked) && beginEdit()) {
    box.value = box.value == 0 ? 1 : 0;
    runFormulas();
  }
  view().checkChanged(n);
}

void RecordSession::dateStampGotFocus() {
  if (busy_ || !application().hasDateStamp()) return;
  FocusTools tools;
  tools.sort = tools.find = true;
  setFocus(static_cast<int>(FocusKind::dateStamp), 0, std::move(tools), application().titleRow(4).helpText);
}

void RecordSession::variableLabelGotFocus() {
  if (busy_ || !application().varObjects) return;
  FocusTools tools;
  tools.find = true;
  setFocus(static_cast<int>(FocusKind::variableLabels), 0, std::move(tools), {});
}

bool RecordSession::changeForm(const std::function<void(RecordForm&)>& change) {
  if (!mayEdit(false) || !beginEdit()) return false;
  change(form_);
  view().recordShown();
  return true;
}

}  // namespace plinth
