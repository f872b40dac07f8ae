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

TEST(SunAt, TheDirectionIsTheUnitVectorOfZenithAndAzimuth) {
  SunPosition sun = SunAt(ReportSite(), 2003, 10, 17, kReportHour);
  const double z = sun.zenith * M_PI / 180, a = sun.azimuth * M_PI / 180;
  EXPECT_NEAR(sun.direction.x, std::sin(z) * std::sin(a), 1e-12);  // east
  EXPECT_NEAR(sun.direction.y, std::sin(z) * std::cos(a), 1e-12);  // north
  EXPECT_NEAR(sun.direction.z, std::cos(z), 1e-12);
}

TEST(SunAt, AtMidnightTheSunIsDown) {
  EXPECT_FALSE(SunAt(ReportSite(), 2003, 10, 17, 0.5).up());
  EXPECT_GT(SunAt(ReportSite(), 2003, 10, 17, 0.5).zenith, 90);
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

TEST(Frames, TurnAndTurnBack) {
  struct Case {
    Direction in;
    double rotation;
    Direction building;
  };
  const Case cases[] = {
      {{1, 0, 0}, 90, {0, -1, 0}},  // east seen from a building turned a quarter left
      {{0, 1, 0}, 90, {1, 0, 0}},   // north
      {{1, 0, 0}, -90, {0, 1, 0}},  // a quarter right
      {{0, 1, 0.5}, 180, {0, -1, 0.5}}, {{0.3, 0.4, 0.5}, 0, {0.3, 0.4, 0.5}},
  };
  for (const Case& c : cases) {
    Direction b = ToBuildingFrame(c.in, c.rotation);
    EXPECT_NEAR(b.x, c.building.x, 1e-12) << c.rotation;
    EXPECT_NEAR(b.y, c.building.y, 1e-12) << c.rotation;
    EXPECT_DOUBLE_EQ(b.z, c.building.z);
    Direction back = ToSiteFrame(b, c.rotation);
    EXPECT_NEAR(back.x, c.in.x, 1e-12);
    EXPECT_NEAR(back.y, c.in.y, 1e-12);
  }
}

TEST(DirectionOf, FollowsTheViewersAngles) {
  struct Case {
    double zenith, azimuth;
    Direction expected;
  };
  const Case cases[] = {{0, 0, {0, 0, 1}},     {90, 0, {0, 1, 0}},    {90, 90, {1, 0, 0}},
                        {90, 180, {0, -1, 0}}, {90, 270, {-1, 0, 0}}, {180, 0, {0, 0, -1}}};
  for (const Case& c : cases) {
    Direction d = DirectionOf(c.zenith, c.azimuth);
    EXPECT_NEAR(d.x, c.expected.x, 1e-12) << c.zenith << " " << c.azimuth;
    EXPECT_NEAR(d.y, c.expected.y, 1e-12) << c.zenith << " " << c.azimuth;
    EXPECT_NEAR(d.z, c.expected.z, 1e-12) << c.zenith << " " << c.azimuth;
  }
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
        SunPosition fast = path.ForClimateHour(2003, month, day, hour);
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

TEST(SunPath, CrossesTheYearsEndAndGoesBackInTime) {
  SunPath path(ReportSite());
  for (auto [year, month, day] : {std::tuple{2003, 12, 31}, {2004, 1, 1}, {2003, 6, 1}}) {
    SunPosition full = SunAt(ReportSite(), year, month, day, 23.5);
    SunPosition fast = path.At(year, month, day, 23.5);
    EXPECT_NEAR(full.zenith, fast.zenith, 0.001) << year << "." << month << "." << day;
  }
}

TEST(ClimateHourInstant, IsTheMiddleOfTheHour) {
  EXPECT_DOUBLE_EQ(ClimateHourInstant(1), 0.5);
  EXPECT_DOUBLE_EQ(ClimateHourInstant(24), 23.5);
}

TEST(DayOfYear, CountsTheLeapDay) {
  EXPECT_EQ(DayOfYear(1995, 1, 1), 1);
  EXPECT_EQ(DayOfYear(1995, 3, 1), 60);
  EXPECT_EQ(DayOfYear(1996, 3, 1), 61);
  EXPECT_EQ(DayOfYear(1996, 12, 31), 366);
  EXPECT_EQ(DayOfYear(2000, 12, 31), 366);
  EXPECT_EQ(DayOfYear(1900, 12, 31), 365);
}

}  // namespace
}  // namespace zelmo::modules
