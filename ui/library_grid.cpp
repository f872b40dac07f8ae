#include "ui/library_grid.h"

#include "ui/qt_text.h"
#include "ui/view_parts.h"

namespace zelmo::ui {

QTableWidget* LibraryGrid(QDialog& dialog, Grid& grid, int visible_rows) {
  QTableWidget* table = ReadOnlyGrid(dialog, grid);
  table->setSelectionBehavior(QAbstractItemView::SelectRows);
  // As wide as its columns, which the binder widens to show a heading whole,
  // and as high as its rows or the rows asked for, with a scroll bar then.
  table->setSizeAdjustPolicy(QAbstractScrollArea::AdjustToContents);
  if (visible_rows == 0) {
    table->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    visible_rows = grid.rows();
  } else {
    table->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
  }
  table->setFixedHeight(visible_rows * Px(285) + 4);
  return table;
}

}  // namespace zelmo::ui
