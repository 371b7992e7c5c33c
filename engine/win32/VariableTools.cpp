#include "engine/win32/VariableTools.h"

#include <algorithm>
#include <cstdlib>

namespace plinth {
namespace {

constexpr int kEdge = 8, kWide = 206, kPaletteTop = 100, kPaletteHigh = 202, kEmptyHigh = 38;
constexpr const char* kSection = "Settings";
constexpr const char* kGridKey = "Gsize";
constexpr const char* kPlaceKey = "vTools";

}  // namespace

VariableTools::VariableTools(EngineHost& host, VariableObjects& objects, PictureFiles& pictures, Files& files,
                             Settings& settings)
    : LabelStyleWindow(host, objects),
      pictures_(pictures),
      files_(files),
      settings_(settings),
      palette_([this](std::int32_t number) { return pictures_.freePicture(number); },
               [this](std::int32_t number) { pick(number); }) {
  if (const int kept = std::atoi(settings.get(kSection, kGridKey, "").c_str()); kept > 0)
    objects_.setGridSize(kept);
}

bool VariableTools::make(HWND owner) {
  std::vector<std::int32_t> numbers =
      freePictureNumbers(files_.list(host_.session().start().names.appPath + "Images"));
  const int high = kPaletteTop + (numbers.empty() ? kEmptyHigh : kPaletteHigh) + kEdge;
  if (!openAbove(owner, L"vTools", "Labels and pictures", WS_POPUP | WS_CAPTION | WS_SYSMENU, {kWide, high}))
    return false;
  add(L"BUTTON", "Pointer", WS_TABSTOP | BS_CHECKBOX | BS_PUSHLIKE, kToolPointerId);
  add(L"BUTTON", "Label", WS_TABSTOP | BS_CHECKBOX | BS_PUSHLIKE, kToolLabelId);
  add(L"BUTTON", caption(60, "Remove"), WS_TABSTOP, kToolRemoveId);
  put(kToolPointerId, kEdge, 8, 60, 24);
  put(kToolLabelId, kEdge + 64, 8, 60, 24);
  put(kToolRemoveId, kEdge + 128, 8, 62, 24);
  addStyle();
  placeStyle(kEdge, 38);
  add(L"STATIC", "Grid", 0, -1);
  const HWND words = ::GetWindow(item(kLabelColorId), GW_HWNDNEXT);
  ::SetWindowPos(words, nullptr, px(kEdge), px(73), px(36), px(18), SWP_NOZORDER);
  add(L"EDIT", std::to_string(objects_.gridSize()), WS_TABSTOP | ES_NUMBER, kToolGridId, WS_EX_CLIENTEDGE);
  ::SendMessageW(item(kToolGridId), EM_LIMITTEXT, 2, 0);
  put(kToolGridId, kEdge + 40, 70, 34, 22);
  add(L"STATIC", "Changed", SS_RIGHT, kToolChangedId);
  put(kToolChangedId, kEdge + 100, 73, 90, 18);
  if (numbers.empty()) {
    add(L"STATIC", "There are no pictures in the folder Images.", SS_NOPREFIX, kToolEmptyId);
    put(kToolEmptyId, kEdge, kPaletteTop, kWide - 2 * kEdge, kEmptyHigh);
  } else {
    const RECT place{px(kEdge), px(kPaletteTop), px(kWide - kEdge), px(kPaletteTop + kPaletteHigh)};
    palette_.open(handle(), place, kToolPaletteId, scale_);
    palette_.setPictures(std::move(numbers));
  }
  setFonts();
  standBeside(owner);
  restorePlace(settings_, kPlaceKey);
  return true;
}

void VariableTools::open(HWND owner, bool keepFocus) {
  if (!handle() && !make(owner)) return;
  objects_.setEditing(true);
  show();
  ::ShowWindow(handle(), keepFocus ? SW_SHOWNOACTIVATE : SW_SHOW);
}

void VariableTools::keep() const {
  keepPlace(settings_, kPlaceKey);
  settings_.set(kSection, kGridKey, std::to_string(objects_.gridSize()));
}

void VariableTools::close() {
  if (!visible()) return;
  keep();
  objects_.setEditing(false);
  ::ShowWindow(handle(), SW_HIDE);
}

void VariableTools::show() {
  if (!handle()) return;
  const auto check = [this](int id, VariableObjects::Tool tool) {
    ::SendMessageW(item(id), BM_SETCHECK, objects_.tool() == tool ? BST_CHECKED : BST_UNCHECKED, 0);
  };
  check(kToolPointerId, VariableObjects::Tool::pointer);
  check(kToolLabelId, VariableObjects::Tool::label);
  const bool may = host_.session().isOpen() && !host_.session().readOnly();
  ::EnableWindow(item(kToolLabelId), may);
  ::EnableWindow(item(kToolRemoveId), may && objects_.selection());
  if (palette_.handle()) {
    ::EnableWindow(palette_.handle(), may);
    palette_.setChosen(objects_.toolImage());
  }
  ::ShowWindow(item(kToolChangedId), objects_.changed() ? SW_SHOWNA : SW_HIDE);
  showStyle();
}

void VariableTools::pick(std::int32_t number) {
  const std::shared_ptr<Image> image = pictures_.freePicture(number);
  if (image) objects_.chooseTool(VariableObjects::Tool::picture, number, image->size());
}

void VariableTools::command(int id, int notice) {
  if (styleCommand(id, notice)) return;
  if (id == kToolGridId && notice == EN_CHANGE) {
    if (const int size = std::atoi(textOf(id).c_str()); size > 0) objects_.setGridSize(size);
    return;
  }
  if (id == kToolGridId && notice == EN_KILLFOCUS) setText(id, std::to_string(objects_.gridSize()));
  if (notice != BN_CLICKED) return;
  if (id == kToolPointerId) objects_.chooseTool(VariableObjects::Tool::pointer);
  if (id == kToolLabelId) objects_.chooseTool(VariableObjects::Tool::label);
  if (id == kToolRemoveId) {
    ::SetFocus(item(kToolPointerId));  // the button is greyed with nothing to remove
    host_.act([this] { objects_.remove(); });
  }
  // Esc ends a tool first, then closes the window.
  if (id == IDCANCEL) {
    if (objects_.tool() != VariableObjects::Tool::pointer)
      objects_.chooseTool(VariableObjects::Tool::pointer);
    else
      close();
  }
}

LRESULT VariableTools::message(UINT message, WPARAM wide, LPARAM param) {
  switch (message) {
    case WM_COMMAND:
      command(LOWORD(wide), HIWORD(wide));
      return 0;
    case WM_CLOSE:
      close();
      return 0;
    case WM_DESTROY:  // with the main window
      keep();
      return 0;
    default:
      return standard(message, wide, param);
  }
}

}  // namespace plinth
