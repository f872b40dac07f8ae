#include "modules/fent.h"

#include <gtest/gtest.h>

#include "libraries/window_properties.h"
#include "modules/corv_fent_test_case.h"
#include "modules/glazing_library.h"

namespace zelmo::modules {
namespace {

using testing::ErrorTableText;
using testing::FailedStatus;
using testing::FailureOf;
using testing::ModuleCase;

// Wndw.Lib as the front end writes it: a table glass, a Fresnel glass, a
// coated glass by its normal values; air; a double window with the coating
// turned round, an empty slot, a type without panes and a triple.
const std::string kLibrary =
    "3 ! Number of glass types\r\n \r\n"
    "Clear4mm  0.84  0.84 1\r\n 3\r\n 0.829 0.716 0.000\r\n 0.076 0.133 1.000\r\n"
    " 0.076 0.133 1.000\r\n \r\n"
    "Float4mm  0.84  0.84 2\r\n    4.00    1.53   25.00\r\n \r\n"
    "LowE4mm  0.04  0.84 3\r\n   0.52  0.30\r\n \r\n"
    "1 ! Number of gas types  k   dk   u   du   r   dr   p   dp\r\n \r\n"
    "Air 0.02496 7.8e-5 1.761e-5 4.9e-8 1.2466 -0.00440 0.7112 -2.436e-4\r\n \r\n"
    "4 ! Number of window types\r\n \r\n"
    " Double 2\r\n Float4mm 0\r\n 12 Air\r\n LowE4mm 1\r\n \r\n"
    " Dummy 1\r\n  Clear4mm 0\r\n \r\n"
    " Empty 0\r\n \r\n"
    " Triple 3\r\n Clear4mm 0\r\n 12 Air\r\n Float4mm 0\r\n 12 Air\r\n LowE4mm 0\r\n \r\n";

// DAT1.DAT's lines around the windows: the window of an element with its
// leakage field, the hole window of a second construction without it, a
// construction that is no window.
std::string Dat1(const std::string& main, const std::string& hole) {
  return "Office\r\n   1.00   2.00\r\n"
         "Wall               1.00      0.00      0.00      0.00      0.00     90.00    1    0\r\n"
         "   4.00   3.00   2.00   1.00   3.00   0.00 6.00 1.00 0.00 0.00 0.00    0.5000\r\n" +
         main +
         "\r\n"
         "   1.00   2.00   3.00   4.00   5.00   6.00 1.00 2.00 0.01 0.02 0.00    0.0000\r\n"
         " 6.00 1.00 0.00 0.00 1.00\r\n" +
         hole + "\r\n";
}

TEST(Fent, TheWindowTypesTheElementsUse) {
  const auto used = UsedWindowTypes(Dat1("4", " 1") + Dat1("1", "4"));
  ASSERT_EQ(used.size(), 2u);
  EXPECT_EQ(used[0].number, 1);
  EXPECT_EQ(used[0].line, 8);
  EXPECT_EQ(used[1].number, 4);
  EXPECT_EQ(used[1].line, 5);
  EXPECT_TRUE(UsedWindowTypes("   1.00   2.00   3.00   4.00   5.00   6.00 1.00 2.00 0.01 0.02 "
                              "0.00    0.0000\r\n3\r\n")
                  .empty());
}

// The screen's routine and the module give one U, g and Tsol; the tables
// hold what the optics give at their angles.
TEST(Fent, WindowsOfTheLibraryAsTheScreenShowsThem) {
  ModuleCase c;
  c.Put("Wndw.Lib", kLibrary, true);
  c.Put("DAT1.DAT", Dat1("4", "1"));
  EXPECT_EQ(c.Run(kFent, kFentLibraryDamaged, RunFent), "    0 FENT      \r\n\"\"\r\n0\r\n");
  const FentResult result = ReadFentResult(c.case_folder, 501);
  ASSERT_EQ(result.windows.size(), 2u);
  EXPECT_FALSE(result.Window(2));
  for (int number : {1, 4}) {
    const FentWindow* w = result.Window(number);
    ASSERT_TRUE(w);
    const WindowOutcome screen = WindowPropertiesOf(c.project, number);
    ASSERT_TRUE(screen.results) << screen.fault;
    EXPECT_NEAR(w->u, screen.results->u, 1e-6);
    EXPECT_NEAR(w->g, screen.results->g, 1e-6);
    EXPECT_NEAR(w->tsol, screen.results->tsol, 1e-6);
    EXPECT_NEAR(w->front[0].tau, w->tsol, 1e-9);
    EXPECT_EQ(w->gaps.size() + 1, w->panes.size());
    // Falling with the angle, to nothing at 90 degrees. The coated glass's
    // equivalent slab (n = 3.3 from its reflectance of 0.30) lets the p
    // wave through a little better near normal incidence: a rise of 0.0003
    // up to 10 degrees.
    for (int k = 1; k < kFentAngles; ++k) {
      EXPECT_LE(w->front[k].tau, w->front[k - 1].tau + 5e-4) << number << " at " << k * 5;
    }
    EXPECT_EQ(w->front[kFentAngles - 1].tau, 0);
    EXPECT_NEAR(w->FrontAt(32.5).tau, (w->front[6].tau + w->front[7].tau) / 2, 1e-12);
    EXPECT_EQ(w->BackAt(95).tau, 0);
  }
  // The coated pane turned round: its low emittance faces the room.
  const FentWindow& double_window = *result.Window(1);
  EXPECT_EQ(double_window.panes[1].eps_front, 0.84);
  EXPECT_EQ(double_window.panes[1].eps_back, 0.04);
  EXPECT_EQ(double_window.gaps[0].width_mm, 12);
  EXPECT_NE(c.Bytes("FENT.LIS").find("     1      2"), std::string::npos);
  // Written and read back, the same.
  const auto lines = FentLines(result);
  EXPECT_EQ(FentLines(ParseFentResult(lines, 501)), lines);
}

TEST(Fent, AResultOfAnotherLibraryOrCaseIsRefused) {
  ModuleCase c;
  c.Put("Wndw.Lib", kLibrary, true);
  c.Put("DAT1.DAT", Dat1("4", "1"));
  c.Run(kFent, kFentLibraryDamaged, RunFent);
  c.Put("DAT1.DAT", Dat1("1", "1"));
  EXPECT_EQ(FailureOf([&] { ReadFentResult(c.case_folder, 502); }),
            "502 The results of FENT (FENT.RES) are out of date: run FENT again");
}

TEST(Fent, DamagedWindowsLeaveTheirCodeAndText) {
  std::string no_gas = kLibrary, bad_glass = kLibrary, flat = kLibrary, no_glass = kLibrary;
  no_gas.replace(no_gas.find(" 12 Air"), 7, " 12 Neon");
  bad_glass.replace(bad_glass.find(" 0.716"), 6, " 1.716");
  flat.replace(flat.find(" 12 Air"), 7, " 0 Air");
  no_glass.replace(no_glass.find(" Float4mm 0"), 11, " Opal 0");
  const struct {
    const char* name;
    std::string library, dat1;  // empty: no file
    int code;
    std::string line;  // $ stands for Wndw.Lib's path, @ for DAT1.DAT's
    std::string table;
  } rows[] = {
      {"no library", "", Dat1("1", "1"), 401, "Cannot read $",
       "The window library Wndw.Lib cannot be opened in the project folder."},
      {"cut short", kLibrary.substr(0, kLibrary.find(" Empty")), Dat1("1", "1"), 402,
       "Input past end of file: $, line 29",
       "The window library Wndw.Lib is cut short or damaged at the line named above."},
      {"no DAT1", kLibrary, "", 403, "Cannot read @",
       "The geometry file DAT1.DAT cannot be opened in the case folder."},
      {"no type", kLibrary, Dat1("1", "7"), 404, "window type 7 is not in $ (DAT1.DAT, line 8)",
       "A building element uses a window type that is not in the window library."},
      {"no panes", kLibrary, Dat1("3", "1"), 405,
       "window type 3 (Empty) has no panes (DAT1.DAT, line 5)",
       "A window type used by the case has no panes."},
      {"no glass", no_glass, Dat1("1", "1"), 406,
       "glass type Opal of window type 1 (Double) is not in $ (DAT1.DAT, line 5)",
       "A pane of the window type named above uses a glass type that is not in the glass "
       "library."},
      {"no gas", no_gas, Dat1("1", "1"), 407,
       "gas type Neon of window type 1 (Double) is not in $ (DAT1.DAT, line 5)",
       "A gap of the window type named above uses a gas type that is not in the gas library."},
      {"bad glass", bad_glass, Dat1("2", "2"), 408,
       "glass type Clear4mm has no sound data by angle of incidence (DAT1.DAT, line 5)",
       "The glass type named above has optical data that no glass can have: a table without"},
      {"flat gap", flat, Dat1("1", "1"), 409,
       "the panes and gaps of window type 1 (Double) give no result (DAT1.DAT, line 5)",
       "The panes and gaps of the window type named above give no U-value: a gap of no width,"},
  };
  for (const auto& row : rows) {
    ModuleCase c;
    if (!row.library.empty()) c.Put("Wndw.Lib", row.library, true);
    if (!row.dat1.empty()) c.Put("DAT1.DAT", row.dat1);
    std::string line = row.line;
    if (const size_t at = line.find('$'); at != std::string::npos) {
      line.replace(at, 1, WindowLibraryOf(JoinPath(c.case_folder, "")));
    }
    if (const size_t at = line.find('@'); at != std::string::npos) {
      line.replace(at, 1, JoinPath(JoinPath(c.case_folder, ""), "DAT1.DAT"));
    }
    EXPECT_EQ(c.Run(kFent, kFentLibraryDamaged, RunFent), FailedStatus(row.code, "FENT", line))
        << row.name;
    EXPECT_EQ(ErrorTableText(row.code), "FENT: " + row.table) << row.name;
    EXPECT_EQ(c.Bytes("FENT.RES"), "<missing>") << row.name;
  }
  EXPECT_EQ(ErrorTableText(498),
            "FENT: The results of FENT (FENT.RES, FENT.LIS) could not be written in the case "
            "folder.");
}

TEST(Fent, ADamagedResultNamesItsLine) {
  ModuleCase c;
  c.Put("Wndw.Lib", kLibrary, true);
  c.Put("DAT1.DAT", Dat1("4", "1"));
  c.Run(kFent, kFentLibraryDamaged, RunFent);
  const auto lines = FentLines(ReadFentResult(c.case_folder, 501));
  const struct {
    size_t line;
    std::string text;
  } rows[] = {
      {0, "Windows\t2\tAngles\t18"}, {1, "Window\t1\t6\t1\t1\t1\tDouble"},
      {2, "Pane\t1\t1\t4"},          {4, "Gap\t12"},
      {5, "F\t5\t1\t0\t0\t0"},       {5, "F\t0\tx\t0\t0\t0"},
  };
  for (const auto& row : rows) {
    auto damaged = lines;
    damaged[row.line] = row.text;
    EXPECT_EQ(FailureOf([&] { ParseFentResult(damaged, 501); }),
              "501 The results of FENT (FENT.RES) are damaged at line " +
                  std::to_string(row.line + 2) + ": run FENT again")
        << row.text;
  }
}

}  // namespace
}  // namespace zelmo::modules
