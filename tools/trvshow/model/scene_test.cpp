#include "tools/trvshow/model/scene.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>

namespace zelmo::trvshow {
namespace {

void ExpectNear(Vec3 got, Vec3 want, const std::string& what) {
  EXPECT_NEAR(got.x, want.x, 1e-9) << what;
  EXPECT_NEAR(got.y, want.y, 1e-9) << what;
  EXPECT_NEAR(got.z, want.z, 1e-9) << what;
}

TEST(Scene, OutlineOfEachShape) {
  const std::array<double, 6> dims = {1, 2, 3, 4, 5, 6};
  using P = std::vector<PlanePoint>;
  EXPECT_EQ(ShapeOutline(1, dims), (P{{0, 0}, {1, 0}, {1, 2}, {0, 2}}));
  EXPECT_EQ(ShapeOutline(2, dims), (P{{0, 0}, {1, 0}, {2, 3}}));
  EXPECT_EQ(ShapeOutline(3, dims), (P{{0, 0}, {1, 0}, {1, 2}, {0, 2}}));
  EXPECT_EQ(HoleOutline(dims), (P{{4, 3}, {6, 3}, {6, 5}, {4, 5}}));
  EXPECT_EQ(ShapeOutline(4, dims), (P{{0, 0}, {1, 0}, {2, 3}, {4, 5}}));
  EXPECT_EQ(ShapeOutline(5, dims), (P{{0, 0}, {2, 0}, {1, 5}, {3, 6}, {4, 6}}));
}

TEST(Scene, FrameOfAnElementByZenithAndAzimuth) {
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

// The example building is two boxes side by side; each element facing
// Outdoor or Ground turns its front away from the middle of its volume.
TEST(Scene, TheExampleBuildingClosesAndFacesOut) {
  Dat1Building b =
      ReadCaseDat1(std::string(std::getenv("ZELMO_SOURCE_DIR")) + "/simulation/testdata/Case1");
  std::vector<Face> faces = BuildFaces(b);
  ASSERT_EQ(faces.size(), 15u);  // four holes with a pane
  const Vec3 middle[] = {{}, {2.5, 2, 1.35}, {7, 2, 1.35}};
  for (const Face& face : faces) {
    const Dat1Element& el = b.elements[face.element];
    for (const Vec3& p : face.outline) {
      EXPECT_TRUE(p.x > -1e-9 && p.x < 9 + 1e-9 && p.y > -1e-9 && p.y < 4 + 1e-9 && p.z > -1e-9 &&
                  p.z < 2.7 + 1e-9)
          << el.name;
    }
    if (el.front <= 0) {
      EXPECT_LT(Dot(face.front, middle[el.back] - face.centre), 0) << el.name;
    }
  }
  const Face& window = faces[1];
  EXPECT_TRUE(window.hole_pane && window.glass);
  ExpectNear(window.outline[0], {1, 0, 0.9}, "hole of South 1");
  ExpectNear(window.outline[2], {4, 0, 2.1}, "hole of South 1");
  EXPECT_EQ(faces.back().facing, Facing::kBetweenVolumes);
  EXPECT_FALSE(faces.back().glass);  // the inner wall's door
  Bounds bounds = BoundsOf(faces);
  ExpectNear(bounds.centre, {4.5, 2, 1.35}, "centre");
}

TEST(Scene, TheCameraSeesTheNearSideAndDrawsItLast) {
  Dat1Building b;
  Dat1Element south, north;
  south.zenith = north.zenith = 90;
  south.azimuth = 180;
  south.dims = north.dims = {4, 2};
  north.x = 4;
  north.y = 3;
  b.elements = {south, north};
  std::vector<Face> faces = BuildFaces(b);
  Camera camera;  // from the south-east, above
  Projection view(camera, BoundsOf(faces), 400, 300);
  EXPECT_TRUE(view.SeesFront(faces[0]));
  EXPECT_FALSE(view.SeesFront(faces[1]));
  EXPECT_EQ(view.DrawOrder(faces), (std::vector<size_t>{1, 0}));
  camera.Turn(180, 0);
  Projection behind(camera, BoundsOf(faces), 400, 300);
  EXPECT_TRUE(behind.SeesFront(faces[1]));
  EXPECT_EQ(behind.DrawOrder(faces), (std::vector<size_t>{0, 1}));
  // The middle of the building is the middle of the picture.
  ScreenPoint mid = view.Project({2, 1.5, 1});
  EXPECT_NEAR(mid.x, 200, 1e-9);
  EXPECT_NEAR(mid.y, 150, 1e-9);
  camera.Turn(0, 200);
  EXPECT_EQ(camera.pitch, 89);
  camera.ZoomBy(1000);
  EXPECT_EQ(camera.zoom, Camera::kMaxZoom);
}

}  // namespace
}  // namespace zelmo::trvshow
