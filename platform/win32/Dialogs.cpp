// The system's dialogs by their wide calls, since texts may be of another page than the system's.
#include "platform/win32/Dialogs.h"

#include <cderr.h>
#include <commdlg.h>
#include <dlgs.h>

#include <algorithm>
#include <vector>

#include "platform/win32/Win32Text.h"

namespace plinth {
namespace {

UINT iconStyle(MessageIcon icon) {
  static constexpr UINT kStyles[] = {0, MB_ICONINFORMATION, MB_ICONWARNING, MB_ICONERROR, MB_ICONQUESTION};
  return kStyles[static_cast<int>(icon)];
}

// Puts the request's words on the confirming button.
UINT_PTR CALLBACK nameButton(HWND dialog, UINT message, WPARAM, LPARAM parameter) {
  if (message != WM_NOTIFY) return 0;
  const auto& notice = *reinterpret_cast<const OFNOTIFYW*>(parameter);
  if (notice.hdr.code == CDN_INITDONE)
    ::SendMessageW(::GetParent(dialog), CDM_SETCONTROLTEXT, IDOK, notice.lpOFN->lCustData);
  return 0;
}

// A path in the system's page; one that this page cannot say by its short name, which it always can.
std::string pathText(const std::wstring& path) {
  const int page = systemCodePage();
  const std::string text = fromWide(path, page);
  if (toWide(text, page) == path) return text;
  std::wstring shorter(MAX_PATH, L'\0');
  shorter.resize(
      std::min<std::size_t>(::GetShortPathNameW(path.c_str(), shorter.data(), MAX_PATH), MAX_PATH));
  return shorter.empty() ? text : fromWide(shorter, page);
}

}  // namespace

int MessageBoxes::box(std::string_view text, UINT style) const {
  const HWND owner = owner_ ? owner_() : nullptr;
  return ::MessageBoxW(owner, toWide(text, codePage_).c_str(), toWide(title_, codePage_).c_str(),
                       style | (owner ? 0 : MB_TASKMODAL));
}

void MessageBoxes::show(std::string_view text, MessageIcon icon) { box(text, MB_OK | iconStyle(icon)); }

bool MessageBoxes::ask(std::string_view text, MessageIcon icon) {
  return box(text, MB_YESNO | iconStyle(icon)) == IDYES;
}

std::optional<std::string> FileChooser::choose(const ChooserRequest& request) {
  const std::wstring title = toWide(request.title, codePage_), button = toWide(request.button, codePage_);
  const std::wstring folder = toWide(request.initialFolder, systemCodePage());
  std::wstring filter = toWide(request.pattern.empty() ? "*.*" : request.pattern, codePage_);
  filter = filter + L'\0' + filter + L'\0';  // what the list says, what it means
  std::vector<wchar_t> name(32768, L'\0');
  const std::wstring initial = toWide(request.initialName, codePage_);
  initial.copy(name.data(), name.size() - 1);

  OPENFILENAMEW dialog = {};
  dialog.lStructSize = sizeof dialog;
  dialog.hwndOwner = owner_ ? owner_() : nullptr;
  dialog.lpstrFilter = filter.c_str();
  dialog.lpstrFile = name.data();
  dialog.nMaxFile = static_cast<DWORD>(name.size());
  dialog.lpstrInitialDir = folder.empty() ? nullptr : folder.c_str();
  dialog.lpstrTitle = title.empty() ? nullptr : title.c_str();
  dialog.Flags = OFN_EXPLORER | OFN_NOCHANGEDIR | OFN_HIDEREADONLY | OFN_PATHMUSTEXIST;
  if (!request.save) dialog.Flags |= OFN_FILEMUSTEXIST;
  if (!button.empty()) {
    dialog.Flags |= OFN_ENABLEHOOK | OFN_ENABLESIZING;
    dialog.lpfnHook = nameButton;
    dialog.lCustData = reinterpret_cast<LPARAM>(button.c_str());
  }
  const auto run = [&] { return request.save ? ::GetSaveFileNameW(&dialog) : ::GetOpenFileNameW(&dialog); };
  bool chosen = run();
  if (!chosen && ::CommDlgExtendedError() == FNERR_INVALIDFILENAME) {
    name[0] = L'\0';  // a name that no file can have must not keep the dialog away
    chosen = run();
  }
  if (!chosen) return std::nullopt;
  return pathText(name.data());
}

}  // namespace plinth
