// The order of the objects' rows in a payload. Which flag stands where is settled by the order of the
// project's rows: lock, print, no search.
#pragma once

#include "builder/payload/Payload.h"

namespace plinth {

template <class Archive, class Row>
void walkSquare(Archive& ar, Row& r) {
  ar.slot(r.page, Tag::i2, "page");
  ar.slot(r.printOn, Tag::ui1, "printed");
  ar.slot(r.backColor, Tag::i4, "back colour");
  ar.slot(r.borderColor, Tag::i4, "border colour");
  ar.slot(r.fillColor, Tag::i4, "fill colour");
  ar.slot(r.backStyle, Tag::i2, "back style");
  ar.slot(r.borderStyle, Tag::i2, "border style");
  ar.paired(r.fillStyle, r.shapeType, "fill style + 256 x shape type");
  ar.slot(r.width, Tag::r4, "width");
  ar.slot(r.height, Tag::r4, "height");
  ar.slot(r.borderWidth, Tag::i2, "border width");
  ar.slot(r.top, Tag::r4, "top");
  ar.slot(r.left, Tag::r4, "left");
}

template <class Archive, class Row>
void walkLine(Archive& ar, Row& r) {
  ar.slot(r.page, Tag::i2, "page");
  ar.slot(r.x1, Tag::r4, "x1");
  ar.slot(r.y1, Tag::r4, "y1");
  ar.slot(r.x2, Tag::r4, "x2");
  ar.slot(r.y2, Tag::r4, "y2");
  ar.slot(r.borderColor, Tag::i4, "colour");
  ar.slot(r.printOn, Tag::ui1, "printed");
}

template <class Archive, class Row>
void walkPicture(Archive& ar, Row& r) {
  ar.text(r.name, "name");
  ar.slot(r.page, Tag::i2, "page");
  ar.onlyIf(r.page < 5, "page below 5", [&] {
    ar.slot(r.printOn, Tag::ui1, "printed");
    ar.file(r.image, "picture");
    ar.slot(r.top, Tag::r4, "top");
    ar.slot(r.left, Tag::r4, "left");
    ar.text(r.helpText, "help text");
    ar.slot(r.stretch, Tag::i2, "stretch");
    ar.slot(r.visible, Tag::boolean, "visible");
    ar.slot(r.height, Tag::r4, "height");
    ar.slot(r.width, Tag::r4, "width");
    ar.slot(r.borderStyle, Tag::i2, "border style");
    ar.text(r.link, "link");
  });
}

template <class Archive, class Row>
void walkTitle(Archive& ar, Row& r) {
  ar.slot(r.page, Tag::i2, "page");
  ar.slot(r.printOn, Tag::ui1, "printed");
  ar.text(r.font.name, "font");
  ar.slot(r.font.italic, Tag::boolean, "italic");
  ar.slot(r.font.bold, Tag::boolean, "bold");
  ar.slot(r.font.underline, Tag::boolean, "underline");
  ar.slot(r.font.size, Tag::r4, "font size");
  ar.slot(r.foreColor, Tag::i4, "fore colour");
  ar.slot(r.left, Tag::r4, "left");
  ar.slot(r.top, Tag::r4, "top");
  ar.scrambled(r.caption, "caption");
  ar.slot(r.alignment, Tag::i2, "alignment");
  ar.text(r.link, "link");
  ar.text(r.helpText, "help text");
}

template <class Archive, class Row>
void walkBoxFont(Archive& ar, Row& r) {
  ar.slot(r.foreColor, Tag::i4, "fore colour");
  ar.slot(r.font.bold, Tag::boolean, "bold");
  ar.slot(r.font.italic, Tag::boolean, "italic");
  ar.slot(r.backColor, Tag::i4, "back colour");
  ar.slot(r.font.size, Tag::r4, "font size");
}

template <class Archive, class Row>
void walkBoxFrame(Archive& ar, Row& r) {
  ar.slot(r.height, Tag::r4, "height");
  ar.slot(r.width, Tag::r4, "width");
  ar.slot(r.borderStyle, Tag::i2, "border style");
  ar.slot(r.frame.present, Tag::i2, "has a frame");
  ar.onlyIf(r.frame.present, "with a frame", [&] {
    ar.slot(r.frame.style, Tag::i4, "frame style");
    ar.slot(r.frame.color, Tag::i4, "frame colour");
  });
}

template <class Archive, class Row>
void walkField(Archive& ar, Row& r) {
  ar.slot(r.noChart, Tag::ui1, "cannot be charted");
  ar.slot(r.dummyField, Tag::i2, "stores nothing");
  ar.slot(r.noDefaultDate, Tag::ui1, "no default date, blank when zero");
  ar.slot(r.lockEntry, Tag::ui1, "locked once entered");
  ar.slot(r.page, Tag::i2, "page");
  ar.slot(r.printOn, Tag::i2, "printed");
  ar.slot(r.noSearch, Tag::ui1, "cannot be searched");
  ar.slot(r.alignment, Tag::i2, "alignment");
  ar.slot(r.fieldLength, Tag::i4, "maximum length");
  ar.slot(r.top, Tag::r4, "top");
  ar.slot(r.left, Tag::r4, "left");
  ar.text(r.font.name, "font");
  walkBoxFont(ar, r);
  ar.text(r.tag, "label");
  ar.slot(r.exportOrder, Tag::i2, "export order");
  ar.slot(r.tabIndex, Tag::i2, "tab index");
  ar.text(r.helpText, "help text");
  ar.slot(r.dayOffset, Tag::i2, "days");
  ar.slot(r.textCase, Tag::ui1, "case");
  ar.slot(r.fieldType, Tag::ui1, "data type");
  ar.scrambled(r.formula, "formula");
  walkBoxFrame(ar, r);
}

template <class Archive, class Row>
void walkCombo(Archive& ar, Row& r) {
  ar.slot(r.noChart, Tag::i4, "cannot be charted");
  ar.slot(r.textCase, Tag::i2, "case");
  ar.slot(r.fieldLength, Tag::i2, "maximum length");
  ar.slot(r.page, Tag::i4, "page");
  ar.slot(r.lockEntry, Tag::i4, "locked once entered");
  ar.slot(r.printOn, Tag::i4, "printed");
  ar.slot(r.noSearch, Tag::i4, "cannot be searched");
  ar.slot(r.comboType, Tag::i4, "combo type");
  ar.slot(r.top, Tag::r4, "top");
  ar.slot(r.left, Tag::r4, "left");
  ar.text(r.font.name, "font");
  walkBoxFont(ar, r);
  ar.text(r.tag, "label");
  ar.slot(r.exportOrder, Tag::i4, "export order");
  ar.text(r.helpText, "help text");
  ar.textList(r.items, "list lines");
  ar.slot(r.width, Tag::r4, "width");
  ar.slot(r.frameStyle, Tag::i4, "frame style");
  ar.slot(r.frameColor, Tag::i4, "frame colour");
}

template <class Archive, class Row>
void walkMemo(Archive& ar, Row& r) {
  ar.slot(r.page, Tag::i2, "page");
  ar.slot(r.lockEntry, Tag::ui1, "locked once entered");
  ar.slot(r.printOn, Tag::ui1, "printed");
  ar.slot(r.noSearch, Tag::ui1, "cannot be searched");
  ar.slot(r.fieldLength, Tag::i4, "maximum length");
  ar.slot(r.top, Tag::r4, "top");
  ar.slot(r.left, Tag::r4, "left");
  ar.slot(r.foreColor, Tag::i4, "fore colour");
  ar.text(r.font.name, "font");
  ar.slot(r.font.bold, Tag::boolean, "bold");
  ar.slot(r.font.italic, Tag::boolean, "italic");
  ar.slot(r.backColor, Tag::i4, "back colour");
  ar.slot(r.font.size, Tag::r4, "font size");
  ar.text(r.tag, "label");
  ar.slot(r.exportOrder, Tag::i2, "export order");
  ar.slot(r.tabIndex, Tag::i2, "tab index");
  ar.text(r.helpText, "help text");
  walkBoxFrame(ar, r);
}

template <class Archive, class Row>
void walkCheck(Archive& ar, Row& r) {
  ar.slot(r.noChart, Tag::ui1, "cannot be charted");
  ar.slot(r.page, Tag::i2, "page");
  ar.slot(r.lockEntry, Tag::ui1, "locked once entered");
  ar.slot(r.printOn, Tag::ui1, "printed");
  ar.slot(r.noSearch, Tag::ui1, "cannot be searched");
  ar.slot(r.value, Tag::ui1, "value of a new record");
  ar.slot(r.top, Tag::r4, "top");
  ar.slot(r.left, Tag::r4, "left");
  ar.text(r.caption, "caption: the help text");
  ar.text(r.tag, "label");
  ar.slot(r.exportOrder, Tag::i2, "export order");
  ar.slot(r.appearance, Tag::ui1, "appearance");
}

template <class Archive, class Row>
void walkButton(Archive& ar, Row& r) {
  ar.slot(r.page, Tag::i2, "page");
  ar.text(r.helpText, "help text");
  ar.text(r.tag, "link");
  ar.text(r.font.name, "font");
  ar.text(r.caption, "caption");
  ar.slot(r.font.size, Tag::r4, "font size");
  ar.slot(r.font.bold, Tag::boolean, "bold");
  ar.slot(r.font.italic, Tag::boolean, "italic");
  ar.slot(r.font.underline, Tag::boolean, "underline");
  ar.slot(r.top, Tag::r4, "top");
  ar.slot(r.left, Tag::r4, "left");
  ar.slot(r.width, Tag::r4, "width");
  ar.slot(r.height, Tag::r4, "height");
  ar.slot(r.backColor, Tag::i4, "back colour");
  ar.slot(r.foreColor, Tag::i4, "fore colour");
  ar.slot(r.image, Tag::i2, "image number");
  ar.text(r.script, "script");
}

template <class Archive, class Row>
void walkFragment(Archive& ar, Row& r) {
  ar.text(r.html, "HTML text");
  ar.slot(r.page, Tag::i2, "page");
}

}  // namespace plinth
