#include <QVBoxLayout>

#include "ui/view_parts.h"
#include "ui/views.h"
#include "workspace/project_screens.h"

namespace zelmo::ui {

void BuildNewProject(Form& form, QDialog& dialog, Session&) {
  auto& screen = static_cast<NewProject&>(form);
  auto* layout = new QVBoxLayout(&dialog);
  AddField(dialog, layout, screen.Label1, screen.Text1);
  AddCaption(dialog, layout, screen.Label2);
  AddList(dialog, layout, screen.List1, 8);
  AddButtons(dialog, layout, {&screen.Command1, &screen.Command2, &screen.Command3});
}

}  // namespace zelmo::ui
