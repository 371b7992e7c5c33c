// The tool window (vTools) for the free labels and pictures of a record: pointer, label, the pictures of the
// folder Images, the look of labels, the grid. BB1 is the mark that the record's objects were changed.
#pragma once

#include "engine/win32/LabelStyleWindow.h"
#include "engine/win32/PictureFiles.h"
#include "engine/win32/PicturePalette.h"

namespace plinth {

inline constexpr int kToolPointerId = 10;
inline constexpr int kToolLabelId = 11;
inline constexpr int kToolRemoveId = 12;
inline constexpr int kToolGridId = 13;
inline constexpr int kToolChangedId = 14;  // BB1
inline constexpr int kToolPaletteId = 15;
inline constexpr int kToolEmptyId = 16;  // says that there are no pictures

class VariableTools : public LabelStyleWindow {
 public:
  // All must outlive this.
  VariableTools(EngineHost& host, VariableObjects& objects, PictureFiles& pictures, Files& files,
                Settings& settings);
  // Shows the window above `owner` and takes the page's gestures; keepFocus: the owner keeps the keyboard.
  void open(HWND owner, bool keepFocus);
  // Hides it; its place and grid are kept.
  void close();
  // Selection, tool, look or mark changed.
  void show();

 protected:
  LRESULT message(UINT message, WPARAM wide, LPARAM param) override;

 private:
  bool make(HWND owner);
  void command(int id, int notice);
  void pick(std::int32_t number);
  void keep() const;
  PictureFiles& pictures_;
  Files& files_;
  Settings& settings_;
  PicturePalette palette_;
};

}  // namespace plinth
