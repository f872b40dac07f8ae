// The hourly result tables of a case: HOURLY.TXT with the ticked quantities
// of each volume, COMFORT.TXT with the air and mean radiant temperatures of
// the comfort volume. Both are tab separated, one header line naming each
// column with its unit, then one line per hour: month, day, hour (1 to 24,
// hour n covering (n-1):00 to n:00) and the hourly means.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace zelmo::results {

inline constexpr const char* kHourlyFile = "HOURLY.TXT";
inline constexpr const char* kComfortFile = "COMFORT.TXT";

// One column of values, named by its header: "V2 T_air [C]" is volume 2,
// quantity "T_air", unit "C"; "T_out [C]" has volume 0.
struct Column {
  std::string header;
  int volume = 0;
  std::string quantity;
  std::string unit;
};

struct Stamp {
  int month = 1, day = 1, hour = 1;
};

struct HourlyTable {
  std::vector<Column> columns;  // the columns after Month, Day and Hour
  std::vector<Stamp> stamps;    // one per row
  // values[c][r]: column c at row r.
  std::vector<std::vector<double>> values;
  size_t rows() const { return stamps.size(); }
};

// Takes a header apart into volume, quantity and unit.
Column ParseColumn(const std::string& header);

// Reads the text of a table; `path` names the file in a FileError, which
// says which line cannot be read and why. A table without rows is an error.
// `first_line` is the number in the file of the text's first line, for a
// table that stands below lines of its own.
HourlyTable ParseHourlyTable(const std::string& path, std::string_view text, int first_line = 1);
// Reads the file; a missing file is a FileError at line 0.
HourlyTable ReadHourlyTable(const std::string& path);

// Days before a month's first day, and the days of a month, in a year of 365
// days (the modules' year has no 29 February).
int DaysBeforeMonth(int month);
int DaysInMonth(int month);
// Hours from 1 January 0:00 to the end of the stamp's hour: 1 to 8760.
int HourOfYear(const Stamp& stamp);

}  // namespace zelmo::results
