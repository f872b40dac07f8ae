// File / Activate the demo project: the program's tree holds an example
// project in its ZELMOPROJ folder with some files parked under names ending
// in "_Temp". Activation puts them in place, points the example's site file
// at the climate file of the program tree's Climate folder that the example
// runs with (the Denver year of the validation cases, with real weather)
// and makes the folder the data folder.
#pragma once

namespace zelmo {

struct Session;
class StartForm;

inline constexpr const char* kDemoClimateFile = "StockholmW(SE).cli";
inline constexpr const char* kExampleClimateFile = "DenverCO(US).CLI";

void ActivateDemoProject(Session& session, StartForm& main);

}  // namespace zelmo
