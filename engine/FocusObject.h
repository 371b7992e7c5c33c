// The object that was last entered: it names what search, sort and index work on.
#pragma once

namespace plinth {

enum class FocusKind { none = 0, field = 1, combo = 2, check = 3, memo = 4, dateStamp = 5, variableLabels = 6 };

struct FocusObject {
  FocusKind kind = FocusKind::none;
  int index = 0;  // of fields, combos and memos from 1, of check boxes from 0
  bool operator==(const FocusObject&) const = default;
};

}  // namespace plinth
