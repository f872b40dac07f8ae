#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QScrollBar>
#include <QTableWidget>
#include <QVBoxLayout>

#include "building/fluid_adv_screen.h"
#include "ui/qt_text.h"
#include "ui/view_parts.h"
#include "ui/views.h"

namespace zelmo::ui {

namespace {

// A grid whose header line is its own first row, as the screens keep it.
QTableWidget* MakeGrid(QDialog& dialog, const Grid& grid, const char* name, int visible_rows) {
  auto* table = new QTableWidget(&dialog);
  table->setObjectName(name);
  table->horizontalHeader()->hide();
  table->verticalHeader()->hide();
  table->setEditTriggers(QAbstractItemView::NoEditTriggers);
  table->setSelectionMode(QAbstractItemView::SingleSelection);
  table->setSelectionBehavior(QAbstractItemView::SelectItems);
  table->verticalHeader()->setDefaultSectionSize(Px(285));
  table->setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
  table->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  int width = 0;
  for (int w : grid.col_widths) width += Px(w);
  table->setFixedWidth(width + table->verticalScrollBar()->sizeHint().width() + 4);
  table->setFixedHeight(visible_rows * Px(285) + 4);
  return table;
}

}  // namespace

void BuildFluidAdv(Form& form, QDialog& dialog, Session&) {
  auto& screen = static_cast<FluidAdv&>(form);
  auto* layout = new QVBoxLayout(&dialog);
  auto* label1 = new QLabel(&dialog);
  label1->setObjectName("Label1");
  layout->addWidget(label1);
  layout->addWidget(MakeGrid(dialog, screen.FluidList, "FluidList", 9));
  auto* label2 = new QLabel(&dialog);
  label2->setObjectName("Label2");
  layout->addSpacing(Px(120));
  layout->addWidget(label2);
  layout->addWidget(MakeGrid(dialog, screen.AdvConnList, "AdvConnList", 10));
  layout->addSpacing(Px(120));
  AddButtons(dialog, layout, {&screen.Command1, &screen.Command2});
}

}  // namespace zelmo::ui
