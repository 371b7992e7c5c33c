// All that works on the page, put together: the state of the surface, its history and controllers, the
// drawing area and the panel. The window forwards events and commands to it; each is followed by one round of
// telling what changed.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "model/History.h"
#include "platform/Clipboard.h"
#include "surface/AreaSelection.h"
#include "surface/ColorTable.h"
#include "surface/DesignContext.h"
#include "surface/MenuWords.h"
#include "surface/ObjectClipboard.h"
#include "surface/PageEditor.h"
#include "surface/PageSetup.h"
#include "surface/PageSurface.h"
#include "surface/Placement.h"
#include "surface/PropertyPanel.h"
#include "surface/ToolFrame.h"

namespace plinth {

// What the surface tells its window, beside painting and scrolling.
class SurfaceWindow : public SurfaceView {
 public:
  virtual void panelChanged() = 0;     // controls of panel() show other things
  virtual void readoutsChanged() = 0;  // only the places among them
  virtual void pointerChanged(PointerShape pointer) = 0;
  virtual void popupMenu(PointPx point) = 0;  // at a point of the drawing area
  // The caption of a label is typed in place, at that part of the drawing area; or no longer: width 0.
  virtual void labelEditing(const RectPx& place) = 0;
  virtual void objectOpened(ObjectRef object) = 0;  // double click
  virtual void stepMade() = 0;                      // undo and redo have other words, the project is dirty
};

// From outside; must outlive the surface.
struct SurfaceServices {
  ProjectDocument& document;
  PageImages& images;
  Messages& messages;
  Clock& clock;
  Clipboard& clipboard;
  Locale locale;  // of dates
  TextMeasure measure;
  LabelSource label;
  std::function<std::string()> choosePicture;
};

class DesignSurface : private EditorView, private PageHand {
 public:
  DesignSurface(SurfaceServices services, SurfaceWindow& window);
  DesignSurface(const DesignSurface&) = delete;
  DesignSurface& operator=(const DesignSurface&) = delete;

  // Another project stands in the document: nothing selected, nothing to undo.
  void projectChanged();
  // The project was saved as it stands.
  void saved() { history_.adopt(services_.document); }
  // Captions and fonts may be others now.
  void textsChanged();
  // Something outside changed the project: one step in these words. False when nothing had changed.
  bool finished(const std::string& words, const std::string& mergeKey = "");

  // Runs work on the controllers and tells what came of it. What the mouse holds is released before.
  template <class F>
  void run(F work) {
    turn([&] {
      if (depth_ == 1) {
        editor_.endGesture();
        toolFrame_.endGesture();
      }
      work();
    });
  }

  // Events of the drawing area in its own pixels.
  void mouseDown(const MouseEvent& event);
  void mouseMove(const MouseEvent& event);
  void mouseUp(const MouseEvent& event);
  void doubleClick(const MouseEvent& event);
  bool keyDown(const KeyEvent& event);

  // Of the label that is typed in place.
  void typeLabel(const std::string& caption);
  void endLabel();
  void writePanel(PanelId id, const std::string& value);
  void chooseColorFor(PanelId id);  // color1, color2 or color3 wait for useColor()
  void waitForPageColor();          // so does the colour of the page
  void useColor(std::int32_t color);
  void pad(int dx, int dy, bool ten);

  void undo();
  void redo();
  void copy();
  void cut();
  void paste();
  void remove();
  void toggleLock();
  void toggleToolPanel();
  // The clock of a page, "h:mmam/pm"; to be called now and then.
  void tick();

  PageSurface& page() { return page_; }
  const PageSurface& page() const { return page_; }
  const ProjectDocument& document() const { return services_.document; }
  const DesignState& state() const { return state_; }
  const History& history() const { return history_; }
  const PropertyPanel& panel() const { return panel_; }
  const ToolFrame& toolFrame() const { return toolFrame_; }
  PropertyPanel& panel() { return panel_; }
  Placement& placement() { return placement_; }
  const Placement& placement() const { return placement_; }
  AreaSelection& area() { return area_; }
  PageEditor& editor() { return editor_; }
  ObjectClipboard& objects() { return clipboard_; }
  PageSetup& setup() { return setup_; }
  const PageSetup& setup() const { return setup_; }
  MenuWords& menuWords() { return words_; }
  const MenuWords& menuWords() const { return words_; }
  ColorTable& colors() { return colors_; }
  // What is selected, in words for the status bar; "" for nothing. 8-bit text of the project.
  std::string selectionWords() const;
  // Something is selected that commands can work on.
  bool hasSelection() const { return !selectedObjects(state_, services_.document).empty(); }
  // A mouse gesture is under way, or an object is carried.
  bool inGesture() const { return state_.placingActive || pressed_ || toolFrame_.held(); }

 private:
  // The same for events, which may be part of a gesture.
  template <class F>
  void turn(F work) {
    ++depth_;
    work();
    if (--depth_ == 0) tell();
  }
  bool keepOnClipboard(const std::string& text);  // false for no text, or when the clipboard is held
  void tell();
  void stepTaken();

  // EditorView
  void objectsChanged() override { objectsDirty_ = true; }
  void objectsMoved(const std::vector<ObjectRef>& objects) override;
  void selectionChanged() override { selectionDirty_ = true; }
  void readoutsChanged() override { readoutsDirty_ = true; }
  void overlayChanged() override { overlayDirty_ = true; }
  void pointerChanged() override;
  void documentChanged() override { stepDirty_ = true; }
  void pageChanged() override;
  void popupMenu(PointPx page) override;
  void openProperties(ObjectRef object) override;
  void labelEditing() override { labelDirty_ = true; }
  // PageHand
  void pressed(const MouseEvent& event, ItemRef hit) override;
  void moved(const MouseEvent& event, ItemRef hit) override;
  void released(const MouseEvent& event) override;
  void pressedTwice(const MouseEvent& event, ItemRef hit) override;
  void paintOverlay(Canvas& canvas) const override;

  SurfaceServices services_;
  SurfaceWindow& window_;
  DesignState state_;
  History history_;
  DesignContext context_;
  AreaSelection area_;
  PageEditor editor_;
  ToolFrame toolFrame_;
  Placement placement_;
  PropertyPanel panel_;
  ObjectClipboard clipboard_;
  PageSetup setup_;
  MenuWords words_;
  ColorTable colors_;
  PageSurface page_;
  std::vector<ObjectRef> moved_;
  int depth_ = 0;
  bool pressed_ = false, objectsDirty_ = false, selectionDirty_ = false, readoutsDirty_ = false,
       overlayDirty_ = false, stepDirty_ = false, labelDirty_ = false, pageDirty_ = false;
};

}  // namespace plinth
