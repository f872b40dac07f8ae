#include "workspace/about.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "ui/qt_text.h"
#include "ui/views.h"

namespace zelmo::ui {

namespace {

QLabel* Text(QDialog& dialog, const Control& control, double scale, bool bold) {
  auto* label = new QLabel(&dialog);
  label->setObjectName(Q(control.name()));
  label->setTextFormat(Qt::PlainText);
  QFont font = label->font();
  font.setPointSizeF(font.pointSizeF() * scale);
  font.setBold(bold);
  label->setFont(font);
  return label;
}

QHBoxLayout* CloseRow(QDialog& dialog, const Control& control) {
  auto* row = new QHBoxLayout;
  row->addStretch();
  auto* button = new QPushButton(&dialog);
  button->setObjectName(Q(control.name()));
  button->setMinimumWidth(Px(1215));
  row->addWidget(button);
  return row;
}

}  // namespace

void BuildAbout(Form& form, QDialog& dialog, Session&) {
  auto& about = static_cast<About&>(form);
  auto* layout = new QVBoxLayout(&dialog);
  layout->addWidget(Text(dialog, about.Label1, 2.0, true));
  layout->addWidget(Text(dialog, about.Label2, 1.0, false));
  layout->addSpacing(Px(120));
  layout->addWidget(Text(dialog, about.Label3, 1.0, false));
  layout->addStretch();
  layout->addLayout(CloseRow(dialog, about.Command1));
}

void BuildSupport(Form& form, QDialog& dialog, Session&) {
  auto& support = static_cast<Support&>(form);
  auto* layout = new QVBoxLayout(&dialog);
  layout->addWidget(Text(dialog, support.Label1, 1.4, true));
  layout->addSpacing(Px(120));
  layout->addWidget(Text(dialog, support.Label2, 1.0, false));
  layout->addStretch();
  layout->addLayout(CloseRow(dialog, support.Command1));
}

}  // namespace zelmo::ui
