#include "modules/solar_position.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <tuple>

namespace zelmo::modules {
namespace {

// The worked example of the algorithm's report (Reda and Andreas, NREL/TP-
// 560-34302, table A5.1): Golden, Colorado, 17 October 2003, 12:30:30 local
// standard time 7 hours behind UT, delta T 67 s, 820 mbar, 11 C.
SolarSite ReportSite() {
  SolarSite site;
  site.latitude = 39.742476;
  site.longitude = -105.1786;
  site.time_meridian = -7 * 15;
  site.elevation = 1830.14;
  site.pressure = 820;
  site.temperature = 11;
  site.delta_t = 67;
  return site;
}
constexpr double kReportHour = 12 + 30 / 60.0 + 30 / 3600.0;

TEST(SunAt, GivesTheReportsZenithAndAzimuthToItsDigits) {
  SunPosition sun = SunAt(ReportSite(), 2003, 10, 17, kReportHour);
  EXPECT_NEAR(sun.zenith, 50.11162, 0.000005);
  EXPECT_NEAR(sun.azimuth, 194.34024, 0.000005);
  EXPECT_TRUE(sun.up());
}

TEST(SunAt, TheRotationTurnsTheSunTheOtherWayInTheBuildingsFrame) {
  // A building turned 90 degrees anti-clockwise: its x-axis points north and
  // its y-axis west, so the sun in the south-south-west stands, for the
  // building, in the west-north-west (azimuth 90 degrees more).
  SolarSite turned = ReportSite();
  turned.rotation = 90;
  SunPosition site = SunAt(ReportSite(), 2003, 10, 17, kReportHour);
  SunPosition building = SunAt(turned, 2003, 10, 17, kReportHour);
  EXPECT_DOUBLE_EQ(building.azimuth, site.azimuth);  // the angles stay the site's
  Direction expected = DirectionOf(site.zenith, site.azimuth + 90);
  EXPECT_NEAR(building.direction.x, expected.x, 1e-12);
  EXPECT_NEAR(building.direction.y, expected.y, 1e-12);
  EXPECT_NEAR(building.direction.z, expected.z, 1e-12);
}

TEST(SunPath, AgreesWithTheFullAlgorithmEveryHourOfAYear) {
  SolarSite site = ReportSite();
  site.rotation = 30;
  SunPath path(site);
  double worst = 0;
  for (int month = 1; month <= 12; ++month) {
    for (int day = 1; day <= 28; day += 3) {
      for (int hour = 1; hour <= 24; ++hour) {
        SunPosition full = SunAt(site, 2003, month, day, ClimateHourInstant(hour));
        SunPosition fast = path.At(2003, month, day, ClimateHourInstant(hour));
        worst = std::max(worst, std::fabs(full.zenith - fast.zenith));
        if (full.zenith < 89) {  // the azimuth is ill-defined only at the zenith
          double d = std::fabs(full.azimuth - fast.azimuth);
          worst = std::max(worst, std::min(d, 360 - d));
        }
        EXPECT_NEAR(full.direction.x, fast.direction.x, 1e-4);
        EXPECT_NEAR(full.direction.y, fast.direction.y, 1e-4);
      }
    }
  }
  EXPECT_LT(worst, 0.001);
}

TEST(SunPath, InTheHourOfSunriseTakesTheMiddleOfTheSunlitPart) {
  SolarSite denver;
  denver.latitude = 39.83;
  denver.longitude = -104.65;
  denver.time_meridian = -105;
  // 21 June: the sun rises about 4:30; hour 5 runs from 4:00 to 5:00.
  double down = 4, up = 5;
  for (int i = 0; i < 40; ++i) {
    const double at = (down + up) / 2;
    (SunAt(denver, 1995, 6, 21, at).up() ? up : down) = at;
  }
  SunPosition sun = SunPath(denver).ForClimateHour(1995, 6, 21, 5);
  EXPECT_NEAR(sun.zenith, SunAt(denver, 1995, 6, 21, (up + 5) / 2).zenith, 0.001);
  EXPECT_TRUE(sun.up());
  // At noon the middle of the hour.
  EXPECT_DOUBLE_EQ(SunPath(denver).ForClimateHour(1995, 6, 21, 13).zenith,
                   SunPath(denver).At(1995, 6, 21, 12.5).zenith);
}

}  // namespace
}  // namespace zelmo::modules
