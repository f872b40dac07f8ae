// The run plan of a project: which cases are prepared, which are run and
// with which modules, as the Simulation screen's grid holds it, and the run
// over it. The command line builds the same grid and runs the same code.
#pragma once

#include <functional>
#include <optional>
#include <string>

#include "core/controls.h"

namespace zelmo {

struct Session;
struct Workspace;

inline constexpr int kModuleCount = 6;
// Grid columns: the case, Prepare, Include case, then the six modules.
inline constexpr int kCaseColumn = 0;
inline constexpr int kPrepareColumn = 1;
inline constexpr int kIncludeColumn = 2;
inline constexpr int kFirstModuleColumn = 3;
inline constexpr int kLastModuleColumn = kFirstModuleColumn + kModuleCount - 1;

inline constexpr const char* kModuleHeaders[kModuleCount] = {"DIG", "GF",  "LUM",
                                                             "WAL", "SOL", "TL"};
// The modules' names in the messages of a run.
inline constexpr const char* kModuleNames[kModuleCount] = {"Plor", "Neb",  "Corv",
                                                           "Fent", "Dane", "Muk"};

// Cell texts of the plan and of a run.
inline constexpr const char* kWanted = "X";
inline constexpr const char* kRunning = ">";
inline constexpr const char* kEnded = "> <";
inline constexpr const char* kSkipped = "!!";
inline constexpr const char* kFailed = " ";
inline constexpr int kFailedColor = Rgb(250, 0, 0);

inline constexpr const char* kRunTitle = "ThermLoad - Calculation";
inline constexpr const char* kProjectEmpty = "Project is empty ";

// The case of a row, from its text "<lower name> - <headline>".
std::string RowCaseName(const std::string& row_text);
std::string RowHeadline(const std::string& row_text);

// Whether a cell of the plan holds its tick.
bool Ticked(const Grid& grid, int row, int col);

// The plan's grid: a header row, then one row per case; columns as above.
void SetUpRunGrid(Grid& grid);
// One row per line of the project's CASES.LIB, every tick empty. False when
// the file cannot be opened.
bool AddCaseRows(const Workspace& ws, Grid& grid);
// Fill ticks columns 2 to 8 of every row, Clear empties them; neither
// touches Prepare.
void FillTicks(Grid& grid);
void ClearTicks(Grid& grid);
// Takes the red of the modules that failed in an earlier run off the plan.
void ClearFailedCells(Grid& grid);

enum class RunEnd {
  kCompleted,     // every row ran; the flags may be committed
  kEmptyProject,  // no CASES.LIB: the screen is left
  kLibraryFault,  // Wndw.Lib refused a window type: nothing ran
  kModuleFailed,  // a module failed: the ticks are cleared, nothing is committed
  kStopped,       // the user stopped a module: left as after a failed module
};

// The checks before any case runs: a project without CASES.LIB, and
// Wndw.Lib (when `write_library`) refused for a window type without panes.
// Each speaks through the session's dialogs; nothing when the run may go on.
std::optional<RunEnd> CheckBeforeCases(Session& session, bool write_library);

// The run over the ticked rows: Wndw.Lib, then for each row prepared or
// included the case's DAT files, and for an included row the status file and
// each ticked module in order. Every message goes through the session's
// dialogs; `cell_changed` hears of each cell a run writes. After a completed
// run the session's case is the one it had before; after a failed module it
// is the failing case. A damaged data file throws FileError.
// Cases run side by side share a Wndw.Lib written once before them all:
// `write_library` false leaves it as it stands.
// `stopped` tells, after each module, whether the user stopped it: its cell
// is then marked as failed, ECM.Dat says so and nothing more runs.
RunEnd RunPlan(Session& session, Grid& grid,
               const std::function<void(int row, int col)>& cell_changed = {},
               bool write_library = true, const std::function<bool()>& stopped = {});

// THERMAL.INP of every included row gets "-" for each module whose cell
// says it ended. A THERMAL.INP that cannot be read or written throws
// FileError.
void CommitModuleFlags(const Workspace& ws, const Grid& grid);

}  // namespace zelmo
