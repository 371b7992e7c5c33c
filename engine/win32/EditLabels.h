// The window (EditLabels) for text and look of the selected free label. Every change shows at once on the
// page; it hides when another object is chosen or the record is saved.
#pragma once

#include <string>

#include "engine/win32/LabelStyleWindow.h"

namespace plinth {

inline constexpr int kLabelTextId = 30;
inline constexpr int kLabelCharSetId = 31;

class EditLabels : public LabelStyleWindow {
 public:
  EditLabels(EngineHost& host, VariableObjects& objects) : LabelStyleWindow(host, objects) {}
  // Shows the selected label above `owner`, its text marked; nothing when none is selected.
  void open(HWND owner);
  void hide();
  // The selected label changed, or there is none any more.
  void show();

 protected:
  LRESULT message(UINT message, WPARAM wide, LPARAM param) override;

 private:
  bool make(HWND owner);
  void command(int id, int notice);
  void takeText();
  void takeCharSet();
  int codePage() const;
  std::wstring typed() const;
};

}  // namespace plinth
