#include "engine/win32/ResultWindow.h"

#include <algorithm>
#include <cmath>

#include "engine/win32/ProgressWindow.h"
#include "platform/win32/Win32Text.h"

namespace plinth {
namespace {

constexpr int kListId = 10, kStatusId = 11, kFindId = 12;
constexpr int kWide = 640, kHigh = 400, kBar = 32, kMostWide = 320, kStep = 24;
constexpr const char* kPlace = "Search";
constexpr const char* kFont = "Courier New";
constexpr ULONGLONG kBetween = 30;
constexpr std::size_t kMostCells = 2000;

}  // namespace

std::string ResultSource::cell(std::int32_t row, int column) const {
  const auto at = static_cast<std::size_t>(column - 1);
  if (column < 1 || at >= reader_.columns().size()) return {};
  // A list asks cell by cell, and again with every repaint.
  auto found = cells_.find(row);
  if (found == cells_.end()) {
    if (cells_.size() >= kMostCells && shown_ > static_cast<std::int32_t>(kMostCells)) cells_.clear();
    found = cells_.emplace(row, reader_.cells(rowId(row))).first;
  }
  return found->second[at];
}

bool ResultWindow::open(HWND owner, const std::vector<POINT>& others) {
  if (!openAbove(owner, L"PlinthResults", application_.title,
                 WS_POPUP | WS_CAPTION | WS_SYSMENU | WS_THICKFRAME | WS_MAXIMIZEBOX, {kWide, kHigh}))
    return false;
  const HWND list = add(kListPlusClass, caption(18, "Find"), WS_TABSTOP, kListId);
  add(L"STATIC", "", SS_NOPREFIX | SS_CENTERIMAGE | SS_ENDELLIPSIS, kStatusId);
  add(L"BUTTON", caption(18, "Find") + "...", WS_TABSTOP, kFindId);
  add(L"BUTTON", caption(62, "Cancel"), WS_TABSTOP, IDCANCEL);
  setFonts();
  const std::string& name = application_.payload.application.resultFont;
  const FontSpec letters{name.empty() ? kFont : name, 9, false, false, false, application_.charSet};
  ::SendMessageW(list, WM_SETFONT, reinterpret_cast<WPARAM>(listFonts_.get(letters, px(12))), FALSE);
  standBeside(owner);
  restorePlace(settings_, kPlace);
  avoid(others);
  arrange();
  return true;
}

// One beside the other, so that none hides the title of another.
void ResultWindow::avoid(const std::vector<POINT>& others) {
  RECT place = {};
  ::GetWindowRect(handle(), &place);
  const RECT work = workAreaAround(handle());
  const int right = place.right + px(kStep) <= work.right ? px(kStep) : -px(kStep);
  const int down = place.bottom + px(kStep) <= work.bottom ? px(kStep) : -px(kStep);
  const auto taken = [&](const POINT& other) { return other.x == place.left && other.y == place.top; };
  std::size_t tries = others.size();
  while (tries-- > 0 && std::any_of(others.begin(), others.end(), taken)) ::OffsetRect(&place, right, down);
  ::SetWindowPos(handle(), nullptr, place.left, place.top, 0, 0,
                 SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

POINT ResultWindow::corner() const {
  RECT place = {};
  ::GetWindowRect(handle(), &place);
  return {place.left, place.top};
}

void ResultWindow::arrange() {
  const int wide = static_cast<int>(inside().cx), high = static_cast<int>(inside().cy);
  put(kListId, 0, 0, wide, std::max(0, high - kBar));
  put(kStatusId, 8, high - kBar + 3, std::max(0, wide - 200), kBar - 6);
  put(kFindId, wide - 184, high - kBar + 4, 84, kBar - 8);
  put(IDCANCEL, wide - 92, high - kBar + 4, 84, kBar - 8);
}

// Heads with the objects' labels, widths from the letters that their objects take.
void ResultWindow::setColumns(double now) {
  ListModel& model = *listModel(item(kListId));
  const WindowDc dc(item(kListId));
  const auto font = reinterpret_cast<HFONT>(::SendMessageW(item(kListId), WM_GETFONT, 0, 0));
  const HGDIOBJ before = ::SelectObject(dc.get(), font);
  SIZE ten = {};
  ::GetTextExtentPoint32W(dc.get(), L"0123456789", 10, &ten);
  ::SelectObject(dc.get(), before);
  const auto letters = [&](int count) {
    return std::clamp(static_cast<int>(count * ten.cx / 10) + px(22), px(40), px(kMostWide));
  };
  const std::string number = caption(8, "Record");
  std::vector<ListColumn> columns{{number, letters(static_cast<int>(number.size())), true, false}};
  for (const ResultColumn& column : source_->columns()) {
    if (columns.size() > static_cast<std::size_t>(kListColumns)) break;
    const int needed = std::max(column.widthChars, static_cast<int>(column.header.size()) + 2);
    columns.push_back({column.header, letters(needed), column.alignRight, column.date});
  }
  model.setColumns(std::move(columns));
  model.setLocale(locale_, now);
  model.setMultiSelect(application_.payload.application.resultOptions[4] != 0);
}

void ResultWindow::begin(SearchResult& result, ResultRows rows, double now) {
  result_ = &result;
  stopped_ = closeAfter_ = false;
  drawn_ = ::GetTickCount64();
  setListSource(item(kListId), nullptr);
  source_ = std::make_unique<ResultSource>(result, std::move(rows));
  setListSource(item(kListId), source_.get());
  setColumns(now);
  refreshList(item(kListId));
  ::SetWindowTextW(handle(), wide(result.line + "  -  " + application_.title).c_str());
  setText(kStatusId, "");
  setText(IDCANCEL, caption(62, "Cancel"));
  ::EnableWindow(item(IDCANCEL), TRUE);
  ::EnableWindow(item(kFindId), FALSE);
  ::ShowWindow(handle(), SW_SHOW);
  ::SetForegroundWindow(handle());
  ::SetFocus(item(kListId));
}

bool ResultWindow::running() {
  const std::int32_t rows = std::min(result_->rows(), kRowsDuringRun);
  const bool more = rows > source_->rows() && (source_->rows() == 0 || rows == kRowsDuringRun);
  const ULONGLONG now = ::GetTickCount64();
  if (!more && now - drawn_ < kBetween) return !stopped_;
  drawn_ = now;
  if (rows > source_->rows()) {
    source_->show(rows);
    listRowsChanged(item(kListId));
  }
  setText(kStatusId, result_->status);
  pumpWaitingMessages(this);
  return !stopped_;
}

void ResultWindow::finish() {
  source_->show(result_->rows());
  listRowsChanged(item(kListId));
  // Nobody knows whether a search that was stopped would have found something: what it got through stays.
  if (!result_->cancelled || !result_->hits.empty()) setText(kStatusId, result_->status);
  setText(IDCANCEL, caption(65, "Close"));
  ::EnableWindow(item(IDCANCEL), TRUE);
  ::EnableWindow(item(kFindId), !result_->hits.empty());
  if (closeAfter_) ::PostMessageW(handle(), WM_CLOSE, 0, 0);
}

void ResultWindow::close() {
  if (!result_) return;
  if (result_->running) {
    stopped_ = closeAfter_ = true;
    return;
  }
  keepPlace(settings_, kPlace);
  SearchResult& result = *result_;
  setListSource(item(kListId), nullptr);
  result_ = nullptr;
  source_.reset();
  ::ShowWindow(handle(), SW_HIDE);
  events_.closed(result);
}

void ResultWindow::command(int id, int notice) {
  if (!result_) return;
  if (id == IDCANCEL) {
    if (!result_->running) return close();
    stopped_ = true;
    ::EnableWindow(item(IDCANCEL), FALSE);
  } else if (id == kFindId) {
    events_.find(*result_);
  } else if (id == kListId && notice == kListRowChosen && !result_->running) {
    if (const std::int32_t record = listCaretRowId(item(kListId)); record > 0) events_.chosen(record);
  }
}

LRESULT ResultWindow::message(UINT message, WPARAM wide, LPARAM param) {
  switch (message) {
    case WM_COMMAND:
      command(LOWORD(wide), HIWORD(wide));
      return 0;
    case WM_SIZE:
      if (item(IDCANCEL)) arrange();
      return 0;
    case WM_GETMINMAXINFO:
      reinterpret_cast<MINMAXINFO*>(param)->ptMinTrackSize = {px(320), px(160)};
      return 0;
    case WM_SETFOCUS:
      ::SetFocus(item(kListId));
      return 0;
    case WM_CLOSE:
      close();
      return 0;
    default:
      return standard(message, wide, param);
  }
}

ResultWindows::ResultWindows(EngineHost& host, Searches& searches, Settings& settings,
                             std::function<void(SearchResult*)> find,
                             std::function<void(const SearchResult&)> closed)
    : host_(host),
      searches_(searches),
      settings_(settings),
      findWithin_(std::move(find)),
      closed_(std::move(closed)) {}

ResultWindow* ResultWindows::find(const SearchResult& result) const {
  for (const auto& window : windows_)
    if (window->shows(result)) return window.get();
  return nullptr;
}

HWND ResultWindows::windowOf(const SearchResult& result) const {
  const ResultWindow* window = find(result);
  return window ? window->handle() : nullptr;
}

void ResultWindows::resultOpened(SearchResult& result) {
  // A window cannot be destroyed while one of its own messages is handled: those that were closed go now.
  std::erase_if(windows_, [](const auto& window) { return window->closed(); });
  ResultWindow* window = find(result);
  if (!window) {
    ResultWindow::Events events;
    events.chosen = [this](std::int32_t record) {
      bool shown = false;
      host_.act([&] { shown = searches_.show(record); });
      if (shown) ::SetForegroundWindow(owner_);
    };
    events.find = [this](SearchResult& within) { findWithin_(&within); };
    events.closed = [this](SearchResult& gone) {
      closed_(gone);
      searches_.close(gone);
    };
    auto made = std::make_unique<ResultWindow>(host_.application(), host_.session().locale(), settings_,
                                               std::move(events));
    std::vector<POINT> corners;
    for (const auto& other : windows_) corners.push_back(other->corner());
    if (!made->open(owner_, corners)) return;
    window = made.get();
    windows_.push_back(std::move(made));
  }
  ::EnableWindow(owner_, FALSE);
  window->begin(result, searches_.rowsOf(result), host_.session().now());
}

bool ResultWindows::resultRunning(SearchResult& result) {
  ResultWindow* window = find(result);
  return !window || window->running();
}

void ResultWindows::resultFinished(SearchResult& result) {
  ::EnableWindow(owner_, TRUE);
  if (ResultWindow* window = find(result)) window->finish();
}

void ResultWindows::closeAll() {
  for (const auto& window : windows_) window->close();
}

bool ResultWindows::takes(const MSG& message) const {
  return std::any_of(windows_.begin(), windows_.end(),
                     [&](const auto& window) { return window->takes(message); });
}

}  // namespace plinth
