#include <QComboBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

#include "libraries/glass_types_screen.h"
#include "ui/library_grid.h"
#include "ui/qt_text.h"
#include "ui/view_parts.h"
#include "ui/views.h"

namespace zelmo::ui {

namespace {

QPushButton* Button(QDialog& dialog, const Control& control) {
  auto* button = Named<QPushButton>(&dialog, control);
  button->setAutoDefault(false);
  button->setMinimumWidth(Px(1100));
  return button;
}

// Caption, input and unit on one row of a grid layout.
void InputRow(QDialog& dialog, QGridLayout* grid, int row, const Control& caption,
              const Control& input, const Control& unit) {
  grid->addWidget(Named<QLabel>(&dialog, caption), row, 0);
  auto* edit = Named<QLineEdit>(&dialog, input);
  edit->setFixedWidth(Px(1000));
  grid->addWidget(edit, row, 1);
  grid->addWidget(Named<QLabel>(&dialog, unit), row, 2);
}

}  // namespace

void BuildGlassTypes(Form& form, QDialog& dialog, Session&) {
  auto& screen = static_cast<Glass_types&>(form);
  auto* root = new QVBoxLayout(&dialog);
  auto* columns = new QHBoxLayout;

  auto* left = new QVBoxLayout;
  left->addWidget(Named<QLabel>(&dialog, screen.Label1));
  auto* list = Named<QListWidget>(&dialog, screen.List1);
  list->setFixedWidth(Px(2700));
  left->addWidget(list, 1);
  auto* list_buttons = new QHBoxLayout;
  list_buttons->addWidget(Button(dialog, screen.Command1));
  list_buttons->addWidget(Button(dialog, screen.Command2));
  left->addLayout(list_buttons);
  columns->addLayout(left);

  auto* right = new QVBoxLayout;
  auto* values = new QGridLayout;
  values->addWidget(Named<QLabel>(&dialog, screen.Label2), 0, 0, 1, 3);
  InputRow(dialog, values, 1, screen.Label3, screen.text1, screen.Label4);
  InputRow(dialog, values, 2, screen.Label5, screen.Text2, screen.Label6);
  values->addWidget(Named<QLabel>(&dialog, screen.Label7), 3, 0);
  auto* type = Named<QComboBox>(&dialog, screen.Combo1);
  type->setFixedWidth(Px(1000));
  values->addWidget(type, 3, 1);
  values->setColumnStretch(3, 1);
  // The Fresnel data line up with the emittances.
  values->addWidget(Named<QLabel>(&dialog, screen.Label15), 4, 0, 1, 4);
  InputRow(dialog, values, 5, screen.Label8, screen.Text3, screen.Label11);
  InputRow(dialog, values, 6, screen.Label9, screen.Text4, screen.Label12);
  InputRow(dialog, values, 7, screen.Label10, screen.Text5, screen.Label13);
  right->addLayout(values);
  right->addWidget(Named<QLabel>(&dialog, screen.Label14));
  auto* table_row = new QHBoxLayout;
  table_row->addWidget(LibraryGrid(dialog, screen.Grid1));
  auto* row_buttons = new QVBoxLayout;
  for (const Control* button :
       {&screen.Command4, &screen.Command5, &screen.Command6, &screen.Command7}) {
    row_buttons->addWidget(Button(dialog, *button));
  }
  row_buttons->addStretch();
  table_row->addLayout(row_buttons);
  table_row->addStretch();
  right->addLayout(table_row);
  right->addStretch();
  columns->addLayout(right, 1);
  root->addLayout(columns, 1);
  AddButtons(dialog, root, {&screen.Command3, &screen.Command8, &screen.Command9});
}

void BuildAddAngle(Form& form, QDialog& dialog, Session&) {
  auto& box = static_cast<AddAngle&>(form);
  auto* root = new QVBoxLayout(&dialog);
  auto* grid = new QGridLayout;
  InputRow(dialog, grid, 0, box.Label1, box.transm, box.Label2);
  InputRow(dialog, grid, 1, box.Label3, box.Absf, box.Label4);
  InputRow(dialog, grid, 2, box.Label5, box.Absb, box.Label6);
  root->addLayout(grid);
  AddButtons(dialog, root, {&box.Command1, &box.Command2});
}

}  // namespace zelmo::ui
