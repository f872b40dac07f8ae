#include "simulation/list_of_elements.h"

#include <gtest/gtest.h>

#include <cstdlib>

#include "core/file_system.h"
#include "core/testing/fakes.h"
#include "core/text_file.h"

namespace zelmo {
namespace {

using testing::GridRows;
using testing::Strings;
using testing::WriteBytes;

std::string Source() { return std::getenv("ZELMO_SOURCE_DIR"); }

// The example's case, opened.
struct ExampleCase {
  ExampleCase() {
    CopyFolderTree(Source() + "/system/tree/ZELMOPROJ/Example", dir / "Example");
    ws().ProjectPath = dir / "Example";
    ws().CasePath = dir / "Example/Case1";
    ws().CaseHeadline = "Office room in Stockholm";
  }
  Workspace& ws() { return fake.ws(); }
  testing::TempDir dir;
  testing::FakeSession fake;
};

// The sequence numbers and names of the grid's rows, the header left out.
Strings Listed(const ListOfBuildingElements& screen) {
  Strings rows;
  for (int row = 1; row < screen.Grid1.rows(); ++row) {
    rows.push_back(screen.Grid1.Cell(row, 0) + " " + screen.Grid1.Cell(row, 4));
  }
  return rows;
}

TEST(ListOfBuildingElements, TheExampleBySurfaceFacingOutdoors) {
  ExampleCase c;
  ListOfBuildingElements screen(c.fake.session);
  screen.Load();
  // Eleven elements, four of them with a hole; the inner wall and its hole
  // (14 and 15) face no outdoors.
  EXPECT_EQ(
      screen.TN.caption + " " + screen.NS.caption + " " + std::to_string(screen.Option1[0].value),
      "15 9 1");
  EXPECT_EQ(Listed(screen),
            (Strings{"1 South 1", "2 South 1 (hole)", "3 West 1", "4 North 1", "7 South 2",
                     "8 South 2 (hole)", "9 East 2", "10 East 2 (hole)", "11 North 2"}));
  const Strings rows = GridRows(screen.Grid1);
  EXPECT_EQ(Strings(rows.begin(), rows.begin() + 3),
            (Strings{"Seq #|Zenith|Azimuth|Surface #|Name|Shape|Constr.|Vf|Vb|x0|y0|z0",
                     "1|90.00|180.00|1|South 1|3|1|0|1|0.00|0.00|0.00",
                     "2|90.00|180.00|1|South 1 (hole)|3|W2|0|1|0.00|0.00|0.00"}));

  screen.Option1[1].on_click();
  EXPECT_EQ(screen.Option1[0].value + 2 * screen.Option1[1].value, 2);
  EXPECT_EQ(screen.NS.caption, "4");
  EXPECT_EQ(Listed(screen), (Strings{"5 Floor 1", "6 Roof 1", "12 Floor 2", "13 Roof 2"}));
  EXPECT_EQ(GridRows(screen.Grid1)[1], "5|180.00|0.00|4|Floor 1|1|2|-1|1|0.00|4.00|0.00");
  screen.Option1[2].on_click();
  EXPECT_EQ(screen.NS.caption + " " + std::to_string(screen.Grid1.rows()), "0 1");

  screen.Command1.on_click();
  EXPECT_EQ(c.fake.desktop.help_calls.at(0).second, 12116);
  screen.OK.on_click();
  EXPECT_TRUE(screen.unloaded);
}

TEST(ListOfBuildingElements, ADecimalCommaShowsInTheCellsAndKeepsTheValues) {
  ExampleCase c;
  c.ws().DecimalComma = true;
  // The roof of room 1 tilted by half a degree off the vertical: read with
  // its comma it is no wall.
  std::string surface = testing::ReadBytes(JoinPath(c.ws().CasePath, "SURFACE.INP"));
  const std::string flat = "Roof 1\r\n\t0\r\n\t0\r\n";
  const size_t roof = surface.find(flat);
  ASSERT_NE(roof, std::string::npos);
  surface.replace(roof, flat.size(), "Roof 1\r\n\t0\r\n\t90.5\r\n");
  WriteBytes(JoinPath(c.ws().CasePath, "SURFACE.INP"), surface);
  ListOfBuildingElements screen(c.fake.session);
  screen.Load();
  EXPECT_EQ(GridRows(screen.Grid1)[1], "1|90,00|180,00|1|South 1|3|1|0|1|0,00|0,00|0,00");
  EXPECT_EQ(screen.NS.caption, "9");
  screen.Option1[2].on_click();
  EXPECT_EQ(GridRows(screen.Grid1),
            (Strings{GridRows(screen.Grid1)[0], "6|90,50|0,00|5|Roof 1|1|3|0|1|0,00|0,00|2,70"}));
}

// DAT1.DAT of two volumes (a fluid line each and one pair line), a shading
// screen towards outdoors, a window between the volumes, and a wall to the
// ground with a window in its hole.
constexpr const char* kDat1 =
    "Headline\r\n   2.00   3.00\r\n   1.00\r\n   1.00\r\n   0.00   0.00\r\n"
    "Screen          1.00     45.00     90.00      1.00      2.00      3.00 0.00 1.00\r\n"
    "   2.00   1.00   0.00   0.00   0.00   0.00 0.00 0.00 0.70 0.20 0.00    1.0000\r\n"
    "Glass           1.00     90.00      0.00      0.00      0.00      0.00 1.00 2.00\r\n"
    "   1.00   1.00   0.00   0.00   0.00   0.00 6.00 1.00 0.00 0.00 0.00    0.0000\r\n"
    "7\r\n"
    "Ground          3.00    -90.00      0.00      0.00      0.00      0.00-1.00 1.00\r\n"
    "   4.00   2.00   0.50   1.00   1.50   1.50 1.00 2.00 0.70 0.70 0.00    1.0000\r\n"
    " .87  .87\r\n"
    " 6.00 1.00 0.00 0.00 0.00\r\n"
    "3\r\n";

TEST(GetDat1, CutsTheColumnsAndCountsEverySurface) {
  testing::TempDir dir;
  WriteBytes(dir / "DAT1.DAT", kDat1);
  Dat1Surfaces read = GetDat1(dir / "DAT1.DAT", false);
  EXPECT_EQ(read.total, 4);
  Strings outdoors;
  for (const Dat1Surface& s : read.outdoors) {
    outdoors.push_back(std::to_string(s.sequence) + " " + std::to_string(s.element) + " " + s.name +
                       " " + s.construction + " " + s.front + " " + s.back + " " + s.zenith + " " +
                       s.z);
  }
  EXPECT_EQ(outdoors, (Strings{"1 1 Screen 0 0 1 45.00 3.00", "3 3 Ground 2 -1 1 -90.00 0.00",
                               "4 3 Ground W3 -1 1 -90.00 0.00"}));
}

TEST(GetDat1, AFileCutShortIsNamedWithItsLine) {
  testing::TempDir dir;
  const std::string text = kDat1;
  const std::pair<int, const char*> cuts[] = {{2, "The file ends too early"},
                                              {7, "The file ends before element 2 of 3"},
                                              {14, "The file ends too early"}};
  for (const auto& [lines, what] : cuts) {
    size_t end = 0;
    for (int i = 0; i < lines; ++i) end = text.find("\r\n", end) + 2;
    WriteBytes(dir / "DAT1.DAT", text.substr(0, end));
    EXPECT_EQ(testing::FileErrorText([&] { GetDat1(dir / "DAT1.DAT", false); }),
              what + ("\r" + (dir / "DAT1.DAT")) + ", line " + std::to_string(lines + 1))
        << lines;
  }
}

TEST(Quicksort, SortsByKeyWithWhatTravelsWithItWhateverThePivot) {
  const std::vector<int> keys = {5, 3, 9, 3, 1, 8, 5, 2, 7, 3};
  int calls = 0;
  const std::function<double()> pivots[] = {[] { return 0.0; }, [] { return 0.999999; },
                                            [&calls] { return (calls++ % 3) / 3.0; }};
  for (const auto& random : pivots) {
    std::vector<int> sorted = keys, carried;
    for (int i = 0; i < static_cast<int>(keys.size()); ++i) carried.push_back(i);
    Quicksort(sorted, carried, 0, static_cast<int>(keys.size()) - 1, random);
    EXPECT_EQ(sorted, (std::vector<int>{1, 2, 3, 3, 3, 5, 5, 7, 8, 9}));
    for (size_t i = 0; i < keys.size(); ++i) EXPECT_EQ(keys[carried[i]], sorted[i]);
  }
}

}  // namespace
}  // namespace zelmo
