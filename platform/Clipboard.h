// The system's clipboard behind an interface, for plain text.
#pragma once

#include <string>
#include <string_view>

namespace plinth {

class Clipboard {
 public:
  virtual ~Clipboard() = default;
  // 8-bit text of a code page; "" when there is none or another program holds the clipboard.
  virtual std::string text(int codePage) const = 0;
  // False when the clipboard could not be had.
  virtual bool setText(std::string_view text, int codePage) = 0;
};

}  // namespace plinth
