// Message boxes and file choosers of the system.
#pragma once

#include <functional>
#include <string>

#include "platform/Chooser.h"
#include "platform/Messages.h"
#include "platform/win32/WindowsApi.h"

namespace plinth {

// The window that a dialog stands before, asked for each time: it may be made later, or change.
using DialogOwner = std::function<HWND()>;

// `title` and the texts are 8-bit text of `codePage`.
class MessageBoxes : public Messages {
 public:
  MessageBoxes(DialogOwner owner, std::string title, int codePage)
      : owner_(std::move(owner)), title_(std::move(title)), codePage_(codePage) {}
  void show(std::string_view text, MessageIcon icon = MessageIcon::information) override;
  bool ask(std::string_view text, MessageIcon icon = MessageIcon::question) override;

 private:
  int box(std::string_view text, UINT style) const;
  DialogOwner owner_;
  std::string title_;
  int codePage_;
};

// Titles, buttons and names are 8-bit text of `codePage`, folders and the chosen path of the system's own
// page. The current folder stays as it is.
class FileChooser : public Chooser {
 public:
  FileChooser(DialogOwner owner, int codePage) : owner_(std::move(owner)), codePage_(codePage) {}
  std::optional<std::string> choose(const ChooserRequest& request) override;

 private:
  DialogOwner owner_;
  int codePage_;
};

}  // namespace plinth
