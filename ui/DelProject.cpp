#include <QVBoxLayout>

#include "ui/view_parts.h"
#include "ui/views.h"
#include "workspace/project_screens.h"

namespace zelmo::ui {

void BuildDelProject(Form& form, QDialog& dialog, Session&) {
  auto& screen = static_cast<DelProject&>(form);
  auto* layout = new QVBoxLayout(&dialog);
  AddCaption(dialog, layout, screen.Label1);
  AddList(dialog, layout, screen.List1, 10);
  AddButtons(dialog, layout,
             {&screen.Command1, &screen.Command4, &screen.Command2, &screen.Command3});
}

}  // namespace zelmo::ui
