#include "building/fluid_adv_screen.h"

#include <gtest/gtest.h>

#include "building/fluids_test_case.h"
#include "core/guard.h"

namespace zelmo {
namespace {

using testing::FluidsCase;
using testing::GridRows;
using testing::ShownMessage;
using testing::Strings;

void Type(FluidAdv& screen, const std::string& text) {
  for (char ch : text) {
    int key = static_cast<unsigned char>(ch);
    screen.AdvConnKeyPress(key);
  }
}

void Press(FluidAdv& screen, int key) { screen.AdvConnKeyPress(key); }

// The current cell of a grid, "row,col".
std::string At(const Grid& grid) {
  return std::to_string(grid.row) + "," + std::to_string(grid.col);
}

TEST(FluidAdvScreen, NoVolumesSaysSoAndCloses) {
  // No volume behind any element, and no SURFACE.INP at all.
  for (bool file : {true, false}) {
    FluidsCase c;
    if (file) c.Elements({{"0", "0"}, {"-1", "0"}});
    FluidAdv screen(c.fake.session);
    screen.Load();
    EXPECT_TRUE(screen.unloaded);
    EXPECT_EQ(c.fake.dialogs.messages,
              (std::vector<ShownMessage>{{"There are no volumes", mb::kOkOnly, "MESSAGE"}}));
  }
}

TEST(FluidAdvScreen, ShowsAirWithoutAFileAndOneRowPerConnection) {
  FluidsCase c;
  c.Elements({{"0", "1"}, {"1", "2"}, {"2", "1"}, {"3", "2"}, {"-1", "3"}});
  FluidAdv screen(c.fake.session);
  screen.Load();
  ASSERT_FALSE(screen.unloaded);
  EXPECT_TRUE(c.fake.dialogs.messages.empty());
  EXPECT_EQ(screen.Label1.caption + "|" + screen.Label2.caption,
            "Fluids in volumes|Advection connection between volumes");
  EXPECT_EQ(GridRows(screen.FluidList),
            (Strings{"Volume|Air|(Water)|(Rock)", "1|X||", "2|X||", "3|X||"}));
  EXPECT_EQ(GridRows(screen.AdvConnList),
            (Strings{"Volumes|Distance (m)|Area (m2)", "1 - 2|0|0", "2 - 3|0|0"}));
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
  EXPECT_EQ(
      c.fake.dialogs.messages,
      (std::vector<ShownMessage>{{"Subscript out of range\r" + (c.dir / "FLUIDS.INP") + ", line 3",
                                  mb::kCritical, "Error message"}}));
  EXPECT_EQ(c.Bytes("FLUIDS.INP"), "1\t2\r\n2\t1\r\n15\t1\r\n");
  EXPECT_FALSE(testing::Exists(c.dir / "ADVCONN.INP"));
  EXPECT_EQ(c.Bytes("THERMAL.INP"), "------\r\n");
}

TEST(FluidAdvScreen, OneMarkPerRowAndStaleRowsDroppedAtSave) {
  FluidsCase c;
  c.Elements({{"1", "2"}, {"0", "2"}});
  c.Put("FLUIDS.INP", "1\t2\r\n2\t3\r\n3\t2\r\n");
  // Fields trimmed; a reversed pair, a short line and pairs of a volume gone
  // are no rows.
  c.Put("ADVCONN.INP",
        " 1 - 2 \t 3.5 \t 2.1 \r\n2 - 1\t7\t7\r\n1 - 2\r\n1 - 3\t4\t1\r\n2 - 3\t5\t1\r\n");
  FluidAdv screen(c.fake.session);
  screen.Load();
  Grid& fluids = screen.FluidList;
  const std::string head = "Volume|Air|(Water)|(Rock)";
  EXPECT_EQ(GridRows(fluids), (Strings{head, "1||X|", "2|||X"}));
  EXPECT_EQ(GridRows(screen.AdvConnList),
            (Strings{"Volumes|Distance (m)|Area (m2)", "1 - 2|3.5|2.1"}));

  // The volume column and the header take no mark; a click on the mark
  // already there changes nothing.
  for (auto [row, col] : {std::pair{1, 0}, {0, 1}, {2, 3}}) {
    fluids.row = row;
    fluids.col = col;
    screen.FluidClicked();
  }
  EXPECT_FALSE(screen.dirty());
  EXPECT_EQ(GridRows(fluids), (Strings{head, "1||X|", "2|||X"}));

  fluids.row = 1;
  fluids.col = 1;
  screen.FluidClicked();
  EXPECT_TRUE(screen.dirty());
  EXPECT_EQ(GridRows(fluids), (Strings{head, "1|X||", "2|||X"}));

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
  EXPECT_EQ(At(conns), "1,1");

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

  // The keys move within the number cells; the pair column is not a place
  // to type.
  std::string visited;
  for (int key : {keys::kEnd, keys::kRight, keys::kHome, keys::kLeft, keys::kDown, keys::kDown,
                  keys::kUp, keys::kUp}) {
    Press(screen, key);
    visited += At(conns) + " ";
  }
  EXPECT_EQ(visited, "1,2 1,2 1,1 1,1 2,1 2,1 1,1 1,1 ");

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
  EXPECT_EQ(GridRows(single.AdvConnList), (Strings{"Volumes|Distance (m)|Area (m2)", "||"}));
  Type(single, "5");
  EXPECT_EQ(single.AdvConnList.Cell(1, 1), "");
  EXPECT_FALSE(single.dirty());
  single.Ok();
  EXPECT_TRUE(single.unloaded);
  EXPECT_EQ(lone.Bytes("ADVCONN.INP") + "|" + lone.Bytes("FLUIDS.INP"), "|1\t1\r\n");
}

TEST(FluidAdvScreen, TheFirstFaultyCellIsShownAndNothingIsWritten) {
  FluidsCase c;
  c.Elements({{"1", "2"}, {"2", "3"}, {"1", "3"}});
  c.Put("ADVCONN.INP", "1 - 2\t2\t1000001\r\n2 - 3\t-1\t1\r\n1 - 3\t\t\r\n");
  FluidAdv screen(c.fake.session);
  screen.Load();
  Grid& conns = screen.AdvConnList;
  // Each fault in turn, and the cell that mends it.
  const struct {
    std::string message, at, mended;
  } faults[] = {{"Area must be a value (0 - 1000000)", "1,2", "1000000"},
                {"Distance must be a value (0 - 1000000)", "2,1", "0"},
                {"Distance must be a value (0 - 1000000)", "3,1", "2,5"}};
  for (const auto& fault : faults) {
    screen.focus.clear();
    screen.Ok();
    EXPECT_FALSE(screen.unloaded);
    EXPECT_EQ(c.fake.dialogs.Last(), (ShownMessage{fault.message, mb::kOkOnly, "MESSAGE"}));
    EXPECT_EQ(screen.focus + " " + At(conns), "AdvConnList " + fault.at);
    EXPECT_FALSE(testing::Exists(c.dir / "FLUIDS.INP"));
    EXPECT_EQ(c.Bytes("THERMAL.INP"), "------\r\n");
    conns.Cell(conns.row, conns.col) = fault.mended;
  }
  conns.Cell(3, 2) = ".5";
  screen.Ok();
  EXPECT_TRUE(screen.unloaded);
  EXPECT_EQ(c.fake.dialogs.messages.size(), 3u);
  EXPECT_EQ(c.Bytes("ADVCONN.INP"), "1 - 2\t2\t1000000\r\n2 - 3\t0\t1\r\n1 - 3\t2.5\t.5\r\n");
}

TEST(FluidAdvScreen, CancelAsksOnlyAfterChanges) {
  FluidsCase c;
  c.Elements({{"1", "2"}});
  FluidAdv screen(c.fake.session);
  screen.Load();
  screen.Cancel();
  EXPECT_TRUE(screen.unloaded && c.fake.dialogs.messages.empty());
  screen.unloaded = false;
  Type(screen, "7");
  c.fake.dialogs.answers = {Answer::kCancel};
  screen.Cancel();
  EXPECT_FALSE(screen.unloaded);
  EXPECT_EQ(
      c.fake.dialogs.messages,
      (std::vector<ShownMessage>{{"Do you want to save changes ?\r\rFluid & advection connection",
                                  mb::kYesNoCancel + mb::kExclamation, "Save"}}));

  // Yes checks first: a faulty cell keeps the screen open.
  screen.AdvConnList.col = 2;
  Press(screen, keys::kDelete);
  c.fake.dialogs.answers = {Answer::kYes};
  screen.QueryUnload();
  EXPECT_FALSE(screen.unloaded);
  EXPECT_EQ(c.fake.dialogs.Last().text, "Area must be a value (0 - 1000000)");
  EXPECT_EQ(screen.AdvConnList.col, 2);
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
