// File / Activate the demo project: the program's tree holds an example
// project in its ZELMOPROJ folder with some files parked under names ending
// in "_Temp". Activation puts them in place, points the example's site file
// at the climate file of the program tree's Climate folder that the example
// runs with (the Denver year of the validation cases, with real weather)
// and makes the folder the data folder. The validation project beside it,
// bestest, has its site files pointed at the same file in the same step.
#pragma once

#include <string>

namespace zelmo {

struct Session;
class StartForm;

inline constexpr const char* kDemoClimateFile = "StockholmW(SE).cli";
inline constexpr const char* kExampleClimateFile = "DenverCO(US).CLI";
inline constexpr const char* kBestestProject = "bestest";

// Rewrites the site file of a case folder through SiteX.inp: every line that
// holds "cli" (case ignored) becomes `climate`. False when a step failed;
// the site file then stands as it was.
bool PointSiteAtClimate(const std::string& case_folder, const std::string& climate);

void ActivateDemoProject(Session& session, StartForm& main);

}  // namespace zelmo
