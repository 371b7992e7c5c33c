// Builds any dialog from its rows as a window and runs it: labels at the left, values at the right, buttons
// below.
#pragma once

#include "platform/win32/Dialogs.h"
#include "surface/DialogRows.h"

namespace plinth {

class DialogHost : public DialogRunner {
 public:
  explicit DialogHost(DialogOwner owner) : owner_(std::move(owner)) {}
  bool run(const DialogSpec& spec) override;

 private:
  DialogOwner owner_;
};

}  // namespace plinth
