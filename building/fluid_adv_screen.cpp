#include "building/fluid_adv_screen.h"

#include "building/advconn.h"
#include "building/fluid_adv_keys.h"
#include "building/fluids.h"
#include "building/surface_file.h"
#include "building/volumes.h"
#include "core/form_helpers.h"
#include "core/grid_helpers.h"
#include "core/numbers.h"
#include "core/session.h"
#include "core/stale.h"
#include "core/text_file.h"

namespace zelmo {

namespace {

constexpr int kVolumeCol = 0;
constexpr int kFirstFluidCol = 1;  // Air; then (Water) and (Rock)
constexpr int kFluidCols = 3;
constexpr int kDistanceCol = 1;
constexpr int kAreaCol = 2;
constexpr const char* kMark = "X";
constexpr const char* kTitle = "MESSAGE";

}  // namespace

FluidAdv::FluidAdv(Session& session) : Form("FluidAdv"), session_(session) {
  caption = "Fluid & advection connection";
  width = 6300;
  height = 7800;
  Label1.caption = "Fluids in volumes";
  Label2.caption = "Advection connection between volumes";
  Command1.caption = "&OK";
  Command2.caption = "&Cancel";
  default_button = "Command1";
  cancel_button = "Command2";

  FluidList.SetCols(1 + kFluidCols);
  FluidList.fixed_cols = 1;
  FluidList.col_widths = {900, 900, 900, 900};
  AdvConnList.SetCols(3);
  AdvConnList.fixed_cols = 1;
  AdvConnList.col_widths = {1200, 1500, 1500};

  FluidList.on_click = [this] { FluidClicked(); };
  AdvConnList.on_key_press = [this](int& key) { AdvConnKeyPress(key); };
  Command1.on_click = [this] { Ok(); };
  Command2.on_click = [this] { Cancel(); };
}

void FluidAdv::Load() {
  CenterForm(*this, session_.ws);
  SurfaceVolumes volumes = ReadSurfaceVolumes(session_.ws);
  volume_list_ = BuildVolumeList(volumes);
  if (volume_list_.empty()) {
    session_.dialogs->MsgBox("There are no volumes", mb::kOkOnly, kTitle);
    Unload();
    return;
  }
  FillFluidList();
  AdvConnTable rows = ReadAdvConn(session_.ws, volumes);
  AdvConnList.SetRows(1);
  AdvConnList.Cell(0, 0) = "Volumes";
  AdvConnList.Cell(0, kDistanceCol) = "Distance (m)";
  AdvConnList.Cell(0, kAreaCol) = "Area (m2)";
  for (const auto& row : rows) AdvConnList.AddRow(row.pair + "\t" + row.distance + "\t" + row.area);
  // A grid without connections still shows one empty row.
  if (rows.empty()) AdvConnList.AddRow();
  AdvConnList.row = 1;
  AdvConnList.col = kDistanceCol;
  dirty_ = false;
}

void FluidAdv::FillFluidList() {
  FluidTable fluids = ReadFluids(session_.ws, volume_list_);
  FluidList.SetRows(1);
  FluidList.Cell(0, kVolumeCol) = "Volume";
  FluidList.Cell(0, 1) = "Air";
  FluidList.Cell(0, 2) = "(Water)";
  FluidList.Cell(0, 3) = "(Rock)";
  for (const auto& volume : volume_list_) {
    FluidList.AddRow(volume);
    std::string fluid = fluids.FluidOf(volume);
    for (int k = 0; k < kFluidCols; ++k) {
      if (fluid == std::to_string(k + 1))
        FluidList.Cell(FluidList.rows() - 1, kFirstFluidCol + k) = kMark;
    }
  }
  FluidList.row = 1;
  FluidList.col = kFirstFluidCol;
}

void FluidAdv::FluidClicked() {
  int row = FluidList.row;
  int col = FluidList.col;
  if (row < 1 || row >= FluidList.rows() || col < kFirstFluidCol ||
      col >= kFirstFluidCol + kFluidCols) {
    return;
  }
  for (int c = kFirstFluidCol; c < kFirstFluidCol + kFluidCols; ++c) {
    std::string mark = c == col ? kMark : "";
    if (FluidList.Cell(row, c) != mark) {
      SetGridCellRaw(FluidList, row, c, mark);
      dirty_ = true;
    }
  }
}

void FluidAdv::AdvConnKeyPress(int& key) {
  // The empty row of a grid without connections takes nothing.
  if (TrimBlanks(AdvConnList.Cell(AdvConnList.row, 0)).empty() && key < keys::kSpecial &&
      key != keys::kTab && key != keys::kReturn && key != keys::kEscape) {
    key = 0;
    return;
  }
  if (NumericCellKeyPress(AdvConnList, key, false)) dirty_ = true;
}

bool FluidAdv::CheckConnections() {
  if (AdvConnList.rows() < 2 || TrimBlanks(AdvConnList.Cell(1, 0)).empty()) return true;
  auto within = [](const std::string& text) {
    if (!IsSignedNumberText(text)) return false;
    double value = Val(text);
    return value >= 0 && value <= 1000000;
  };
  for (int row = 1; row < AdvConnList.rows(); ++row) {
    int faulty = -1;
    std::string message;
    if (!within(GridCellText(AdvConnList, row, kDistanceCol))) {
      faulty = kDistanceCol;
      message = "Distance must be a value (0 - 1000000)";
    } else if (!within(GridCellText(AdvConnList, row, kAreaCol))) {
      faulty = kAreaCol;
      message = "Area must be a value (0 - 1000000)";
    }
    if (faulty < 0) continue;
    session_.dialogs->MsgBox(message, mb::kOkOnly, kTitle);
    AdvConnList.row = AdvConnList.row_sel = row;
    AdvConnList.col = AdvConnList.col_sel = faulty;
    AdvConnList.SetFocus();
    return false;
  }
  return true;
}

void FluidAdv::Save() {
  AdvConnTable connections;
  for (int row = 1; row < AdvConnList.rows(); ++row) {
    std::string pair = TrimBlanks(AdvConnList.Cell(row, 0));
    if (pair.empty()) continue;
    connections.push_back({pair, GridCellText(AdvConnList, row, kDistanceCol),
                           GridCellText(AdvConnList, row, kAreaCol)});
  }
  const Workspace& ws = session_.ws;
  if (!WriteAdvConn(ws, connections)) {
    FailWrite(JoinPath(ws.CasePath, kAdvConnFile));
  }
  std::vector<FluidRow> fluids;
  for (int row = 1; row < FluidList.rows(); ++row) {
    FluidRow fluid{FluidList.Cell(row, kVolumeCol), ""};
    for (int k = 0; k < kFluidCols; ++k) {
      if (FluidList.Cell(row, kFirstFluidCol + k) == kMark) fluid.fluid = std::to_string(k + 1);
    }
    fluids.push_back(fluid);
  }
  if (!WriteFluids(ws, fluids)) {
    FailWrite(JoinPath(ws.CasePath, kFluidsFile));
  }
  MarkModulesStale(ws, ws.CasePath, kAllModules);
  dirty_ = false;
}

void FluidAdv::Ok() {
  OkAndClose(
      *this, [this] { return CheckConnections(); }, [this] { Save(); });
}

void FluidAdv::Cancel() {
  CancelAskingToSave(
      *this, *session_.dialogs, dirty_, "Fluid & advection connection",
      [this] { return CheckConnections(); }, [this] { Save(); });
}

}  // namespace zelmo
