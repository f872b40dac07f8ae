#include <QHBoxLayout>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>

#include "building/force_vent_screen.h"
#include "ui/qt_text.h"
#include "ui/view_parts.h"
#include "ui/views.h"

namespace zelmo::ui {

void BuildForceVent(Form& form, QDialog& dialog, Session&) {
  auto& screen = static_cast<ForceVent&>(form);
  auto* layout = new QVBoxLayout(&dialog);
  AddReadOnlyGrid(dialog, layout, screen.Grid1, 16);
  layout->addSpacing(Px(120));
  AddButtons(dialog, layout, {&screen.Command1, &screen.Command2});
}

}  // namespace zelmo::ui
