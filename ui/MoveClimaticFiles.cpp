#include <QComboBox>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

#include "ui/qt_text.h"
#include "ui/view_parts.h"
#include "ui/views.h"

namespace zelmo::ui {

void BuildMoveClimaticFiles(Form&, QDialog& dialog, Session&) {
  auto* root = new QVBoxLayout(&dialog);
  auto* lists = new QHBoxLayout;
  auto* folder = Named<QGroupBox>(&dialog, "Frame1");
  auto* folder_layout = new QVBoxLayout(folder);
  folder_layout->addWidget(Named<QComboBox>(folder, "Drive1"));
  auto* dirs = Named<QListWidget>(folder, "Dir1");
  dirs->setToolTip("Double-click a folder to open it");
  folder_layout->addWidget(dirs);
  auto* files_column = new QVBoxLayout;
  files_column->addWidget(Named<QLabel>(&dialog, "Label1"));
  auto* files = Named<QListWidget>(&dialog, "File1");
  files->setSelectionMode(QAbstractItemView::NoSelection);
  files_column->addWidget(files);
  for (QWidget* list : {static_cast<QWidget*>(dirs), static_cast<QWidget*>(files)}) {
    list->setMinimumSize(Px(3000), Px(2600));
  }
  lists->addWidget(folder);
  lists->addLayout(files_column);
  root->addLayout(lists);
  root->addWidget(Named<QLabel>(&dialog, "Label2"));
  auto* selected = Named<QLabel>(&dialog, "Selecteddirectory");
  selected->setFrameStyle(QFrame::Panel | QFrame::Sunken);
  root->addWidget(selected);
  auto* buttons = new QHBoxLayout;
  buttons->addStretch();
  for (const char* name : {"ImportEpw", "Copy", "Ok", "Help"}) {
    auto* button = Named<QPushButton>(&dialog, name);
    button->setAutoDefault(false);
    buttons->addWidget(button);
  }
  root->addLayout(buttons);
}

}  // namespace zelmo::ui
