// The application's own logins: the user tables, the stored form of their passwords, and the one check that
// decides who is let in. A window for it asks this check and nothing else.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace plinth {

inline constexpr int kUserEntries = 250;

// Entry 0 is the main user. Passwords are in stored form.
struct UserTable {
  std::array<std::string, kUserEntries> names;
  std::array<std::string, kUserEntries> passwords;
  std::array<std::uint8_t, kUserEntries> readOnly{};
};

// Each character c at 1-based position i becomes the three-digit number 800 - (code of c + i). It conceals;
// it is not encryption. Passwords are cut at 250 characters, where the numbers would leave the three-digit
// form.
std::string encodePassword(std::string_view password);
// The reverse; what is not in the stored form is dropped.
std::string decodePassword(std::string_view stored);

// Whether somebody must log in: the main user has a password.
bool loginRequired(const UserTable& users);
// Whether the login asks for a name before the password: entry 0 has a name.
bool loginAsksName(const UserTable& users);
struct Login {
  int user = 0;           // index in the table
  bool mainUser = false;  // the password is the main one: may see and change the tables
  bool readOnly = false;
  std::string name;
};
// The entry that a typed name (ignored where no name is asked for) and password open; nullopt when they open
// none. The first matching entry wins; an empty password never logs in.
std::optional<Login> checkLogin(const UserTable& users, std::string_view name, std::string_view password);

}  // namespace plinth
