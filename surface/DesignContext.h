// What the controllers of the design surface share: the project, the state of the surface, the history, and
// the ways to tell the window. One is made by the designer; the controllers hold a reference to it.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "model/History.h"
#include "model/ProjectDocument.h"
#include "platform/Clock.h"
#include "platform/Messages.h"
#include "surface/DesignState.h"
#include "surface/DesignerDialogs.h"
#include "surface/PageView.h"

namespace plinth {

// What the controllers tell whoever shows the surface. Calls are cheap: the shower marks what has to be
// painted or filled and does it once.
class EditorView {
 public:
  virtual ~EditorView() = default;
  virtual void objectsChanged() = 0;  // rows came, went or look different
  // Only places and sizes of these, at 60 times a second during a drag.
  virtual void objectsMoved(const std::vector<ObjectRef>& objects) = 0;
  virtual void selectionChanged() = 0;                // the panel shows another object or area
  virtual void readoutsChanged() = 0;                 // LeftP, TopP, WidthP, HeightP, or the unit
  virtual void overlayChanged() = 0;                  // UserSel, line ends, grid, hover: paint anew
  virtual void pointerChanged() = 0;                  // DesignState::pointer
  virtual void documentChanged() = 0;                 // a step was made or undone; the project is dirty
  virtual void pageChanged() = 0;                     // DesignState::currentPage, page size or colours
  virtual void popupMenu(PointPx page) = 0;           // the menu "er" at a point of the page
  virtual void openProperties(ObjectRef object) = 0;  // double click
  virtual void labelEditing() = 0;                    // DesignState::editedTitle came, went or moved
};

struct DesignContext {
  ProjectDocument& document;
  DesignState& state;
  History& history;
  EditorView& view;
  Messages& messages;
  Clock& clock;
  TextMeasure measure;
  LabelSource label;
  std::function<std::string()> choosePicture;  // path of a picture file, "" when none was chosen
  std::function<RectPx()> visiblePage;         // part of the page that is on view, page pixels
  std::function<PointPx()> scroll;             // positions of HScroll2 (x) and HScroll1 (y), pixels
};

// Ends a command: records what changed as one step in words, marks the project as dirty and tells the view.
// For mergeKey see History::commit. False when nothing had changed.
bool finish(DesignContext& context, const std::string& words, const std::string& mergeKey = "");

// The step of a carried object's placing, which the carrying belongs to.
std::string placingKey(ObjectRef object);
// Before something else happens to the project: how far an object was carried until now belongs to its own
// step.
void finishCarried(DesignContext& context);

// The message box of a language text.
void showLabel(DesignContext& context, int label, const char* english);

// How an object is called in the words of undo: "F12", "Line 3", "square 2".
std::string shortName(ObjectRef object);
// "F12", or "20 objects".
std::string shortName(const std::vector<ObjectRef>& objects);

// Hides an object until the page is shown anew, and shows all those again.
void hideObject(DesignContext& context, ObjectRef object);
void revealHidden(DesignContext& context);

}  // namespace plinth
