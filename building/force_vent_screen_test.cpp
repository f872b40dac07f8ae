#include "building/force_vent_screen.h"

#include <gtest/gtest.h>

#include "building/fluids_test_case.h"
#include "core/guard.h"

namespace zelmo {
namespace {

using testing::FluidsCase;

void Type(ForceVent& screen, int row, const std::string& text) {
  screen.Grid1.row = row;
  screen.Grid1.col = 1;
  int del = keys::kDelete;
  screen.FlowKeyPress(del);
  for (char ch : text) {
    int key = static_cast<unsigned char>(ch);
    screen.FlowKeyPress(key);
  }
}

TEST(ForceVentScreen, AVolumeCodePastTheTablesIsADamagedElementFile) {
  for (const char* bad : {"9", "-2", "99999999999"}) {
    FluidsCase c;
    c.Elements({{"0", "1"}, {"1", bad}});
    ForceVent screen(c.fake.session);
    EXPECT_FALSE(RunGuarded(c.fake.dialogs, [&screen] { screen.Load(); }));
    ASSERT_EQ(c.fake.dialogs.messages.size(), 1u);
    EXPECT_EQ(c.fake.dialogs.Last().text,
              "Subscript out of range\r" + (c.dir / "SURFACE.INP") + ", line 39");
    EXPECT_FALSE(testing::Exists(c.dir / "FORCEVEN.INP"));
    EXPECT_EQ(c.Bytes("THERMAL.INP"), "------\r\n");
  }
}

TEST(ForceVentScreen, ClosesWithoutTwoVolumes) {
  FluidsCase none;
  none.Elements({{"0", "0"}, {"-1", "0"}});
  ForceVent empty(none.fake.session);
  empty.Load();
  EXPECT_TRUE(empty.unloaded);
  ASSERT_EQ(none.fake.dialogs.messages.size(), 1u);
  EXPECT_EQ(none.fake.dialogs.Last().text, "There are no volumes");
  EXPECT_EQ(none.fake.dialogs.Last().title, "MESSAGE");

  FluidsCase one;
  one.Elements({{"0", "1"}, {"-1", "1"}});
  ForceVent single(one.fake.session);
  single.Load();
  EXPECT_TRUE(single.unloaded);
  ASSERT_EQ(one.fake.dialogs.messages.size(), 1u);
  EXPECT_EQ(one.fake.dialogs.Last().text, "There are less than two volumes");
  EXPECT_EQ(one.fake.dialogs.Last().title, "MESSAGE");
}

TEST(ForceVentScreen, PairsInOrderWithTheFlowsOfTheFile) {
  FluidsCase c;
  c.Elements({{"0", "3"}, {"1", "3"}, {"-1", "1"}});
  c.Put("FORCEVEN.INP", "0\t1\t25\r\n1\t3\t25\r\n0\t3\t-25\r\n0\t2\t5\r\n2\t3\t5\r\n");
  ForceVent screen(c.fake.session);
  screen.Load();
  ASSERT_FALSE(screen.unloaded);
  const Grid& grid = screen.Grid1;
  ASSERT_EQ(grid.rows(), 4);
  EXPECT_EQ(grid.Cell(0, 0), "Volumes");
  EXPECT_EQ(grid.Cell(0, 1), "Flow (l/s)");
  EXPECT_EQ(grid.Cell(1, 0), "1 -> 3");
  EXPECT_EQ(grid.Cell(2, 0), "0 -> 1");
  EXPECT_EQ(grid.Cell(3, 0), "0 -> 3");
  EXPECT_EQ(grid.Cell(1, 1), "25");
  EXPECT_EQ(grid.Cell(2, 1), "25");
  EXPECT_EQ(grid.Cell(3, 1), "-25");

  // Balanced by the backward flow; the rows of Volume 2 are gone, and only
  // the last module must run again.
  screen.Ok();
  EXPECT_TRUE(screen.unloaded);
  EXPECT_TRUE(c.fake.dialogs.messages.empty());
  EXPECT_EQ(c.Bytes("FORCEVEN.INP"), "1\t3\t25\r\n0\t1\t25\r\n0\t3\t-25\r\n");
  EXPECT_EQ(c.Bytes("THERMAL.INP"), "-----X\r\n");
}

TEST(ForceVentScreen, FlowsMustBeNumbersWithinTheirBounds) {
  FluidsCase c;
  c.Elements({{"1", "2"}});
  ForceVent screen(c.fake.session);
  screen.Load();
  ASSERT_EQ(screen.Grid1.rows(), 4);
  Type(screen, 2, "-");
  screen.Ok();
  EXPECT_FALSE(screen.unloaded);
  ASSERT_EQ(c.fake.dialogs.messages.size(), 1u);
  EXPECT_EQ(c.fake.dialogs.Last().text, "Litres/second must be a value (-20000 - 20000)");
  EXPECT_EQ(c.fake.dialogs.Last().title, "MESSAGE");
  EXPECT_EQ(screen.focus, "Grid1");
  EXPECT_EQ(screen.Grid1.row, 2);
  EXPECT_EQ(screen.Grid1.col, 1);

  Type(screen, 2, "20000");
  Type(screen, 3, "-20000,5");
  EXPECT_EQ(screen.Grid1.Cell(3, 1), "-20000.5");
  screen.focus.clear();
  screen.Ok();
  EXPECT_EQ(c.fake.dialogs.messages.size(), 2u);
  EXPECT_EQ(c.fake.dialogs.Last().text, "Litres/second must be a value (-20000 - 20000)");
  EXPECT_EQ(screen.Grid1.row, 3);
  EXPECT_FALSE(testing::Exists(c.dir / "FORCEVEN.INP"));

  // Letters never enter a flow cell; a sign does.
  Type(screen, 1, "+1a2");
  EXPECT_EQ(screen.Grid1.Cell(1, 1), "+12");
}

TEST(ForceVentScreen, UnbalancedVolumesAreRefusedTogether) {
  FluidsCase c;
  c.Elements({{"1", "2"}, {"2", "0"}});
  ForceVent screen(c.fake.session);
  screen.Load();
  Type(screen, 1, "10");     // 1 -> 2
  Type(screen, 2, "30");     // 0 -> 1
  Type(screen, 3, "-20,5");  // 0 -> 2, backward
  screen.Grid1.row = 3;
  screen.Ok();
  EXPECT_FALSE(screen.unloaded);
  ASSERT_EQ(c.fake.dialogs.messages.size(), 1u);
  EXPECT_EQ(c.fake.dialogs.Last().text, "Volume 1: -20\rVolume 2: 10.5\r");
  EXPECT_EQ(c.fake.dialogs.Last().title, "NO BALANCE");
  EXPECT_EQ(c.fake.dialogs.Last().style, mb::kExclamation);
  EXPECT_EQ(screen.focus, "Grid1");
  EXPECT_EQ(screen.Grid1.row, 1);
  EXPECT_EQ(screen.Grid1.col, 1);
  EXPECT_FALSE(testing::Exists(c.dir / "FORCEVEN.INP"));

  // A remainder of 0.004 passes.
  Type(screen, 2, "10.004");
  Type(screen, 3, "-10");
  screen.Ok();
  EXPECT_TRUE(screen.unloaded);
  EXPECT_EQ(c.fake.dialogs.messages.size(), 1u);
  EXPECT_EQ(c.Bytes("FORCEVEN.INP"), "1\t2\t10\r\n0\t1\t10.004\r\n0\t2\t-10\r\n");
}

TEST(ForceVentScreen, CancelAsksOnlyAfterChanges) {
  FluidsCase c;
  c.Elements({{"1", "2"}});
  {
    ForceVent screen(c.fake.session);
    screen.Load();
    screen.QueryUnload();
    EXPECT_TRUE(screen.unloaded);
    EXPECT_TRUE(c.fake.dialogs.messages.empty());
  }
  ForceVent screen(c.fake.session);
  screen.Load();
  Type(screen, 1, "5");
  c.fake.dialogs.answers = {Answer::kCancel};
  screen.Cancel();
  EXPECT_FALSE(screen.unloaded);
  EXPECT_EQ(c.fake.dialogs.Last().text, "Do you want to save changes ?\r\rForced ventilation");
  EXPECT_EQ(c.fake.dialogs.Last().title, "Save");

  // Yes runs both checks: the balance refuses.
  c.fake.dialogs.answers = {Answer::kYes};
  screen.Cancel();
  EXPECT_FALSE(screen.unloaded);
  EXPECT_EQ(c.fake.dialogs.Last().title, "NO BALANCE");
  EXPECT_EQ(c.fake.dialogs.Last().text, "Volume 1: 5\rVolume 2: -5\r");

  Type(screen, 2, "5");
  Type(screen, 3, "-5");
  c.fake.dialogs.answers = {Answer::kYes};
  screen.Cancel();
  EXPECT_TRUE(screen.unloaded);
  EXPECT_EQ(c.Bytes("FORCEVEN.INP"), "1\t2\t5\r\n0\t1\t5\r\n0\t2\t-5\r\n");
  EXPECT_EQ(c.Bytes("THERMAL.INP"), "-----X\r\n");

  ForceVent last(c.fake.session);
  last.Load();
  Type(last, 1, "7");
  c.fake.dialogs.answers = {Answer::kNo};
  last.Cancel();
  EXPECT_TRUE(last.unloaded);
  EXPECT_EQ(c.Bytes("FORCEVEN.INP"), "1\t2\t5\r\n0\t1\t5\r\n0\t2\t-5\r\n");
}

}  // namespace
}  // namespace zelmo
