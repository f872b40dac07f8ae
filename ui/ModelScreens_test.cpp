#include <gtest/gtest.h>

#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QTableWidget>
#include <QTest>
#include <memory>

#include "building/fluid_adv_screen.h"
#include "building/fluids_test_case.h"
#include "building/force_vent_screen.h"
#include "building/genpars.h"
#include "building/surface_screen.h"
#include "building/surface_test_case.h"
#include "building/volume_surfaces_screen.h"
#include "core/testing/fakes.h"
#include "site/move_climatic_files.h"
#include "site/site_screen.h"
#include "ui/qt_dialogs.h"
#include "ui/qt_text.h"
#include "ui/test_support.h"

namespace zelmo::ui {
namespace {

using testing::ReadBytes;
using testing::WriteBytes;

constexpr const char* kKeys =
    "Latitude: 59.35\r\nLongitude: 18.07\r\nTime meridian: 15\r\n"
    "1:st day: 1995.01.01\r\nLast day: 1995.12.31\r\n";

// Clicks a check box or option on its box, whatever the width of the widget.
void ClickBox(QAbstractButton* box) {
  ASSERT_TRUE(box);
  QTest::mouseClick(box, Qt::LeftButton, {}, QPoint(8, box->height() / 2));
}

TEST(SiteView, ChoosesAClimateFileRefusesAFaultAndSaves) {
  testing::TempDir dir;
  testing::FakeSession fake;
  fake.ws().SystemPath = dir.path();
  fake.ws().CasePath = dir / "case1";
  WriteBytes(dir / "case1/THERMAL.INP", "------\r\n");
  WriteBytes(dir / "Climate/Sthlm.CLI", std::string("X1 Stockholm\r\n") + kKeys);
  WriteBytes(dir / "Climate/Calm.cli", std::string("X0 no wind\r\n") + kKeys);
  Site site(fake.session);
  auto dialog = ShowScreen(site, fake.session);
  ASSERT_TRUE(dialog);
  EXPECT_EQ(dialog->findChild<QLabel*>("Label2")->text(),
            QString::fromUtf8("°   ( -90.0 to 90.0, positive to the north )"));
  auto* files = dialog->findChild<QListWidget*>("File1");
  auto* wind = dialog->findChild<QCheckBox*>("Wind");
  auto* terrain = dialog->findChild<QGroupBox*>("Terrain");
  auto* winddata = dialog->findChild<QLabel*>("Winddata");
  auto* latitude = dialog->findChild<QLineEdit*>("Latitude");
  auto* ok = dialog->findChild<QPushButton*>("Command1");
  ASSERT_TRUE(files && wind && terrain && winddata && latitude && ok);
  EXPECT_EQ(files->count(), 2);
  EXPECT_FALSE(winddata->isVisible());

  ClickItem(files, "Calm.cli");
  EXPECT_EQ(latitude->text(), "59.35");
  EXPECT_FALSE(wind->isVisible());
  EXPECT_EQ(winddata->text(), "Hourly wind data is not used in HVAC-calculations");
  EXPECT_EQ(winddata->palette().color(QPalette::WindowText), QColor(250, 0, 0));
  ClickItem(files, "Sthlm.CLI");
  EXPECT_TRUE(wind->isVisible() && !terrain->isVisible());
  ClickBox(wind);
  EXPECT_TRUE(terrain->isVisible());
  ClickBox(dialog->findChild<QRadioButton*>("Option5(3)"));
  EXPECT_TRUE(fake.dialogs.messages.empty());

  // One click reads the file once: a file without keys says so once per key.
  WriteBytes(dir / "Climate/Bare.cli", "X1\r\n");
  site.folder_lists().Refresh();
  dialog->findChild<QPushButton*>("Command3")->click();  // any event brings the lists in line
  ClickItem(files, "Bare.cli");
  EXPECT_EQ(fake.dialogs.messages.size(), 5u);
  EXPECT_EQ(latitude->text(), "");
  ClickItem(files, "Sthlm.CLI");
  fake.dialogs.Clear();

  // A refusal keeps the window, the faulty field focused with its text selected.
  latitude->selectAll();
  QTest::keyClicks(latitude, "95");
  QTest::mouseClick(ok, Qt::LeftButton);
  EXPECT_EQ(fake.dialogs.Texts(), testing::Strings{"Latitude must be a value (-90 -  90)\r"});
  EXPECT_TRUE(dialog->isVisible());
  EXPECT_EQ(dialog->focusWidget(), latitude);
  EXPECT_EQ(latitude->selectedText(), "95");
  QTest::keyClicks(latitude, "59.3");
  QTest::mouseClick(ok, Qt::LeftButton);
  EXPECT_TRUE(site.unloaded);
  EXPECT_EQ(ReadBytes(dir / "case1/SITE.INP").substr(0, 13), "59.3\t 1\t 3\t\r\n");
}

TEST(GenParsView, ShowsTheDefaultsAndFollowsTheOptions) {
  testing::TempDir dir;
  testing::FakeSession fake;
  fake.ws().CasePath = dir.path();
  GenPars pars(fake.session);
  auto dialog = ShowScreen(pars, fake.session);
  ASSERT_TRUE(dialog);
  auto* inter = dialog->findChild<QLineEdit*>("Inter");
  auto* exter = dialog->findChild<QLineEdit*>("Exter");
  ASSERT_TRUE(inter && exter);
  EXPECT_FALSE(inter->isEnabled());
  EXPECT_EQ(inter->text(), "-1");
  ClickBox(dialog->findChild<QRadioButton*>("Option3"));
  EXPECT_TRUE(inter->isEnabled());
  EXPECT_EQ(inter->text(), "");
  EXPECT_FALSE(dialog->findChild<QRadioButton*>("Option2")->isChecked());
  ClickBox(dialog->findChild<QRadioButton*>("Option1(1)"));
  EXPECT_EQ(exter->text(), "15.0");
  EXPECT_EQ(exter->palette().color(QPalette::Text), QColor(0, 0, 255));
  EXPECT_FALSE(dialog->findChild<QRadioButton*>("Option1(0)")->isChecked());
}

TEST(MoveClimaticFilesView, ListsTheClimateFilesOfTheChosenFolder) {
  testing::TempDir dir;
  testing::FakeSession fake;
  fake.ws().SystemPath = dir / "Zelmo";
  fake.ws().LocalPath = dir / "Downloads";
  WriteBytes(dir / "Downloads/Lund.cli", "lund");
  WriteBytes(dir / "Downloads/old/Kiruna.CLI", "kiruna");
  MoveClimaticFiles screen(fake.session);
  auto dialog = ShowScreen(screen, fake.session);
  ASSERT_TRUE(dialog);
  auto* dirs = dialog->findChild<QListWidget*>("Dir1");
  auto* files = dialog->findChild<QListWidget*>("File1");
  ASSERT_TRUE(dirs && files);
  EXPECT_EQ(files->count(), 1);
  auto found = dirs->findItems("old", Qt::MatchEndsWith);
  ASSERT_EQ(found.size(), 1);
  // A folder opens by a double click on it.
  QPoint old = dirs->visualItemRect(found[0]).center();
  QTest::mouseClick(dirs->viewport(), Qt::LeftButton, {}, old);
  QTest::mouseDClick(dirs->viewport(), Qt::LeftButton, {}, old);
  EXPECT_EQ(dialog->findChild<QLabel*>("Selecteddirectory")->text().toStdString(),
            dir / "Downloads/old");
  ASSERT_EQ(files->count(), 1);
  EXPECT_EQ(files->item(0)->text(), "Kiruna.CLI");
  QTest::mouseClick(dialog->findChild<QPushButton*>("Copy"), Qt::LeftButton);
  EXPECT_EQ(fake.dialogs.Last().title, "Move message");
  EXPECT_EQ(ReadBytes(dir / "Zelmo/Climate/Kiruna.CLI"), "kiruna");
}

using zelmo::testing::OuterWall;

TEST(SurfaceView, ShowsTheElementAndRefusesAFaultyOne) {
  TestApp();
  zelmo::testing::SurfaceCase c;
  auto hole = OuterWall();
  const std::pair<int, const char*> door[] = {{0, "2"},     {6, "1"},  {7, "2"},    {9, "2.5"},
                                              {10, "0.05"}, {11, "1"}, {12, "2.1"}, {13, "1.9"},
                                              {21, "2"},    {28, "0"}};
  for (const auto& [field, text] : door) hole[field] = text;
  c.Elements({{"South", OuterWall()}, {"Door wall", hole}});
  Surface screen(c.fake.session);
  auto dialog = ShowScreen(screen, c.fake.session);
  ASSERT_TRUE(dialog);
  auto* list = dialog->findChild<QListWidget*>("SurfList");
  auto* wall = dialog->findChild<QComboBox*>("M_Wall");
  auto* a = dialog->findChild<QLineEdit*>("A");
  auto* c_dim = dialog->findChild<QLineEdit*>("C");
  auto* hole_frame = dialog->findChild<QGroupBox*>("HoleWallFrame");
  ASSERT_TRUE(list && wall && a && c_dim && hole_frame);
  EXPECT_EQ(
      list->item(1)->text() + "|" + wall->currentText() + "|" + wall->itemText(1) + "|" + a->text(),
      "2  | Door wall|1  | Outer wall|0  | Shading screen|5");
  EXPECT_FALSE(c_dim->isEnabled() || hole_frame->isEnabled());

  // The element with the door hole: its frames and the leakage area.
  list->setCurrentRow(1);
  EXPECT_EQ(dialog->windowTitle(), "Building element (Door wall)");
  EXPECT_TRUE(hole_frame->isEnabled() && c_dim->isEnabled());
  EXPECT_FALSE(dialog->findChild<QPushButton*>("Command4")->isVisibleTo(dialog.get()));
  SaveShot(dialog.get(), "Surface_hole");

  // A fault keeps the user on the element, with the gathered message.
  a->setFocus();
  a->selectAll();
  QTest::keyClicks(a, "0");
  // Clicked as a user does: the press that picks the row selects it too, and
  // the refused row must not stay highlighted.
  QTest::mouseClick(list->viewport(), Qt::LeftButton, {},
                    list->visualItemRect(list->item(0)).center());
  QCoreApplication::processEvents();
  EXPECT_EQ(c.fake.dialogs.Texts(),
            testing::Strings{"A must be a value ( 0 -  999999)\rA - F must be >=  .01\r"});
  EXPECT_EQ(list->currentRow(), 1);
  EXPECT_EQ(list->selectedItems(), QList<QListWidgetItem*>{list->item(1)});
  EXPECT_TRUE(a->hasFocus() || !dialog->isActiveWindow());

  // The shading screen changes the labels of the main wall.
  QTest::keyClicks(a, "\b4");
  list->setCurrentRow(0);
  wall->setCurrentIndex(1);
  emit wall->activated(1);
  EXPECT_EQ(dialog->findChild<QLabel*>("LabelMAbsF")->text() + "|" +
                dialog->findChild<QLabel*>("LabelMAbsB")->text() + "|" +
                dialog->findChild<QLineEdit*>("Leakage")->text(),
            "Absorptance:| % Trans:|0");
  SaveShot(dialog.get(), "Surface_shading");
}

TEST(SurfaceView, ShapesPictureAndVolumeCounts) {
  TestApp();
  zelmo::testing::FakeSession fake;
  ShapesPicture picture(fake.ws());
  auto shapes = ShowScreen(picture, fake.session);
  ASSERT_TRUE(shapes);
  auto* canvas = shapes->findChild<QWidget*>("Picture1");
  ASSERT_TRUE(canvas);
  // A picture on white, as printed.
  EXPECT_EQ(canvas->grab().toImage().pixelColor(2, 2), QColor(Qt::white));

  SurfaceTable table;
  table.SurfName[1] = "W";
  table.SurfData[1][7] = "0";
  table.SurfData[1][8] = "2";
  table.SurfCount = 1;
  VolumeSurfaces counts(fake.session, CountFacings(table));
  auto dialog = ShowScreen(counts, fake.session);
  ASSERT_TRUE(dialog);
  QTest::mouseClick(dialog->findChild<QPushButton*>("Command1"), Qt::LeftButton);
  EXPECT_TRUE(counts.unloaded);
}

void ClickCell(QTableWidget* table, int row, int col) {
  QRect rect = table->visualItemRect(table->item(row, col));
  QTest::mouseClick(table->viewport(), Qt::LeftButton, {}, rect.center());
}

TEST(FluidAdvView, ShowsBothGridsMarksFluidsAndTypesNumbers) {
  testing::FluidsCase c;
  c.Elements({{"1", "2"}, {"2", "0"}, {"3", "1"}});
  c.Put("FLUIDS.INP", "1\t1\r\n2\t2\r\n");
  c.Put("ADVCONN.INP", "1 - 2\t3.5\t2.1\r\n");
  FluidAdv screen(c.fake.session);
  auto dialog = ShowScreen(screen, c.fake.session);
  ASSERT_TRUE(dialog);
  dialog->activateWindow();
  auto* ok = dialog->findChild<QPushButton*>("Command1");
  auto* fluids = dialog->findChild<QTableWidget*>("FluidList");
  auto* conns = dialog->findChild<QTableWidget*>("AdvConnList");
  ASSERT_TRUE(fluids && conns);
  EXPECT_EQ(Cells(fluids),
            (testing::Strings{"Volume|Air|(Water)|(Rock)", "1|X||", "2||X|", "3|X||"}));
  EXPECT_EQ(Cells(conns),
            (testing::Strings{"Volumes|Distance (m)|Area (m2)", "1 - 2|3.5|2.1", "1 - 3|0|0"}));

  ClickCell(fluids, 2, 3);
  EXPECT_EQ(Cells(fluids)[2], "2|||X");
  EXPECT_TRUE(screen.dirty());

  ClickCell(conns, 2, 1);
  conns->setFocus();
  QTest::keyClick(conns, Qt::Key_Delete);
  QTest::keyClicks(conns, "4a,25");
  EXPECT_EQ(conns->item(2, 1)->text() + "|" + screen.AdvConnList.Cell(2, 1).c_str(), "4.25|4.25");
  QTest::keyClick(conns, Qt::Key_Right);
  EXPECT_EQ(conns->currentColumn(), 2);
  QTest::keyClick(conns, Qt::Key_Delete);
  EXPECT_EQ(conns->item(2, 2)->text(), "");
  QTest::keyClick(conns, Qt::Key_Home);
  EXPECT_EQ(conns->currentColumn(), 1);

  // The empty area is refused and its cell made current.
  QTest::mouseClick(ok, Qt::LeftButton);
  EXPECT_EQ(c.fake.dialogs.Texts(), testing::Strings{"Area must be a value (0 - 1000000)"});
  EXPECT_FALSE(screen.unloaded);
  EXPECT_EQ(QPoint(conns->currentColumn(), conns->currentRow()), QPoint(2, 2));
  EXPECT_EQ(dialog->focusWidget(), conns);

  QTest::keyClicks(conns, "1,5");
  QTest::mouseClick(ok, Qt::LeftButton);
  EXPECT_TRUE(screen.unloaded);
  EXPECT_EQ(c.Bytes("ADVCONN.INP") + c.Bytes("FLUIDS.INP"),
            "1 - 2\t3.5\t2.1\r\n1 - 3\t4.25\t1.5\r\n1\t1\r\n2\t3\r\n3\t1\r\n");
}

TEST(FluidAdvView, EscapeAsksToSaveAndStays) {
  testing::FluidsCase c;
  c.Elements({{"1", "2"}});
  FluidAdv screen(c.fake.session);
  auto dialog = ShowScreen(screen, c.fake.session);
  ASSERT_TRUE(dialog);
  auto* conns = dialog->findChild<QTableWidget*>("AdvConnList");
  conns->setFocus();
  QTest::keyClicks(conns, "8");
  c.fake.dialogs.answers = {Answer::kCancel};
  QTest::keyClick(dialog.get(), Qt::Key_Escape);
  EXPECT_EQ(c.fake.dialogs.Last().title, "Save");
  EXPECT_FALSE(screen.unloaded);
  EXPECT_TRUE(dialog->isVisible());
  c.fake.dialogs.answers = {Answer::kNo};
  dialog->close();
  EXPECT_TRUE(screen.unloaded);
  EXPECT_FALSE(testing::Exists(c.dir / "ADVCONN.INP"));
}

TEST(ForceVentView, RefusesAnUnbalancedVolumeThenSavesTheBalance) {
  testing::FluidsCase c;
  c.Elements({{"1", "2"}, {"0", "1"}, {"2", "3"}});
  c.Put("FORCEVEN.INP", "0\t1\t25\r\n1\t2\t25\r\n");
  ForceVent screen(c.fake.session);
  auto dialog = ShowScreen(screen, c.fake.session);
  ASSERT_TRUE(dialog);
  dialog->activateWindow();
  auto* grid = dialog->findChild<QTableWidget*>("Grid1");
  ASSERT_TRUE(grid);
  EXPECT_EQ(Cells(grid), (testing::Strings{"Volumes|Flow (l/s)", "1 -> 2|25", "1 -> 3|0",
                                           "0 -> 1|25", "2 -> 3|0", "0 -> 2|0", "0 -> 3|0"}));

  auto* ok = dialog->findChild<QPushButton*>("Command1");
  QTest::mouseClick(ok, Qt::LeftButton);
  EXPECT_EQ(
      c.fake.dialogs.messages,
      (std::vector<testing::ShownMessage>{{"Volume 2: -25\r", mb::kExclamation, "NO BALANCE"}}));
  EXPECT_EQ(QPoint(grid->currentColumn(), grid->currentRow()), QPoint(1, 1));
  EXPECT_EQ(dialog->focusWidget(), grid);

  // Volume 2 sends its air out backward through the pair with Outdoor.
  for (int down = 0; down < 4; ++down) QTest::keyClick(grid, Qt::Key_Down);
  EXPECT_EQ(grid->currentRow(), 5);
  QTest::keyClick(grid, Qt::Key_Delete);
  QTest::keyClicks(grid, "-25,0");
  EXPECT_EQ(grid->item(5, 1)->text(), "-25.0");
  QTest::mouseClick(ok, Qt::LeftButton);
  EXPECT_TRUE(screen.unloaded);
  EXPECT_EQ(c.Bytes("FORCEVEN.INP"),
            "1\t2\t25\r\n1\t3\t0\r\n0\t1\t25\r\n2\t3\t0\r\n0\t2\t-25.0\r\n0\t3\t0\r\n");
}

TEST(ForceVentView, DoesNotOpenForOneVolume) {
  TestApp();
  testing::FluidsCase c;
  c.Elements({{"0", "1"}});
  ForceVent screen(c.fake.session);
  EXPECT_FALSE(BuildScreen(screen, c.fake.session));
  EXPECT_EQ(c.fake.dialogs.Texts(), testing::Strings{"There are less than two volumes"});
}

}  // namespace
}  // namespace zelmo::ui
