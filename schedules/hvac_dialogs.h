// The small modal dialogs of the schedules screen: period add and edit,
// schedule name, copy and rename, volume copy, and the choice of an .ILD
// file. Each hands its answer back through the screen's result fields and
// none touches the schedule store.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "core/controls.h"
#include "schedules/calendar_rules.h"

namespace zelmo {

struct Session;

inline constexpr const char* kHvacTitle = "HVAC - Schedules";

// What a dialog gives back to the schedules screen.
struct ScheduleDialogResult {
  std::string DialogResult;  // "Ok" or "Cancel"
  std::string PeriodStart;
  std::string ScheduleNameResult;
  std::string PeriodEnd;
  int VolumeTarget = 0;  // 0 when cancelled
};

// Every Cancel button: "Cancel", and the dialog closes.
void CancelDialog(Form& form, ScheduleDialogResult& result);

// HVAC_Daily_Add ("Daily operating periods") and HVAC_daily_edit ("Edit
// dayly operating periods"): a period of days, start and end as day and
// month, each with its spin buttons.
class DailyPeriodDialog : public Form {
 public:
  // `item` is the selected "d/m-d/m" of the list when editing, empty when
  // adding; `table` holds the other periods of the list.
  DailyPeriodDialog(Session& session, ScheduleDialogResult& result, const DateTable& table,
                    const std::string& item = "");
  void Load() override;
  void QueryUnload() override { CancelDialog(*this, result_); }

  // The spin buttons write into the fields, as the number with its blank.
  void D1Change();
  void D2Change();
  void M1Change();
  void M2Change();
  void Ok();

  Label Label1{this, "Label1"};  // Start
  Label Label2{this, "Label2"};  // Day
  TextBox Text1{this, "Text1"};
  SpinButton D1{this, "D1", 1, 31};
  Label Label3{this, "Label3"};  // Month
  TextBox Text2{this, "Text2"};
  SpinButton M1{this, "M1", 1, 12};
  Label Label4{this, "Label4"};  // End
  Label Label5{this, "Label5"};  // Day
  TextBox Text3{this, "Text3"};
  SpinButton D2{this, "D2", 1, 31};
  Label Label6{this, "Label6"};  // Month
  TextBox Text4{this, "Text4"};
  SpinButton M2{this, "M2", 1, 12};
  Button OkButton;
  Button CancelButton;

 private:
  void DayMoved(SpinButton& spin, int& before, TextBox& text, bool start);

  Session& session_;
  ScheduleDialogResult& result_;
  DateTable table_;
  int d1_ = 1, d2_ = 1;
};

// HVAC_Monthly_Add ("Monthly operationg periods") and HVAC_Monthly_edit
// ("Edit monthly operating periods"): a run of months.
class MonthlyPeriodDialog : public Form {
 public:
  // `items` is the Monthly list; `selected` the item edited, -1 to add.
  MonthlyPeriodDialog(Session& session, ScheduleDialogResult& result,
                      const std::vector<std::string>& items, int selected = -1);
  void Load() override;
  void QueryUnload() override { CancelDialog(*this, result_); }

  void VScroll1Change();
  void VScroll2Change();
  // A month typed into a field is held to the spin's range and order when
  // the field is left: a month from 1 to 12 moves its spin as the arrows
  // would, any other text gives the field its spin's month back.
  void MonthStartTyped();
  void MonthEndTyped();
  void Ok();

  Label Label1{this, "Label1"};  // Months
  Label Label2{this, "Label2"};  // Start
  TextBox MonthStart{this, "MonthStart"};
  SpinButton VScroll1{this, "VScroll1", 1, 12};
  Label Label3{this, "Label3"};  // End
  TextBox MonthEnd{this, "MonthEnd"};
  SpinButton VScroll2{this, "VScroll2", 1, 12};
  Button OkButton{this, "Ok"};
  Button CancelButton{this, "Cancel"};

 private:
  Session& session_;
  ScheduleDialogResult& result_;
  std::vector<std::string> items_;
  int selected_;
};

// HVAC_Schedule_Add and Hvac_Schedule_Rename: a name with no blank in it.
class ScheduleNameDialog : public Form {
 public:
  ScheduleNameDialog(Session& session, ScheduleDialogResult& result, bool rename);
  void Load() override;
  void QueryUnload() override { Cancel(); }
  void Ok();
  // Rename's Cancel gives an empty name: no change.
  void Cancel();

  Label Label1{this, "Label1"};
  TextBox Text1{this, "Text1"};
  Button OkButton;
  Button CancelButton;

 private:
  Session& session_;
  ScheduleDialogResult& result_;
};

// HVAC_Schedule_Copy: the name of the copy of the schedule shown.
class ScheduleCopyDialog : public Form {
 public:
  ScheduleCopyDialog(Session& session, ScheduleDialogResult& result, const std::string& source);
  void Load() override;
  void QueryUnload() override { CancelDialog(*this, result_); }
  void Ok();

  Label Label1{this, "Label1"};
  TextBox Text1{this, "Text1"};
  Label Label2{this, "Label2"};
  TextBox Text2{this, "Text2"};
  Button OkButton{this, "Ok"};
  Button CancelButton{this, "Cancel"};

 private:
  Session& session_;
  ScheduleDialogResult& result_;
};

// Hvac_Volume_Copy: the volume that takes a copy of the one shown.
class VolumeCopyDialog : public Form {
 public:
  VolumeCopyDialog(Session& session, ScheduleDialogResult& result,
                   const std::vector<std::string>& volumes, int shown_volume);
  void Load() override;
  void QueryUnload() override { CancelDialog(*this, result_); }
  void Ok();

  Label Label1{this, "Label1"};
  ComboBox Combo1{this, "Combo1"};
  Button Command1{this, "Command1"};
  Button Command2{this, "Command2"};

 private:
  Session& session_;
  ScheduleDialogResult& result_;
  int shown_volume_;
};

// ChooseF_ILD ("Internal loads"): a file of internal loads, *.ILD, as a full
// path; nothing when the user cancels.
std::optional<std::string> ChooseF_ILD(Session& session, const std::string& start_folder);

}  // namespace zelmo
