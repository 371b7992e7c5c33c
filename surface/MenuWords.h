// The words of the finished application's menus, changed where they stand: the designer shows those menus,
// and a click on an entry opens its words for editing.
#pragma once

#include <string>
#include <vector>

#include "surface/DesignContext.h"

namespace plinth {

struct MenuWord {
  int id;               // MenuLabelEdit
  std::string caption;  // 8-bit text of the project; of an entry without words its name in parentheses
  bool separatorBefore = false;
};
struct MirroredMenu {
  MenuWord title;
  std::vector<MenuWord> entries;
};

class MenuWords {
 public:
  explicit MenuWords(DesignContext& context) : c_(context) {}

  // The menus of the finished application with all entries, also those that no words hide there.
  std::vector<MirroredMenu> menus() const;
  void begin(int id);                     // Frame1 comes up with the words in Text1
  std::string words() const;              // of the entry in edit, "" for none
  void change(const std::string& words);  // at each change
  void end();

 private:
  DesignContext& c_;
};

}  // namespace plinth
