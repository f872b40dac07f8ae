#include "modules/corv.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <numeric>

#include "modules/corv_fent_test_case.h"
#include "modules/dat2.h"

namespace zelmo::modules {
namespace {

using testing::ErrorTableText;
using testing::FailedStatus;
using testing::FailureOf;
using testing::ModuleCase;

Dat2 Dat2Of(const std::string& bytes) {
  std::vector<std::string> lines;
  for (size_t at = 0; at < bytes.size();) {
    const size_t end = bytes.find("\r\n", at);
    lines.push_back(bytes.substr(at, end - at));
    at = end + 2;
  }
  TextReader reader("DAT2.DAT", lines);
  return ReadDat2(reader);
}

// DAT2.DAT as the front end writes it: wall 1 of 13 mm gypsum board and
// 170 mm mineral wool (library thicknesses in mm, written in cm), wall 2 a
// number without a wall (the default block's first layers), wall 3 of 100 mm
// mineral wool, whose data stand once in the file.
const std::string kDat2 =
    "Office room\r\n"
    "        3.\r\n"
    "        2.\r\n"
    "     1.300     5.000\r\n"
    "Gypsum boa\r\n"
    "0.22 0.30 900\r\n"
    "    17.000     6.000\r\n"
    "Mineral wo\r\n"
    "0.04 0.24 50\r\n"
    "        1.\r\n"
    "    10.000     6.000\r\n"
    "        1.\r\n"
    "    10.000     6.000\r\n";

TEST(Corv, TheWallsOfDat2InSiUnits) {
  ModuleCase c;
  c.Put("DAT2.DAT", kDat2);
  EXPECT_EQ(c.Run(kCorv, kCorvDat2Damaged, RunCorv), "    0 CORV      \r\n\"\"\r\n0\r\n");
  const CorvResult result = ReadCorvResult(c.case_folder, 601);
  ASSERT_EQ(result.walls.size(), 3u);
  // By hand: 1 / (0.013 / 0.22 + 0.17 / 0.04) and 0.04 / 0.1.
  const struct {
    int wall;
    double u, capacity;
  } rows[] = {
      // 900 kg/m3 x 0.30 Wh/kg,K x 3600 x 0.013 m + 50 x 0.24 x 3600 x 0.17
      {1, 1 / (0.013 / 0.22 + 0.17 / 0.04), 12636 + 7344},
      {2, 0.4, 4320},
      {3, 0.4, 4320},
  };
  for (const auto& row : rows) {
    const CorvWall* wall = result.Wall(row.wall);
    ASSERT_TRUE(wall);
    EXPECT_NEAR(wall->construction.u, row.u, 1e-9) << row.wall;
    const auto& capacity = wall->construction.capacity;
    EXPECT_NEAR(std::accumulate(capacity.begin(), capacity.end(), 0.0), row.capacity, 1e-6);
  }
  EXPECT_FALSE(result.Wall(4));
  EXPECT_FALSE(result.Wall(0));
  // The file holds what a run of the same walls computes.
  const CorvResult again = ComputeCorv(ReadDat2(JoinPath(c.case_folder, "DAT2.DAT")));
  EXPECT_EQ(result.walls[0].construction.conductance.size(),
            again.walls[0].construction.conductance.size());
  const std::string res = c.Bytes("CORV.RES");
  EXPECT_EQ(res.substr(0, res.find("\r\n")), "ZELMO-QRN CORV " + CorvFingerprint(c.case_folder));
  EXPECT_NE(res.find("\r\nWalls\t3\r\nWall\t1\t"), std::string::npos);
  // Wall 3: 0.1 m, 0.04 / 0.1, 50 x 864 x 0.1 / 1000 kJ; mineral wool's
  // 0.1 m in cells of at most sqrt(9.26e-7 m2/s x 900 s) = 28.9 mm: 4.
  EXPECT_NE(c.Bytes("CORV.LIS")
                .find("\r\n     3       1          0.100                          "
                      "0.400                      4.3      5\r\n"),
            std::string::npos)
      << c.Bytes("CORV.LIS");
}

TEST(Corv, AResultOfOtherWallsIsRefused) {
  ModuleCase c;
  c.Put("DAT2.DAT", kDat2);
  c.Run(kCorv, kCorvDat2Damaged, RunCorv);
  c.Put("DAT2.DAT", kDat2 + "\r\n");
  EXPECT_EQ(FailureOf([&] { ReadCorvResult(c.case_folder, 602); }),
            "602 The results of CORV (CORV.RES) are out of date: run CORV again");
}

// Each damaged DAT2.DAT: the code and line ECM.Dat gets, and the error
// table's text the user then reads.
TEST(Corv, DamagedWallsLeaveTheirCodeAndText) {
  const std::string head = "Office room\r\n        1.\r\n";
  const struct {
    const char* name;
    std::string dat2;  // empty: no file
    int code;
    std::string line;  // the file's path stands for $
    std::string table;
  } rows[] = {
      {"missing", "", 301, "Cannot read $",
       "The wall file DAT2.DAT cannot be opened in the case folder."},
      {"cut short", head + "        2.\r\n     1.300     5.000\r\nGypsum boa\r\n0.22 0.30 900\r\n",
       302, "Input past end of file: $, line 7",
       "The wall file DAT2.DAT is cut short or holds a value that cannot be read at the line named "
       "above."},
      {"count", "Office room\r\n       101.\r\n", 302,
       "The highest wall number must be a whole number from 0 to 100: $, line 2", ""},
      {"layers", head + "        21.\r\n", 302,
       "The number of layers must be a whole number from 0 to 20: $, line 3", ""},
      {"layer", head + "        1.\r\n     1.3x0     5.000\r\n", 302,
       "A layer's thickness and material number (1 to 200) expected: $, line 4", ""},
      {"trailing", kDat2 + "junk\r\n", 302, "Lines after the last wall: $, line 14", ""},
      {"no thickness",
       head + "        1.\r\n     0.000     5.000\r\nGypsum boa\r\n0.22 0.30 900\r\n", 303,
       "wall 1, layer 1 (DAT2.DAT, line 4) has no thickness",
       "A layer of the wall named above has no thickness."},
      {"no data", head + "        1.\r\n     1.300    77.000\r\n", 304,
       "wall 1, layer 1 (DAT2.DAT, line 4): material 77 has no data",
       "A layer of the wall named above refers to an opaque material that has no data."},
      {"no conductivity",
       head + "        1.\r\n     1.300     5.000\r\nGypsum boa\r\n0 0.30 900\r\n", 305,
       "wall 1, layer 1 (DAT2.DAT, line 4): material 5 (Gypsum boa) needs a conductivity above 0 "
       "and no negative density or specific heat",
       "The opaque material named above has a conductivity of 0, or a negative density or specific "
       "heat."},
      {"no layers", head + "        0.\r\n", 306, "wall 1 has no layers (DAT2.DAT, line 3)",
       "The wall named above has no layers."},
  };
  for (const auto& row : rows) {
    ModuleCase c;
    if (!row.dat2.empty()) c.Put("DAT2.DAT", row.dat2);
    std::string line = row.line;
    if (line.find('$') != std::string::npos) {
      line.replace(line.find('$'), 1, JoinPath(JoinPath(c.case_folder, ""), "DAT2.DAT"));
    }
    EXPECT_EQ(c.Run(kCorv, kCorvDat2Damaged, RunCorv), FailedStatus(row.code, "CORV", line))
        << row.name;
    if (!row.table.empty()) {
      EXPECT_EQ(ErrorTableText(row.code), "CORV: " + row.table) << row.name;
    }
    EXPECT_EQ(c.Bytes("CORV.RES"), "<missing>") << row.name;
  }
  EXPECT_EQ(ErrorTableText(398),
            "CORV: The results of CORV (CORV.RES, CORV.LIS) could not be written in the case "
            "folder.");
  EXPECT_EQ(ErrorTableText(399),
            "CORV: CORV stopped on a failure it did not foresee; the line above says what.");
}

TEST(Corv, ResultsThatCannotBeWrittenLeave398) {
  ModuleCase c;
  c.Put("DAT2.DAT", kDat2);
  std::filesystem::create_directories(ToFsPath(JoinPath(c.case_folder, "CORV.RES")));
  const std::string status = c.Run(kCorv, kCorvDat2Damaged, RunCorv);
  EXPECT_EQ(status.substr(0, 16), "  398 CORV      ");
}

TEST(Corv, ADamagedResultNamesItsLine) {
  const CorvResult sound = ComputeCorv(Dat2Of(kDat2));
  const std::vector<std::string> lines = CorvLines(sound);
  EXPECT_EQ(ParseCorvResult(lines, 601).walls.size(), 3u);
  const struct {
    size_t line;
    std::string text;
  } rows[] = {
      {0, "Walls\t101"}, {1, "Wall\t2\t5\t0.4"}, {2, "C\t1\t2"},
      {3, "G\t0\t1"},    {4, "Wall\t2\t5"},      {6, "G"},
  };
  for (const auto& row : rows) {
    auto damaged = lines;
    damaged[row.line] = row.text;
    EXPECT_EQ(FailureOf([&] { ParseCorvResult(damaged, 601); }),
              "601 The results of CORV (CORV.RES) are damaged at line " +
                  std::to_string(row.line + 2) + ": run CORV again")
        << row.text;
  }
}

}  // namespace
}  // namespace zelmo::modules
