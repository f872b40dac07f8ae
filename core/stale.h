// THERMAL.INP: one flag character per calculation module; "X" means that the
// module must run again.
#pragma once

#include <array>
#include <string>

namespace zelmo {

struct Workspace;

inline constexpr const char* kThermalFile = "THERMAL.INP";
using ModuleFlags = std::array<bool, 6>;
inline constexpr ModuleFlags kAllModules = {true, true, true, true, true, true};
inline constexpr ModuleFlags kSiteModules = {false, false, false, false, true, true};
inline constexpr ModuleFlags kSixthModule = {false, false, false, false, false, true};

// Puts "X" in THERMAL.INP at every position whose flag is set. `case_dir` is a
// case folder, or "ALL" for every case of CASES.LIB in the current project.
// A THERMAL.INP that is there and cannot be written throws FileError.
void MarkModulesStale(const Workspace& ws, const std::string& case_dir, const ModuleFlags& flags);

}  // namespace zelmo
