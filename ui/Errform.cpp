#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "simulation/module_error.h"
#include "ui/qt_text.h"
#include "ui/views.h"

namespace zelmo::ui {

void BuildErrform(Form& form, QDialog& dialog, Session&) {
  auto* layout = new QVBoxLayout(&dialog);
  auto* label = new QLabel(&dialog);
  label->setObjectName("Label1");
  label->setWordWrap(true);
  label->setAlignment(Qt::AlignLeft | Qt::AlignTop);
  label->setTextInteractionFlags(Qt::TextSelectableByMouse);
  label->setMinimumWidth(Px(form.width) - 24);
  layout->addWidget(label, 1);
  auto* buttons = new QHBoxLayout;
  auto* close = new QPushButton(&dialog);
  close->setObjectName("Command1");
  buttons->addStretch();
  buttons->addWidget(close);
  layout->addLayout(buttons);
}

}  // namespace zelmo::ui
