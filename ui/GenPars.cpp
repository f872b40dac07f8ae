#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

#include "ui/qt_text.h"
#include "ui/view_parts.h"
#include "ui/views.h"

namespace zelmo::ui {

void BuildGenPars(Form&, QDialog& dialog, Session&) {
  auto* root = new QVBoxLayout(&dialog);
  auto* grid = new QGridLayout;
  // Yes and No of the radiation are one group, apart from the interior frame.
  auto* radiation = new QWidget(&dialog);
  auto* radiation_layout = new QHBoxLayout(radiation);
  radiation_layout->setContentsMargins(0, 0, 0, 0);
  radiation_layout->addWidget(Named<QRadioButton>(radiation, "Option1(0)"));
  radiation_layout->addWidget(Named<QRadioButton>(radiation, "Option1(1)"));
  radiation_layout->addStretch();
  grid->addWidget(Named<QLabel>(&dialog, "Label1"), 0, 0);
  grid->addWidget(radiation, 0, 1, 1, 2);

  auto row = [&dialog, grid](int at, const char* caption, const char* input, const char* unit) {
    grid->addWidget(Named<QLabel>(&dialog, caption), at, 0);
    auto* edit = Named<QLineEdit>(&dialog, input);
    edit->setFixedWidth(Px(900));
    grid->addWidget(edit, at, 1);
    grid->addWidget(Named<QLabel>(&dialog, unit), at, 2);
  };
  row(1, "Label2", "Reflect", "Label3");
  row(2, "Label4", "RSoil", "Label5");
  grid->addWidget(Named<QLabel>(&dialog, "Label6"), 3, 0, 1, 3);
  row(4, "Label7", "Exter", "Label8");
  row(5, "Label9", "Inter", "Label10");
  auto* interior = Named<QGroupBox>(&dialog, "Frame1");
  auto* interior_layout = new QVBoxLayout(interior);
  interior_layout->addWidget(Named<QRadioButton>(interior, "Option2"));
  interior_layout->addWidget(Named<QRadioButton>(interior, "Option3"));
  grid->addWidget(interior, 4, 3, 3, 1);
  row(7, "Label11", "Loops", "Label12");
  grid->setColumnMinimumWidth(2, Px(900));
  root->addLayout(grid);
  root->addStretch();
  auto* buttons = new QHBoxLayout;
  buttons->addStretch();
  for (const char* name : {"Command1", "Command2"}) {
    auto* button = Named<QPushButton>(&dialog, name);
    button->setAutoDefault(false);
    buttons->addWidget(button);
  }
  root->addLayout(buttons);
}

}  // namespace zelmo::ui
