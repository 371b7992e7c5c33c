// Names for screen readers: boxes without a text of their own are known by what they hold.
#pragma once

#include <string>

#include "platform/win32/Handles.h"

struct IAccPropServices;

namespace plinth {

// Gives windows the names that assistive programs read out. Where the system has no such service nothing
// happens.
class AccessibleNames {
 public:
  AccessibleNames();
  ~AccessibleNames();
  AccessibleNames(const AccessibleNames&) = delete;
  AccessibleNames& operator=(const AccessibleNames&) = delete;
  void set(HWND window, const std::wstring& name);

 private:
  IAccPropServices* service_ = nullptr;
};

}  // namespace plinth
