#include "modules/plor.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <numbers>

#include "core/testing/fakes.h"
#include "core/text_file.h"
#include "modules/dat1_test_buildings.h"
#include "modules/view_factors.h"

namespace zelmo::modules {
namespace {

using test_buildings::Box;
using test_buildings::Dat1Text;
using test_buildings::ElementSpec;
using test_buildings::ValidationBox;

constexpr double kPi = std::numbers::pi;

PlorResult Plor(int volumes, const std::vector<ElementSpec>& elements) {
  return ComputePlor(ParseDat1("DAT1.DAT", Dat1Text(volumes, elements)));
}

// Howell's catalogue of configuration factors, C-11: two parallel equal
// rectangles a by b, directly opposed at distance c.
double ParallelRectangles(double a, double b, double c) {
  const double x = a / c, y = b / c;
  return 2 / (kPi * x * y) *
         (std::log(std::sqrt((1 + x * x) * (1 + y * y) / (1 + x * x + y * y))) +
          x * std::sqrt(1 + y * y) * std::atan(x / std::sqrt(1 + y * y)) +
          y * std::sqrt(1 + x * x) * std::atan(y / std::sqrt(1 + x * x)) - x * std::atan(x) -
          y * std::atan(y));
}

// Howell C-14: from a rectangle w by l to one h by l sharing the edge l, at
// right angles.
double PerpendicularRectangles(double w, double h, double l) {
  const double W = w / l, H = h / l, r2 = W * W + H * H;
  const double a = (1 + W * W) * (1 + H * H) / (1 + r2);
  const double b = std::pow(W * W * (1 + r2) / ((1 + W * W) * r2), W * W);
  const double c = std::pow(H * H * (1 + r2) / ((1 + H * H) * r2), H * H);
  return 1 / (kPi * W) *
         (W * std::atan(1 / W) + H * std::atan(1 / H) -
          std::sqrt(r2) * std::atan(1 / std::sqrt(r2)) + 0.25 * std::log(a * b * c));
}

PlaneRegion Square(Vec3 corner, Vec3 a, Vec3 b) {
  const Vec3 normal = Cross(a, b);
  return {{corner, corner + a, corner + a + b, corner + b}, {}, (1 / Length(normal)) * normal};
}

TEST(ViewFactors, ExchangeAreasAgainstHowellsCatalogue) {
  const Vec3 x{1, 0, 0}, y{0, 1, 0}, z{0, 0, 1};
  const struct {
    const char* what;
    PlaneRegion a, b;
    double expected;
  } rows[] = {
      // Unit squares one above the other, facing each other: 0.19982.
      {"parallel", Square({0, 0, 0}, x, y), Square({0, 0, 1}, y, x), ParallelRectangles(1, 1, 1)},
      {"parallel 8 x 6 at 2.7", Square({0, 0, 0}, 8 * x, 6 * y), Square({0, 0, 2.7}, 6 * y, 8 * x),
       48 * ParallelRectangles(8, 6, 2.7)},
      // A floor 2 by 1 and a wall 1.5 high along its edge of 1: the edge
      // they share needs the closed-form inner integral.
      {"perpendicular", Square({0, 0, 0}, 2 * x, y), Square({0, 0, 0}, y, 1.5 * z),
       2 * PerpendicularRectangles(2, 1.5, 1)},
      // Side by side in one plane, or back to back: nothing.
      {"coplanar", Square({0, 0, 0}, x, y), Square({1, 0, 0}, x, y), 0},
      {"back to back", Square({0, 0, 1}, x, y), Square({0, 0, 0}, y, x), 0},
  };
  for (const auto& row : rows) {
    EXPECT_NEAR(ExchangeArea(row.a, row.b), row.expected, 2e-4 * (1 + row.expected)) << row.what;
    EXPECT_NEAR(ExchangeArea(row.b, row.a), row.expected, 2e-4 * (1 + row.expected)) << row.what;
  }
  EXPECT_NEAR(ParallelRectangles(1, 1, 1), 0.19982, 1e-5);
  EXPECT_NEAR(PerpendicularRectangles(1, 1, 1), 0.20004, 1e-5);
  // Half of the upper square lies behind the lower one's plane: only the
  // half in front counts, as a square of half the size would.
  PlaneRegion tilted = Square({0, 0, -1}, y, x);
  tilted.outline = {{0, 0, -1}, {0, 1, -1}, {1, 1, 1}, {1, 0, 1}};
  tilted.normal =
      Cross(tilted.outline[1] - tilted.outline[0], tilted.outline[3] - tilted.outline[0]);
  tilted.normal = (1 / Length(tilted.normal)) * tilted.normal;
  EXPECT_GT(ExchangeArea(Square({0, 0, 0}, x, y), tilted), 0);
}

TEST(ViewFactors, AHoleTakesItsShareAway) {
  const Vec3 x{1, 0, 0}, y{0, 1, 0};
  PlaneRegion floor = Square({0, 0, 0}, 2 * x, 2 * y);
  PlaneRegion roof = Square({0, 0, 1}, 2 * y, 2 * x);
  PlaneRegion pane = Square({0.5, 0.5, 1}, y, x);
  PlaneRegion holed = roof;
  holed.holes.push_back(pane.outline);
  EXPECT_NEAR(ExchangeArea(floor, holed) + ExchangeArea(floor, pane), ExchangeArea(floor, roof),
              1e-9);
}

TEST(Plor, TheValidationBox) {
  const PlorResult r = Plor(1, ValidationBox());
  ASSERT_EQ(r.surfaces.size(), 9u);
  std::vector<double> areas;
  for (const Surface& s : r.surfaces) areas.push_back(s.area);
  const double expected[] = {4.8, 6, 4.8, 6, 21.6, 16.2, 16.2, 48, 48};
  for (size_t k = 0; k < 9; ++k) EXPECT_NEAR(areas[k], expected[k], 1e-9) << k;
  EXPECT_NEAR(areas[0] + areas[2], 21.6 - 12, 1e-9);
  EXPECT_EQ(r.surfaces[1].kind, SurfaceKind::kWindow);
  EXPECT_TRUE(r.surfaces[1].in_hole);
  EXPECT_EQ(r.surfaces[1].outline[0].x, 0.5);
  EXPECT_NEAR(r.surfaces[3].outline[2].x, 7.5, 1e-12);
  EXPECT_NEAR(r.surfaces[3].outline[2].z, 2.2, 1e-12);
  ASSERT_EQ(r.volume_data.size(), 1u);
  const PlorVolume& v = r.volume_data[0];
  EXPECT_NEAR(v.air_volume, 129.6, 1e-9);
  EXPECT_NEAR(v.floor_area, 48, 1e-9);
  ASSERT_EQ(v.surfaces.size(), 9u);
  for (size_t i = 0; i < 9; ++i) {
    double sum = 0;
    for (size_t j = 0; j < 9; ++j) {
      sum += v.view_factors[i][j];
      EXPECT_GE(v.view_factors[i][j], 0);
      EXPECT_NEAR(areas[i] * v.view_factors[i][j], areas[j] * v.view_factors[j][i], 1e-9);
    }
    EXPECT_NEAR(sum, 1, 1e-9) << i;
  }
  // Roof to floor, parallel 8 by 6 at 2.7, and the north wall to the floor
  // sharing the 8 m edge, by Howell's formulae; the windows and the wall
  // round them add up to the whole south wall.
  EXPECT_NEAR(v.view_factors[7][8], ParallelRectangles(8, 6, 2.7), 1e-3);
  EXPECT_NEAR(v.view_factors[4][8], PerpendicularRectangles(2.7, 6, 8), 1e-3);
  double south = 0;
  for (int k = 0; k < 4; ++k) south += areas[k] * v.view_factors[k][8];
  EXPECT_NEAR(south / 21.6, PerpendicularRectangles(2.7, 6, 8), 1e-3);
  // Sky and ground: the walls see half of each, the roof all sky; the floor
  // faces the ground, not outdoors.
  ASSERT_EQ(r.outside.size(), 8u);
  for (const PlorOutside& o : r.outside) {
    const Surface& s = r.surfaces[o.surface];
    const bool roof = s.tilt == 0;
    EXPECT_NEAR(o.sky, roof ? 1 : 0.5, 1e-12) << s.number;
    EXPECT_NEAR(o.ground, roof ? 0 : 0.5, 1e-12) << s.number;
  }
  EXPECT_EQ(r.surfaces[4].azimuth, 0);
  EXPECT_EQ(r.surfaces[0].azimuth, 180);
  EXPECT_EQ(r.surfaces[5].azimuth, 90);
  EXPECT_EQ(r.surfaces[6].azimuth, 270);
  EXPECT_EQ(r.surfaces[8].tilt, 180);
}

TEST(Plor, ATiltedRoofSeesSkyAndGroundByItsTilt) {
  // A lean-to: the roof slopes at 30 degrees to the south. Its sky view is
  // (1 + cos 30) / 2; the volume is 4 by 2 by 1 at the back, 0 at the front
  // as a wedge: 4 * 2 * tan30 * 2 / 2.
  const double t = std::tan(kPi / 6), len = 2 / std::cos(kPi / 6);
  std::vector<ElementSpec> wedge = {
      {"Roof", 1, 30, 180, 0, 0, 0, 0, 1, {4, len}},
      {"North", 1, 90, 0, 4, 2, 0, 0, 1, {4, 2 * t}},
      {"East", 2, 90, 90, 4, 0, 0, 0, 1, {2, 2, 2 * t}},
      {"West", 2, 90, 270, 0, 2, 0, 0, 1, {2, 0, 2 * t}},
      {"Floor", 1, 180, 0, 0, 2, 0, -1, 1, {4, 2}},
  };
  // Written with two decimals the slope would not close exactly: the
  // lengths are set as they are.
  Dat1Building b = ParseDat1("DAT1.DAT", Dat1Text(1, wedge));
  b.elements[0].dims[1] = len;
  b.elements[1].dims[1] = b.elements[2].dims[2] = b.elements[3].dims[2] = 2 * t;
  const PlorResult r = ComputePlor(b);
  EXPECT_NEAR(r.outside[0].sky, (1 + std::cos(kPi / 6)) / 2, 1e-9);
  EXPECT_NEAR(r.outside[0].ground, (1 - std::cos(kPi / 6)) / 2, 1e-9);
  EXPECT_NEAR(r.volume_data[0].air_volume, 4 * 2 * t, 1e-9);
}

TEST(Plor, TheExampleCaseClosesBothRooms) {
  const PlorResult r = ComputePlor(
      ReadCaseDat1(std::string(std::getenv("ZELMO_SOURCE_DIR")) + "/simulation/testdata/Case1"));
  ASSERT_EQ(r.volume_data.size(), 2u);
  // Two rooms 5 by 4 and 4 by 4 by 2.7 beside each other, split by the
  // inner wall with its door.
  EXPECT_NEAR(r.volume_data[0].air_volume + r.volume_data[1].air_volume, 9 * 4 * 2.7, 1e-6);
  EXPECT_NEAR(r.volume_data[0].floor_area + r.volume_data[1].floor_area, 36, 1e-6);
  EXPECT_EQ(r.surfaces.size(), 15u);
}

TEST(Plor, ResultsRoundTripAndRefuseDamage) {
  const PlorResult r = Plor(1, ValidationBox());
  const std::vector<std::string> lines = PlorResultLines(r);
  const PlorResult back = ParsePlorResult("PLOR.RES", lines);
  EXPECT_EQ(PlorResultLines(back), lines);
  EXPECT_EQ(lines[0], "COUNTS\t1\t7\t9");
  EXPECT_EQ(lines[1], "S\t1\t1\t0\t1\t0\t1\t4.8\t90\t180\t0\t-1\t0\t4\t4");
  const struct {
    size_t line;
    std::string text;
    const char* what;
  } damage[] = {
      {0, "COUNTS\t1\t7", "A line COUNTS with 3 values was expected"},
      {0, "COUNTS\t9\t7\t9", "9 is not a whole number from 0 to 8"},
      {1, "S\t1\t1\t0\t1\t0\t1\tx\t90\t180\t0\t-1\t0\t4\t4", "\"x\" is not a number"},
      {2, "P\t0\t0", "A line P with 12 values was expected"},
  };
  for (const auto& row : damage) {
    std::vector<std::string> broken = lines;
    broken[row.line] = row.text;
    EXPECT_EQ(zelmo::testing::FileErrorText([&] { ParsePlorResult("PLOR.RES", broken); }),
              std::string(row.what) + "\rPLOR.RES, line " + std::to_string(row.line + 2))
        << row.what;
  }
  std::vector<std::string> cut(lines.begin(), lines.begin() + 5);
  EXPECT_EQ(zelmo::testing::FileErrorText([&] { ParsePlorResult("PLOR.RES", cut); }),
            "The file ends before a line P\rPLOR.RES, line 7");
}

// Elements the geometry cannot take, each with the code and the line of
// ECM.Dat that names it.
TEST(Plor, DegenerateElementsAndOpenVolumes) {
  std::vector<ElementSpec> flat = ValidationBox();
  flat[2].dims[0] = 0;
  std::vector<ElementSpec> hole_out = ValidationBox();
  hole_out[0].dims[5] = 4.5;
  std::vector<ElementSpec> no_roof = ValidationBox();
  no_roof.erase(no_roof.begin() + 5);
  std::vector<ElementSpec> beyond = ValidationBox();
  beyond[3].back = 2;
  const struct {
    int volumes;
    std::vector<ElementSpec> elements;
    int code;
    const char* text;
  } rows[] = {
      {1, flat, kPlorDegenerate, "Element 3 (North): it has no area"},
      {1, hole_out, kPlorDegenerate, "Element 1 (South 1): its hole does not lie inside it"},
      {1, beyond, kPlorDegenerate, "Element 4 (East): it faces a volume beyond the 1 of the case"},
      {1, no_roof, kPlorNotClosed,
       "Volume 1: its elements leave an opening of 48.00 m2 facing tilt 0, azimuth 0"},
      {2, ValidationBox(), kPlorNotClosed, "Volume 2: no element faces it"},
  };
  for (const auto& row : rows) {
    try {
      Plor(row.volumes, row.elements);
      ADD_FAILURE() << row.text;
    } catch (const ModuleFailure& failure) {
      EXPECT_EQ(failure.code(), row.code) << row.text;
      EXPECT_EQ(std::string(failure.what()), row.text);
    }
  }
}

}  // namespace
}  // namespace zelmo::modules
