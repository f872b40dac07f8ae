// The building in three dimensions: each element of DAT1.DAT laid out in
// space by its shape, its lower left corner, its zenith and its azimuth, and
// the view of it from a camera that turns about the building.
//
// The elements' geometry is the modules' own (modules/geometry.h).
#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <vector>

#include "modules/dat1.h"
#include "modules/geometry.h"

namespace zelmo::trvshow {

using modules::Cross;
using modules::Dat1Building;
using modules::Dat1Element;
using modules::Dot;
using modules::ElementFrame;
using modules::Frame;
using modules::HoleOutline;
using modules::ParseDat1;
using modules::PlanePoint;
using modules::ReadCaseDat1;
using modules::ShapeOutline;
using modules::Vec3;

// What an element faces, which is its colour.
enum class Facing { kOutdoor, kGround, kBetweenVolumes, kShadingScreen };
Facing FacingOf(const Dat1Element& el);

// One flat piece to draw: an element, or the pane in an element's hole.
struct Face {
  size_t element = 0;  // in the building's elements
  bool hole_pane = false;
  std::vector<Vec3> outline;
  std::vector<Vec3> hole;  // cut out of the outline; empty when none
  Vec3 front;              // out of the front side
  Vec3 centre;
  Facing facing = Facing::kOutdoor;
  bool glass = false;
  bool pane_follows = false;  // the next face is the pane in this one's hole
};

std::vector<Face> BuildFaces(const Dat1Building& building);

// The sphere round every point of the faces; radius 1 round the origin when
// there is nothing.
struct Bounds {
  Vec3 centre;
  double radius = 1;
};
Bounds BoundsOf(const std::vector<Face>& faces);

// Where the camera looks from: turned about the vertical (yaw, degrees; 0
// from the south, 90 from the east) and raised above the level (pitch,
// degrees), and how near (zoom, 1 shows the whole building).
struct Camera {
  static constexpr double kYaw = 35, kPitch = 30;
  static constexpr double kMinZoom = 0.2, kMaxZoom = 20;
  double yaw = kYaw, pitch = kPitch, zoom = 1;

  void Reset() { *this = Camera(); }
  // Turns by degrees; the pitch stops short of straight above or below.
  void Turn(double yaw_degrees, double pitch_degrees);
  void ZoomBy(double factor);
};

struct ScreenPoint {
  double x = 0, y = 0;
  double depth = 0;  // distance from the eye along the view
};

// The perspective of a camera onto a picture of `width` by `height`
// pixels, the building's centre in the middle.
class Projection {
 public:
  Projection(const Camera& camera, const Bounds& bounds, double width, double height);
  ScreenPoint Project(Vec3 point) const;
  // Which way a direction in space runs in the picture, as seen from afar:
  // pixels right and down per metre at the centre's depth, with no depth.
  ScreenPoint Direction(Vec3 direction) const;
  // True when the eye sees the face's front side.
  bool SeesFront(const Face& face) const;
  // The faces' indices from the farthest to the nearest, by the mean depth
  // of their outlines: drawn in this order, a nearer face covers a farther.
  // The pane in a hole comes right after the element round it.
  std::vector<size_t> DrawOrder(const std::vector<Face>& faces) const;

 private:
  Vec3 centre_, right_, up_, toward_eye_, eye_;
  double distance_, scale_, cx_, cy_;
};

// True for an element that has a volume in front and Outdoor behind: the
// front of an outer element is meant to face out.
bool TurnedRound(const Dat1Element& el);

// The text of a volume code: "Ground", "Outdoor", "Volume 3".
std::string VolumeText(int code);

}  // namespace zelmo::trvshow
