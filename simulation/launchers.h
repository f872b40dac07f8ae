// The main window's launchers of the result programs: the diagram program,
// the two comfort programs and the user's manual. Each runs on the current
// case and waits for the program to close.
#pragma once

#include <string>

namespace zelmo {

struct Session;
struct Workspace;

// M_Line: `<DiagramDirectory>/RSDiagram.EXE <CasePath>/`.
void RunLineDiagram(Session& session);
// M_Comfort: the last run must have ended well and a volume must be chosen
// for comfort; then Felt.EXE, and TrvComf.EXE when Felt.GGG came out.
void RunThermalComfort(Session& session);
// M_VComfort: visual comfort (daylight) is no part of this program; the
// command says so and starts nothing.
inline constexpr const char* kNoVisualComfort =
    "Visual comfort (daylight) calculations are not part of this program. The thermal comfort "
    "of a case is under Results, Diagram, Comfort, Thermal.";
void RunVisualComfort(Session& session);
// M_HelpInfo: the manual on the medium, through the registered PDF reader.
void ShowUsersManual(Session& session);

// True when OUTPUT.INP of the case has a volume chosen for comfort
// calculations, among the volumes the elements name.
bool ComfortVolumeChosen(const Workspace& ws);

// The program registered for `file` as a command: on a platform whose
// programs end in .exe, the found text up to and including that ending.
// Empty when none is registered.
std::string RegisteredProgram(Session& session, const std::string& file);

// Makes sure a file exists, as opening and closing it once does.
void TouchFile(const std::string& path);

}  // namespace zelmo
