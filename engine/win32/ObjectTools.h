// The hands on what a record has beside its boxes: free labels and pictures with their windows, and the
// images of the record. The main window makes one, opens it, and tells it when something happened.
#pragma once

#include "engine/win32/EditLabels.h"
#include "engine/win32/PageGestures.h"
#include "engine/win32/PageWindow.h"
#include "engine/win32/PictureChooser.h"
#include "engine/win32/VariableTools.h"

namespace plinth {

struct ObjectServices {
  Messages& messages;
  Chooser& chooser;
  Shell& shell;
  Files& files;
  ImageDecoder& decoder;
  Settings& settings;
};

class ObjectTools : private PageGestures {
 public:
  // All must outlive this.
  ObjectTools(EngineHost& host, const PageLayout& layout, PictureFiles& files, PageWindow& page,
              BoxWindows& boxes, const ObjectServices& services);
  ~ObjectTools() override;
  // Once, for the main window that holds the page: takes the page's gestures and shows the tool window where
  // the application has one.
  void open(HWND owner);
  // Shows the tool window again after the person closed it; nothing without tools in the application.
  void showTools();
  // After each event of the person and whenever another record or page shows: windows and tips follow, and
  // after a save the editing ends.
  void follow();
  // Whether a message was a key of one of these windows.
  bool takes(const MSG& message) const;

  // --- Images of records. picture: index of a data picture.
  // The data picture that was clicked last and has the keyboard; -1 for none.
  int markedPicture() const { return marked_; }
  void choosePicture(int picture);
  bool mayPaste() const;  // an image into the marked picture
  void paste();
  void removePicture(int picture);

 private:
  bool press(PointPx point, bool twice) override;
  bool dragging() const override { return objects_.dragging(); }
  void drag(PointPx point) override;
  void release() override { objects_.release(); }
  bool menu(PointPx point, POINT screen) override;
  bool key(const KeyEvent& event) override;
  void keyboardLost() override;
  WORD pointerAt(PointPx point) const override;
  void paintMarks(Canvas& canvas) const override;

  bool pressObject(PointPx point, bool twice);
  void mark(int picture);
  bool pictureMenu(int picture, POINT screen);
  bool objectMenu(PointPx point, POINT screen);
  void changed();
  void placeTips();
  int dataPictureAt(PointPx point) const;

  EngineHost& host_;
  const PageLayout& layout_;
  PictureFiles& files_;
  PageWindow& page_;
  BoxWindows& boxes_;
  ObjectServices services_;
  VariableObjects objects_;
  DataPictures pictures_;
  VariableTools tools_;
  EditLabels edit_;
  PictureChooser chooser_;
  HWND owner_ = nullptr, tips_ = nullptr;
  std::vector<std::pair<RectPx, std::string>> tipPlaces_;
  double tipScale_ = 0;
  int marked_ = -1;
  bool changedBefore_ = false;
};

}  // namespace plinth
