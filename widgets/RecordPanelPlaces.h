// Where the parts of a finished application's record panel lie, in pixels at 96 dpi from its left top corner:
// the engine builds the panel by it, the designer shows it by it.
#pragma once

#include <array>

#include "widgets/PageItems.h"

namespace plinth {

struct RecordPanelButton {
  ButtonIcon icon;
  int left;
};

inline constexpr int kRecordPanelHeight = 26, kRecordPanelButton = 25;
inline constexpr int kRecordPanelGap = 2, kRecordPanelNewGap = 8;  // between buttons, before the last
inline constexpr int kRecordPanelStep = kRecordPanelButton + kRecordPanelGap;
// The box of the record's number stands between the buttons, the number of records behind it.
inline constexpr int kRecordPanelBoxLeft = 3 * kRecordPanelStep, kRecordPanelBoxWidth = 64,
                     kRecordPanelCountWidth = 54;
inline constexpr int kRecordPanelAfter =
    kRecordPanelBoxLeft + kRecordPanelBoxWidth + kRecordPanelCountWidth + 2 * kRecordPanelGap;
inline constexpr std::array<RecordPanelButton, 7> kRecordPanelButtons{{
    {ButtonIcon::first, 0},
    {ButtonIcon::fastBack, kRecordPanelStep},
    {ButtonIcon::back, 2 * kRecordPanelStep},
    {ButtonIcon::next, kRecordPanelAfter},
    {ButtonIcon::fastNext, kRecordPanelAfter + kRecordPanelStep},
    {ButtonIcon::last, kRecordPanelAfter + 2 * kRecordPanelStep},
    {ButtonIcon::newRecord, kRecordPanelAfter + 3 * kRecordPanelStep + kRecordPanelNewGap},
}};
inline constexpr int kRecordPanelWidth = kRecordPanelButtons.back().left + kRecordPanelButton;

}  // namespace plinth
