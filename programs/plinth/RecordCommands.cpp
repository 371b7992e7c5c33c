// Records of a finished application, through the same session that its window uses: what the tool writes is
// what typing would have written.
#include <algorithm>
#include <set>

#include "basic/CodePage.h"
#include "basic/Json.h"
#include "engine/FlatRecordStore.h"
#include "engine/RecordSession.h"
#include "engine/RecordText.h"
#include "engine/StartUp.h"
#include "programs/plinth/SearchCommands.h"
#include "programs/plinth/Tool.h"
#include "programs/plinth/ToolMessages.h"

namespace plinth {
namespace {

// A tool opens nothing for a person.
class NoShell : public Shell {
 public:
  bool open(const std::string&, const std::string&) override { return false; }
  int runAndWait(const std::string&) override { return -1; }
};

class RecordTool {
 public:
  RecordTool(const ToolOptions& options, ToolMachine& machine) : options_(options), machine_(machine) {}

  int run() {
    if (!start()) return kFailed;
    if (const int code = resolveLabels(); code != kDone) return code;
    if (options_.action == RecordAction::users) return users();
    // A record once added stays: none is made for values that no record takes.
    if (options_.action == RecordAction::add)
      if (const int code = checkValues(acceptsText); code != kDone) return code;
    if (const int code = open(); code != kDone) return code;
    const int code = act();
    if (!session_->close() && code == kDone) return kFailed;
    return code;
  }

 private:
  int fail(const std::string& text) {
    machine_.err << "plinth: " << text << "\n";
    return kFailed;
  }

  // Loads the application; false after a message.
  bool start() {
    const std::string path = machine_.systemPath(options_.file);
    if (!machine_.files.exists(path)) return fail(options_.file + ": no such file") == kDone;
    ToolMessages messages(machine_.err, machine_.locale.codePage, true);
    StartRequest request;
    request.exePath = path;
    request.extractFiles = false;
    StartUp start = startUp(request, machine_.files, messages);
    if (!start.proceed) return false;
    if (!options_.data.empty()) {
      start.data = dataFileAt(machine_.systemPath(options_.data), machine_.files.separator());
    }
    codePage_ = start.application.codePage;
    dataExists_ = machine_.files.exists(start.data.path());
    messages_ = std::make_unique<ToolMessages>(machine_.err, codePage_, options_.action == RecordAction::add);
    services_ = std::make_unique<SessionServices>(
        SessionServices{machine_.files, *messages_, machine_.clock, machine_.locale, shell_,
                        flatStoreOpener(machine_.sharedFiles, machine_.files)});
    session_ = std::make_unique<RecordSession>(std::move(start), *services_);
    nameBoxes();
    return true;
  }

  // The keys of JSON objects and of listings: a label that stands twice, or is empty, gives way to
  // the reference.
  void nameBoxes() {
    boxes_ = recordBoxes(session_->application());
    std::set<std::string> seen;
    for (const BoxRef& box : boxes_) {
      const bool usable = !box.label.empty() && seen.insert(lowerCase(box.label, codePage_)).second;
      keys_.push_back(toUtf8(usable ? box.label : box.reference, codePage_));
    }
  }

  int resolveLabels() {
    for (const Assignment& assignment : options_.assignments) {
      const BoxRef* box = boxOf(assignment.label);
      if (!box) return kWrongUsage;
      targets_.push_back(box);
    }
    if (!options_.box.empty() && !(searched_ = boxOf(options_.box))) return kWrongUsage;
    if (options_.action == RecordAction::query && !searched_ &&
        queryWantsBox(fromUtf8(options_.line, codePage_))) {
      machine_.err << "plinth: a text is searched for in a box (--field FIELD), or with \"!\" in front in "
                      "whole records\n";
      return kWrongUsage;
    }
    return options_.action == RecordAction::script ? resolveButton() : kDone;
  }

  // nullptr after listing the boxes that there are.
  const BoxRef* boxOf(const std::string& label) {
    const BoxRef* box = findBox(boxes_, fromUtf8(label, codePage_), codePage_);
    if (box) return box;
    machine_.err << "plinth: there is no box " << label << "; there are:\n";
    for (const BoxRef& one : boxes_) {
      machine_.err << "  " << one.reference << "  " << toUtf8(one.label, codePage_) << "\n";
    }
    return nullptr;
  }

  int resolveButton() {
    const Application& application = session_->application();
    button_ = findButton(application, fromUtf8(options_.button, codePage_));
    if (button_ >= 0) return kDone;
    machine_.err << "plinth: there is no button " << options_.button << "; there are:\n";
    for (int n = 0; n <= application.buttonCount(); ++n) {
      if (!Application::live(application.button(n).page)) continue;
      machine_.err << "  " << n << "  " << toUtf8(application.button(n).caption, codePage_) << "\n";
    }
    return kWrongUsage;
  }

  int open() {
    const std::string path = machine_.pathUtf8(session_->dataFile().path());
    if (!dataExists_ && options_.action != RecordAction::add) return fail(path + ": no such data file");
    if (const int code = login(); code != kDone) return code;
    return session_->openData(false) ? kDone : fail(path + " could not be opened");
  }

  int login() {
    if (session_->tryLogin(fromUtf8(options_.user, codePage_), fromUtf8(options_.password, codePage_)))
      return kDone;
    return fail("the application asks for a password (--user NAME --password WORD)");
  }

