// MISCHED.INP: when the curtains of a case are drawn, month by month. Twelve
// lines of month number, mode and an hourly mask, TAB-separated.
#pragma once

#include <array>
#include <string>

namespace zelmo {

struct Workspace;

inline constexpr const char* kMISchedFile = "MISCHED.INP";
inline constexpr int kMonths = 12;
inline constexpr int kMaskHours = 24;

// Modes of a month, stored as the option's index.
inline constexpr const char* kModeNight = "0";   // active while the sun is down
inline constexpr const char* kModeDay = "1";     // active while the sun is up
inline constexpr const char* kModeHourly = "2";  // by the hourly mask

struct MonthSchedule {
  std::string mode = kModeNight;
  // One character per hour, hour 1 first: "1" curtain on, anything else off.
  std::string mask = "000000000000000000000000";
};
using MISchedule = std::array<MonthSchedule, kMonths>;

// All months at night mode with an empty mask, then each non-empty line of
// `CasePath`/MISCHED.INP for the next month in turn; the month field of a
// line is not read. A thirteenth line, or a mode other than "0", "1" and "2",
// throws FileError naming the line.
MISchedule ReadMISched(const Workspace& ws);

// The twelve lines. False when the file could not be written.
bool WriteMISched(const Workspace& ws, const MISchedule& months);

}  // namespace zelmo
