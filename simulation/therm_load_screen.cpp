#include "simulation/therm_load_screen.h"

#include <algorithm>
#include <mutex>
#include <thread>
#include <tuple>

#include "core/dialogs.h"
#include "core/fields.h"
#include "core/form_helpers.h"
#include "core/session.h"
#include "core/stale.h"
#include "core/text_file.h"
#include "simulation/help_topics.h"
#include "simulation/modules.h"
#include "simulation/run_plan.h"
#include "simulation/side_by_side.h"
#include "workspace/project_store.h"

namespace zelmo {

ThermLoad::ThermLoad(Session& session) : Form("ThermLoad"), session_(session) {
  caption = "Simulation";
  width = 8400;
  height = 9600;
  Label1.caption = "Existing cases";
  Command1.caption = "&Simulate";
  Command2.caption = "&Cancel";
  Command3.caption = "&Help";
  Command4.caption = "&Fill";
  Command5.caption = "C&lear";
  Command6.caption = "S&top";
  Command6.enabled = false;
  Check1.caption = "Run cases side by side";
  side_by_side_jobs = std::max(2, static_cast<int>(std::thread::hardware_concurrency()));
  ThermGrid.height = 7500;
  SetUpRunGrid(ThermGrid);
  Command1.on_click = [this] { Simulate(); };
  Command2.on_click = [this] { Cancel(); };
  Command3.on_click = [this] { ShowScreenHelp(session_, help_context::kThermLoad); };
  Command4.on_click = [this] { Fill(); };
  Command5.on_click = [this] { Clear(); };
  Command6.on_click = [this] { Stop(); };
  ThermGrid.on_click = [this] { GridClick(); };
}

void ThermLoad::Load() {
  const Workspace& ws = session_.ws;
  CenterForm(*this, ws);
  AddCaseRows(ws, ThermGrid);
  for (int row = 1; row < ThermGrid.rows(); ++row) {
    if (RowCaseName(ThermGrid.Cell(row, kCaseColumn)) != TrimBlanks(ws.CaseName)) continue;
    if (FileCanOpen(JoinPath(ws.CasePath, kThermalFile))) {
      for (int col = kIncludeColumn; col <= kLastModuleColumn; ++col) {
        ThermGrid.Cell(row, col) = kWanted;
      }
    }
    ThermGrid.row = row;
    ThermGrid.col = kCaseColumn;
    ThermGrid.SetCellBackColor(row, kCaseColumn, kCurrentCaseColor);
  }
  Label1.caption = "Existing cases - Project : " + ToLower(ws.ProjectName);
}

void ThermLoad::GridMouseDown(int button) { right_button_ = button == kRightButton; }

void ThermLoad::GridClick() {
  // The plan stands while it runs.
  if (running_) return;
  if (right_button_) {
    right_button_ = false;
    return;
  }
  const int row = ThermGrid.row, col = ThermGrid.col;
  if (row < ThermGrid.fixed_rows || row >= ThermGrid.rows()) return;
  std::string& cell = ThermGrid.Cell(row, col);
  const bool ticked = TrimBlanks(cell) == kWanted;
  if (col >= kFirstModuleColumn) {
    cell = ticked ? "" : kWanted;
  } else if (col == kPrepareColumn || col == kIncludeColumn) {
    // A case is prepared or included, never both.
    cell = ticked ? "" : kWanted;
    if (!ticked)
      ThermGrid.Cell(row, col == kPrepareColumn ? kIncludeColumn : kPrepareColumn).clear();
  }
}

void ThermLoad::Fill() { FillTicks(ThermGrid); }

void ThermLoad::Clear() { ClearTicks(ThermGrid); }

void ThermLoad::SetRunning(bool running) {
  running_ = running;
  for (Control* control : std::initializer_list<Control*>{&Command1, &Command4, &Command5, &Check1})
    control->enabled = !running;
  Command6.enabled = running;
  running_modules_.clear();
  if (!running) Label2.caption.clear();
}

void ThermLoad::CellChanged(int row, int col) {
  if (col >= kFirstModuleColumn) {
    if (ThermGrid.Cell(row, col) == kRunning) {
      std::string program = kModulePrograms[col - kFirstModuleColumn];
      running_modules_[row] = {RowCaseName(ThermGrid.Cell(row, kCaseColumn)) + ": " +
                                   program.substr(0, program.find('.')) + " running",
                               std::chrono::steady_clock::now()};
    } else {
      running_modules_.erase(row);
    }
    Tick();
  }
  if (refresh) refresh();
}

void ThermLoad::Tick() {
  if (!running_ || running_modules_.empty()) return;
  const auto now = std::chrono::steady_clock::now();
  std::string line;
  for (const auto& [row, module] : running_modules_) {
    const auto seconds = std::chrono::duration_cast<std::chrono::seconds>(now - module.started);
    line +=
        (line.empty() ? "" : "; ") + module.text + ", " + std::to_string(seconds.count()) + " s";
  }
  Label2.caption = line;
}

void ThermLoad::Simulate() {
  if (running_) return;
  stop_requested_ = false;
  closing = false;
  // A new run shows its own failures only.
  ClearFailedCells(ThermGrid);
  SetRunning(true);
  RunEnd end = RunEnd::kModuleFailed;
  try {
    end = Check1.value
              ? SimulateSideBySide()
              : RunPlan(
                    session_, ThermGrid, [this](int row, int col) { CellChanged(row, col); }, true,
                    [this] { return stop_requested_.load(); });
  } catch (...) {
    SetRunning(false);
    throw;
  }
  SetRunning(false);
  switch (end) {
    case RunEnd::kEmptyProject:
      Cancel();
      break;
    case RunEnd::kCompleted:
      // Cases run side by side commit their flags as each ends.
      if (!Check1.value) CommitModuleFlags(session_.ws, ThermGrid);
      dirty_ = false;
      Unload();
      break;
    case RunEnd::kLibraryFault:
    case RunEnd::kModuleFailed:
    case RunEnd::kStopped:
      break;
  }
  if (closing) Unload();
}

RunEnd ThermLoad::SimulateSideBySide() {
  // The cases' threads hand over what they show and which cells they write;
  // this thread carries both out while it keeps the window alive.
  CrossThreadDialogs dialogs(*session_.dialogs);
  std::mutex mutex;
  std::vector<std::tuple<int, int, std::string>> cells;
  auto take_over = [&] {
    decltype(cells) changed;
    {
      std::lock_guard<std::mutex> lock(mutex);
      changed.swap(cells);
    }
    for (auto& [row, col, text] : changed) {
      ThermGrid.Cell(row, col) = text;
      CellChanged(row, col);
    }
    dialogs.Pump();
  };
  SideBySide how;
  how.jobs = side_by_side_jobs;
  how.case_dialogs = &dialogs;
  how.stopped = [this] { return stop_requested_.load(); };
  how.cell_changed = [&](int row, int col, const Grid& case_grid) {
    std::lock_guard<std::mutex> lock(mutex);
    cells.emplace_back(row, col, case_grid.Cell(1, col));
  };
  how.idle = [&] {
    take_over();
    session_.dialogs->DoEvents(50);
  };
  RunEnd end = RunEnd::kCompleted;
  const auto outcomes = RunSideBySide(session_, ThermGrid, how, end);
  take_over();
  // Each row as its case left it. A case that ended cleanly has its flags
  // committed: its ticks go, so that a second Simulate does not run it again.
  for (const CaseOutcome& outcome : outcomes) {
    if (!outcome.ran) continue;
    const int row = outcome.row;
    for (int col = 0; col < static_cast<int>(outcome.cells.size()); ++col) {
      ThermGrid.Cell(row, col) = outcome.cells[col];
    }
    if (outcome.failed_col >= 0) {
      ThermGrid.SetCellBackColor(row, outcome.failed_col, kFailedColor);
      ThermGrid.row = row;
      ThermGrid.col = outcome.failed_col;
    }
    if (end != RunEnd::kCompleted) {
      ThermGrid.Cell(row, kPrepareColumn).clear();
      ThermGrid.Cell(row, kIncludeColumn).clear();
    }
  }
  if (end == RunEnd::kStopped) ClearTicks(ThermGrid);
  return end;
}

void ThermLoad::Stop() {
  if (!running_) return;
  stop_requested_ = true;
  session_.processes->Stop();
}

void ThermLoad::Cancel() {
  if (running_) {
    // The window goes once the run has stopped.
    if (session_.dialogs->MsgBox("A simulation is running. Stop it and close the window?",
                                 mb::kYesNo + mb::kQuestion, "Simulation") == Answer::kYes) {
      closing = true;
      Stop();
    }
    return;
  }
  CancelAskingToSave(
      *this, *session_.dialogs, dirty_, "Thermal loads", [] { return true; }, [] {});
}

}  // namespace zelmo
