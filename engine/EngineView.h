// What the session tells the main window: what happened, not which control to poke. The console tool and
// tests use the empty NoView or a recording one.
#pragma once

#include <string>

namespace plinth {

// What the action tool does for the focused field; the image that the tool shows.
enum class FieldAction { none, web, mail, document, pdf, sound, picture, archive };

// The tools that follow the focused object.
struct FocusTools {
  std::string searchLabel;  // of the object; "" when nothing searchable has the focus
  std::string searchToolTip;
  bool chart = false, sort = false, index = false, find = false;
  FieldAction action = FieldAction::none;
  std::string actionToolTip;
};

class EngineView {
 public:
  virtual ~EngineView() = default;
  // One object of the form has another text or value than the box shows.
  virtual void fieldChanged(int) {}
  virtual void comboChanged(int) {}
  // What was typed into a field is nothing that it can hold; its text of before stands again.
  virtual void entryRefused(int) {}
  virtual void memoChanged(int) {}
  virtual void checkChanged(int) {}
  // Another record, or the same afresh: every box, lock, picture, variable object and system title of the
  // form.
  virtual void recordShown() {}
  // The caption of a system title changed (clock, date stamp, record number, help line).
  virtual void titleChanged(int) {}
  virtual void pageShown(int) {}
  virtual void toolsChanged() {}
  // The database was opened or closed, or became read-only: menus and tools follow.
  virtual void databaseChanged() {}
  virtual void buttonEnabled(int, bool) {}
  // A data picture shows another image.
  virtual void pictureChanged(int) {}
  // A button's link asks for the clipboard's record text to be brought into the page.
  virtual void pasteRequested() {}
  // Let waiting events run.
  virtual void yieldEvents() {}
};

using NoView = EngineView;

}  // namespace plinth
