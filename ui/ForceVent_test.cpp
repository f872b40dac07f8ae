#include <gtest/gtest.h>

#include <QPushButton>
#include <QTableWidget>
#include <QTest>

#include "building/fluids_test_case.h"
#include "building/force_vent_screen.h"
#include "ui/test_support.h"

namespace zelmo::ui {
namespace {

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
