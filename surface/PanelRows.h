// What each control of the property panel stands for in an object's row, told by what the row has: a kind
// takes a control when its row has something for it.
#pragma once

#include "surface/PropertyPanel.h"

namespace plinth {

// Calls visit with the row's value of one of color1 to color3.
template <class Row, class F>
void visitPanelColor(PanelId id, Row& row, F& visit) {
  constexpr bool line = requires { row.x1; };
  constexpr bool square = requires { row.shapeType; };
  if (id == PanelId::color1) {
    if constexpr (requires { row.foreColor; }) visit(row.foreColor);
  } else if (id == PanelId::color2) {
    if constexpr (line)
      visit(row.borderColor);
    else if constexpr (requires { row.backColor; })
      visit(row.backColor);
  } else {
    if constexpr (square)
      visit(row.borderColor);
    else if constexpr (requires { row.frameColor; })
      visit(row.frameColor);
  }
}

// The same of noChart, noSearch, lockEnabled and printOn.
template <class Row, class F>
void visitPanelFlag(PanelId id, Row& row, F& visit) {
  if (id == PanelId::noChart) {
    if constexpr (requires { row.noChart; }) visit(row.noChart);
  } else if (id == PanelId::noSearch) {
    if constexpr (requires { row.noSearch; }) visit(row.noSearch);
  } else if (id == PanelId::lockEnabled) {
    if constexpr (requires { row.lockEntry; }) visit(row.lockEntry);
  } else {
    if constexpr (requires { row.printOn; }) visit(row.printOn);
  }
}

// The same of bold, italic, underline, fontName and fontSize. Project files keep no underline of fields, so
// fields are not offered one that the next load would lose.
template <class Row, class F>
void visitPanelFont(PanelId id, Row& row, F& visit) {
  if constexpr (requires { row.fontName; }) {
    if (id == PanelId::bold) visit(row.fontBold);
    if (id == PanelId::italic) visit(row.fontItalic);
    if (id == PanelId::fontName) visit(row.fontName);
    if (id == PanelId::fontSize) visit(row.fontSize);
    if constexpr (requires { row.fontUnderline; })
      if (id == PanelId::underline) visit(row.fontUnderline);
  }
}

// The same of what remains: lengths, frames, alignment, page, and the names and places of boxes with data.
// Pictures, labels and buttons use their tag for something else.
template <class Row, class F>
void visitPanelData(PanelId id, Row& row, F& visit) {
  if (id == PanelId::allPages) visit(row.page);
  if constexpr (requires { row.frameStyle; }) {
    if (id == PanelId::borderStyle) visit(row.frameStyle);
    if (id == PanelId::fieldLength) visit(row.fieldLength);
  }
  if constexpr (requires { row.tabOrder; }) {
    if (id == PanelId::tabOrder) visit(row.tabOrder);
    if (id == PanelId::fieldLabel) visit(row.tag);
  }
  if constexpr (requires { row.alignment; })
    if (id >= PanelId::alignLeft && id <= PanelId::alignCenter) visit(row.alignment);
}

// Calls visit with a reference to the row's value, a text or a number; not for kinds without one, and not
// for the read-outs and selItem.
template <class Row, class F>
void visitPanelValue(PanelId id, Row& row, F&& visit) {
  switch (id) {
    case PanelId::color1:
    case PanelId::color2:
    case PanelId::color3:
      return visitPanelColor(id, row, visit);
    case PanelId::noChart:
    case PanelId::noSearch:
    case PanelId::lockEnabled:
    case PanelId::printOn:
      return visitPanelFlag(id, row, visit);
    case PanelId::bold:
    case PanelId::italic:
    case PanelId::underline:
    case PanelId::fontName:
    case PanelId::fontSize:
      return visitPanelFont(id, row, visit);
    default:
      return visitPanelData(id, row, visit);
  }
}

// True for the four read-outs.
constexpr bool isReadout(PanelId id) { return id >= PanelId::left && id <= PanelId::height; }

// Whether an object has a value for a control that is no read-out.
bool takesPanelValue(const ProjectTables& tables, PanelId id, ObjectRef object);
// What a control sets, in the words of undo: "text colour".
const char* panelWords(PanelId id);

}  // namespace plinth
