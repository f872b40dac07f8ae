#include <gtest/gtest.h>

#include <QPushButton>
#include <QTableWidget>
#include <QTest>

#include "building/fluid_adv_screen.h"
#include "building/fluids_test_case.h"
#include "building/force_vent_screen.h"
#include "ui/test_support.h"

namespace zelmo::ui {
namespace {

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
  EXPECT_EQ(ok->text() + dialog->findChild<QPushButton*>("Command2")->text(), "&OK&Cancel");
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
  EXPECT_EQ(c.Bytes("ADVCONN.INP"), "1 - 2\t3.5\t2.1\r\n1 - 3\t4.25\t1.5\r\n");
  EXPECT_EQ(c.Bytes("FLUIDS.INP"), "1\t1\r\n2\t3\r\n3\t1\r\n");
  EXPECT_EQ(c.Bytes("THERMAL.INP"), "XXXXXX\r\n");
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
  EXPECT_EQ(c.Bytes("FORCEVEN.INP"), "0\t1\t25\r\n1\t2\t25\r\n");

  // Volume 2 sends its air out backward through the pair with Outdoor.
  for (int down = 0; down < 4; ++down) QTest::keyClick(grid, Qt::Key_Down);
  EXPECT_EQ(grid->currentRow(), 5);
  QTest::keyClick(grid, Qt::Key_Delete);
  QTest::keyClicks(grid, "-25,0");
  EXPECT_EQ(grid->item(5, 1)->text(), "-25.0");
  QTest::mouseClick(ok, Qt::LeftButton);
  EXPECT_TRUE(screen.unloaded);
  EXPECT_EQ(c.fake.dialogs.messages.size(), 1u);
  EXPECT_EQ(c.Bytes("FORCEVEN.INP"),
            "1\t2\t25\r\n1\t3\t0\r\n0\t1\t25\r\n2\t3\t0\r\n0\t2\t-25.0\r\n0\t3\t0\r\n");
  EXPECT_EQ(c.Bytes("THERMAL.INP"), "-----X\r\n");
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
