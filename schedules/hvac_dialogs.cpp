#include "schedules/hvac_dialogs.h"

#include <algorithm>
#include <cmath>

#include "core/dialogs.h"
#include "core/fields.h"
#include "core/form_helpers.h"
#include "core/numbers.h"
#include "core/session.h"
#include "core/text_file.h"

namespace zelmo {

namespace {

constexpr const char* kOk = "Ok";
constexpr const char* kCancel = "Cancel";

// A spin's value as its field shows it: the number with its leading blank.
std::string SpinText(int value) { return NumText(value); }

// A number of a field for a spin button, kept inside its range.
int SpinValue(const std::string& text, const SpinButton& spin) {
  double value = std::nearbyint(Val(TrimBlanks(text)));
  if (!(value >= spin.min)) return spin.min;
  return value > spin.max ? spin.max : static_cast<int>(value);
}

// A month typed into a field: only digits are let in.
void OnlyDigits(int& key) {
  if (key >= ' ' && key < keys::kSpecial && (key < '0' || key > '9')) key = 0;
}

// The month a field holds when it is one its spin can take, else 0.
int TypedMonth(const TextBox& field, const SpinButton& spin) {
  const std::string text = TrimBlanks(field.text);
  if (text.empty() || !IsDigitsOnly(text) || text.size() > 2) return 0;
  const int month = std::stoi(text);
  return month >= spin.min && month <= spin.max ? month : 0;
}

void Accept(Form& form, ScheduleDialogResult& result) {
  result.DialogResult = kOk;
  form.Unload();
}

// A refused Ok: the box, and the dialog stays open on the field at fault.
void Refuse(Dialogs& dialogs, const std::string& text, const std::string& title, Control& field) {
  dialogs.MsgBox(text, mb::kExclamation, title);
  field.SetFocus();
  if (field.kind() == ControlKind::kTextBox) field.SelectAll();
}

}  // namespace

void CancelDialog(Form& form, ScheduleDialogResult& result) {
  result.DialogResult = kCancel;
  form.Unload();
}

DailyPeriodDialog::DailyPeriodDialog(Session& session, ScheduleDialogResult& result,
                                     const DateTable& table, const std::string& item)
    : Form(item.empty() ? "HVAC_Daily_Add" : "HVAC_daily_edit"),
      OkButton(this, item.empty() ? "Dop_cmnd1" : "OK"),
      CancelButton(this, item.empty() ? "Dop_cmnd2" : "Cancel"),
      session_(session),
      result_(result),
      table_(table) {
  const bool edit = !item.empty();
  caption = edit ? "Edit dayly operating periods" : "Daily operating periods";
  width = 4800;
  height = 2400;
  Label1.caption = edit ? "Start" : "Start:";
  Label4.caption = edit ? "End" : "End:";
  Label2.caption = Label5.caption = "Day";
  Label3.caption = Label6.caption = "Month";
  OkButton.caption = kOk;
  CancelButton.caption = kCancel;
  default_button = OkButton.name();
  cancel_button = CancelButton.name();
  if (edit) {
    std::string start = FieldBefore(item, "-"), end = FieldAfter(item, "-");
    Text1.text = TrimBlanks(FieldBefore(start, "/"));
    Text2.text = TrimBlanks(FieldAfter(start, "/"));
    Text3.text = TrimBlanks(FieldBefore(end, "/"));
    Text4.text = TrimBlanks(FieldAfter(end, "/"));
  } else {
    Text1.text = Text2.text = Text3.text = Text4.text = SpinText(1);
  }
  D1.value = d1_ = SpinValue(Text1.text, D1);
  M1.value = SpinValue(Text2.text, M1);
  D2.value = d2_ = SpinValue(Text3.text, D2);
  M2.value = SpinValue(Text4.text, M2);
  D1.on_change = [this] { D1Change(); };
  D2.on_change = [this] { D2Change(); };
  M1.on_change = [this] { M1Change(); };
  M2.on_change = [this] { M2Change(); };
  OkButton.on_click = [this] { Ok(); };
  CancelButton.on_click = [this] { CancelDialog(*this, result_); };
}

void DailyPeriodDialog::Load() { CenterForm(*this, session_.ws); }

void DailyPeriodDialog::DayMoved(SpinButton& spin, int& before, TextBox& text, bool start) {
  // Within one month the start may not pass the end, nor a day the month's
  // end; across months any day is reached and judged at Ok.
  if (M1.value == M2.value) {
    bool past_other = start ? D1.value > D2.value : D2.value < D1.value;
    if (past_other || spin.value > SpinMonthLength(M1.value)) {
      spin.value = before;
      return;
    }
  }
  before = spin.value;
  text.text = SpinText(spin.value);
}

void DailyPeriodDialog::D1Change() { DayMoved(D1, d1_, Text1, true); }
void DailyPeriodDialog::D2Change() { DayMoved(D2, d2_, Text3, false); }

// A month pushed by the other runs its own reaction too, as a moved spin does.
void DailyPeriodDialog::M1Change() {
  if (M1.value > M2.value) {
    M2.value = M1.value;
    M2Change();
  }
  Text2.text = SpinText(M1.value);
  D1.value = d1_ = 1;
  Text1.text = SpinText(1);
}

void DailyPeriodDialog::M2Change() {
  if (M2.value < M1.value) {
    M1.value = M2.value;
    M1Change();
  }
  Text4.text = SpinText(M2.value);
  D2.value = d2_ = SpinMonthLength(M2.value);
  Text3.text = SpinText(D2.value);
}

void DailyPeriodDialog::Ok() {
  PeriodFaults faults = CheckDailyPeriod(Text1.text, Text2.text, Text3.text, Text4.text, table_);
  if (!faults.ok()) {
    TextBox* fields[] = {&Text1, &Text1, &Text2, &Text3, &Text4};
    Refuse(*session_.dialogs, faults.text, kPeriodCheckTitle, *fields[faults.focus]);
    return;
  }
  result_.PeriodStart = TrimBlanks(Text1.text) + "/" + TrimBlanks(Text2.text);
  result_.PeriodEnd = TrimBlanks(Text3.text) + "/" + TrimBlanks(Text4.text);
  Accept(*this, result_);
}

MonthlyPeriodDialog::MonthlyPeriodDialog(Session& session, ScheduleDialogResult& result,
                                         const std::vector<std::string>& items, int selected)
    : Form(selected < 0 ? "HVAC_Monthly_Add" : "HVAC_Monthly_edit"),
      session_(session),
      result_(result),
      items_(items),
      selected_(selected) {
  const bool edit = selected >= 0 && selected < static_cast<int>(items.size());
  caption = edit ? "Edit monthly operating periods" : "Monthly operationg periods";
  width = 3600;
  height = 2100;
  Label1.caption = edit ? "Month" : "Months";
  Label2.caption = "Start";
  Label3.caption = "End";
  OkButton.caption = kOk;
  CancelButton.caption = kCancel;
  default_button = "Ok";
  cancel_button = "Cancel";
  if (edit) {
    MonthStart.text = TrimBlanks(FieldBefore(items[selected], "-"));
    MonthEnd.text = TrimBlanks(FieldAfter(items[selected], "-"));
  } else {
    MonthStart.text = MonthEnd.text = SpinText(1);
  }
  VScroll1.value = SpinValue(MonthStart.text, VScroll1);
  VScroll2.value = SpinValue(MonthEnd.text, VScroll2);
  // The fields show the spins' months in their order, also of a damaged item.
  MonthEnd.text = SpinText(VScroll2.value);
  VScroll1Change();
  VScroll1.on_change = [this] { VScroll1Change(); };
  VScroll2.on_change = [this] { VScroll2Change(); };
  for (TextBox* field : {&MonthStart, &MonthEnd}) {
    field->max_length = 2;
    field->on_key_press = OnlyDigits;
  }
  MonthStart.on_lost_focus = [this] { MonthStartTyped(); };
  MonthEnd.on_lost_focus = [this] { MonthEndTyped(); };
  OkButton.on_click = [this] { Ok(); };
  CancelButton.on_click = [this] { CancelDialog(*this, result_); };
}

void MonthlyPeriodDialog::Load() { CenterForm(*this, session_.ws); }

void MonthlyPeriodDialog::MonthStartTyped() {
  if (const int month = TypedMonth(MonthStart, VScroll1)) VScroll1.value = month;
  VScroll1Change();
}

void MonthlyPeriodDialog::MonthEndTyped() {
  if (const int month = TypedMonth(MonthEnd, VScroll2)) VScroll2.value = month;
  VScroll2Change();
}

void MonthlyPeriodDialog::VScroll1Change() {
  if (VScroll1.value > VScroll2.value) {
    VScroll2.value = VScroll1.value;
    MonthEnd.text = SpinText(VScroll2.value);
  }
  MonthStart.text = SpinText(VScroll1.value);
}

void MonthlyPeriodDialog::VScroll2Change() {
  if (VScroll2.value < VScroll1.value) {
    VScroll1.value = VScroll2.value;
    MonthStart.text = SpinText(VScroll1.value);
  }
  MonthEnd.text = SpinText(VScroll2.value);
}

void MonthlyPeriodDialog::Ok() {
  // The field last typed into may not have been left yet.
  MonthStartTyped();
  MonthEndTyped();
  const std::string start = TrimBlanks(MonthStart.text), end = TrimBlanks(MonthEnd.text);
  PeriodFaults faults = CheckMonthlyPeriod(items_, ValInt(start), ValInt(end), selected_);
  if (!faults.ok()) {
    Refuse(*session_.dialogs, faults.text, kPeriodCheckTitle, VScroll1);
    return;
  }
  result_.PeriodStart = start;
  result_.PeriodEnd = end;
  Accept(*this, result_);
}

ScheduleNameDialog::ScheduleNameDialog(Session& session, ScheduleDialogResult& result, bool rename)
    : Form(rename ? "Hvac_Schedule_Rename" : "HVAC_Schedule_Add"),
      OkButton(this, rename ? "Command1" : "HSAO"),
      CancelButton(this, rename ? "Command2" : "HSAC"),
      session_(session),
      result_(result) {
  caption = name();
  width = 5400;
  height = 1500;
  Label1.caption = rename ? "New name" : "Name of schedule";
  OkButton.caption = rename ? "&Ok" : kOk;
  CancelButton.caption = rename ? "&Cancel" : kCancel;
  default_button = OkButton.name();
  cancel_button = CancelButton.name();
  OkButton.on_click = [this] { Ok(); };
  CancelButton.on_click = [this] { Cancel(); };
}

void ScheduleNameDialog::Load() { CenterForm(*this, session_.ws); }

void ScheduleNameDialog::Ok() {
  const std::string name = TrimBlanks(Text1.text);
  std::string faults;
  if (name.empty()) faults = "You must give a name for the schedule ";
  if (name.find(' ') != std::string::npos) {
    if (!faults.empty()) faults += "\r";
    faults += "There should be no space in the name ";
  }
  if (!faults.empty()) {
    Refuse(*session_.dialogs, faults, "Schedule name - check", Text1);
    return;
  }
  result_.ScheduleNameResult = name;
  Accept(*this, result_);
}

void ScheduleNameDialog::Cancel() {
  result_.ScheduleNameResult.clear();
  CancelDialog(*this, result_);
}

ScheduleCopyDialog::ScheduleCopyDialog(Session& session, ScheduleDialogResult& result,
                                       const std::string& source)
    : Form("HVAC_Schedule_Copy"), session_(session), result_(result) {
  caption = "HVAC_Schedule_Copy";
  width = 5400;
  height = 2000;
  Label1.caption = "Source";
  Label2.caption = "Target";
  Text1.text = source;
  Text1.locked = true;
  Text2.text = " ";
  OkButton.caption = "&Ok";
  CancelButton.caption = kCancel;
  default_button = "Ok";
  cancel_button = "Cancel";
  OkButton.on_click = [this] { Ok(); };
  CancelButton.on_click = [this] { CancelDialog(*this, result_); };
}

void ScheduleCopyDialog::Load() { CenterForm(*this, session_.ws); }

void ScheduleCopyDialog::Ok() {
  // An empty target passes: the copy is saved under a default name.
  const std::string target = TrimBlanks(Text2.text);
  if (target.find(' ') != std::string::npos) {
    Refuse(*session_.dialogs, "The Target name should not have any spaces in it ",
           "HVAC - Schedules - Copy", Text2);
    return;
  }
  result_.ScheduleNameResult = target;
  Accept(*this, result_);
}

VolumeCopyDialog::VolumeCopyDialog(Session& session, ScheduleDialogResult& result,
                                   const std::vector<std::string>& volumes, int shown_volume)
    : Form("Hvac_Volume_Copy"), session_(session), result_(result), shown_volume_(shown_volume) {
  caption = "Hvac_Volume_Copy";
  width = 4200;
  height = 1500;
  Label1.caption = "Target";
  Combo1.items = volumes;
  Combo1.list_index = 0;
  Command1.caption = "&Ok";
  Command2.caption = "&Cancel";
  default_button = "Command1";
  cancel_button = "Command2";
  Command1.on_click = [this] { Ok(); };
  Command2.on_click = [this] {
    result_.VolumeTarget = 0;
    CancelDialog(*this, result_);
  };
}

void VolumeCopyDialog::Load() { CenterForm(*this, session_.ws); }

void VolumeCopyDialog::Ok() {
  if (Combo1.list_index < 0) return;
  if (Combo1.list_index + 1 == shown_volume_) {
    Refuse(*session_.dialogs, "Source and target the same volume ! ", "HVAC_Volume_Copy", Combo1);
    return;
  }
  result_.VolumeTarget = Combo1.list_index + 1;
  Accept(*this, result_);
}

std::optional<std::string> ChooseF_ILD(Session& session, const std::string& start_folder) {
  FileChoice choice;
  choice.title = "Internal loads";
  choice.folder = start_folder;
  choice.filters = {"*.ILD"};
  return session.dialogs->ChooseFile(choice);
}

}  // namespace zelmo
