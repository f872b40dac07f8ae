#include "modules/neb.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

#include "core/file_system.h"
#include "core/testing/fakes.h"
#include "core/text_file.h"
#include "modules/dat1_test_buildings.h"

namespace zelmo::modules {
namespace {

using test_buildings::Dat1Text;
using test_buildings::ElementSpec;
using test_buildings::ValidationBox;

constexpr double kDegree = std::numbers::pi / 180;

// The validation box with a long shading screen over its south windows: 1 m
// deep at the windows' head (z = 2.2), from x = -50 to 58.
std::vector<ElementSpec> BoxWithOverhang(double depth) {
  std::vector<ElementSpec> box = ValidationBox();
  box.push_back({"Overhang", 1, 0, 0, -50, -depth, 2.2, 0, 0, {108, depth}, 0});
  return box;
}

PlorResult Plor(const std::vector<ElementSpec>& elements) {
  return ComputePlor(ParseDat1("DAT1.DAT", Dat1Text(1, elements)));
}

// The index in PLOR's surfaces facing outdoors of a surface by its number.
size_t Outside(const PlorResult& plor, int number) {
  for (size_t k = 0; k < plor.outside.size(); ++k) {
    if (plor.surfaces[plor.outside[k].surface].number == number) return k;
  }
  ADD_FAILURE() << number;
  return 0;
}

TEST(Neb, AnOverhangShadesTheHeightOfDepthTimesTheTangentOfTheProfileAngle) {
  const double depth = 1, height = 2;  // the window's height
  const PlorResult plor = Plor(BoxWithOverhang(depth));
  const NebResult neb = ComputeNeb(plor);
  const size_t window = Outside(plor, 2);
  ASSERT_FALSE(neb.surfaces[window].open);
  // Sun from the south and obliquely, 40 degrees off the window's normal:
  // the profile angle's tangent is tan(altitude) / cos(40).
  const struct {
    double altitude, azimuth;
  } suns[] = {{30, 180}, {30, 220}, {45, 180}, {15, 145}, {60, 200}};
  for (const auto& sun : suns) {
    const double profile =
        std::tan(sun.altitude * kDegree) / std::cos((sun.azimuth - 180) * kDegree);
    const double shaded = std::min(1.0, depth * profile / height);
    const Vec3 direction = SunDirection(sun.altitude, sun.azimuth);
    EXPECT_NEAR(SunlitFractionFor(plor, window, direction), 1 - shaded, 1e-9)
        << sun.altitude << " " << sun.azimuth;
    // Where it lies on the grid, the table holds it to its four decimals.
    EXPECT_NEAR(SunlitFraction(neb, window, direction), 1 - shaded, 6e-5);
  }
  // Between the grid's directions the table is interpolated.
  const Vec3 between = SunDirection(32.5, 182.5);
  EXPECT_NEAR(SunlitFraction(neb, window, between), SunlitFractionFor(plor, window, between), 5e-3);
}

TEST(Neb, ASurfaceFacingAwayOrASunBelowTheHorizonIsDark) {
  const PlorResult plor = Plor(BoxWithOverhang(1));
  const NebResult neb = ComputeNeb(plor);
  const Vec3 south = SunDirection(30, 180);
  const size_t north = Outside(plor, 5), window = Outside(plor, 2);
  EXPECT_EQ(SunlitFraction(neb, north, south), 0);
  EXPECT_EQ(SunlitFractionFor(plor, north, south), 0);
  EXPECT_EQ(SunlitFraction(neb, window, SunDirection(-5, 180)), 0);
  // The roof is open: fully sunlit whenever the sun is up.
  const size_t roof = Outside(plor, 8);
  EXPECT_TRUE(neb.surfaces[roof].open);
  EXPECT_EQ(SunlitFraction(neb, roof, SunDirection(1, 0)), 1);
}

TEST(Neb, TheSkySeenPastTheShades) {
  const PlorResult plor = Plor(BoxWithOverhang(1));
  const NebResult neb = ComputeNeb(plor);
  EXPECT_EQ(neb.surfaces[Outside(plor, 5)].sky_view, 0.5);  // the north wall
  EXPECT_EQ(neb.surfaces[Outside(plor, 8)].sky_view, 1);    // the roof
  // A window of height H under an endless overhang of depth d at its head
  // sees, in two dimensions, (sqrt(H^2 + d^2) - d) / (2 H) of the sky:
  // (sqrt 5 - 1) / 4 here. The 5-degree grid holds it to 0.01.
  EXPECT_NEAR(neb.surfaces[Outside(plor, 2)].sky_view, (std::sqrt(5.0) - 1) / 4, 0.01);
}

TEST(Neb, ResultsRoundTripAndRefuseDamage) {
  const PlorResult plor = Plor(BoxWithOverhang(1));
  const NebResult neb = ComputeNeb(plor);
  const std::vector<std::string> lines = NebResultLines(neb);
  EXPECT_EQ(NebResultLines(ParseNebResult("NEB.RES", lines)), lines);
  EXPECT_EQ(lines[0], "GRID\t19\t72\t5");
  EXPECT_EQ(lines[3].substr(0, 9), "T\t0.0000\t");
  const struct {
    size_t line;
    std::string text;
    const char* what;
  } damage[] = {
      {0, "GRID\t19\t36\t10", "The grid of sun directions must be 19 by 72"},
      {1, "SURFACES\t201", "201 is not a whole number from 0 to 200"},
      {3, "T\t1.5", "A line T with 72 values was expected"},
      {3, lines[3] + "\t1", "The line must hold a value for each azimuth"},
  };
  for (const auto& row : damage) {
    std::vector<std::string> broken = lines;
    broken[row.line] = row.text;
    EXPECT_EQ(zelmo::testing::FileErrorText([&] { ParseNebResult("NEB.RES", broken); }),
              std::string(row.what) + "\rNEB.RES, line " + std::to_string(row.line + 2));
  }
  std::vector<std::string> more = lines;
  more.push_back("N\t1");
  EXPECT_EQ(zelmo::testing::FileErrorText([&] { ParseNebResult("NEB.RES", more); }),
            "Text follows the last surface\rNEB.RES, line " + std::to_string(more.size() + 1));
}

// The two programs in a case folder: PLOR then NEB, NEB refusing PLOR's
// results when they are missing or DAT1.DAT has changed since.
TEST(Neb, RunsOnPlorsResultsAndRefusesThemStale) {
  zelmo::testing::TempDir dir;
  const std::string folder = dir.path() + "/";
  zelmo::testing::WriteBytes(dir / "DAT1.DAT", Dat1Text(1, BoxWithOverhang(1)));
  try {
    RunNeb(folder);
    ADD_FAILURE();
  } catch (const ModuleFailure& failure) {
    EXPECT_EQ(failure.code(), kNebPlorMissing);
    EXPECT_EQ(std::string(failure.what()),
              "The results of PLOR (PLOR.RES) are missing: run PLOR again");
  }
  RunPlor(folder);
  RunNeb(folder);
  const NebResult neb = ReadNebResult(folder, 501);
  EXPECT_EQ(neb.surfaces.size(), 9u);
  EXPECT_EQ(neb.fingerprint, PlorFingerprint(folder));
  EXPECT_EQ(zelmo::testing::ReadBytes(dir / "NEB.LIS").substr(0, 15),
            "ZELMO-QRN NEB " + neb.fingerprint.substr(0, 1));
  zelmo::testing::WriteBytes(dir / "DAT1.DAT", Dat1Text(1, BoxWithOverhang(2)));
  try {
    RunNeb(folder);
    ADD_FAILURE();
  } catch (const ModuleFailure& failure) {
    EXPECT_EQ(std::string(failure.what()),
              "The results of PLOR (PLOR.RES) are out of date: run PLOR again");
  }
  DeleteFile(dir / "DAT1.DAT");
  try {
    RunNeb(folder);
    ADD_FAILURE();
  } catch (const ModuleFailure& failure) {
    EXPECT_EQ(failure.code(), kNebDat1Missing);
  }
}

}  // namespace
}  // namespace zelmo::modules
