// The area of a record that holds free labels and pictures: two counted lists in a fixed room.
#pragma once

#include <cstdint>
#include <span>

#include "engine/RecordForm.h"

namespace plinth {

// Reads the area into the form's variable objects, reusing those it has (a label of style 100 keeps the style
// its object had before). Objects beyond the counts are hidden. Damaged counts end the lists where the bytes
// end. area: the bytes from the area's start to the end of the slot.
void readVariableArea(std::span<const std::uint8_t> area, RecordForm& form);

// Writes the visible labels with text and the visible pictures as long as they fit; returns how many did not.
int writeVariableArea(const RecordForm& form, std::span<std::uint8_t> area);

}  // namespace plinth
