#include <QVBoxLayout>

#include "ui/view_parts.h"
#include "ui/views.h"
#include "workspace/case_screens.h"

namespace zelmo::ui {

void BuildNewCase(Form& form, QDialog& dialog, Session&) {
  auto& screen = static_cast<NewCase&>(form);
  auto* layout = new QVBoxLayout(&dialog);
  AddField(dialog, layout, screen.Label1, screen.Text1);
  AddField(dialog, layout, screen.Label2, screen.Text2);
  AddCaption(dialog, layout, screen.Label3);
  AddList(dialog, layout, screen.List1, 8);
  AddButtons(dialog, layout, {&screen.Command1, &screen.Command2, &screen.Command3});
}

}  // namespace zelmo::ui
