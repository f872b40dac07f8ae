#include "ui/view_parts.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QScrollBar>
#include <QStyle>

#include "ui/qt_text.h"

namespace zelmo::ui {

void AddCaption(QDialog& dialog, QBoxLayout* layout, const Control& label) {
  auto* widget = new QLabel(&dialog);
  widget->setObjectName(Q(label.name()));
  widget->setTextFormat(Qt::PlainText);
  layout->addWidget(widget);
}

void AddField(QDialog& dialog, QBoxLayout* layout, const Control& label, const Control& field) {
  auto* row = new QHBoxLayout;
  auto* caption = new QLabel(&dialog);
  caption->setObjectName(Q(label.name()));
  caption->setTextFormat(Qt::PlainText);
  caption->setMinimumWidth(Px(2400));
  auto* edit = new QLineEdit(&dialog);
  edit->setObjectName(Q(field.name()));
  // Wide enough for the longest name or headline the field takes.
  edit->setFixedWidth(Px(field.max_length > 8 ? 3600 : 1500));
  caption->setBuddy(edit);
  row->addWidget(caption);
  row->addWidget(edit);
  row->addStretch();
  layout->addLayout(row);
}

void AddList(QDialog& dialog, QBoxLayout* layout, const Control& list, int rows) {
  auto* widget = new QListWidget(&dialog);
  widget->setObjectName(Q(list.name()));
  widget->setSelectionMode(QAbstractItemView::SingleSelection);
  widget->setMinimumHeight(rows * Px(285) + 4);
  layout->addWidget(widget, 1);
}

int TitleBarWidth(const QWidget& window, const QString& title) {
  QFont font = window.font();
  font.setBold(true);
  const int bar = window.style()->pixelMetric(QStyle::PM_TitleBarHeight, nullptr, &window);
  // The icon and the three buttons are about as wide as the bar is high,
  // with the bar's margins at both ends.
  return QFontMetrics(font).horizontalAdvance(title) + 4 * bar + Px(600);
}

void FitTitle(QWidget& window) {
  const int need = TitleBarWidth(window, window.windowTitle());
  if (window.minimumWidth() >= need) return;
  const bool fixed = window.minimumWidth() == window.maximumWidth();
  window.setMinimumWidth(need);
  if (fixed) window.setMaximumWidth(need);
  if (window.width() < need) window.resize(need, window.height());
}

void AddButtons(QDialog& dialog, QBoxLayout* layout,
                std::initializer_list<const Control*> buttons) {
  auto* row = new QHBoxLayout;
  row->addStretch();
  for (const Control* button : buttons) {
    auto* widget = new QPushButton(&dialog);
    widget->setObjectName(Q(button->name()));
    widget->setAutoDefault(false);
    widget->setMinimumWidth(Px(1215));
    row->addWidget(widget);
  }
  layout->addLayout(row);
}

QTableWidget* ReadOnlyGrid(QDialog& dialog, const Grid& grid) {
  auto* table = new QTableWidget(&dialog);
  table->setObjectName(Q(grid.name()));
  table->horizontalHeader()->hide();
  table->verticalHeader()->hide();
  table->setEditTriggers(QAbstractItemView::NoEditTriggers);
  table->setSelectionMode(QAbstractItemView::SingleSelection);
  table->verticalHeader()->setDefaultSectionSize(Px(285));
  table->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  return table;
}

QTableWidget* AddReadOnlyGrid(QDialog& dialog, QBoxLayout* layout, const Grid& grid, int rows) {
  QTableWidget* table = ReadOnlyGrid(dialog, grid);
  int width = 0;
  for (int w : grid.col_widths) width += Px(w);
  table->setFixedWidth(width + table->verticalScrollBar()->sizeHint().width() + 4);
  table->setFixedHeight(rows * Px(285) + 4);
  layout->addWidget(table);
  return table;
}

}  // namespace zelmo::ui
