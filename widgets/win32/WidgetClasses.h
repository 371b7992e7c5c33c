// The controls of both programs as plain window classes: made by CreateWindowExW with a class name, told by
// messages, heard by WM_COMMAND, WM_VSCROLL and WM_HSCROLL like those of the system.
//
// What all of them share: WM_ENABLE, WM_SETTEXT and WM_GETTEXT (the name that assistive programs read), focus
// by Tab where the parent gives WS_TABSTOP, painting without flicker. They are as large as they are made and
// draw for any size, so a parent that scales moves them and sets their font, nothing else.
#pragma once

#include "platform/win32/WindowsApi.h"

namespace plinth {

// Registers all classes below for the whole program. Again is harmless. False when the system refuses.
bool registerWidgets(HINSTANCE program);

// A combo box inside a drawn border. Its style takes the CBS_ bits of a combo box (CBS_DROPDOWN when there
// are none). Its height is that of the closed box; the list drops as far as it needs. Answers CB_ messages
// and WM_SETFONT, tells CBN_ notices with its own number and handle. EM_ messages reach its edit line.
inline constexpr const wchar_t* kComboBorderClass = L"ComboBorder";

// Scroll bars; RealvScroll is upright, RealhScroll lies, DepthScroll is as its longer side says. They answer
// SBM_SETSCROLLINFO, SBM_GETSCROLLINFO, SBM_SETPOS, SBM_GETPOS, SBM_SETRANGE, SBM_GETRANGE (so SetScrollInfo
// and GetScrollInfo with SB_CTL work) and send WM_VSCROLL or WM_HSCROLL with their handle. Unlike the
// system's they move their own value before they tell: for every code but SB_ENDSCROLL the parent takes over
// SBM_GETPOS, which is also nPos and nTrackPos of GetScrollInfo.
inline constexpr const wchar_t* kRealvScrollClass = L"RealvScroll";
inline constexpr const wchar_t* kRealhScrollClass = L"RealhScroll";
inline constexpr const wchar_t* kDepthScrollClass = L"DepthScroll";

// A frame with a caption (its text) on the upper edge. A parent's child behind others; takes no input.
inline constexpr const wchar_t* kMyFrameClass = L"MyFrame";

// A check box without letters: BM_GETCHECK, BM_SETCHECK, BM_CLICK, BM_GETSTATE; tells BN_CLICKED,
// BN_SETFOCUS and BN_KILLFOCUS. With BS_AUTOCHECKBOX it changes its own mark when it is clicked, with
// BS_CHECKBOX the parent does.
inline constexpr const wchar_t* kOptionBoxClass = L"OptionBox";

// The tab of a page: BM_GETCHECK and BM_SETCHECK are whether it is the chosen one, BM_CLICK presses it; tells
// BN_CLICKED, BN_SETFOCUS and BN_KILLFOCUS, and changes nothing itself.
inline constexpr const wchar_t* kTabButtonClass = L"TabButton";

// The rubber band of an area: what is below shows through a dashed frame. Pressed inside it moves, at the
// edges and corners it is sized. Tells the Band notices; every change is first asked by kBandMoving.
inline constexpr const wchar_t* kUserSelClass = L"UserSel";

// A list of many rows with columns, heads that sort and bars of its own; widgets/win32/ListPlus.h has its
// calls. Its text is the name that assistive programs read. It tells the List notices and answers those
// messages of a list box by which its rows are read: LB_GETCOUNT, LB_GETCURSEL, LB_SETCURSEL, LB_GETSEL,
// LB_GETSELCOUNT, LB_GETTEXT, LB_GETTEXTLEN, LB_GETTOPINDEX, LB_SETTOPINDEX, LB_GETITEMRECT. The mark colour
// of selected rows is the system's.
inline constexpr const wchar_t* kListPlusClass = L"ListPlus";

// Messages of the widgets. Colours are RGB with red in the low byte or, when negative, numbers of system
// colours. Those of another widget do nothing and return 0.
enum WidgetMessage : UINT {
  // All.
  kWidgetSetBackColor = WM_APP + 0x100,  // lParam: colour
  kWidgetSetForeColor,                   // lParam: colour of letters, arrows, marks
  kWidgetSetSurround,                    // lParam: colour of the parent around the widget
  // wParam: 0 the widget's own, 1 arrow, 2 cross, 3 text, 5 size all, 7 north-south, 8 and 6 the diagonals,
  // 9 east-west, 10 up arrow, 11 wait, 12 no entry, 15 size all, 99 the HCURSOR in lParam.
  kWidgetSetMousePointer,

  // Scroll bars.
  kScrollSetPattern,      // wParam: look of the thumb: 0 plain, 1 grip lines, 2 round, 3 flat, 4 hatched
  kScrollSetLargeChange,  // wParam: above 0; SBM_SETSCROLLINFO with SIF_PAGE sets it too
  kScrollSetSmallChange,  // wParam: above 0
  kScrollSetLowToHigh,    // wParam: DepthScroll: whether the lowest value is left or above (as at first)
  kScrollGetThumbPos,     // returns pixels from the bar's beginning to the thumb

  // ComboBorder.
  kComboSetBorder,     // wParam: style of the border as in Frame (widgets/PageItems.h)
  kComboSetTextCase,   // wParam: 0 as typed, 1 UPPER, 2 Caps, 3 lower: how typed letters are changed
  kComboSetMaxLength,  // wParam: most letters, 0 without a limit
  kComboSetLocked,     // wParam: 1: shows, may be copied from, takes nothing
  kComboGetInner,      // returns the HWND of the combo box inside
  kComboGetEdit,       // returns the HWND of its edit line, nullptr for CBS_DROPDOWNLIST

  // MyFrame, and the border of ComboBorder.
  kFrameSetBorderColor,  // lParam: colour
  // MyFrame: wParam: style as in Frame, by the list of the panel. UserSel: 0 dashes, 1 a solid line.
  kFrameSetBorderStyle,
  // lParam: colour. MyFrame: of the inside, that of the surroundings at first. TabButton: of the chosen tab.
  kFrameSetFillColor,

  // OptionBox.
  kOptionSetAppearance,  // wParam: 0 flat, 1 sunken (as at first)

  // ListPlus.
  kListSetSource,       // lParam: const ListSource*, or 0: the list begins anew
  kListRowsChanged,     // the source has more, fewer or other rows; the position stays
  kListRefresh,         // shows what was changed in the model
  kListSetMultiSelect,  // wParam: mSelect: whether several rows can be marked
  kListGetModel,        // returns the ListModel*
  kListGetCaretRowId,   // returns the record number of the row with the caret, 0 for none

  // UserSel tells its parent: wParam its number, lParam RECT* in the parent's client pixels: where it wants
  // to be. The parent may change the rectangle.
  kBandMoving,
};

// Notices of UserSel, in the high word of WM_COMMAND's wParam.
enum BandNotice : WORD { kBandPressed = 1, kBandMoved = 2, kBandReleased = 3 };

// Notices of ListPlus, in the same place.
enum ListNotice : WORD {
  kListRowChosen = 1,     // clicked, or Enter
  kListRowActivated,      // clicked twice
  kListSelectionChanged,  // caret or marks
  kListSorted,
  kListColumnSized,
};

}  // namespace plinth