  int act() {
    switch (options_.action) {
      case RecordAction::list:
        return list();
      case RecordAction::get:
        return get();
      case RecordAction::add:
        return add();
      case RecordAction::set:
        return set();
      case RecordAction::erase:
        return erase();
      case RecordAction::count:
        return count();
      case RecordAction::query:
        return search(runQueryLine);
      case RecordAction::index:
        return search(indexBox);
      case RecordAction::sort:
        return search(printOrder);
      case RecordAction::script:
        return script();
      case RecordAction::users:
        break;  // needs no data
    }
    return kWrongUsage;
  }

  int search(int (*run)(SearchTool&)) {
    SearchTool tool{options_, machine_, *session_, *messages_, searched_};
    return run(tool);
  }

  int users() {
    const int code = login();
    return code == kDone ? search(printUsers) : code;
  }

  int script() {
    if (options_.record > 0) {
      if (const int code = goTo(options_.record); code != kDone) return code;
    }
    SearchTool tool{options_, machine_, *session_, *messages_};
    pressButton(tool, button_);
    return saved();
  }

  // Makes record n the current one; an exit code.
  int goTo(std::int32_t n) {
    if (n > session_->recCount()) {
      return fail("record " + std::to_string(n) + " does not exist; there are " +
                  std::to_string(session_->recCount()));
    }
    if (session_->curRec() != n) session_->text1Enter(std::to_string(n));
    return session_->curRec() == n ? kDone : fail("record " + std::to_string(n) + " could not be read");
  }

  void print() {
    const RecordForm& form = session_->form();
    if (!options_.json) {
      machine_.out << "record " << session_->curRec() << "\n";
      for (std::size_t i = 0; i < boxes_.size(); ++i) {
        machine_.out << "  " << keys_[i] << ": " << toUtf8(boxText(form, boxes_[i]), codePage_) << "\n";
      }
      return;
    }
    JsonWriter json;
    json.beginObject().key("record").whole(session_->curRec()).key("values").beginObject();
    for (std::size_t i = 0; i < boxes_.size(); ++i) {
      json.key(keys_[i]).text(toUtf8(boxText(form, boxes_[i]), codePage_));
    }
    machine_.out << json.endObject().endObject().str() << "\n";
  }

  int list() {
    const std::int64_t first = std::max(1, options_.record);
    const std::int64_t last = options_.count < 0
                                  ? session_->recCount()
                                  : std::min<std::int64_t>(session_->recCount(), first + options_.count - 1);
    ToolProgress progress(machine_.err, machine_.progressBar && last - first > 10000);
    int code = kDone;
    for (std::int64_t n = first; n <= last && machine_.out; ++n) {
      if (goTo(static_cast<std::int32_t>(n)) == kDone)
        print();
      else
        code = kFailed;  // the others still come
      if (n % 1000 == 0) progress.step(n - first, last - first);
    }
    progress.title("");
    return machine_.out ? code : kFailed;
  }

  int get() {
    const int code = goTo(options_.record);
    if (code == kDone) print();
    return code;
  }

  int count() {
    if (options_.json) {
      machine_.out << "{\"count\": " << session_->recCount() << "}\n";
    } else {
      machine_.out << session_->recCount() << "\n";
    }
    return kDone;
  }

  // A data file without records already shows its first one, empty and waiting to be typed into, as a person
  // would find it.
  int add() {
    if (session_->readOnly()) return fail("the data is read-only");
    if (!session_->newEntry() && !session_->newRecord()) return kFailed;
    return typeAndSave();
  }

  int set() {
    const int code = goTo(options_.record);
    return code == kDone ? typeAndSave() : code;
  }

  int erase() {
    if (const int code = goTo(options_.record); code != kDone) return code;
    if (session_->readOnly()) return fail("the data is read-only");
    session_->erasefileClick();
    return saved();
  }

  // All values or none; `check` is acceptsText or mayType.
  template <class Check>
  int checkValues(Check check) {
    for (std::size_t i = 0; i < targets_.size(); ++i) {
      const Result<void> fits = check(*session_, *targets_[i], valueOf(i));
      if (!fits) return fail(toUtf8(fits.error().text, codePage_));
    }
    return kDone;
  }

  std::string valueOf(std::size_t i) const { return fromUtf8(options_.assignments[i].value, codePage_); }

  int typeAndSave() {
    if (const int code = checkValues(mayType); code != kDone) return code;
    for (std::size_t i = 0; i < targets_.size(); ++i) {
      const Result<void> typed = typeIntoBox(*session_, *targets_[i], valueOf(i));
      if (!typed) {
        fail(toUtf8(typed.error().text, codePage_));
        saved();  // what was typed before stays, as it would on a page
        return kFailed;
      }
    }
    return saved();
  }

  int saved() {
    const int before = messages_->shown();
    if (session_->dirty() && !session_->saveRecord()) {
      return messages_->shown() > before ? kFailed : fail("the record could not be saved");
    }
    if (options_.json)
      print();
    else
      machine_.out << session_->curRec() << "\n";
    return kDone;
  }

  const ToolOptions& options_;
  ToolMachine& machine_;
  NoShell shell_;
  int codePage_ = 1252;
  bool dataExists_ = false;
  std::unique_ptr<ToolMessages> messages_;
  std::unique_ptr<SessionServices> services_;
  std::unique_ptr<RecordSession> session_;
  std::vector<BoxRef> boxes_;
  std::vector<std::string> keys_;
  std::vector<const BoxRef*> targets_;
  const BoxRef* searched_ = nullptr;
  int button_ = -1;
};

}  // namespace

int runRecordCommand(const ToolOptions& options, ToolMachine& machine) {
  return RecordTool(options, machine).run();
}

}  // namespace plinth
