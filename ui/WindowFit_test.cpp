// Windows as wide as their titles, with no empty band in them, frames that
// stay where they are, and library grids whose header line stays at the top
// and is never chosen.
#include <gtest/gtest.h>

#include <QApplication>
#include <QGroupBox>
#include <QHeaderView>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QStyle>
#include <QTableWidget>
#include <QTimer>
#include <functional>
#include <memory>

#include "core/inpbox.h"
#include "core/testing/fakes.h"
#include "libraries/library_test_case.h"
#include "libraries/moveins_screen.h"
#include "libraries/opaque_screen.h"
#include "libraries/walls_screen.h"
#include "libraries/window_types_screen.h"
#include "schedules/hvac_dialogs.h"
#include "schedules/hvac_screen.h"
#include "site/site_screen.h"
#include "ui/test_support.h"

namespace zelmo::ui {
namespace {

// The room a title needs: its text in bold, as title bars set it, and the
// three buttons of the bar, each about as wide as the bar is high.
int TitleRoom(const QWidget& window) {
  QFont bold = window.font();
  bold.setBold(true);
  const int bar = window.style()->pixelMetric(QStyle::PM_TitleBarHeight, nullptr, &window);
  return QFontMetrics(bold).horizontalAdvance(window.windowTitle()) + 3 * bar;
}

std::unique_ptr<QDialog> Built(Form& form, Session& session) {
  TestApp();
  std::unique_ptr<QDialog> dialog(BuildScreen(form, session));
  EXPECT_TRUE(dialog) << form.name();
  if (dialog) dialog->show();
  return dialog;
}

// The width of the message box that `show` opens, read while it is shown.
int MessageBoxWidth(const std::function<void()>& show, QString* title) {
  int width = 0;
  QTimer::singleShot(0, [&width, title] {
    QWidget* box = QApplication::activeModalWidget();
    ASSERT_TRUE(box);
    width = box->width() - TitleRoom(*box);
    *title = box->windowTitle();
    SaveShot(box, "MessageBox_" + S(*title).substr(0, 14));
    box->close();
  });
  show();
  return width;
}

TEST(WindowFit, EveryWindowHoldsItsWholeTitle) {
  TestApp();
  testing::FakeSession fake;
  QtDialogs dialogs(fake.session);
  fake.session.dialogs = &dialogs;
  ScheduleDialogResult result;

  InpBox box(fake.session);
  box.Prepare("Type a name ", "", "Add Walls/Floors/Roofs/Doors", 20, false);
  MonthlyPeriodDialog add(fake.session, result, {});
  MonthlyPeriodDialog edit(fake.session, result, {"1-3"}, 0);
  DailyPeriodDialog daily(fake.session, result, BuildDateTable({}));
  for (Form* form : std::initializer_list<Form*>{&box, &add, &edit, &daily}) {
    auto dialog = Built(*form, fake.session);
    ASSERT_TRUE(dialog);
    SaveShot(dialog.get(), form->name());
    EXPECT_GE(dialog->width(), TitleRoom(*dialog)) << form->caption;
  }
  // Message boxes with a short text under a long title.
  for (const char* title : {"Daily operating periods - check", "HVAC - Schedules",
                            "Monthly operating periods - check"}) {
    QString shown;
    EXPECT_GE(MessageBoxWidth([&] { dialogs.MsgBox("No", mb::kExclamation, title); }, &shown), 0)
        << title;
    EXPECT_EQ(S(shown), title);
  }
}

// Whole rows of the library grids are chosen, never their header line,
// which stays in sight however far the rows scroll.
TEST(WindowFit, TheHeaderLineOfALibraryGridStaysAndIsNeverChosen) {
  testing::LibraryCase c;
  c.Put("OPAQUE.LIB", testing::Materials(47, {48, 49}));
  std::string curtains;
  for (int t = 1; t <= 30; ++t) curtains += std::to_string(t) + "\tC\t10\t20\t.5\r\n";
  c.Put("MOVEINS.LIB", curtains);
  c.Put("WALLS.LIB", "1\tOuter\r\n\t1\t100\r\n\t2\t50\r\n");
  Session& session = c.fake.session;
  OpaqueMtrl materials(session);
  MoveIns moveins(session);
  Walls walls(session);
  const struct {
    Form* form;
    const char* grid;
    const char* first_heading;
  } rows[] = {{&materials, "OpaqueList", "Type"},
              {&moveins, "MoveInsList", "Type"},
              {&walls, "WallLayerList", nullptr}};
  for (const auto& row : rows) {
    auto dialog = Built(*row.form, session);
    ASSERT_TRUE(dialog);
    auto* table = dialog->findChild<QTableWidget*>(row.grid);
    ASSERT_TRUE(table) << row.grid;
    auto* grid = static_cast<Grid*>(row.form->Find(row.grid));
    EXPECT_TRUE(table->isRowHidden(0)) << row.grid;
    QHeaderView* header = table->horizontalHeader();
    EXPECT_TRUE(header->isVisible()) << row.grid;
    for (int col = 0; col < table->columnCount(); ++col) {
      EXPECT_EQ(S(table->horizontalHeaderItem(col)->text()), grid->Cell(0, col)) << row.grid;
    }
    if (row.first_heading) {
      EXPECT_EQ(S(table->horizontalHeaderItem(0)->text()), row.first_heading);
    }
    // Scrolled to the end, the header line is still at the top.
    table->verticalScrollBar()->setValue(table->verticalScrollBar()->maximum());
    EXPECT_TRUE(header->isVisible());
    EXPECT_EQ(header->geometry().top(), table->frameWidth()) << row.grid;
    // Back at the top, a click on the first line shown chooses row 1, and
    // the key up stays there.
    table->verticalScrollBar()->setValue(0);
    const QRect first = table->visualItemRect(table->item(1, 0));
    QTest::mouseClick(table->viewport(), Qt::LeftButton, {}, first.center());
    EXPECT_EQ(grid->row, 1) << row.grid;
    QTest::keyClick(table, Qt::Key_Up);
    QTest::keyClick(table, Qt::Key_PageUp);
    EXPECT_EQ(grid->row, 1) << row.grid;
    QTest::mouseClick(header->viewport(), Qt::LeftButton, {}, QPoint(5, header->height() / 2));
    EXPECT_EQ(grid->row, 1) << row.grid;
    SaveShot(dialog.get(), row.form->name() + "_scrolled");
  }
  // With the header line out of reach, Edit and Delete of the curtains act
  // on a curtain.
  EXPECT_TRUE(moveins.Command3D2.enabled && moveins.Command3D4.enabled);
}

// The widget `name` ends near the bottom of the window: no empty band under
// it.
void ExpectNoBandUnder(QDialog& dialog, const char* name) {
  auto* widget = dialog.findChild<QWidget*>(name);
  ASSERT_TRUE(widget) << name;
  const int bottom = widget->mapTo(&dialog, QPoint(0, widget->height())).y();
  const int margin = dialog.style()->pixelMetric(QStyle::PM_LayoutBottomMargin, nullptr, &dialog);
  EXPECT_LE(dialog.height() - bottom, margin + Px(150)) << S(dialog.objectName()) << " " << name;
}

TEST(WindowFit, NoEmptyBandUnderTheGridsAndFields) {
  testing::LibraryCase c;
  c.Put("OPAQUE.LIB", testing::Materials(47, {48}));
  Session& session = c.fake.session;
  OpaqueMtrl materials(session);
  auto dialog = Built(materials, session);
  ASSERT_TRUE(dialog);
  ExpectNoBandUnder(*dialog, "Command1");
  // Between the grid and the buttons under it no more than a spacing.
  auto* table = dialog->findChild<QTableWidget*>("OpaqueList");
  auto* add = dialog->findChild<QPushButton*>("Command1");
  EXPECT_LE(add->mapTo(dialog.get(), QPoint(0, 0)).y() - table->geometry().bottom(), Px(300));
  SaveShot(dialog.get(), "OpaqueMtrl");

  AddGaGl pane(session);
  dialog = Built(pane, session);
  ASSERT_TRUE(dialog);
  ExpectNoBandUnder(*dialog, "Command1");
  SaveShot(dialog.get(), "AddGaGl");

  c.fake.ws().SystemPath = c.dir.path();
  Site site(session);
  dialog = Built(site, session);
  ASSERT_TRUE(dialog);
  ExpectNoBandUnder(*dialog, "Terrain");
  ExpectNoBandUnder(*dialog, "Command1");
  SaveShot(dialog.get(), "Site");
}

TEST(WindowFit, TheSchedulesFramesStayWhenTheOpeningsShow) {
  TestApp();
  testing::TempDir dir;
  testing::FakeSession fake;
  fake.ws().CasePath = dir.path();
  const std::string example =
      std::string(qgetenv("ZELMO_SOURCE_DIR").constData()) + "/system/tree/ZELMOPROJ/Example/Case1";
  for (const char* name : {"SURFACE.INP", "THERMAL.INP", "HVAC_Cal.Inp"}) {
    testing::WriteBytes(dir / name, testing::ReadBytes(JoinPath(example, name)));
  }
  HVAC screen(fake.session);
  auto dialog = Built(screen, fake.session);
  ASSERT_TRUE(dialog);
  auto place = [&dialog](const char* name) {
    auto* widget = dialog->findChild<QWidget*>(name);
    EXPECT_TRUE(widget) << name;
    return widget ? widget->mapTo(dialog.get(), QPoint(0, 0)) : QPoint();
  };
  const QPoint heat = place("Heatframe"), ok = place("Command1"), grid = place("HVACGRID1");
  const QSize size = dialog->size();
  dialog->findChild<QAbstractButton*>("Option1(1)")->click();
  ASSERT_TRUE(screen.openings_view());
  SaveShot(dialog.get(), "HVAC_openings");
  EXPECT_EQ(place("Heatframe"), heat);
  EXPECT_EQ(place("HVACGRID2"), grid);
  EXPECT_EQ(dialog->size(), size);
  dialog->findChild<QAbstractButton*>("Option1(0)")->click();
  EXPECT_EQ(place("Command1"), ok);
}

}  // namespace
}  // namespace zelmo::ui
