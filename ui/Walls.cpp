#include <QFontDatabase>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QScrollBar>
#include <QTableWidget>
#include <QVBoxLayout>

#include "libraries/walls_screen.h"
#include "ui/binder.h"
#include "ui/library_grid.h"
#include "ui/qt_text.h"
#include "ui/view_parts.h"
#include "ui/views.h"

namespace zelmo::ui {

namespace {

constexpr int kRowHeight = 285;
constexpr int kListRows = 16;

QLabel* Caption(QWidget* parent, const Control& label) {
  auto* widget = Named<QLabel>(parent, label);
  widget->setTextFormat(Qt::PlainText);
  return widget;
}

QHBoxLayout* ButtonRow(QWidget* parent, std::initializer_list<const Control*> buttons) {
  auto* row = new QHBoxLayout;
  for (const Control* button : buttons) {
    auto* widget = Named<QPushButton>(parent, *button);
    widget->setAutoDefault(false);
    widget->setMinimumWidth(Px(1100));
    row->addWidget(widget);
  }
  row->addStretch();
  return row;
}

}  // namespace

void BuildWalls(Form& form, QDialog& dialog, Session&) {
  auto& screen = static_cast<Walls&>(form);
  auto* root = new QHBoxLayout(&dialog);

  // The wall list, and the material list that covers it while layers are
  // being added.
  auto* left = new QVBoxLayout;
  left->addWidget(Caption(&dialog, screen.Label1));
  auto* lists = new QGridLayout;
  auto* walls = Named<QListWidget>(&dialog, screen.WallList);
  walls->setSelectionMode(QAbstractItemView::SingleSelection);
  auto* materials = Named<QListWidget>(&dialog, screen.MtrlList);
  materials->setProperty(kClickOnRelease, true);
  materials->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
  const int list_width =
      QFontMetrics(materials->font()).horizontalAdvance(QString(52, QLatin1Char('M'))) +
      materials->verticalScrollBar()->sizeHint().width() + 8;
  for (QListWidget* list : {walls, materials}) {
    list->setFixedSize(list_width, kListRows * Px(kRowHeight) + 4);
    lists->addWidget(list, 0, 0);
  }
  left->addLayout(lists);
  left->addLayout(ButtonRow(
      &dialog, {&screen.Command3D1, &screen.Command3D6, &screen.Command3D7, &screen.Command3D4}));
  left->addStretch();
  root->addLayout(left);

  auto* right = new QVBoxLayout;
  right->addWidget(Caption(&dialog, screen.Label2));
  auto* table = LibraryGrid(dialog, screen.WallLayerList, kListRows);
  right->addWidget(table);
  right->addLayout(ButtonRow(
      &dialog, {&screen.Command3D2, &screen.Command3D3, &screen.Command3D5, &screen.Command3D9}));

  auto* bottom = new QHBoxLayout;
  bottom->addWidget(Caption(&dialog, screen.Label3));
  auto* uvalue = Named<QLineEdit>(&dialog, screen.UvalueWall);
  uvalue->setFixedWidth(Px(1000));
  uvalue->setFocusPolicy(Qt::NoFocus);
  bottom->addWidget(uvalue);
  bottom->addWidget(Caption(&dialog, screen.Label4));
  bottom->addSpacing(Px(600));
  auto* library = Named<QGroupBox>(&dialog, screen.Frame1);
  auto* library_layout = new QHBoxLayout(library);
  auto* opaque = Named<QPushButton>(library, screen.Command3D8);
  opaque->setAutoDefault(false);
  library_layout->addWidget(opaque);
  bottom->addWidget(library);
  bottom->addStretch();
  right->addLayout(bottom);
  right->addStretch();
  AddButtons(dialog, right, {&screen.Command1, &screen.Command2, &screen.Command3});
  root->addLayout(right);
}

}  // namespace zelmo::ui
