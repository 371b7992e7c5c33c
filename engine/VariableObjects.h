// The hands of the person on the free labels and pictures of the present record: adding, choosing, dragging,
// styling, deleting. Windows forward gestures as plain points and keys; every change goes through the
// session, so that it takes the record as typing does.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "basic/Geometry.h"
#include "engine/RecordSession.h"

namespace plinth {

// One free object of the form; the index is that of RecordForm's list.
struct VariableRef {
  enum class Kind { none, label, picture };
  Kind kind = Kind::none;
  int index = 0;
  explicit operator bool() const { return kind != Kind::none; }
  bool operator==(const VariableRef&) const = default;
};

// How a label looks.
struct LabelStyle {
  int fontSize = 9;  // points, 1 to 200
  int charSet = 0;
  bool bold = false, italic = false, underline = false;
  std::int32_t foreColor = 0;  // RGB, red in the low byte
  bool operator==(const LabelStyle&) const = default;
};

// What a click on a label leads to.
struct LabelLink {
  std::string word;     // the part of the text that is the link
  std::string target;   // address for the shell; "" for a move
  int navigation = -1;  // 0 to 5 as Command2_Click, 6 a new record
};
// The link in a label's text: the text itself when it is one of the navigation words "<<<" to ">>>" and "<>",
// else its first word that is a web address ("http://", "https://", "www.") or a mail address. Nothing else
// is opened, since records come from other people too.
std::optional<LabelLink> labelLink(std::string_view text);

// The numbers of the pictures "<number>.gif" among the names of a folder, ascending; other names are skipped.
std::vector<std::int32_t> freePictureNumbers(const std::vector<std::string>& names);

inline constexpr int kMostGrid = 50;

class VariableObjects {
 public:
  enum class Tool { pointer, label, picture };
  struct Services {
    Messages& messages;
    Shell& shell;
    SizePx page;                                          // pixels of the page
    std::function<SizePx(const VariableLabel&)> measure;  // pixels that a label's text takes up
  };
  // `session` must outlive this.
  VariableObjects(RecordSession& session, Services services);

  // Whether the tools are out: the page then takes gestures for the objects. Turning off drops the selection.
  bool editing() const { return editing_; }
  void setEditing(bool on);
  // What the next press on the page makes; the pointer chooses and drags. image: number of the picture; size:
  // its pixels.
  void chooseTool(Tool tool, std::int32_t image = 0, SizePx size = {});
  Tool tool() const { return tool_; }
  std::int32_t toolImage() const { return tool_ == Tool::picture ? image_ : 0; }
  // Gsize: steps that dragged and new objects stand on, 1 to 50 pixels.
  int gridSize() const { return grid_; }
  void setGridSize(int pixels);

  // --- On the page shown now; points in pixels of the page.
  VariableRef at(PointPx point) const;  // the topmost
  RectPx place(VariableRef object) const;
  // A press of the left button: makes what the tool says, or selects what is there and begins a drag.
  // Returns the object; none for a press beside all of them.
  VariableRef press(PointPx point);
  void drag(PointPx point);
  void release() { dragging_ = false; }
  void cancelDrag();  // back to where it began
  bool dragging() const { return dragging_; }
  // Arrows move the selected object by the grid, with Ctrl by a pixel; Delete removes it, Esc ends a drag,
  // the tool or the selection. True when the key was one of these.
  bool keyDown(const KeyEvent& key);
  // A click without tools: makes the labels the object in focus and follows the label's link. False when no
  // label is there.
  bool click(PointPx point);
  // "Goto " and the link of the label at a point; "" where there is none.
  std::string toolTip(PointPx point) const;

  // --- The selected object; none as soon as another record or page shows.
  VariableRef selection() const;
  void deselect();
  const VariableLabel* selectedLabel() const;
  // New text of the selected label. False when it was refused (with a message when there is no room for it).
  bool setText(const std::string& text);
  // Look of the selected label, if any, and of all new ones. False when the label could not be changed.
  bool setStyle(const LabelStyle& style);
  LabelStyle style() const;
  bool remove();
  // The objects of the present record were changed and the record is not saved yet.
  bool changed() const;
  // The record was saved or left: nothing is selected nor counts as changed any more.
  void settled();

  // Called when selection, tool, look or the changed mark may be other than before.
  std::function<void()> onChange;

 private:
  using Change = std::function<void(RecordForm&)>;
  bool alive(VariableRef object) const;
  bool hasRoomFor(const Change& change) const;
  bool apply(const Change& change);
  void select(VariableRef object);
  VariableRef add(PointPx point);
  bool moveTo(PointPx corner);
  int snapped(int pixels) const;
  void told() const;

  RecordSession& session_;
  Services services_;
  bool editing_ = false, dragging_ = false, moving_ = false;
  Tool tool_ = Tool::pointer;
  std::int32_t image_ = 0;
  SizePx imageSize_;
  int grid_ = 8;
  LabelStyle style_;
  VariableRef selected_;
  std::int32_t selectedRecord_ = 0, changedRecord_ = 0;
  PointPx pressedAt_, startCorner_;
};

}  // namespace plinth
