#include "building/fluid_adv_keys.h"

#include <algorithm>

#include "core/grid_helpers.h"

namespace zelmo {

namespace {

bool IsNumberChar(int key, bool signed_numbers) {
  if (key >= '0' && key <= '9') return true;
  if (key == '.' || key == ',') return true;
  return signed_numbers && (key == '-' || key == '+');
}

void MoveTo(Grid& grid, int row, int col) {
  int first_row = std::min(grid.fixed_rows, grid.rows() - 1);
  int first_col = std::min(grid.fixed_cols, grid.cols() - 1);
  grid.row = std::clamp(row, std::max(first_row, 0), std::max(grid.rows() - 1, 0));
  grid.col = std::clamp(col, std::max(first_col, 0), std::max(grid.cols() - 1, 0));
  grid.row_sel = grid.row;
  grid.col_sel = grid.col;
}

}  // namespace

bool NumericCellKeyPress(Grid& grid, int& key, bool signed_numbers) {
  switch (key) {
    case keys::kHome:
      MoveTo(grid, grid.row, grid.fixed_cols);
      key = 0;
      return false;
    case keys::kEnd:
      MoveTo(grid, grid.row, grid.cols() - 1);
      key = 0;
      return false;
    case keys::kLeft:
      MoveTo(grid, grid.row, grid.col - 1);
      key = 0;
      return false;
    case keys::kRight:
      MoveTo(grid, grid.row, grid.col + 1);
      key = 0;
      return false;
    case keys::kUp:
      MoveTo(grid, grid.row - 1, grid.col);
      key = 0;
      return false;
    case keys::kDown:
      MoveTo(grid, grid.row + 1, grid.col);
      key = 0;
      return false;
    case keys::kTab:
    case keys::kReturn:
    case keys::kEscape:
      // Left to the window: Tab moves on, Return and Escape press its buttons.
      return false;
    default:
      break;
  }
  int typed = key;
  key = 0;
  bool in_cell = grid.row >= grid.fixed_rows && grid.row < grid.rows() &&
                 grid.col >= grid.fixed_cols && grid.col < grid.cols();
  if (!in_cell) return false;
  const std::string old_text = grid.Cell(grid.row, grid.col);
  std::string text = old_text;
  if (typed == keys::kDelete) {
    text.clear();
  } else if (typed == keys::kBack) {
    if (!text.empty()) text.pop_back();
  } else if (IsNumberChar(typed, signed_numbers)) {
    text += static_cast<char>(typed);
  } else {
    return false;
  }
  SetGridCellText(grid, grid.row, grid.col, text);
  return grid.Cell(grid.row, grid.col) != old_text;
}

}  // namespace zelmo
