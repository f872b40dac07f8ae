// DAT4.DAT, the control input of DANE and MUK:
//
//   1  accuracy ("2" new coefficients each step, "4" each iteration), the
//      sun switch (1: no sun), the temperature switch (1: the outdoor air at
//      the set temperature), the set temperature, the wind terrain
//   2  the climate file's path
//   3  headline
//   4  "0" external long-wave radiation on, "1" off
//   5  loops over the first day
//   6  output type: 0 monthly and yearly, 1 one day per month, 2 hourly
//   7  soil resistance, exterior film, interior film (-1 calculated),
//      ground reflectivity (fraction)
//   8  "     1" and minus the number of volumes, then per volume the numbers
//      1 to 6 of its ticked quantities (or "0"); otherwise "      0      0"
//   9  nine digits: "1" for the comfort volume
//   10 the HVAC schedule of each volume: its periods, each 24 hour lines of
//      36 columns (max heating, heating set point, max cooling, cooling set
//      point, internal loads, inflow l/s, outflow l/s, open window %, then
//      the 28 openings % of the pairs 1-2, 1-3, ... 7-8)
//   11 forced ventilation per volume: "-1.00", "0.00", then the flows (l/s,
//      negative out of the volume) to each later volume and to outdoors
//   12 curtains: "0" and one curtain for every window, or "2" and one per
//      window with a curtain; each "absorptance R transmittance"
#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

namespace zelmo::modules {

inline constexpr int kHvacColumns = 36;
inline constexpr int kHvacPairs = 28;

enum HvacColumn {
  kMaxHeating,
  kHeatingSetpoint,
  kMaxCooling,
  kCoolingSetpoint,
  kInternalLoad,
  kInflow,
  kOutflow,
  kOpenWindow,
  kFirstOpening
};

struct HvacPeriod {
  int start_day = 1, start_month = 1, end_day = 31, end_month = 12;
  std::array<std::array<double, kHvacColumns>, 24> hours{};
};

struct HvacVolume {
  int type = 0;  // 0 weekend (first period) and weekday (second), 1 by dates
  std::vector<HvacPeriod> periods;
  // The hour row in force on a day (weekday 0 Monday to 6 Sunday), or
  // nothing when no period covers the day.
  const std::array<double, kHvacColumns>* Row(int month, int day, int weekday, int hour) const;
};

struct Dat4Curtain {
  double absorptance = 0, resistance = 0, transmittance = 0;
};

struct Dat4 {
  int accuracy = 2;
  bool no_sun = false;
  bool fixed_temperature = false;
  double set_temperature = -1000;
  int terrain = 0;
  std::string climate_file;
  std::string headline;
  bool external_ir = true;
  int loops = 20;
  int output_type = 0;
  double soil_resistance = 1.87, exterior_film = 11, interior_film = -1;
  double ground_reflectivity = 0.2;
  std::vector<std::vector<int>> outputs;  // per volume, the ticked quantities 1 to 6
  std::array<bool, 8> comfort{};
  bool internal_load_file = false, heat_exchanger = false, bypass = false;
  double heat_exchanger_efficiency = 0;  // fraction
  std::string internal_load_path;
  std::string schedule_name;
  std::vector<HvacVolume> hvac;             // per volume
  std::vector<std::vector<double>> forced;  // per volume: l/s to each later volume, then outdoors
  int curtain_mode = -1;                    // -1 none, 0 one for all, 2 one per window
  std::vector<Dat4Curtain> curtains;
};

// The pair column (0-based in a row) of volumes a < b, 1-based.
int OpeningColumn(int a, int b);

// Reads the text of DAT4.DAT for a building of `volumes` volumes; a line
// that cannot be read throws FileError naming `path` and the line.
Dat4 ParseDat4(const std::string& path, std::string_view bytes, int volumes);

// The day of the week, 0 Monday to 6 Sunday (Zeller's congruence).
int Weekday(int year, int month, int day);

}  // namespace zelmo::modules
