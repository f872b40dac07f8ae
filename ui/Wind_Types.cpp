#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

#include "libraries/window_types_screen.h"
#include "ui/library_grid.h"
#include "ui/qt_text.h"
#include "ui/view_parts.h"
#include "ui/views.h"
#include "ui/window_height.h"

namespace zelmo::ui {

namespace {

QPushButton* Button(QWidget* parent, const Control& control) {
  auto* button = Named<QPushButton>(parent, control);
  button->setAutoDefault(false);
  button->setMinimumWidth(Px(1100));
  return button;
}

}  // namespace

void BuildWindTypes(Form& form, QDialog& dialog, Session&) {
  auto& screen = static_cast<Wind_Types&>(form);
  auto* root = new QVBoxLayout(&dialog);
  auto* columns = new QHBoxLayout;

  auto* left = new QVBoxLayout;
  left->addWidget(Named<QLabel>(&dialog, screen.Label1));
  auto* list = Named<QListWidget>(&dialog, screen.List1);
  list->setFixedWidth(Px(3300));
  left->addWidget(list, 1);
  auto* list_buttons = new QHBoxLayout;
  list_buttons->addWidget(Button(&dialog, screen.Command1));
  list_buttons->addWidget(Button(&dialog, screen.Command2));
  left->addLayout(list_buttons);
  columns->addLayout(left);

  auto* right = new QVBoxLayout;
  right->addWidget(Named<QLabel>(&dialog, screen.Label2));
  auto* panes = new QHBoxLayout;
  panes->addWidget(LibraryGrid(dialog, screen.Grid1));
  auto* pane_buttons = new QVBoxLayout;
  for (const Control* button :
       {&screen.Command6, &screen.Command7, &screen.Command8, &screen.Command9}) {
    pane_buttons->addWidget(Button(&dialog, *button));
  }
  pane_buttons->addStretch();
  panes->addLayout(pane_buttons);
  panes->addStretch();
  right->addLayout(panes);

  auto* lower = new QHBoxLayout;
  auto* results = Named<QGroupBox>(&dialog, screen.Frame1);
  auto* results_grid = new QGridLayout(results);
  const Control* rows[3][3] = {{&screen.Label3, &screen.UValue, &screen.Label4},
                               {&screen.Label5, &screen.GVAlue, &screen.Label6},
                               {&screen.Label7, &screen.Tsol, &screen.Label8}};
  for (int r = 0; r < 3; ++r) {
    results_grid->addWidget(Named<QLabel>(results, *rows[r][0]), r, 0);
    auto* value = Named<QLineEdit>(results, *rows[r][1]);
    value->setFixedWidth(Px(1000));
    results_grid->addWidget(value, r, 1);
    results_grid->addWidget(Named<QLabel>(results, *rows[r][2]), r, 2);
  }
  lower->addWidget(results);
  auto* library = Named<QGroupBox>(&dialog, screen.Frame2);
  auto* library_layout = new QVBoxLayout(library);
  library_layout->addWidget(Button(library, screen.Command10));
  library_layout->addWidget(Button(library, screen.Command11));
  library_layout->addStretch();
  lower->addWidget(library);
  lower->addStretch();
  right->addLayout(lower);
  right->addStretch();
  columns->addLayout(right, 1);
  root->addLayout(columns, 1);
  AddButtons(dialog, root, {&screen.Command3, &screen.Command4, &screen.Command5});
}

void BuildAddGaGl(Form& form, QDialog& dialog, Session&) {
  auto& box = static_cast<AddGaGl&>(form);
  auto* root = new QVBoxLayout(&dialog);
  auto* grid = new QGridLayout;
  grid->addWidget(Named<QLabel>(&dialog, box.Label1), 0, 0);
  grid->addWidget(Named<QComboBox>(&dialog, box.Combo1), 0, 1);
  grid->addWidget(Named<QLabel>(&dialog, box.Label2), 1, 0);
  grid->addWidget(Named<QComboBox>(&dialog, box.Combo2), 1, 1);
  grid->addWidget(Named<QLabel>(&dialog, box.Label3), 2, 0);
  auto* gap = Named<QLineEdit>(&dialog, box.Text1);
  gap->setFixedWidth(Px(1000));
  grid->addWidget(gap, 2, 1, Qt::AlignLeft);
  grid->addWidget(Named<QCheckBox>(&dialog, box.Check1), 3, 0, 1, 2);
  grid->addWidget(Named<QLabel>(&dialog, box.Label5), 4, 0, 1, 2);
  grid->setColumnMinimumWidth(1, Px(2600));
  root->addLayout(grid);
  AddButtons(dialog, root, {&box.Command1, &box.Command2, &box.Command3});
  HeightFromContents(dialog);
}

}  // namespace zelmo::ui
