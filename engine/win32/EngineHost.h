// What the parts of the main window ask of it: the session, behind one guard, and the few things that reach
// beyond a part.
#pragma once

#include <functional>

#include "engine/RecordSession.h"
#include "platform/win32/WindowsApi.h"

namespace plinth {

class EngineHost {
 public:
  virtual ~EngineHost() = default;
  virtual const Application& application() const = 0;
  virtual RecordSession& session() = 0;
  // Runs an event of the person against the session. Events that come while another is still being handled (a
  // message box runs its own loop) are dropped; focus changes before it are told first.
  virtual void act(const std::function<void()>& event) = 0;
  // Runs it when the session is free again, in order. Focus changes go this way: the system must have
  // finished moving the focus before a message box may open.
  virtual void later(std::function<void()> event) = 0;
  // Device pixels of one unit of 1/96 inch.
  virtual double scale() const = 0;
  virtual void openCalendar(int field) = 0;
  virtual void scrollPage(int lines) = 0;
  // A control has the focus now; it gets it back when the window returns to the front.
  virtual void focusMoved(HWND control) = 0;
  virtual void setToolTip(HWND control, const std::string& text) = 0;
  // Whether an entry of the application's menus can be chosen now; choosing it, as from the menu bar.
  virtual bool mayRun(const MenuEntry& entry) const = 0;
  virtual void choose(const MenuEntry& entry) = 0;
};

}  // namespace plinth
