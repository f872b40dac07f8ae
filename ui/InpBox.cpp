#include "core/inpbox.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "ui/qt_text.h"
#include "ui/view_parts.h"
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
  layout->addWidget(label);
  layout->addWidget(text);
  AddButtons(dialog, layout, {&box.Command1, &box.Command2});
  dialog.setMinimumWidth(Px(box.width));
}

}  // namespace zelmo::ui
