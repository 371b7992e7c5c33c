// Message boxes behind an interface, so that no test and no tool waits for a person. Texts are 8-bit text of
// the application's code page.
#pragma once

#include <string_view>

namespace plinth {

enum class MessageIcon { none, information, warning, error, question };

class Messages {
 public:
  virtual ~Messages() = default;
  // Shows a text with an OK button.
  virtual void show(std::string_view text, MessageIcon icon = MessageIcon::information) = 0;
  // Asks Yes or No; true for Yes.
  virtual bool ask(std::string_view text, MessageIcon icon = MessageIcon::question) = 0;
};

}  // namespace plinth
