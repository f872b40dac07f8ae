#include <QCheckBox>
#include <QEvent>
#include <QLabel>
#include <QMouseEvent>
#include <QStyledItemDelegate>
#include <QTableWidget>
#include <QTimer>
#include <QVBoxLayout>

#include "simulation/therm_load_screen.h"
#include "ui/qt_text.h"
#include "ui/view_parts.h"
#include "ui/views.h"

namespace zelmo::ui {

namespace {

// Tells the screen which button went down on the grid before its click.
class MouseButtons : public QObject {
 public:
  MouseButtons(ThermLoad& screen, QObject* parent) : QObject(parent), screen_(screen) {}
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() == QEvent::MouseButtonPress) {
      const Qt::MouseButton button = static_cast<QMouseEvent*>(event)->button();
      screen_.GridMouseDown(button == Qt::RightButton    ? ThermLoad::kRightButton
                            : button == Qt::MiddleButton ? ThermLoad::kMiddleButton
                                                         : ThermLoad::kLeftButton);
    }
    return QObject::eventFilter(watched, event);
  }

 private:
  ThermLoad& screen_;
};

// The colour of a cell says where the run stands (the current case, the
// failing module): a current cell keeps it rather than the selection's.
class KeepCellColours : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;

 protected:
  void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override {
    QStyledItemDelegate::initStyleOption(option, index);
    if (index.data(Qt::BackgroundRole).isValid()) option->state &= ~QStyle::State_Selected;
  }
};

}  // namespace

void BuildThermLoad(Form& form, QDialog& dialog, Session&) {
  auto& screen = static_cast<ThermLoad&>(form);
  auto* layout = new QVBoxLayout(&dialog);
  layout->addWidget(Named<QLabel>(&dialog, "Label1"));
  auto* table = AddReadOnlyGrid(dialog, layout, screen.ThermGrid, 1);
  table->setFixedHeight(Px(screen.ThermGrid.height));
  table->setMaximumWidth(QWIDGETSIZE_MAX);
  table->viewport()->installEventFilter(new MouseButtons(screen, table));
  table->setItemDelegate(new KeepCellColours(table));
  layout->addWidget(Named<QLabel>(&dialog, "Label2"));
  layout->addWidget(Named<QCheckBox>(&dialog, screen.Check1));
  layout->addSpacing(Px(120));
  AddButtons(dialog, layout,
             {&screen.Command1, &screen.Command6, &screen.Command4, &screen.Command5,
              &screen.Command2, &screen.Command3});
  // The progress line counts the seconds of the running module.
  auto* clock = new QTimer(&dialog);
  QObject::connect(clock, &QTimer::timeout, &dialog, [&screen] {
    if (!screen.running()) return;
    screen.Tick();
    if (screen.refresh) screen.refresh();
  });
  clock->start(1000);
}

}  // namespace zelmo::ui
