// What the design surface knows beside the project: what is selected, what the mouse is doing, the grid, the
// area selection. Plain values; the controllers of surface/ work on them.
#pragma once

#include <cstdint>
#include <vector>

#include "basic/Geometry.h"
#include "model/ObjectKinds.h"

namespace plinth {

// Unit of the read-outs; the numbers are those of the menu entries.
enum class ScaleUnit { pixels = 3, inches = 5, millimeters = 6, centimeters = 7 };

// What the mouse does with the object in hand.
enum class PlacePhase { none, carried, sizing };

// Numbers of pointers.
enum class PointerShape {
  standard = 0,
  arrow = 1,
  northSouth = 7,
  northWestSouthEast = 8,
  eastWest = 9,
  upArrow = 10,
  sizeAll = 15,
  area = 99
};

// The colour of the panel that the colour table works for.
enum class ColorTarget { none = 0, textColor = -3, backColor = -4, borderColor = -5, pageColor = -6 };

struct DesignState {
  int currentPage = 0;  // 0 to 4

  // Selection: selKind tells the kind, or kSelNone, kSelArea, kSelFrame3; the index is the one of the kind.
  int selKind = kSelNone, placeTool = kToolNone;
  int selField = 0, selMemo = 0, selCombo = 0, selPicture = 0, selCheck = 0, selTitle = 0, selLine = 0,
      selSquare = 0, selScript = 0, selButton = 0;

  // The mouse, in page pixels.
  bool placingActive = false;  // a new object is carried
  PlacePhase placePhase = PlacePhase::none;
  PointPx press, cur, anchor;
  bool lineEndStart = false;   // the start of the selected line is dragged, not its end
  bool lineEndsShown = false;  // markers Linend(0) and Linend(1)
  PointerShape pointer = PointerShape::standard;
  ObjectRef hoverLabel{ObjectKind::Title, -1};  // linked label under the pointer; index -1: none
  bool pictureArtMode = false;
  bool locked = false;
  // Objects hidden until the page is shown anew: carried ones that another tool put aside, labels dragged off
  // the page.
  std::vector<ObjectRef> hidden;
  // The label whose caption is typed in place (MainText); index -1: none.
  int editedTitle = -1;

  ScaleUnit scaleUnit = ScaleUnit::pixels;
  int gridChoice = 0;  // menu entry: 0 none, 5, 10, 15, 20
  bool gridOn() const { return gridChoice != 0; }
  double gridStep = 0;  // pixels

  // Area selection, while selKind is kSelArea.
  bool userSelVisible = false;
  RectPx userSel;  // page pixels
  std::vector<ObjectRef> multiSel;

  ColorTarget colorTarget = ColorTarget::none;
  std::int32_t color1 = 0, color2 = 0xFFFFFF, color3 = 0x808080;
  int scrollXAtCopy = 0, scrollYAtCopy = 0;  // pixels
  int pasteFirstField = 0;
  int menuLabelEdit = -1;  // menu entry whose words are edited; -1: none
};

// The selected index of a kind.
int& selectedIndex(DesignState& state, ObjectKind kind);
int selectedIndex(const DesignState& state, ObjectKind kind);
// Makes an object the selected one: selKind, placeTool and the kind's index.
void select(DesignState& state, ObjectRef object);
// Nothing is selected and no tool armed; the area selection is left.
void selectNothing(DesignState& state);
// The one selected object; nullopt when none or an area is selected, or when it is gone.
std::optional<ObjectRef> selectedObject(const DesignState& state, const ProjectTables& tables);
// What a command works on: the members of the area selection, or the one selected object, or nothing.
std::vector<ObjectRef> selectedObjects(const DesignState& state, const ProjectTables& tables);
bool isHidden(const DesignState& state, ObjectRef object);

}  // namespace plinth
