// The grids of the library screens: the header line is the grid's own first
// row, whole rows are selected, and the table is as wide as its columns.
#pragma once

#include <QDialog>
#include <QTableWidget>

#include "core/controls.h"

namespace zelmo::ui {

QTableWidget* LibraryGrid(QDialog& dialog, Grid& grid);

}  // namespace zelmo::ui
