#include <gtest/gtest.h>

#include <QPushButton>
#include <QTableWidget>
#include <QTest>
#include <memory>

#include "building/fluids_test_case.h"
#include "building/force_vent_screen.h"
#include "ui/qt_dialogs.h"
#include "ui/test_support.h"

namespace zelmo::ui {
namespace {

TEST(ForceVentView, RefusesAnUnbalancedVolumeThenSavesTheBalance) {
  TestApp();
  testing::FluidsCase c;
  c.Elements({{"1", "2"}, {"0", "1"}, {"2", "3"}});
  c.Put("FORCEVEN.INP", "0\t1\t25\r\n1\t2\t25\r\n");
  ForceVent screen(c.fake.session);
  std::unique_ptr<QDialog> dialog(BuildScreen(screen, c.fake.session));
  ASSERT_TRUE(dialog);
  dialog->show();
  dialog->activateWindow();
  SaveShot(dialog.get(), "ForceVent");
  EXPECT_EQ(dialog->windowTitle(), "Forced ventilation");
  auto* grid = dialog->findChild<QTableWidget*>("Grid1");
  ASSERT_TRUE(grid);
  ASSERT_EQ(grid->rowCount(), 7);
  EXPECT_EQ(grid->item(0, 0)->text(), "Volumes");
  EXPECT_EQ(grid->item(0, 1)->text(), "Flow (l/s)");
  const char* pairs[] = {"1 -> 2", "1 -> 3", "0 -> 1", "2 -> 3", "0 -> 2", "0 -> 3"};
  for (int row = 1; row <= 6; ++row) EXPECT_EQ(grid->item(row, 0)->text(), pairs[row - 1]);
  EXPECT_EQ(grid->item(3, 1)->text(), "25");

  auto* ok = dialog->findChild<QPushButton*>("Command1");
  QTest::mouseClick(ok, Qt::LeftButton);
  ASSERT_EQ(c.fake.dialogs.messages.size(), 1u);
  EXPECT_EQ(c.fake.dialogs.Last().title, "NO BALANCE");
  EXPECT_EQ(c.fake.dialogs.Last().text, "Volume 2: -25\r");
  EXPECT_EQ(grid->currentRow(), 1);
  EXPECT_EQ(grid->currentColumn(), 1);
  EXPECT_EQ(dialog->focusWidget(), grid);
  EXPECT_EQ(c.Bytes("FORCEVEN.INP"), "0\t1\t25\r\n1\t2\t25\r\n");

  // Volume 2 sends its air out backward through the pair with Outdoor.
  QTest::keyClick(grid, Qt::Key_Down);
  QTest::keyClick(grid, Qt::Key_Down);
  QTest::keyClick(grid, Qt::Key_Down);
  QTest::keyClick(grid, Qt::Key_Down);
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
  std::unique_ptr<QDialog> dialog(BuildScreen(screen, c.fake.session));
  EXPECT_FALSE(dialog);
  EXPECT_EQ(c.fake.dialogs.Last().text, "There are less than two volumes");
}

}  // namespace
}  // namespace zelmo::ui
