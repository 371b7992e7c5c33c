// The table of users (Form6): names, passwords and rights, ten at a time.
#pragma once

#include "engine/RecordSession.h"
#include "platform/Messages.h"
#include "platform/win32/WindowsApi.h"

namespace plinth {

// Lets the main user change the session's table; shows nothing to anybody else. The window closes only with a
// main password; Cancel leaves the table as it was. REQUIRES: registerWidgets().
void showUsersWindow(HWND owner, RecordSession& session, Messages& messages);

}  // namespace plinth
