#include "building/fluid_adv_screen.h"

#include <gtest/gtest.h>

#include "building/fluids_test_case.h"
#include "core/guard.h"

namespace zelmo {
namespace {

using testing::FluidsCase;

void Type(FluidAdv& screen, const std::string& text) {
  for (char ch : text) {
    int key = static_cast<unsigned char>(ch);
    screen.AdvConnKeyPress(key);
  }
}

void Press(FluidAdv& screen, int key) { screen.AdvConnKeyPress(key); }

TEST(FluidAdvScreen, NoVolumesSaysSoAndCloses) {
  FluidsCase c;
  c.Elements({{"0", "0"}, {"-1", "0"}});
  FluidAdv screen(c.fake.session);
  screen.Load();
  EXPECT_TRUE(screen.unloaded);
  ASSERT_EQ(c.fake.dialogs.messages.size(), 1u);
  EXPECT_EQ(c.fake.dialogs.Last().text, "There are no volumes");
  EXPECT_EQ(c.fake.dialogs.Last().title, "MESSAGE");

  // A case without SURFACE.INP is an empty building.
  FluidsCase empty;
  FluidAdv none(empty.fake.session);
  none.Load();
  EXPECT_TRUE(none.unloaded);
  EXPECT_EQ(empty.fake.dialogs.Last().text, "There are no volumes");
}

TEST(FluidAdvScreen, ShowsAirWithoutAFileAndOneRowPerConnection) {
  FluidsCase c;
  c.Elements({{"0", "1"}, {"1", "2"}, {"2", "1"}, {"3", "2"}, {"-1", "3"}});
  FluidAdv screen(c.fake.session);
  screen.Load();
  ASSERT_FALSE(screen.unloaded);
  EXPECT_TRUE(c.fake.dialogs.messages.empty());
  EXPECT_EQ(screen.Label1.caption, "Fluids in volumes");
  EXPECT_EQ(screen.Label2.caption, "Advection connection between volumes");

  const Grid& fluids = screen.FluidList;
  ASSERT_EQ(fluids.rows(), 4);
  EXPECT_EQ(fluids.Cell(0, 0), "Volume");
  EXPECT_EQ(fluids.Cell(0, 1), "Air");
  EXPECT_EQ(fluids.Cell(0, 2), "(Water)");
  EXPECT_EQ(fluids.Cell(0, 3), "(Rock)");
  for (int row = 1; row <= 3; ++row) {
    EXPECT_EQ(fluids.Cell(row, 0), std::to_string(row));
    EXPECT_EQ(fluids.Cell(row, 1), "X");
    EXPECT_EQ(fluids.Cell(row, 2), "");
    EXPECT_EQ(fluids.Cell(row, 3), "");
  }

  const Grid& conns = screen.AdvConnList;
  ASSERT_EQ(conns.rows(), 3);
  EXPECT_EQ(conns.Cell(0, 0), "Volumes");
  EXPECT_EQ(conns.Cell(0, 1), "Distance (m)");
  EXPECT_EQ(conns.Cell(0, 2), "Area (m2)");
  EXPECT_EQ(conns.Cell(1, 0), "1 - 2");
  EXPECT_EQ(conns.Cell(2, 0), "2 - 3");
  EXPECT_EQ(conns.Cell(1, 1), "0");
  EXPECT_EQ(conns.Cell(1, 2), "0");
  EXPECT_FALSE(screen.dirty());

  // Saved as it stands, air everywhere; every module must run again.
  screen.Ok();
  EXPECT_TRUE(screen.unloaded);
  EXPECT_EQ(c.Bytes("ADVCONN.INP"), "1 - 2\t0\t0\r\n2 - 3\t0\t0\r\n");
  EXPECT_EQ(c.Bytes("FLUIDS.INP"), "1\t1\r\n2\t1\r\n3\t1\r\n");
  EXPECT_EQ(c.Bytes("THERMAL.INP"), "XXXXXX\r\n");
}

TEST(FluidAdvScreen, ADamagedFluidsFileIsNamedAndTheScreenDoesNotOpen) {
  FluidsCase c;
  c.Elements({{"1", "2"}});
  c.Put("FLUIDS.INP", "1\t2\r\n2\t1\r\n15\t1\r\n");
  FluidAdv screen(c.fake.session);
  EXPECT_FALSE(RunGuarded(c.fake.dialogs, [&screen] { screen.Load(); }));
  ASSERT_EQ(c.fake.dialogs.messages.size(), 1u);
  EXPECT_EQ(c.fake.dialogs.Last().text,
            "Subscript out of range\r" + (c.dir / "FLUIDS.INP") + ", line 3");
  EXPECT_EQ(c.fake.dialogs.Last().title, "Error message");
  EXPECT_EQ(c.Bytes("FLUIDS.INP"), "1\t2\r\n2\t1\r\n15\t1\r\n");
  EXPECT_FALSE(testing::Exists(c.dir / "ADVCONN.INP"));
  EXPECT_EQ(c.Bytes("THERMAL.INP"), "------\r\n");
}

TEST(FluidAdvScreen, OneMarkPerRowAndStaleRowsDroppedAtSave) {
  FluidsCase c;
  c.Elements({{"1", "2"}, {"0", "2"}});
  c.Put("FLUIDS.INP", "1\t2\r\n2\t3\r\n3\t2\r\n");
  c.Put("ADVCONN.INP", "1 - 2\t3.5\t2.1\r\n1 - 3\t4\t1\r\n2 - 3\t5\t1\r\n");
  FluidAdv screen(c.fake.session);
  screen.Load();
  Grid& fluids = screen.FluidList;
  ASSERT_EQ(fluids.rows(), 3);
  EXPECT_EQ(fluids.Cell(1, 2), "X");
  EXPECT_EQ(fluids.Cell(2, 3), "X");
  ASSERT_EQ(screen.AdvConnList.rows(), 2);
  EXPECT_EQ(screen.AdvConnList.Cell(1, 1), "3.5");
  EXPECT_EQ(screen.AdvConnList.Cell(1, 2), "2.1");

  // The volume column and the header take no mark; a click on the mark
  // already there changes nothing.
  fluids.row = 1;
  fluids.col = 0;
  screen.FluidClicked();
  fluids.row = 0;
  fluids.col = 1;
  screen.FluidClicked();
  fluids.row = 2;
  fluids.col = 3;
  screen.FluidClicked();
  EXPECT_FALSE(screen.dirty());
  EXPECT_EQ(fluids.Cell(0, 1), "Air");
  EXPECT_EQ(fluids.Cell(1, 0), "1");

  fluids.row = 1;
  fluids.col = 1;
  screen.FluidClicked();
  EXPECT_TRUE(screen.dirty());
  EXPECT_EQ(fluids.Cell(1, 1), "X");
  EXPECT_EQ(fluids.Cell(1, 2), "");
  EXPECT_EQ(fluids.Cell(1, 3), "");

  screen.Ok();
  EXPECT_EQ(c.Bytes("ADVCONN.INP"), "1 - 2\t3.5\t2.1\r\n");
  EXPECT_EQ(c.Bytes("FLUIDS.INP"), "1\t1\r\n2\t3\r\n");
}

TEST(FluidAdvScreen, ConnectionCellsTakeNumbersOnly) {
  FluidsCase c;
  c.Elements({{"1", "2"}, {"2", "3"}});
  FluidAdv screen(c.fake.session);
  screen.Load();
  Grid& conns = screen.AdvConnList;
  EXPECT_EQ(conns.row, 1);
  EXPECT_EQ(conns.col, 1);

  Press(screen, keys::kDelete);
  EXPECT_EQ(conns.Cell(1, 1), "");
  EXPECT_TRUE(screen.dirty());
  int letter = 'a';
  screen.AdvConnKeyPress(letter);
  EXPECT_EQ(letter, 0);  // swallowed
  Type(screen, "1,5x-+ 2");
  EXPECT_EQ(conns.Cell(1, 1), "1.52");
  Type(screen, ",7");
  EXPECT_EQ(conns.Cell(1, 1), "1.52.7");  // only the first comma of a cell reads as a point
  Press(screen, keys::kBack);
  Press(screen, keys::kBack);
  EXPECT_EQ(conns.Cell(1, 1), "1.52");

  Press(screen, keys::kEnd);
  EXPECT_EQ(conns.col, 2);
  Press(screen, keys::kRight);
  EXPECT_EQ(conns.col, 2);
  Press(screen, keys::kHome);
  EXPECT_EQ(conns.col, 1);
  Press(screen, keys::kLeft);
  EXPECT_EQ(conns.col, 1);  // the pair column is not a place to type
  Press(screen, keys::kDown);
  Press(screen, keys::kDown);
  EXPECT_EQ(conns.row, 2);
  Press(screen, keys::kUp);
  Press(screen, keys::kUp);
  EXPECT_EQ(conns.row, 1);

  // A click may still make the pair column current; it takes nothing.
  conns.col = 0;
  Type(screen, "9");
  EXPECT_EQ(conns.Cell(1, 0), "1 - 2");
  int tab = keys::kTab;
  screen.AdvConnKeyPress(tab);
  EXPECT_EQ(tab, keys::kTab);  // left to the window

  // Without connections the grid has one empty row that takes nothing.
  FluidsCase lone;
  lone.Elements({{"0", "1"}});
  FluidAdv single(lone.fake.session);
  single.Load();
  ASSERT_EQ(single.AdvConnList.rows(), 2);
  EXPECT_EQ(single.AdvConnList.Cell(1, 0), "");
  Type(single, "5");
  EXPECT_EQ(single.AdvConnList.Cell(1, 1), "");
  EXPECT_FALSE(single.dirty());
  single.Ok();
  EXPECT_TRUE(single.unloaded);
  EXPECT_EQ(lone.Bytes("ADVCONN.INP"), "");
  EXPECT_EQ(lone.Bytes("FLUIDS.INP"), "1\t1\r\n");
}

TEST(FluidAdvScreen, TheFirstFaultyCellIsShownAndNothingIsWritten) {
  FluidsCase c;
  c.Elements({{"1", "2"}, {"2", "3"}, {"1", "3"}});
  c.Put("ADVCONN.INP", "1 - 2\t2\t1000001\r\n2 - 3\t-1\t1\r\n1 - 3\t\t\r\n");
  FluidAdv screen(c.fake.session);
  screen.Load();
  screen.Ok();
  EXPECT_FALSE(screen.unloaded);
  ASSERT_EQ(c.fake.dialogs.messages.size(), 1u);
  EXPECT_EQ(c.fake.dialogs.Last().text, "Area must be a value (0 - 1000000)");
  EXPECT_EQ(c.fake.dialogs.Last().title, "MESSAGE");
  EXPECT_EQ(screen.focus, "AdvConnList");
  EXPECT_EQ(screen.AdvConnList.row, 1);
  EXPECT_EQ(screen.AdvConnList.col, 2);
  EXPECT_FALSE(testing::Exists(c.dir / "FLUIDS.INP"));
  EXPECT_EQ(c.Bytes("THERMAL.INP"), "------\r\n");

  screen.AdvConnList.Cell(1, 2) = "1000000";
  screen.focus.clear();
  screen.Ok();
  EXPECT_EQ(c.fake.dialogs.Last().text, "Distance must be a value (0 - 1000000)");
  EXPECT_EQ(screen.focus, "AdvConnList");
  EXPECT_EQ(screen.AdvConnList.row, 2);
  EXPECT_EQ(screen.AdvConnList.col, 1);

  screen.AdvConnList.Cell(2, 1) = "0";
  screen.Ok();
  EXPECT_EQ(c.fake.dialogs.Last().text, "Distance must be a value (0 - 1000000)");
  EXPECT_EQ(screen.AdvConnList.row, 3);
  EXPECT_EQ(c.fake.dialogs.messages.size(), 3u);

  screen.AdvConnList.Cell(3, 1) = "2,5";
  screen.AdvConnList.Cell(3, 2) = ".5";
  screen.Ok();
  EXPECT_TRUE(screen.unloaded);
  EXPECT_EQ(c.fake.dialogs.messages.size(), 3u);
  EXPECT_EQ(c.Bytes("ADVCONN.INP"), "1 - 2\t2\t1000000\r\n2 - 3\t0\t1\r\n1 - 3\t2.5\t.5\r\n");
}

TEST(FluidAdvScreen, CancelAsksOnlyAfterChanges) {
  FluidsCase c;
  c.Elements({{"1", "2"}});
  {
    FluidAdv screen(c.fake.session);
    screen.Load();
    screen.Cancel();
    EXPECT_TRUE(screen.unloaded);
    EXPECT_TRUE(c.fake.dialogs.messages.empty());
  }
  FluidAdv screen(c.fake.session);
  screen.Load();
  Type(screen, "7");
  c.fake.dialogs.answers = {Answer::kCancel};
  screen.Cancel();
  EXPECT_FALSE(screen.unloaded);
  ASSERT_EQ(c.fake.dialogs.messages.size(), 1u);
  EXPECT_EQ(c.fake.dialogs.Last().text,
            "Do you want to save changes ?\r\rFluid & advection connection");
  EXPECT_EQ(c.fake.dialogs.Last().title, "Save");

  // Yes checks first: a faulty cell keeps the screen open.
  screen.AdvConnList.col = 2;
  Press(screen, keys::kDelete);
  c.fake.dialogs.answers = {Answer::kYes};
  screen.QueryUnload();
  EXPECT_FALSE(screen.unloaded);
  EXPECT_EQ(c.fake.dialogs.Last().text, "Area must be a value (0 - 1000000)");
  EXPECT_EQ(screen.AdvConnList.col, 2);
  EXPECT_FALSE(testing::Exists(c.dir / "ADVCONN.INP"));

  c.fake.dialogs.answers = {Answer::kNo};
  screen.Cancel();
  EXPECT_TRUE(screen.unloaded);
  EXPECT_FALSE(testing::Exists(c.dir / "ADVCONN.INP"));

  FluidAdv again(c.fake.session);
  again.Load();
  Type(again, "5");
  again.AdvConnList.col = 2;
  Type(again, "2");
  c.fake.dialogs.answers = {Answer::kYes};
  again.Cancel();
  EXPECT_TRUE(again.unloaded);
  EXPECT_EQ(c.Bytes("ADVCONN.INP"), "1 - 2\t05\t02\r\n");
  EXPECT_EQ(c.Bytes("FLUIDS.INP"), "1\t1\r\n2\t1\r\n");
  EXPECT_EQ(c.Bytes("THERMAL.INP"), "XXXXXX\r\n");
}

}  // namespace
}  // namespace zelmo
