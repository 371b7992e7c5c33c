#include "engine/win32/PictureChooser.h"

#include <algorithm>
#include <cmath>

#include "basic/FileName.h"
#include "engine/win32/PictureReduction.h"
#include "platform/win32/GdiBitmap.h"

namespace plinth {
namespace {

constexpr int kEdge = 12, kWide = 372, kHigh = 252, kPreview = 200;
constexpr const char* kSection = "Settings";
constexpr const char* kResizeKey = "Resize";
constexpr const char* kRatioKey = "Ratio";
constexpr const char* kPattern = "*.bmp;*.gif;*.jpg;*.jpeg;*.png;*.tif;*.tiff;*.ico";

}  // namespace

PictureChooser::PictureChooser(EngineHost& host, DataPictures& pictures, Chooser& chooser,
                               ImageDecoder& decoder, Settings& settings)
    : ToolWindow(host.application()),
      host_(host),
      pictures_(pictures),
      chooser_(chooser),
      decoder_(decoder),
      settings_(settings) {}

bool PictureChooser::make(HWND owner) {
  if (!openAbove(owner, L"Form10", "Picture Art...", WS_POPUP | WS_CAPTION | WS_SYSMENU, {kWide, kHigh}))
    return false;
  const int right = kEdge + kPreview + 16, wide = kWide - right - kEdge;
  add(L"STATIC", "Picture Preview :", 0, -1);
  ::SetWindowPos(::GetWindow(handle(), GW_CHILD), nullptr, px(kEdge), px(10), px(kPreview), px(18),
                 SWP_NOZORDER);
  add(L"STATIC", "", SS_OWNERDRAW, kPicturePreviewId);
  add(L"BUTTON", "Open", WS_TABSTOP, kPictureOpenId);
  add(L"BUTTON", caption(60, "Remove"), WS_TABSTOP, kPictureRemoveId);
  add(L"BUTTON", "Resize", WS_TABSTOP | BS_AUTOCHECKBOX, kPictureResizeId);
  add(L"BUTTON", "Ratio", WS_TABSTOP | BS_AUTOCHECKBOX, kPictureRatioId);
  add(L"BUTTON", caption(61, "OK"), WS_TABSTOP | BS_DEFPUSHBUTTON, IDOK);
  add(L"BUTTON", caption(62, "Cancel"), WS_TABSTOP, IDCANCEL);
  put(kPicturePreviewId, kEdge, 32, kPreview, kPreview);
  put(kPictureOpenId, right, 32, wide, 26);
  put(kPictureRemoveId, right, 62, wide, 26);
  put(kPictureResizeId, right, 102, wide, 20);
  put(kPictureRatioId, right, 126, wide, 20);
  put(IDOK, right, 176, wide, 26);
  put(IDCANCEL, right, 206, wide, 26);
  setFonts();
  const auto kept = [this](int id, const char* key, const char* plain) {
    ::SendMessageW(item(id), BM_SETCHECK,
                   settings_.get(kSection, key, plain) == "1" ? BST_CHECKED : BST_UNCHECKED, 0);
  };
  kept(kPictureResizeId, kResizeKey, "0");
  kept(kPictureRatioId, kRatioKey, "1");
  return true;
}

void PictureChooser::open(HWND owner, int n, std::shared_ptr<Image> now, SizePx box,
                          std::function<void()> changed) {
  if (!pictures_.mayChange(n) || (!handle() && !make(owner))) return;
  picture_ = n;
  record_ = host_.session().form().record;
  box_ = box;
  changed_ = std::move(changed);
  bytes_.clear();
  name_.clear();
  removed_ = false;
  preview_ = std::move(now);
  showChoice();
  centre(owner);
  ::EnableWindow(owner, FALSE);
  ::ShowWindow(handle(), SW_SHOW);
  ::SetFocus(item(kPictureOpenId));
}

void PictureChooser::follow() {
  if (visible() && host_.session().form().record != record_) close();
}

// The owner first, or the system would bring another program's window to the front.
void PictureChooser::close() {
  if (!visible()) return;
  ::EnableWindow(::GetWindow(handle(), GW_OWNER), TRUE);
  ::ShowWindow(handle(), SW_HIDE);
  preview_.reset();
  bytes_ = {};
}

void PictureChooser::showChoice() {
  ::EnableWindow(item(kPictureRemoveId), preview_ != nullptr);
  ::EnableWindow(item(kPictureRatioId), checked(kPictureResizeId));
  ::InvalidateRect(item(kPicturePreviewId), nullptr, TRUE);
}

void PictureChooser::chooseFile() {
  ChooserRequest request;
  request.title = "Picture Art...";
  request.pattern = kPattern;
  const std::optional<std::string> path = chooser_.choose(request);
  if (!path) return;
  std::optional<Bytes> bytes = pictures_.readImage(*path);
  if (!bytes) return;
  preview_ = decoder_.decode(*bytes);
  bytes_ = std::move(*bytes);
  name_ = fileNameOf(*path);
  removed_ = false;
  showChoice();
}

void PictureChooser::accept() {
  settings_.set(kSection, kResizeKey, checked(kPictureResizeId) ? "1" : "0");
  settings_.set(kSection, kRatioKey, checked(kPictureRatioId) ? "1" : "0");
  bool kept = true;
  host_.act([&] {
    if (removed_) kept = pictures_.clear(picture_);
    if (bytes_.empty()) return;
    const Bytes image = checked(kPictureResizeId) && preview_
                            ? reducedPicture(bytes_, *preview_, box_, checked(kPictureRatioId))
                            : bytes_;
    kept = pictures_.store(picture_, image, name_);
  });
  if (!kept) return;
  const std::function<void()> changed = changed_;
  close();
  if (changed) changed();
}

void PictureChooser::drawPreview(const DRAWITEMSTRUCT& item) const {
  const GdiBitmap paper(
      SizePx{static_cast<int>(item.rcItem.right), static_cast<int>(item.rcItem.bottom)});
  if (!paper.ok()) return;
  const RectPx room{0, 0, paper.size().width, paper.size().height};
  GdiCanvas canvas(paper.dc());
  canvas.box(room, {LineStyle::solid, 1, 0x808080}, {});
  if (preview_) {
    const SizePx size = reducedSize(preview_->size(), {room.width - 4, room.height - 4}, true);
    canvas.picture({(room.width - size.width) / 2, (room.height - size.height) / 2, size.width, size.height},
                   *preview_);
  }
  ::BitBlt(item.hDC, 0, 0, room.width, room.height, paper.dc(), 0, 0, SRCCOPY);
}

void PictureChooser::command(int id, int notice) {
  if (notice != BN_CLICKED) return;
  switch (id) {
    case kPictureOpenId:
      return chooseFile();
    case kPictureRemoveId:
      bytes_.clear();
      preview_.reset();
      removed_ = true;
      ::SetFocus(item(IDOK));  // a disabled button would keep the keyboard
      return showChoice();
    case kPictureResizeId:
      return showChoice();
    case IDOK:
      return accept();
    case IDCANCEL:
      return close();
    default:
      return;
  }
}

LRESULT PictureChooser::message(UINT message, WPARAM wide, LPARAM param) {
  switch (message) {
    case WM_COMMAND:
      command(LOWORD(wide), HIWORD(wide));
      return 0;
    case WM_DRAWITEM:
      drawPreview(*reinterpret_cast<const DRAWITEMSTRUCT*>(param));
      return TRUE;
    case WM_CLOSE:
      close();
      return 0;
    default:
      return standard(message, wide, param);
  }
}

}  // namespace plinth
