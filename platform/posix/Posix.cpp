// Error kinds and paths of POSIX systems.
#include "platform/posix/Posix.h"

#include <algorithm>
#include <system_error>

namespace plinth {
namespace {

ErrorKind kindOfErrno(int code) {
  switch (code) {
    case ENOENT:
    case ENOTDIR:
      return ErrorKind::notFound;
    case EACCES:
    case EPERM:
    case EROFS:
    case EISDIR:
    case ETXTBSY:
      return ErrorKind::denied;
    case EAGAIN:
    case EDEADLK:
      return ErrorKind::locked;
    case ENOSPC:
    case EDQUOT:
    case EFBIG:
      return ErrorKind::full;
    case EINVAL:
    case EOVERFLOW:
    case ENAMETOOLONG:
      return ErrorKind::wrongUsage;
    default:
      return ErrorKind::failed;
  }
}

}  // namespace

Error errnoError(int code, const std::string& path) {
  return {kindOfErrno(code), path + ": " + std::generic_category().message(code)};
}

std::string nativePath(std::string path) {
  std::replace(path.begin(), path.end(), '\\', '/');
  return path;
}

}  // namespace plinth
