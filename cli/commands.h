// The command line `zelmo`: the program's jobs without a display, on the
// same library code as the screens.
#pragma once

#include <ostream>
#include <string>
#include <vector>

namespace zelmo {
class ProcessRunner;
class SettingsStore;
}  // namespace zelmo

namespace zelmo::cli {

inline constexpr int kExitOk = 0;
// A module failed, or a check refused the run.
inline constexpr int kExitFailed = 1;
// The command line itself was wrong: an unknown command or option, a missing
// argument, a project or case that is not there.
inline constexpr int kExitUsage = 2;

// Runs the command in `args` (without the program's name). `program_path`
// is the running program's file: its folder is the program tree the
// settings fall back to.
int RunCommandLine(const std::vector<std::string>& args, const std::string& program_path,
                   SettingsStore& settings, ProcessRunner& processes, std::ostream& out,
                   std::ostream& err);

}  // namespace zelmo::cli
