// Which code means what to our callers, and the system's words for it.
#include "platform/win32/Win32Errors.h"

#include "platform/win32/Win32Text.h"

namespace plinth {
namespace {

struct Meaning {
  DWORD code;
  ErrorKind kind;
};

constexpr DWORD kDiskQuotaExceeded = 1295;  // MinGW's headers do not name it

constexpr Meaning kMeanings[] = {
    {ERROR_FILE_NOT_FOUND, ErrorKind::notFound},  {ERROR_PATH_NOT_FOUND, ErrorKind::notFound},
    {ERROR_INVALID_DRIVE, ErrorKind::notFound},   {ERROR_BAD_NETPATH, ErrorKind::notFound},
    {ERROR_BAD_NET_NAME, ErrorKind::notFound},    {ERROR_NOT_READY, ErrorKind::notFound},
    {ERROR_ACCESS_DENIED, ErrorKind::denied},     {ERROR_WRITE_PROTECT, ErrorKind::denied},
    {ERROR_SHARING_VIOLATION, ErrorKind::locked}, {ERROR_LOCK_VIOLATION, ErrorKind::locked},
    {ERROR_IO_PENDING, ErrorKind::locked},        {ERROR_DISK_FULL, ErrorKind::full},
    {ERROR_HANDLE_DISK_FULL, ErrorKind::full},    {ERROR_FILE_TOO_LARGE, ErrorKind::full},
    {kDiskQuotaExceeded, ErrorKind::full},        {ERROR_INVALID_PARAMETER, ErrorKind::wrongUsage},
    {ERROR_INVALID_NAME, ErrorKind::wrongUsage},  {ERROR_NEGATIVE_SEEK, ErrorKind::wrongUsage},
    {ERROR_BAD_PATHNAME, ErrorKind::wrongUsage},  {ERROR_FILENAME_EXCED_RANGE, ErrorKind::wrongUsage}};

ErrorKind kindOfCode(DWORD code) {
  for (const Meaning& meaning : kMeanings)
    if (meaning.code == code) return meaning.kind;
  return ErrorKind::failed;
}

std::wstring systemText(DWORD code) {
  wchar_t* text = nullptr;
  const DWORD length = ::FormatMessageW(
      FORMAT_MESSAGE_ALLOCATE_BUFFER | FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr,
      code, 0, reinterpret_cast<wchar_t*>(&text), 0, nullptr);
  std::wstring message(text ? text : L"", length);
  ::LocalFree(text);
  while (!message.empty() && (message.back() == L'\n' || message.back() == L'\r' || message.back() == L' '))
    message.pop_back();
  return message;
}

}  // namespace

Error windowsError(DWORD code, const std::string& path) {
  const std::wstring text =
      toWide(path, systemCodePage()) + L": " + systemText(code) + L" (" + std::to_wstring(code) + L")";
  return {kindOfCode(code), fromWide(text, 65001)};
}

}  // namespace plinth
