// The editor of common labels, Form20: eight rows of number and text over a scroll bar, in the order of
// numbers or of texts.
#pragma once

#include "platform/win32/WindowsApi.h"
#include "surface/CommonLabels.h"

namespace plinth {

// Shows the editor over `owner` until it is closed; edits are in the labels at once. codePage: of the texts.
void editCommonLabels(HWND owner, CommonLabels& labels, int codePage, const std::wstring& title,
                      const std::wstring& close);

}  // namespace plinth
