#include <QCheckBox>
#include <QComboBox>
#include <QFontMetrics>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QTableWidget>
#include <QVBoxLayout>
#include <algorithm>

#include "schedules/hvac_screen.h"
#include "ui/qt_text.h"
#include "ui/view_parts.h"
#include "ui/views.h"

namespace zelmo::ui {

namespace {

constexpr int kRowHeight = 285;

// A grid whose header line is its own first row; keys and clicks go to the
// screen, which writes the cells.
QTableWidget* AddGrid(QWidget* parent, const Grid& grid, int rows, int width) {
  auto* table = Named<QTableWidget>(parent, grid);
  table->horizontalHeader()->hide();
  table->verticalHeader()->hide();
  table->setEditTriggers(QAbstractItemView::NoEditTriggers);
  // A drag of the mouse selects several cells; the screen then moves the
  // active cell to where the drag ended.
  table->setSelectionMode(QAbstractItemView::ContiguousSelection);
  table->verticalHeader()->setDefaultSectionSize(Px(kRowHeight));
  table->setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
  table->setFixedWidth(Px(width) + table->verticalScrollBar()->sizeHint().width() + 4);
  table->setFixedHeight(rows * Px(kRowHeight) + 4);
  return table;
}

// How much wider than their twips the columns must be for every header of
// the loads to stand whole in the screen's font.
double HeaderScale(const QFontMetrics& metrics, const Grid& grid) {
  double scale = 1.0;
  for (int col = 0; col < grid.cols() && col < static_cast<int>(grid.col_widths.size()); ++col) {
    int needed = metrics.horizontalAdvance(Q(grid.Cell(0, col))) + 12;
    scale = std::max(scale, static_cast<double>(needed) / Px(grid.col_widths[col]));
  }
  return scale;
}

QPushButton* AddButton(QWidget* parent, const Control& control) {
  auto* button = Named<QPushButton>(parent, control);
  button->setAutoDefault(false);
  return button;
}

// Buttons side by side under a list.
QHBoxLayout* ButtonRow(QWidget* parent, std::initializer_list<const Control*> buttons) {
  auto* row = new QHBoxLayout;
  for (const Control* control : buttons) row->addWidget(AddButton(parent, *control));
  row->addStretch();
  return row;
}

// Two option buttons of one group, index 1 first as the screen lists them.
QWidget* OptionPair(QWidget* parent, const OptionButton (&pair)[2], bool across) {
  auto* box = new QWidget(parent);
  QBoxLayout* layout = across ? static_cast<QBoxLayout*>(new QHBoxLayout(box))
                              : static_cast<QBoxLayout*>(new QVBoxLayout(box));
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addWidget(Named<QRadioButton>(box, pair[1]));
  layout->addWidget(Named<QRadioButton>(box, pair[0]));
  layout->addStretch();
  return box;
}

QComboBox* AddCombo(QWidget* parent, const Control& control) {
  auto* combo = Named<QComboBox>(parent, control);
  combo->setMinimumWidth(Px(2600));
  return combo;
}

}  // namespace

void BuildHVAC(Form& form, QDialog& dialog, Session&) {
  auto& screen = static_cast<HVAC&>(form);
  auto* root = new QVBoxLayout(&dialog);
  auto* columns = new QHBoxLayout;
  root->addLayout(columns);

  // The chain of lists down the left side.
  auto* lists = new QVBoxLayout;
  columns->addLayout(lists);
  auto caption = [&dialog, lists](const Control& label) {
    lists->addWidget(Named<QLabel>(&dialog, label));
  };
  caption(screen.Calender);
  lists->addWidget(AddCombo(&dialog, screen.Combo1));
  lists->addLayout(ButtonRow(&dialog, {&screen.SAcmb, &screen.SDcmb}));
  lists->addLayout(ButtonRow(&dialog, {&screen.Sccmb, &screen.Rename}));
  lists->addSpacing(Px(120));
  caption(screen.HVlab1);
  auto* volume = new QHBoxLayout;
  volume->addWidget(AddCombo(&dialog, screen.Combo3));
  volume->addWidget(AddButton(&dialog, screen.CopyVolume));
  lists->addLayout(volume);
  lists->addSpacing(Px(120));
  caption(screen.TypeofSched);
  lists->addWidget(AddCombo(&dialog, screen.Combo4));
  lists->addSpacing(Px(120));
  caption(screen.Week);
  lists->addWidget(AddCombo(&dialog, screen.Combo5));
  caption(screen.Daily);
  lists->addWidget(AddCombo(&dialog, screen.Combo2));
  lists->addLayout(ButtonRow(&dialog, {&screen.DAcmb, &screen.DDcmb, &screen.DECmb}));
  caption(screen.Monthly);
  lists->addWidget(AddCombo(&dialog, screen.Combo6));
  lists->addLayout(ButtonRow(&dialog, {&screen.DAcmb6, &screen.DDCmb6, &screen.DECmb6}));
  lists->addStretch();

  // Internal loads and the heat exchanger under the lists.
  auto* loads = new QHBoxLayout;
  loads->addWidget(Named<QCheckBox>(&dialog, screen.IDLcheck));
  loads->addWidget(Named<QLabel>(&dialog, screen.IDLChecktext));
  loads->addStretch();
  lists->addLayout(loads);
  auto* ild = Named<QLineEdit>(&dialog, screen.ILDName);
  ild->setMinimumWidth(Px(3800));
  lists->addWidget(ild);
  auto* heat = Named<QGroupBox>(&dialog, screen.Heatframe);
  auto* heat_layout = new QGridLayout(heat);
  heat_layout->addWidget(OptionPair(heat, screen.Option2, false), 0, 0);
  auto* bypass = Named<QGroupBox>(heat, screen.ByPassframe);
  auto* bypass_layout = new QVBoxLayout(bypass);
  bypass_layout->addWidget(OptionPair(bypass, screen.Option3, true));
  heat_layout->addWidget(bypass, 0, 1, 1, 3);
  heat_layout->addWidget(Named<QLabel>(heat, screen.Leff), 1, 1);
  auto* efficiency = Named<QLineEdit>(heat, screen.Lval);
  efficiency->setFixedWidth(Px(600));
  heat_layout->addWidget(efficiency, 1, 2);
  heat_layout->addWidget(Named<QLabel>(heat, screen.Lper), 1, 3);
  lists->addWidget(heat);

  // The hourly table on the right: loads or openings, the fill row under it.
  auto* hours = new QVBoxLayout;
  columns->addSpacing(Px(240));
  columns->addLayout(hours);
  hours->addWidget(Named<QLabel>(&dialog, screen.SHlab1));
  hours->addWidget(Named<QLabel>(&dialog, screen.SHlab2));
  const QFontMetrics metrics(dialog.font());
  screen.ScaleGridWidths(HeaderScale(metrics, screen.HVACGRID1));
  int loads_width = 0;
  for (int w : screen.HVACGRID1.col_widths) loads_width += w;
  hours->addWidget(AddGrid(&dialog, screen.HVACGRID1, kHours + 1, loads_width));
  hours->addWidget(AddGrid(&dialog, screen.HVACGRID2, kHours + 1, loads_width));
  auto* fill = AddGrid(&dialog, screen.HVACGRID1_Fill, 1, loads_width);
  fill->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  fill->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  hours->addWidget(fill);
  auto* tools = new QHBoxLayout;
  tools->addWidget(AddButton(&dialog, screen.Fill_Option));
  tools->addWidget(AddButton(&dialog, screen.HVACGRID_Clear));
  for (const Button* dormant : {&screen.Shcmb1, &screen.SHcmb2, &screen.SHcmb3}) {
    tools->addWidget(AddButton(&dialog, *dormant));
  }
  tools->addSpacing(Px(360));
  tools->addWidget(OptionPair(&dialog, screen.Option1, true));
  tools->addStretch();
  hours->addLayout(tools);
  hours->addStretch();

  root->addSpacing(Px(120));
  AddButtons(dialog, root, {&screen.Scmd1, &screen.Scmd2, &screen.Command1});

  // What the openings view hides keeps its room, so that the frames and
  // buttons around it stay where they were.
  for (const Control* control : std::initializer_list<const Control*>{
           &screen.IDLcheck, &screen.IDLChecktext, &screen.ILDName, &screen.HVACGRID_Clear,
           &screen.Scmd1, &screen.Scmd2, &screen.Command1}) {
    if (auto* widget = dialog.findChild<QWidget*>(Q(control->name()))) {
      QSizePolicy policy = widget->sizePolicy();
      policy.setRetainSizeWhenHidden(true);
      widget->setSizePolicy(policy);
    }
  }
}

}  // namespace zelmo::ui
