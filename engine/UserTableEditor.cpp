#include "engine/UserTableEditor.h"

#include <algorithm>

namespace plinth {

UserTableEditor::UserTableEditor(const UserTable& stored, int currentUser)
    : table_(stored), currentUser_(currentUser) {
  for (std::string& password : table_.passwords) password = decodePassword(password);
}

void UserTableEditor::setScroll(int first) { scroll_ = std::clamp(first, 0, kUserEntries - kRows); }

UserRowLook UserTableEditor::look(int row) const {
  if (entry(row) == currentUser_) return UserRowLook::current;
  return entry(row) == 0 ? UserRowLook::main : UserRowLook::other;
}

void UserTableEditor::removeUser(int row) {
  const auto close = [row, this](auto& column) {
    std::move(column.begin() + entry(row) + 1, column.end(), column.begin() + entry(row));
    column.back() = {};
  };
  close(table_.names);
  close(table_.passwords);
  close(table_.readOnly);
  if (entry(row) == currentUser_)
    currentUser_ = -1;
  else if (entry(row) < currentUser_)
    --currentUser_;
}

UserTable UserTableEditor::stored() const {
  UserTable stored = table_;
  for (std::string& password : stored.passwords) password = encodePassword(password);
  return stored;
}

}  // namespace plinth
