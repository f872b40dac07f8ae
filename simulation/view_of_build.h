// The screen "View of building" (`ViewOfBuild`): it has no controls and is
// never shown. It writes the geometry of the case as the calculation modules
// get it and hands it to the viewer program, which draws the building.
#pragma once

namespace zelmo {

struct Session;

// The viewer, in `ThermalDirectory` beside the calculation modules.
inline constexpr const char* kViewerProgram = "TRVSHOW.EXE";

// M_ViewOfBuilding: writes DAT1.DAT of the current case, then starts
// `<ThermalDirectory>/TRVSHOW.EXE <CasePath>/` and waits until the viewer is
// closed. A data file that cannot be read is reported with its line, and
// then no viewer starts.
void ViewOfBuild(Session& session);

}  // namespace zelmo
