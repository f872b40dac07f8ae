// The help file's topics: each screen's Help button opens the compiled help
// at the screen's context number.
#pragma once

#include <string>

namespace zelmo {

struct Session;
struct Workspace;

namespace help_context {
inline constexpr int kMainButton = 12000;
inline constexpr int kMainForm = 12100;
inline constexpr int kThermLoad = 12113;
inline constexpr int kListOfBuildingElements = 12116;
inline constexpr int kResults = 12120;
inline constexpr int kSysInit = 12130;
inline constexpr int kOpenProject = 12163;
inline constexpr int kNewProject = 12165;
inline constexpr int kNewCase = 12166;
inline constexpr int kDelProject = 12167;
inline constexpr int kCopyCase = 12169;
inline constexpr int kOpenCase = 12170;
inline constexpr int kDelCase = 12002;
inline constexpr int kRenCase = 12001;
}  // namespace help_context

// `<program directory>/Help_English/ZELMO_e.chm`.
std::string HelpFilePath(const Workspace& ws);

// Opens the help file at a context number.
void ShowHelpTopic(Session& session, int context);

}  // namespace zelmo
