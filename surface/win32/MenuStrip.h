// The finished application's menus above the page. A click on an entry does not run it: its words come up for
// editing, in a box at the right of the strip.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "surface/MenuWords.h"
#include "surface/win32/FlatButton.h"

namespace plinth {

struct MenuStripEvents {
  std::function<void(int id)> begin;                     // an entry was chosen
  std::function<void(const std::string& words)> change;  // at each letter
  std::function<void()> end;                             // Enter, Escape, OK
};

class MenuStrip {
 public:
  static constexpr int kFirstTitle = 401, kText1 = 451, kDone = 452;

  MenuStrip(HWND parent, int id, MenuStripEvents events);
  ~MenuStrip();
  MenuStrip(const MenuStrip&) = delete;
  MenuStrip& operator=(const MenuStrip&) = delete;

  HWND window() const { return window_; }
  int height() const { return style_.px(kHeight); }  // device pixels
  // Titles, and the entry in edit by its id (-1 for none) with its words; codePage: of the project.
  void show(const std::vector<MirroredMenu>& menus, int edited, const std::string& words, int codePage);
  // Captions of Frame1: what is edited, and the tool tip of Text1.
  void retext(const std::wstring& frame, const std::wstring& text1);
  void scaleChanged();
  void setColors(const ChromeColors& colors);

 private:
  template <class T>
  friend LRESULT CALLBACK windowProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
  static constexpr int kHeight = 34;
  static LRESULT CALLBACK text1Procedure(HWND box, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR id,
                                         DWORD_PTR self);
  LRESULT handle(UINT message, WPARAM wParam, LPARAM lParam);
  void makeTitles();
  void layout();
  void popup(std::size_t menu);
  void paint();
  SIZE extentOf(const std::wstring& text) const;

  HWND window_ = nullptr, text1_ = nullptr, tips_ = nullptr;
  MenuStripEvents events_;
  ChromeStyle style_;
  std::vector<MirroredMenu> menus_;
  std::vector<std::unique_ptr<FlatButton>> titles_;
  std::unique_ptr<FlatButton> done_;
  std::wstring frame_;
  int edited_ = -1, codePage_ = 1252;
  bool filling_ = false;
};

}  // namespace plinth
