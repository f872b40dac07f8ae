#include "ui/library_grid.h"

#include <QHeaderView>

#include "ui/binder.h"
#include "ui/qt_text.h"
#include "ui/view_parts.h"

namespace zelmo::ui {

QTableWidget* LibraryGrid(QDialog& dialog, Grid& grid, int visible_rows) {
  QTableWidget* table = ReadOnlyGrid(dialog, grid);
  table->setSelectionBehavior(QAbstractItemView::SelectRows);
  table->setProperty(kHeadingInHeader, true);
  QHeaderView* header = table->horizontalHeader();
  header->show();
  header->setSectionsClickable(false);
  header->setHighlightSections(false);
  header->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
  // As high as the row it stands for.
  header->setFixedHeight(Px(285));
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
