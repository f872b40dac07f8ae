#include "libraries/window_properties.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "core/numbers.h"
#include "libraries/library_test_case.h"
#include "libraries/window_library_export.h"

namespace zelmo {
namespace {

using testing::LibraryCase;

// A line of Wndtp.LIB: the number, the name, the pane count and the cells of
// the panes and gaps, padded to the 20 columns.
std::string TypeLine(int number, const std::string& name, const std::string& cells) {
  std::string line = std::to_string(number) + "\t" + name + "\t" + cells;
  size_t tabs = 0;
  for (char ch : line) tabs += ch == '\t';
  return line + std::string(20 - tabs, '\t') + "\r\n";
}

// The example project's glass and gas types, Wndw.Lib written from them as
// the window type screen writes it.
struct Library : LibraryCase {
  explicit Library(const std::string& types) {
    // A table glass without an angle row, and normal data that no glass has.
    const std::string empty = std::string(12, '\t') + "\r\n";
    Put("GLASSTP.INP", Bytes("GLASSTP.INP") + "Bare\t84\t84\t1\t\t\t\t 0\t\r\n" + empty + empty +
                           empty + "Odd\t84\t84\t3\t80\t30\t\t 0\t\r\n" + empty + empty + empty);
    Put("WNDTP.LIB", types);
    WriteWindowLibrary(fake.ws());
  }
};

// The references were computed once by a separate python3 script from the
// formulas of the standards, not by this code: the panes at normal incidence
// (angle row 1, normal data, or a Fresnel slab of n = 1.53 and 25/m over
// 4 mm as Wndw.Lib holds them), the fluxes between the panes as one linear
// system, EN 673 with he 25, hi 7.7, 15 K over the gaps around 10 °C shared
// by their resistances until steady, gas data at each gap's mean
// temperature, glass of 1 W/m,K and 4 mm where the data give no thickness,
// and EN 410 with he 23, hi 3.6 + 4.4 e / 0.837 as a network of the panes'
// temperatures solved for the heat flow to the room.
TEST(WindowProperties, AgreeWithTheStandardsComputedApart) {
  const struct {
    const char* name;
    const char* cells;
    double u, g, tsol;
  } rows[] = {
      {"Single", " 1\tClear4mm\tNo", 5.7514, 0.8536, 0.8290},
      // Handbook values for 4-12-4 with air: U about 2.8, g about 0.76.
      {"Air", " 2\tClear4mm\tNo\t12\tAir\tClear4mm\tNo", 2.8568, 0.7547, 0.6912},
      {"Argon", " 2\tClear4mm\tNo\t16\tArgon\tClear4mm\tNo", 2.6179, 0.7560, 0.6912},
      {"LowE3", " 2\tClear4mm\tNo\t16\tArgon\tLowE4mm\tNo", 1.1050, 0.6024, 0.4655},
      {"LowE4", " 2\tClear4mm\tNo\t16\tArgon\tLowE4mm\tYes", 2.6179, 0.5615, 0.4644},
      {"Triple", " 3\tClear4mm\tNo\t12\tAir\tClear4mm\tNo\t12\tAir\tClear4mm\tNo", 1.9008, 0.6745,
       0.5787},
      {"TripleKr", " 3\tLowE4mm\tYes\t12\tKrypton\tClear4mm\tNo\t12\tKrypton\tLowE4mm\tNo", 0.4432,
       0.3992, 0.2758},
      {"Fresnel", " 1\tFloat4mm\tNo", 5.7514, 0.8530, 0.8285},
      {"Normal", " 2\tClear4mm\tNo\t12\tAir\tHardLowE4mm\tNo", 1.8828, 0.6956, 0.5526},
  };
  std::string types;
  int number = 0;
  for (const auto& row : rows) types += TypeLine(++number, row.name, row.cells);
  Library c(types);
  number = 0;
  for (const auto& row : rows) {
    const WindowOutcome outcome = WindowPropertiesOf(c.fake.ws().ProjectPath, ++number);
    ASSERT_TRUE(outcome.results) << row.name << ": " << outcome.fault;
    EXPECT_NEAR(outcome.results->u, row.u, 0.01) << row.name;
    EXPECT_NEAR(outcome.results->g, row.g, 0.005) << row.name;
    EXPECT_NEAR(outcome.results->tsol, row.tsol, 0.005) << row.name;
  }
}

TEST(WindowProperties, NoResultSaysWhy) {
  Library c(TypeLine(1, "Air", " 2\tClear4mm\tNo\t12\tAir\tClear4mm\tNo") +
            TypeLine(2, "Empty", " 0") + TypeLine(3, "Ghost", " 1\tOpal\tNo") +
            TypeLine(4, "Neon", " 2\tClear4mm\tNo\t12\tNeon\tClear4mm\tNo") +
            TypeLine(5, "Bare", " 1\tBare\tNo") +
            TypeLine(6, "Flat", " 2\tClear4mm\tNo\t0\tAir\tClear4mm\tNo") +
            TypeLine(7, "Odd", " 1\tOdd\tNo"));
  const std::string project = c.fake.ws().ProjectPath;
  const std::string library = JoinPath(project, "Wndw.Lib");
  const struct {
    int window;
    std::string fault;
  } rows[] = {
      {2, "window type 2 (Empty) has no panes"},
      {3, "glass type Opal of window type 3 (Ghost) is not in " + library},
      {4, "gas type Neon of window type 4 (Neon) is not in " + library},
      {5, "glass type Bare has no sound data at normal incidence"},
      {6, "the panes and gaps of window type 6 (Flat) give no result"},
      {7, "glass type Odd has no sound data at normal incidence"},
      {8, "window type 8 is not in " + library},
      {0, "window type 0 is not in " + library},
  };
  for (const auto& row : rows) {
    const WindowOutcome outcome = WindowPropertiesOf(project, row.window);
    EXPECT_FALSE(outcome.results);
    EXPECT_EQ(outcome.fault, row.fault);
  }
  // A library cut short names the file and the line.
  const std::string bytes = c.Bytes("Wndw.Lib");
  c.Put("Wndw.Lib", bytes.substr(0, bytes.find(" Empty")));
  EXPECT_EQ(WindowPropertiesOf(project, 1).fault,
            "Input past end of file\r" + library + ", line " +
                std::to_string(
                    std::count(bytes.begin(), bytes.begin() + bytes.find(" Empty"), '\n') + 1));
}

// The routine of the screen finds the project through the exchange file.
TEST(WindowProperties, TheRoutineReadsTheExchangeFile) {
  Library c(TypeLine(1, "Air", " 2\tClear4mm\tNo\t12\tAir\tClear4mm\tNo"));
  GlazingWindowProperties routine;
  const auto results = RequestWindowProperties(c.fake.ws(), routine, 1);
  ASSERT_TRUE(results);
  EXPECT_EQ(FormatDecimals(results->u, 2) + " " + FormatDecimals(results->g, 3), "2.86 0.755");
  EXPECT_FALSE(testing::Exists(JoinPath(c.fake.ws().MainDirectory, "UGFile.txt")));
  EXPECT_FALSE(RequestWindowProperties(c.fake.ws(), routine, 2));
  int32_t unit = 1, status = 0;
  int16_t window = 1;
  float u = 0, g = 0, tsol = 0;
  const std::string missing = JoinPath(c.fake.ws().MainDirectory, "UGFile.txt");
  EXPECT_FALSE(routine.GETWINDOWPROPERTIES(unit, window, u, g, tsol, status, missing,
                                           static_cast<int32_t>(missing.size())));
}

}  // namespace
}  // namespace zelmo
