// The two small dialogs of a finished application: who made it, and who may use it.
#pragma once

#include "engine/RecordSession.h"
#include "platform/win32/WindowsApi.h"

namespace plinth {

// Title, copyright line and web address of the application; the address opens.
void showAboutBox(HWND owner, const Application& application, Shell& shell);

// Asks until name and password open an entry of the session's users, or the person gives up (false). owner:
// nullptr before the main window shows.
bool showLoginBox(HWND owner, RecordSession& session);

}  // namespace plinth
