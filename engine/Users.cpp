// The check compares what was typed with the decoded passwords, entry by entry; nothing but a match lets
// anybody in.
#include "engine/Users.h"

#include "basic/DisplayFormat.h"

namespace plinth {
namespace {

constexpr std::size_t kMaxPassword = 250;

bool opens(const std::string& stored, std::string_view password) {
  return !password.empty() && decodePassword(stored) == password;
}

}  // namespace

std::string encodePassword(std::string_view password) {
  std::string stored;
  password = password.substr(0, kMaxPassword);
  for (std::size_t i = 0; i < password.size(); ++i)
    stored += zeroPadded(800 - (static_cast<unsigned char>(password[i]) + static_cast<long long>(i) + 1), 3);
  return stored;
}

std::string decodePassword(std::string_view stored) {
  std::string password;
  for (std::size_t i = 0; i + 3 <= stored.size(); i += 3) {
    int number = 0;
    for (const char c : stored.substr(i, 3)) {
      if (c < '0' || c > '9') return password;
      number = number * 10 + (c - '0');
    }
    const int code = 800 - number - static_cast<int>(i / 3 + 1);
    if (code < 1 || code > 255) return password;
    password += static_cast<char>(code);
  }
  return password;
}

bool loginRequired(const UserTable& users) { return !users.passwords[0].empty(); }

bool loginAsksName(const UserTable& users) { return !users.names[0].empty(); }

std::optional<Login> checkLogin(const UserTable& users, std::string_view name, std::string_view password) {
  const bool byName = loginAsksName(users);
  if (byName && name.empty()) return std::nullopt;
  for (int i = 0; i < kUserEntries; ++i) {
    const std::size_t at = static_cast<std::size_t>(i);
    if (byName && users.names[at] != name) continue;
    if (opens(users.passwords[at], password))
      return Login{i, opens(users.passwords[0], password), users.readOnly[at] != 0, users.names[at]};
  }
  return std::nullopt;
}

}  // namespace plinth
