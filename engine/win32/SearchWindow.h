// The window with the search line (Form1): what to look for in the object that has the focus, or a command.
#pragma once

#include <functional>

#include "engine/search/SearchLines.h"
#include "engine/search/Searches.h"
#include "engine/win32/EngineHost.h"
#include "engine/win32/ToolWindow.h"

namespace plinth {

class SearchWindow : public ToolWindow {
 public:
  // All must outlive this.
  SearchWindow(EngineHost& host, Searches& searches, Settings& settings);
  // Shows the window for the object in focus, above `owner`. within: a result whose records alone are looked
  // at, nullptr for all. text: the line to begin from, if not empty.
  void open(HWND owner, SearchResult* within, const std::string& text = {});
  // A result is gone: nothing is searched within it any more.
  void forget(const SearchResult& result);
  // The data is gone.
  void forget();

 protected:
  LRESULT message(UINT message, WPARAM wide, LPARAM param) override;

 private:
  bool make(HWND owner);
  void fill();
  void arrange();
  void command(int id, int notice);
  void run();
  void showKept();
  void hide();
  std::string line() const { return textOf(kLineId); }
  static constexpr int kLineId = 10;
  EngineHost& host_;
  Searches& searches_;
  Settings& settings_;
  KeptLines kept_;
  std::vector<std::string> typed_;  // lines run before, the latest first
  SearchResult* within_ = nullptr;
  HWND tips_ = nullptr;
};

}  // namespace plinth
