#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QRadioButton>
#include <QTableWidget>
#include <QVBoxLayout>

#include "simulation/list_of_elements.h"
#include "ui/qt_text.h"
#include "ui/view_parts.h"
#include "ui/views.h"

namespace zelmo::ui {

void BuildListOfBuildingElements(Form& form, QDialog& dialog, Session&) {
  auto& screen = static_cast<ListOfBuildingElements&>(form);
  auto* layout = new QVBoxLayout(&dialog);
  auto* top = new QHBoxLayout;
  // The two counts, each under its label.
  auto* counts = new QGridLayout;
  int column = 0;
  for (auto [label, count] :
       {std::pair{&screen.Label1, &screen.TN}, {&screen.Label2, &screen.NS}}) {
    counts->addWidget(Named<QLabel>(&dialog, *label), 0, column);
    auto* value = Named<QLabel>(&dialog, *count);
    value->setFrameStyle(QFrame::Panel | QFrame::Sunken);
    value->setFixedSize(Px(900), Px(330));
    counts->addWidget(value, 1, column++);
  }
  counts->setRowStretch(2, 1);
  top->addLayout(counts);
  top->addSpacing(Px(600));
  auto* options = new QGroupBox(&dialog);
  auto* options_layout = new QHBoxLayout(options);
  for (const OptionButton& option : screen.Option1) {
    options_layout->addWidget(Named<QRadioButton>(options, option));
  }
  top->addWidget(options);
  top->addStretch();
  layout->addLayout(top);

  AddReadOnlyGrid(dialog, layout, screen.Grid1, 18);
  layout->addSpacing(Px(120));
  AddButtons(dialog, layout, {&screen.OK, &screen.Command1});
}

}  // namespace zelmo::ui
