// The controller of the main window: one open database and its current record. Windows forward their events
// as plain values, the console tool calls the same functions; what changed is told to an EngineView.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "engine/CfgFile.h"
#include "engine/EngineView.h"
#include "engine/FocusObject.h"
#include "engine/FormHost.h"
#include "engine/QueryRunner.h"
#include "engine/RecordStore.h"
#include "engine/StartUp.h"
#include "formula/Execute.h"
#include "platform/Clock.h"
#include "platform/Events.h"
#include "platform/Files.h"
#include "platform/Messages.h"
#include "platform/Shell.h"

namespace plinth {

struct EnteredField;

// The outside of a session; everything must outlive it.
struct SessionServices {
  Files& files;
  Messages& messages;
  const Clock& clock;
  const Locale& locale;
  Shell& shell;
  StoreOpener openStore;
  EngineView* view = nullptr;      // nullptr: nobody looks
  QueryRunner* queries = nullptr;  // nullptr: a query line of a script says that it cannot run
};

// What a window does with a key after the session has seen it.
struct KeyResult {
  bool swallow = false;  // the key does nothing more
  std::string insert;    // text to put in place of the selection, as if typed
  int scroll = 0;        // lines to scroll the page: -1 up, 1 down
  static KeyResult swallowed() { return {true, {}, 0}; }
};

class RecordSession {
 public:
  // Takes the start's application, form and tables over. Nothing is opened yet.
  RecordSession(StartUp start, const SessionServices& services);
  ~RecordSession();
  RecordSession(const RecordSession&) = delete;
  RecordSession& operator=(const RecordSession&) = delete;

  const Application& application() const { return start_.application; }
  const StartUp& start() const { return start_; }
  const RecordForm& form() const { return form_; }
  const Locale& locale() const { return services_.locale; }
  double now() const { return services_.clock.now(); }
  bool isOpen() const { return store_ != nullptr; }
  RecordStore* store() { return store_.get(); }
  bool readOnly() const { return readOnly_; }
  // Why nothing can be written, for the person: his login or the file.
  std::string readOnlyText() const;
  bool dirty() const { return dirty_; }
  // The current record was made or erased since the last move, so boxes that lock once take typing.
  bool newEntry() const { return newEntry_; }
  std::int32_t curRec() const { return curRec_; }
  std::int32_t recCount() const { return store_ ? store_->count() : 0; }
  const DataFile& dataFile() const { return start_.data; }

  // Who runs the query lines of scripts; nullptr: nobody.
  void setQueries(QueryRunner* queries) { services_.queries = queries; }
  // Saves the record if it was changed; false when it is still only on screen.
  bool settle();

  // --- Login. While start().loginRequired, openData() opens nothing until somebody has logged in.
  bool loggedIn() const { return login_.has_value(); }
  // The check of the password window: true and done when name and password open an entry.
  bool tryLogin(std::string_view name, std::string_view password);
  const std::optional<Login>& login() const { return login_; }
  // The window's title: the application's, with the user's name behind it for an ordinary user.
  std::string windowTitle() const;
  // Whether the tables may be seen and changed: the main user may, and everybody while there is no main
  // password.
  bool mayEditUsers() const { return login_ ? login_->mainUser : !start_.loginRequired; }
  // The tables to be changed, marked as such; nullptr for whom may not.
  UserTable* editUsers();

  // --- Database.
  // Chooses another data file (open and new menus); a dirty record is saved first. False when saving failed.
  bool chooseData(const DataFile& data);
  // OpenData: opens the chosen file or asks to make it. isNew: makes it without a question. False when it
  // stays closed.
  bool openData(bool isNew);
  // Record `curRec` from disk into the form.
  void loadRecord();
  // The form to disk; true when it is there. After a failure the record stays on screen and a message has
  // been shown.
  bool saveRecord();
  // First change: marks the record and locks it. False when another user holds it or nothing may be written;
  // the form then shows the record as it is on disk.
  bool beginEdit();
  // NewRecord; false when none could be added.
  bool newRecord();
  // The default of field n into its box.
  void setFieldDefault(int n);
  // Erasefile_Click: empties the record in place.
  void erasefileClick();
  // Saves a dirty record and writes the .cfg file; false when the record could not be saved (it stays on
  // screen). `evenIfUnsaved` closes all the same.
  bool close(bool evenIfUnsaved = false);

  // --- Moving. Codes of Command2_Click: 0 first, 1 back 10, 2 back, 3 forward, 4 forward 10, 5 last.
  void command2Click(int index);
  void newbutClick();                      // saves a changed record, then a new one
  void text1Enter(std::string_view text);  // record box: goes to the record typed
  std::string text1() const;               // what the record box shows
  // The window came to the front: the view goes on from the record on screen. A number typed into the record
  // box counts only after Enter, since the boxes still show another record.
  void formActivate();
  // Shows one record (1 upward), saving a dirty one first; false when another one or none is on screen
  // afterwards.
  bool goToRecord(std::int32_t record);
  // Keys that the window sees before its boxes: Ctrl+1 to Ctrl+6 and Insert with Ctrl. True when it was one
  // of them.
  bool formKeyDown(const KeyEvent& key);
  // 0 record order, 1 ascending, 2 descending with the order of a sort; shows the first record of the view.
  void setView(int mode, std::vector<std::int32_t> order);

  // Record order again, from the record on screen; nothing is loaded.
  void leaveSortedView();

