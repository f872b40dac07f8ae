// The actions of the schedules screen: schedules, volumes and periods added,
// copied and deleted through their dialogs; the grids' keys, Fill and Clear;
// the view switch, the heat exchanger, the internal-load file; OK and Cancel.
#include <algorithm>

#include "core/fields.h"
#include "core/session.h"
#include "core/stale.h"
#include "core/text_file.h"
#include "schedules/hvac_cal_file.h"
#include "schedules/hvac_screen.h"
#include "workspace/project_store.h"

namespace zelmo {

namespace {

constexpr const char* kOk = "Ok";

void Warn(Session& session, const std::string& text) {
  session.dialogs->MsgBox(text, mb::kExclamation, kHvacTitle);
}

}  // namespace

void HVAC::SAcmbClick() {
  if (ClickGate != 1) return;
  if (store_.ScheduleCount >= kMaxSchedules) {
    Warn(session_, "Max number of schedules reached ");
    return;
  }
  if (!LeaveTable()) return;
  result_ = {};
  ScheduleNameDialog dialog(session_, result_, /*rename=*/false);
  session_.dialogs->ShowModal(dialog);
  if (result_.DialogResult != kOk) return;
  const int schedule = ++store_.ScheduleCount;
  store_.ScheduleName(schedule) = result_.ScheduleNameResult;
  Combo1.AddItem(result_.ScheduleNameResult);
  EnableAll(true);
  ShowSchedule(schedule);
}

void HVAC::SccmbClick() {
  if (SelSchedule < 1) return;
  if (store_.ScheduleCount >= kMaxSchedules) {
    Warn(session_, "Max number of schedules reached ");
    return;
  }
  if (!LeaveTable()) return;
  result_ = {};
  ScheduleCopyDialog dialog(session_, result_, Combo1.SelectedItem());
  session_.dialogs->ShowModal(dialog);
  if (result_.DialogResult != kOk) return;
  const int schedule = ++store_.ScheduleCount;
  const std::string& name = result_.ScheduleNameResult;
  store_.ScheduleName(schedule) = name.empty() ? " " : name;
  // The loads go with the copy; its openings stay as its slots held them.
  for (int volume = 1; volume <= kMaxVolumes; ++volume) {
    store_.CopyVolume(SelSchedule, volume, schedule, volume, 1, kLoadColumns);
  }
  Combo1.AddItem(name);
  ShowSchedule(schedule);
}

void HVAC::SDcmbClick() {
  if (Combo1.items.empty() || SelSchedule < 1) return;
  const int count = store_.ScheduleCount;
  for (int schedule = SelSchedule; schedule < count; ++schedule) {
    store_.ScheduleName(schedule) = store_.ScheduleName(schedule + 1);
    for (int volume = 1; volume <= kMaxVolumes; ++volume) {
      store_.CopyVolume(schedule + 1, volume, schedule, volume);
    }
  }
  // The slot let go is clean for the next schedule added.
  store_.ClearSchedule(count);
  store_.ScheduleCount = count - 1;
  Combo1.RemoveItem(SelSchedule - 1);
  if (store_.ScheduleCount > 0) {
    ShowSchedule(store_.ScheduleCount);
    return;
  }
  SelSchedule = 0;
  store_.CurrentSchedule = 0;
  Combo1.list_index = -1;
  SetShowPath();
  ClearGrids();
  EnableAll(false);
  UpdateOpeningsOption();
}

void HVAC::RenameClick() {
  if (SelSchedule < 1) return;
  result_ = {};
  ScheduleNameDialog dialog(session_, result_, /*rename=*/true);
  session_.dialogs->ShowModal(dialog);
  if (result_.ScheduleNameResult.empty()) return;
  store_.ScheduleName(SelSchedule) = result_.ScheduleNameResult;
  Combo1.items[SelSchedule - 1] = result_.ScheduleNameResult;
}

void HVAC::CopyVolumeClick() {
  if (SelSchedule < 1 || !LeaveTable()) return;
  result_ = {};
  VolumeCopyDialog dialog(session_, result_, VolumeItems(), SelVolume);
  session_.dialogs->ShowModal(dialog);
  if (result_.DialogResult != kOk || result_.VolumeTarget < 1) return;
  store_.CopyVolume(SelSchedule, SelVolume, SelSchedule, result_.VolumeTarget);
}

void HVAC::AddPeriod(bool monthly) {
  if (SelSchedule < 1 || ClickGate != 1) return;
  const int type = monthly ? kMonthly : kDaily;
  ComboBox& list = PeriodList(type);
  if (static_cast<int>(list.items.size()) >= kMaxPeriods) {
    Warn(session_, kMaxPeriodsReached);
    return;
  }
  DateTable table = BuildDateTable(Combo2.items);
  if (!LeaveTable()) return;
  result_ = {};
  if (monthly) {
    MonthlyPeriodDialog dialog(session_, result_, Combo6.items);
    session_.dialogs->ShowModal(dialog);
  } else {
    DailyPeriodDialog dialog(session_, result_, table);
    session_.dialogs->ShowModal(dialog);
  }
  if (result_.DialogResult != kOk) return;
  const int period = ++store_.PeriodCount(SelSchedule, SelVolume, type);
  const int slot = PeriodSlot(type, period);
  store_.PeriodDates(SelSchedule, SelVolume, slot, 1) = result_.PeriodStart;
  store_.PeriodDates(SelSchedule, SelVolume, slot, 2) = result_.PeriodEnd;
  list.AddItem(result_.PeriodStart + "-" + result_.PeriodEnd);
  list.list_index = period - 1;
  SelPeriod(type) = period;
  SetShowPath();
  LoadGrids();
  UpdateOpeningsOption();
}

void HVAC::EditPeriod(bool monthly) {
  if (SelSchedule < 1) return;
  const int type = monthly ? kMonthly : kDaily;
  ComboBox& list = PeriodList(type);
  if (list.items.empty() || list.list_index < 0) {
    Warn(session_, monthly ? "Monthly operating periods are missing " : kMaxPeriodsReached);
    return;
  }
  if (!LeaveTable()) return;
  result_ = {};
  if (monthly) {
    MonthlyPeriodDialog dialog(session_, result_, list.items, list.list_index);
    session_.dialogs->ShowModal(dialog);
  } else {
    DailyPeriodDialog dialog(session_, result_, BuildDateTable(list.items, list.list_index),
                             list.SelectedItem());
    session_.dialogs->ShowModal(dialog);
  }
  if (result_.DialogResult != kOk) return;
  // The hourly table stays with the period.
  const int slot = PeriodSlot(type, list.list_index + 1);
  store_.PeriodDates(SelSchedule, SelVolume, slot, 1) = result_.PeriodStart;
  store_.PeriodDates(SelSchedule, SelVolume, slot, 2) = result_.PeriodEnd;
  list.items[list.list_index] = result_.PeriodStart + "-" + result_.PeriodEnd;
}

void HVAC::DeletePeriod(bool monthly) {
  const int type = monthly ? kMonthly : kDaily;
  ComboBox& list = PeriodList(type);
  if (SelSchedule < 1 || list.items.empty() || list.list_index < 0) return;
  StoreGrids();
  const int count = store_.PeriodCount(SelSchedule, SelVolume, type);
  for (int period = list.list_index + 1; period < count; ++period) {
    store_.CopyPeriod(SelSchedule, SelVolume, PeriodSlot(type, period + 1),
                      PeriodSlot(type, period));
  }
  store_.ClearPeriod(SelSchedule, SelVolume, PeriodSlot(type, count));
  store_.PeriodCount(SelSchedule, SelVolume, type) = static_cast<int16_t>(count - 1);
  list.RemoveItem(list.list_index);
  list.list_index = list.items.empty() ? -1 : 0;
  SelPeriod(type) = list.list_index + 1;
  SetShowPath();
  LoadGrids();
  UpdateOpeningsOption();
}

void HVAC::GridKeyPress(Grid& grid, int& key) {
  const bool fill = &grid == &HVACGRID1_Fill;
  auto move_to = [&grid, &key, this](int row, int col) {
    grid.row = grid.row_sel = row;
    grid.col = grid.col_sel = col;
    key = 0;
    replace_next_ = true;
  };
  switch (key) {
    case keys::kLeft:
    case keys::kRight:
    case keys::kUp:
    case keys::kDown:
      // The grid moves the cell itself.
      replace_next_ = true;
      return;
    case keys::kEscape:
      key = 0;
      replace_next_ = true;
      return;
    case keys::kPageUp:
      return move_to(grid.fixed_rows, grid.col);
    case keys::kPageDown:
      return move_to(grid.rows() - 1, grid.col);
    // End and Home run the other way round from what one expects.
    case keys::kEnd:
      return move_to(grid.row, grid.fixed_cols);
    case keys::kHome:
      return move_to(grid.row, grid.cols() - 1);
    case keys::kTab:
    case keys::kReturn:
      return;
    default:
      break;
  }
  const int typed = key;
  key = 0;
  if (grid.row < grid.fixed_rows || grid.row >= grid.rows() || grid.col < grid.fixed_cols ||
      grid.col >= grid.cols()) {
    return;
  }
  std::string& cell = grid.Cell(grid.row, grid.col);
  if (typed == keys::kBack) {
    if (!cell.empty()) cell.pop_back();
  } else if (typed == keys::kDelete) {
    cell.clear();
  } else if (fill && (typed == 'x' || typed == 'X')) {
    cell = std::string(1, static_cast<char>(typed));
  } else if ((typed >= '0' && typed <= '9') || typed == '.' || typed == ',' || typed == '-') {
    if (replace_next_) cell.clear();
    cell += typed == ',' ? '.' : static_cast<char>(typed);
  } else {
    return;
  }
  replace_next_ = false;
  HourDirty = true;
}

void HVAC::GridSelChange(Grid& grid) {
  grid.row = grid.row_sel;
  grid.col = grid.col_sel;
  // The fill row's cell at the end of a drag starts afresh.
  if (&grid == &HVACGRID1_Fill) grid.Cell(grid.row, grid.col).clear();
  replace_next_ = true;
}

void HVAC::FillClick() {
  auto fault =
      CheckCells(HVACGRID1_Fill, openings_view_ ? CellMode::kOpeningsFill : CellMode::kLoadsFill);
  if (fault) {
    session_.dialogs->MsgBox(fault->message, mb::kExclamation, kCellCheckTitle);
    HVACGRID1_Fill.col = HVACGRID1_Fill.col_sel = fault->col;
    HVACGRID1_Fill.SetFocus();
    return;
  }
  if (FillRows(HVACGRID1_Fill, openings_view_ ? HVACGRID2 : HVACGRID1)) HourDirty = true;
}

void HVAC::ClearClick() {
  ClearGrids();
  for (int col = 0; col < HVACGRID1_Fill.cols(); ++col) HVACGRID1_Fill.Cell(0, col).clear();
  HourDirty = true;
}

void HVAC::Option1Click(int index) {
  const bool openings = index == 1;
  if (openings == openings_view_) return;
  if (!CellsPass()) {
    Option1[1].value = openings_view_ ? 1 : 0;
    Option1[0].value = 1 - Option1[1].value;
    return;
  }
  ShowView(openings);
}

void HVAC::ShowView(bool openings) {
  openings_view_ = openings;
  Option1[1].value = openings ? 1 : 0;
  Option1[0].value = openings ? 0 : 1;
  HVACGRID1.visible = SHlab1.visible = !openings;
  HVACGRID2.visible = SHlab2.visible = openings;
  for (Control* control : std::initializer_list<Control*>{
           &Command1, &HVACGRID_Clear, &IDLcheck, &ILDName, &IDLChecktext, &Scmd1, &Scmd2}) {
    control->visible = !openings;
  }
  if (Option1[1].visible || Option1[0].visible) {
    Option1[0].visible = openings;
    Option1[1].visible = !openings;
  }
  // In the openings view nothing else moves: OK and Cancel wait for the
  // way back to the loads.
  if (openings) {
    for (Control* control : std::initializer_list<Control*>{
             &Combo1, &Combo2, &Combo3, &Combo4, &Combo5, &Combo6, &CopyVolume, &SAcmb, &SDcmb,
             &Sccmb, &Rename, &DAcmb, &DDcmb, &DECmb, &DAcmb6, &DDCmb6, &DECmb6}) {
      control->enabled = false;
    }
  } else {
    EnableAll(SelSchedule > 0);
    UpdateOpeningsOption();
  }
  PrepareFill();
}

void HVAC::Option2Click(int) { ShowHeatExchanger(); }

void HVAC::ShowHeatExchanger() {
  const bool on = Option2[1].value == 1;
  ByPassframe.visible = Leff.visible = Lval.visible = Lper.visible = on;
}

void HVAC::IDLcheckClick() {
  if (loading_) return;
  if (IDLcheck.value != 1) {
    ILDName.text.clear();
    return;
  }
  auto chosen = ChooseF_ILD(session_, session_.ws.CasePath);
  if (chosen) {
    ILDName.text = *chosen;
  } else {
    IDLcheck.value = 0;
    ILDName.text.clear();
  }
}

bool HVAC::FinalCheck() {
  auto refuse = [this](const char* text, Control& at) {
    session_.dialogs->MsgBox(text, mb::kExclamation, "HVAC check");
    at.SetFocus();
    return false;
  };
  if (IDLcheck.value == 1) {
    const std::string name = TrimBlanks(ILDName.text);
    if (name.empty()) return refuse("No ILD file given !", ILDName);
    if (name.find(".ild") == std::string::npos && name.find(".ILD") == std::string::npos) {
      return refuse("No ILD type file given !", ILDName);
    }
    return true;
  }
  if (SelSchedule > 0 && SelType != kWeekendWeekday && PeriodList(SelType).items.empty()) {
    return refuse(kIntervalMissing, PeriodList(SelType));
  }
  if (!IsDigitsOnly(TrimBlanks(Lval.text))) {
    return refuse("Efficiency hould be an integer value", Lval);
  }
  return true;
}

void HVAC::Ok() {
  if (!FinalCheck() || !CellsPass()) return;
  SetShowPath();
  StoreGrids();
  store_.UseInternalLoadFile = IDLcheck.value == 1;
  store_.InternalLoadFile = ILDName.text;
  store_.HasHeatExchanger = Option2[1].value == 1;
  store_.HasBypass = Option3[1].value == 1;
  store_.HeatExchangerEfficiency = Lval.text;
  const Workspace& ws = session_.ws;
  const std::string path = JoinPath(ws.CasePath, kHvacCalFile);
  // A case that never had a schedule gets no file.
  if (store_.ScheduleCount > 0 || FileCanOpen(path)) {
    if (!WriteHvacCal(ws, store_)) throw FileError(path, 0, "The file could not be written.");
    Lval.text = store_.HeatExchangerEfficiency;
    MarkModulesStale(ws, ws.CasePath, kSixthModule);
  }
  Unload();
}

void HVAC::Cancel() { Unload(); }

void HVAC::Help() { ShowScreenHelp(session_, kHvacHelpContext); }

}  // namespace zelmo
