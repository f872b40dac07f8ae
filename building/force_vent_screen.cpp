#include "building/force_vent_screen.h"

#include "building/fluid_adv_keys.h"
#include "building/forcevent.h"
#include "building/surface_file.h"
#include "building/volumes.h"
#include "core/fields.h"
#include "core/form_helpers.h"
#include "core/grid_helpers.h"
#include "core/numbers.h"
#include "core/session.h"
#include "core/stale.h"
#include "core/text_file.h"

namespace zelmo {

namespace {

constexpr int kPairCol = 0;
constexpr int kFlowCol = 1;
constexpr const char* kTitle = "MESSAGE";

}  // namespace

ForceVent::ForceVent(Session& session) : Form("ForceVent"), session_(session) {
  caption = "Forced ventilation";
  width = 3900;
  height = 5700;
  Command1.caption = "&OK";
  Command2.caption = "&Cancel";
  default_button = "Command1";
  cancel_button = "Command2";
  Grid1.SetCols(2);
  Grid1.fixed_cols = 1;
  Grid1.col_widths = {1300, 1500};
  Grid1.on_key_press = [this](int& key) { FlowKeyPress(key); };
  Command1.on_click = [this] { Ok(); };
  Command2.on_click = [this] { Cancel(); };
}

void ForceVent::Load() {
  CenterForm(*this, session_.ws);
  volume_list_ = BuildVolumeList(ReadSurfaceVolumes(session_.ws));
  if (volume_list_.empty()) {
    session_.dialogs->MsgBox("There are no volumes", mb::kOkOnly, kTitle);
    Unload();
    return;
  }
  VentTable rows =
      ReadForcedVent(session_.ws, BuildVolumePairs(volume_list_, /*with_outdoor=*/true));
  // One volume has only its pair with Outdoor, and nothing to exchange air with.
  if (rows.size() <= 1) {
    session_.dialogs->MsgBox("There are less than two volumes", mb::kOkOnly, kTitle);
    Unload();
    return;
  }
  Grid1.SetRows(1);
  Grid1.Cell(0, kPairCol) = "Volumes";
  Grid1.Cell(0, kFlowCol) = "Flow (l/s)";
  for (const auto& row : rows) Grid1.AddRow(row.from + kVentPairJoin + row.to + "\t" + row.flow);
  Grid1.row = 1;
  Grid1.col = kFlowCol;
  dirty_ = false;
}

void ForceVent::FlowKeyPress(int& key) {
  if (NumericCellKeyPress(Grid1, key, /*signed_numbers=*/true)) dirty_ = true;
}

bool ForceVent::CheckNumbers() {
  for (int row = 1; row < Grid1.rows(); ++row) {
    std::string flow = GridCellText(Grid1, row, kFlowCol);
    if (IsSignedNumberText(flow)) {
      double value = Val(flow);
      if (value >= -20000 && value <= 20000) continue;
    }
    session_.dialogs->MsgBox("Litres/second must be a value (-20000 - 20000)", mb::kOkOnly, kTitle);
    Grid1.row = Grid1.row_sel = row;
    Grid1.col = Grid1.col_sel = kFlowCol;
    Grid1.SetFocus();
    return false;
  }
  return true;
}

VentTable ForceVent::GridRows() {
  VentTable rows;
  for (int row = 1; row < Grid1.rows(); ++row) {
    const std::string& pair = Grid1.Cell(row, kPairCol);
    rows.push_back({FieldBefore(pair, kVentPairJoin), FieldAfter(pair, kVentPairJoin),
                    GridCellText(Grid1, row, kFlowCol)});
  }
  return rows;
}

bool ForceVent::CheckBalance() {
  std::string message = VentBalanceMessage(GridRows(), volume_list_);
  if (message.empty()) return true;
  session_.dialogs->MsgBox(message, mb::kExclamation, "NO BALANCE");
  Grid1.row = Grid1.row_sel = 1;
  Grid1.col = Grid1.col_sel = kFlowCol;
  Grid1.SetFocus();
  return false;
}

void ForceVent::Save() {
  const Workspace& ws = session_.ws;
  if (!WriteForcedVent(ws, GridRows())) {
    FailWrite(JoinPath(ws.CasePath, kForcedVentFile));
  }
  // A change of ventilation needs only the last module run again.
  MarkModulesStale(ws, ws.CasePath, kSixthModule);
  dirty_ = false;
}

void ForceVent::Ok() {
  OkAndClose(
      *this, [this] { return CheckNumbers() && CheckBalance(); }, [this] { Save(); });
}

void ForceVent::Cancel() {
  CancelAskingToSave(
      *this, *session_.dialogs, dirty_, "Forced ventilation",
      [this] { return CheckNumbers() && CheckBalance(); }, [this] { Save(); });
}

}  // namespace zelmo
