#include "ui/library_grid.h"

#include <QHeaderView>
#include <QScrollBar>

#include "ui/qt_text.h"

namespace zelmo::ui {

QTableWidget* LibraryGrid(QDialog& dialog, Grid& grid) {
  auto* table = new QTableWidget(&dialog);
  table->setObjectName(Q(grid.name()));
  table->horizontalHeader()->hide();
  table->verticalHeader()->hide();
  table->setEditTriggers(QAbstractItemView::NoEditTriggers);
  table->setSelectionMode(QAbstractItemView::SingleSelection);
  table->setSelectionBehavior(QAbstractItemView::SelectRows);
  table->verticalHeader()->setDefaultSectionSize(Px(285));
  table->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  table->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  // As wide as its columns, which the binder widens to show a heading whole.
  table->setSizeAdjustPolicy(QAbstractScrollArea::AdjustToContents);
  table->setFixedHeight(grid.rows() * Px(285) + 4);
  return table;
}

}  // namespace zelmo::ui
