// Keys of the system as plain key events.
#pragma once

#include "platform/Events.h"
#include "platform/win32/WindowsApi.h"

namespace plinth {

// The key of a key message with the shift keys held now; their codes are the same in both worlds.
inline KeyEvent keyEvent(int key) {
  unsigned shift = 0;
  if (::GetKeyState(VK_SHIFT) < 0) shift |= kShift;
  if (::GetKeyState(VK_CONTROL) < 0) shift |= kCtrl;
  if (::GetKeyState(VK_MENU) < 0) shift |= kAlt;
  return {key, shift};
}

}  // namespace plinth
