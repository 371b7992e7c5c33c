// How a page of the project looks while it is designed: the document's rows as items of widgets/, back to
// front.
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>

#include "model/ObjectKinds.h"
#include "model/ProjectDocument.h"
#include "platform/Canvas.h"
#include "widgets/PageItems.h"

namespace plinth {

// Decoded images by the path that a project knows them by.
class PageImages {
 public:
  virtual ~PageImages() = default;
  // nullptr when there is no image or it is damaged.
  virtual std::shared_ptr<Image> at(const std::string& path) = 0;
};

// Each image is read and decoded once until clear().
class StoredImages : public PageImages {
 public:
  using Load = std::function<std::optional<Bytes>(const std::string& path)>;
  StoredImages(Load load, ImageDecoder& decoder) : load_(std::move(load)), decoder_(decoder) {}
  std::shared_ptr<Image> at(const std::string& path) override;
  void clear() { images_.clear(); }

 private:
  Load load_;
  ImageDecoder& decoder_;
  std::map<std::string, std::shared_ptr<Image>> images_;
};

// Size of a text in a font, in pixels at 96 dpi.
using TextMeasure = std::function<SizePx(std::string_view, const FontSpec&)>;

// True when an object shows on `page` (0 to 4): it lies there or on all pages. `visible` counts on page 0
// only.
bool showsOnPage(int objectPage, bool visible, int page);

// The same measure, remembering what it measured: pages are laid out anew at each change.
TextMeasure remembering(TextMeasure measure);

// How one object looks, whether it shows or not; nullopt when there is no such object.
std::optional<ItemShape> itemOf(const ProjectDocument& document, ObjectRef object, PageImages& images,
                                const TextMeasure& measure);

// All objects that show on a page, squares at the back, then lines, pictures, titles, fields, combos, memos,
// check boxes, buttons, scripts. Pixels from the page's top left corner; each item's ref is its ObjectKind
// and index.
PageItems pageItems(const ProjectDocument& document, int page, PageImages& images,
                    const TextMeasure& measure);

// Height of a combo's text in pixels, by its font size in points; combos have none of their own.
int comboTextHeight(float fontSize);
// Font of a label.
FontSpec titleFont(const TitleRow& row, int charSet);

// Size of the pages in pixels: of the chosen paper, else the user's own; always within 32 to 20000, whatever
// the project says. Back colour of a page (0 to 4).
SizePx pageSizePx(const ProjectDocument& document);
std::int32_t pageColorOf(const ProjectDocument& document, int page);

// The name people know an object by: letter and index ("F12", "Line 3"; squares and scripts by their word)
// and its field label or caption behind a blank, where it has one. "" when there is no such object.
std::string objectName(const ProjectDocument& document, ObjectKind kind, int index);

// How many objects of all kinds live on a page; -1 counts those of all pages too, once.
int objectsOnPage(const ProjectDocument& document, int page);
int objectsInProject(const ProjectDocument& document);

// Index into `items` of the front-most item at a point, -1 for none. Lines are met within three pixels.
int itemAt(const PageItems& items, PointPx point);

inline ItemRef itemRef(ObjectRef object) { return {static_cast<int>(object.kind), object.index}; }
// ref: of an item that pageItems() made.
inline ObjectRef objectRef(ItemRef ref) { return {static_cast<ObjectKind>(ref.kind), ref.index}; }

}  // namespace plinth
