#include <QComboBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QScrollBar>
#include <QVBoxLayout>

#include "schedules/hvac_dialogs.h"
#include "ui/qt_text.h"
#include "ui/view_parts.h"
#include "ui/views.h"

namespace zelmo::ui {

namespace {

// A field with its spin arrows beside it; the upper arrow counts up.
void AddSpinField(QDialog& dialog, QGridLayout* grid, int row, int col, const Control& label,
                  const Control& field, const Control& spin) {
  grid->addWidget(Named<QLabel>(&dialog, label), row, col);
  auto* edit = Named<QLineEdit>(&dialog, field);
  edit->setFixedWidth(Px(600));
  grid->addWidget(edit, row, col + 1);
  auto* arrows = Named<QScrollBar>(&dialog, spin);
  arrows->setOrientation(Qt::Vertical);
  arrows->setFixedSize(Px(255), Px(375));
  grid->addWidget(arrows, row, col + 2);
}

// A caption and a field wide enough for a schedule's name.
void AddNameField(QDialog& dialog, QBoxLayout* layout, const Control& label, const Control& field) {
  auto* row = new QHBoxLayout;
  row->addWidget(Named<QLabel>(&dialog, label));
  auto* edit = Named<QLineEdit>(&dialog, field);
  edit->setFixedWidth(Px(3000));
  row->addStretch();
  row->addWidget(edit);
  layout->addLayout(row);
}

}  // namespace

void BuildDailyPeriod(Form& form, QDialog& dialog, Session&) {
  auto& screen = static_cast<DailyPeriodDialog&>(form);
  auto* layout = new QVBoxLayout(&dialog);
  auto* grid = new QGridLayout;
  grid->addWidget(Named<QLabel>(&dialog, screen.Label1), 0, 0, 1, 6);
  AddSpinField(dialog, grid, 1, 0, screen.Label2, screen.Text1, screen.D1);
  AddSpinField(dialog, grid, 1, 3, screen.Label3, screen.Text2, screen.M1);
  grid->addWidget(Named<QLabel>(&dialog, screen.Label4), 2, 0, 1, 6);
  AddSpinField(dialog, grid, 3, 0, screen.Label5, screen.Text3, screen.D2);
  AddSpinField(dialog, grid, 3, 3, screen.Label6, screen.Text4, screen.M2);
  layout->addLayout(grid);
  AddButtons(dialog, layout, {&screen.OkButton, &screen.CancelButton});
}

void BuildMonthlyPeriod(Form& form, QDialog& dialog, Session&) {
  auto& screen = static_cast<MonthlyPeriodDialog&>(form);
  auto* layout = new QVBoxLayout(&dialog);
  auto* grid = new QGridLayout;
  grid->addWidget(Named<QLabel>(&dialog, screen.Label1), 0, 0, 1, 3);
  AddSpinField(dialog, grid, 1, 0, screen.Label2, screen.MonthStart, screen.VScroll1);
  AddSpinField(dialog, grid, 2, 0, screen.Label3, screen.MonthEnd, screen.VScroll2);
  layout->addLayout(grid);
  AddButtons(dialog, layout, {&screen.OkButton, &screen.CancelButton});
}

void BuildScheduleName(Form& form, QDialog& dialog, Session&) {
  auto& screen = static_cast<ScheduleNameDialog&>(form);
  auto* layout = new QVBoxLayout(&dialog);
  AddNameField(dialog, layout, screen.Label1, screen.Text1);
  AddButtons(dialog, layout, {&screen.OkButton, &screen.CancelButton});
}

void BuildScheduleCopy(Form& form, QDialog& dialog, Session&) {
  auto& screen = static_cast<ScheduleCopyDialog&>(form);
  auto* layout = new QVBoxLayout(&dialog);
  AddNameField(dialog, layout, screen.Label1, screen.Text1);
  AddNameField(dialog, layout, screen.Label2, screen.Text2);
  AddButtons(dialog, layout, {&screen.OkButton, &screen.CancelButton});
}

void BuildVolumeCopy(Form& form, QDialog& dialog, Session&) {
  auto& screen = static_cast<VolumeCopyDialog&>(form);
  auto* layout = new QVBoxLayout(&dialog);
  auto* row = new QHBoxLayout;
  row->addWidget(Named<QLabel>(&dialog, screen.Label1));
  row->addWidget(Named<QComboBox>(&dialog, screen.Combo1));
  row->addStretch();
  layout->addLayout(row);
  AddButtons(dialog, layout, {&screen.Command1, &screen.Command2});
}

}  // namespace zelmo::ui
