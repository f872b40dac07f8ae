#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QScrollBar>
#include <QTableWidget>
#include <QVBoxLayout>

#include "building/volume_surfaces_screen.h"
#include "ui/qt_text.h"
#include "ui/views.h"

namespace zelmo::ui {

void BuildVolumeSurfaces(Form& form, QDialog& dialog, Session&) {
  auto& screen = static_cast<VolumeSurfaces&>(form);
  auto* layout = new QVBoxLayout(&dialog);
  auto* heading = new QLabel(&dialog);
  heading->setObjectName(Q(screen.Label1.name()));
  layout->addWidget(heading);
  auto* table = new QTableWidget(&dialog);
  table->setObjectName(Q(screen.Grid1.name()));
  // The header line is the grid's own first row.
  table->horizontalHeader()->hide();
  table->verticalHeader()->hide();
  table->setEditTriggers(QAbstractItemView::NoEditTriggers);
  table->setSelectionMode(QAbstractItemView::NoSelection);
  table->verticalHeader()->setDefaultSectionSize(Px(285));
  table->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  table->setFocusPolicy(Qt::NoFocus);
  // The narrow columns hold "Outdoors" in the small font of a grid.
  QFont font = table->font();
  font.setPointSize(8);
  table->setFont(font);
  table->setTextElideMode(Qt::ElideNone);
  table->setStyleSheet("QTableWidget::item { padding: 0px 1px; }");
  // The grid takes the width of its columns, which grow to show "Outdoors".
  table->setSizeAdjustPolicy(QAbstractScrollArea::AdjustToContents);
  table->setFixedHeight(screen.Grid1.rows() * Px(285) + 4);
  auto* row = new QHBoxLayout;
  row->addWidget(table);
  row->addStretch();
  layout->addLayout(row);
  layout->addStretch();
  auto* buttons = new QHBoxLayout;
  auto* cancel = new QPushButton(&dialog);
  cancel->setObjectName(Q(screen.Command1.name()));
  buttons->addStretch();
  buttons->addWidget(cancel);
  layout->addLayout(buttons);
}

}  // namespace zelmo::ui
