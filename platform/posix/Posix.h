// What the files of this folder share: owned descriptors, errors by errno, calls that survive signals, native
// paths.
#pragma once

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <string>
#include <utility>

#include "basic/Result.h"

namespace plinth {

// An open file descriptor, closed at the end.
class Descriptor {
 public:
  explicit Descriptor(int fd = -1) : fd_(fd) {}
  ~Descriptor() { reset(); }
  Descriptor(Descriptor&& other) noexcept : fd_(std::exchange(other.fd_, -1)) {}
  Descriptor& operator=(Descriptor&& other) noexcept {
    std::swap(fd_, other.fd_);
    return *this;
  }
  int get() const { return fd_; }
  explicit operator bool() const { return fd_ >= 0; }
  void reset() {
    if (fd_ >= 0) ::close(fd_);
    fd_ = -1;
  }

 private:
  int fd_;
};

// Repeats a system call that a signal interrupted.
template <class Call>
auto retried(Call call) {
  auto result = call();
  while (result < 0 && errno == EINTR) result = call();
  return result;
}

// An errno value as an error about `path`.
Error errnoError(int code, const std::string& path);

// The path with "\" as "/", as callers may use both.
std::string nativePath(std::string path);

// Whether nobody may write by the mode: what the read-only attribute is elsewhere. It binds the superuser
// too, for whom the system would make an exception.
inline bool lacksWriteBits(const struct stat& status) { return (status.st_mode & 0222) == 0; }

}  // namespace plinth
