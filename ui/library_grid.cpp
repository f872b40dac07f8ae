#include "ui/library_grid.h"

#include <QHeaderView>
#include <QScrollBar>

#include "ui/qt_text.h"

namespace zelmo::ui {

QTableWidget* LibraryGrid(QDialog& dialog, Grid& grid, int visible_rows) {
  auto* table = new QTableWidget(&dialog);
  table->setObjectName(Q(grid.name()));
  table->horizontalHeader()->hide();
  table->verticalHeader()->hide();
  table->setEditTriggers(QAbstractItemView::NoEditTriggers);
  table->setSelectionMode(QAbstractItemView::SingleSelection);
  table->setSelectionBehavior(QAbstractItemView::SelectRows);
  table->verticalHeader()->setDefaultSectionSize(Px(285));
  table->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
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
