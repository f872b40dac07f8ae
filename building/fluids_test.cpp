#include "building/fluids.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>

#include "building/advconn.h"
#include "building/fluid_adv_screen.h"
#include "building/fluids_test_case.h"
#include "building/force_vent_screen.h"
#include "building/forcevent.h"
#include "building/volumes.h"
#include "core/guard.h"
#include "core/text_file.h"

namespace zelmo {
namespace {

using testing::FluidsCase;

testing::Strings Rows(const std::vector<AdvConnRow>& rows) {
  testing::Strings texts;
  for (const auto& row : rows) texts.push_back(row.pair + "|" + row.distance + "|" + row.area);
  return texts;
}

TEST(ReadFluids, AirForEveryVolumeThenTheFileLaidOver) {
  FluidsCase c;
  FluidTable missing = ReadFluids(c.fake.ws(), {"1", "3"});
  EXPECT_EQ(missing.FluidOf("1") + missing.FluidOf("3"), "11");
  EXPECT_EQ(missing.rows[3].volume + "|" + missing.rows[2].volume, "3|");

  // Lines address the slot by volume number, up to Volume 8; a volume no
  // longer present and lines of no volume are harmless.
  c.Put("FLUIDS.INP", " 3 \t 2 \r\n1\t3\r\n7\t2\r\n8\t3\r\nabc\t2\r\n\r\n0\t3\r\nno tab\r\n");
  FluidTable table = ReadFluids(c.fake.ws(), {"1", "3", "8"});
  EXPECT_EQ(table.FluidOf("1") + table.FluidOf("3") + table.FluidOf("7") + table.FluidOf("8") +
                table.FluidOf("2"),
            "32231");

  // A number past the table is a damaged file, named with its line.
  for (const char* bad : {"9", "-1", "12"}) {
    c.Put("FLUIDS.INP", std::string("1\t2\r\n") + bad + "\t3\r\n");
    EXPECT_EQ(testing::FileErrorText([&c] {
                ReadFluids(c.fake.ws(), {"1", "3"});
              }),
              "Subscript out of range\r" + (c.dir / "FLUIDS.INP") + ", line 2");
  }

  ASSERT_TRUE(WriteFluids(c.fake.ws(), {{"1", "3"}, {"3", ""}, {"4", "1"}}));
  EXPECT_EQ(c.Bytes("FLUIDS.INP"), "1\t3\r\n3\t\r\n4\t1\r\n");
}

TEST(ReadAdvConn, OneRowPerPairOfVolumesInTheOrderOfTheElements) {
  FluidsCase c;
  SurfaceVolumes volumes;
  volumes.front = {"0", "2", "1", "-1", "3", "2", "", "1"};
  volumes.back = {"1", "1", "2", "2", "2", "0", "3", "3"};
  // 2 to 1 and 1 to 2 make one row.
  EXPECT_EQ(Rows(ReadAdvConn(c.fake.ws(), volumes)),
            (testing::Strings{"1 - 2|0|0", "2 - 3|0|0", "1 - 3|0|0"}));
  EXPECT_EQ(AdvPairName("3", "1"), "1 - 3");
}

// The balance is summed in single precision: a remainder under 0.005
// passes. Outdoor need not balance, and flows follow the number rule.
TEST(VentBalanceMessage, SumsInSinglePrecisionAgainstTheThreshold) {
  const std::pair<std::vector<VentRow>, std::string> cases[] = {
      {{{"1", "2", "25"}, {"0", "1", "25"}, {"0", "2", "-25"}}, ""},
      {{{"1", "2", "0.004"}, {"0", "1", "0"}, {"0", "2", "0"}}, ""},
      {{{"1", "2", "0.0049"}, {"0", "1", "0"}, {"0", "2", "0"}}, ""},
      {{{"1", "2", "0.005"}, {"0", "1", "0"}, {"0", "2", "0"}},
       "Volume 1: .005\rVolume 2: -.005\r"},
      {{{"1", "2", "30"}, {"0", "1", "30.004"}, {"0", "2", "-30"}}, ""},
      {{{"1", "2", "30"}, {"0", "1", "30.005"}, {"0", "2", "-30"}}, "Volume 1: -.005\r"},
      {{{"0", "1", "10abc"}, {"1", "2", "10"}, {"0", "2", "x"}}, "Volume 2: -10\r"}};
  for (const auto& [rows, message] : cases)
    EXPECT_EQ(VentBalanceMessage(rows, {"1", "2"}), message);
}

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

// A screen that cannot open says why and writes nothing: no volumes, too few
// for ventilation, or a damaged file ("@" stands for the case folder).
TEST(FluidScreens, RefuseToOpenWithTheirMessage) {
  const ShownMessage none{"There are no volumes", mb::kOkOnly, "MESSAGE"};
  const ShownMessage cut{"Subscript out of range\r@/SURFACE.INP, line 39", mb::kCritical,
                         "Error message"};
  const struct {
    bool vent;
    std::vector<std::pair<std::string, std::string>> elements;
    std::string fluids;
    ShownMessage message;
  } rows[] = {
      {false, {{"0", "0"}, {"-1", "0"}}, "", none},
      {false, {}, "", none},  // no SURFACE.INP
      {false,
       {{"1", "2"}},
       "1\t2\r\n2\t1\r\n15\t1\r\n",
       {"Subscript out of range\r@/FLUIDS.INP, line 3", mb::kCritical, "Error message"}},
      {true, {{"0", "0"}, {"-1", "0"}}, "", none},
      {true,
       {{"0", "1"}, {"-1", "1"}},
       "",
       {"There are less than two volumes", mb::kOkOnly, "MESSAGE"}},
      // A volume code past the tables is a damaged element file.
      {true, {{"0", "1"}, {"1", "9"}}, "", cut},
      {true, {{"0", "1"}, {"1", "-2"}}, "", cut},
      {true, {{"0", "1"}, {"1", "99999999999"}}, "", cut},
  };
  for (const auto& row : rows) {
    FluidsCase c;
    if (!row.elements.empty()) c.Elements(row.elements);
    if (!row.fluids.empty()) c.Put("FLUIDS.INP", row.fluids);
    std::unique_ptr<Form> screen(row.vent ? static_cast<Form*>(new ForceVent(c.fake.session))
                                          : new FluidAdv(c.fake.session));
    const bool loaded = RunGuarded(c.fake.dialogs, [&screen] { screen->Load(); });
    ShownMessage message = row.message;
    if (message.text.find('@') != std::string::npos) {
      message.text.replace(message.text.find('@'), 1, c.dir.path());
    }
    SCOPED_TRACE(message.text);
    EXPECT_TRUE(!loaded || screen->unloaded);
    EXPECT_EQ(c.fake.dialogs.messages, std::vector<ShownMessage>{message});
    EXPECT_EQ(c.Bytes("THERMAL.INP"), "------\r\n");
    EXPECT_FALSE(testing::Exists(c.dir / "ADVCONN.INP") || testing::Exists(c.dir / "FORCEVEN.INP"));
    EXPECT_EQ(testing::Exists(c.dir / "FLUIDS.INP") ? c.Bytes("FLUIDS.INP") : "", row.fluids);
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
  EXPECT_EQ(c.Bytes("ADVCONN.INP") + c.Bytes("FLUIDS.INP") + c.Bytes("THERMAL.INP"),
            "1 - 2\t0\t0\r\n2 - 3\t0\t0\r\n"
            "1\t1\r\n2\t1\r\n3\t1\r\n"
            "XXXXXX\r\n");
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
  EXPECT_EQ(c.Bytes("ADVCONN.INP") + c.Bytes("FLUIDS.INP"),
            "1 - 2\t3.5\t2.1\r\n"
            "1\t1\r\n2\t3\r\n");
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

// Cancel closes a screen at once while nothing changed; after `change` it
// asks to save, and Cancel on the question keeps the screen open.
template <class Screen>
void CancelAsksAfterChanges(FluidsCase& c, Screen& screen, const std::function<void()>& change,
                            const std::string& what) {
  screen.Load();
  screen.Cancel();
  EXPECT_TRUE(screen.unloaded && c.fake.dialogs.messages.empty());
  screen.unloaded = false;
  change();
  c.fake.dialogs.answers = {Answer::kCancel};
  screen.Cancel();
  EXPECT_FALSE(screen.unloaded);
  EXPECT_EQ(c.fake.dialogs.messages,
            (std::vector<ShownMessage>{{"Do you want to save changes ?\r\r" + what,
                                        mb::kYesNoCancel + mb::kExclamation, "Save"}}));
}

TEST(FluidAdvScreen, CancelAsksOnlyAfterChanges) {
  FluidsCase c;
  c.Elements({{"1", "2"}});
  FluidAdv screen(c.fake.session);
  CancelAsksAfterChanges(
      c, screen, [&screen] { Type(screen, "7"); }, "Fluid & advection connection");

  // Yes checks first: a faulty cell keeps the screen open.
  screen.AdvConnList.col = 2;
  Press(screen, keys::kDelete);
  c.fake.dialogs.answers = {Answer::kYes};
  screen.QueryUnload();
  EXPECT_FALSE(screen.unloaded);
  EXPECT_EQ(c.fake.dialogs.Last().text + At(screen.AdvConnList),
            "Area must be a value (0 - 1000000)1,2");
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
  EXPECT_EQ(c.Bytes("ADVCONN.INP") + c.Bytes("FLUIDS.INP") + c.Bytes("THERMAL.INP"),
            "1 - 2\t05\t02\r\n"
            "1\t1\r\n2\t1\r\n"
            "XXXXXX\r\n");
}

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
  CancelAsksAfterChanges(
      c, screen, [&screen] { Type(screen, 1, "5"); }, "Forced ventilation");
  // Yes runs both checks: the balance refuses.
  c.fake.dialogs.answers = {Answer::kYes};
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
  EXPECT_EQ(c.Bytes("FORCEVEN.INP") + c.Bytes("THERMAL.INP"), saved + "-----X\r\n");

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
