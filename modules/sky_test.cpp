#include "modules/sky.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace zelmo::modules {
namespace {

SunPosition Sun(double zenith, double azimuth) {
  SunPosition sun;
  sun.zenith = zenith;
  sun.azimuth = azimuth;
  sun.direction = DirectionOf(zenith, azimuth);
  return sun;
}

// Hours of the Denver year (TMY3 725650, sun at mid-hour): zenith, azimuth,
// the file's B_n and D_h, the day. Expected values computed apart, once, by
// a short Python script written from the paper's equations, to 3 decimals:
// beam, sky diffuse, ground per albedo facing south, vertical; beam and sky
// diffuse on a level surface.
struct DenverHour {
  const char* when;
  double zenith, azimuth, direct_normal, diffuse_horizontal;
  int day;
  double south_beam, south_sky, south_ground, level_beam, level_sky;
  double file_global;
};
constexpr DenverHour kDenver[] = {
    {"1 January, hour 12", 63.243579, 171.712313, 540, 187, 1, 477.146, 208.831, 215.054, 243.107,
     187.000, 430},
    {"21 March, hour 10", 53.146055, 128.206747, 485, 171, 80, 240.028, 133.354, 230.946, 290.892,
     171.000, 461},
    {"15 July, hour 13", 19.102316, 198.378073, 847, 146, 196, 263.049, 70.588, 473.180, 800.361,
     146.000, 946},
    {"5 December, hour 14", 66.501104, 205.380678, 562, 121, 339, 465.646, 146.422, 172.544,
     224.087, 121.000, 344},
};

TEST(PerezTilted, MatchesTheHandComputedDenverHours) {
  for (const DenverHour& h : kDenver) {
    PerezSky sky =
        PerezSkyAt(Sun(h.zenith, h.azimuth), h.direct_normal, h.diffuse_horizontal, h.day);
    SurfaceIrradiance south = PerezTilted(sky, 90, 180);
    SurfaceIrradiance level = PerezTilted(sky, 0, 0);
    EXPECT_NEAR(south.beam, h.south_beam, 0.001) << h.when;
    EXPECT_NEAR(south.sky_diffuse, h.south_sky, 0.001) << h.when;
    EXPECT_NEAR(south.ground_per_albedo, h.south_ground, 0.001) << h.when;
    EXPECT_NEAR(level.beam, h.level_beam, 0.001) << h.when;
    EXPECT_NEAR(level.sky_diffuse, h.level_sky, 0.001) << h.when;
    EXPECT_DOUBLE_EQ(level.ground_per_albedo, 0);
    EXPECT_NEAR(south.isotropic + south.circumsolar + south.horizon, south.sky_diffuse, 1e-9);
  }
}

TEST(PerezTilted, ALevelSurfaceReceivesTheGlobalHorizontal) {
  for (const DenverHour& h : kDenver) {
    PerezSky sky =
        PerezSkyAt(Sun(h.zenith, h.azimuth), h.direct_normal, h.diffuse_horizontal, h.day);
    SurfaceIrradiance level = PerezTilted(sky, 0, 123);
    // Exactly the model's own level global irradiance...
    EXPECT_NEAR(level.beam + level.sky_diffuse, sky.global_horizontal, 1e-9) << h.when;
    // ...and, with the sun at the middle of the hour, the file's measured
    // one to within the rounding of the file's three whole numbers.
    EXPECT_NEAR(level.beam + level.sky_diffuse, h.file_global, 1.5) << h.when;
  }
}

TEST(PerezTilted, NoBeamOnTheBackOfASurfaceNorBelowTheHorizon) {
  PerezSky day = PerezSkyAt(Sun(50, 180), 800, 100, 172);
  EXPECT_DOUBLE_EQ(PerezTilted(day, 90, 0).beam, 0);  // facing north, sun south
  EXPECT_DOUBLE_EQ(PerezTilted(day, 90, 0).circumsolar, 0);
  EXPECT_GT(PerezTilted(day, 90, 180).beam, 0);
  PerezSky night = PerezSkyAt(Sun(95, 300), 800, 10, 172);
  EXPECT_DOUBLE_EQ(PerezTilted(night, 90, 300).beam, 0);
  EXPECT_DOUBLE_EQ(night.f1, 0);
  EXPECT_NEAR(PerezTilted(night, 0, 0).sky_diffuse, 10, 1e-12);  // twilight, isotropic
}

TEST(PerezSkyAt, TakesMissingOrNegativeIrradianceAsNone) {
  const double nan = std::numeric_limits<double>::quiet_NaN();
  PerezSky sky = PerezSkyAt(Sun(30, 180), nan, -5, 100);
  EXPECT_DOUBLE_EQ(sky.global_horizontal, 0);
  SurfaceIrradiance s = PerezTilted(sky, 45, 180);
  EXPECT_DOUBLE_EQ(s.beam + s.sky_diffuse + s.ground_per_albedo, 0);
}

TEST(PerezSkyAt, PicksTheClearnessBinByItsBounds) {
  // With the sun in the zenith the clearness is (D_h + B_n) / D_h.
  struct Case {
    double direct_normal;
    double f2_at_no_brightness;  // f21 of the bin when delta is ~0
  };
  for (Case c :
       {Case{0.0649, -0.060}, Case{0.0651, -0.019}, Case{5.19, 0.264}, Case{5.21, 0.156}}) {
    PerezSky sky = PerezSkyAt(Sun(0, 0), c.direct_normal * 1e-3, 1e-3, 1);
    EXPECT_NEAR(sky.f2, c.f2_at_no_brightness, 1e-6) << c.direct_normal;
  }
}

TEST(AirMassAndExtraterrestrial, FollowTheirSources) {
  EXPECT_NEAR(AirMass(0), 1.0, 0.001);
  EXPECT_NEAR(AirMass(60), 1.9942, 0.001);  // Kasten and Young's table: 1.9943
  EXPECT_NEAR(AirMass(90), 37.92, 0.05);
  EXPECT_NEAR(ExtraterrestrialNormal(1), 1367 * 1.035, 1367 * 0.0015);
  EXPECT_NEAR(ExtraterrestrialNormal(185), 1367 * 0.967, 1367 * 0.0015);
}

}  // namespace
}  // namespace zelmo::modules
