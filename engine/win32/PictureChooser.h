// The chooser (Form10) for an image of the record: a file with its preview, smaller where asked for, or none.
// The main window takes no input while it is open.
#pragma once

#include <functional>
#include <memory>

#include "engine/DataPictures.h"
#include "engine/win32/EngineHost.h"
#include "engine/win32/ToolWindow.h"
#include "platform/Chooser.h"

namespace plinth {

inline constexpr int kPictureOpenId = 10;
inline constexpr int kPictureRemoveId = 11;
inline constexpr int kPicturePreviewId = 12;
inline constexpr int kPictureResizeId = 13;
inline constexpr int kPictureRatioId = 14;

class PictureChooser : public ToolWindow {
 public:
  // All must outlive this.
  PictureChooser(EngineHost& host, DataPictures& pictures, Chooser& chooser, ImageDecoder& decoder,
                 Settings& settings);
  // For picture n, which shows `now` (or nothing) in a box of `box` pixels. changed: called when another
  // image was kept.
  void open(HWND owner, int n, std::shared_ptr<Image> now, SizePx box, std::function<void()> changed);
  // A list of hits may lead to another record meanwhile: the choice was not for that one.
  void follow();

 protected:
  LRESULT message(UINT message, WPARAM wide, LPARAM param) override;

 private:
  bool make(HWND owner);
  void command(int id, int notice);
  void chooseFile();
  void accept();
  void close();
  void showChoice();
  void drawPreview(const DRAWITEMSTRUCT& item) const;
  bool checked(int id) const { return ::SendMessageW(item(id), BM_GETCHECK, 0, 0) == BST_CHECKED; }
  EngineHost& host_;
  DataPictures& pictures_;
  Chooser& chooser_;
  ImageDecoder& decoder_;
  Settings& settings_;
  int picture_ = -1;
  std::int32_t record_ = 0;
  SizePx box_;
  Bytes bytes_;       // of the file chosen, empty for none
  std::string name_;  // of it
  bool removed_ = false;
  std::shared_ptr<Image> preview_;
  std::function<void()> changed_;
};

}  // namespace plinth
