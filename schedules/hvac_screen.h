// HVAC, "HVAC - Schedules": the operating schedules of the case. A chain of
// lists (schedule, volume, type of operating periods, period) chooses the one
// hourly table shown; the loads and the openings between volumes of that
// table are edited in grids. The store lives in memory while the screen is
// open and HVAC_Cal.Inp is written whole at OK; Cancel drops everything.
#pragma once

#include <string>
#include <vector>

#include "core/controls.h"
#include "schedules/calendar_rules.h"
#include "schedules/hvac_dialogs.h"
#include "schedules/schedule_store.h"

namespace zelmo {

struct Session;

inline constexpr int kHvacHelpContext = 12111;

class HVAC : public Form {
 public:
  explicit HVAC(Session& session);

  // Reads the building and HVAC_Cal.Inp; closes with a message when the case
  // has no volume.
  void Load() override;
  // The close box is Cancel.
  void QueryUnload() override { Cancel(); }

  // A new position in one of the six lists.
  void Combo1Click();
  void Combo3Click();
  void Combo4Click();
  void Combo5Click();
  void Combo2Click();
  void Combo6Click();

  void SAcmbClick();  // add a schedule
  void SDcmbClick();  // delete the schedule shown
  void SccmbClick();  // copy the schedule shown
  void RenameClick();
  void CopyVolumeClick();
  // Add, edit and delete a period of the Daily (monthly = false) or the
  // Monthly list.
  void AddPeriod(bool monthly);
  void EditPeriod(bool monthly);
  void DeletePeriod(bool monthly);

  // A key typed into one of the three grids.
  void GridKeyPress(Grid& grid, int& key);
  // A drag over several cells of a grid has ended at `row_sel`, `col_sel`.
  void GridSelChange(Grid& grid);
  void FillClick();
  void ClearClick();
  // The view switch: index 1 the openings between volumes, 0 the loads.
  void Option1Click(int index);
  void Option2Click(int index);
  void IDLcheckClick();

  // The final check, the cell check, then the file and the last module stale.
  void Ok();
  // Closes at once; nothing is written.
  void Cancel();
  void Help();

  // The column widths of the grids, all in their ratios, times `scale`: the
  // view widens them together when its font needs more room for a header.
  void ScaleGridWidths(double scale);

  const ScheduleStore& store() const { return store_; }
  ScheduleStore& store() { return store_; }
  // The result fields the dialogs fill.
  ScheduleDialogResult& result() { return result_; }

  // Where the screen stands.
  int SelSchedule = 0;
  int SelVolume = 1;
  int SelType = 0;
  int SelWeek = 1;
  int SelDaily = 0;
  int SelMonthly = 0;
  int ClickGate = 1;
  struct Path {
    int schedule = 0;
    int slot = 0;
    int volume = 0;
  } ShowPath;
  bool HourDirty = false;
  bool openings_view() const { return openings_view_; }

  Label Calender{this, "Calender"};
  ComboBox Combo1{this, "Combo1"};
  Button SAcmb{this, "SAcmb"};
  Button SDcmb{this, "SDcmb"};
  Button Sccmb{this, "Sccmb"};
  Button Rename{this, "Rename"};
  Label HVlab1{this, "HVlab1"};
  ComboBox Combo3{this, "Combo3"};
  Button CopyVolume{this, "CopyVolume"};
  Label TypeofSched{this, "TypeofSched"};
  ComboBox Combo4{this, "Combo4"};
  Label Week{this, "Week"};
  ComboBox Combo5{this, "Combo5"};
  Label Daily{this, "Daily"};
  ComboBox Combo2{this, "Combo2"};
  Button DAcmb{this, "DAcmb"};
  Button DDcmb{this, "DDcmb"};
  Button DECmb{this, "DECmb"};
  Label Monthly{this, "Monthly"};
  ComboBox Combo6{this, "Combo6"};
  Button DAcmb6{this, "DAcmb6"};
  Button DDCmb6{this, "DDCmb6"};
  Button DECmb6{this, "DECmb6"};
  Label SHlab1{this, "SHlab1"};
  Label SHlab2{this, "SHlab2"};
  Grid HVACGRID1{this, "HVACGRID1"};
  Grid HVACGRID2{this, "HVACGRID2"};
  Grid HVACGRID1_Fill{this, "HVACGRID1_Fill"};
  Button Fill_Option{this, "Fill_Option"};
  Button HVACGRID_Clear{this, "HVACGRID_Clear"};
  OptionButton Option1[2]{{this, "Option1(0)"}, {this, "Option1(1)"}};
  // The dormant buttons of the hourly input form: hidden for good.
  Button Shcmb1{this, "Shcmb1"};
  Button SHcmb2{this, "SHcmb2"};
  Button SHcmb3{this, "SHcmb3"};
  CheckBox IDLcheck{this, "IDLcheck"};
  Label IDLChecktext{this, "IDLChecktext"};
  TextBox ILDName{this, "ILDName"};
  Frame Heatframe{this, "Heatframe"};
  OptionButton Option2[2]{{this, "Option2(0)"}, {this, "Option2(1)"}};
  Frame ByPassframe{this, "ByPassframe"};
  OptionButton Option3[2]{{this, "Option3(0)"}, {this, "Option3(1)"}};
  Label Leff{this, "Leff"};
  TextBox Lval{this, "Lval"};
  Label Lper{this, "Lper"};
  Button Scmd1{this, "Scmd1"};
  Button Scmd2{this, "Scmd2"};
  Button Command1{this, "Command1"};

 private:
  // hvac_screen.cpp: the tables shown.
  void FillScreen();
  void EnableAll(bool on);
  void ShowPanel();
  void RebuildPeriodList();
  void SetShowPath();
  void StoreGrids();
  void LoadGrids();
  void ClearGrids();
  void PrepareGrids();
  void PrepareFill();
  void UpdateOpeningsOption();
  // The grid shown passes CheckCells; else the box and the focus on the cell.
  bool CellsPass();
  // Checks the table shown and stores it: what every move away from it does.
  bool LeaveTable();
  // The list of the type shown, and its selected position (from 1).
  ComboBox& PeriodList(int type);
  int& SelPeriod(int type);
  void ShowSchedule(int schedule);
  void ShowChoice();
  // A list moved by the user: the steps all six share.
  bool ListMoved(ComboBox& list, int old_index);
  std::vector<std::string> VolumeItems() const;

  // hvac_screen_events.cpp
  bool FinalCheck();
  void ShowView(bool openings);
  void ShowHeatExchanger();

  Session& session_;
  ScheduleStore store_;
  ScheduleDialogResult result_;
  std::vector<std::string> volume_list_;
  PairTable pair_connected_{};
  // The columns of HVACGRID2: the pairs (a, b) joined by an opening.
  std::vector<std::pair<int, int>> connected_pairs_;
  bool openings_view_ = false;
  bool loading_ = false;
  double width_scale_ = 1.0;
  // The last key in a grid moved the cell: the next character replaces it.
  bool replace_next_ = true;
};

}  // namespace zelmo
