#include "core/grid_helpers.h"

#include <algorithm>
#include <utility>

#include "core/fields.h"
#include "core/text_file.h"

namespace zelmo {

namespace {

// Saves the tag and the current cell, marks the grid busy with "*" and
// restores all three when it goes.
class ProgramChange {
 public:
  explicit ProgramChange(Grid& grid) : grid_(grid), tag_(grid.tag), row_(grid.row), col_(grid.col) {
    grid_.tag = "*";
  }
  ~ProgramChange() {
    grid_.tag = tag_;
    grid_.row = row_;
    grid_.col = col_;
  }

 private:
  Grid& grid_;
  std::string tag_;
  int row_, col_;
};

}  // namespace

std::string FirstCommaAsPoint(const std::string& text) {
  std::string out = text;
  size_t at = out.find(',');
  if (at != std::string::npos) out[at] = '.';
  return out;
}

std::string GridCellText(Grid& grid, int row, int col) {
  ProgramChange change(grid);
  return FirstCommaAsPoint(grid.Cell(row, col));
}

void SetGridCellText(Grid& grid, int row, int col, const std::string& text) {
  ProgramChange change(grid);
  grid.Cell(row, col) = FirstCommaAsPoint(text);
}

void SetGridCellRaw(Grid& grid, int row, int col, const std::string& text) {
  ProgramChange change(grid);
  grid.Cell(row, col) = text;
}

void GridInsertRow(Grid& grid, int row, const std::string& tab_text) {
  grid.AddRow();
  for (int r = grid.rows() - 1; r > row; --r) {
    for (int c = 0; c < grid.cols(); ++c) grid.Cell(r, c) = TrimBlanks(grid.Cell(r - 1, c));
  }
  for (int c = 0; c < grid.cols(); ++c) grid.Cell(row, c).clear();
  std::string rest = tab_text;
  for (int c = 0; c < grid.cols() && !rest.empty(); ++c) {
    if (rest.find('\t') == std::string::npos) {
      grid.Cell(row, c) = TrimBlanks(rest);
      break;
    }
    grid.Cell(row, c) = TrimBlanks(FieldBefore(rest, kTab));
    rest = FieldAfter(rest, kTab);
  }
}

namespace {
void SelectRow(Grid& grid, int row, int col, int top) {
  grid.top_row = top;
  grid.row = row;
  grid.col = col;
  grid.row_sel = row;
  grid.col_sel = grid.cols() - 1;
}
}  // namespace

void GridSelectRow(Grid& grid, int row, int col, int visible_rows) {
  int top;
  if (grid.rows() < visible_rows) {
    top = 1;
  } else if (row > grid.rows() - visible_rows) {
    top = grid.rows() - visible_rows;
  } else {
    top = row;
  }
  SelectRow(grid, row, col, top);
}

void GridSelectRowTop(Grid& grid, int row, int col, int /*visible_rows*/) {
  SelectRow(grid, row, col, 1);
}

namespace {

void SwapRows(TextTable& t, int a, int b, int first_col, int last_col) {
  for (int c = first_col; c <= last_col; ++c) std::swap(t[a][c], t[b][c]);
}

void QuickSort(TextTable& t, int lo, int hi, int key, int first_col, int last_col) {
  if (lo >= hi) return;
  const std::string pivot = t[lo][key];
  int i = lo, j = hi;
  while (i <= j) {
    while (t[i][key] < pivot) ++i;
    while (t[j][key] > pivot) --j;
    if (i <= j) {
      SwapRows(t, i, j, first_col, last_col);
      ++i;
      --j;
    }
  }
  QuickSort(t, lo, j, key, first_col, last_col);
  QuickSort(t, i, hi, key, first_col, last_col);
}

}  // namespace

void SortRows(TextTable& table, int first_row, int last_row, int key_col, int first_col,
              int last_col) {
  if (first_row < 0 || last_row >= static_cast<int>(table.size())) return;
  for (int r = first_row; r <= last_row; ++r) {
    if (static_cast<int>(table[r].size()) <= std::max(key_col, last_col)) return;
  }
  QuickSort(table, first_row, last_row, key_col, first_col, last_col);
}

}  // namespace zelmo
