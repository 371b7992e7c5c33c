// Pictures that other programs left on the clipboard.
#pragma once

#include "basic/Slots.h"
#include "platform/win32/WindowsApi.h"

namespace plinth {

bool clipboardHasPicture();

// The picture as the bytes of a PNG or BMP file; empty when there is none or another program holds the
// clipboard. owner: the window that asks.
Bytes clipboardPicture(HWND owner);

}  // namespace plinth
