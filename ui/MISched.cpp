#include <QCheckBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

#include "libraries/misched_screen.h"
#include "ui/qt_text.h"
#include "ui/view_parts.h"
#include "ui/views.h"

namespace zelmo::ui {

namespace {

QPushButton* Button(QWidget* parent, const Control& control) {
  auto* button = Named<QPushButton>(parent, control);
  button->setAutoDefault(false);
  button->setMinimumWidth(Px(1215));
  return button;
}

}  // namespace

void BuildMISched(Form& form, QDialog& dialog, Session&) {
  auto& screen = static_cast<MISched&>(form);
  auto* root = new QVBoxLayout(&dialog);
  auto* top = new QHBoxLayout;
  auto* months = new QVBoxLayout;
  months->addWidget(Named<QLabel>(&dialog, screen.Label1));
  auto* list = Named<QListWidget>(&dialog, screen.MonthList);
  list->setFixedSize(Px(700), 12 * Px(255) + 6);
  months->addWidget(list);
  months->addStretch();
  top->addLayout(months);

  auto* right = new QVBoxLayout;
  // The three modes are one group, apart from the hour boxes.
  auto* modes = new QWidget(&dialog);
  auto* modes_layout = new QVBoxLayout(modes);
  modes_layout->setContentsMargins(0, 0, 0, 0);
  for (const auto& option : screen.Option3D1) {
    modes_layout->addWidget(Named<QRadioButton>(modes, option));
  }
  right->addWidget(modes);
  auto* frame = Named<QGroupBox>(&dialog, screen.Frame1);
  auto* frame_layout = new QVBoxLayout(frame);
  frame_layout->addWidget(Named<QLabel>(frame, screen.Label2));
  auto* hours = new QGridLayout;
  for (int hour = 0; hour < kMaskHours; ++hour) {
    hours->addWidget(Named<QCheckBox>(frame, screen.Check3D1[hour]), hour / 8, hour % 8);
  }
  frame_layout->addLayout(hours);
  auto* hour_buttons = new QHBoxLayout;
  hour_buttons->addStretch();
  hour_buttons->addWidget(Button(frame, screen.Command3D5));
  hour_buttons->addWidget(Button(frame, screen.Command3D4));
  frame_layout->addLayout(hour_buttons);
  right->addWidget(frame);
  right->addStretch();
  top->addLayout(right, 1);
  root->addLayout(top);

  auto* buttons = new QHBoxLayout;
  buttons->addWidget(Button(&dialog, screen.Command3D3));
  buttons->addStretch();
  for (const Control* control : {&screen.Command1, &screen.Command2, &screen.Command3}) {
    buttons->addWidget(Button(&dialog, *control));
  }
  root->addLayout(buttons);
}

}  // namespace zelmo::ui
