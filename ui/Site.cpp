#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

#include "ui/qt_text.h"
#include "ui/view_parts.h"
#include "ui/views.h"
#include "ui/window_height.h"

namespace zelmo::ui {

namespace {

QLineEdit* Input(QWidget* parent, const char* name, int width_twips) {
  auto* input = Named<QLineEdit>(parent, name);
  input->setFixedWidth(Px(width_twips));
  return input;
}

}  // namespace

void BuildSite(Form&, QDialog& dialog, Session&) {
  auto* columns = new QHBoxLayout;

  // Left: position, rotation and the climate file.
  auto* left = new QVBoxLayout;
  auto* position = new QGridLayout;
  const char* inputs[] = {"Latitude", "Longitude", "Timem", "Rotation"};
  for (int row = 0; row < 4; ++row) {
    auto* caption = Named<QLabel>(&dialog, ("Label" + std::to_string(2 * row + 1)).c_str());
    auto* unit = Named<QLabel>(&dialog, ("Label" + std::to_string(2 * row + 2)).c_str());
    unit->setWordWrap(true);
    unit->setFixedWidth(Px(3900));
    position->addWidget(caption, row, 0);
    position->addWidget(Input(&dialog, inputs[row], 1000), row, 1);
    position->addWidget(unit, row, 2);
  }
  left->addLayout(position);
  left->addSpacing(Px(120));

  auto* file_caption = new QHBoxLayout;
  file_caption->addWidget(Named<QLabel>(&dialog, "Label9"));
  file_caption->addWidget(Named<QLabel>(&dialog, "Label10"));
  file_caption->addStretch();
  left->addLayout(file_caption);
  auto* lists = new QGridLayout;
  auto* drive = Named<QComboBox>(&dialog, "Drive1");
  auto* dirs = Named<QListWidget>(&dialog, "Dir1");
  auto* files = Named<QListWidget>(&dialog, "File1");
  for (QListWidget* list : {dirs, files}) {
    list->setFixedHeight(Px(1900));
    list->setFixedWidth(Px(2700));
  }
  dirs->setToolTip("Double-click a folder to open it");
  lists->addWidget(drive, 0, 0);
  lists->addWidget(dirs, 1, 0);
  lists->addWidget(files, 0, 1, 2, 1);
  lists->setColumnStretch(2, 1);
  left->addLayout(lists);
  auto* climate = Named<QLineEdit>(&dialog, "Climate");
  climate->setMinimumWidth(Px(5500));
  left->addWidget(climate);

  auto* wind_message = new QHBoxLayout;
  wind_message->addWidget(Named<QLabel>(&dialog, "Windlabel"));
  wind_message->addWidget(Named<QLabel>(&dialog, "Winddata"));
  wind_message->addStretch();
  left->addLayout(wind_message);
  left->addWidget(Named<QCheckBox>(&dialog, "Wind"));
  auto* terrain = Named<QGroupBox>(&dialog, "Terrain");
  auto* terrain_layout = new QVBoxLayout(terrain);
  for (int i = 0; i < 4; ++i) {
    terrain_layout->addWidget(
        Named<QRadioButton>(terrain, ("Option5(" + std::to_string(i) + ")").c_str()));
  }
  // The frame comes and goes with the wind box; the space stays reserved so
  // the screen does not jump.
  QSizePolicy keep = terrain->sizePolicy();
  keep.setRetainSizeWhenHidden(true);
  terrain->setSizePolicy(keep);
  left->addWidget(terrain);
  left->addStretch();

  // Right: the period, the sun and the outdoor temperature.
  auto* right = new QVBoxLayout;
  right->addWidget(Named<QLabel>(&dialog, "Label11"));
  auto* period = new QGridLayout;
  period->addWidget(Named<QLabel>(&dialog, "Label14"), 0, 1);
  period->addWidget(Named<QLabel>(&dialog, "Label15"), 0, 2);
  period->addWidget(Named<QLabel>(&dialog, "Label16"), 0, 3);
  period->addWidget(Named<QLabel>(&dialog, "Label12"), 1, 0);
  period->addWidget(Input(&dialog, "FDYear", 800), 1, 1);
  period->addWidget(Input(&dialog, "FDMonth", 600), 1, 2);
  period->addWidget(Input(&dialog, "FDDay", 600), 1, 3);
  period->addWidget(Named<QLabel>(&dialog, "Label13"), 2, 0);
  period->addWidget(Input(&dialog, "LDYear", 800), 2, 1);
  period->addWidget(Input(&dialog, "LDMonth", 600), 2, 2);
  period->addWidget(Input(&dialog, "LDDay", 600), 2, 3);
  period->setColumnStretch(4, 1);
  right->addLayout(period);
  right->addSpacing(Px(200));

  auto* solar = Named<QGroupBox>(&dialog, "Solarradiation");
  auto* solar_layout = new QVBoxLayout(solar);
  solar_layout->addWidget(Named<QRadioButton>(solar, "Option1"));
  solar_layout->addWidget(Named<QRadioButton>(solar, "Option2"));
  right->addWidget(solar);

  auto* temperatures = Named<QGroupBox>(&dialog, "Temperatures");
  auto* temperature_layout = new QVBoxLayout(temperatures);
  temperature_layout->addWidget(Named<QRadioButton>(temperatures, "Option3"));
  auto* set_row = new QHBoxLayout;
  set_row->addWidget(Named<QRadioButton>(temperatures, "Option4"));
  set_row->addWidget(Input(temperatures, "T_T", 700));
  set_row->addWidget(Named<QLabel>(temperatures, "Label17"));
  set_row->addStretch();
  temperature_layout->addLayout(set_row);
  right->addWidget(temperatures);
  right->addSpacing(Px(200));
  auto* general = Named<QPushButton>(&dialog, "Command4");
  general->setAutoDefault(false);
  auto* general_row = new QHBoxLayout;
  general_row->addWidget(general);
  general_row->addStretch();
  right->addLayout(general_row);
  right->addStretch();
  auto* buttons = new QHBoxLayout;
  buttons->addStretch();
  for (const char* name : {"Command1", "Command2", "Command3"}) {
    auto* button = Named<QPushButton>(&dialog, name);
    button->setAutoDefault(false);
    buttons->addWidget(button);
  }
  right->addLayout(buttons);

  columns->addLayout(left);
  columns->addSpacing(Px(300));
  columns->addLayout(right);
  auto* root = new QVBoxLayout(&dialog);
  root->addLayout(columns);
  HeightFromContents(dialog);
}

}  // namespace zelmo::ui
