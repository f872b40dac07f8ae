// Import of an EnergyPlus weather file (.epw) into a climate file (.CLI),
// from the screen that moves climate files into the program tree and from
// the command line alike.
#pragma once

#include <string>
#include <vector>

namespace zelmo {

inline constexpr const char* kWeatherFilePattern = "*.epw";

struct ClimateImportOutcome {
  bool written = false;
  // What went wrong, for the user: the file and the line of a refused
  // weather file, or the climate file that could not be written.
  std::string fault;
  // What was made: the file, its hours, period and place, then a line per
  // column with values missing in the weather file.
  std::vector<std::string> report;
};

// Reads `epw` and writes `cli`; nothing is written when the weather file is
// refused.
ClimateImportOutcome ImportClimateFile(const std::string& epw, const std::string& cli);

// The climate file an import of `epw` makes in `folder`: the weather file's
// name with the extension .CLI.
std::string ClimateFileFor(const std::string& epw, const std::string& folder);

}  // namespace zelmo
