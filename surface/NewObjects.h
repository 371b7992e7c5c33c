// The rows of new objects: each is a copy of its kind's template with what the tool sets.
#pragma once

#include <string>

#include "surface/DesignContext.h"

namespace plinth {

// Each appends a row on the current page with the colours of the swatches and gives its object; places are
// left at 0. The tables must have room. Fields, memos, combos and check boxes get the last tab position.

ObjectRef newLabel(DesignContext& context);
ObjectRef newField(DesignContext& context);
// A field of a table. It gets no tab position: a table's maker calls assignTab() once for all its cells.
ObjectRef newCell(DesignContext& context);
// Becomes the project's field of mail addresses; its colours are fixed.
ObjectRef newEmailField(DesignContext& context);
ObjectRef newMemo(DesignContext& context);
// Takes the first vacant slot, with all that the removed combo was; else appends.
ObjectRef newCombo(DesignContext& context);
ObjectRef newPictureField(DesignContext& context);
// size: of the image; empty when unknown.
ObjectRef newPictureArt(DesignContext& context, const std::string& path, SizePx size);
ObjectRef newCheckBox(DesignContext& context);
// Never line 0: files know it as a template, vacant after each load.
ObjectRef newLine(DesignContext& context);
ObjectRef newSquare(DesignContext& context);
ObjectRef newButton(DesignContext& context);
ObjectRef newScript(DesignContext& context);

// Slot 1 of the memos, with the looks of a new memo when it is vacant. Size and name are set each time.
ObjectRef documentBoxSlot(DesignContext& context);

}  // namespace plinth
