#include "simulation/prepare_case.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <functional>

#include "core/fields.h"
#include "core/file_system.h"
#include "core/testing/fakes.h"
#include "core/text_file.h"
#include "core/workspace.h"

namespace zelmo {
namespace {

using testing::ReadBytes;
using testing::TempDir;
using testing::WriteBytes;

std::string Source() { return std::getenv("ZELMO_SOURCE_DIR"); }

// A project folder with one open case; every file of it is written by the
// test.
struct CaseFolder {
  CaseFolder() {
    CreateFolderTree(dir / "P/C");
    ws.ProjectPath = dir / "P";
    ws.CasePath = dir / "P/C";
    ws.CaseHeadline = "C - test";
    ws.AccuracyLevelTL = "1";
  }
  void Put(const std::string& name, const std::string& bytes) const {
    WriteBytes(JoinPath(ws.CasePath, name), bytes);
  }
  void PutLib(const std::string& name, const std::string& bytes) const {
    WriteBytes(JoinPath(ws.ProjectPath, name), bytes);
  }
  std::string Dat(int n) const {
    return ReadBytes(JoinPath(ws.CasePath, "DAT" + std::to_string(n) + ".DAT"));
  }
  TempDir dir;
  Workspace ws;
};

// A SURFACE.INP block: the name, then the 29 fields given with '|' between.
std::string Element(const std::string& name, std::string fields) {
  std::replace(fields.begin(), fields.end(), '|', '\t');
  std::vector<std::string> list = SplitTabs(fields);
  list.resize(29);
  std::string block = name + "\r\n";
  for (const auto& field : list) block += "\t" + field + "\r\n";
  return block;
}

// A wall of volume 1 towards outdoors.
const std::string kWall1 = "0|90|0|0|0|0|1|0|1|1|||||1";

// The start and the end of a file's text.
#define EXPECT_STARTS(text, start) EXPECT_EQ((text).substr(0, std::string(start).size()), start)
#define EXPECT_ENDS(text, end) \
  EXPECT_EQ((text).substr((text).size() - std::min((text).size(), std::string(end).size())), end)

TEST(PrepareCase, TheExampleCaseGivesTheFourFilesByteForByte) {
  TempDir dir;
  CopyFolderTree(Source() + "/system/tree/ZELMOPROJ/Example", dir / "Example");
  for (const char* name : {"GASTP.INP", "GLASSTP.INP", "OPAQUE.LIB", "WNDTP.LIB"}) {
    RenamePath(dir / "Example/" + name + "_Temp", dir / "Example/" + name);
  }
  Workspace ws;
  ws.ProjectPath = dir / "Example";
  ws.CasePath = dir / "Example/Case1";
  ws.CaseHeadline = "Office room in Stockholm";
  ws.AccuracyLevelTL = "2";
  PrepareCase(ws);
  for (const char* name : {"DAT1.DAT", "DAT2.DAT", "DAT3.DAT", "DAT4.DAT"}) {
    EXPECT_EQ(ReadBytes(JoinPath(ws.CasePath, name)),
              ReadBytes(Source() + "/simulation/testdata/Case1/" + name))
        << name;
  }
  // The overviews write the same DAT1.DAT.
  DeleteFile(JoinPath(ws.CasePath, "DAT1.DAT"));
  WriteDat1(ws);
  EXPECT_EQ(ReadBytes(JoinPath(ws.CasePath, "DAT1.DAT")),
            ReadBytes(Source() + "/simulation/testdata/Case1/DAT1.DAT"));
}

// One element between volume 1 and outdoors: its lines in DAT1.DAT by shape
// and by what its construction, window and hole hold.
TEST(PrepareCase, ElementLinesByShapeConstructionWindowAndHole) {
  const std::string head = "C - test\r\n   1.00   1.00\r\n   1.00\r\n";
  const struct {
    const char* what;
    const char* fields;
    const char* lines;
  } rows[] = {
      {"rectangle, wall 3", "0|90|180|1|2|3|0|1|4|2.5|9|9|9|9|3|50|60|90|80||||||||||2",
       "A               1.00     90.00    180.00      1.00      2.00      3.00 0.00 1.00\r\n"
       "   4.00   2.50   0.00   0.00   0.00   0.00 1.00 3.00 0.50 0.60 0.00    2.0000\r\n"
       " .9  .8\r\n"},
      {"triangle, shading screen", "1|90|0|0|0|0|0|1|4|2|1|9|9|9|0|30|45|90|80",
       "A               2.00     90.00      0.00      0.00      0.00      0.00 0.00 1.00\r\n"
       "   4.00   2.00   1.00   0.00   0.00   0.00 0.00 0.00 0.30 0.45 0.00    0.0000\r\n"},
      {"4-sided, window alone", "3|90|0|0|0|0|0|1|4|3|2|1|3|9||||||7|||||||||.5",
       "A               4.00     90.00      0.00      0.00      0.00      0.00 0.00 1.00\r\n"
       "   4.00   3.00   2.00   1.00   3.00   0.00 6.00 1.00 0.00 0.00 0.00    0.5000\r\n"
       "7\r\n"},
      {"5-sided, wall and curtained window", "4|90|0|0|0|0|0|1|1|2|3|4|5|6|2|1|2|3|4|8|2",
       "A               5.00     90.00      0.00      0.00      0.00      0.00 0.00 1.00\r\n"
       "   1.00   2.00   3.00   4.00   5.00   6.00 1.00 2.00 0.01 0.02 0.00    0.0000\r\n"
       " .03  .04\r\n"
       " 6.00 1.00 0.00 0.00 1.00    0.0000\r\n"
       "8\r\n"},
      {"hole with a screen and a curtained window",
       "2|90|0|0|0|0|0|1|5|3|1|1|2|2|1|10|10|90|90|||0|20|30|88|88|4|1|3",
       "A               3.00     90.00      0.00      0.00      0.00      0.00 0.00 1.00\r\n"
       "   5.00   3.00   1.00   1.00   2.00   2.00 1.00 1.00 0.10 0.10 0.00    3.0000\r\n"
       " .9  .9\r\n"
       " 0.00 0.00 0.20 0.30 0.00\r\n"
       " 6.00 1.00 0.00 0.00 1.00\r\n"
       "4\r\n"},
      {"hole with a wall, no window", "2|90|0|0|0|0|0|1|5|3|1|1|2|2||||||7||5|40|50|60|70",
       "A               3.00     90.00      0.00      0.00      0.00      0.00 0.00 1.00\r\n"
       "   5.00   3.00   1.00   1.00   2.00   2.00 6.00 1.00 0.00 0.00 0.00    0.0000\r\n"
       "7\r\n"
       " 1.00 5.00 0.40 0.50 0.00\r\n"
       " .6  .7\r\n"},
      // Neither construction nor window: the geometry line stays open to the
      // end of the file, which still ends it.
      {"nothing built", "0|90|0|0|0|0|0|1|4|2",
       "A               1.00     90.00      0.00      0.00      0.00      0.00 0.00 1.00\r\n"
       "   4.00   2.00   0.00   0.00   0.00   0.00\r\n"},
  };
  for (const auto& row : rows) {
    CaseFolder c;
    c.Put("SURFACE.INP", Element("A", row.fields));
    PrepareCase(c.ws);
    EXPECT_EQ(c.Dat(1), head + row.lines) << row.what;
  }
}

TEST(PrepareCase, VolumesPairsAndTheOneVolumeCase) {
  CaseFolder c;
  // Volumes 1 and 3 and a water volume 3: the pair line of 1 and 3 from
  // ADVCONN.INP.
  c.Put("SURFACE.INP", Element("W1", kWall1) + Element("W3", "0|90|0|0|0|0|3|1|1|1|||||1"));
  c.Put("FLUIDS.INP", "1\t1\r\n3\t2\r\n");
  c.Put("ADVCONN.INP", "1 - 3\t2.5\t1.25\r\n");
  c.Put("FORCEVEN.INP", "1\t3\t10\r\n0\t1\t-5\r\n0\t3\t15\r\n");
  PrepareCase(c.ws);
  EXPECT_STARTS(c.Dat(1),
                "C - test\r\n   2.00   2.00\r\n   1.00\r\n   2.00\r\n   2.50   1.25\r\nW1");
  std::string dat4 = c.Dat(4);
  EXPECT_NE(dat4.find("     -1.00\r\n      0.00\r\n      -10.\r\n       -5.\r\n"
                      "     -1.00\r\n      0.00\r\n       15.\r\n"),
            std::string::npos);

  // One volume: no pair lines, and FORCEVEN.INP goes; the volume writes its
  // two head lines only. The other files missing give zeros and defaults.
  CaseFolder one;
  one.Put("SURFACE.INP", Element("W1", kWall1));
  one.Put("FORCEVEN.INP", "0\t1\t25\r\n");
  PrepareCase(one.ws);
  EXPECT_FALSE(testing::Exists(JoinPath(one.ws.CasePath, "FORCEVEN.INP")));
  EXPECT_STARTS(one.Dat(1), "C - test\r\n   1.00   1.00\r\n   1.00\r\nW1");
  EXPECT_EQ(one.Dat(2), "C - test\r\n        0.\r\n");
  EXPECT_EQ(one.Dat(3),
            "C - test\r\n     0.000\r\n     0.000     0.000     0.000\r\n     0.000\r\n"
            "     0.000\r\n     0.000\r\n     0.000\r\n     0.000\r\n     0.000\r\n");
  dat4 = one.Dat(4);
  EXPECT_STARTS(dat4,
                "1    0\r\n\r\nC - test\r\n0\r\n        0.\r\n        0.\r\n 11.0 -1  0\r\n"
                "      0      0\r\n000000000\r\n");
  // The HVAC block of a case without HVAC_Cal.Inp carries the default
  // schedule.
  EXPECT_NE(dat4.find("Default_Schedule-1 "), std::string::npos);
  EXPECT_ENDS(dat4, "\t\r\n     -1.00\r\n      0.00\r\n        0.\r\n");
}

TEST(PrepareCase, WallBlocksDefaultWallAndMaterialsOnce) {
  CaseFolder c;
  c.PutLib("WALLS.LIB", "1\tOuter\r\n\t6\t100\r\n\t99\t5\r\n3\tInner\r\n\t2\t15\r\n\t6\t45\r\n");
  c.PutLib("OPAQUE.LIB", "2\tLightweight concrete\t0.14\t0.28\t500\r\n6\tWool\t0.035\t0.2\t30\r\n");
  PrepareCase(c.ws);
  std::string wool;
  for (int layer = 0; layer < 10; ++layer) wool += "    10.000     6.000\r\n";
  EXPECT_EQ(c.Dat(2),
            "C - test\r\n        3.\r\n"
            // Wall 1: its wool is the library's; material 99 is not there.
            "        2.\r\n    10.000     6.000\r\nWool      \r\n0.035 0.2 30\r\n"
            "     0.500    99.000\r\n"
            // Wall 2 is missing: ten layers of wool, whose name was written.
            "       10.\r\n" +
                wool +
                // Wall 3: the concrete once, the wool not again.
                "        2.\r\n     1.500     2.000\r\nLightweigh\r\n0.14 0.28 500\r\n"
                "     4.500     6.000\r\n");

  // With only missing walls below the highest, the default wool is written
  // once for them all.
  CaseFolder d;
  d.PutLib("WALLS.LIB", "3\tDoor\r\n");
  PrepareCase(d.ws);
  EXPECT_EQ(d.Dat(2),
            "C - test\r\n        3.\r\n       10.\r\n    10.000     6.000\r\n"
            "Mineral wo\r\n0.04 0.24 50\r\n" +
                wool.substr(22 * 1) + "       10.\r\n" + wool + "        0.\r\n");

  // Material 6 absent from the library: a layer of it before the first
  // missing wall describes nothing, and the default wall still describes
  // its wool, once.
  const std::string without_six[] = {"", "2\tLightweight concrete\t0.14\t0.28\t500\r\n"};
  for (const std::string& library : without_six) {
    CaseFolder e;
    e.PutLib("WALLS.LIB", "1\tOuter\r\n\t6\t100\r\n3\tInner\r\n\t6\t45\r\n");
    if (!library.empty()) e.PutLib("OPAQUE.LIB", library);
    PrepareCase(e.ws);
    EXPECT_EQ(e.Dat(2),
              "C - test\r\n        3.\r\n"
              "        1.\r\n    10.000     6.000\r\n"
              "       10.\r\n    10.000     6.000\r\nMineral wo\r\n0.04 0.24 50\r\n" +
                  wool.substr(22) + "        1.\r\n     4.500     6.000\r\n")
        << library;
  }
}

TEST(PrepareCase, ControlLinesOutputsAndCurtainSchedule) {
  CaseFolder c;
  c.ws.AccuracyLevelTL = "3x";
  c.Put("SURFACE.INP",
        Element("W1", kWall1 + "|||||5|2") + Element("W2", "0|90|0|0|0|0|2|0|1|1|||||1|||||5|3"));
  c.Put(
      "SITE.INP",
      "55.7\t 1\t 2\t\r\n12.5\r\n10\r\n0.2\r\nC:\\CLIM\\X.cli\r\n2001\r\n11\r\n15\r\n2002\r\n2\r\n"
      "28\r\n12345678\r\n-3.25\r\n-1000\r\n");
  c.Put("GENPARS.INP", "N\r\n25\r\n1.5\r\n\r\n\r\n3\r\nY\r\n");
  c.Put("OUTPUT.INP",
        "2\r\n-1 \r\n-1 \r\n1\t-1\t0\t-1\t0\t0\t-1\t-1\t\r\n2\t0\t0\t0\t0\t0\t0\t0\t\r\n");
  std::string months;
  for (int m = 1; m <= 12; ++m) {
    months += std::to_string(m) + (m == 12 ? "\t2\t110000000000000000000011\r\n" : "\t1\t0\r\n");
  }
  c.Put("MISCHED.INP", months);
  c.PutLib("MOVEINS.LIB", "1\tA\t40\t20\t.05\r\n2\tB\t5\t60\t.2\r\n");
  PrepareCase(c.ws);
  std::string dat4 = c.Dat(4);
  EXPECT_STARTS(dat4,
                "3 1234567 -3.25 -1000 3\r\nC:\\CLIM\\X.cli\r\nC - test\r\n1\r\n        3.\r\n"
                "        2.\r\n1.5 15.0 -1  .25\r\n     1    -2\r\n1 3 6\r\n0\r\n100000000\r\n");
  // Curtains 2 and 3: a line per element, the third beyond the library.
  EXPECT_ENDS(dat4, "        2.\r\n.6 .2 .05 \r\n\r\n");
  // November 2001 to February 2002: December by the hour.
  std::string hours = "1 1 ";
  for (int h = 0; h < 20; ++h) hours += "0 ";
  hours += "1 1 \r\n";
  EXPECT_ENDS(c.Dat(3), "     1.000\r\n     2.000\r\n" + hours + "     1.000\r\n     1.000\r\n");

  // Output not hourly, and one curtain throughout.
  c.Put("OUTPUT.INP", "1\r\n-1 \r\n 0 \r\n1\t-1\t0\t-1\t0\t0\t-1\t-1\t\r\n");
  c.Put("SURFACE.INP", Element("W1", kWall1 + "|||||5|2"));
  PrepareCase(c.ws);
  dat4 = c.Dat(4);
  EXPECT_NE(dat4.find("        1.\r\n1.5 15.0 -1  .25\r\n      0      0\r\n000000000\r\n"),
            std::string::npos);
  EXPECT_ENDS(dat4, "        0.\r\n.6 .2 .05 \r\n");
}

TEST(PrepareCase, ADamagedFileIsNamedAndNothingIsWritten) {
  CaseFolder c;
  c.Put("SURFACE.INP", Element("W1", kWall1));
  c.Put("DAT1.DAT", "old");
  c.Put("MISCHED.INP", "1\t7\t0\r\n");
  EXPECT_EQ(testing::FileErrorText([&] { PrepareCase(c.ws); }),
            "Invalid curtain mode \"7\"\r" + JoinPath(c.ws.CasePath, "MISCHED.INP") + ", line 1");
  EXPECT_EQ(c.Dat(1), "old");
}

}  // namespace
}  // namespace zelmo
