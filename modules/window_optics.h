// The solar optics of a window by the angle of incidence.
//
// A pane given by Fresnel data (thickness, refraction, extinction) is a slab
// of glass: the Fresnel reflectance of its faces for each polarisation
// (Snell's law for the angle inside the glass) and the absorption over the
// slanted path, with the reflections between the faces summed (Duffie and
// Beckman, Solar Engineering of Thermal Processes, 4th ed. 2013, sections
// 5.1 to 5.3). A pane given by its normal transmittance and reflectance is
// the slab that has them: its face reflectance and internal transmittance
// solved from the two normal values, the refraction index from the face
// reflectance. A pane given by a table follows the table, linearly between
// its rows (evenly spaced from 0 to 90 degrees).
//
// The panes are combined by the net radiation between them (CombinePanes)
// for each polarisation apart, and the two polarisations averaged, so
// unpolarised sunlight that the first pane polarises is followed through
// the others. Hemispherical (diffuse) values integrate the angular ones over
// the hemisphere of isotropic radiation: 2 x integral of X(theta) sin theta
// cos theta d theta.
#pragma once

#include <optional>
#include <vector>

#include "modules/glazing.h"
#include "modules/glazing_library.h"

namespace zelmo::modules {

// A slab of glass: the reflectance of one face at normal incidence, the
// transmittance of the glass along the normal, and the refraction index.
struct GlassSlab {
  double face = 0;      // ((n - 1) / (n + 1))^2
  double internal = 1;  // exp(-K d)
  double refraction = 1;
};

// The slab of Fresnel data; the slab whose normal transmittance and
// reflectance are the given ones. Nothing for data no slab has.
std::optional<GlassSlab> SlabOfFresnel(double thickness_mm, double refraction, double extinction);
std::optional<GlassSlab> SlabOfNormal(double tau, double rho);

// A pane by angle: its faces for the two polarisations (s, p).
struct PolarisedFaces {
  SolarFaces s, p;
};

// A pane of a window as the optics take it, outdoors first: a slab, or a
// table (front reflectance seen from outdoors).
class PaneOptics {
 public:
  static PaneOptics Slab(const GlassSlab& slab);
  static PaneOptics Table(std::vector<SolarFaces> rows);
  // The pane turned round (a reversed coating).
  PaneOptics Reversed() const;
  PolarisedFaces At(double degrees) const;

 private:
  std::optional<GlassSlab> slab_;
  std::vector<SolarFaces> table_;
  bool reversed_ = false;
};

// The pane of a glass of the window library, or nothing for data no glass
// has (a table without rows, values outside 0 to 1).
std::optional<PaneOptics> PaneOpticsOf(const LibraryGlass& glass, bool reversed);

// What the panes together transmit, reflect and absorb (each pane) of
// radiation from outdoors (front) or from the room (back), at an angle of
// incidence in degrees; absorbed fractions are per pane, pane 1 outdoors.
// They sum to 1.
struct WindowOptics {
  double tau = 0, rho = 0;
  std::vector<double> absorbed;
};
WindowOptics FrontOptics(const std::vector<PaneOptics>& panes, double degrees);
WindowOptics BackOptics(const std::vector<PaneOptics>& panes, double degrees);
// The same over the hemisphere, for isotropic radiation.
WindowOptics FrontDiffuse(const std::vector<PaneOptics>& panes);
WindowOptics BackDiffuse(const std::vector<PaneOptics>& panes);

}  // namespace zelmo::modules
