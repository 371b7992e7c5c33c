// The windows beside the main one, with the controllers behind them: made when the application opens, shown
// when somebody asks for them.
#pragma once

#include "engine/win32/CalculatorWindow.h"
#include "engine/win32/ProgressWindow.h"
#include "engine/win32/ResultWindow.h"
#include "engine/win32/SearchWindow.h"

namespace plinth {

class EngineTools {
 public:
  // All must outlive this. The session's scripts run their query lines here.
  EngineTools(EngineHost& host, Messages& messages, SharedFiles& files, Settings& settings,
              Clipboard& clipboard);
  ~EngineTools();
  EngineTools(const EngineTools&) = delete;
  EngineTools& operator=(const EngineTools&) = delete;
  // Once, for the main window.
  void open(HWND owner);

  Searches& searches() { return searches_; }
  const ResultWindows& results() const { return results_; }
  // finden(0): the search line, for all records or within a result. line: what it holds, if not empty.
  void find(SearchResult* within = nullptr, const std::string& line = {});
  void showCalculator() { calculator_.open(owner_); }
  // The user tables, for who may change them.
  void showUsers();
  // Another database or none: results lead nowhere any more.
  void databaseClosed();
  // Whether a message was a key of one of these windows.
  bool takes(const MSG& message) const;

 private:
  EngineHost& host_;
  Messages& messages_;
  HWND owner_ = nullptr;
  ProgressWindow progress_;
  Searches searches_;
  SearchWindow search_;
  ResultWindows results_;
  CalculatorWindow calculator_;
};

}  // namespace plinth
