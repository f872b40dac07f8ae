#include <QFontDatabase>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

#include "simulation/results_screen.h"
#include "ui/qt_text.h"
#include "ui/views.h"

namespace zelmo::ui {

namespace {

QLabel* MakeLabel(QDialog& dialog, const char* name) {
  auto* label = new QLabel(&dialog);
  label->setObjectName(name);
  return label;
}

QListWidget* MakeList(QDialog& dialog, const char* name, int width, int height) {
  auto* list = new QListWidget(&dialog);
  list->setObjectName(name);
  list->setFixedSize(Px(width), Px(height));
  return list;
}

QPushButton* MakeButton(QDialog& dialog, const char* name) {
  auto* button = new QPushButton(&dialog);
  button->setObjectName(name);
  button->setAutoDefault(false);
  button->setMinimumWidth(Px(1215));
  return button;
}

}  // namespace

void BuildResults(Form&, QDialog& dialog, Session&) {
  auto* layout = new QVBoxLayout(&dialog);
  auto* lists = new QGridLayout;
  lists->addWidget(MakeLabel(dialog, "Label1"), 0, 0);
  lists->addWidget(MakeList(dialog, "CaseList", 4200, 2400), 1, 0);
  lists->addWidget(MakeLabel(dialog, "Label2"), 0, 1);
  lists->addWidget(MakeList(dialog, "TypeList", 1100, 2400), 1, 1);
  lists->addWidget(MakeLabel(dialog, "Label3"), 0, 2);
  lists->addWidget(MakeList(dialog, "File1", 2800, 2400), 1, 2);

  // The two ways of opening a "TXT" file form one group.
  auto* frame = new QGroupBox(&dialog);
  auto* options = new QVBoxLayout(frame);
  auto* excel = new QRadioButton(frame);
  excel->setObjectName("Option1");
  auto* reports = new QRadioButton(frame);
  reports->setObjectName("Option2");
  options->addWidget(excel);
  options->addWidget(reports);
  options->addStretch();
  lists->addWidget(frame, 1, 3, Qt::AlignTop);
  lists->setColumnStretch(4, 1);
  layout->addLayout(lists);

  auto* text = new QPlainTextEdit(&dialog);
  text->setObjectName("Text1");
  text->setLineWrapMode(QPlainTextEdit::NoWrap);
  text->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
  text->setMinimumHeight(Px(3600));
  layout->addWidget(text, 1);

  auto* buttons = new QHBoxLayout;
  buttons->addStretch();
  buttons->addWidget(MakeButton(dialog, "Command1"));
  buttons->addWidget(MakeButton(dialog, "Command2"));
  buttons->addWidget(MakeButton(dialog, "Command3"));
  layout->addLayout(buttons);
}

}  // namespace zelmo::ui
