#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QVBoxLayout>

#include "site/convert_v20.h"
#include "ui/binder.h"
#include "ui/qt_text.h"
#include "ui/view_parts.h"
#include "ui/views.h"

namespace zelmo::ui {

void BuildCv12TOv20(Form& form, QDialog& dialog, Session&) {
  auto& screen = static_cast<Cv12TOv20&>(form);
  auto* layout = new QVBoxLayout(&dialog);
  // The project and its cases above, what became of the cases below.
  auto* lists = new QGridLayout;
  const std::pair<const Control*, const Control*> columns[] = {{&screen.Label1, &screen.EP},
                                                               {&screen.Label2, &screen.EC},
                                                               {&screen.Label3, &screen.CC},
                                                               {&screen.Label4, &screen.NCC}};
  int index = 0;
  for (auto [label, list] : columns) {
    const int row = index / 2 * 2, col = index % 2;
    lists->addWidget(Named<QLabel>(&dialog, *label), row, col);
    auto* widget = Named<QListWidget>(&dialog, *list);
    widget->setMinimumSize(Px(3900), Px(1900));
    if (list != &screen.EP) widget->setSelectionMode(QAbstractItemView::NoSelection);
    // Only the user's click chooses the project to convert, never the list
    // taking the focus.
    if (list == &screen.EP) widget->setProperty(kClickOnRelease, true);
    lists->addWidget(widget, row + 1, col);
    ++index;
  }
  layout->addLayout(lists);
  auto* status = new QHBoxLayout;
  status->addWidget(Named<QLabel>(&dialog, screen.Label5));
  auto* text = Named<QLabel>(&dialog, screen.TStatus);
  text->setFrameStyle(QFrame::Panel | QFrame::Sunken);
  status->addWidget(text, 1);
  layout->addLayout(status);
  layout->addSpacing(Px(120));
  AddButtons(dialog, layout, {&screen.C_Convert, &screen.C_Close, &screen.Command1});
}

}  // namespace zelmo::ui
