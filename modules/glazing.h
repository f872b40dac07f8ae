// The centre-of-glazing properties of a window type: U-value by EN 673,
// g-value and solar transmittance by EN 410, from the panes' solar data at
// normal incidence, their emittances and the gases of the gaps.
#pragma once

#include <optional>
#include <vector>

namespace zelmo::modules {

// Transmittance and the reflectances of the outdoor (front) and the room
// (back) side, fractions at normal incidence. A pane transmits alike both ways.
struct SolarFaces {
  double tau = 0, rho_front = 0, rho_back = 0;
};

// True for fractions a glass can have: each from 0 to 1, and the
// transmittance with either reflectance not above 1.
bool SoundFaces(const SolarFaces& faces);

// A pane as it stands in the window, pane 1 outdoors: a reversed coating has
// already swapped front and back.
struct GlazingPane {
  SolarFaces solar;
  double eps_front = 0, eps_back = 0;
  double thickness_mm = 0;
};

// A gas as the gas library holds it: conductivity (W/m,K), viscosity
// (kg/m,s), density (kg/m3) and Prandtl number, each the value at the
// reference temperature and its change per K. A Prandtl column above
// kSpecificHeatAbove holds the specific heat (J/kg,K) instead.
struct GasProperties {
  double k = 0, dk = 0, mu = 0, dmu = 0, rho = 0, drho = 0, pr = 0, dpr = 0;
};
inline constexpr double kSpecificHeatAbove = 10;
// The temperature the gas coefficients refer to, and the mean temperature of
// the glazing under the standard conditions: 10 °C.
inline constexpr double kReferenceKelvin = 283.15;

// The gap behind a pane.
struct GlazingGap {
  double width_mm = 0;
  GasProperties gas;
};

struct Glazing {
  std::vector<GlazingPane> panes;  // 1 to 5, outdoors first
  std::vector<GlazingGap> gaps;    // one fewer than panes
};

// The standard conditions. U: the surface resistances of EN 673 and a
// temperature difference of 15 K over the gaps around the mean temperature.
// g: the outdoor coefficient of EN 410 and its room side coefficient from the
// emittance of the room side face.
inline constexpr double kOutsideU = 25.0, kInsideU = 7.7;
inline constexpr double kOutsideG = 23.0;
inline constexpr double kGapsDifference = 15.0;
// Glass conducts 1 W/m,K; a pane whose data don't give its thickness counts
// as this thick.
inline constexpr double kGlassConductivity = 1.0;
inline constexpr double kNominalPaneMm = 4.0;

// A slab of glass at normal incidence: the Fresnel reflection of its two
// faces with the absorption of `extinction` (1/m) over `thickness_mm`.
std::optional<SolarFaces> FresnelSlab(double thickness_mm, double refraction, double extinction);

// The panes together, by the net radiation between them: transmittance and
// the two reflectances of the whole, and the fraction that each pane absorbs
// of what falls on the outdoor side.
struct SolarStack {
  SolarFaces whole;
  std::vector<double> absorbed;
};
SolarStack CombinePanes(const std::vector<SolarFaces>& panes);

// U (W/m2,K), g and the solar transmittance at normal incidence, and the
// part of each pane's absorbed heat that flows to the room under the
// conditions of g (its secondary heat transfer factor).
struct GlazingResult {
  double u = 0, g = 0, tsol = 0;
  std::vector<double> inward;
};

// Nothing when the data give no finite result (a gap of no width, a gas of
// no viscosity, ...).
std::optional<GlazingResult> ComputeGlazing(const Glazing& glazing);

// The centre-of-glass U between outdoor and room air at the given
// temperatures (C) and combined surface coefficients (W/m2,K): the panes'
// temperatures follow from the heat flow through the series of surface,
// glass and gap resistances, each gap's conductance at its faces'
// temperatures (GapGasConductance plus GapRadiativeConductance), until
// they settle. Nothing when the gaps give no finite conductance.
std::optional<double> CentreU(const Glazing& glazing, double h_out, double h_in, double t_out,
                              double t_in);

// The heat balance of a gap at the temperatures of the two faces that bound
// it (kelvin), for a module that follows the panes' temperatures: the gas's
// conductance by the Nusselt number of a vertical layer (EN 673), at the
// layer's mean temperature and the difference over it, and the radiative
// conductance of two grey parallel faces,
// sigma (T1^2 + T2^2) (T1 + T2) / (1/eps1 + 1/eps2 - 1). W/m2,K; nothing when
// the gas data give none.
std::optional<double> GapGasConductance(const GlazingGap& gap, double t1_kelvin, double t2_kelvin);
double GapRadiativeConductance(double eps1, double eps2, double t1_kelvin, double t2_kelvin);

}  // namespace zelmo::modules
