// The grids of the library screens: the grid's header line stands in the
// table's header, fixed at the top and never chosen; whole rows are
// selected, and the table is as wide as its columns.
#pragma once

#include <QDialog>
#include <QTableWidget>

#include "core/controls.h"

namespace zelmo::ui {

// `visible_rows` rows are shown, the others scrolled to; 0 shows them all.
QTableWidget* LibraryGrid(QDialog& dialog, Grid& grid, int visible_rows = 0);

}  // namespace zelmo::ui
