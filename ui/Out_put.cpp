#include <QCheckBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QRadioButton>
#include <QVBoxLayout>

#include "libraries/output_screen.h"
#include "ui/qt_text.h"
#include "ui/view_parts.h"
#include "ui/views.h"

namespace zelmo::ui {

void BuildOut_put(Form& form, QDialog& dialog, Session&) {
  auto& screen = static_cast<Out_put&>(form);
  const int count = static_cast<int>(screen.volumes().size());
  auto* root = new QVBoxLayout(&dialog);
  auto* top = new QHBoxLayout;
  auto* type = Named<QGroupBox>(&dialog, screen.Frame1);
  auto* type_layout = new QVBoxLayout(type);
  for (const auto& option : screen.Option3D1) {
    type_layout->addWidget(Named<QRadioButton>(type, option));
  }
  top->addWidget(type);
  auto* files = Named<QGroupBox>(&dialog, screen.Frame4);
  auto* files_layout = new QVBoxLayout(files);
  files_layout->addWidget(Named<QCheckBox>(files, screen.Check3D8));
  files_layout->addWidget(Named<QCheckBox>(files, screen.Check3D9));
  files_layout->addStretch();
  top->addWidget(files);
  root->addLayout(top);

  // The widgets are made row by row, so the tab order runs along each row.
  auto* middle = new QHBoxLayout;
  auto* outputs = Named<QGroupBox>(&dialog, screen.Frame2);
  auto* grid = new QGridLayout(outputs);
  grid->addWidget(Named<QLabel>(outputs, screen.Label2), 1, 0);
  grid->addWidget(Named<QLabel>(outputs, screen.Label4), 0, 1, Qt::AlignHCenter);
  grid->addWidget(Named<QLabel>(outputs, screen.Label10), 1, 1, Qt::AlignHCenter);
  const Label* headings[] = {&screen.Label5, &screen.Label6, &screen.Label7, &screen.Label8,
                             &screen.Label9};
  for (int k = 0; k < 5; ++k) {
    grid->addWidget(Named<QLabel>(outputs, *headings[k]), 1, k + 2, Qt::AlignHCenter);
  }
  for (int i = 0; i < count; ++i) {
    Out_put::VolumeRow& row = screen.row(i);
    grid->addWidget(Named<QLabel>(outputs, row.Label3), i + 2, 0);
    for (int k = 0; k < kOutputQuantities; ++k) {
      grid->addWidget(Named<QCheckBox>(outputs, row.Quantity[k]), i + 2, k + 1, Qt::AlignHCenter);
    }
  }
  grid->setRowStretch(count + 2, 1);
  middle->addWidget(outputs, 1);

  // The comfort buttons share their frame and so form one group.
  auto* comfort = Named<QGroupBox>(&dialog, screen.Frame3);
  auto* comfort_layout = new QVBoxLayout(comfort);
  comfort_layout->addWidget(Named<QLabel>(comfort, screen.Label1));
  for (int i = 0; i < count; ++i) {
    comfort_layout->addWidget(Named<QRadioButton>(comfort, screen.row(i).Check3D1));
  }
  comfort_layout->addStretch();
  middle->addWidget(comfort);
  root->addLayout(middle, 1);
  root->addSpacing(Px(120));
  AddButtons(dialog, root, {&screen.Command1, &screen.Command2, &screen.Command3});
}

}  // namespace zelmo::ui
