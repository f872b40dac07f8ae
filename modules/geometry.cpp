#include "modules/geometry.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace zelmo::modules {

Vec3 operator+(Vec3 a, Vec3 b) { return {a.x + b.x, a.y + b.y, a.z + b.z}; }
Vec3 operator-(Vec3 a, Vec3 b) { return {a.x - b.x, a.y - b.y, a.z - b.z}; }
Vec3 operator*(double s, Vec3 a) { return {s * a.x, s * a.y, s * a.z}; }
double Dot(Vec3 a, Vec3 b) { return a.x * b.x + a.y * b.y + a.z * b.z; }
Vec3 Cross(Vec3 a, Vec3 b) {
  return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
}
double Length(Vec3 a) { return std::sqrt(Dot(a, a)); }

namespace {

double Radians(double degrees) { return degrees * std::numbers::pi / 180; }
double Degrees(double radians) { return radians * 180 / std::numbers::pi; }

// Sines and cosines of whole multiples of 90 degrees come out exact, so that
// a level element lies exactly level.
double Sin(double degrees) {
  double quarter = degrees / 90;
  if (quarter == std::round(quarter) && std::fabs(quarter) < 1e9) {
    static constexpr double kSines[] = {0, 1, 0, -1};
    return kSines[((static_cast<long long>(quarter) % 4) + 4) % 4];
  }
  return std::sin(Radians(degrees));
}
double Cos(double degrees) { return Sin(degrees + 90); }

}  // namespace

std::vector<PlanePoint> ShapeOutline(int shape, const std::array<double, 6>& dims) {
  const auto [a, b, c, d, e, f] = dims;
  switch (shape) {
    case 2:
      return {{0, 0}, {a, 0}, {b, c}};
    case 4:
      return {{0, 0}, {a, 0}, {b, c}, {d, e}};
    case 5:
      // The base is B here, and A the second point's offset.
      return {{0, 0}, {b, 0}, {a, e}, {c, f}, {d, f}};
    default:
      return {{0, 0}, {a, 0}, {a, b}, {0, b}};
  }
}

std::vector<PlanePoint> HoleOutline(const std::array<double, 6>& dims) {
  const auto [a, b, c, d, e, f] = dims;
  return {{d, c}, {f, c}, {f, e}, {d, e}};
}

double SignedArea(const std::vector<PlanePoint>& outline) {
  double twice = 0;
  for (size_t k = 0; k < outline.size(); ++k) {
    const PlanePoint& p = outline[k];
    const PlanePoint& q = outline[(k + 1) % outline.size()];
    twice += p.along * q.up - q.along * p.up;
  }
  return twice / 2;
}

Frame ElementFrame(double zenith, double azimuth) {
  const double sz = Sin(zenith), cz = Cos(zenith), sa = Sin(azimuth), ca = Cos(azimuth);
  Frame frame;
  frame.front = {sz * sa, sz * ca, cz};
  frame.base = sz == 0 ? Vec3{ca, -sa, 0} : Vec3{-ca, sa, 0};
  frame.up = Cross(frame.front, frame.base);
  return frame;
}

std::vector<Vec3> InSpace(const std::vector<PlanePoint>& points, Vec3 corner, const Frame& f) {
  std::vector<Vec3> out;
  out.reserve(points.size());
  for (const PlanePoint& p : points) out.push_back(corner + p.along * f.base + p.up * f.up);
  return out;
}

Vec3 Mean(const std::vector<Vec3>& points) {
  Vec3 sum;
  for (const Vec3& p : points) sum = sum + p;
  return points.empty() ? sum : (1.0 / static_cast<double>(points.size())) * sum;
}

std::vector<Vec3> ClipToFront(const std::vector<Vec3>& loop, Vec3 point, Vec3 normal) {
  std::vector<Vec3> out;
  for (size_t k = 0; k < loop.size(); ++k) {
    const Vec3 a = loop[k], b = loop[(k + 1) % loop.size()];
    const double da = Dot(a - point, normal), db = Dot(b - point, normal);
    if (da >= 0) out.push_back(a);
    if ((da > 0 && db < 0) || (da < 0 && db > 0)) out.push_back(a + (da / (da - db)) * (b - a));
  }
  return out;
}

void TiltAndAzimuth(Vec3 direction, double& tilt, double& azimuth) {
  tilt = Degrees(std::acos(std::fmax(-1.0, std::fmin(1.0, direction.z))));
  const double level = std::hypot(direction.x, direction.y);
  azimuth = level < 1e-12 ? 0 : Degrees(std::atan2(direction.x, direction.y));
  if (azimuth < 0) azimuth += 360;
  if (azimuth >= 360) azimuth -= 360;
}

namespace {

SurfaceKind KindOf(const Dat1Part& part) {
  if (part.construction == Part::kShadingScreen) return SurfaceKind::kShadingScreen;
  if (part.window) return SurfaceKind::kWindow;
  if (part.construction == Part::kWall) return SurfaceKind::kWall;
  return SurfaceKind::kOpening;
}

// The outline walked anticlockwise as seen from the front.
std::vector<PlanePoint> Anticlockwise(std::vector<PlanePoint> outline) {
  if (SignedArea(outline) < 0) std::reverse(outline.begin() + 1, outline.end());
  return outline;
}

}  // namespace

std::vector<Surface> BuildSurfaces(const Dat1Building& building) {
  std::vector<Surface> surfaces;
  for (size_t k = 0; k < building.elements.size(); ++k) {
    const Dat1Element& el = building.elements[k];
    const Frame frame = ElementFrame(el.zenith, el.azimuth);
    const Vec3 corner{el.x, el.y, el.z};
    Surface s;
    s.number = static_cast<int>(surfaces.size()) + 1;
    s.element = k;
    s.kind = KindOf(el.main);
    s.front = el.front;
    s.back = el.back;
    s.normal = frame.front;
    TiltAndAzimuth(s.normal, s.tilt, s.azimuth);
    const std::vector<PlanePoint> outline = Anticlockwise(ShapeOutline(el.shape, el.dims));
    s.outline = InSpace(outline, corner, frame);
    s.area = std::fabs(SignedArea(outline));
    if (el.shape != 3) {
      surfaces.push_back(s);
      continue;
    }
    const std::vector<PlanePoint> hole = Anticlockwise(HoleOutline(el.dims));
    s.hole = InSpace(hole, corner, frame);
    const double hole_area = std::fabs(SignedArea(hole));
    s.area -= hole_area;
    Surface pane = s;
    surfaces.push_back(s);
    pane.number = s.number + 1;
    pane.in_hole = true;
    pane.kind = KindOf(el.hole);
    pane.outline = pane.hole;
    pane.hole.clear();
    pane.area = hole_area;
    surfaces.push_back(pane);
  }
  return surfaces;
}

}  // namespace zelmo::modules
