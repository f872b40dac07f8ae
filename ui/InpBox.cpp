#include "core/inpbox.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "ui/qt_text.h"
#include "ui/views.h"

namespace zelmo::ui {

void BuildInpBox(Form& form, QDialog& dialog, Session&) {
  auto& box = static_cast<InpBox&>(form);
  auto* layout = new QVBoxLayout(&dialog);
  auto* label = new QLabel(&dialog);
  label->setObjectName("Label1");
  label->setWordWrap(false);
  auto* text = new QLineEdit(&dialog);
  text->setObjectName("Text1");
  text->setMinimumWidth(Px(box.Text1.width));
  auto* buttons = new QHBoxLayout;
  auto* ok = new QPushButton(&dialog);
  ok->setObjectName("Command1");
  auto* cancel = new QPushButton(&dialog);
  cancel->setObjectName("Command2");
  buttons->addStretch();
  buttons->addWidget(ok);
  buttons->addWidget(cancel);
  layout->addWidget(label);
  layout->addWidget(text);
  layout->addLayout(buttons);
  dialog.setMinimumWidth(Px(box.width));
}

}  // namespace zelmo::ui
