#include <QGridLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QTableWidget>
#include <QVBoxLayout>

#include "libraries/moveins_screen.h"
#include "ui/library_grid.h"
#include "ui/qt_text.h"
#include "ui/view_parts.h"
#include "ui/views.h"

namespace zelmo::ui {

void BuildMoveIns(Form& form, QDialog& dialog, Session&) {
  auto& screen = static_cast<MoveIns&>(form);
  auto* layout = new QVBoxLayout(&dialog);
  auto* table = LibraryGrid(dialog, screen.MoveInsList, 16);
  layout->addWidget(table);
  AddButtons(dialog, layout, {&screen.Command3D1, &screen.Command3D2, &screen.Command3D4});
  layout->addSpacing(Px(120));
  AddButtons(dialog, layout, {&screen.Command1, &screen.Command2, &screen.Command3});
}

void BuildAddMoveIns(Form& form, QDialog& dialog, Session&) {
  auto& screen = static_cast<AddMoveIns&>(form);
  auto* layout = new QVBoxLayout(&dialog);
  AddCaption(dialog, layout, screen.Label4);
  auto* grid = new QGridLayout;
  const std::pair<const Control*, const Control*> rows[] = {{&screen.Label5, &screen.NAmeMI},
                                                            {&screen.Label1, &screen.Solar},
                                                            {&screen.Label2, &screen.Absorp},
                                                            {&screen.Label3, &screen.RValue}};
  int at = 0;
  for (const auto& [label, field] : rows) {
    grid->addWidget(Named<QLabel>(&dialog, *label), at, 0);
    auto* edit = Named<QLineEdit>(&dialog, *field);
    edit->setFixedWidth(Px(field == &screen.NAmeMI ? 2400 : 1000));
    grid->addWidget(edit, at++, 1);
  }
  grid->setColumnStretch(2, 1);
  layout->addLayout(grid);
  layout->addSpacing(Px(120));
  AddButtons(dialog, layout, {&screen.Command1, &screen.Command2});
}

}  // namespace zelmo::ui
