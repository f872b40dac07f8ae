#include "simulation/therm_load_screen.h"

#include "core/fields.h"
#include "core/form_helpers.h"
#include "core/session.h"
#include "core/stale.h"
#include "core/text_file.h"
#include "simulation/help_topics.h"
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
  ThermGrid.height = 7500;
  SetUpRunGrid(ThermGrid);
  Command1.on_click = [this] { Simulate(); };
  Command2.on_click = [this] { Cancel(); };
  Command3.on_click = [this] { ShowScreenHelp(session_, help_context::kThermLoad); };
  Command4.on_click = [this] { Fill(); };
  Command5.on_click = [this] { Clear(); };
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

void ThermLoad::Simulate() {
  BusyPointer busy(*session_.dialogs);
  switch (RunPlan(session_, ThermGrid)) {
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
      break;
  }
}

void ThermLoad::Cancel() {
  CancelAskingToSave(
      *this, *session_.dialogs, dirty_, "Thermal loads", [] { return true; }, [] {});
}

}  // namespace zelmo
