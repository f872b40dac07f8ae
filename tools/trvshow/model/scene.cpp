#include "tools/trvshow/model/scene.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace zelmo::trvshow {

Vec3 operator+(Vec3 a, Vec3 b) { return {a.x + b.x, a.y + b.y, a.z + b.z}; }
Vec3 operator-(Vec3 a, Vec3 b) { return {a.x - b.x, a.y - b.y, a.z - b.z}; }
Vec3 operator*(double s, Vec3 a) { return {s * a.x, s * a.y, s * a.z}; }
double Dot(Vec3 a, Vec3 b) { return a.x * b.x + a.y * b.y + a.z * b.z; }
Vec3 Cross(Vec3 a, Vec3 b) {
  return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
}

namespace {

double Radians(double degrees) { return degrees * std::numbers::pi / 180; }

// Sines and cosines of whole multiples of 90 degrees come out exact, so that
// a level element lies exactly level.
double Sin(double degrees) {
  double quarter = degrees / 90;
  if (quarter == std::round(quarter)) {
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

Frame ElementFrame(double zenith, double azimuth) {
  const double sz = Sin(zenith), cz = Cos(zenith), sa = Sin(azimuth), ca = Cos(azimuth);
  Frame frame;
  frame.front = {sz * sa, sz * ca, cz};
  frame.base = sz == 0 ? Vec3{ca, -sa, 0} : Vec3{-ca, sa, 0};
  frame.up = Cross(frame.front, frame.base);
  return frame;
}

Facing FacingOf(const Dat1Element& el) {
  if (el.main == Part::kShadingScreen) return Facing::kShadingScreen;
  if (el.front < 0 || el.back < 0) return Facing::kGround;
  if (el.front == 0 || el.back == 0) return Facing::kOutdoor;
  return Facing::kBetweenVolumes;
}

namespace {

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

}  // namespace

std::vector<Face> BuildFaces(const Dat1Building& building) {
  std::vector<Face> faces;
  for (size_t k = 0; k < building.elements.size(); ++k) {
    const Dat1Element& el = building.elements[k];
    const Frame frame = ElementFrame(el.zenith, el.azimuth);
    const Vec3 corner{el.x, el.y, el.z};
    Face face;
    face.element = k;
    face.outline = InSpace(ShapeOutline(el.shape, el.dims), corner, frame);
    face.front = frame.front;
    face.centre = Mean(face.outline);
    face.facing = FacingOf(el);
    face.glass = el.main_window;
    if (el.shape == 3) face.hole = InSpace(HoleOutline(el.dims), corner, frame);
    face.pane_follows = el.shape == 3 && (el.hole != Part::kNone || el.hole_window);
    faces.push_back(face);
    if (face.pane_follows) {
      Face pane = face;
      pane.pane_follows = false;
      pane.hole_pane = true;
      pane.outline = face.hole;
      pane.hole.clear();
      pane.centre = Mean(pane.outline);
      pane.glass = el.hole_window;
      if (el.hole == Part::kShadingScreen) pane.facing = Facing::kShadingScreen;
      faces.push_back(pane);
    }
  }
  return faces;
}

Bounds BoundsOf(const std::vector<Face>& faces) {
  bool any = false;
  Vec3 low, high;
  for (const Face& face : faces) {
    for (const Vec3& p : face.outline) {
      low = any ? Vec3{std::min(low.x, p.x), std::min(low.y, p.y), std::min(low.z, p.z)} : p;
      high = any ? Vec3{std::max(high.x, p.x), std::max(high.y, p.y), std::max(high.z, p.z)} : p;
      any = true;
    }
  }
  Bounds bounds;
  if (!any) return bounds;
  bounds.centre = 0.5 * (low + high);
  bounds.radius = std::max(std::sqrt(Dot(high - low, high - low)) / 2, 0.5);
  return bounds;
}

void Camera::Turn(double yaw_degrees, double pitch_degrees) {
  yaw = std::fmod(yaw + yaw_degrees, 360.0);
  pitch = std::clamp(pitch + pitch_degrees, -89.0, 89.0);
}

void Camera::ZoomBy(double factor) { zoom = std::clamp(zoom * factor, kMinZoom, kMaxZoom); }

namespace {
// The eye stands this many radii from the centre: near enough for depth to
// show, far enough that the nearest corner is not stretched.
constexpr double kEyeDistance = 3.5;
// The share of the picture's smaller side that the building's sphere fills.
constexpr double kFill = 1.0;
}  // namespace

Projection::Projection(const Camera& camera, const Bounds& bounds, double width, double height)
    : centre_(bounds.centre),
      distance_(kEyeDistance * bounds.radius),
      cx_(width / 2),
      cy_(height / 2) {
  const double cp = std::cos(Radians(camera.pitch)), sp = std::sin(Radians(camera.pitch));
  const double cy = std::cos(Radians(camera.yaw)), sy = std::sin(Radians(camera.yaw));
  toward_eye_ = {cp * sy, -cp * cy, sp};
  right_ = {cy, sy, 0};
  up_ = Cross(toward_eye_, right_);
  eye_ = centre_ + distance_ * toward_eye_;
  // At the centre's depth the sphere fills kFill of the smaller side.
  const double near_factor = distance_ / (distance_ - bounds.radius);
  scale_ = camera.zoom * kFill * std::min(width, height) / 2 / bounds.radius / near_factor;
}

ScreenPoint Projection::Project(Vec3 point) const {
  const Vec3 q = point - centre_;
  const double depth = distance_ - Dot(q, toward_eye_);
  // A point behind the eye cannot be seen in perspective; it is drawn as if
  // just in front of it rather than mirrored.
  const double perspective = distance_ / std::max(depth, distance_ * 0.05);
  return {cx_ + scale_ * perspective * Dot(q, right_), cy_ - scale_ * perspective * Dot(q, up_),
          depth};
}

ScreenPoint Projection::Direction(Vec3 direction) const {
  return {scale_ * Dot(direction, right_), -scale_ * Dot(direction, up_), 0};
}

bool Projection::SeesFront(const Face& face) const {
  return Dot(face.front, eye_ - face.centre) > 0;
}

std::vector<size_t> Projection::DrawOrder(const std::vector<Face>& faces) const {
  std::vector<double> depth(faces.size());
  for (size_t k = 0; k < faces.size(); ++k) {
    double sum = 0;
    for (const Vec3& p : faces[k].outline) sum += Project(p).depth;
    depth[k] = faces[k].outline.empty() ? 0 : sum / static_cast<double>(faces[k].outline.size());
    if (faces[k].hole_pane && k > 0) depth[k] = depth[k - 1];
  }
  std::vector<size_t> order(faces.size());
  for (size_t k = 0; k < order.size(); ++k) order[k] = k;
  std::stable_sort(order.begin(), order.end(),
                   [&](size_t a, size_t b) { return depth[a] > depth[b]; });
  return order;
}

bool TurnedRound(const Dat1Element& el) { return el.front > 0 && el.back == 0; }

std::string VolumeText(int code) {
  if (code < 0) return "Ground";
  if (code == 0) return "Outdoor";
  return "Volume " + std::to_string(code);
}

}  // namespace zelmo::trvshow
