// SITE.INP in the case folder: where the building stands and for which period
// it is simulated. Fourteen lines of text, each a value as typed, except the
// first, which holds latitude, wind flag and terrain index, a TAB behind each.
#pragma once

#include <string>
#include <vector>

namespace zelmo {

struct Workspace;

inline constexpr const char* kSiteFile = "SITE.INP";
inline constexpr int kSiteLines = 14;
// Line 14 when no outdoor temperature is set.
inline constexpr const char* kNoSetTemperature = "-1000";

// The four terrain choices, by their index in line 1.
inline constexpr const char* kTerrainTypes[4] = {"Large city centers", "Urban and suburban areas",
                                                 "Open terrain with scattered obstruction",
                                                 "Flat, unobstructed areas"};

// The 14 lines of SITE.INP, trimmed, as they stand; empty when the file cannot
// be opened. A file cut short throws FileError naming the file and the line.
std::vector<std::string> ReadSite(const Workspace& ws);

// The three fields of line 1. The flag and the index are read by the number
// rule, so their leading blank and a missing trailing TAB do no harm.
struct SiteFirstLine {
  std::string latitude;
  int wind = 0;
  int terrain = 0;
};
SiteFirstLine ParseSiteFirstLine(const std::string& line);
// "55.7\t 1\t 2\t": each number with its sign blank, a TAB behind each field.
std::string SiteFirstLineText(const std::string& latitude, int wind, int terrain);

// Writes the 14 lines; when `changed`, the fifth and sixth modules of the case
// must run again. Returns false when the file could not be written.
bool WriteSite(const Workspace& ws, const std::vector<std::string>& lines, bool changed);

}  // namespace zelmo
