// What an owner does with a ListPlus window. Its contents, columns, marks and order are those of its model;
// after changes made there the window is told to show them.
#pragma once

#include "platform/win32/WindowsApi.h"
#include "widgets/ListModel.h"
#include "widgets/win32/WidgetClasses.h"

namespace plinth {

// Valid as long as the window. nullptr when the window is no ListPlus.
inline ListModel* listModel(HWND list) {
  return reinterpret_cast<ListModel*>(::SendMessageW(list, kListGetModel, 0, 0));
}
// The source must live until another one, or nullptr, is set or the window is gone.
inline void setListSource(HWND list, const ListSource* source) {
  ::SendMessageW(list, kListSetSource, 0, reinterpret_cast<LPARAM>(source));
}
// Rows came in, went or have other texts; what is in view stays.
inline void listRowsChanged(HWND list) { ::SendMessageW(list, kListRowsChanged, 0, 0); }
// REFscreen: the model was changed by its own functions.
inline void refreshList(HWND list) { ::SendMessageW(list, kListRefresh, 0, 0); }
// The record number of the row with the caret; 0 in a list without rows.
inline std::int32_t listCaretRowId(HWND list) {
  return static_cast<std::int32_t>(::SendMessageW(list, kListGetCaretRowId, 0, 0));
}

}  // namespace plinth
