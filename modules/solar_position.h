// The sun's position seen from the site, by the Solar Position Algorithm of
// I. Reda and A. Andreas, "Solar Position Algorithm for Solar Radiation
// Applications", NREL/TP-560-34302 (2004, revised 2008), which follows J.
// Meeus, "Astronomical Algorithms" (1998): the earth's heliocentric position
// from the truncated VSOP87 series, nutation from the IAU 1980 series, the
// aberration, the observer's parallax and the atmospheric refraction. Its
// uncertainty is +-0.0003 degrees from the year -2000 to 6000.
//
// Directions are in the building's frame: x east, y north, z up, turned with
// the building. The site's rotation turns the whole building anti-clockwise,
// seen from above, by that many degrees, so the sun, seen from the building,
// turns the other way.
#pragma once

namespace zelmo::modules {

// A unit vector, or any vector, in a right-handed frame with z up.
struct Direction {
  double x = 0, y = 0, z = 0;
};

struct SolarSite {
  double latitude = 0;       // degrees, positive to the north
  double longitude = 0;      // degrees, positive to the east
  double time_meridian = 0;  // degrees, positive to the east: 15 per hour the zone is ahead of UT
  double elevation = 0;      // metres above sea level
  double rotation = 0;       // degrees the building is turned anti-clockwise, seen from above
  // For the refraction near the horizon: the mean air pressure (mbar; 0
  // takes the standard atmosphere's at the elevation) and temperature (C).
  double pressure = 0;
  double temperature = 10;
  // Terrestrial time less universal time, seconds (about 69 s in the 2020s;
  // the sun moves 0.0003 degrees in 30 s of error).
  double delta_t = 69;
};

struct SunPosition {
  double zenith = 90;    // degrees from the zenith, refraction included (topocentric)
  double azimuth = 180;  // degrees from north towards east, 0 to 360
  // A unit vector towards the sun in the building's frame (rotation applied).
  Direction direction;
  bool up() const { return zenith < 90; }
};

// The sun at `hour` hours after midnight (0 to 24, fractions allowed) of
// local standard time on the given day of the Gregorian calendar.
SunPosition SunAt(const SolarSite& site, int year, int month, int day, double hour);

// The instant of a climate file's hour n (which covers (n-1):00 to n:00),
// in hours after midnight, at which its sun is taken: the middle of the
// hour, n - 0.5. The file's radiation is the mean over the hour, and the
// sun at the hour's middle is the one single position whose cosine on a
// surface best stands for the hour's mean (the error is of second order in
// the sun's motion over half an hour); the sun at the hour's end, as some
// programs take it, lags the radiation by half an hour.
double ClimateHourInstant(int hour);

// The sun for every hour of a long run, fast: the geocentric right
// ascension, declination and sidereal time by the full algorithm at 0 h
// terrestrial time of each day, and between them Meeus' three-point
// interpolation (Astronomical Algorithms, chapter 3), as the report itself
// does for sunrise and sunset. It agrees with SunAt to better than 0.001
// degrees.
class SunPath {
 public:
  explicit SunPath(const SolarSite& site);
  SunPosition At(int year, int month, int day, double hour);
  // The sun of a climate file's hour (1 to 24): at ClimateHourInstant, but
  // in the hour the sun rises or sets, at the middle of the part of the
  // hour it is up, so that the hour's radiation falls on a sun above the
  // horizon that stands for that part.
  SunPosition ForClimateHour(int year, int month, int day, int hour);

 private:
  struct Day {
    double alpha, delta, nu;  // degrees
    double r;                 // astronomical units
  };
  Day DayAt(double julian_day_0ut) const;
  SolarSite site_;
  double cached_jd_ = -1e9;  // Julian day of 0 h UT of the cached middle day
  Day days_[3]{};
};

// The direction in the building's frame of a direction given in the
// site's frame (x east, y north, z up), for a building turned anti-clockwise
// by `rotation` degrees; and the way back.
Direction ToBuildingFrame(const Direction& site, double rotation);
Direction ToSiteFrame(const Direction& building, double rotation);

// The unit vector for a zenith angle (0 up, 90 level, 180 down) and an
// azimuth (0 north, 90 east): a sun direction or the outward normal of a
// surface, in whichever frame the angles are.
Direction DirectionOf(double zenith, double azimuth);

// The day of the year, 1 to 366.
int DayOfYear(int year, int month, int day);

}  // namespace zelmo::modules
