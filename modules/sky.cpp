#include "modules/sky.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <numbers>

namespace zelmo::modules {

namespace {

constexpr double kRad = std::numbers::pi / 180.0;

// Table 6 of Perez et al. (1990), the coefficients for irradiance: the
// upper bound of each bin of sky clearness, then f11 f12 f13 f21 f22 f23.
struct PerezBin {
  double upper;
  double f11, f12, f13, f21, f22, f23;
};
constexpr PerezBin kPerezBins[] = {{1.065, -0.008, 0.588, -0.062, -0.060, 0.072, -0.022},
                                   {1.230, 0.130, 0.683, -0.151, -0.019, 0.066, -0.029},
                                   {1.500, 0.330, 0.487, -0.221, 0.055, -0.064, -0.026},
                                   {1.950, 0.568, 0.187, -0.295, 0.109, -0.152, -0.014},
                                   {2.800, 0.873, -0.392, -0.362, 0.226, -0.462, 0.001},
                                   {4.500, 1.132, -1.237, -0.412, 0.288, -0.823, 0.056},
                                   {6.200, 1.060, -1.600, -0.359, 0.264, -1.127, 0.131},
                                   {1e300, 0.678, -0.327, -0.250, 0.156, -1.377, 0.251}};

// The constant of the clearness's zenith correction, for the zenith in
// radians.
constexpr double kKappa = 1.041;

// A measured irradiance: none when negative or missing.
double Irradiance(double value) { return std::isfinite(value) && value > 0 ? value : 0.0; }

}  // namespace

double ExtraterrestrialNormal(int day_of_year) {
  const double g = 2.0 * std::numbers::pi * (day_of_year - 1) / 365.0;
  return kSolarConstant * (1.000110 + 0.034221 * std::cos(g) + 0.001280 * std::sin(g) +
                           0.000719 * std::cos(2 * g) + 0.000077 * std::sin(2 * g));
}

double AirMass(double zenith) {
  const double z = std::clamp(zenith, 0.0, 90.0);
  return 1.0 / (std::cos(z * kRad) + 0.50572 * std::pow(96.07995 - z, -1.6364));
}

PerezSky PerezSkyAt(const SunPosition& sun, double direct_normal, double diffuse_horizontal,
                    int day_of_year) {
  PerezSky sky;
  sky.sun = sun.direction;
  sky.sun_up = sun.up();
  sky.diffuse_horizontal = Irradiance(diffuse_horizontal);
  sky.cos_zenith = sky.sun_up ? std::cos(sun.zenith * kRad) : 0.0;
  sky.direct_normal = sky.sun_up ? Irradiance(direct_normal) : 0.0;
  sky.global_horizontal = sky.direct_normal * sky.cos_zenith + sky.diffuse_horizontal;
  sky.b = std::max(std::cos(85.0 * kRad), sky.cos_zenith);
  // With the sun below the horizon (twilight) or no diffuse light, the sky
  // is taken as uniform: the model has no brightening there.
  if (!sky.sun_up || sky.diffuse_horizontal <= 0) return sky;

  const double z = sun.zenith * kRad;
  const double z3 = kKappa * z * z * z;
  sky.epsilon =
      ((sky.diffuse_horizontal + sky.direct_normal) / sky.diffuse_horizontal + z3) / (1.0 + z3);
  sky.delta = sky.diffuse_horizontal * AirMass(sun.zenith) / ExtraterrestrialNormal(day_of_year);
  const PerezBin* bin = std::begin(kPerezBins);
  while (sky.epsilon >= bin->upper && bin + 1 != std::end(kPerezBins)) ++bin;
  sky.f1 = std::max(0.0, bin->f11 + bin->f12 * sky.delta + bin->f13 * z);
  sky.f2 = bin->f21 + bin->f22 * sky.delta + bin->f23 * z;
  return sky;
}

SurfaceIrradiance PerezTilted(const PerezSky& sky, const Direction& normal) {
  SurfaceIrradiance out;
  const double cos_tilt = std::clamp(normal.z, -1.0, 1.0);
  const double sin_tilt = std::sqrt(std::max(0.0, 1.0 - cos_tilt * cos_tilt));
  if (sky.sun_up) {
    out.cos_incidence =
        std::max(0.0, normal.x * sky.sun.x + normal.y * sky.sun.y + normal.z * sky.sun.z);
  }
  out.beam = sky.direct_normal * out.cos_incidence;
  const double dh = sky.diffuse_horizontal;
  out.isotropic = dh * (1.0 - sky.f1) * (1.0 + cos_tilt) / 2.0;
  out.circumsolar = dh * sky.f1 * out.cos_incidence / sky.b;
  out.horizon = dh * sky.f2 * sin_tilt;
  // A strongly negative horizon band on a steep surface under a bright sky
  // would take more than the rest gives: the surface then sees no diffuse
  // light, never a negative amount.
  if (out.isotropic + out.circumsolar + out.horizon < 0) {
    out.horizon = -(out.isotropic + out.circumsolar);
  }
  out.sky_diffuse = out.isotropic + out.circumsolar + out.horizon;
  out.ground_per_albedo = sky.global_horizontal * (1.0 - cos_tilt) / 2.0;
  return out;
}

SurfaceIrradiance PerezTilted(const PerezSky& sky, double tilt, double azimuth) {
  return PerezTilted(sky, DirectionOf(tilt, azimuth));
}

}  // namespace zelmo::modules
