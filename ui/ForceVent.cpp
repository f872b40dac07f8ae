#include <QHBoxLayout>
#include <QHeaderView>
#include <QPushButton>
#include <QScrollBar>
#include <QTableWidget>
#include <QVBoxLayout>

#include "building/force_vent_screen.h"
#include "ui/qt_text.h"
#include "ui/view_parts.h"
#include "ui/views.h"

namespace zelmo::ui {

void BuildForceVent(Form& form, QDialog& dialog, Session&) {
  auto& screen = static_cast<ForceVent&>(form);
  auto* layout = new QVBoxLayout(&dialog);
  auto* table = new QTableWidget(&dialog);
  table->setObjectName("Grid1");
  // The header line is the grid's own first row.
  table->horizontalHeader()->hide();
  table->verticalHeader()->hide();
  table->setEditTriggers(QAbstractItemView::NoEditTriggers);
  table->setSelectionMode(QAbstractItemView::SingleSelection);
  table->verticalHeader()->setDefaultSectionSize(Px(285));
  table->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  int width = 0;
  for (int w : screen.Grid1.col_widths) width += Px(w);
  table->setFixedWidth(width + table->verticalScrollBar()->sizeHint().width() + 4);
  table->setFixedHeight(16 * Px(285) + 4);
  layout->addWidget(table);
  layout->addSpacing(Px(120));
  AddButtons(dialog, layout, {&screen.Command1, &screen.Command2});
}

}  // namespace zelmo::ui
