// The table of users while somebody changes it: ten entries at a time, passwords in clear. The stored form is
// made again at the end.
#pragma once

#include <string>
#include <string_view>

#include "engine/Users.h"

namespace plinth {

enum class UserRowLook { other, current, main };

class UserTableEditor {
 public:
  static constexpr int kRows = 10;
  // stored: the table with passwords in stored form. currentUser: the entry of who changes it.
  UserTableEditor(const UserTable& stored, int currentUser);

  // The entry in the first row, 0 to kUserEntries - kRows; brought into that range.
  int scroll() const { return scroll_; }
  void setScroll(int first);

  // Rows are 0 to kRows - 1.
  int entry(int row) const { return row + scroll_; }
  const std::string& name(int row) const { return table_.names[at(row)]; }
  const std::string& password(int row) const { return table_.passwords[at(row)]; }
  bool readOnly(int row) const { return table_.readOnly[at(row)] != 0; }
  UserRowLook look(int row) const;
  void setName(int row, std::string_view name) { table_.names[at(row)] = name; }
  void setPassword(int row, std::string_view password) { table_.passwords[at(row)] = password; }
  void setReadOnly(int row, bool readOnly) { table_.readOnly[at(row)] = readOnly ? 1 : 0; }
  // doUsers: the entry goes, all later ones move up, the last one is empty.
  void removeUser(int row);

  // A table that asks for a login: without a main password nobody else could be kept out.
  bool mayClose() const { return loginRequired(table_); }
  // The table as it is kept.
  UserTable stored() const;

 private:
  std::size_t at(int row) const { return static_cast<std::size_t>(row + scroll_); }
  UserTable table_;  // passwords in clear
  int currentUser_, scroll_ = 0;
};

}  // namespace plinth
