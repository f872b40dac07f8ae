#include "modules/solar_position.h"

#include <cmath>
#include <initializer_list>
#include <numbers>

namespace zelmo::modules {

namespace {

constexpr double kPi = std::numbers::pi;
constexpr double kRad = kPi / 180.0;

double Rad(double degrees) { return degrees * kRad; }
double Deg(double radians) { return radians / kRad; }

// An angle in degrees brought into [0, 360).
double Limit360(double degrees) {
  double limited = std::fmod(degrees, 360.0);
  return limited < 0 ? limited + 360.0 : limited;
}

// The terms A cos(B + C t) of the earth's heliocentric longitude, latitude
// and radius vector (the report's table A4.2, Meeus' appendix III: VSOP87
// truncated); A in 1e-8 radians (astronomical units for R), B in radians, C
// in radians per Julian millennium.
struct Term {
  double a, b, c;
};

constexpr Term kL0[] = {{175347046, 0, 0},           {3341656, 4.6692568, 6283.07585},
                        {34894, 4.6261, 12566.1517}, {3497, 2.7441, 5753.3849},
                        {3418, 2.8289, 3.5231},      {3136, 3.6277, 77713.7715},
                        {2676, 4.4181, 7860.4194},   {2343, 6.1352, 3930.2097},
                        {1324, 0.7425, 11506.7698},  {1273, 2.0371, 529.691},
                        {1199, 1.1096, 1577.3435},   {990, 5.233, 5884.927},
                        {902, 2.045, 26.298},        {857, 3.508, 398.149},
                        {780, 1.179, 5223.694},      {753, 2.533, 5507.553},
                        {505, 4.583, 18849.228},     {492, 4.205, 775.523},
                        {357, 2.92, 0.067},          {317, 5.849, 11790.629},
                        {284, 1.899, 796.298},       {271, 0.315, 10977.079},
                        {243, 0.345, 5486.778},      {206, 4.806, 2544.314},
                        {205, 1.869, 5573.143},      {202, 2.458, 6069.777},
                        {156, 0.833, 213.299},       {132, 3.411, 2942.463},
                        {126, 1.083, 20.775},        {115, 0.645, 0.98},
                        {103, 0.636, 4694.003},      {102, 0.976, 15720.839},
                        {102, 4.267, 7.114},         {99, 6.21, 2146.17},
                        {98, 0.68, 155.42},          {86, 5.98, 161000.69},
                        {85, 1.3, 6275.96},          {85, 3.67, 71430.7},
                        {80, 1.81, 17260.15},        {79, 3.04, 12036.46},
                        {75, 1.76, 5088.63},         {74, 3.5, 3154.69},
                        {74, 4.68, 801.82},          {70, 0.83, 9437.76},
                        {62, 3.98, 8827.39},         {61, 1.82, 7084.9},
                        {57, 2.78, 6286.6},          {56, 4.39, 14143.5},
                        {56, 3.47, 6279.55},         {52, 0.19, 12139.55},
                        {52, 1.33, 1748.02},         {51, 0.28, 5856.48},
                        {49, 0.49, 1194.45},         {41, 5.37, 8429.24},
                        {41, 2.4, 19651.05},         {39, 6.17, 10447.39},
                        {37, 6.04, 10213.29},        {37, 2.57, 1059.38},
                        {36, 1.71, 2352.87},         {36, 1.78, 6812.77},
                        {33, 0.59, 17789.85},        {30, 0.44, 83996.85},
                        {30, 2.74, 1349.87},         {25, 3.16, 4690.48}};
constexpr Term kL1[] = {{628331966747, 0, 0},       {206059, 2.678235, 6283.07585},
                        {4303, 2.6351, 12566.1517}, {425, 1.59, 3.523},
                        {119, 5.796, 26.298},       {109, 2.966, 1577.344},
                        {93, 2.59, 18849.23},       {72, 1.14, 529.69},
                        {68, 1.87, 398.15},         {67, 4.41, 5507.55},
                        {59, 2.89, 5223.69},        {56, 2.17, 155.42},
                        {45, 0.4, 796.3},           {36, 0.47, 775.52},
                        {29, 2.65, 7.11},           {21, 5.34, 0.98},
                        {19, 1.85, 5486.78},        {19, 4.97, 213.3},
                        {17, 2.99, 6275.96},        {16, 0.03, 2544.31},
                        {16, 1.43, 2146.17},        {15, 1.21, 10977.08},
                        {12, 2.83, 1748.02},        {12, 3.26, 5088.63},
                        {12, 5.27, 1194.45},        {12, 2.08, 4694},
                        {11, 0.77, 553.57},         {10, 1.3, 6286.6},
                        {10, 4.24, 1349.87},        {9, 2.7, 242.73},
                        {9, 5.64, 951.72},          {8, 5.3, 2352.87},
                        {6, 2.65, 9437.76},         {6, 4.67, 4690.48}};
constexpr Term kL2[] = {
    {52919, 0, 0},     {8720, 1.0721, 6283.0758}, {309, 0.867, 12566.152}, {27, 0.05, 3.52},
    {16, 5.19, 26.3},  {16, 3.68, 155.42},        {10, 0.76, 18849.23},    {9, 2.06, 77713.77},
    {7, 0.83, 775.52}, {5, 4.66, 1577.34},        {4, 1.03, 7.11},         {4, 3.44, 5573.14},
    {3, 5.14, 796.3},  {3, 6.05, 5507.55},        {3, 1.19, 242.73},       {3, 6.12, 529.69},
    {3, 0.31, 398.15}, {3, 2.28, 553.57},         {2, 4.38, 5223.69},      {2, 3.75, 0.98}};
constexpr Term kL3[] = {{289, 5.844, 6283.076}, {35, 0, 0},      {17, 5.49, 12566.15},
                        {3, 5.2, 155.42},       {1, 4.72, 3.52}, {1, 5.3, 18849.23},
                        {1, 5.97, 242.73}};
constexpr Term kL4[] = {{114, 3.142, 0}, {8, 4.13, 6283.08}, {1, 3.84, 12566.15}};
constexpr Term kL5[] = {{1, 3.14, 0}};
constexpr Term kB0[] = {{280, 3.199, 84334.662},
                        {102, 5.422, 5507.553},
                        {80, 3.88, 5223.69},
                        {44, 3.7, 2352.87},
                        {32, 4, 1577.34}};
constexpr Term kB1[] = {{9, 3.9, 5507.55}, {6, 1.73, 5223.69}};
constexpr Term kR0[] = {{100013989, 0, 0},
                        {1670700, 3.0984635, 6283.07585},
                        {13956, 3.05525, 12566.1517},
                        {3084, 5.1985, 77713.7715},
                        {1628, 1.1739, 5753.3849},
                        {1576, 2.8469, 7860.4194},
                        {925, 5.453, 11506.77},
                        {542, 4.564, 3930.21},
                        {472, 3.661, 5884.927},
                        {346, 0.964, 5507.553},
                        {329, 5.9, 5223.694},
                        {307, 0.299, 5573.143},
                        {243, 4.273, 11790.629},
                        {212, 5.847, 1577.344},
                        {186, 5.022, 10977.079},
                        {175, 3.012, 18849.228},
                        {110, 5.055, 5486.778},
                        {98, 0.89, 6069.78},
                        {86, 5.69, 15720.84},
                        {86, 1.27, 161000.69},
                        {65, 0.27, 17260.15},
                        {63, 0.92, 529.69},
                        {57, 2.01, 83996.85},
                        {56, 5.24, 71430.7},
                        {49, 3.25, 2544.31},
                        {47, 2.58, 775.52},
                        {45, 5.54, 9437.76},
                        {43, 6.01, 6275.96},
                        {39, 5.36, 4694},
                        {38, 2.39, 8827.39},
                        {37, 0.83, 19651.05},
                        {37, 4.9, 12139.55},
                        {36, 1.67, 12036.46},
                        {35, 1.84, 2942.46},
                        {33, 0.24, 7084.9},
                        {32, 0.18, 5088.63},
                        {32, 1.78, 398.15},
                        {28, 1.21, 6286.6},
                        {28, 1.9, 6279.55},
                        {26, 4.59, 10447.39}};
constexpr Term kR1[] = {{103019, 1.10749, 6283.07585},
                        {1721, 1.0644, 12566.1517},
                        {702, 3.142, 0},
                        {32, 1.02, 18849.23},
                        {31, 2.84, 5507.55},
                        {25, 1.32, 5223.69},
                        {18, 1.42, 1577.34},
                        {10, 5.91, 10977.08},
                        {9, 1.42, 6275.96},
                        {9, 0.27, 5486.78}};
constexpr Term kR2[] = {{4359, 5.7846, 6283.0758}, {124, 5.579, 12566.152}, {12, 3.14, 0},
                        {9, 3.63, 77713.77},       {6, 1.87, 5573.14},      {3, 5.47, 18849.23}};
constexpr Term kR3[] = {{145, 4.273, 6283.076}, {7, 3.92, 12566.15}};
constexpr Term kR4[] = {{4, 2.56, 6283.08}};

template <size_t N>
double SumTerms(const Term (&terms)[N], double jme) {
  double sum = 0;
  for (const Term& term : terms) sum += term.a * std::cos(term.b + term.c * jme);
  return sum;
}

// A polynomial in the Julian ephemeris millennium of the series' sums,
// divided by 1e8.
double Series(std::initializer_list<double> sums, double jme) {
  double value = 0;
  double power = 1;
  for (double sum : sums) {
    value += sum * power;
    power *= jme;
  }
  return value / 1e8;
}

// The nutation in longitude and obliquity (the report's table A4.3, the
// IAU 1980 theory as Meeus gives it): multipliers of the five fundamental
// arguments, then a + b t for the longitude's sine and c + d t for the
// obliquity's cosine, in 0.0001 arc seconds.
struct NutationTerm {
  signed char y[5];
  double a, b, c, d;
};
constexpr NutationTerm kNutation[] = {{{0, 0, 0, 0, 1}, -171996, -174.2, 92025, 8.9},
                                      {{-2, 0, 0, 2, 2}, -13187, -1.6, 5736, -3.1},
                                      {{0, 0, 0, 2, 2}, -2274, -0.2, 977, -0.5},
                                      {{0, 0, 0, 0, 2}, 2062, 0.2, -895, 0.5},
                                      {{0, 1, 0, 0, 0}, 1426, -3.4, 54, -0.1},
                                      {{0, 0, 1, 0, 0}, 712, 0.1, -7, 0},
                                      {{-2, 1, 0, 2, 2}, -517, 1.2, 224, -0.6},
                                      {{0, 0, 0, 2, 1}, -386, -0.4, 200, 0},
                                      {{0, 0, 1, 2, 2}, -301, 0, 129, -0.1},
                                      {{-2, -1, 0, 2, 2}, 217, -0.5, -95, 0.3},
                                      {{-2, 0, 1, 0, 0}, -158, 0, 0, 0},
                                      {{-2, 0, 0, 2, 1}, 129, 0.1, -70, 0},
                                      {{0, 0, -1, 2, 2}, 123, 0, -53, 0},
                                      {{2, 0, 0, 0, 0}, 63, 0, 0, 0},
                                      {{0, 0, 1, 0, 1}, 63, 0.1, -33, 0},
                                      {{2, 0, -1, 2, 2}, -59, 0, 26, 0},
                                      {{0, 0, -1, 0, 1}, -58, -0.1, 32, 0},
                                      {{0, 0, 1, 2, 1}, -51, 0, 27, 0},
                                      {{-2, 0, 2, 0, 0}, 48, 0, 0, 0},
                                      {{0, 0, -2, 2, 1}, 46, 0, -24, 0},
                                      {{2, 0, 0, 2, 2}, -38, 0, 16, 0},
                                      {{0, 0, 2, 2, 2}, -31, 0, 13, 0},
                                      {{0, 0, 2, 0, 0}, 29, 0, 0, 0},
                                      {{-2, 0, 1, 2, 2}, 29, 0, -12, 0},
                                      {{0, 0, 0, 2, 0}, 26, 0, 0, 0},
                                      {{-2, 0, 0, 2, 0}, -22, 0, 0, 0},
                                      {{0, 0, -1, 2, 1}, 21, 0, -10, 0},
                                      {{0, 2, 0, 0, 0}, 17, -0.1, 0, 0},
                                      {{2, 0, -1, 0, 1}, 16, 0, -8, 0},
                                      {{-2, 2, 0, 2, 2}, -16, 0.1, 7, 0},
                                      {{0, 1, 0, 0, 1}, -15, 0, 9, 0},
                                      {{-2, 0, 1, 0, 1}, -13, 0, 7, 0},
                                      {{0, -1, 0, 0, 1}, -12, 0, 6, 0},
                                      {{0, 0, 2, -2, 0}, 11, 0, 0, 0},
                                      {{2, 0, -1, 2, 1}, -10, 0, 5, 0},
                                      {{2, 0, 1, 2, 2}, -8, 0, 3, 0},
                                      {{0, 1, 0, 2, 2}, 7, 0, -3, 0},
                                      {{-2, 1, 1, 0, 0}, -7, 0, 0, 0},
                                      {{0, -1, 0, 2, 2}, -7, 0, 3, 0},
                                      {{2, 0, 0, 2, 1}, -7, 0, 3, 0},
                                      {{2, 0, 1, 0, 0}, 6, 0, 0, 0},
                                      {{-2, 0, 2, 2, 2}, 6, 0, -3, 0},
                                      {{-2, 0, 1, 2, 1}, 6, 0, -3, 0},
                                      {{2, 0, -2, 0, 1}, -6, 0, 3, 0},
                                      {{2, 0, 0, 0, 1}, -6, 0, 3, 0},
                                      {{0, -1, 1, 0, 0}, 5, 0, 0, 0},
                                      {{-2, -1, 0, 2, 1}, -5, 0, 3, 0},
                                      {{-2, 0, 0, 0, 1}, -5, 0, 3, 0},
                                      {{0, 0, 2, 2, 1}, -5, 0, 3, 0},
                                      {{-2, 0, 2, 0, 1}, 4, 0, 0, 0},
                                      {{-2, 1, 0, 2, 1}, 4, 0, 0, 0},
                                      {{0, 0, 1, -2, 0}, 4, 0, 0, 0},
                                      {{-1, 0, 1, 0, 0}, -4, 0, 0, 0},
                                      {{-2, 1, 0, 0, 0}, -4, 0, 0, 0},
                                      {{1, 0, 0, 0, 0}, -4, 0, 0, 0},
                                      {{0, 0, 1, 2, 0}, 3, 0, 0, 0},
                                      {{0, 0, -2, 2, 2}, -3, 0, 0, 0},
                                      {{-1, -1, 1, 0, 0}, -3, 0, 0, 0},
                                      {{0, 1, 1, 0, 0}, -3, 0, 0, 0},
                                      {{0, -1, 1, 2, 2}, -3, 0, 0, 0},
                                      {{2, -1, -1, 2, 2}, -3, 0, 0, 0},
                                      {{0, 0, 3, 2, 2}, -3, 0, 0, 0},
                                      {{2, -1, 0, 2, 2}, -3, 0, 0, 0}};

// The Julian day of a moment of the Gregorian calendar, the day's fraction
// in `day` (the report's eq. 4).
double JulianDay(int year, int month, double day) {
  if (month < 3) {
    year -= 1;
    month += 12;
  }
  const int a = year / 100;
  const int b = 2 - a + a / 4;
  return std::floor(365.25 * (year + 4716)) + std::floor(30.6001 * (month + 1)) + day + b - 1524.5;
}

// The sun seen from the earth's centre at a moment: apparent right
// ascension, declination, Greenwich apparent sidereal time (degrees) and
// the earth's distance (astronomical units).
struct Geocentric {
  double alpha, delta, nu, r;
};

Geocentric GeocentricAt(double jd, double delta_t) {
  const double jde = jd + delta_t / 86400.0;
  const double jc = (jd - 2451545.0) / 36525.0;
  const double jce = (jde - 2451545.0) / 36525.0;
  const double jme = jce / 10.0;

  const double l = Limit360(Deg(Series({SumTerms(kL0, jme), SumTerms(kL1, jme), SumTerms(kL2, jme),
                                        SumTerms(kL3, jme), SumTerms(kL4, jme), SumTerms(kL5, jme)},
                                       jme)));
  const double b = Deg(Series({SumTerms(kB0, jme), SumTerms(kB1, jme)}, jme));
  const double r = Series({SumTerms(kR0, jme), SumTerms(kR1, jme), SumTerms(kR2, jme),
                           SumTerms(kR3, jme), SumTerms(kR4, jme)},
                          jme);
  const double theta = Limit360(l + 180.0);
  const double beta = -b;

  // The fundamental arguments of the nutation: the moon's mean elongation,
  // the sun's and the moon's mean anomalies, the moon's argument of
  // latitude and the longitude of its ascending node.
  const double t2 = jce * jce, t3 = t2 * jce;
  const double x[5] = {297.85036 + 445267.111480 * jce - 0.0019142 * t2 + t3 / 189474.0,
                       357.52772 + 35999.050340 * jce - 0.0001603 * t2 - t3 / 300000.0,
                       134.96298 + 477198.867398 * jce + 0.0086972 * t2 + t3 / 56250.0,
                       93.27191 + 483202.017538 * jce - 0.0036825 * t2 + t3 / 327270.0,
                       125.04452 - 1934.136261 * jce + 0.0020708 * t2 + t3 / 450000.0};
  double dpsi = 0, deps = 0;
  for (const NutationTerm& term : kNutation) {
    double arg = 0;
    for (int i = 0; i < 5; ++i) arg += x[i] * term.y[i];
    arg = Rad(arg);
    dpsi += (term.a + term.b * jce) * std::sin(arg);
    deps += (term.c + term.d * jce) * std::cos(arg);
  }
  dpsi /= 36000000.0;
  deps /= 36000000.0;

  // The true obliquity of the ecliptic (Laskar's polynomial).
  const double u = jme / 10.0;
  double eps0 = 0;
  constexpr double kEps[] = {84381.448, -4680.93, -1.55, 1999.25, -51.38, -249.67,
                             -39.05,    7.12,     27.87, 5.79,    2.45};
  for (int i = 10; i >= 0; --i) eps0 = eps0 * u + kEps[i];
  const double eps = Rad(eps0 / 3600.0 + deps);

  const double aberration = -20.4898 / (3600.0 * r);
  const double lambda = Rad(theta + dpsi + aberration);
  const double nu0 = Limit360(280.46061837 + 360.98564736629 * (jd - 2451545.0) +
                              0.000387933 * jc * jc - jc * jc * jc / 38710000.0);
  const double nu = nu0 + dpsi * std::cos(eps);

  const double beta_rad = Rad(beta);
  const double alpha = Limit360(Deg(std::atan2(
      std::sin(lambda) * std::cos(eps) - std::tan(beta_rad) * std::sin(eps), std::cos(lambda))));
  const double delta = Deg(std::asin(std::sin(beta_rad) * std::cos(eps) +
                                     std::cos(beta_rad) * std::sin(eps) * std::sin(lambda)));
  return {alpha, delta, nu, r};
}

// From the geocentric sun to the one the observer sees: the local hour
// angle, the parallax of the observer's place on the earth, the refraction
// of the air; then the direction in the building's frame.
SunPosition Topocentric(const SolarSite& site, double alpha, double delta, double nu, double r) {
  const double phi = Rad(site.latitude);
  const double h = Rad(Limit360(nu + site.longitude - alpha));
  const double xi = Rad(8.794 / (3600.0 * r));
  const double u = std::atan(0.99664719 * std::tan(phi));
  const double x = std::cos(u) + site.elevation / 6378140.0 * std::cos(phi);
  const double y = 0.99664719 * std::sin(u) + site.elevation / 6378140.0 * std::sin(phi);
  const double d = Rad(delta);
  const double denominator = std::cos(d) - x * std::sin(xi) * std::cos(h);
  const double dalpha = std::atan2(-x * std::sin(xi) * std::sin(h), denominator);
  const double d_prime =
      std::atan2((std::sin(d) - y * std::sin(xi)) * std::cos(dalpha), denominator);
  const double h_prime = h - dalpha;

  const double e0 = Deg(std::asin(std::sin(phi) * std::sin(d_prime) +
                                  std::cos(phi) * std::cos(d_prime) * std::cos(h_prime)));
  // Refraction (Bennett's formula as the report gives it), only while the
  // sun's upper edge can be above the horizon: below, the formula has no
  // meaning.
  double pressure = site.pressure;
  if (pressure <= 0) pressure = 1013.25 * std::pow(1.0 - 2.25577e-5 * site.elevation, 5.25588);
  double refraction = 0;
  if (e0 >= -(0.26667 + 0.5667)) {
    refraction = pressure / 1010.0 * 283.0 / (273.0 + site.temperature) * 1.02 /
                 (60.0 * std::tan(Rad(e0 + 10.3 / (e0 + 5.11))));
  }
  const double e = e0 + refraction;

  SunPosition sun;
  sun.zenith = 90.0 - e;
  const double gamma = Deg(std::atan2(
      std::sin(h_prime), std::cos(h_prime) * std::sin(phi) - std::tan(d_prime) * std::cos(phi)));
  sun.azimuth = Limit360(gamma + 180.0);
  sun.direction = ToBuildingFrame(DirectionOf(sun.zenith, sun.azimuth), site.rotation);
  return sun;
}

// The Julian day (UT) of a moment of local standard time.
double JulianDayUt(const SolarSite& site, int year, int month, int day, double hour) {
  return JulianDay(year, month, day + (hour - site.time_meridian / 15.0) / 24.0);
}

}  // namespace

SunPosition SunAt(const SolarSite& site, int year, int month, int day, double hour) {
  const Geocentric g = GeocentricAt(JulianDayUt(site, year, month, day, hour), site.delta_t);
  return Topocentric(site, g.alpha, g.delta, g.nu, g.r);
}

double ClimateHourInstant(int hour) { return hour - 0.5; }

SunPath::SunPath(const SolarSite& site) : site_(site) {}

SunPath::Day SunPath::DayAt(double jd0) const {
  // At 0 h terrestrial time: the sidereal time it gives is that of the same
  // moment, delta_t before 0 h UT.
  const Geocentric g = GeocentricAt(jd0 - site_.delta_t / 86400.0, site_.delta_t);
  return {g.alpha, g.delta, g.nu, g.r};
}

SunPosition SunPath::At(int year, int month, int day, double hour) {
  const double jd = JulianDayUt(site_, year, month, day, hour);
  const double jd0 = std::floor(jd - 0.5) + 0.5;  // 0 h UT of the day
  if (jd0 != cached_jd_) {
    if (jd0 == cached_jd_ + 1) {
      days_[0] = days_[1];
      days_[1] = days_[2];
      days_[2] = DayAt(jd0 + 1);
    } else {
      for (int i = 0; i < 3; ++i) days_[i] = DayAt(jd0 - 1 + i);
    }
    cached_jd_ = jd0;
  }
  // The report's interpolation for the sun's transit, rising and setting
  // (its eq. A.2 after Meeus' eq. 3.3), in the day's fraction of
  // terrestrial time.
  const double n = jd - jd0 + site_.delta_t / 86400.0;
  auto interpolate = [n](double before, double at, double after, bool wraps) {
    double a = at - before;
    double b = after - at;
    if (wraps) {
      if (std::fabs(a) > 2) a = Limit360(a);
      if (std::fabs(b) > 2) b = Limit360(b);
      if (a > 180) a -= 360;
      if (b > 180) b -= 360;
    }
    const double c = b - a;
    return at + n * (a + b + c * n) / 2.0;
  };
  const double alpha = interpolate(days_[0].alpha, days_[1].alpha, days_[2].alpha, true);
  const double delta = interpolate(days_[0].delta, days_[1].delta, days_[2].delta, false);
  const double nu = days_[1].nu + 360.98564736629 * n;
  return Topocentric(site_, alpha, delta, nu, days_[1].r);
}

SunPosition SunPath::ForClimateHour(int year, int month, int day, int hour) {
  const double middle = ClimateHourInstant(hour);
  const SunPosition sun = At(year, month, day, middle);
  // In half an hour the sun's zenith moves 7.5 degrees at most: further
  // than 10 from the horizon, it is up, or down, the whole hour.
  if (std::fabs(sun.zenith - 90.0) > 10.0) return sun;
  const double start = hour - 1.0, end = hour;
  const bool up_at_start = At(year, month, day, start).up();
  if (up_at_start == At(year, month, day, end).up()) return sun;
  double before = start, after = end;  // the crossing lies between
  for (int i = 0; i < 16; ++i) {       // to 0.06 s
    const double at = (before + after) / 2;
    (At(year, month, day, at).up() == up_at_start ? before : after) = at;
  }
  const double crossing = (before + after) / 2;
  return At(year, month, day, up_at_start ? (start + crossing) / 2 : (crossing + end) / 2);
}

Direction ToBuildingFrame(const Direction& site, double rotation) {
  return ToSiteFrame(site, -rotation);
}

Direction ToSiteFrame(const Direction& building, double rotation) {
  const double c = std::cos(Rad(rotation));
  const double s = std::sin(Rad(rotation));
  return {c * building.x - s * building.y, s * building.x + c * building.y, building.z};
}

Direction DirectionOf(double zenith, double azimuth) {
  const double z = Rad(zenith);
  const double a = Rad(azimuth);
  return {std::sin(z) * std::sin(a), std::sin(z) * std::cos(a), std::cos(z)};
}

int DayOfYear(int year, int month, int day) {
  static constexpr int kBefore[] = {0, 31, 59, 90, 120, 151, 181, 212, 243, 273, 304, 334};
  const bool leap = (year % 4 == 0 && year % 100 != 0) || year % 400 == 0;
  if (month < 1 || month > 12) return day;
  return kBefore[month - 1] + day + (leap && month > 2 ? 1 : 0);
}

}  // namespace zelmo::modules
