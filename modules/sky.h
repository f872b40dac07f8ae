// Solar irradiance on a surface of any tilt and azimuth: the beam from the
// direct normal irradiance, the sky's diffuse by the anisotropic model of
// R. Perez, P. Ineichen, R. Seals, J. Michalsky and R. Stewart, "Modeling
// daylight availability and irradiance components from direct and global
// irradiance", Solar Energy 44(5), 271-289 (1990), with the coefficients of
// its table 6 (irradiance), and the light reflected by the ground,
// isotropic, per unit of the ground's reflectivity (the reflectivity is a
// general parameter, applied by whoever knows it).
#pragma once

#include "modules/solar_position.h"

namespace zelmo::modules {

// The sky of one hour, the same for every surface: computed once per hour
// by PerezSkyAt, then handed to PerezTilted for each surface.
struct PerezSky {
  double direct_normal = 0;       // W/m2
  double diffuse_horizontal = 0;  // W/m2
  // B_n cos(zenith) + D_h: what the model puts on a level surface.
  double global_horizontal = 0;
  double f1 = 0, f2 = 0;  // circumsolar and horizon brightening coefficients
  double epsilon = 1;     // sky clearness
  double delta = 0;       // sky brightness
  double cos_zenith = 0;  // of the sun, 0 below the horizon
  double b = 1;           // max(cos 85 degrees, cos zenith)
  Direction sun;          // towards the sun, building frame
  bool sun_up = false;
};

// The sky of an hour from the sun (SunAt, SunPath) and the climate file's
// direct normal and diffuse horizontal irradiance (W/m2) on the given day of
// the year (for the extraterrestrial irradiance). Negative or missing (NaN)
// irradiance counts as none; with the sun below the horizon there is no
// beam, and the diffuse is isotropic.
PerezSky PerezSkyAt(const SunPosition& sun, double direct_normal, double diffuse_horizontal,
                    int day_of_year);

struct SurfaceIrradiance {
  double beam = 0;  // W/m2 on the surface from the sun's disc
  // The sky's diffuse on the surface and its three parts.
  double sky_diffuse = 0;
  double isotropic = 0, circumsolar = 0, horizon = 0;
  // Reflected from the ground, per unit of its reflectivity: the level
  // global irradiance times (1 - cos tilt) / 2.
  double ground_per_albedo = 0;
  double cos_incidence = 0;  // of the sun's rays on the surface, 0 when behind it
};

// The irradiance on a surface whose outward normal points along `normal`
// (a unit vector in the building's frame).
SurfaceIrradiance PerezTilted(const PerezSky& sky, const Direction& normal);
// The same for a surface given by its zenith (tilt: 0 facing up, 90 level,
// 180 facing down) and azimuth (0 north, 90 east) in the building's frame.
SurfaceIrradiance PerezTilted(const PerezSky& sky, double tilt, double azimuth);

// The solar constant and the extraterrestrial normal irradiance on a day of
// the year (Spencer 1971, as given by Iqbal, "An Introduction to Solar
// Radiation", 1983, eq. 1.2.1).
inline constexpr double kSolarConstant = 1367.0;
double ExtraterrestrialNormal(int day_of_year);

// The relative optical air mass at a zenith angle in degrees (Kasten and
// Young, Applied Optics 28(22), 4735-4738, 1989).
double AirMass(double zenith);

}  // namespace zelmo::modules
