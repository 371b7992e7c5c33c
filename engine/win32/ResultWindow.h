// The windows of search results (Form3): a list of the hits with a line below it that tells how the search
// stands. A row leads to its record.
#pragma once

#include <functional>
#include <memory>
#include <unordered_map>

#include "engine/search/Searches.h"
#include "engine/win32/EngineHost.h"
#include "engine/win32/ToolWindow.h"
#include "widgets/win32/ListPlus.h"

namespace plinth {

// The rows of a result as a list asks for them: read from the data when they are seen.
class ResultSource : public ListSource {
 public:
  ResultSource(const SearchResult& result, ResultRows rows) : result_(result), reader_(std::move(rows)) {}
  std::int32_t rows() const override { return shown_; }
  std::int32_t rowId(std::int32_t row) const override { return result_.hits[static_cast<std::size_t>(row)]; }
  std::string cell(std::int32_t row, int column) const override;
  const std::vector<ResultColumn>& columns() const { return reader_.columns(); }
  // How many rows of the result the list knows.
  void show(std::int32_t rows) { shown_ = rows; }
  // The records may have changed.
  void forget() { cells_.clear(); }

 private:
  const SearchResult& result_;
  mutable ResultRows reader_;
  mutable std::unordered_map<std::int32_t, std::vector<std::string>> cells_;
  std::int32_t shown_ = 0;
};

class ResultWindow : public ToolWindow {
 public:
  struct Events {
    std::function<void(std::int32_t record)> chosen;
    std::function<void(SearchResult&)> find;    // Find... within this result
    std::function<void(SearchResult&)> closed;  // the result is not needed any more
  };
  ResultWindow(const Application& application, const Locale& locale, Settings& settings, Events events)
      : ToolWindow(application), locale_(locale), settings_(settings), events_(std::move(events)) {}
  // others: the corners of the windows of other results.
  bool open(HWND owner, const std::vector<POINT>& others);
  // Its left top corner on the screen.
  POINT corner() const;
  // The list of a run that begins. `result` must outlive its time here.
  void begin(SearchResult& result, ResultRows rows, double now);
  // During the run; false once somebody stopped it.
  bool running();
  void finish();
  bool shows(const SearchResult& result) const { return result_ == &result; }
  bool closed() const { return result_ == nullptr; }
  // The window goes, and its result with it; during a run, it stops first.
  void close();

 protected:
  LRESULT message(UINT message, WPARAM wide, LPARAM param) override;

 private:
  void avoid(const std::vector<POINT>& others);
  void arrange();
  void setColumns(double now);
  void command(int id, int notice);
  const Locale& locale_;
  Settings& settings_;
  Events events_;
  SearchResult* result_ = nullptr;
  std::unique_ptr<ResultSource> source_;
  FontCache listFonts_;
  bool stopped_ = false, closeAfter_ = false;
  ULONGLONG drawn_ = 0;
};

// All of them: what the searches tell, and when a window goes.
class ResultWindows : public SearchView {
 public:
  // All must outlive this. find: opens the search line within a result; closed: a result goes.
  ResultWindows(EngineHost& host, Searches& searches, Settings& settings,
                std::function<void(SearchResult*)> find, std::function<void(const SearchResult&)> closed);
  void setOwner(HWND owner) { owner_ = owner; }
  void resultOpened(SearchResult& result) override;
  bool resultRunning(SearchResult& result) override;
  void resultFinished(SearchResult& result) override;
  // The database was closed: no row leads anywhere any more.
  void closeAll();
  // Whether a message was a key of one of the windows.
  bool takes(const MSG& message) const;
  // The window that shows a result; nullptr when none does.
  HWND windowOf(const SearchResult& result) const;

 private:
  ResultWindow* find(const SearchResult& result) const;
  EngineHost& host_;
  Searches& searches_;
  Settings& settings_;
  std::function<void(SearchResult*)> findWithin_;
  std::function<void(const SearchResult&)> closed_;
  HWND owner_ = nullptr;
  std::vector<std::unique_ptr<ResultWindow>> windows_;
};

}  // namespace plinth
