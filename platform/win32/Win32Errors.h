// Windows error codes as errors of ours.
#pragma once

#include <string>

#include "basic/Result.h"
#include "platform/win32/WindowsApi.h"

namespace plinth {

// `code` as GetLastError() told it, about `path`; the text is the system's.
Error windowsError(DWORD code, const std::string& path);
// Of the last failed call. Nothing may stand between that call and this one.
inline Error lastWindowsError(const std::string& path) { return windowsError(::GetLastError(), path); }

}  // namespace plinth
