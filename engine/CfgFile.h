// The application's companion file beside the program: what is global to it rather than to a record. One walk
// serves reader and writer; docs/formats/cfg.md has the picture.
#pragma once

#include <span>

#include "basic/Result.h"
#include "basic/Slots.h"
#include "engine/RecordForm.h"
#include "engine/Users.h"
#include "platform/Files.h"

namespace plinth {

// What a reading found.
struct CfgContents {
  bool titles = false;  // captions of the labels were taken over into the form
  bool users = false;   // the three user tables were whole and are in `users`
};

// Reads the file's bytes: captions of the titles from 6 up and texts of the global fields into `form`, the
// user tables into `users`. Damaged bytes never fail: what cannot be read keeps its value, and tables that
// are not whole leave `users` alone, so that a damaged file cannot remove a password.
CfgContents readCfg(std::span<const std::uint8_t> bytes, const Application& application, RecordForm& form,
                    UserTable& users);
Bytes writeCfg(const Application& application, const RecordForm& form, const UserTable& users);

// The table that a finished application starts with: no users but the main password of its design, if any.
UserTable initialUsers(const Application& application);

}  // namespace plinth
