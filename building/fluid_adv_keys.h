// Typing into the numeric cells of a grid (the connection grid and the
// forced ventilation grid): digits, point and comma go into the current cell,
// backspace takes its last character, Delete empties it, and Home, End and the
// arrow keys move the current cell. Everything else is swallowed.
#pragma once

#include "core/controls.h"

namespace zelmo {

// Handles one key on `grid`'s current cell. `key` is set to 0 when the grid
// has dealt with it. With `signed_numbers` a "-" and a "+" are taken too.
// Returns true when the text of the cell changed.
bool NumericCellKeyPress(Grid& grid, int& key, bool signed_numbers);

}  // namespace zelmo
