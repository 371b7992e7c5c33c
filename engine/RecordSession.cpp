// Opening and closing: which file, who may, and what is left behind.
#include "engine/RecordSession.h"

#include <cmath>

#include "basic/CodePage.h"
#include "basic/FileName.h"
#include "basic/Text.h"
#include "engine/SessionBusy.h"

namespace plinth {

RecordSession::RecordSession(StartUp start, const SessionServices& services)
    : start_(std::move(start)),
      services_(services),
      view_(services.view ? services.view : &noView_),
      form_(start_.form),
      host_(start_.application, form_, *view_, services.messages, services.clock, services.locale) {
  if (form_.fields.empty()) form_ = makeRecordForm(start_.application);
  if (application().fieldCount() > 0) {
    focusKind_ = 1;
    focusIndex_ = 1;
  }
  timer2Tick();
}

RecordSession::~RecordSession() { releaseLock(); }

bool RecordSession::tryLogin(std::string_view name, std::string_view password) {
  if (login_ || !start_.loginRequired) return true;
  login_ = checkLogin(start_.users, name, password);
  return login_.has_value();
}

std::string RecordSession::windowTitle() const {
  if (!login_ || login_->mainUser) return application().title;
  return application().title + std::string(32, ' ') + "Login : " + login_->name;
}

std::string RecordSession::readOnlyText() const {
  const bool byLogin = login_ && login_->readOnly;
  return runMessage(application(), byLogin ? 23 : 5, start_.data.name);
}

UserTable* RecordSession::editUsers() {
  if (!mayEditUsers()) return nullptr;
  usersEdited_ = true;
  return &start_.users;
}

void RecordSession::report(const Error& error) {
  const std::string cause = fromUtf8(error.text, application().codePage);
  const std::string text = runMessage(application(), 21, cause);
  services_.messages.show(contains(text, cause) ? text : text + cause, MessageIcon::error);
}

bool RecordSession::chooseData(const DataFile& data) {
  Busy busy(*this);
  if (!busy.entered() || !saveIfDirty()) return false;
  closeStore();
  start_.data = data;
  view().databaseChanged();
  return true;
}

bool RecordSession::openData(bool isNew) {
  Busy busy(*this);
  if (!busy.entered() || start_.data.name.empty()) return false;
  if (start_.loginRequired && !login_) return false;
  if (!saveIfDirty()) return false;
  closeStore();
  const std::string path = start_.data.path();
  const bool exists = services_.files.exists(path);
  bool create = isNew;
  if (!exists && !isNew) create = services_.messages.ask(runMessage(application(), 4, start_.data.name));
  if (!exists && !create) {
    view().databaseChanged();
    return false;
  }
  // A file that is there is never begun anew: its records would be gone.
  if (exists) create = false;
  readOnly_ = (exists && services_.files.isReadOnly(path)) || (login_ && login_->readOnly);
  const bool opened = openStore(create);
  if (opened) startOnRecord(create);
  view().databaseChanged();
  return opened;
}

bool RecordSession::openStore(bool create) {
  StoreRequest request{start_.data.path(), create, readOnly_, std::floor(services_.clock.now()),
                       application().title};
  auto store = services_.openStore(request, application(), services_.locale);
  if (!store && store.error().kind == ErrorKind::denied && !readOnly_ && !create) {
    request.readOnly = readOnly_ = true;
    store = services_.openStore(request, application(), services_.locale);
  }
  if (!store) {
    report(store.error());
    return false;
  }
  store_ = std::move(*store);
  readOnly_ = readOnly_ || store_->readOnly();
  preparePictureFolder();
  return true;
}

void RecordSession::preparePictureFolder() {
  picDir_.clear();
  if (!application().hasDataPictures) return;
  picDir_ = pictureFolderOf(start_.data, application().codePage, services_.files.separator());
  if (readOnly_ || services_.files.isFolder(picDir_)) return;
  if (const auto made = services_.files.makeFolder(picDir_); !made) report(made.error());
  if (const auto reset = store_->setPictureCounter(0); !reset) report(reset.error());
}

void RecordSession::startOnRecord(bool isNew) {
  viewMode_ = 0;
  viewOrder_.clear();
  curRec_ = viewPos_ = 1;
  movedBack_ = newEntry_ = dirty_ = false;
  form_.record = 0;
  if (isNew || store_->count() < 1) {
    if (!readOnly_ && !newRecord()) return;
    // A new record is on disk already: marked as changed it would be locked until somebody moves on.
    dirty_ = false;
  } else if (application().startOnLast) {
    movedBack_ = false;
    curRec_ = viewPos_ = store_->count();
  }
  loadRecord();
}

void RecordSession::closeStore() {
  releaseLock();
  store_.reset();
  curRec_ = viewPos_ = 0;
  form_.record = 0;
  clearRecord();
  dirty_ = readOnly_ = newEntry_ = false;
}

bool RecordSession::close(bool evenIfUnsaved) {
  if (closed_) return true;
  if (!saveIfDirty() && !evenIfUnsaved) return false;
  closeStore();
  closed_ = true;
  // Before any message box: while one waits, windows must not ask for records any more.
  view().databaseChanged();
  // Who was not let in leaves everything as it is.
  if (start_.proceed && (!start_.loginRequired || login_)) writeSettings();
  return true;
}

// Only the main user's edits reach the tables; everybody else writes back what the file holds by now, so that
// a password set in another running copy stays.
void RecordSession::writeSettings() {
  UserTable users = start_.users;
  const Result<Bytes> onDisk = services_.files.exists(start_.cfgPath)
                                   ? services_.files.read(start_.cfgPath)
                                   : Result<Bytes>(Error{ErrorKind::notFound, {}});
  if (onDisk && !usersEdited_) {
    RecordForm scratch = form_;
    readCfg(*onDisk, application(), scratch, users);
  }
  const Bytes bytes = writeCfg(application(), form_, users);
  if (onDisk && *onDisk == bytes) return;
  const auto written = services_.files.write(start_.cfgPath, bytes);
  bool somethingLost = usersEdited_;
  for (int n = 1; n <= application().fieldCount(); ++n)
    somethingLost = somethingLost ||
                    (application().globalField(n) && !form_.fields[static_cast<std::size_t>(n)].text.empty());
  // A program in a folder that its user may not write runs well without the file.
  if (!written && somethingLost) report(written.error());
}

}  // namespace plinth
