#include "libraries/misched_screen.h"

#include <cmath>

#include "core/form_helpers.h"
#include "core/numbers.h"
#include "core/session.h"
#include "core/stale.h"
#include "core/text_file.h"

namespace zelmo {

namespace {

constexpr int kHelpContext = 12131;
constexpr int kGrey = Rgb(128, 128, 128);

}  // namespace

MISched::MISched(Session& session) : Form("MISched"), session_(session) {
  caption = "Interior curtain schedule";
  help_context = kHelpContext;
  width = 7200;
  height = 5600;
  Label1.caption = "Month";
  Option3D1[0].caption = "Active night time (when sun is down)";
  Option3D1[1].caption = "Active day time (when sun is up)";
  Option3D1[2].caption = "According to schedule below:";
  Frame1.caption = "Hourly time table";
  Label2.caption = "Hourly profile (X = Curtain on)";
  Command3D5.caption = "&Fill";
  Command3D4.caption = "C&lear";
  Command3D3.caption = "Copy &month";
  Command1.caption = "&OK";
  Command2.caption = "&Cancel";
  Command3.caption = "&Help";
  default_button = "Command1";
  cancel_button = "Command2";
  MonthList.on_click = [this] { MonthClick(); };
  for (int i = 0; i < 3; ++i) Option3D1[i].on_click = [this, i] { OptionClick(i); };
  for (int hour = 0; hour < kMaskHours; ++hour) {
    Check3D1[hour].caption = std::to_string(hour + 1);
    Check3D1[hour].on_click = [this, hour] { HourClick(hour); };
  }
  Command3D5.on_click = [this] { Fill(); };
  Command3D4.on_click = [this] { ClearHours(); };
  Command3D3.on_click = [this] { CopyMonth(); };
  Command1.on_click = [this] { Ok(); };
  Command2.on_click = [this] { Cancel(); };
  Command3.on_click = [this] { Help(); };
}

void MISched::Load() {
  CenterForm(*this, session_.ws);
  months_ = ReadMISched(session_.ws);
  MonthList.Clear();
  for (int month = 1; month <= kMonths; ++month) MonthList.AddItem(std::to_string(month));
  MonthList.list_index = 0;
  MonthClick();
  dirty_ = false;
}

int MISched::ShownIndex() const {
  return MonthList.list_index < 0 || MonthList.list_index >= kMonths ? 0 : MonthList.list_index;
}

void MISched::MonthClick() {
  const MonthSchedule& month = Shown();
  const int mode = ValInt(month.mode);
  for (int i = 0; i < 3; ++i) Option3D1[i].value = i == mode ? 1 : 0;
  for (int hour = 0; hour < kMaskHours; ++hour) {
    const bool on = hour < static_cast<int>(month.mask.size()) && month.mask[hour] == '1';
    Check3D1[hour].value = on ? 1 : 0;
  }
  EnableHours(mode == 2);
}

void MISched::EnableHours(bool hourly) {
  for (auto& box : Check3D1) {
    box.enabled = hourly;
    box.fore_color = hourly ? kDefaultColor : kGrey;
  }
  Label2.fore_color = hourly ? kDefaultColor : kGrey;
  Command3D4.enabled = Command3D5.enabled = hourly;
}

void MISched::OptionClick(int index) {
  for (int i = 0; i < 3; ++i) Option3D1[i].value = i == index ? 1 : 0;
  // The hours stay stored whatever the mode, for a return to the profile.
  Shown().mode = std::to_string(index);
  EnableHours(index == 2);
  dirty_ = true;
}

void MISched::HourClick(int hour) {
  std::string& mask = Shown().mask;
  if (static_cast<int>(mask.size()) < kMaskHours) mask.resize(kMaskHours, '0');
  mask[hour] = Check3D1[hour].value != 0 ? '1' : '0';
  dirty_ = true;
}

void MISched::Fill() {
  for (int hour = 0; hour < kMaskHours; ++hour) {
    Check3D1[hour].value = 1;
    HourClick(hour);
  }
}

void MISched::ClearHours() {
  for (int hour = 0; hour < kMaskHours; ++hour) {
    Check3D1[hour].value = 0;
    HourClick(hour);
  }
}

void MISched::CopyMonth() {
  std::string answer = TrimBlanks(
      AskInput(session_, "Target month (0= all other) ", "", "Copy month", 2, -1, 0, 12, false));
  if (answer.empty()) return;
  const double target = IsSignedNumberText(answer) ? std::nearbyint(Val(answer)) : -1;
  if (!(target >= 0 && target <= kMonths)) {
    session_.dialogs->MsgBox("Wrong Value ", mb::kExclamation, "MESSAGE");
    return;
  }
  const int shown = ShownIndex();
  for (int month = 0; month < kMonths; ++month) {
    if (month == shown) continue;
    if (target == 0 || month + 1 == target) months_[month] = months_[shown];
  }
  dirty_ = true;
}

void MISched::Save() {
  const Workspace& ws = session_.ws;
  if (!WriteMISched(ws, months_)) {
    FailWrite(JoinPath(ws.CasePath, kMISchedFile));
  }
  // The curtain schedule feeds the last two modules, as the site does.
  MarkModulesStale(ws, ws.CasePath, kSiteModules);
  dirty_ = false;
}

void MISched::Ok() {
  OkAndClose(
      *this, [] { return true; }, [this] { Save(); });
}

void MISched::Cancel() {
  CancelAskingToSave(
      *this, *session_.dialogs, dirty_, "Mi schedule", [] { return true; }, [this] { Save(); });
}

void MISched::Help() {
  if (session_.desktop) session_.desktop->ShowHelp(session_.ws.HelpFile, kHelpContext);
}

}  // namespace zelmo
