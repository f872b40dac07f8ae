#include "simulation/therm_load_screen.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>

#include "core/fields.h"
#include "core/file_system.h"
#include "core/testing/fakes.h"
#include "core/text_file.h"
#include "simulation/module_error.h"
#include "simulation/run_plan.h"
#include "simulation/side_by_side.h"

namespace zelmo {
namespace {

using testing::ReadBytes;
using testing::WriteBytes;

// A project of two cases: case1 with two rooms (the current case), case2
// with no volumes. The modules are scripted: each writes the status that
// `codes` gives it (0 when none).
struct Project {
  Project() {
    Workspace& ws = fake.ws();
    ws.ProgramDirectory = std::string(std::getenv("ZELMO_SOURCE_DIR")) + "/system/tree";
    ws.ThermalDirectory = dir / "TZELMO";
    ws.ProjectName = "Office";
    ws.ProjectPath = dir / "Office";
    ws.CaseName = "case1";
    ws.CaseHeadline = "Two rooms";
    ws.CasePath = dir / "Office/Case1";
    WriteBytes(dir / "Office/CASES.LIB", "Case1 - Two rooms\r\ncase2 - Nothing\r\n");
    WriteBytes(dir / "Office/Case1/SURFACE.INP", Wall(1, 2));
    WriteBytes(dir / "Office/Case1/THERMAL.INP", "XXXXXX\r\n");
    WriteBytes(dir / "Office/case2/SURFACE.INP", Wall(0, -1));
    WriteBytes(dir / "Office/case2/THERMAL.INP", "XXXXXX\r\n");
    fake.processes.on_run = [this](const testing::RunCall& call) {
      std::string module = LastName(call.program);
      module = module.substr(0, module.find('.'));
      const int code = codes.count(module) ? codes[module] : 0;
      WriteBytes(JoinPath(call.arguments[0], "ECM.Dat"),
                 PadField(std::to_string(code), 5, "H") + " " + module + "\r\nBroken\r\n0\r\n");
    };
  }
  static std::string Wall(int front, int back) {
    std::string block = "Wall\r\n\t0\r\n\t90\r\n\t0\r\n\t0\r\n\t0\r\n\t0\r\n\t" +
                        std::to_string(front) + "\r\n\t" + std::to_string(back) + "\r\n";
    for (int field = 9; field <= 29; ++field) block += "\t\r\n";
    return block;
  }
  std::vector<std::string> Row(const ThermLoad& screen, int row) const {
    std::vector<std::string> cells;
    for (int col = 1; col <= kLastModuleColumn; ++col)
      cells.push_back(screen.ThermGrid.Cell(row, col));
    return cells;
  }
  testing::TempDir dir;
  testing::FakeSession fake;
  std::map<std::string, int> codes;
};

using Cells = std::vector<std::string>;
const Cells kNone(8, "");
const Cells kAllButPrepare = {"", "X", "X", "X", "X", "X", "X", "X"};

TEST(ThermLoad, LoadTicksTheCurrentCaseAndClicksKeepPrepareAndIncludeApart) {
  Project p;
  ThermLoad screen(p.fake.session);
  screen.Load();
  EXPECT_EQ(screen.caption, "Simulation");
  EXPECT_EQ(screen.Label1.caption, "Existing cases - Project : office");
  ASSERT_EQ(screen.ThermGrid.rows(), 3);
  EXPECT_EQ(screen.ThermGrid.Cell(1, 0), "case1 - Two rooms");
  EXPECT_EQ(p.Row(screen, 1), kAllButPrepare);
  EXPECT_EQ(p.Row(screen, 2), kNone);
  EXPECT_EQ(screen.ThermGrid.row, 1);
  EXPECT_EQ(screen.ThermGrid.CellBackColor(1, 0), Rgb(0, 160, 250));

  const struct {
    int row, col, button;
    Cells after;
  } clicks[] = {
      {1, 1, ThermLoad::kLeftButton, {"X", "", "X", "X", "X", "X", "X", "X"}},
      {1, 3, ThermLoad::kMiddleButton, {"X", "", "", "X", "X", "X", "X", "X"}},
      {1, 4, ThermLoad::kRightButton, {"X", "", "", "X", "X", "X", "X", "X"}},
      {1, 2, ThermLoad::kLeftButton, {"", "X", "", "X", "X", "X", "X", "X"}},
      {1, 2, ThermLoad::kLeftButton, {"", "", "", "X", "X", "X", "X", "X"}},
      {1, 0, ThermLoad::kLeftButton, {"", "", "", "X", "X", "X", "X", "X"}},
      {0, 3, ThermLoad::kLeftButton, {"", "", "", "X", "X", "X", "X", "X"}},
  };
  for (const auto& click : clicks) {
    screen.GridMouseDown(click.button);
    screen.ThermGrid.row = click.row;
    screen.ThermGrid.col = click.col;
    screen.GridClick();
    EXPECT_EQ(p.Row(screen, 1), click.after) << click.row << "," << click.col;
  }
  screen.ThermGrid.Cell(2, kPrepareColumn) = "X";
  screen.Fill();
  EXPECT_EQ(p.Row(screen, 2), (Cells{"X", "X", "X", "X", "X", "X", "X", "X"}));
  screen.Clear();
  EXPECT_EQ(p.Row(screen, 2), (Cells{"X", "", "", "", "", "", "", ""}));
  EXPECT_EQ(screen.ThermGrid.Cell(0, 3), "DIG");
  EXPECT_EQ(screen.ThermGrid.Cell(0, 8), "TL");
}

TEST(ThermLoad, ACleanRunCommitsTheFlagsAndClosesACaseWithoutVolumesIsSaid) {
  Project p;
  ThermLoad screen(p.fake.session);
  screen.Load();
  screen.ThermGrid.Cell(1, 5).clear();  // CORV is not run
  screen.ThermGrid.Cell(2, kPrepareColumn) = "X";
  screen.Simulate();
  EXPECT_TRUE(screen.unloaded);
  EXPECT_EQ(p.fake.dialogs.Texts(),
            (testing::Strings{"There are no volumes for case : " + p.dir / "Office/case2"}));
  EXPECT_EQ(p.fake.dialogs.Last().title, "ThermLoad - Calculation");
  EXPECT_EQ(p.fake.processes.calls.size(), 5u);
  EXPECT_EQ(ReadBytes(p.dir / "Office/Case1/THERMAL.INP"), "--X---\r\n");
  EXPECT_EQ(ReadBytes(p.dir / "Office/case2/THERMAL.INP"), "XXXXXX\r\n");
  EXPECT_TRUE(testing::Exists(p.dir / "Office/case2/DAT4.DAT"));
  EXPECT_TRUE(testing::Exists(p.dir / "Office/Wndw.Lib"));
  EXPECT_EQ(p.fake.ws().CasePath, p.dir / "Office/Case1");
}

TEST(ThermLoad, AFailingModuleStopsTheRunWithItsCellRedAndTheTicksCleared) {
  Project p;
  p.codes["NEB"] = 201;
  p.fake.ws().CaseName.clear();
  ThermLoad screen(p.fake.session);
  screen.Load();
  screen.ThermGrid.Cell(1, kIncludeColumn) = "X";
  screen.ThermGrid.Cell(1, 3) = screen.ThermGrid.Cell(1, 4) = screen.ThermGrid.Cell(1, 5) = "X";
  std::vector<std::string> steps;
  EXPECT_EQ(RunPlan(p.fake.session, screen.ThermGrid,
                    [&](int row, int col) { steps.push_back(screen.ThermGrid.Cell(row, col)); }),
            RunEnd::kModuleFailed);
  EXPECT_EQ(steps, (testing::Strings{">", "> <", ">", " ", ""}));
  EXPECT_EQ(p.fake.processes.calls.size(), 2u);
  EXPECT_EQ(std::make_pair(screen.ThermGrid.row, screen.ThermGrid.col), std::make_pair(1, 4));
  EXPECT_EQ(screen.ThermGrid.CellBackColor(1, 4), Rgb(250, 0, 0));
  EXPECT_EQ(p.Row(screen, 1), kNone);
  EXPECT_EQ(p.fake.dialogs.shown_forms, (testing::Strings{"Errform"}));
  EXPECT_EQ(ReadBytes(p.dir / "Office/Case1/THERMAL.INP"), "XXXXXX\r\n");
  EXPECT_EQ(p.fake.ws().CaseName, "case1");

  // A status file that cannot be written keeps its old word: each ticked
  // module is skipped with its message, and the run goes on to its end.
  WriteBytes(p.dir / "Office/Case1/ECM.Dat", "  101 NEB\r\nBroken\r\n0\r\n");
  std::filesystem::permissions(ToFsPath(p.dir / "Office/Case1/ECM.Dat"),
                               std::filesystem::perms::owner_read);
  screen.ThermGrid.Cell(1, kIncludeColumn) = screen.ThermGrid.Cell(1, 8) = "X";
  p.fake.dialogs.Clear();
  screen.Simulate();
  EXPECT_TRUE(screen.unloaded);
  EXPECT_EQ(ReadBytes(p.dir / "Office/Case1/THERMAL.INP"), "XXXXXX\r\n");
  EXPECT_EQ(p.fake.dialogs.Texts(),
            (testing::Strings{
                "Some problem has occurred in Module : NEB\r\n Module Muk will not be run !"}));
  EXPECT_EQ(p.fake.dialogs.Last().title, "Problems");
  EXPECT_EQ(screen.ThermGrid.Cell(1, 8), "!!");

  // No register of cases; a window type without panes.
  ThermLoad empty(p.fake.session);
  empty.Load();
  DeleteFile(p.dir / "Office/CASES.LIB");
  p.fake.dialogs.Clear();
  empty.Simulate();
  EXPECT_EQ(p.fake.dialogs.Texts(), (testing::Strings{"Project is empty "}));
  EXPECT_TRUE(empty.unloaded);
  WriteBytes(p.dir / "Office/CASES.LIB", "case1 - Two rooms\r\n");
  WriteBytes(p.dir / "Office/WNDTP.LIB", "1\tEmpty\t0\r\n");
  ThermLoad refused(p.fake.session);
  refused.Load();
  p.fake.dialogs.Clear();
  refused.Simulate();
  EXPECT_EQ(p.fake.dialogs.Texts(), (testing::Strings{"Some error in window library "}));
  EXPECT_FALSE(refused.unloaded);
}

// The red cell of a module that failed stays until the next run starts, and
// is gone while that run's first module runs.
TEST(ThermLoad, ANewRunStartsWithoutTheRedOfTheLastOne) {
  for (const int side_by_side : {0, 1}) {
    Project p;
    p.codes["NEB"] = 201;
    ThermLoad screen(p.fake.session);
    screen.Load();
    screen.Check1.value = side_by_side;
    screen.Simulate();
    ASSERT_EQ(screen.ThermGrid.CellBackColor(1, 4), kFailedColor) << side_by_side;
    EXPECT_EQ(screen.ThermGrid.CellBackColor(1, 0), Rgb(0, 160, 250));
    p.codes.clear();
    std::vector<int> seen;
    const auto run = p.fake.processes.on_run;
    p.fake.processes.on_run = [&](const testing::RunCall& call) {
      seen.push_back(screen.ThermGrid.CellBackColor(1, 4));
      run(call);
    };
    screen.ThermGrid.Cell(1, kIncludeColumn) = screen.ThermGrid.Cell(1, 3) = "X";
    screen.Simulate();
    EXPECT_EQ(seen, std::vector<int>{kDefaultColor}) << side_by_side;
    // The colour of the current case is no failure's.
    EXPECT_EQ(screen.ThermGrid.CellBackColor(1, 0), Rgb(0, 160, 250));
  }
}

// A module whose program cannot be started fails the run as a failing
// module does: its cell red, the error window naming the program, no flag
// committed, and ECM.Dat telling the steps after it.
TEST(ThermLoad, AModuleThatCannotBeStartedFailsTheRunNamingItsProgram) {
  Project p;
  const std::string neb = JoinPath(p.fake.ws().ThermalDirectory, "NEB.EXE");
  p.fake.processes.cannot_start = {neb};
  std::string window;
  p.fake.dialogs.screens["Errform"] = [&window](Form& form) {
    window = form.caption + "|" + static_cast<Errform&>(form).Label1.caption;
  };
  ThermLoad screen(p.fake.session);
  screen.Load();
  screen.Simulate();
  EXPECT_FALSE(screen.unloaded);
  EXPECT_EQ(p.fake.processes.calls.size(), 2u);
  EXPECT_EQ(screen.ThermGrid.CellBackColor(1, 4), Rgb(250, 0, 0));
  EXPECT_EQ(screen.ThermGrid.Cell(1, 3), "");
  EXPECT_EQ(window,
            "Error  702 in module ZELMO-QRN|The program could not be started:\r" + neb +
                "\r\nA calculation module could not be started: its program is missing from the "
                "folder TZELMO of the program folder, or it may not be run there. Check the "
                "program folder under File / Settings, or install the program again, then run the "
                "simulation of the case again. ");
  EXPECT_TRUE(p.fake.dialogs.messages.empty());
  EXPECT_EQ(ReadBytes(p.dir / "Office/Case1/THERMAL.INP"), "XXXXXX\r\n");
  EXPECT_EQ(ReadBytes(p.dir / "Office/Case1/ECM.Dat"),
            "  702 NEB       \r\nProgram not started\r\n0\r\n");
}

// A row ticked Prepare alone writes the module input and starts nothing.
TEST(ThermLoad, ARowTickedPrepareButNotIncludeRunsNoModule) {
  Project p;
  ThermLoad screen(p.fake.session);
  screen.Load();
  screen.ThermGrid.Cell(1, kPrepareColumn) = "X";
  screen.ThermGrid.Cell(1, kIncludeColumn).clear();
  EXPECT_EQ(RunPlan(p.fake.session, screen.ThermGrid, nullptr), RunEnd::kCompleted);
  EXPECT_TRUE(p.fake.processes.calls.empty());
  EXPECT_TRUE(testing::Exists(p.dir / "Office/Case1/DAT4.DAT"));
  EXPECT_FALSE(testing::Exists(p.dir / "Office/Case1/ECM.Dat"));
  EXPECT_EQ(ReadBytes(p.dir / "Office/Case1/THERMAL.INP"), "XXXXXX\r\n");
}

TEST(ThermLoad, AStopDuringTheThirdModuleLeavesAFailedRun) {
  Project p;
  ThermLoad screen(p.fake.session);
  screen.Load();
  p.fake.processes.on_run = [&screen](const testing::RunCall& call) {
    if (LastName(call.program) != "CORV.EXE") return;
    // A click on the grid while a module runs leaves the plan alone.
    screen.ThermGrid.row = 1;
    screen.ThermGrid.col = 8;
    screen.GridClick();
    EXPECT_EQ(screen.ThermGrid.Cell(1, 8), "X");
    screen.Stop();
  };
  screen.Simulate();
  EXPECT_FALSE(screen.unloaded);
  EXPECT_FALSE(screen.running());
  EXPECT_EQ(p.fake.processes.calls.size(), 3u);
  EXPECT_EQ(p.Row(screen, 1), kNone);
  EXPECT_EQ(screen.ThermGrid.CellBackColor(1, 5), Rgb(250, 0, 0));
  EXPECT_TRUE(p.fake.dialogs.shown_forms.empty());
  EXPECT_EQ(ReadBytes(p.dir / "Office/Case1/THERMAL.INP"), "XXXXXX\r\n");
  EXPECT_EQ(ReadBytes(p.dir / "Office/Case1/ECM.Dat"),
            "  999 CORV      \r\nStopped by the user\r\n0\r\n");

  // Closed while a module runs: asked, stopped, and closed once the run is
  // over.
  p.fake.processes.on_run = [&screen](const testing::RunCall&) { screen.QueryUnload(); };
  screen.Fill();
  screen.Simulate();
  EXPECT_EQ(p.fake.dialogs.Texts(),
            (testing::Strings{"A simulation is running. Stop it and close the window?"}));
  EXPECT_TRUE(screen.unloaded);
}

// Side by side: case3 fails in CORV while case1 runs to its end; the
// screen stays with case3's cell red, case1 committed and no tick left.
TEST(ThermLoad, CasesSideBySideEachEndAsAloneAndAFailureStaysWithItsCase) {
  Project p;
  CopyFolderTree(p.dir / "Office/Case1", p.dir / "Office/case3");
  WriteBytes(p.dir / "Office/CASES.LIB",
             "Case1 - Two rooms\r\ncase2 - Nothing\r\ncase3 - Two rooms\r\n");
  const auto standin = p.fake.processes.on_run;
  p.fake.processes.on_run = [&](const testing::RunCall& call) {
    standin(call);
    if (call.arguments[0].find("case3") != std::string::npos &&
        LastName(call.program) == "CORV.EXE")
      WriteBytes(JoinPath(call.arguments[0], "ECM.Dat"), "  301 CORV\r\nBroken\r\n0\r\n");
  };
  ThermLoad screen(p.fake.session);
  screen.Load();
  EXPECT_EQ(screen.Check1.caption, "Run cases side by side");
  EXPECT_EQ(screen.Check1.value, 0);
  screen.Check1.value = 1;
  screen.Fill();
  screen.Simulate();
  EXPECT_FALSE(screen.unloaded);
  EXPECT_FALSE(screen.running());
  EXPECT_EQ(p.fake.processes.calls.size(), 9u);
  EXPECT_EQ(p.fake.dialogs.Texts(),
            (testing::Strings{"There are no volumes for case : " + p.dir / "Office/case2"}));
  EXPECT_EQ(p.fake.dialogs.shown_forms, (testing::Strings{"Errform"}));
  EXPECT_EQ(p.Row(screen, 1), (Cells{"", "", "> <", "> <", "> <", "> <", "> <", "> <"}));
  EXPECT_EQ(p.Row(screen, 3), kNone);
  EXPECT_EQ(screen.ThermGrid.CellBackColor(3, 5), Rgb(250, 0, 0));
  EXPECT_EQ(ReadBytes(p.dir / "Office/Case1/THERMAL.INP"), "------\r\n");
  EXPECT_EQ(ReadBytes(p.dir / "Office/case3/THERMAL.INP"), "XXXXXX\r\n");
  EXPECT_EQ(ReadBytes(p.dir / "Office/case3/DAT2.DAT"), ReadBytes(p.dir / "Office/Case1/DAT2.DAT"));
  EXPECT_EQ(p.fake.ws().CasePath, p.dir / "Office/Case1");
}

// How each case of a side-by-side run ends, one case at a time: a damaged
// case file is an "error" of its case alone, and a stop between two cases
// leaves the second "not run".
TEST(ThermLoad, SideBySideOutcomesOfADamagedFileAndAStopBetweenCases) {
  const struct {
    bool damaged;
    bool stop_after_first;
    std::vector<std::string> statuses;
    RunEnd end;
  } rows[] = {
      {false, false, {"ok", "ok"}, RunEnd::kCompleted},
      {true, false, {"error", "ok"}, RunEnd::kModuleFailed},
      {false, true, {"ok", "not run"}, RunEnd::kStopped},
  };
  for (const auto& row : rows) {
    Project p;
    CopyFolderTree(p.dir / "Office/Case1", p.dir / "Office/case3");
    if (row.damaged) WriteBytes(p.dir / "Office/Case1/SURFACE.INP", "Wall\r\n\t0\r\n");
    Form form("ThermLoad");
    Grid grid(&form, "ThermGrid");
    SetUpRunGrid(grid);
    for (const char* name : {"case1 - Two rooms", "case3 - Two rooms"}) {
      grid.AddRow();
      grid.Cell(grid.rows() - 1, kCaseColumn) = name;
    }
    FillTicks(grid);
    SideBySide how;
    how.jobs = 1;
    bool first_done = false;
    how.cell_changed = [&](int row_of_plan, int col, const Grid& one) {
      if (row_of_plan == 1 && col == kLastModuleColumn && one.Cell(1, col) == kEnded) {
        first_done = row.stop_after_first;
      }
    };
    how.stopped = [&first_done] { return first_done; };
    RunEnd end = RunEnd::kCompleted;
    const auto outcomes = RunSideBySide(p.fake.session, grid, how, end);
    std::vector<std::string> statuses;
    for (const CaseOutcome& outcome : outcomes) statuses.push_back(outcome.Status());
    EXPECT_EQ(statuses, row.statuses);
    EXPECT_EQ(end, row.end);
    if (row.damaged) {
      EXPECT_EQ(p.fake.dialogs.Texts(),
                (testing::Strings{"Input past end of file\r" + p.dir / "Office/Case1/SURFACE.INP" +
                                  ", line 3"}));
    }
  }
}

}  // namespace
}  // namespace zelmo
