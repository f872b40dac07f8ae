// Helpers for grid controls and tables of text.
#pragma once

#include <string>
#include <vector>

#include "core/controls.h"

namespace zelmo {

// The cell's text with its first comma read as a point. The tag is "*" while
// the work is done, so change handlers can tell the program's own changes.
std::string GridCellText(Grid& grid, int row, int col);
void SetGridCellText(Grid& grid, int row, int col, const std::string& text);
void SetGridCellRaw(Grid& grid, int row, int col, const std::string& text);
// Adds a row at the end, moves the rows from `row` down by one and writes the
// TAB fields of `tab_text` into `row`.
void GridInsertRow(Grid& grid, int row, const std::string& tab_text);
// Brings `row` into view and selects it whole.
void GridSelectRow(Grid& grid, int row, int col, int visible_rows);
void GridSelectRowTop(Grid& grid, int row, int col, int visible_rows);

using TextTable = std::vector<std::vector<std::string>>;
// Quicksort of rows `first_row` to `last_row` on `key_col`, exact comparison;
// columns `first_col` to `last_col` move as one row. Not stable.
void SortRows(TextTable& table, int first_row, int last_row, int key_col, int first_col,
              int last_col);

// The first comma of a text as a point.
std::string FirstCommaAsPoint(const std::string& text);

}  // namespace zelmo
