#include "simulation/therm_load_screen.h"

#include "core/dialogs.h"
#include "core/fields.h"
#include "core/form_helpers.h"
#include "core/session.h"
#include "core/stale.h"
#include "core/text_file.h"
#include "simulation/help_topics.h"
#include "simulation/modules.h"
#include "simulation/run_plan.h"
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
  for (Button* button : {&Command1, &Command4, &Command5}) button->enabled = !running;
  Command6.enabled = running;
  if (!running) Label2.caption.clear();
}

void ThermLoad::CellChanged(int row, int col) {
  if (col >= kFirstModuleColumn && ThermGrid.Cell(row, col) == kRunning) {
    std::string program = kModulePrograms[col - kFirstModuleColumn];
    progress_ = RowCaseName(ThermGrid.Cell(row, kCaseColumn)) + ": " +
                program.substr(0, program.find('.')) + " running";
    module_started_ = std::chrono::steady_clock::now();
    Label2.caption = progress_;
  }
  if (refresh) refresh();
}

void ThermLoad::Tick() {
  if (!running_ || progress_.empty()) return;
  const auto seconds = std::chrono::duration_cast<std::chrono::seconds>(
      std::chrono::steady_clock::now() - module_started_);
  Label2.caption = progress_ + ", " + std::to_string(seconds.count()) + " s";
}

void ThermLoad::Simulate() {
  if (running_) return;
  stop_requested_ = close_requested_ = false;
  progress_.clear();
  SetRunning(true);
  RunEnd end = RunEnd::kModuleFailed;
  try {
    end = RunPlan(
        session_, ThermGrid, [this](int row, int col) { CellChanged(row, col); }, true,
        [this] { return stop_requested_; });
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
      CommitModuleFlags(session_.ws, ThermGrid);
      dirty_ = false;
      Unload();
      break;
    case RunEnd::kLibraryFault:
    case RunEnd::kModuleFailed:
    case RunEnd::kStopped:
      break;
  }
  if (close_requested_) Unload();
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
      close_requested_ = true;
      Stop();
    }
    return;
  }
  CancelAskingToSave(
      *this, *session_.dialogs, dirty_, "Thermal loads", [] { return true; }, [] {});
}

}  // namespace zelmo
