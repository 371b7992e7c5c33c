// Where everything of a page lies, and what of it is painted rather than a window of its own. Units of 1/96
// inch from the page's top left corner, as items and canvases have them.
#pragma once

#include <functional>
#include <memory>
#include <string_view>

#include "engine/Application.h"
#include "engine/RecordForm.h"
#include "widgets/PageItems.h"

namespace plinth {

// What an item's ref says; the index is the object's.
enum class PagePart { square, line, picture, title, field, combo, memo, label, freePicture };

// The pictures of a page, decoded; nullptr where there is none.
class PagePictures {
 public:
  virtual ~PagePictures() = default;
  virtual std::shared_ptr<Image> fixedPicture(int n) = 0;
  virtual std::shared_ptr<Image> dataPicture(int n) = 0;
  virtual std::shared_ptr<Image> freePicture(std::int32_t number) = 0;
};

// A box and the frame that is painted around it.
struct BoxPlace {
  RectPx text, frame;
  Frame look;
};

class PageLayout {
 public:
  using Measure = std::function<SizePx(std::string_view, const FontSpec&)>;
  // `application` must outlive this.
  PageLayout(const Application& application, Measure measure);

  SizePx pageSize() const;
  BoxPlace field(int n) const;  // of the whole box, calendar button included
  BoxPlace combo(int n) const;
  BoxPlace memo(int n) const;
  RectPx dateButton(int n) const;
  RectPx check(int n) const;
  RectPx button(int n) const;
  RectPx picture(int n) const;
  RectPx title(int n, const RecordForm& form) const;
  FontSpec font(const PayloadFont& font) const;
  // A free label: its font and the room that its text takes up.
  FontSpec labelFont(const VariableLabel& label) const;
  SizePx labelSize(const VariableLabel& label) const { return measure_(label.text, labelFont(label)); }
  int lineHeight(const PayloadFont& font) const { return measure_("Wg", this->font(font)).height; }

  // What is painted on a page (0 to 4), back to front: squares, lines, pictures, titles, frames of boxes, and
  // the free labels and pictures of the record.
  PageItems items(const RecordForm& form, int page, PagePictures& pictures) const;
  // The link title at a point; 0 for none.
  int linkAt(PointPx point, const RecordForm& form, int page) const;
  // The topmost picture of records at a point; -1 for none.
  int dataPictureAt(PointPx point, int page) const;

 private:
  void addShapes(PageItems& items, int page) const;
  void addPictures(PageItems& items, int page, PagePictures& pictures) const;
  void addTitles(PageItems& items, const RecordForm& form, int page) const;
  void addFrames(PageItems& items, int page) const;
  void addFree(PageItems& items, const RecordForm& form, int page, PagePictures& pictures) const;
  const Application& application_;
  Measure measure_;
};

}  // namespace plinth