  // --- Pages.
  void pgeClick(int page);
  int currentPage() const { return currentPage_; }
  // Whether an object with this page value shows now.
  bool visibleNow(int page) const { return Application::onPage(page, currentPage_); }

  // --- Fields. `caret`: characters before the caret.
  void fieldGotFocus(int n);
  KeyResult fieldKeyDown(int n, const KeyEvent& key);
  // The character to take instead of `ch`, 0 for none.
  unsigned char fieldKeyPress(int n, unsigned char ch, int caret);
  // The box holds another text by typing, pasting or a function key.
  void fieldEdited(int n, std::string_view text);
  void fieldLostFocus(int n);
  // The calendar of a DownB button: a day (serial) for a date field.
  void fieldDatePicked(int n, double serial);
  // Puts a number (text in the locale's form) into the field in focus; false when that takes no number now.
  bool fieldNumberPicked(std::string_view number);
  void actionClick();  // the action tool
  // Pause key twice: the stop-watch of Timer1 runs; the window ticks it some times a second.
  bool stopWatchRunning() const { return stopWatchField_ != 0; }
  void stopWatchTick();

  // --- Combos, memos, check boxes.
  void comboGotFocus(int n);
  KeyResult comboKeyDown(int n, const KeyEvent& key);
  unsigned char comboKeyPress(int n, unsigned char ch, int caret);
  void comboEdited(int n, std::string_view text);  // typed
  void comboClick(int n, std::string_view text);   // chosen from the list
  void memoGotFocus(int n);
  KeyResult memoKeyDown(int n, const KeyEvent& key);
  void memoEdited(int n, std::string_view text);
  void checkGotFocus(int n);
  void checkClick(int n);  // toggles, unless locked
  // Data pictures: the image is missing (`missing`) or cannot be decoded.
  void pictureFailed(int n, bool missing);
  // Path of the image of data picture n, "" for the blank one.
  std::string dataPictureFile(int n) const;

  // --- Links.
  void commandClick(int button);  // Command1_Click
  void titleClick(int title);
  const FocusTools& tools() const { return tools_; }
  // The object last entered: what search, sort and index work on.
  FocusObject focus() const { return {static_cast<FocusKind>(focusKind_), focusIndex_}; }
  // The person turned to the date stamp or to a variable label.
  void dateStampGotFocus();
  void variableLabelGotFocus();
  // Changes the form by another hand than a box's (pasted records, pictures, variable objects): begins the
  // edit, then `change` gets the form, then the view shows it. False when nothing may be changed.
  bool changeForm(const std::function<void(RecordForm&)>& change);
  void timer2Tick();  // each second: Title(2) and Title(3)
  // Calculated fields of the form as it stands.
  void runFormulas();

 private:
  class Busy;
  bool openStore(bool create);
  void closeStore();
  void preparePictureFolder();
  void startOnRecord(bool isNew);
  void writeSettings();
  void report(const Error& error);

  void showLoaded();
  void checkPictures();
  bool stepAfter(const Error& error, std::int32_t& tries);
  void showSystemTitles();
  void applyLocks();
  void clearRecord();
  void emptyRecord(bool checkDefaults);
  void rememberFocused();
  bool saveIfDirty();
  bool writeRecord();
  void releaseLock();
  void commitFocus();

  void move(int index);
  std::int32_t positions() const;
  std::int32_t recordAt(std::int32_t position) const;
  void newAfterSave();
  void followLink(const std::string& link, bool button);
  void runScript(const std::string& script);
  void runScriptLine(const std::string& line);

  bool mayEdit(bool locked) const { return isOpen() && !readOnly_ && !locked && !busy_ && curRec_ > 0; }
  KeyResult editKey(const KeyEvent& key, bool locked);
  KeyResult toggleStopWatch(int n);
  std::string functionKeyText(int number) const;
  void setField(int n, std::string text, double date);
  // What was typed or picked for a field becomes its text, and the formulas follow.
  void enter(int n, std::string_view text, const EnteredField& before);
  void setFocus(int kind, int index, FocusTools tools, const std::string& helpText);
  EngineView& view() const { return *view_; }
  FormField& field(int n) { return form_.fields[static_cast<std::size_t>(n)]; }
  bool liveField(int n) const;

  StartUp start_;
  SessionServices services_;
  NoView noView_;
  EngineView* view_;
  RecordForm form_;
  std::unique_ptr<RecordStore> store_;
  FormHost host_;
  FormulaVariables variables_;
  std::optional<Login> login_;
  bool usersEdited_ = false;
  bool readOnly_ = false, dirty_ = false, recLocked_ = false, newEntry_ = false, closed_ = false;
  bool busy_ = false, running_ = false;  // an event, a run of formulas is under way: neither is entered again
  bool movedBack_ = false, pictureMessageShown_ = false;
  std::int32_t curRec_ = 0, viewPos_ = 0, lockedRec_ = 0;
  int viewMode_ = 0, currentPage_ = 0;
  std::vector<std::int32_t> viewOrder_;
  std::string picDir_;
  int focusKind_ = 0, focusIndex_ = 0;  // kind: a FocusKind
  std::string fieldBefore_;
  double dateBefore_ = 0;
  FocusTools tools_;
  std::string actionLink_;
  int stopWatchField_ = 0;
  double stopWatchStart_ = 0;
};

}  // namespace plinth
