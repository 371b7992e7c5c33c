// The free pictures to choose from, in rows of small pictures.
#pragma once

#include <functional>
#include <memory>
#include <vector>

#include "engine/win32/Window.h"
#include "platform/Canvas.h"

namespace plinth {

class PicturePalette : public Window {
 public:
  using Decode = std::function<std::shared_ptr<Image>(std::int32_t)>;
  using Pick = std::function<void(std::int32_t)>;
  // picture: the decoded picture of a number, asked only for those in view; pick: the person chose one.
  PicturePalette(Decode picture, Pick pick) : picture_(std::move(picture)), pick_(std::move(pick)) {}
  // place: device pixels in the parent. scale: device pixels of a unit.
  bool open(HWND parent, const RECT& place, int id, double scale);
  void setPictures(std::vector<std::int32_t> numbers);
  // The one that is marked; 0 for none.
  void setChosen(std::int32_t number);

 protected:
  LRESULT message(UINT message, WPARAM wide, LPARAM param) override;

 private:
  int cell() const;
  int columns() const;
  int wholeHeight() const;
  void scrollTo(int top);
  void scrollBar(int code);
  void updateBar();
  void choose(int index);
  bool key(int key);
  void paint();
  Decode picture_;
  Pick pick_;
  std::vector<std::int32_t> numbers_;
  std::int32_t chosen_ = 0;
  int top_ = 0;  // device pixels scrolled away
  double scale_ = 1;
};

}  // namespace plinth
