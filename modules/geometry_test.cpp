#include "modules/geometry.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>

namespace zelmo::modules {
namespace {

void ExpectNear(Vec3 got, Vec3 want, const std::string& what) {
  EXPECT_NEAR(got.x, want.x, 1e-9) << what;
  EXPECT_NEAR(got.y, want.y, 1e-9) << what;
  EXPECT_NEAR(got.z, want.z, 1e-9) << what;
}

TEST(Geometry, OutlineOfEachShape) {
  const std::array<double, 6> dims = {1, 2, 3, 4, 5, 6};
  using P = std::vector<PlanePoint>;
  EXPECT_EQ(ShapeOutline(1, dims), (P{{0, 0}, {1, 0}, {1, 2}, {0, 2}}));
  EXPECT_EQ(ShapeOutline(2, dims), (P{{0, 0}, {1, 0}, {2, 3}}));
  EXPECT_EQ(ShapeOutline(3, dims), (P{{0, 0}, {1, 0}, {1, 2}, {0, 2}}));
  EXPECT_EQ(HoleOutline(dims), (P{{4, 3}, {6, 3}, {6, 5}, {4, 5}}));
  EXPECT_EQ(ShapeOutline(4, dims), (P{{0, 0}, {1, 0}, {2, 3}, {4, 5}}));
  EXPECT_EQ(ShapeOutline(5, dims), (P{{0, 0}, {2, 0}, {1, 5}, {3, 6}, {4, 6}}));
}

TEST(Geometry, FrameOfAnElementByZenithAndAzimuth) {
  const double h = std::sqrt(0.5);
  const struct {
    double zenith, azimuth;
    Vec3 base, up, front;
  } rows[] = {
      {90, 180, {1, 0, 0}, {0, 0, 1}, {0, -1, 0}},   // facing south
      {90, 0, {-1, 0, 0}, {0, 0, 1}, {0, 1, 0}},     // north
      {90, 90, {0, 1, 0}, {0, 0, 1}, {1, 0, 0}},     // east
      {90, -90, {0, -1, 0}, {0, 0, 1}, {-1, 0, 0}},  // west
      {0, 0, {1, 0, 0}, {0, 1, 0}, {0, 0, 1}},       // a roof as the plan shows it
      {180, 0, {1, 0, 0}, {0, -1, 0}, {0, 0, -1}},   // a floor
      {0, 90, {0, -1, 0}, {1, 0, 0}, {0, 0, 1}},     // a roof turned
      {45, 180, {1, 0, 0}, {0, h, h}, {0, -h, h}},   // a roof slope facing south
  };
  for (const auto& row : rows) {
    Frame f = ElementFrame(row.zenith, row.azimuth);
    std::string what = std::to_string(row.zenith) + "/" + std::to_string(row.azimuth);
    ExpectNear(f.base, row.base, what);
    ExpectNear(f.up, row.up, what);
    ExpectNear(f.front, row.front, what);
  }
}

}  // namespace
}  // namespace zelmo::modules
