// The engine's start: the services of this machine, the payload behind the program's own file, one window.
#include "platform/win32/WindowsApi.h"

#include <commctrl.h>
#include <objbase.h>

#include <memory>

#include "engine/FlatRecordStore.h"
#include "engine/win32/EngineWindow.h"
#include "platform/SystemCodec.h"
#include "platform/SystemLocale.h"
#include "platform/win32/Dialogs.h"
#include "platform/win32/WicPictures.h"
#include "platform/win32/Win32Clipboard.h"
#include "platform/win32/Win32Text.h"

namespace plinth {
namespace {

// The path of the running file.
std::string programPath() {
  std::string path(32768, '\0');
  path.resize(::GetModuleFileNameA(nullptr, path.data(), static_cast<DWORD>(path.size())));
  return path;
}

int runApplication(const std::string& commandLine) {
  installSystemCodec();
  const INITCOMMONCONTROLSEX controls{
      sizeof controls, ICC_STANDARD_CLASSES | ICC_DATE_CLASSES | ICC_BAR_CLASSES | ICC_LINK_CLASS |
                          ICC_PROGRESS_CLASS};
  ::InitCommonControlsEx(&controls);
  HWND owner = nullptr;
  // A dialog stands before the one that is open already.
  const DialogOwner ownerOf = [&owner] { return owner ? ::GetLastActivePopup(owner) : owner; };
  MessageBoxes early(ownerOf, programNames({programPath(), commandLine, false}, '\\').exeStem,
                     systemCodePage());
  StartUp start = startUp({programPath(), commandLine, true}, systemFiles(), early);
  if (!start.proceed) return 1;

  const SystemClock clock;
  const Locale locale = systemLocale();
  MessageBoxes messages(ownerOf, start.application.title, start.application.codePage);
  FileChooser chooser(ownerOf, start.application.codePage);
  WicDecoder decoder;
  SystemClipboard clipboard(ownerOf);
  const std::unique_ptr<Settings> settings = systemSettings(start.application.title);
  auto made = std::make_unique<EngineWindow>(
      EngineWindowServices{messages, chooser, systemShell(), systemFiles(), decoder, systemSharedFiles(),
                           *settings, clipboard});
  RecordSession session(std::move(start),
                        {systemFiles(), messages, clock, locale, systemShell(),
                         flatStoreOpener(systemSharedFiles(), systemFiles()), made.get(), nullptr});
  // The window's parts speak to the session until they are gone.
  const std::unique_ptr<EngineWindow> window = std::move(made);
  if (!window->open(session, owner)) return 1;
  return window->run();
}

}  // namespace
}  // namespace plinth

int WINAPI WinMain(HINSTANCE, HINSTANCE, LPSTR commandLine, int) {
  int code = 1;
  const bool com = SUCCEEDED(::CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED));
  plinth::guarded([&] { code = plinth::runApplication(commandLine); });
  if (com) ::CoUninitialize();
  return code;
}
