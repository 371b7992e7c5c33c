// Error kinds and paths of POSIX systems.
#include "platform/posix/Posix.h"

#include <algorithm>
#include <system_error>

namespace plinth {
namespace {

struct Meaning {
  int code;
  ErrorKind kind;
};

constexpr Meaning kMeanings[] = {{ENOENT, ErrorKind::notFound},
                                 {ENOTDIR, ErrorKind::notFound},
                                 {EACCES, ErrorKind::denied},
                                 {EPERM, ErrorKind::denied},
                                 {EROFS, ErrorKind::denied},
                                 {EISDIR, ErrorKind::denied},
                                 {ETXTBSY, ErrorKind::denied},
                                 {EAGAIN, ErrorKind::locked},
                                 {EDEADLK, ErrorKind::locked},
                                 {ENOSPC, ErrorKind::full},
                                 {EDQUOT, ErrorKind::full},
                                 {EFBIG, ErrorKind::full},
                                 {EINVAL, ErrorKind::wrongUsage},
                                 {EOVERFLOW, ErrorKind::wrongUsage},
                                 {ENAMETOOLONG, ErrorKind::wrongUsage}};

ErrorKind kindOfErrno(int code) {
  for (const Meaning& meaning : kMeanings)
    if (meaning.code == code) return meaning.kind;
  return ErrorKind::failed;
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
