#include "tools/trvshow/model/scene.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace zelmo::trvshow {

Facing FacingOf(const Dat1Element& el) {
  if (el.main.construction == modules::Part::kShadingScreen) return Facing::kShadingScreen;
  if (el.front < 0 || el.back < 0) return Facing::kGround;
  if (el.front == 0 || el.back == 0) return Facing::kOutdoor;
  return Facing::kBetweenVolumes;
}

std::vector<Face> BuildFaces(const Dat1Building& building) {
  std::vector<Face> faces;
  for (const modules::Surface& surface : modules::BuildSurfaces(building)) {
    const Dat1Element& el = building.elements[surface.element];
    // A hole with nothing in it is left open.
    if (surface.in_hole && surface.kind == modules::SurfaceKind::kOpening) continue;
    Face face;
    face.element = surface.element;
    face.hole_pane = surface.in_hole;
    face.outline = surface.outline;
    face.hole = surface.hole;
    face.front = surface.normal;
    face.centre = modules::Mean(face.outline);
    face.facing = surface.kind == modules::SurfaceKind::kShadingScreen ? Facing::kShadingScreen
                                                                       : FacingOf(el);
    face.glass = surface.kind == modules::SurfaceKind::kWindow;
    if (!face.hole_pane && !face.hole.empty()) {
      face.pane_follows = el.hole.construction != modules::Part::kNone || el.hole.window;
    }
    faces.push_back(face);
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
double Radians(double degrees) { return degrees * std::numbers::pi / 180; }
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
