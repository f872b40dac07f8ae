#include "ui/library_grid.h"

#include <QFontMetrics>
#include <QHeaderView>
#include <QScrollBar>
#include <algorithm>

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
  const QFontMetrics metrics(table->font());
  int width = 0;
  for (int col = 0; col < static_cast<int>(grid.col_widths.size()); ++col) {
    const int heading = metrics.horizontalAdvance(Q(grid.Cell(0, col))) + 12;
    grid.col_widths[col] = std::max(grid.col_widths[col], Twips(heading));
    width += Px(grid.col_widths[col]);
  }
  table->setFixedWidth(width + 4);
  table->setFixedHeight(grid.rows() * Px(285) + 4);
  return table;
}

}  // namespace zelmo::ui
