// View factors between plane polygons, for the long-wave exchange between
// the surfaces of a volume.
//
// Method: the contour-integral form of the view factor (Stokes' theorem
// turns the double area integral into a double line integral round the two
// outlines; Sparrow 1963, applied to building surfaces by Mitalas and
// Stephenson 1967 and by Walton, NISTIR 6925, 2002):
//   A1 F12 = 1/(2 pi) * sum over edges of 1 and 2 of (e1 . e2) * int int ln r ds1 ds2.
// The inner line integral is taken in closed form, so edges that meet or run
// along each other (the shared edge of two walls) need no special care; the
// outer one by Gauss-Legendre quadrature. Each polygon is first clipped to
// the half-space in front of the other, so only the parts that see each
// other count. Obstructions inside a volume are not looked for: a volume is
// taken as convex.
//
// The exchange areas A_i F_ij of a volume are then adjusted so that each
// row sums to the area exactly, keeping their symmetry (reciprocity), by the
// least-squares smoothing of Lawson (D. A. Lawson, An improved method for
// smoothing approximate exchange areas, Int. J. Heat Mass Transfer 38 (16),
// 1995, 3109-3110), weights the square of each exchange area.
#pragma once

#include <vector>

#include "modules/geometry.h"

namespace zelmo::modules {

// A plane region: its outline and the holes cut out of it, each walked
// anticlockwise about `normal`, the side it sees from.
struct PlaneRegion {
  std::vector<Vec3> outline;
  std::vector<std::vector<Vec3>> holes;
  Vec3 normal;
};

// A1 F12: the exchange area of two regions, each seeing from its normal's
// side. Zero when they cannot see each other.
double ExchangeArea(const PlaneRegion& a, const PlaneRegion& b);

// The view factors between the regions of an enclosure, areas given:
// F[i][j], rows summing to 1, area_i F_ij = area_j F_ji.
std::vector<std::vector<double>> EnclosureViewFactors(const std::vector<PlaneRegion>& regions,
                                                      const std::vector<double>& areas);

// Lawson's smoothing of a symmetric matrix of exchange areas towards rows
// that sum to the areas. Left as it stands when it cannot be solved.
void SmoothExchangeAreas(std::vector<std::vector<double>>& exchange,
                         const std::vector<double>& areas);

}  // namespace zelmo::modules
