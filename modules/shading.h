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

// The sunlit fraction (0 to 1) of the receiver for a sun in `sun`
// (towards the sun, length 1): 0 when the sun is behind its plane.
double SunlitFraction(const ShadingScene& scene, Vec3 sun);

}  // namespace zelmo::modules
