#include <QGridLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QScrollBar>
#include <QTableWidget>
#include <QVBoxLayout>

#include "libraries/opaque_screen.h"
#include "ui/library_grid.h"
#include "ui/qt_text.h"
#include "ui/view_parts.h"
#include "ui/views.h"
#include "ui/window_height.h"

namespace zelmo::ui {

void BuildOpaqueMtrl(Form& form, QDialog& dialog, Session&) {
  auto& screen = static_cast<OpaqueMtrl&>(form);
  auto* layout = new QVBoxLayout(&dialog);
  AddCaption(dialog, layout, screen.Label1);
  auto* table = LibraryGrid(dialog, screen.OpaqueList, 16);
  layout->addWidget(table);
  // The buttons follow the grid closely, with no empty band between.
  HeightFromContents(dialog);
  AddButtons(dialog, layout,
             {&screen.Command1, &screen.Command2, &screen.Command3, &screen.Command4,
              &screen.Command5, &screen.Command6});
}

void BuildAddOpaque(Form& form, QDialog& dialog, Session&) {
  auto& screen = static_cast<AddOpaque&>(form);
  auto* layout = new QVBoxLayout(&dialog);
  auto* caption = Named<QLabel>(&dialog, screen.Label5);
  caption->setTextFormat(Qt::PlainText);
  layout->addWidget(caption);
  auto* grid = new QGridLayout;
  const Control* rows[][2] = {{&screen.Label1, &screen.Mtrl},
                              {&screen.Label2, &screen.Conduct},
                              {&screen.Label3, &screen.Heat},
                              {&screen.Label4, &screen.Density}};
  int at = 0;
  for (const auto& row : rows) {
    auto* label = Named<QLabel>(&dialog, *row[0]);
    label->setTextFormat(Qt::PlainText);
    auto* edit = Named<QLineEdit>(&dialog, *row[1]);
    edit->setFixedWidth(Px(at == 0 ? 3000 : 1200));
    label->setBuddy(edit);
    grid->addWidget(label, at, 0);
    grid->addWidget(edit, at, 1, Qt::AlignLeft);
    ++at;
  }
  layout->addLayout(grid);
  layout->addStretch();
  AddButtons(dialog, layout, {&screen.Command1, &screen.Command2, &screen.Command3});
}

}  // namespace zelmo::ui
