// Start of the designer: the machine's services go into the main window, then messages run until it ends.
#include "platform/win32/WindowsApi.h"  // before the parts of Windows that lean on it

#include <commctrl.h>
#include <objbase.h>

#include <exception>
#include <string>

#include "basic/FileName.h"
#include "platform/SystemCodec.h"
#include "platform/win32/Dialogs.h"
#include "platform/win32/Handles.h"
#include "platform/win32/Resources.h"
#include "platform/win32/Win32Clipboard.h"
#include "platform/win32/Win32Text.h"
#include "programs/designer/resources.h"
#include "surface/win32/DesignerFrame.h"
#include "surface/win32/DialogHost.h"

namespace {

using namespace plinth;

constexpr const char* kTitle = "Plinth";
constexpr const char* kVersion = "2.0";

std::string programFolder() {
  std::wstring path(32768, L'\0');
  path.resize(::GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size())));
  return folderOf(fromWide(path, systemCodePage()));
}

// A project named from the current folder, so that it is found again from any other; "" stays.
std::string fullPath(const std::string& commandLine) {
  const std::string path = withoutQuotes(commandLine);
  if (path.empty()) return path;
  std::wstring full(32768, L'\0');
  const DWORD length = ::GetFullPathNameW(toWide(path, systemCodePage()).c_str(),
                                          static_cast<DWORD>(full.size()), full.data(), nullptr);
  full.resize(length < full.size() ? length : 0);
  return full.empty() ? path : fromWide(full, systemCodePage());
}

void startSystem() {
  ::CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
  INITCOMMONCONTROLSEX controls{sizeof controls, ICC_BAR_CLASSES | ICC_PROGRESS_CLASS | ICC_STANDARD_CLASSES};
  ::InitCommonControlsEx(&controls);
  installSystemCodec();
}

int runMessages(DesignerFrame& frame) {
  MSG message;
  while (::GetMessageW(&message, nullptr, 0, 0) > 0) {
    if (frame.translate(message)) continue;
    ::TranslateMessage(&message);
    ::DispatchMessageW(&message);
  }
  return static_cast<int>(message.wParam);
}

int runDesigner(const std::string& commandLine, int show) {
  startSystem();
  // Held to the end: another designer that finds it leaves the temporary pictures of this one alone.
  const KernelHandle single(::CreateMutexW(nullptr, FALSE, L"PlinthDesignerRuns"));
  const bool first = ::GetLastError() != ERROR_ALREADY_EXISTS;
  HWND window = nullptr;
  const DialogOwner owner = [&window] { return window; };
  MessageBoxes messages(owner, kTitle, systemCodePage());
  FileChooser chooser(owner, systemCodePage());
  DialogHost dialogs(owner);
  SystemClipboard clipboard(owner);
  SystemClock clock;
  const auto settings = systemSettings(kTitle);
  DesignerFrame frame({systemFiles(), messages, chooser, *settings, clock, dialogs, clipboard, systemShell(),
                       programFolder(), first, resource("CUSTOM", PLINTH_STUB),
                       resource("CUSTOM", PLINTH_DEFAULT_ICON), kVersion});
  window = frame.window();
  if (!frame.start(fullPath(commandLine), show)) return 1;
  const int result = runMessages(frame);
  window = nullptr;
  return result;
}

}  // namespace

int WINAPI WinMain(HINSTANCE, HINSTANCE, LPSTR commandLine, int show) {
  try {
    return runDesigner(commandLine, show);
  } catch (const std::exception& problem) {
    ::MessageBoxA(nullptr, problem.what(), kTitle, MB_OK | MB_ICONERROR);
    return 1;
  }
}
