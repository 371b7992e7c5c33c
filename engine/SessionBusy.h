// Message boxes and yields run the window's events while a session is in the middle of one: whoever holds
// this guard keeps a second one from starting. Private to the session's own files.
#pragma once

#include <utility>

#include "engine/RecordSession.h"

namespace plinth {

class RecordSession::Busy {
 public:
  explicit Busy(RecordSession& session) : session_(session), entered_(!session.busy_) {
    session.busy_ = true;
  }
  ~Busy() {
    if (entered_) session_.busy_ = false;
  }
  Busy(const Busy&) = delete;
  Busy& operator=(const Busy&) = delete;
  bool entered() const { return entered_; }

 private:
  RecordSession& session_;
  bool entered_;
};

// Also when memory runs out on the way: the window tells of it and goes on.
template <class Action>
class AtEnd {
 public:
  explicit AtEnd(Action action) : action_(std::move(action)) {}
  ~AtEnd() { action_(); }
  AtEnd(const AtEnd&) = delete;
  AtEnd& operator=(const AtEnd&) = delete;

 private:
  Action action_;
};

}  // namespace plinth
