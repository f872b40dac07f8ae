#include <gtest/gtest.h>

#include <cstdlib>
#include <sstream>

#include "cli/commands.h"
#include "core/file_system.h"
#include "core/testing/fakes.h"
#include "core/text_file.h"
#include "platform/qt_process.h"
#include "workspace/demo.h"

namespace zelmo::cli {
namespace {

using testing::ReadBytes;
using testing::WriteBytes;

// A copy of the example project with its libraries in place, run with the
// stand-in modules that STANDIN.INP steers: the settings point at the test
// tree that stages them.
struct ExampleRun {
  ExampleRun() {
    CopyFolderTree(std::string(std::getenv("ZELMO_SOURCE_DIR")) + "/system/tree/ZELMOPROJ/Example",
                   dir / "Example");
    for (const char* name : {"GASTP.INP", "GLASSTP.INP", "OPAQUE.LIB", "WNDTP.LIB"}) {
      RenamePath(dir / "Example/" + name + "_Temp", dir / "Example/" + name);
    }
    settings.values["Zelmo-QRN/Project/SystemPath"] = std::getenv("ZELMO_STANDIN_TREE");
    // As the demo's activation does: the case reads the tree's Denver year.
    PointSiteAtClimate(
        dir / "Example/Case1",
        JoinPath(JoinPath(std::getenv("ZELMO_DIST_DIR"), "Climate"), kExampleClimateFile));
  }
  int Run(const std::vector<std::string>& args) {
    out.str("");
    err.str("");
    return RunCommandLine(args, JoinPath(std::getenv("ZELMO_DIST_DIR"), "zelmo"), settings,
                          processes, out, err);
  }
  std::string Case(const std::string& name) { return ReadBytes(dir / "Example/Case1/" + name); }
  testing::TempDir dir;
  testing::FakeSettings settings;
  platform::QtProcessRunner processes;
  std::ostringstream out, err;
};

// The program tree as it ships: the project's own PLOR and NEB compute the
// example's geometry and shading, and their reports join the case's results.
TEST(CommandLine, RunsTheExampleThroughTheShippedModules) {
  ExampleRun r;
  r.settings.values["Zelmo-QRN/Project/SystemPath"] = std::getenv("ZELMO_DIST_DIR");
  ASSERT_EQ(r.Run({"run", r.dir / "Example", "case1"}), kExitOk) << r.err.str();
  const std::string geometry =
      "case1: PLOR started\ncase1: PLOR ended\ncase1: NEB started\ncase1: NEB ended\ncase1: C";
  EXPECT_EQ(r.out.str().substr(0, geometry.size()), geometry);
  EXPECT_EQ(r.Case("THERMAL.INP"), "------\r\n");
  const std::string head = r.Case("PLOR.RES").substr(0, 15);
  EXPECT_EQ(head, "ZELMO-QRN PLOR ");
  EXPECT_NE(r.Case("PLOR.LIS").find("     1         8           20.000           54.000"),
            std::string::npos);
  EXPECT_EQ(r.Case("NEB.LIS").substr(0, 14), "ZELMO-QRN NEB ");
  // The conduction and window modules leave their reports in the case folder.
  EXPECT_EQ(r.Case("CORV.LIS").substr(0, 60),
            "CORV: the walls of the case discretised for the conduction\r\n");
  EXPECT_NE(r.Case("FENT.LIS").find("     2      2        2.86  0.755  0.691"), std::string::npos)
      << r.Case("FENT.LIS");
  EXPECT_EQ(r.Case("ECM.Dat").substr(0, 6), "    0 ");
}

TEST(CommandLine, RunsTheExampleThroughTheStandInsAndCommitsTheFlags) {
  ExampleRun r;
  const std::string project = r.dir / "Example";
  ASSERT_EQ(r.Run({"run", project, "case1"}), kExitOk) << r.err.str();
  std::string lines;
  for (const char* m : {"PLOR", "NEB", "CORV", "FENT", "DANE", "MUK"}) {
    lines += std::string("case1: ") + m + " started\ncase1: " + m + " ended\n";
  }
  EXPECT_EQ(r.out.str(), lines);
  EXPECT_EQ(r.Case("THERMAL.INP"), "------\r\n");
  EXPECT_EQ(r.Case("DAT1.DAT"), ReadBytes(std::string(std::getenv("ZELMO_SOURCE_DIR")) +
                                          "/simulation/testdata/Case1/DAT1.DAT"));
  EXPECT_FALSE(ReadBytes(r.dir / "Example/Wndw.Lib").empty());

  // A module made to fail: the later ones do not run and no flag is
  // committed.
  WriteBytes(r.dir / "Example/Case1/THERMAL.INP", "XXXXXX\r\n");
  WriteBytes(r.dir / "Example/Case1/STANDIN.INP", "NEB ERROR 5\r\n");
  EXPECT_EQ(r.Run({"run", project, "CASE1", "--modules", "plor,neb,corv"}), kExitFailed);
  EXPECT_EQ(r.out.str(),
            "case1: PLOR started\ncase1: PLOR ended\ncase1: NEB started\n"
            "case1: NEB failed\n");
  EXPECT_EQ(r.Case("THERMAL.INP"), "XXXXXX\r\n");

  // Prepare writes the module input and runs nothing.
  DeleteFile(r.dir / "Example/Case1/DAT4.DAT");
  EXPECT_EQ(r.Run({"prepare", project, "case1"}), kExitOk);
  EXPECT_EQ(r.out.str(), "");
  EXPECT_FALSE(r.Case("DAT4.DAT").empty());
  EXPECT_EQ(r.Run({"list-cases", project}), kExitOk);
  EXPECT_EQ(r.out.str(), "case1\n");
}

TEST(CommandLine, ImportsAWeatherFileAsAClimateFile) {
  ExampleRun r;
  std::string epw =
      "LOCATION,OSLO,-,NOR,IWEC,014920,59.9,10.6,1.0,94.0\r\nDESIGN CONDITIONS,0\r\n"
      "TYPICAL/EXTREME PERIODS,0\r\nGROUND TEMPERATURES,0\r\nHOLIDAYS/DAYLIGHT SAVINGS,No\r\n"
      "COMMENTS 1,\r\nCOMMENTS 2,\r\nDATA PERIODS,1,1,Data,Sunday, 1/1,1/1\r\n";
  for (int h = 1; h <= 24; ++h) {
    epw += "2001,1,1," + std::to_string(h) +
           ",60,x,-3,-6,80,99000,0,0,250,0,0,0,0,0,0,0,90,2,8,8,5,9999,9,999999999,0,0.1,0,88,"
           "0.2,999,99\r\n";
  }
  WriteBytes(r.dir / "oslo.epw", epw);
  EXPECT_EQ(r.Run({"import-climate", r.dir / "oslo.epw", r.dir / "Oslo.CLI"}), kExitOk);
  EXPECT_EQ(r.out.str(), r.dir / "Oslo.CLI" +
                             ": 24 hours from 2001.01.01 to 2001.01.01\n"
                             "Latitude 59.9, longitude 10.6, time meridian 15, elevation 94 m\n");
  WriteBytes(r.dir / "oslo.epw", epw.substr(0, epw.size() - 60));
  EXPECT_EQ(r.Run({"import-climate", r.dir / "oslo.epw", r.dir / "Cut.CLI"}), kExitFailed);
  EXPECT_EQ(r.err.str(), "zelmo: This hour has 16 fields instead of 35 " + r.dir / "oslo.epw" +
                             ", line 32; nothing is written\n");
  EXPECT_FALSE(FileCanOpen(r.dir / "Cut.CLI"));
  EXPECT_EQ(r.Run({"import-climate", r.dir / "oslo.epw"}), kExitUsage);
}

TEST(CommandLine, WrongCommandLinesAndMissingProjectsOrCases) {
  ExampleRun r;
  const std::string project = r.dir / "Example";
  const struct {
    std::vector<std::string> args;
    int status;
    std::string err;
  } rows[] = {
      {{}, kExitUsage, "zelmo: no command (zelmo --help lists the commands)\n"},
      {{"simulate"},
       kExitUsage,
       "zelmo: unknown command simulate (zelmo --help lists the commands)\n"},
      {{"run", project},
       kExitUsage,
       "zelmo: give a project folder and a case (zelmo --help lists the commands)\n"},
      {{"run", project, "case1", "--modules", "PLOR,XYZ"},
       kExitUsage,
       "zelmo: unknown module in PLOR,XYZ (zelmo --help lists the commands)\n"},
      {{"prepare", project, "case1", "--fast"},
       kExitUsage,
       "zelmo: unknown option --fast (zelmo --help lists the commands)\n"},
      {{"run", r.dir / "Nothing", "case1"},
       kExitUsage,
       "zelmo: no project folder " + r.dir / "Nothing" + "\n"},
      {{"run", project, "case9"},
       kExitUsage,
       "zelmo: case case9 is not in " + JoinPath(project, "CASES.LIB") + "\n"},
      {{"run", project, "case1", "-j", "0"},
       kExitUsage,
       "zelmo: -j needs a number of cases, not 0 (zelmo --help lists the commands)\n"},
      {{"run", project, "case1", "--all"},
       kExitUsage,
       "zelmo: give cases or --all, not both (zelmo --help lists the commands)\n"},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(r.Run(row.args), row.status);
    EXPECT_EQ(r.err.str(), row.err);
  }
  // A case folder gone, and a window type without panes.
  RenamePath(project + "/Case1", project + "/Gone");
  EXPECT_EQ(r.Run({"prepare", project, "case1"}), kExitUsage);
  EXPECT_EQ(r.err.str(), "zelmo: no case folder " + JoinPath(project, "case1") + "\n");
  RenamePath(project + "/Gone", project + "/Case1");
  WriteBytes(project + "/WNDTP.LIB", "1\tEmpty\t0\r\n");
  EXPECT_EQ(r.Run({"run", project, "case1"}), kExitFailed);
  EXPECT_EQ(r.err.str(), "ThermLoad - Calculation: Some error in window library \n");
  EXPECT_EQ(r.Run({"--help"}), kExitOk);
  EXPECT_NE(r.out.str().find("zelmo run <project folder> <case>... | --all [-j N] [--modules"),
            std::string::npos);
}

// The yearly results of a case from its MUK.SUM; none, stale or damaged
// ones end with status 1 and say why.
TEST(CommandLine, SummaryOfACase) {
  ExampleRun r;
  const std::string project = r.dir / "Example";
  const std::string sum = project + "/Case1/MUK.SUM";
  WriteBytes(project + "/Case1/THERMAL.INP", "------\r\n");
  const struct {
    std::vector<std::string> args;
    int status;
    std::string err;
  } usage[] = {
      {{"summary", project},
       kExitUsage,
       "zelmo: give a project folder and a case (zelmo --help lists the commands)\n"},
      {{"summary", project, "case9"},
       kExitUsage,
       "zelmo: case case9 is not in " + JoinPath(project, "CASES.LIB") + "\n"},
      {{"summary", project, "case1"},
       kExitFailed,
       "zelmo: case1: no results: " + JoinPath(project, "Case1/MUK.SUM") +
           " is missing; run the case first\n"},
  };
  for (const auto& row : usage) {
    EXPECT_EQ(r.Run(row.args), row.status);
    EXPECT_EQ(r.err.str(), row.err);
    EXPECT_EQ(r.out.str(), "");
  }
  WriteBytes(sum,
             "ZELMO-QRN MUK 0123456789abcdef\r\nVolume\tHeating [kWh]\tCooling [kWh]\t"
             "Peak heating [W]\tPeak cooling [W]\tT_min [C]\tT_mean [C]\tT_max [C]\r\n"
             "1\t4213.280\t5855.914\t3183.592\t6023.884\t20.000\t22.846\t27.000\r\n"
             "2\t0.000\t0.000\t0.000\t0.000\t-12.700\t25.230\t64.600\r\n");
  EXPECT_EQ(r.Run({"summary", project, "CASE1"}), kExitOk) << r.err.str();
  EXPECT_EQ(r.out.str(),
            "1     4213.3     5855.9     3183.6     6023.9   20.00   22.85   27.00\n"
            "2        0.0        0.0        0.0        0.0  -12.70   25.23   64.60\n");
  // A screen saved since the run.
  WriteBytes(project + "/Case1/THERMAL.INP", "----XX\r\n");
  EXPECT_EQ(r.Run({"summary", project, "case1"}), kExitFailed);
  EXPECT_EQ(r.err.str().substr(0, 34), "zelmo: case1: stale results: the c");
  EXPECT_EQ(r.out.str(), "");
}

// The window types of the example as the window type screen shows them; a
// type that cannot be computed has no result and says why.
TEST(CommandLine, WindowPropertiesOfTheExample) {
  ExampleRun r;
  const std::string project = r.dir / "Example";
  EXPECT_EQ(r.Run({"window-properties", project}), kExitOk) << r.err.str();
  EXPECT_EQ(r.out.str(),
            "type  name                             U        g     Tsol\n"
            "   1  Single4mm                     5.75    0.854    0.829\n"
            "   2  Double4-12-4                  2.86    0.755    0.691\n"
            "   3  DoubleLowE4-16Ar-4            1.10    0.602    0.466\n"
            "   4  DoubleSolar6-12-4             2.86    0.348    0.280\n"
            "   5  Triple4-12-4-12-4             1.90    0.675    0.579\n"
            "   6  TripleLowE4-12Kr-4-12Kr-4     0.44    0.388    0.263\n");
  EXPECT_FALSE(ReadBytes(project + "/Wndw.Lib").empty());
  EXPECT_EQ(r.Run({"window-properties", project, "3"}), kExitOk);
  EXPECT_EQ(r.out.str(),
            "type  name                      U        g     Tsol\n"
            "   3  DoubleLowE4-16Ar-4     1.10    0.602    0.466\n");
  const std::string types = JoinPath(project, "WNDTP.LIB");
  // A number of two digits is a type like any other.
  WriteBytes(types, ReadBytes(types) + "12\tTwelve\t 1\tClear4mm\tNo\t\r\n");
  EXPECT_EQ(r.Run({"window-properties", project, "12"}), kExitOk) << r.err.str();
  EXPECT_EQ(r.out.str(),
            "type  name          U        g     Tsol\n"
            "  12  Twelve     5.75    0.854    0.829\n");
  const struct {
    std::vector<std::string> args;
    int status;
    std::string err;
  } rows[] = {
      {{"window-properties", project, "7"},
       kExitUsage,
       "zelmo: no window type 7 in " + types + " (zelmo --help lists the commands)\n"},
      {{"window-properties", project, "x"},
       kExitUsage,
       "zelmo: no window type x in " + types + " (zelmo --help lists the commands)\n"},
      {{"window-properties"},
       kExitUsage,
       "zelmo: give a project folder and at most one window type number (zelmo --help lists the "
       "commands)\n"},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(r.Run(row.args), row.status);
    EXPECT_EQ(r.err.str(), row.err);
  }
  WriteBytes(types, "2\tOdd\t 1\tOpal\tNo\r\n");
  EXPECT_EQ(r.Run({"window-properties", project}), kExitFailed);
  EXPECT_EQ(r.out.str(),
            "type  name        U        g     Tsol\n"
            "   2  Odd         -        -        -\n");
  EXPECT_EQ(r.err.str(), "zelmo: glass type Opal of window type 2 (Odd) is not in " +
                             JoinPath(project, "Wndw.Lib") + "\n");
  WriteBytes(types, "");
  EXPECT_EQ(r.Run({"window-properties", project}), kExitFailed);
  EXPECT_EQ(r.err.str(), "zelmo: no window types in " + types + "\n");
  r.Run({"--help"});
  EXPECT_NE(r.out.str().find("zelmo window-properties <project folder> [window type number]"),
            std::string::npos);
}

// The stand-in modules' tree copied to `folder`, without the programs of
// `missing`.
void StageModules(const std::string& folder, const std::vector<std::string>& missing) {
  ASSERT_TRUE(CopyFolderTree(JoinPath(std::getenv("ZELMO_DIST_DIR"), "TZELMO"),
                             JoinPath(folder, "TZELMO")));
  for (const std::string& program : missing)
    DeleteFile(JoinPath(JoinPath(folder, "TZELMO"), program));
}

// A program tree in a folder whose path is far longer than 64 characters is
// found whole; a module taken out of it fails the run, named with its path.
TEST(CommandLine, ADeepProgramTreeAndAModuleThatCannotBeStarted) {
  ExampleRun r;
  const std::string project = r.dir / "Example";
  const std::string tree = r.dir / (std::string(60, 'p') + "/" + std::string(60, 'q'));
  StageModules(tree, {});
  r.settings.values["Zelmo-QRN/Project/SystemPath"] = tree;
  ASSERT_EQ(r.Run({"run", project, "case1", "--modules", "PLOR,NEB"}), kExitOk) << r.err.str();
  EXPECT_EQ(r.out.str(),
            "case1: PLOR started\ncase1: PLOR ended\ncase1: NEB started\ncase1: NEB ended\n");

  const std::string neb = JoinPath(JoinPath(tree, "TZELMO"), "NEB.EXE");
  DeleteFile(neb);
  WriteBytes(project + "/Case1/THERMAL.INP", "XXXXXX\r\n");
  EXPECT_EQ(r.Run({"run", project, "case1"}), kExitFailed);
  EXPECT_EQ(r.out.str(),
            "case1: PLOR started\ncase1: PLOR ended\ncase1: NEB started\ncase1: NEB failed\n");
  EXPECT_EQ(r.err.str(),
            "Error  702 in module ZELMO-QRN: The program could not be started: " + neb +
                " A calculation module could not be started: its program is missing from the "
                "folder TZELMO of the program folder, or it may not be run there. Check the "
                "program folder under File / Settings, or install the program again, then run "
                "the simulation of the case again.\n");
  EXPECT_EQ(r.Case("THERMAL.INP"), "XXXXXX\r\n");
}

// A case named twice runs once, whatever the case of its letters; two
// cases named end with the summary table.
TEST(CommandLine, ACaseNamedTwiceRunsOnceAndTwoNamedCasesEndWithTheTable) {
  ExampleRun r;
  const std::string project = r.dir / "Example";
  CopyFolderTree(project + "/Case1", project + "/case2");
  WriteBytes(project + "/CASES.LIB", "case1 - First\r\ncase2 - Second\r\n");
  // Each row starts four modules in all: a case named twice is one case.
  const struct {
    std::vector<std::string> args;
    std::vector<std::string> table;
  } rows[] = {
      {{"run", project, "case1", "CASE1", "-j", "2", "--modules", "PLOR,NEB"},
       {"case          modules  status", "case1               2  ok"}},
      {{"run", project, "case1", "case1", "--modules", "PLOR,NEB"}, {}},
      {{"run", project, "case2", "case1", "--modules", "PLOR", "-j1"},
       {"case          modules  status", "case2               1  ok", "case1               1  ok"}},
  };
  for (const auto& row : rows) {
    ASSERT_EQ(r.Run(row.args), kExitOk) << r.err.str();
    std::istringstream out(r.out.str());
    std::vector<std::string> modules, table;
    for (std::string line; std::getline(out, line);) {
      if (line.rfind("case", 0) == 0 && line.find(": ") == 5) {
        modules.push_back(line);
      } else {
        table.push_back(TrimBlanks(line.substr(0, 30)));
      }
    }
    EXPECT_EQ(table, row.table) << r.out.str();
    EXPECT_EQ(modules.size(), 4u) << r.out.str();
    EXPECT_EQ(r.err.str(), "");
  }
}

// Four cases side by side, the third made to fail: the others end as they
// would alone, every line whole, and the table says how each ended.
TEST(CommandLine, CasesSideBySideAndTheirSummary) {
  ExampleRun r;
  const std::string project = r.dir / "Example";
  std::string cases;
  for (int n = 1; n <= 4; ++n) {
    if (n > 1) CopyFolderTree(project + "/Case1", project + "/case" + std::to_string(n));
    cases += "case" + std::to_string(n) + " - Variant\r\n";
  }
  WriteBytes(project + "/CASES.LIB", cases);
  // Case 3's first element takes a window type the library hasn't: FENT,
  // the fourth module, fails.
  WriteBytes(project + "/case3/STANDIN.INP", "ALL DELAY 0.1\r\nFENT ERROR 404\r\n");
  std::string elements = ReadBytes(project + "/case3/SURFACE.INP");
  const std::string hole = "\r\n\t87\r\n\t87\r\n\t2\r\n";
  elements.replace(elements.find(hole), hole.size(), "\r\n\t87\r\n\t87\r\n\t39\r\n");
  WriteBytes(project + "/case3/SURFACE.INP", elements);
  ASSERT_EQ(r.Run({"run", project, "--all", "-j2"}), kExitFailed);
  std::istringstream lines(r.out.str());
  std::vector<std::string> table;
  for (std::string line; std::getline(lines, line);) {
    if (line.rfind("case", 0) == 0 && line.find(": ") == 5) continue;  // a module line
    table.push_back(TrimBlanks(line.substr(0, 30)));                   // without the time
  }
  EXPECT_EQ(table, (std::vector<std::string>{
                       "case          modules  status",
                       "case1               6  ok",
                       "case2               6  ok",
                       "case3               4  failed",
                       "case4               6  ok",
                   }))
      << r.out.str();
  EXPECT_NE(r.err.str().find("Error  404 in module FENT: "), std::string::npos) << r.err.str();
  for (int n : {1, 2, 4}) {
    const std::string dir = project + "/" + (n == 1 ? "Case1" : "case" + std::to_string(n));
    EXPECT_EQ(ReadBytes(dir + "/THERMAL.INP"), "------\r\n");
    EXPECT_EQ(ReadBytes(dir + "/DAT2.DAT"), ReadBytes(project + "/case3/DAT2.DAT"));
  }
  EXPECT_EQ(ReadBytes(project + "/case3/THERMAL.INP"), "XXXXXX\r\n");
}

}  // namespace
}  // namespace zelmo::cli
