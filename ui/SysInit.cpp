#include "workspace/sysinit.h"

#include <QComboBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

#include "ui/qt_text.h"
#include "ui/views.h"

namespace zelmo::ui {

namespace {

template <typename Widget>
Widget* Make(QDialog& dialog, const Control& control) {
  auto* widget = new Widget(&dialog);
  widget->setObjectName(Q(control.name()));
  return widget;
}

// A path field with its drive list and directory list beside it.
QHBoxLayout* PathChoice(QDialog& dialog, const Control& label, const Control& field,
                        const Control& drives, const Control& folders) {
  auto* row = new QHBoxLayout;
  auto* left = new QVBoxLayout;
  left->addWidget(Make<QLabel>(dialog, label));
  auto* edit = Make<QLineEdit>(dialog, field);
  edit->setMinimumWidth(Px(4200));
  left->addWidget(edit);
  left->addStretch();
  auto* right = new QVBoxLayout;
  auto* drive = Make<QComboBox>(dialog, drives);
  drive->setMinimumWidth(Px(3000));
  right->addWidget(drive);
  auto* list = Make<QListWidget>(dialog, folders);
  list->setFixedSize(Px(3000), Px(1500));
  right->addWidget(list);
  row->addLayout(left, 1);
  row->addLayout(right);
  return row;
}

}  // namespace

void BuildSysInit(Form& form, QDialog& dialog, Session&) {
  auto& screen = static_cast<SysInit&>(form);
  auto* layout = new QVBoxLayout(&dialog);
  layout->addLayout(PathChoice(dialog, screen.Label1, screen.SysPath, screen.Drive1, screen.Dir1));
  layout->addLayout(
      PathChoice(dialog, screen.Label2, screen.LocalPath, screen.Drive2, screen.Dir2));

  auto* choices = new QGridLayout;
  choices->addWidget(Make<QLabel>(dialog, screen.Label3), 0, 0);
  auto* accuracy = Make<QComboBox>(dialog, screen.Combo1);
  accuracy->setMinimumWidth(Px(3600));
  choices->addWidget(accuracy, 0, 1);
  choices->addWidget(Make<QLabel>(dialog, screen.Label4), 1, 0);
  choices->addWidget(Make<QComboBox>(dialog, screen.Combo2), 1, 1);
  choices->setColumnStretch(2, 1);
  layout->addLayout(choices);

  auto* buttons = new QHBoxLayout;
  buttons->addStretch();
  for (const Control* control : {&screen.Command1, &screen.Command2, &screen.Command3}) {
    auto* button = Make<QPushButton>(dialog, *control);
    button->setAutoDefault(false);
    button->setMinimumWidth(Px(1215));
    buttons->addWidget(button);
  }
  layout->addLayout(buttons);
}

}  // namespace zelmo::ui
