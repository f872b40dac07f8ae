#include "simulation/run_plan.h"

#include "building/surface_file.h"
#include "building/volumes.h"
#include "core/dialogs.h"
#include "core/fields.h"
#include "core/file_system.h"
#include "core/form_helpers.h"
#include "core/session.h"
#include "core/stale.h"
#include "core/text_file.h"
#include "libraries/window_library_export.h"
#include "simulation/module_error.h"
#include "simulation/modules.h"
#include "simulation/prepare_case.h"
#include "workspace/case_store.h"

namespace zelmo {

namespace {

// The folder of a row's case. A row without a plain name would reach the
// project's folder or one above it: its register line is damaged.
std::string RowCasePath(const Workspace& ws, const Grid& grid, int row) {
  const std::string name = RowCaseName(grid.Cell(row, kCaseColumn));
  if (!IsPlainFolderName(name)) {
    throw FileError(CasesFilePath(ws), row, "The line names no case folder");
  }
  return FolderOnDisk(JoinPath(ws.ProjectPath, name));
}

}  // namespace

bool Ticked(const Grid& grid, int row, int col) {
  return TrimBlanks(grid.Cell(row, col)) == kWanted;
}

std::string RowCaseName(const std::string& row_text) {
  return TrimBlanks(FieldBefore(row_text, " - "));
}

std::string RowHeadline(const std::string& row_text) {
  return TrimBlanks(FieldAfter(row_text, " - "));
}

void SetUpRunGrid(Grid& grid) {
  grid.SetCols(kLastModuleColumn + 1);
  grid.SetRows(1);
  grid.fixed_rows = 1;
  grid.fixed_cols = 0;
  grid.Cell(0, kCaseColumn) = "Case";
  grid.Cell(0, kPrepareColumn) = "Prepare";
  grid.Cell(0, kIncludeColumn) = "Include case";
  // The system's widths in their ratio, half as wide again for the fonts of
  // today's screens.
  grid.col_widths = {4500, 1, 1950};
  grid.col_centered.assign(kFirstModuleColumn, false);
  for (int m = 0; m < kModuleCount; ++m) {
    grid.col_centered.push_back(true);
    grid.Cell(0, kFirstModuleColumn + m) = kModuleHeaders[m];
    grid.col_widths.push_back(765);
  }
}

bool AddCaseRows(const Workspace& ws, Grid& grid) {
  auto lines = ReadAllLines(CasesFilePath(ws));
  if (!lines) return false;
  for (const auto& line : *lines) {
    grid.AddRow();
    grid.Cell(grid.rows() - 1, kCaseColumn) = CaseListItem(line);
  }
  return true;
}

void FillTicks(Grid& grid) {
  for (int row = 1; row < grid.rows(); ++row) {
    for (int col = kIncludeColumn; col <= kLastModuleColumn; ++col) grid.Cell(row, col) = kWanted;
  }
}

void ClearTicks(Grid& grid) {
  for (int row = 1; row < grid.rows(); ++row) {
    for (int col = kIncludeColumn; col <= kLastModuleColumn; ++col) grid.Cell(row, col).clear();
  }
}

void ClearFailedCells(Grid& grid) {
  for (int row = grid.fixed_rows; row < grid.rows(); ++row) {
    for (int col = 0; col < grid.cols(); ++col) {
      if (grid.CellBackColor(row, col) == kFailedColor) {
        grid.SetCellBackColor(row, col, kDefaultColor);
      }
    }
  }
}

std::optional<RunEnd> CheckBeforeCases(Session& session, bool write_library) {
  if (!FileCanOpen(CasesFilePath(session.ws))) {
    session.dialogs->MsgBox(kProjectEmpty, mb::kExclamation, kRunTitle);
    return RunEnd::kEmptyProject;
  }
  if (write_library && !WriteWindowLibrary(session.ws)) {
    session.dialogs->MsgBox(kWindowLibraryFault, mb::kExclamation, kRunTitle);
    return RunEnd::kLibraryFault;
  }
  return std::nullopt;
}

RunEnd RunPlan(Session& session, Grid& grid, const std::function<void(int, int)>& cell_changed,
               bool write_library, const std::function<bool()>& stopped) {
  Workspace& ws = session.ws;
  Dialogs& dialogs = *session.dialogs;
  auto set_cell = [&](int row, int col, const char* text) {
    grid.Cell(row, col) = text;
    if (cell_changed) cell_changed(row, col);
  };
  if (auto refused = CheckBeforeCases(session, write_library)) return *refused;
  const std::string name = ws.CaseName, headline = ws.CaseHeadline, path = ws.CasePath;
  for (int row = 1; row < grid.rows(); ++row) {
    const bool prepare = Ticked(grid, row, kPrepareColumn);
    const bool include = Ticked(grid, row, kIncludeColumn);
    if (!prepare && !include) continue;
    ws.CasePath = RowCasePath(ws, grid, row);
    ws.CaseName = RowCaseName(grid.Cell(row, kCaseColumn));
    ws.CaseHeadline = RowHeadline(grid.Cell(row, kCaseColumn));
    if (prepare) PrepareCase(ws);
    if (BuildVolumeList(ReadSurfaceVolumes(ws)).empty()) {
      dialogs.MsgBox("There are no volumes for case : " + ws.CasePath, mb::kExclamation, kRunTitle);
      continue;
    }
    if (!include) continue;
    PrepareCase(ws);
    // A status file that cannot be written keeps the word it had, and every
    // module meets that word before it starts.
    InitStatusFile(ws);
    for (int m = 0; m < kModuleCount; ++m) {
      const int col = kFirstModuleColumn + m;
      if (!Ticked(grid, row, col)) continue;
      int code = 0;
      std::string module, text;
      double number = 0;
      // A module is started only on the good word of the one before.
      if (!ReadStatusFile(ws, code, module, text, number)) {
        dialogs.MsgBox("Some problem has occurred in Module : " + module + "\r\n Module " +
                           kModuleNames[m] + " will not be run !",
                       mb::kExclamation, "Problems");
        set_cell(row, col, kSkipped);
        continue;
      }
      set_cell(row, col, kRunning);
      const std::string& program = kModulePrograms[m];
      const std::string module_name = program.substr(0, program.find('.'));
      const bool started = RunModule(session, program);
      const bool stop = stopped && stopped();
      if (stop) {
        WriteStoppedStatus(ws, module_name);
      } else if (!started) {
        // A module that never ran leaves the driver's good word in ECM.Dat:
        // the run fails here, as for the module's own error, and ECM.Dat
        // says so to the steps after it.
        code = kCannotStartCode;
        text = CannotStartText(ModuleProgramPath(ws, program));
        WriteFailedStatus(ws, code, module_name, "Program not started");
      }
      if (!stop && started && ReadStatusFile(ws, code, module, text, number)) {
        set_cell(row, col, kEnded);
        continue;
      }
      // The run ends with the failing case current and its cell red.
      grid.row = row;
      grid.col = col;
      grid.SetCellBackColor(row, col, kFailedColor);
      set_cell(row, col, kFailed);
      if (!stop) ShowModuleError(session, code, text, 1);
      ClearTicks(grid);
      if (cell_changed) cell_changed(row, col);
      return stop ? RunEnd::kStopped : RunEnd::kModuleFailed;
    }
  }
  ws.CaseName = name;
  ws.CaseHeadline = headline;
  ws.CasePath = path;
  return RunEnd::kCompleted;
}

void CommitModuleFlags(const Workspace& ws, const Grid& grid) {
  for (int row = 1; row < grid.rows(); ++row) {
    if (!Ticked(grid, row, kIncludeColumn)) continue;
    const std::string path = JoinPath(RowCasePath(ws, grid, row), kThermalFile);
    auto lines = ReadAllLines(path);
    if (!lines) throw FileError(path, 0, "File not found");
    std::string flags = lines->empty() ? std::string() : (*lines)[0];
    for (int m = 0; m < kModuleCount; ++m) {
      const auto at = static_cast<size_t>(m);
      if (at < flags.size() && TrimBlanks(grid.Cell(row, kFirstModuleColumn + m)) == kEnded) {
        flags[at] = '-';
      }
    }
    if (!WriteAllLines(path, {flags})) FailWrite(path);
  }
}

}  // namespace zelmo
