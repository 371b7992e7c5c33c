// The system's clipboard. It is held only for the moment of a call.
#pragma once

#include <functional>

#include "platform/Clipboard.h"
#include "platform/win32/WindowsApi.h"

namespace plinth {

class SystemClipboard : public Clipboard {
 public:
  // owner: the window that speaks for the program, asked at each call.
  explicit SystemClipboard(std::function<HWND()> owner) : owner_(std::move(owner)) {}
  std::string text(int codePage) const override;
  bool setText(std::string_view text, int codePage) override;

 private:
  std::function<HWND()> owner_;
};

}  // namespace plinth
