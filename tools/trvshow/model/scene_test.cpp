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
