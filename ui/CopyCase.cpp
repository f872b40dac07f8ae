#include <QVBoxLayout>

#include "ui/view_parts.h"
#include "ui/views.h"
#include "workspace/case_screens.h"

namespace zelmo::ui {

void BuildCopyCase(Form& form, QDialog& dialog, Session&) {
  auto& screen = static_cast<CopyCase&>(form);
  auto* layout = new QVBoxLayout(&dialog);
  AddCaption(dialog, layout, screen.Label1);
  AddList(dialog, layout, screen.List1, 8);
  AddField(dialog, layout, screen.Label2, screen.Text1);
  AddField(dialog, layout, screen.Label3, screen.Text2);
  AddButtons(dialog, layout, {&screen.Command1, &screen.Command2, &screen.Command3});
}

}  // namespace zelmo::ui
