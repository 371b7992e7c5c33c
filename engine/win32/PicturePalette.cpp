#include "engine/win32/PicturePalette.h"

#include <windowsx.h>

#include <algorithm>
#include <cmath>

#include "platform/win32/GdiBitmap.h"
#include "platform/win32/GdiCanvas.h"

namespace plinth {
namespace {

constexpr int kCell = 40, kRoom = 34;  // units: a cell, and what its picture may take of it
constexpr std::int32_t kChosenColor = 0xF5D9B0, kEdgeColor = 0xC08040;

}  // namespace

bool PicturePalette::open(HWND parent, const RECT& place, int id, double scale) {
  scale_ = scale;
  Request request;
  request.className = L"PlinthPalette";
  request.style = WS_CHILD | WS_VISIBLE | WS_TABSTOP | WS_VSCROLL | WS_BORDER;
  request.parent = parent;
  request.place = place;
  request.id = id;
  return create(request);
}

void PicturePalette::setPictures(std::vector<std::int32_t> numbers) {
  numbers_ = std::move(numbers);
  top_ = 0;
  updateBar();
  ::InvalidateRect(handle(), nullptr, FALSE);
}

void PicturePalette::setChosen(std::int32_t number) {
  if (number == chosen_) return;
  chosen_ = number;
  ::InvalidateRect(handle(), nullptr, FALSE);
}

int PicturePalette::cell() const { return std::max(1, static_cast<int>(std::lround(kCell * scale_))); }

int PicturePalette::columns() const {
  RECT area = {};
  ::GetClientRect(handle(), &area);
  return std::max(1, static_cast<int>(area.right) / cell());
}

int PicturePalette::wholeHeight() const {
  const int across = columns();
  return (static_cast<int>(numbers_.size()) + across - 1) / across * cell();
}

void PicturePalette::updateBar() {
  RECT area = {};
  ::GetClientRect(handle(), &area);
  SCROLLINFO bar = {};
  bar.cbSize = sizeof bar;
  bar.fMask = SIF_RANGE | SIF_PAGE | SIF_POS;
  bar.nMax = std::max(0, wholeHeight() - 1);
  bar.nPage = static_cast<UINT>(area.bottom);
  bar.nPos = top_;
  ::SetScrollInfo(handle(), SB_VERT, &bar, TRUE);
}

void PicturePalette::scrollTo(int top) {
  RECT area = {};
  ::GetClientRect(handle(), &area);
  top = std::clamp(top, 0, std::max(0, wholeHeight() - static_cast<int>(area.bottom)));
  if (top == top_) return;
  top_ = top;
  updateBar();
  ::InvalidateRect(handle(), nullptr, FALSE);
}

void PicturePalette::scrollBar(int code) {
  SCROLLINFO bar = {};
  bar.cbSize = sizeof bar;
  bar.fMask = SIF_ALL;
  ::GetScrollInfo(handle(), SB_VERT, &bar);
  const int page = static_cast<int>(bar.nPage);
  switch (code) {
    case SB_LINEUP:
      return scrollTo(top_ - cell());
    case SB_LINEDOWN:
      return scrollTo(top_ + cell());
    case SB_PAGEUP:
      return scrollTo(top_ - page);
    case SB_PAGEDOWN:
      return scrollTo(top_ + page);
    case SB_TOP:
      return scrollTo(0);
    case SB_BOTTOM:
      return scrollTo(bar.nMax);
    case SB_THUMBTRACK:
    case SB_THUMBPOSITION:
      return scrollTo(bar.nTrackPos);
    default:
      return;
  }
}

void PicturePalette::choose(int index) {
  if (index < 0 || index >= static_cast<int>(numbers_.size())) return;
  setChosen(numbers_[static_cast<std::size_t>(index)]);
  RECT area = {};
  ::GetClientRect(handle(), &area);
  const int top = index / columns() * cell();
  if (top < top_) scrollTo(top);
  if (top + cell() > top_ + area.bottom) scrollTo(top + cell() - static_cast<int>(area.bottom));
  pick_(chosen_);
}

bool PicturePalette::key(int key) {
  const auto found = std::find(numbers_.begin(), numbers_.end(), chosen_);
  const int at = found == numbers_.end() ? -1 : static_cast<int>(found - numbers_.begin());
  const int by = key == VK_LEFT    ? -1
                 : key == VK_RIGHT ? 1
                 : key == VK_UP    ? -columns()
                 : key == VK_DOWN  ? columns()
                                   : 0;
  if (by == 0) return false;
  choose(at < 0 ? 0 : at + by);
  return true;
}

void PicturePalette::paint() {
  BufferedPaint buffer(handle());
  RECT area = {};
  ::GetClientRect(handle(), &area);
  GdiCanvas canvas(buffer.dc());
  const RectPx paper{0, 0, static_cast<int>(area.right), static_cast<int>(area.bottom)};
  canvas.box(paper, {LineStyle::none, 1, 0}, {});
  const int side = cell(), across = columns(), room = static_cast<int>(std::lround(kRoom * scale_));
  for (int i = top_ / side * across; i < static_cast<int>(numbers_.size()); ++i) {
    const RectPx place{i % across * side, i / across * side - top_, side, side};
    if (place.top >= area.bottom) break;
    const std::int32_t number = numbers_[static_cast<std::size_t>(i)];
    if (number == chosen_)
      canvas.box(place, {LineStyle::solid, 1, kEdgeColor}, {FillStyle::solid, kChosenColor});
    const std::shared_ptr<Image> image = picture_(number);
    if (!image) continue;
    const SizePx size = image->size();
    const double fit = std::min(scale_, static_cast<double>(room) / std::max({size.width, size.height, 1}));
    const int wide = std::max(1, static_cast<int>(std::lround(size.width * fit)));
    const int high = std::max(1, static_cast<int>(std::lround(size.height * fit)));
    canvas.picture({place.left + (side - wide) / 2, place.top + (side - high) / 2, wide, high}, *image);
  }
  if (::GetFocus() == handle()) ::DrawFocusRect(buffer.dc(), &area);
}

LRESULT PicturePalette::message(UINT message, WPARAM wide, LPARAM param) {
  switch (message) {
    case WM_ERASEBKGND:
      return 1;
    case WM_PAINT:
      paint();
      return 0;
    case WM_LBUTTONDOWN:
    case WM_LBUTTONDBLCLK: {
      ::SetFocus(handle());
      const int column = GET_X_LPARAM(param) / cell();
      if (column < columns()) choose((GET_Y_LPARAM(param) + top_) / cell() * columns() + column);
      return 0;
    }
    case WM_VSCROLL:
      scrollBar(LOWORD(wide));
      return 0;
    case WM_MOUSEWHEEL:
      scrollTo(top_ - GET_WHEEL_DELTA_WPARAM(wide) * cell() / WHEEL_DELTA);
      return 0;
    case WM_GETDLGCODE:
      return DLGC_WANTARROWS;
    case WM_KEYDOWN:
      if (key(static_cast<int>(wide))) return 0;
      break;
    case WM_SETFOCUS:
    case WM_KILLFOCUS:
      ::InvalidateRect(handle(), nullptr, FALSE);
      return 0;
    default:
      break;
  }
  return standard(message, wide, param);
}

}  // namespace plinth
