#include "building/force_vent_screen.h"

#include <gtest/gtest.h>

#include "building/fluids_test_case.h"
#include "core/guard.h"

namespace zelmo {
namespace {

using testing::FluidsCase;
using testing::ShownMessage;

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

// The focus and the current cell, "focus row,col".
std::string At(const ForceVent& screen) {
  return screen.focus + " " + std::to_string(screen.Grid1.row) + "," +
         std::to_string(screen.Grid1.col);
}

TEST(ForceVentScreen, AVolumeCodePastTheTablesIsADamagedElementFile) {
  for (const char* bad : {"9", "-2", "99999999999"}) {
    FluidsCase c;
    c.Elements({{"0", "1"}, {"1", bad}});
    ForceVent screen(c.fake.session);
    EXPECT_FALSE(RunGuarded(c.fake.dialogs, [&screen] { screen.Load(); }));
    EXPECT_EQ(c.fake.dialogs.Texts(), (testing::Strings{"Subscript out of range\r" +
                                                        (c.dir / "SURFACE.INP") + ", line 39"}));
    EXPECT_FALSE(testing::Exists(c.dir / "FORCEVEN.INP"));
    EXPECT_EQ(c.Bytes("THERMAL.INP"), "------\r\n");
  }
}

TEST(ForceVentScreen, ClosesWithoutTwoVolumes) {
  const std::pair<std::pair<std::string, std::string>, std::string> cases[] = {
      {{"0", "0"}, "There are no volumes"}, {{"0", "1"}, "There are less than two volumes"}};
  for (const auto& [sides, message] : cases) {
    FluidsCase c;
    c.Elements({sides, {"-1", sides.second}});
    ForceVent screen(c.fake.session);
    screen.Load();
    EXPECT_TRUE(screen.unloaded);
    EXPECT_EQ(c.fake.dialogs.messages,
              (std::vector<ShownMessage>{{message, mb::kOkOnly, "MESSAGE"}}));
  }
}

TEST(ForceVentScreen, PairsInOrderWithTheFlowsOfTheFile) {
  FluidsCase c;
  c.Elements({{"0", "3"}, {"1", "3"}, {"-1", "1"}});
  // Fields trimmed; a reversed pair and the rows of a volume gone are no rows.
  c.Put("FORCEVEN.INP",
        "0\t1\t25\r\n 1 \t 3 \t 25 \r\n3\t1\t7\r\n0\t3\t-25\r\n0\t2\t5\r\n2\t3\t5\r\n");
  ForceVent screen(c.fake.session);
  screen.Load();
  ASSERT_FALSE(screen.unloaded);
  EXPECT_EQ(testing::GridRows(screen.Grid1),
            (testing::Strings{"Volumes|Flow (l/s)", "1 -> 3|25", "0 -> 1|25", "0 -> 3|-25"}));

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
  const ShownMessage fault{"Litres/second must be a value (-20000 - 20000)", mb::kOkOnly,
                           "MESSAGE"};
  Type(screen, 2, "-");
  screen.Ok();
  EXPECT_FALSE(screen.unloaded);
  EXPECT_EQ(c.fake.dialogs.messages, (std::vector<ShownMessage>{fault}));
  EXPECT_EQ(At(screen), "Grid1 2,1");

  // The bounds pass, just outside does not.
  Type(screen, 2, "20000");
  Type(screen, 3, "-20000,5");
  EXPECT_EQ(screen.Grid1.Cell(3, 1), "-20000.5");
  screen.focus.clear();
  screen.Ok();
  EXPECT_EQ(c.fake.dialogs.messages, (std::vector<ShownMessage>{fault, fault}));
  EXPECT_EQ(At(screen), "Grid1 3,1");
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
  EXPECT_EQ(c.fake.dialogs.messages, (std::vector<ShownMessage>{{"Volume 1: -20\rVolume 2: 10.5\r",
                                                                 mb::kExclamation, "NO BALANCE"}}));
  EXPECT_EQ(At(screen), "Grid1 1,1");
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
  ForceVent screen(c.fake.session);
  screen.Load();
  screen.QueryUnload();
  EXPECT_TRUE(screen.unloaded && c.fake.dialogs.messages.empty());
  screen.unloaded = false;
  Type(screen, 1, "5");
  // Yes runs both checks: the balance refuses.
  c.fake.dialogs.answers = {Answer::kCancel, Answer::kYes};
  screen.Cancel();
  EXPECT_FALSE(screen.unloaded);
  EXPECT_EQ(c.fake.dialogs.Last(),
            (ShownMessage{"Do you want to save changes ?\r\rForced ventilation",
                          mb::kYesNoCancel + mb::kExclamation, "Save"}));
  screen.Cancel();
  EXPECT_FALSE(screen.unloaded);
  EXPECT_EQ(c.fake.dialogs.Last(),
            (ShownMessage{"Volume 1: 5\rVolume 2: -5\r", mb::kExclamation, "NO BALANCE"}));

  Type(screen, 2, "5");
  Type(screen, 3, "-5");
  c.fake.dialogs.answers = {Answer::kYes};
  screen.Cancel();
  EXPECT_TRUE(screen.unloaded);
  const std::string saved = "1\t2\t5\r\n0\t1\t5\r\n0\t2\t-5\r\n";
  EXPECT_EQ(c.Bytes("FORCEVEN.INP"), saved);
  EXPECT_EQ(c.Bytes("THERMAL.INP"), "-----X\r\n");

  ForceVent last(c.fake.session);
  last.Load();
  Type(last, 1, "7");
  c.fake.dialogs.answers = {Answer::kNo};
  last.Cancel();
  EXPECT_TRUE(last.unloaded);
  EXPECT_EQ(c.Bytes("FORCEVEN.INP"), saved);
}

}  // namespace
}  // namespace zelmo
