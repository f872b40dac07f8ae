// The building in space, one piece of geometry for the modules, the building
// viewer and the list of surfaces.
//
// Space: x to the east, y to the north, z up, in metres. An element's
// outline is given along its base and up the element from the lower left
// corner as seen from its front side. The front side faces the azimuth
// (0 north, 90 east, 180 south, 270 west) tilted by the zenith (0 up, 90
// level, 180 down); the base runs level, to the right as seen from the
// front. An element lying flat has no facing direction; there the azimuth
// turns the base, which runs east at 0 with the element's height going
// north on a roof and south on a floor, as a plan shows them. The volume
// on an element's front side lies in the direction of its front.
#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <vector>

#include "modules/dat1.h"

namespace zelmo::modules {

struct Vec3 {
  double x = 0, y = 0, z = 0;
};
Vec3 operator+(Vec3 a, Vec3 b);
Vec3 operator-(Vec3 a, Vec3 b);
Vec3 operator*(double s, Vec3 a);
double Dot(Vec3 a, Vec3 b);
Vec3 Cross(Vec3 a, Vec3 b);
double Length(Vec3 a);

// A point in an element's own plane: along the base, up the element.
struct PlanePoint {
  double along = 0, up = 0;
  bool operator==(const PlanePoint&) const = default;
};

// The outline of a shape (code 1 to 5) from the dimensions A to F, walked
// from the lower left corner; shape 3 is the rectangle round its hole.
std::vector<PlanePoint> ShapeOutline(int shape, const std::array<double, 6>& dims);
// The hole of shape 3: from D to F along the base, from C to E upwards.
std::vector<PlanePoint> HoleOutline(const std::array<double, 6>& dims);
// The signed area of an outline: positive when walked anticlockwise.
double SignedArea(const std::vector<PlanePoint>& outline);

// An element's directions in space: along its base, up it, and out of its
// front side; each of length 1.
struct Frame {
  Vec3 base, up, front;
};
Frame ElementFrame(double zenith, double azimuth);

// The points of an outline in space, from the element's lower left corner.
std::vector<Vec3> InSpace(const std::vector<PlanePoint>& points, Vec3 corner, const Frame& frame);

// What a surface is made of.
enum class SurfaceKind { kOpening = 0, kWall = 1, kWindow = 2, kShadingScreen = 3 };

// A surface as the modules count them: every element is one, and an element
// with a hole (shape 3) two, the element less its hole and then the hole.
struct Surface {
  int number = 0;        // from 1, over the whole building in file order
  size_t element = 0;    // in the building's elements, from 0
  bool in_hole = false;  // the part in an element's hole
  SurfaceKind kind = SurfaceKind::kOpening;
  int front = 0, back = 0;  // volume codes
  // Walked anticlockwise seen from the front; the hole cut out of it is
  // walked the same way (empty when none).
  std::vector<Vec3> outline;
  std::vector<Vec3> hole;
  Vec3 normal;  // out of the front side, length 1
  double area = 0;
  // Of the front side, degrees: tilt 0 facing up, 90 level, 180 facing
  // down; azimuth 0 north, 90 east, from 0 up to 360 (0 when level).
  double tilt = 0, azimuth = 0;
};

// The surfaces of a building in the order of their numbers.
std::vector<Surface> BuildSurfaces(const Dat1Building& building);

// The tilt and azimuth of a direction (of length 1), as a surface gives them.
void TiltAndAzimuth(Vec3 direction, double& tilt, double& azimuth);

// The part of a plane loop on the front side of the plane through `point`
// with `normal` (Sutherland-Hodgman clipping against one plane).
std::vector<Vec3> ClipToFront(const std::vector<Vec3>& loop, Vec3 point, Vec3 normal);

// The mean of points; the origin when there are none.
Vec3 Mean(const std::vector<Vec3>& points);

}  // namespace zelmo::modules
