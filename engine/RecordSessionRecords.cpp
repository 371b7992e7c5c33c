// One record between disk and form: load, save, first change, new, erase. Nothing here writes a record other
// than the one the form shows.
#include <cmath>

#include "basic/DateSerial.h"
#include "basic/DisplayFormat.h"
#include "basic/FileName.h"
#include "engine/FieldEntry.h"
#include "engine/RecordSession.h"
#include "engine/SessionBusy.h"
#include "formula/FieldDisplay.h"
#include "formula/RunFormulas.h"

namespace plinth {

void RecordSession::loadRecord() {
  if (!isOpen()) return;
  std::int32_t tries = 0;
  while (true) {
    const auto loaded = store_->load(curRec_, form_);
    if (loaded) break;
    if (stepAfter(loaded.error(), tries)) continue;
    // Back to the record that is still on screen.
    curRec_ = form_.record;
    viewPos_ = curRec_ > 0 ? curRec_ : 1;
    view().recordShown();
    return;
  }
  showLoaded();
}

// What to do after a failed read: true to try again at curRec_.
bool RecordSession::stepAfter(const Error& error, std::int32_t& tries) {
  const std::int32_t count = store_->count();
  if (error.kind == ErrorKind::locked) {
    services_.messages.show(runMessage(application(), 45, std::to_string(curRec_)));
    if (curRec_ >= count) movedBack_ = true;
    if (curRec_ <= 1) movedBack_ = false;
    curRec_ += movedBack_ ? -1 : 1;
    viewPos_ = curRec_;
    // Once through all records and back: everything is locked.
    return curRec_ >= 1 && curRec_ <= count && ++tries <= 2 * static_cast<std::int64_t>(count);
  }
  if (error.kind == ErrorKind::notFound && curRec_ > count && count > 0 && tries++ == 0) {
    curRec_ = viewPos_ = count;
    return true;
  }
  if (error.kind == ErrorKind::notFound)
    services_.messages.show(runMessage(application(), 12, std::to_string(curRec_)));
  else
    report(error);
  return false;
}

void RecordSession::showLoaded() {
  form_.record = curRec_;
  // Before any message: a box that loses the focus to it must not be taken for changed.
  rememberFocused();
  releaseLock();
  applyLocks();
  checkPictures();
  showSystemTitles();
  runFormulas();
  dirty_ = false;
  rememberFocused();
  view().recordShown();
}

void RecordSession::rememberFocused() {
  if (focusKind_ != 1 || !liveField(focusIndex_)) return;
  fieldBefore_ = field(focusIndex_).text;
  dateBefore_ = field(focusIndex_).date;
}

void RecordSession::checkPictures() {
  for (int n = 0; n <= application().pictureCount(); ++n) {
    const std::string path = dataPictureFile(n);
    if (!path.empty() && !services_.files.exists(path)) pictureFailed(n, true);
  }
}

std::string RecordSession::dataPictureFile(int n) const {
  const std::string name = safeFileName(form_.pictures[static_cast<std::size_t>(n)].stem);
  return name.empty() || picDir_.empty() ? std::string() : picDir_ + name;
}

void RecordSession::pictureFailed(int n, bool missing) {
  if (missing) {
    services_.messages.show(runMessage(application(), 11));
    form_.pictures[static_cast<std::size_t>(n)].stem.clear();
    view().pictureChanged(n);
  } else if (!pictureMessageShown_) {
    pictureMessageShown_ = true;
    services_.messages.show(runMessage(application(), 19));
  }
}

// The date stamp's caption in the design is a sample date; one without a digit is words to stand before the
// date.
void RecordSession::showSystemTitles() {
  const std::string& caption = application().titleRow(4).caption;
  const bool isPrefix = caption.find_first_of("0123456789") == std::string::npos;
  const std::string day =
      form_.dateStamp == 0
          ? std::string()
          : formatDate(form_.dateStamp, applicationDatePattern(application().dateFormat), services_.locale);
  form_.titles[4] = (isPrefix ? caption : std::string()) + day;
  form_.titles[5] = zeroPadded(curRec_, 8);
}

void RecordSession::applyLocks() {
  const auto lockOnce = [&](const auto& rows, auto& objects) {
    for (std::size_t i = 0; i < objects.size(); ++i)
      objects[i].locked = readOnly_ || (rows[i].lockEntry == 1 && !newEntry_);
  };
  const Payload& p = application().payload;
  lockOnce(p.fields, form_.fields);
  lockOnce(p.combos, form_.combos);
  lockOnce(p.checks, form_.checks);
  lockOnce(p.memos, form_.memos);
  for (FormPicture& picture : form_.pictures) picture.locked = readOnly_;
}

bool RecordSession::saveIfDirty() { return !dirty_ || saveRecord(); }

bool RecordSession::settle() {
  if (!isOpen() || !saveIfDirty()) return false;
  releaseLock();
  return true;
}

bool RecordSession::saveRecord() {
  if (!isOpen() || readOnly_ || curRec_ < 1) return true;
  if (!writeRecord()) return false;
  releaseLock();
  dirty_ = false;
  view().yieldEvents();
  return true;
}

bool RecordSession::writeRecord() {
  commitFocus();
  const auto saved = store_->save(curRec_, form_);
  if (!saved) {
    if (saved.error().kind == ErrorKind::full) {
      services_.messages.show(runMessage(application(), 14), MessageIcon::error);
      // Told once: the record stays on screen, but whoever moves on a second time means it.
      dirty_ = false;
    } else {
      report(saved.error());
    }
    return false;
  }
  return true;
}

void RecordSession::releaseLock() {
  if (recLocked_ && store_) store_->unlock(lockedRec_);
  recLocked_ = false;
}

bool RecordSession::beginEdit() {
  if (!isOpen() || readOnly_ || curRec_ < 1) return false;
  if (!recLocked_) {
    const auto locked = store_->lock(curRec_);
    if (!locked) {
      dirty_ = false;
      if (locked.error().kind == ErrorKind::locked)
        loadRecord();
      else
        report(locked.error());
      return false;
    }
    recLocked_ = true;
    lockedRec_ = curRec_;
    view().yieldEvents();
  }
  dirty_ = true;
  return true;
}

bool RecordSession::newRecord() {
  if (!isOpen() || readOnly_) return false;
  const auto appended = store_->append();
  if (!appended) {
    if (appended.error().kind == ErrorKind::full && appended.error().text == kRecordLimitText)
      services_.messages.show(kRecordLimitText);
    else
      report(appended.error());
    return false;
  }
  if (viewMode_ == 1 || viewMode_ == 2) viewOrder_.push_back(*appended);
  curRec_ = viewPos_ = *appended;
  form_.record = curRec_;
  lockedRec_ = curRec_;
  recLocked_ = dirty_ = newEntry_ = true;
  emptyRecord(true);
  // At once on disk, so that the number is taken; the lock stays, or another user could take the record in
  // between.
  writeRecord();
  dirty_ = true;
  view().yieldEvents();
  view().recordShown();
  return true;
}

void RecordSession::setFieldDefault(int n) {
  if (!liveField(n)) return;
  const EnteredField start = fieldDefault(application(), n, services_.clock.now(), services_.locale);
  setField(n, start.text, start.date);
}

// Everything that a record holds; global fields belong to none and stay.
void RecordSession::clearRecord() {
  for (int n = 1; n <= application().fieldCount(); ++n)
    if (application().storesField(n)) setField(n, "", 0);
  for (FormText& combo : form_.combos) combo.text.clear();
  for (FormText& memo : form_.memos) memo.text.clear();
  for (FormCheck& check : form_.checks) check.value = 0;
  for (FormPicture& picture : form_.pictures) picture.stem.clear();
  for (VariableLabel& label : form_.labels) label.visible = false;
  for (VariablePicture& picture : form_.variablePictures) picture.visible = false;
  form_.dateStamp = 0;
}

// What a new record and an erased one start with.
void RecordSession::emptyRecord(bool checkDefaults) {
  clearRecord();
  for (int n = 1; n <= application().fieldCount(); ++n)
    if (application().storesField(n)) setFieldDefault(n);
  for (std::size_t i = 0; i < form_.checks.size() && checkDefaults; ++i)
    form_.checks[i].value = application().payload.checks[i].value != 0 ? 1 : 0;
  form_.dateStamp = std::floor(services_.clock.now());
  applyLocks();
  showSystemTitles();
  runFormulas();
  rememberFocused();
}

void RecordSession::erasefileClick() {
  Busy busy(*this);
  // The edit comes first: a record that another user holds keeps its pictures.
  if (!busy.entered() || !beginEdit()) return;
  newEntry_ = true;
  for (int n = 0; n <= application().pictureCount(); ++n) {
    const std::string path = dataPictureFile(n);
    if (!path.empty() && services_.files.exists(path)) static_cast<void>(services_.files.removeFile(path));
  }
  emptyRecord(false);
  view().recordShown();
}

void RecordSession::runFormulas() {
  if (running_) return;
  running_ = true;
  const AtEnd ended([&] { running_ = false; });
  plinth::runFormulas(host_, FormulaMode::engine, variables_);
}

}  // namespace plinth
