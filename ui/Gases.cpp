#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "libraries/gas_screen.h"
#include "ui/library_grid.h"
#include "ui/qt_text.h"
#include "ui/view_parts.h"
#include "ui/views.h"

namespace zelmo::ui {

void BuildGases(Form& form, QDialog& dialog, Session&) {
  auto& screen = static_cast<Gases&>(form);
  auto* root = new QVBoxLayout(&dialog);
  root->addWidget(Named<QLabel>(&dialog, screen.Label1));
  root->addWidget(LibraryGrid(dialog, screen.Grid1));
  root->addStretch();
  AddButtons(dialog, root,
             {&screen.Command4, &screen.Command7, &screen.Command5, &screen.Command6,
              &screen.Command1, &screen.Command2, &screen.Command3});
}

void BuildAddgas(Form& form, QDialog& dialog, Session&) {
  auto& box = static_cast<Addgas&>(form);
  auto* root = new QVBoxLayout(&dialog);
  auto* grid = new QGridLayout;
  const Control* captions[] = {&box.Label1, &box.Label2, &box.Label3, &box.Label4, &box.Label5,
                               &box.Label6, &box.Label7, &box.Label8, &box.Label9};
  const auto inputs = box.Inputs();
  for (int i = 0; i < kGasFields; ++i) {
    grid->addWidget(Named<QLabel>(&dialog, *captions[i]), i, 0);
    auto* edit = Named<QLineEdit>(&dialog, *inputs[i]);
    edit->setFixedWidth(Px(i == 0 ? 1800 : 1400));
    grid->addWidget(edit, i, 1);
  }
  // The units of the four values, beside each value.
  const Control* units[] = {&box.Label10, &box.Label11, &box.Label12, &box.Label13};
  for (int i = 0; i < 4; ++i) grid->addWidget(Named<QLabel>(&dialog, *units[i]), 1 + 2 * i, 2);
  grid->setColumnStretch(3, 1);
  root->addLayout(grid);
  AddButtons(dialog, root, {&box.OK, &box.Command2, &box.Command3});
}

}  // namespace zelmo::ui
