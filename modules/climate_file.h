// The hourly climate file (.CLI): a header that says where the weather was
// measured and which days it covers, then one line per hour. The front end
// reads only the header's keys (site/climate_file.h); the modules read the
// hours through ReadClimateFile. The layout, byte for byte:
//
//   01 <title> climate data, hourly wind included
//   Station: <free text>
//   Latitude: <deg> degrees, positive to the north
//   Longitude: <deg> degrees, positive to the east
//   Time meridian: <deg> degrees, positive to the east
//   Elevation: <m> metres above sea level
//   1:st day: <yyyy.mm.dd>
//   Last day: <yyyy.mm.dd>
//   Hours: <count>
//   Columns: Date Hour T_dry[C] T_dew[C] P[Pa] G_hor[W/m2] B_normal[W/m2] D_hor[W/m2]
//            IR_hor[W/m2] Wind_dir[deg] Wind_speed[m/s]        (one line)
//   <yyyy.mm.dd> <hour> <t_dry> <t_dew> <p> <g_hor> <b_normal> <d_hor> <ir_hor> <dir> <speed>
//   ...
//
// Character 2 of the first line is the wind mark: "1" when every hour has
// its wind, "0" ("hourly wind not included") when not. The hour n (1 to 24)
// covers the clock hours (n-1):00 to n:00 of local standard time, and its
// values are the means (radiation: the energy over the hour in Wh/m2, the
// same number as a mean power in W/m2) of that hour. A value that was not
// measured is written "?" and read as NaN. Text is single-byte, lines end
// with CR LF, fields are separated by one or more blanks.
#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

namespace zelmo::modules {

// The columns of an hourly line after the date and the hour, in file order.
enum ClimateColumn {
  kDryBulb,             // air temperature, C
  kDewPoint,            // C
  kPressure,            // station pressure, Pa
  kGlobalHorizontal,    // W/m2
  kDirectNormal,        // W/m2
  kDiffuseHorizontal,   // W/m2
  kInfraredHorizontal,  // long-wave radiation from the sky on a level surface, W/m2
  kWindDirection,       // degrees the wind comes from, 0 north, 90 east
  kWindSpeed,           // m/s
  kClimateColumns
};

struct ClimateHour {
  int year = 0, month = 0, day = 0;
  int hour = 0;  // 1 to 24: the hour from (hour-1):00 to hour:00
  std::array<double, kClimateColumns> value{};

  double dry_bulb() const { return value[kDryBulb]; }
  double dew_point() const { return value[kDewPoint]; }
  double pressure() const { return value[kPressure]; }
  double global_horizontal() const { return value[kGlobalHorizontal]; }
  double direct_normal() const { return value[kDirectNormal]; }
  double diffuse_horizontal() const { return value[kDiffuseHorizontal]; }
  double infrared_horizontal() const { return value[kInfraredHorizontal]; }
  double wind_direction() const { return value[kWindDirection]; }
  double wind_speed() const { return value[kWindSpeed]; }
};

struct ClimateDate {
  int year = 0, month = 0, day = 0;
  bool operator==(const ClimateDate&) const = default;
};

struct ClimateHeader {
  std::string title;  // of the first line, between the marks and " climate data"
  bool hourly_wind = false;
  std::string station;       // free text
  double latitude = 0;       // degrees, positive to the north
  double longitude = 0;      // degrees, positive to the east
  double time_meridian = 0;  // degrees, positive to the east
  double elevation = 0;      // metres above sea level
  ClimateDate first_day, last_day;
};

struct ClimateData {
  ClimateHeader header;
  std::vector<ClimateHour> hours;
};

// The names of the columns as the "Columns:" line has them, and the unit
// each is written in.
extern const std::array<const char*, kClimateColumns> kClimateColumnNames;

// The range a column's values must lie in; a reader refuses a value outside
// it, and the import of a weather file takes it as not measured.
struct ClimateLimits {
  double min, max;
};
extern const std::array<ClimateLimits, kClimateColumns> kClimateLimits;

// Days of a month, February with its leap day (a climate file keeps a leap
// day as it stands, whatever the year its hours are labelled with).
int DaysInMonth(int month);
bool IsClimateDate(const ClimateDate& date);

// The lines of a file's bytes, their ends (CR LF, LF or CR) left off; a last
// line without its end counts.
std::vector<std::string_view> SplitLines(const std::string& bytes);
// A whole field as a finite number, a leading "+" allowed; false when
// anything else stands in it.
bool ParseNumberField(std::string_view text, double& value);

// A date as the file writes it: "1995.01.31".
std::string DateText(const ClimateDate& date);

// Whether `hour` is the hour after `before` on the calendar, the year left
// aside: a typical year joins months of different years.
bool Follows(const ClimateHour& before, const ClimateHour& hour);

// A number as the header writes it: at most six decimals, no trailing
// zeros, no point when it is whole ("39.83", "-105", "1650").
std::string FormatNumber(double value);

// Reads a climate file whole. A file that cannot be opened, a header that
// lacks a key or holds a value that is no number, an hourly line with a
// field too few or too many, a date or hour that does not exist, or fewer
// hours than "Hours:" says: FileError naming the file and the line.
ClimateData ReadClimateFile(const std::string& path);
// The same from bytes already read; `path` only names them in a message.
ClimateData ParseClimateText(const std::string& path, const std::string& bytes);

// The file's bytes exactly as ReadClimateFile reads them back.
std::string ClimateFileText(const ClimateData& data);
// Writes the file whole through a temporary; false when it could not be
// written, and then nothing is left at `path`'s place but the old file.
bool WriteClimateFile(const std::string& path, const ClimateData& data);

// Where each hour of the calendar stands in a file, the year aside (the
// modules look a period's hours up by month, day and hour): the index of its
// first line in `hours`, or -1 when the file lacks it.
class ClimateCalendar {
 public:
  explicit ClimateCalendar(const ClimateData& data);
  int Find(int month, int day, int hour) const;

 private:
  std::vector<int> index_;  // 366 days of 24 hours, 29 February included
};

// The number of hours of a column that hold no value (NaN).
int MissingCount(const ClimateData& data, ClimateColumn column);

}  // namespace zelmo::modules
