#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QVBoxLayout>
#include <initializer_list>
#include <map>
#include <set>

#include "core/session.h"
#include "ui/binder.h"
#include "ui/qt_dialogs.h"
#include "ui/qt_text.h"
#include "ui/start_window.h"
#include "workspace/start_form.h"

namespace zelmo::ui {

namespace {

// A label of the panel. The binder paints an enabled label blue in every
// state of the widget; a disabled one keeps the toolkit's grey.
class PanelLabel : public QLabel {
 public:
  explicit PanelLabel(QWidget* parent) : QLabel(parent) {
    setTextFormat(Qt::PlainText);
    setCursor(Qt::PointingHandCursor);
  }

 protected:
  void changeEvent(QEvent* event) override {
    QLabel::changeEvent(event);
    if (event->type() != QEvent::PaletteChange || fixing_) return;
    QColor grey = QApplication::palette().color(QPalette::Disabled, QPalette::WindowText);
    QPalette own = palette();
    if (own.color(QPalette::Disabled, QPalette::WindowText) == grey) return;
    fixing_ = true;
    own.setColor(QPalette::Disabled, QPalette::WindowText, grey);
    setPalette(own);
    fixing_ = false;
  }

 private:
  bool fixing_ = false;
};

QLabel* Heading(QWidget* parent, const Control& control) {
  auto* label = new QLabel(parent);
  label->setObjectName(Q(control.name()));
  label->setTextFormat(Qt::PlainText);
  QFont font = label->font();
  font.setBold(true);
  label->setFont(font);
  return label;
}

// A column of the panel: a heading and the labels under it.
QVBoxLayout* Column(QWidget* parent, const Control* heading,
                    std::initializer_list<const Control*> labels) {
  auto* column = new QVBoxLayout;
  column->setSpacing(Px(60));
  if (heading) column->addWidget(Heading(parent, *heading));
  for (const Control* control : labels) {
    auto* label = new PanelLabel(parent);
    label->setObjectName(Q(control->name()));
    QFont font = label->font();
    font.setPointSizeF(font.pointSizeF() * 1.1);
    label->setFont(font);
    column->addWidget(label);
  }
  column->addStretch();
  return column;
}

QGroupBox* Group(QWidget* parent, const Control& frame) {
  auto* group = new QGroupBox(parent);
  group->setObjectName(Q(frame.name()));
  return group;
}

}  // namespace

StartWindow::StartWindow(StartForm& form, Session& session) : QMainWindow(nullptr), form_(form) {
  setObjectName(Q(form.name()));
  // A fixed window: no maximize button and no sizing border.
  setWindowFlags(Qt::Window | Qt::CustomizeWindowHint | Qt::WindowTitleHint |
                 Qt::WindowSystemMenuHint | Qt::WindowMinimizeButtonHint |
                 Qt::WindowCloseButtonHint);
  BuildMenus();
  BuildPanel();
  setFixedSize(Px(form.width), Px(form.height));
  if (form.centered || form.left > 0 || form.top > 0) PlaceWindow(*this, form);

  binder_ = new Binder(form_, this, *session.dialogs, [this] { Unloaded(); });
  // The title after a command run from the menu; after a label of the panel
  // the release of the mouse brings it.
  for (QAction* action : findChildren<QAction*>()) {
    connect(action, &QAction::triggered, this, [this] { SyncTitle(); });
  }
  for (QLabel* label : findChildren<PanelLabel*>()) label->installEventFilter(this);
  binder_->Sync();
  SyncTitle();
}

void StartWindow::BuildMenus() {
  std::vector<StartForm::MenuNode> tree = form_.MenuTree();
  std::set<const MenuItem*> has_entries;
  for (const auto& node : tree) {
    if (node.parent) has_entries.insert(node.parent);
  }
  std::map<const MenuItem*, QMenu*> menus;
  for (const auto& node : tree) {
    QString name = Q(node.item->name());
    if (has_entries.count(node.item)) {
      QMenu* menu =
          node.parent ? menus[node.parent]->addMenu(QString()) : menuBar()->addMenu(QString());
      menu->setObjectName(name + QStringLiteral("_menu"));
      // The menu's own entry carries the control's name, so the binder
      // enables, hides and captions the menu through it.
      menu->menuAction()->setObjectName(name);
      menus[node.item] = menu;
    } else {
      QAction* action = menus[node.parent]->addAction(QString());
      action->setObjectName(name);
    }
  }
}

void StartWindow::BuildPanel() {
  StartForm& f = form_;
  auto* central = new QWidget(this);
  central->setObjectName("Panel");
  setCentralWidget(central);
  auto* layout = new QVBoxLayout(central);
  layout->setContentsMargins(Px(240), Px(120), Px(240), Px(120));
  layout->setSpacing(Px(120));

  auto* banner = new QHBoxLayout;
  auto* product = new QLabel(QStringLiteral("ZELMO-QRN"), central);
  QFont big = product->font();
  big.setPointSizeF(big.pointSizeF() * 2.2);
  big.setBold(true);
  product->setFont(big);
  product->setStyleSheet(QStringLiteral("color: rgb(0, 0, 120);"));
  auto* subtitle = new QLabel(QStringLiteral("Dynamic thermal simulation of buildings"), central);
  banner->addWidget(product);
  banner->addSpacing(Px(240));
  banner->addWidget(subtitle, 0, Qt::AlignBottom);
  banner->addStretch();
  layout->addLayout(banner);

  QGroupBox* library = Group(central, f.FrameLibrary);
  auto* library_row = new QHBoxLayout(library);
  library_row->addLayout(Column(library, &f.LblProjects, {&f.LPN, &f.LPO, &f.LPC, &f.LPD}));
  library_row->addLayout(Column(library, &f.LblCases, {&f.LCN, &f.LCO, &f.LCC, &f.LCD, &f.LCR}));
  library_row->addLayout(Column(library, &f.LblLibraries, {&f.Om, &f.LW, &f.LWi, &f.LCu}));
  layout->addWidget(library);

  auto* lower = new QHBoxLayout;
  QGroupBox* model = Group(central, f.FrameModel);
  auto* model_row = new QHBoxLayout(model);
  model_row->addLayout(
      Column(model, &f.LblBuilding, {&f.MBS, &f.MBG, &f.MBB, &f.MBF, &f.MBC, &f.MV, &f.LoBe}));
  model_row->addLayout(Column(model, &f.LblHVAC, {&f.MHS, &f.MHF}));
  lower->addWidget(model, 3);

  auto* right = new QVBoxLayout;
  QGroupBox* output = Group(central, f.FrameOutputSpec);
  auto* output_column = new QVBoxLayout(output);
  output_column->addLayout(Column(output, nullptr, {&f.OUtput}));
  right->addWidget(output);
  QGroupBox* calculation = Group(central, f.FrameCalculation);
  auto* calculation_column = new QVBoxLayout(calculation);
  calculation_column->addLayout(Column(calculation, nullptr, {&f.ss}));
  right->addWidget(calculation);
  QGroupBox* result = Group(central, f.FrameResult);
  auto* result_row = new QHBoxLayout(result);
  result_row->addLayout(Column(result, &f.LblDiagram, {&f.RDL, &f.RC}));
  result_row->addLayout(Column(result, nullptr, {&f.RT}));
  right->addWidget(result);
  lower->addLayout(right, 2);
  layout->addLayout(lower, 1);

  auto* bottom = new QHBoxLayout;
  auto* version = new QLabel(central);
  version->setObjectName(Q(f.LblVersion.name()));
  bottom->addWidget(version);
  bottom->addStretch();
  auto* more = new QPushButton(central);
  more->setObjectName(Q(f.MoreAbout.name()));
  more->setAutoDefault(false);
  bottom->addWidget(more);
  layout->addLayout(bottom);
}

void StartWindow::SyncTitle() {
  if (form_.caption == shown_title_ && windowTitle() == WindowTitle(shown_title_)) return;
  shown_title_ = form_.caption;
  setWindowTitle(WindowTitle(shown_title_));
}

bool StartWindow::event(QEvent* event) {
  bool handled = QMainWindow::event(event);
  // Screens opened from here may change the title while they are shown.
  if (event->type() == QEvent::WindowActivate || event->type() == QEvent::ActivationChange) {
    SyncTitle();
  }
  return handled;
}

bool StartWindow::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::MouseButtonRelease) SyncTitle();
  return QMainWindow::eventFilter(watched, event);
}

void StartWindow::closeEvent(QCloseEvent* event) {
  // A screen open over the window is asked first: a running simulation asks
  // whether to stop, and the program ends once the screen has gone.
  if (auto* screen = dynamic_cast<ScreenDialog*>(QApplication::activeModalWidget())) {
    if (!screen->close()) {
      event->ignore();
      if (screen->form().closing) {
        connect(screen, &QDialog::finished, this, &QWidget::close, Qt::QueuedConnection);
      }
      return;
    }
  }
  if (!form_.unloaded) {
    binder_->Fire([this] { form_.QueryUnload(); });
    if (!form_.unloaded) {
      event->ignore();
      return;
    }
  }
  event->accept();
  // Leaving the main window ends the program at once, with every other
  // window.
  QApplication::closeAllWindows();
  QCoreApplication::quit();
}

void StartWindow::Unloaded() {
  if (closing_) return;
  closing_ = true;
  close();
}

}  // namespace zelmo::ui
