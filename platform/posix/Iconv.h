// The C library's text converter between two named encodings, with a stand-in for what cannot be converted.
#pragma once

#include <iconv.h>

#include <string>
#include <string_view>

namespace plinth {

class Iconv {
 public:
  Iconv(const char* to, const char* from) : handle_(::iconv_open(to, from)) {}
  ~Iconv() {
    if (ok()) ::iconv_close(handle_);
  }
  Iconv(const Iconv&) = delete;
  Iconv& operator=(const Iconv&) = delete;
  bool ok() const { return handle_ != reinterpret_cast<iconv_t>(-1); }

  // The converted bytes. Each character that cannot be converted, and each malformed one, gives `standIn`
  // instead; `unit` bytes of it are skipped (2 for UTF-16, where a surrogate pair is skipped whole). REQUIRES
  // ok().
  std::string convert(std::string_view bytes, std::string_view standIn, std::size_t unit = 1);

 private:
  iconv_t handle_;
};

}  // namespace plinth
