// Import of EnergyPlus weather files (.epw) into climate files (.CLI). The
// EPW holds eight header lines (LOCATION, DESIGN CONDITIONS, TYPICAL/EXTREME
// PERIODS, GROUND TEMPERATURES, HOLIDAYS/DAYLIGHT SAVINGS, COMMENTS 1 and 2,
// DATA PERIODS) and then one comma-separated line per hour, hour n covering
// (n-1):00 to n:00 local standard time, as the .CLI's hours do.
#pragma once

#include <string>
#include <vector>

#include "modules/climate_file.h"

namespace zelmo::modules {

struct MissingValues {
  ClimateColumn column;
  int count = 0;
  // The first hour without a value.
  ClimateDate first_day;
  int first_hour = 0;
};

struct EpwImport {
  ClimateData data;
  // One entry per column with values the EPW marks as missing, in column
  // order.
  std::vector<MissingValues> missing;
};

// Takes an EPW apart. A file that is not an EPW (no LOCATION line first), a
// header or hourly line with a field that is no number or a field too few,
// or a file cut short of the hours its DATA PERIODS line announces:
// FileError naming the file and the line.
EpwImport ParseEpw(const std::string& path, const std::string& bytes);
EpwImport ReadEpw(const std::string& path);

// The lines that tell the user what the import found missing, e.g.
// "Wind speed [m/s]: 3 hours without a value, the first 1995.01.04 hour 5".
std::vector<std::string> MissingReport(const EpwImport& import);

// Reads the EPW and writes the climate file; nothing is written when the EPW
// is refused (FileError) or when the climate file cannot be written (false).
bool ImportEpw(const std::string& epw_path, const std::string& cli_path, EpwImport* result);

}  // namespace zelmo::modules
