// Moving between records and pages, and what buttons and linked titles do: navigation words, scripts,
// documents.
#include <algorithm>

#include "basic/DateSerial.h"
#include "basic/NumberReader.h"
#include "basic/Text.h"
#include "engine/RecordSession.h"
#include "engine/SessionBusy.h"
#include "formula/FieldDisplay.h"

namespace plinth {
namespace {

constexpr struct {
  std::string_view word;
  int code;
} kNavigation[] = {{"<<<", 0}, {"<<", 1}, {"<", 2}, {">", 3}, {">>", 4}, {">>>", 5}};

std::optional<int> navigationCode(std::string_view word) {
  for (const auto& row : kNavigation)
    if (row.word == word) return row.code;
  return std::nullopt;
}

bool beginsWith(std::string_view text, std::string_view start) {
  return text.substr(0, start.size()) == start;
}

}  // namespace

bool isQueryLine(std::string_view line) {
  const std::string lower = lowerAscii(line);
  if (beginsWith(lower, "sum ") || beginsWith(lower, "count ")) return true;
  return (beginsWith(lower, "replace ") || beginsWith(lower, "select ")) && contains(lower, " where ");
}

std::int32_t RecordSession::positions() const {
  if (viewMode_ == 1 || viewMode_ == 2) return static_cast<std::int32_t>(viewOrder_.size());
  return recCount();
}

std::int32_t RecordSession::recordAt(std::int32_t position) const {
  if (viewMode_ != 1 && viewMode_ != 2) return position;
  const std::int32_t count = positions();
  if (position < 1 || position > count) return 0;
  return viewOrder_[static_cast<std::size_t>((viewMode_ == 1 ? position : count - position + 1) - 1)];
}

void RecordSession::command2Click(int index) {
  Busy busy(*this);
  if (busy.entered()) move(index);
}

void RecordSession::move(int index) {
  if (!isOpen() || !saveIfDirty()) return;
  releaseLock();
  if (const auto counted = store_->refreshCount(); !counted) return report(counted.error());
  if (newEntry_) {
    newEntry_ = false;
    applyLocks();
    view().recordShown();
  }
  const std::int32_t count = positions();
  if (count < 1) return;
  viewPos_ = std::clamp(viewPos_, 1, count);
  switch (index) {
    case 0:
      viewPos_ = 1;
      break;
    case 1:
      if (viewPos_ - 10 > 0) viewPos_ -= 10;
      break;
    case 2:
      viewPos_ = std::max(1, viewPos_ - 1);
      break;
    case 3:
      viewPos_ = std::min(count, viewPos_ + 1);
      break;
    case 4:
      if (viewPos_ <= count - 10) viewPos_ += 10;
      break;
    case 5:
      viewPos_ = count;
      break;
    default:
      return;
  }
  movedBack_ = index <= 2;
  const std::int32_t target = recordAt(viewPos_);
  if (target == curRec_ && form_.record == curRec_) return;
  curRec_ = target;
  loadRecord();
}

void RecordSession::newbutClick() {
  Busy busy(*this);
  if (busy.entered()) newAfterSave();
}

void RecordSession::newAfterSave() {
  if (isOpen() && readOnly_) {
    services_.messages.show(readOnlyText());
  } else if (saveIfDirty()) {
    newRecord();
  }
}

std::string RecordSession::text1() const { return std::to_string(curRec_); }

void RecordSession::text1Enter(std::string_view text) {
  const double typed = val(text);
  // Beyond any record number it is the last one that is meant.
  goToRecord(typed < 1 ? 0 : typed > 2e9 ? 2'000'000'000 : static_cast<std::int32_t>(typed));
}

bool RecordSession::goToRecord(std::int32_t record) {
  Busy busy(*this);
  if (!busy.entered() || !isOpen() || !saveIfDirty()) return false;
  releaseLock();
  if (record > recCount()) {
    if (const auto counted = store_->refreshCount(); !counted) {
      report(counted.error());
      return false;
    }
  }
  newEntry_ = false;
  applyLocks();  // also where this record stays, because there is no other
  movedBack_ = record < curRec_;
  curRec_ = viewPos_ = record;
  loadRecord();
  // In a sorted view the next step goes on from where this record stands in it.
  if (viewMode_ == 1 || viewMode_ == 2)
    for (std::int32_t position = 1; position <= positions(); ++position)
      if (recordAt(position) == curRec_) viewPos_ = position;
  return form_.record == record;
}

void RecordSession::formActivate() {
  if (viewMode_ != 1 && viewMode_ != 2 && curRec_ > 0) viewPos_ = curRec_;
}

void RecordSession::setView(int mode, std::vector<std::int32_t> order) {
  Busy busy(*this);
  if (!busy.entered() || !isOpen() || !saveIfDirty()) return;
  viewMode_ = mode;
  viewOrder_ = std::move(order);
  newEntry_ = false;
  if (mode != 1 && mode != 2) return leaveSortedView();
  viewPos_ = 1;
  if (positions() < 1) return;
  curRec_ = recordAt(1);
  movedBack_ = false;
  loadRecord();
}

void RecordSession::leaveSortedView() {
  viewMode_ = 0;
  viewOrder_.clear();
  viewPos_ = std::max(1, curRec_);
}

bool RecordSession::formKeyDown(const KeyEvent& key) {
  if (key.shift != kCtrl) return false;
  if (key.key >= '1' && key.key <= '6') {
    command2Click(key.key - '1');
    return true;
  }
  if (key.key != 45) return false;
  newbutClick();
  return true;
}

void RecordSession::pgeClick(int page) {
  if (page < 0 || page > 4) return;
  currentPage_ = page;
  view().pageShown(page);
}

void RecordSession::timer2Tick() {
  const double now = services_.clock.now();
  const std::string time = formatDate(now, "h:mmam/pm", services_.locale);
  const std::string day =
      formatDate(now, applicationDatePattern(application().clockDateFormat), services_.locale);
  const auto show = [&](int title, const std::string& text) {
    std::string& caption = form_.titles[static_cast<std::size_t>(title)];
    if (caption == text) return;
    caption = text;
    view().titleChanged(title);
  };
  show(2, time);
  show(3, day);
}

void RecordSession::commandClick(int button) {
  Busy busy(*this);
  if (!busy.entered() || button < 0 || button > application().buttonCount()) return;
  const PayloadButton row = application().button(button);
  if (!Application::live(row.page)) return;
  view().buttonEnabled(button, false);
  const AtEnd enable([&] { view().buttonEnabled(button, true); });
  if (!row.script.empty()) runScript(row.script);
  followLink(row.tag, true);
}

void RecordSession::titleClick(int title) {
  Busy busy(*this);
  if (!busy.entered() || title < 0 || title > application().titleCount()) return;
  followLink(application().titleRow(title).link, false);
}

void RecordSession::runScript(const std::string& script) {
  if (!saveIfDirty()) return;
  // A line's first change takes the record as typing does; when another user holds it, the script changes
  // nothing.
  bool refused = false;
  host_.beforeChange = [this, &refused] {
    if (!refused && !(dirty_ && recLocked_)) refused = !beginEdit();
    return !refused;
  };
  {
    const AtEnd unhook([&] { host_.beforeChange = nullptr; });
    for (const std::string& line : split(script, "\r\n")) runScriptLine(line);
  }
  runFormulas();
  view().recordShown();
}

void RecordSession::runScriptLine(const std::string& line) {
  const SearchTotals totals = services_.queries ? services_.queries->totals() : SearchTotals{};
  const std::string ready = replaceVariables(substituteScriptLine(line, host_, totals), variables_);
  if (!isQueryLine(ready)) {
    executeLine({host_, FormulaMode::engine, variables_}, ready, ValueMode::numeric);
  } else if (services_.queries) {
    // A query reads what is on disk: what the lines before it changed must be there.
    if (settle()) services_.queries->run(ready);
  } else
    services_.messages.show("This program has no search window to run the line: " + ready,
                            MessageIcon::warning);
}

void RecordSession::followLink(const std::string& link, bool button) {
  if (link.empty()) return;
  if (const auto code = navigationCode(link)) return move(*code);
  if (link == "<>") return newAfterSave();
  if (button && contains(lowerAscii(link), "-paste")) return view().pasteRequested();
  const SearchTotals totals = services_.queries ? services_.queries->totals() : SearchTotals{};
  const std::string target = substituteScriptLine(link, host_, totals);
  const std::vector<std::string> parts = split(target, ".exe ");
  services_.shell.open(parts[0], parts.size() > 1 ? parts[1] : std::string());
}

}  // namespace plinth
