#include "schedules/hvac_screen.h"

#include <algorithm>

#include "building/surface_file.h"
#include "building/volumes.h"
#include "core/form_helpers.h"
#include "core/session.h"
#include "core/text_file.h"
#include "schedules/hvac_cal_file.h"

namespace zelmo {

namespace {

constexpr int kFillHourColor = Rgb(238, 238, 224);

constexpr int kHourRows = kHours + 1;
const std::vector<int> kLoadWidths = {1200, 950, 1200, 900, 1300, 820, 900, 1300};

}  // namespace

HVAC::HVAC(Session& session) : Form("HVAC"), session_(session) {
  caption = kHvacTitle;
  width = 15600;
  height = 9600;
  Calender.caption = "Schedules";
  SAcmb.caption = "&Add";
  SDcmb.caption = "D&elete";
  Sccmb.caption = "&Copy";
  Rename.caption = "&Rename";
  HVlab1.caption = "Volume";
  CopyVolume.caption = "C&opy";
  TypeofSched.caption = "Type of operating periods ";
  Week.caption = kPeriodTypeNames[kWeekendWeekday];
  Daily.caption = "Daily operating periods";
  DAcmb.caption = "&Add";
  DDcmb.caption = "De&lete";
  DECmb.caption = "Edit";
  Monthly.caption = "Monthly operating periods";
  DAcmb6.caption = "Add ";
  DDCmb6.caption = "Delete ";
  DECmb6.caption = "Edit";
  SHlab1.caption = "Hourly operating periods for loads";
  SHlab2.caption = "Hourly operating periods for internal doors / windows between volumes  (%)";
  Fill_Option.caption = "Fill";
  HVACGRID_Clear.caption = "Clear";
  Option1[1].caption = "Go to defined openings between volumes";
  Option1[0].caption = "Go to loads";
  Option1[1].tool_tip =
      "The input form for the definition of possible openings between internal volumes is set in "
      "the calendar for volume 1.";
  Shcmb1.caption = "&Add";
  SHcmb2.caption = "Dele&te";
  SHcmb3.caption = "Ed&it";
  IDLChecktext.caption = "Internal loads from : ";
  IDLcheck.tool_tip =
      "If checked, internal loads will be read from a file, else the calender will be used ";
  Heatframe.caption = "Heat exchanger";
  ByPassframe.caption = "Bypass function";
  Option2[1].caption = Option3[1].caption = "Yes";
  Option2[0].caption = Option3[0].caption = "No";
  Leff.caption = "Efficiency";
  Lper.caption = "%";
  Scmd1.caption = "&Ok";
  Scmd2.caption = "&Cancel";
  Command1.caption = "Help";
  cancel_button = "Scmd2";

  HVACGRID1.SetCols(kLoadColumns + 1);
  HVACGRID1.SetRows(kHourRows);
  ScaleGridWidths(1.0);
  HVACGRID1.fixed_cols = 1;
  const char* headers[] = {"Hour",          "Mp-Heating(W)", "Heating(°C)",
                           "Mp-Cooling(W)", "Cooling(°C)",   "Internal loads(W)",
                           "Inflow(l/s)",   "Outflow(l/s)",  "Open window(%)"};
  for (int col = 0; col <= kLoadColumns; ++col)
    HVACGRID1.Cell(0, col) = Cp1252FromUtf8(headers[col]);
  HVACGRID2.fixed_cols = 1;
  HVACGRID1_Fill.fixed_rows = 0;
  HVACGRID1_Fill.tool_tip = kFillToolTip;

  Combo1.on_click = [this] { Combo1Click(); };
  Combo3.on_click = [this] { Combo3Click(); };
  Combo4.on_click = [this] { Combo4Click(); };
  Combo5.on_click = [this] { Combo5Click(); };
  Combo2.on_click = [this] { Combo2Click(); };
  Combo6.on_click = [this] { Combo6Click(); };
  SAcmb.on_click = [this] { SAcmbClick(); };
  SDcmb.on_click = [this] { SDcmbClick(); };
  Sccmb.on_click = [this] { SccmbClick(); };
  Rename.on_click = [this] { RenameClick(); };
  CopyVolume.on_click = [this] { CopyVolumeClick(); };
  DAcmb.on_click = [this] { AddPeriod(false); };
  DDcmb.on_click = [this] { DeletePeriod(false); };
  DECmb.on_click = [this] { EditPeriod(false); };
  DAcmb6.on_click = [this] { AddPeriod(true); };
  DDCmb6.on_click = [this] { DeletePeriod(true); };
  DECmb6.on_click = [this] { EditPeriod(true); };
  for (Grid* grid : {&HVACGRID1, &HVACGRID2, &HVACGRID1_Fill}) {
    grid->on_key_press = [this, grid](int& key) { GridKeyPress(*grid, key); };
    grid->on_sel_change = [this, grid] { GridSelChange(*grid); };
  }
  Fill_Option.on_click = [this] { FillClick(); };
  HVACGRID_Clear.on_click = [this] { ClearClick(); };
  Option1[0].on_click = [this] { Option1Click(0); };
  Option1[1].on_click = [this] { Option1Click(1); };
  Option2[0].on_click = [this] { Option2Click(0); };
  Option2[1].on_click = [this] { Option2Click(1); };
  IDLcheck.on_click = [this] { IDLcheckClick(); };
  Scmd1.on_click = [this] { Ok(); };
  Scmd2.on_click = [this] { Cancel(); };
  Command1.on_click = [this] { Help(); };
}

void HVAC::Load() {
  CenterForm(*this, session_.ws);
  const Workspace& ws = session_.ws;
  SurfaceTable elements;
  ReadSurfaces(ws, elements);
  volume_list_ = BuildVolumeList(ReadSurfaceVolumes(ws));
  if (volume_list_.empty()) {
    session_.dialogs->MsgBox("There are no volumes ", mb::kExclamation, kHvacTitle);
    Unload();
    return;
  }
  const int volumes = static_cast<int>(volume_list_.size());
  pair_connected_ = BuildPairConnected(elements, volume_list_);
  connected_pairs_.clear();
  for (int a = 1; a < volumes; ++a) {
    for (int b = a + 1; b <= volumes; ++b) {
      if (pair_connected_[a][b]) connected_pairs_.emplace_back(a, b);
    }
  }
  // The file's settings, or the opening defaults: a heat exchanger without
  // bypass. The check box does not ask for a file while it is set here.
  loading_ = true;
  ReadHvacCal(ws, volumes, store_);
  // A case without schedules starts from the efficiency a blank box is saved
  // as, so that a first OK need not ask for it.
  if (!FileCanOpen(JoinPath(ws.CasePath, kHvacCalFile))) {
    store_.HeatExchangerEfficiency = kDefaultEfficiency;
  }
  IDLcheck.value = store_.UseInternalLoadFile ? 1 : 0;
  ILDName.text = store_.InternalLoadFile;
  Option2[1].value = store_.HasHeatExchanger ? 1 : 0;
  Option2[0].value = 1 - Option2[1].value;
  Option3[1].value = store_.HasBypass ? 1 : 0;
  Option3[0].value = 1 - Option3[1].value;
  Lval.text = store_.HeatExchangerEfficiency;
  loading_ = false;
  ShowHeatExchanger();

  Option1[0].value = 1;
  Option1[1].value = 0;
  // One volume has no other to open a door to.
  Option1[0].visible = false;
  Option1[1].visible = volumes > 1;
  for (Button* dormant : {&Shcmb1, &SHcmb2, &SHcmb3}) dormant->visible = false;
  PrepareGrids();
  ShowView(false);
  FillScreen();
  HourDirty = false;
}

std::vector<std::string> HVAC::VolumeItems() const {
  std::vector<std::string> items;
  for (const auto& volume : volume_list_) items.push_back("Volume: " + volume);
  return items;
}

namespace {
int Scaled(int twips, double scale) { return static_cast<int>(twips * scale + 0.5); }
}  // namespace

void HVAC::ScaleGridWidths(double scale) {
  width_scale_ = scale;
  HVACGRID1.col_widths = {Scaled(600, scale)};
  for (int w : kLoadWidths) HVACGRID1.col_widths.push_back(Scaled(w, scale));
  HVACGRID2.col_widths.assign(HVACGRID2.cols(), Scaled(450, scale));
  if (!HVACGRID2.col_widths.empty()) HVACGRID2.col_widths[0] = Scaled(600, scale);
  PrepareFill();
}

void HVAC::PrepareGrids() {
  HVACGRID2.SetRows(0);
  HVACGRID2.SetCols(1 + static_cast<int>(connected_pairs_.size()));
  HVACGRID2.SetRows(kHourRows);
  HVACGRID2.Cell(0, 0) = "Hour";
  for (size_t n = 0; n < connected_pairs_.size(); ++n) {
    const auto& [a, b] = connected_pairs_[n];
    HVACGRID2.Cell(0, static_cast<int>(n) + 1) = volume_list_[a - 1] + "-" + volume_list_[b - 1];
  }
  ClearGrids();
  ScaleGridWidths(width_scale_);
}

void HVAC::PrepareFill() {
  // Two hour columns under the grid's one, then one under each of its own.
  const Grid& shown = openings_view_ ? HVACGRID2 : HVACGRID1;
  HVACGRID1_Fill.SetRows(0);
  HVACGRID1_Fill.SetCols(shown.cols() + 1);
  HVACGRID1_Fill.col_widths.assign(2, Scaled(300, width_scale_));
  for (int col = 1; col < shown.cols(); ++col) {
    HVACGRID1_Fill.col_widths.push_back(
        col < static_cast<int>(shown.col_widths.size()) ? shown.col_widths[col] : 0);
  }
  HVACGRID1_Fill.SetRows(1);
  HVACGRID1_Fill.row = HVACGRID1_Fill.col = 0;
  // The two hour cells stand out from the values to fill in.
  for (int col : {0, 1}) HVACGRID1_Fill.SetCellBackColor(0, col, kFillHourColor);
}

void HVAC::ClearGrids() {
  for (Grid* grid : {&HVACGRID1, &HVACGRID2}) {
    for (int row = 1; row < grid->rows(); ++row) {
      grid->Cell(row, 0) = std::to_string(row);
      for (int col = 1; col < grid->cols(); ++col) grid->Cell(row, col).clear();
    }
  }
}

void HVAC::EnableAll(bool on) {
  for (Control* control : std::initializer_list<Control*>{
           &SDcmb, &Sccmb, &Rename, &Combo3, &Combo4, &Combo2, &Combo5, &Combo6, &CopyVolume,
           &DAcmb, &DAcmb6, &DDcmb, &DECmb, &DDCmb6, &DECmb6, &Fill_Option, &HVACGRID_Clear,
           &IDLcheck}) {
    control->enabled = on;
  }
  Combo1.enabled = SAcmb.enabled = true;
  Option1[1].enabled = on;
  Option1[0].enabled = on && SelVolume < 2;
}

void HVAC::ShowPanel() {
  Week.visible = Combo5.visible = SelType == kWeekendWeekday;
  for (Control* control : {static_cast<Control*>(&Daily), static_cast<Control*>(&Combo2),
                           static_cast<Control*>(&DAcmb), static_cast<Control*>(&DDcmb),
                           static_cast<Control*>(&DECmb)}) {
    control->visible = SelType == kDaily;
  }
  for (Control* control : {static_cast<Control*>(&Monthly), static_cast<Control*>(&Combo6),
                           static_cast<Control*>(&DAcmb6), static_cast<Control*>(&DDCmb6),
                           static_cast<Control*>(&DECmb6)}) {
    control->visible = SelType == kMonthly;
  }
}

ComboBox& HVAC::PeriodList(int type) {
  if (type == kDaily) return Combo2;
  return type == kMonthly ? Combo6 : Combo5;
}

int& HVAC::SelPeriod(int type) {
  if (type == kDaily) return SelDaily;
  return type == kMonthly ? SelMonthly : SelWeek;
}

void HVAC::RebuildPeriodList() {
  Combo2.Clear();
  Combo6.Clear();
  Combo5.list_index = 0;
  SelWeek = 1;
  SelDaily = SelMonthly = 0;
  if (SelType != kDaily && SelType != kMonthly) return;
  ComboBox& list = PeriodList(SelType);
  const int count = store_.PeriodCount(SelSchedule, SelVolume, SelType);
  for (int period = 1; period <= count; ++period) {
    const int slot = PeriodSlot(SelType, period);
    list.AddItem(store_.PeriodDates(SelSchedule, SelVolume, slot, 1) + "-" +
                 store_.PeriodDates(SelSchedule, SelVolume, slot, 2));
  }
  SelPeriod(SelType) = count > 0 ? 1 : 0;
  list.list_index = count > 0 ? 0 : -1;
}

void HVAC::SetShowPath() {
  int period = SelPeriod(SelType);
  int slot = period > 0 ? PeriodSlot(SelType, period) : 0;
  ShowPath = {SelSchedule, SelSchedule > 0 ? slot : 0, SelVolume};
}

void HVAC::StoreGrids() {
  const auto [schedule, slot, volume] = ShowPath;
  if (schedule < 1) return;
  store_.PeriodType(schedule, volume) = static_cast<int16_t>(SelType);
  if (slot < 1) return;
  const int volumes = static_cast<int>(volume_list_.size());
  for (int hour = 1; hour <= kHours; ++hour) {
    for (int column = 1; column <= kLoadColumns; ++column) {
      store_.HourCell(schedule, volume, slot, hour, column) =
          TrimBlanks(HVACGRID1.Cell(hour, column));
    }
    // Openings are kept only where an element joins the two volumes; a
    // joined pair left empty is wide open.
    int grid_col = 1;
    for (int a = 1; a < volumes; ++a) {
      for (int b = a + 1; b <= volumes; ++b) {
        std::string& cell =
            store_.HourCell(schedule, volume, slot, hour, PairColumn(a, b, volumes));
        if (!pair_connected_[a][b]) {
          cell.clear();
          continue;
        }
        cell = TrimBlanks(HVACGRID2.Cell(hour, grid_col++));
        if (cell.empty()) cell = "100";
      }
    }
  }
}

void HVAC::LoadGrids() {
  const auto [schedule, slot, volume] = ShowPath;
  if (schedule < 1 || slot < 1) {
    ClearGrids();
    return;
  }
  const int volumes = static_cast<int>(volume_list_.size());
  for (int hour = 1; hour <= kHours; ++hour) {
    HVACGRID1.Cell(hour, 0) = HVACGRID2.Cell(hour, 0) = std::to_string(hour);
    for (int column = 1; column <= kLoadColumns; ++column) {
      HVACGRID1.Cell(hour, column) =
          TrimBlanks(store_.HourCell(schedule, volume, slot, hour, column));
    }
    int grid_col = 1;
    for (const auto& [a, b] : connected_pairs_) {
      HVACGRID2.Cell(hour, grid_col++) =
          TrimBlanks(store_.HourCell(schedule, volume, slot, hour, PairColumn(a, b, volumes)));
    }
  }
}

void HVAC::UpdateOpeningsOption() {
  // The openings between volumes are set in the first period of volume 1.
  const ComboBox& list = PeriodList(SelType);
  Option1[1].enabled = SelSchedule > 0 && SelVolume == 1 && list.list_index == 0;
  Option1[0].enabled = SelSchedule > 0 && SelVolume < 2;
}

void HVAC::FillScreen() {
  for (ComboBox* list : {&Combo1, &Combo2, &Combo3, &Combo4, &Combo5, &Combo6}) list->Clear();
  Combo3.items = VolumeItems();
  Combo4.items.assign(kPeriodTypeNames.begin(), kPeriodTypeNames.end());
  Combo5.items.assign(kDayKindNames.begin(), kDayKindNames.end());
  if (store_.ScheduleCount == 0) {
    SelSchedule = 0;
    SelVolume = 1;
    SelType = kWeekendWeekday;
    Combo3.list_index = 0;
    Combo4.list_index = 0;
    EnableAll(false);
    ShowPanel();
    RebuildPeriodList();
    SetShowPath();
    ClearGrids();
    UpdateOpeningsOption();
    return;
  }
  EnableAll(true);
  for (int schedule = 1; schedule <= store_.ScheduleCount; ++schedule) {
    Combo1.AddItem(TrimBlanks(store_.ScheduleName(schedule)));
  }
  ShowSchedule(std::clamp(store_.CurrentSchedule, 1, store_.ScheduleCount));
}

void HVAC::ShowSchedule(int schedule) {
  SelSchedule = schedule;
  store_.CurrentSchedule = schedule;
  Combo1.list_index = schedule - 1;
  SelVolume = 1;
  Combo3.list_index = 0;
  ShowChoice();
}

void HVAC::ShowChoice() {
  SelType = std::clamp<int>(store_.PeriodType(SelSchedule, SelVolume), kWeekendWeekday, kMonthly);
  Combo4.list_index = SelType;
  ShowPanel();
  RebuildPeriodList();
  SetShowPath();
  LoadGrids();
  UpdateOpeningsOption();
}

bool HVAC::CellsPass() {
  Grid& grid = openings_view_ ? HVACGRID2 : HVACGRID1;
  auto fault = CheckCells(grid, openings_view_ ? CellMode::kOpenings : CellMode::kLoads);
  if (!fault) return true;
  session_.dialogs->MsgBox(fault->message, mb::kExclamation, kCellCheckTitle);
  grid.row = grid.row_sel = fault->row;
  grid.col = grid.col_sel = fault->col;
  grid.SetFocus();
  return false;
}

bool HVAC::LeaveTable() {
  if (!CellsPass()) return false;
  StoreGrids();
  return true;
}

bool HVAC::ListMoved(ComboBox& list, int old_index) {
  if (ClickGate != 1 || list.list_index == old_index) return false;
  if (!CellsPass()) {
    list.list_index = old_index;
    return false;
  }
  if (Combo1.items.empty()) return false;
  StoreGrids();
  return true;
}

void HVAC::Combo1Click() {
  if (ListMoved(Combo1, SelSchedule - 1)) ShowSchedule(Combo1.list_index + 1);
}

void HVAC::Combo3Click() {
  if (!ListMoved(Combo3, SelVolume - 1)) return;
  SelVolume = Combo3.list_index + 1;
  ShowChoice();
}

void HVAC::Combo4Click() {
  if (!ListMoved(Combo4, SelType)) return;
  // The calendars of the other types stay in the store as they were.
  SelType = Combo4.list_index;
  ShowPanel();
  RebuildPeriodList();
  SetShowPath();
  LoadGrids();
  UpdateOpeningsOption();
}

void HVAC::Combo5Click() {
  if (!ListMoved(Combo5, SelWeek - 1)) return;
  SelWeek = Combo5.list_index + 1;
  SetShowPath();
  LoadGrids();
  UpdateOpeningsOption();
}

void HVAC::Combo2Click() {
  if (!ListMoved(Combo2, SelDaily - 1)) return;
  SelDaily = Combo2.list_index + 1;
  SetShowPath();
  LoadGrids();
  UpdateOpeningsOption();
}

void HVAC::Combo6Click() {
  if (!ListMoved(Combo6, SelMonthly - 1)) return;
  SelMonthly = Combo6.list_index + 1;
  SetShowPath();
  LoadGrids();
  UpdateOpeningsOption();
}

}  // namespace zelmo
