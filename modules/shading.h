// Shadows on a plane surface: the part of a receiving surface that the sun
// reaches past other plane surfaces.
//
// Method: each shading surface is clipped to the half-space in front of
// the receiving plane and projected onto that plane along the sun's rays
// (the shadow-projection of plane polygons, e.g. Groth and Lokmanhekim,
// 1969, as used by building simulation programs). The shaded area is the
// area of the receiving polygon covered by the union of the shadows. It is
// found by a sweep across the receiving plane: between consecutive corners
// and crossings of the outlines (receiver, its hole, each shadow) the
// covered length along a line changes linearly, so the midpoint of each
// band gives its area exactly. Polygons may be concave and have holes
// (even-odd rule).
#pragma once

#include <array>
#include <vector>

#include "modules/geometry.h"

namespace zelmo::modules {

// A polygon in space as loops (its outline and holes), even-odd filled.
using Loops = std::vector<std::vector<Vec3>>;

// The receiving surface and the surfaces that may shade it.
struct ShadingScene {
  Loops receiver;
  Vec3 normal;  // the receiver's sunlit side
  std::vector<Loops> shaders;
};

// The shadows on one receiver for any sun: what does not depend on the sun
// (the receiver in its own plane, the shaders clipped to its front side) is
// made once, and the buffers of the sweep are kept between suns.
class ShadowCaster {
 public:
  explicit ShadowCaster(const ShadingScene& scene);
  // The sunlit fraction (0 to 1) of the receiver for a sun in `sun`
  // (towards the sun, length 1): 0 when the sun is behind its plane.
  double SunlitFraction(Vec3 sun);

  struct P2 {
    double u, v;
  };
  using Poly2 = std::vector<std::vector<P2>>;
  struct Box2 {
    double u0 = 1e300, u1 = -1e300, v0 = 1e300, v1 = -1e300;
    void Add(P2 p);
    bool Overlaps(const Box2& o) const;
  };
  // A shader's corner: in the receiver's plane coordinates and its height
  // in front of that plane.
  struct P3 {
    double u, v, h;
  };

 private:
  Vec3 normal_, u_, w_;
  Poly2 receiver_;
  Box2 box_;
  std::vector<std::vector<std::vector<P3>>> shaders_;
  // Kept between suns.
  std::vector<Poly2> shadows_;
  std::vector<Box2> boxes_;
  std::vector<double> vs_, cut_;
  struct Interval {
    double a, b;
  };
  std::vector<Interval> inside_, shade_, merged_;
  void LengthsAt(size_t shadows, double v, double& length, double& covered);
};

// The same for one sun.
double SunlitFraction(const ShadingScene& scene, Vec3 sun);

}  // namespace zelmo::modules
