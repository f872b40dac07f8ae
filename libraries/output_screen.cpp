#include "libraries/output_screen.h"

#include <algorithm>

#include "building/surface_file.h"
#include "building/volumes.h"
#include "core/form_helpers.h"
#include "core/session.h"
#include "core/stale.h"
#include "core/text_file.h"

namespace zelmo {

namespace {

constexpr int kHelpContext = 12114;
constexpr int kGrey = Rgb(128, 128, 128);
constexpr int kRowPitch = 330;  // twips between volume rows

std::string Indexed(const char* name, int index) {
  return std::string(name) + "(" + std::to_string(index) + ")";
}

}  // namespace

Out_put::VolumeRow::VolumeRow(Form* form, int index)
    : Label3{form, Indexed("Label3", index)},
      Quantity{{form, Indexed("Check3D2", index)}, {form, Indexed("Check3D3", index)},
               {form, Indexed("Check3D4", index)}, {form, Indexed("Check3D5", index)},
               {form, Indexed("Check3D6", index)}, {form, Indexed("Check3D7", index)}},
      Check3D1{form, Indexed("Check3D1", index)} {}

Out_put::Out_put(Session& session) : Form("Out_put"), session_(session) {
  caption = "Output Specification";
  help_context = kHelpContext;
  width = 8400;
  height = 4700;
  Frame1.caption = "Output type";
  Option3D1[0].caption = "Monthly and yearly summaries";
  Option3D1[1].caption = "Detailed data one day per month";
  Option3D1[2].caption = "Hourly values";
  Frame2.caption = "Output parameters";
  Label2.caption = "Volumes";
  Label4.caption = "Tempe-";
  Label10.caption = "rature";
  Label5.caption = "Heating";
  Label6.caption = "Cooling";
  Label7.caption = "Sol(out)";
  Label8.caption = "Sol(in)";
  Label9.caption = "Sol(abs)";
  Frame3.caption = "Comfort";
  Label1.caption = "Volumes";
  Frame4.caption = "Write data to file";
  Check3D8.caption = "Write calculated data to file Vol_load";
  Check3D9.caption = "Write calculated data to file Surf_tmp";
  Command1.caption = "&OK";
  Command2.caption = "&Cancel";
  Command3.caption = "&Help";
  default_button = "Command1";
  cancel_button = "Command2";
  for (int i = 0; i < 3; ++i) Option3D1[i].on_click = [this, i] { OptionClick(i); };
  Check3D8.on_click = [this] { VolLoadClick(); };
  Check3D9.on_click = [this] { SurfTmpClick(); };
  Command1.on_click = [this] { Ok(); };
  Command2.on_click = [this] { Cancel(); };
  Command3.on_click = [this] { Help(); };
}

void Out_put::Load() {
  volumes_ = BuildVolumeList(ReadSurfaceVolumes(session_.ws));
  if (volumes_.empty()) {
    session_.dialogs->MsgBox("There are no volumes", mb::kExclamation, "MESSAGE");
    Unload();
    return;
  }
  std::optional<OutputSpec> spec = ReadOutputSpec(session_.ws);
  loading_ = true;
  // The rows are the screen's own controls from now on; the screen loads once.
  for (int i = static_cast<int>(rows_.size()); i < static_cast<int>(volumes_.size()); ++i) {
    auto row = std::make_unique<VolumeRow>(this, i);
    row->Label3.caption = row->Check3D1.caption = volumes_[i];
    for (auto& box : row->Quantity) box.on_click = [this] { QuantityClick(); };
    row->Check3D1.on_click = [this, i] { ComfortClick(i); };
    rows_.push_back(std::move(row));
  }
  height = 4700 + kRowPitch * static_cast<int>(volumes_.size() - 1);
  CenterForm(*this, session_.ws);

  int type = kMonthlySummaries;
  if (spec) {
    type = spec->OutputType();
    Check3D8.value = spec->WriteVolLoad() ? 1 : 0;
    Check3D9.value = spec->WriteSurfTmp() ? 1 : 0;
    // Rows go by volume name; a volume the elements no longer name is gone.
    for (const auto& line : spec->rows) {
      auto at = std::find(volumes_.begin(), volumes_.end(), line.volume);
      if (at == volumes_.end()) continue;
      VolumeRow& row = *rows_[at - volumes_.begin()];
      for (int k = 0; k < kOutputQuantities; ++k) {
        row.Quantity[k].value = IsFlagOn(line.flags[k]) ? 1 : 0;
      }
      row.Check3D1.value = IsFlagOn(line.flags[kComfortFlag]) ? 1 : 0;
    }
  }
  for (int i = 0; i < 3; ++i) Option3D1[i].value = i == type ? 1 : 0;
  ApplyEnabling();
  loading_ = false;
  dirty_ = false;
}

int Out_put::OutputType() const {
  for (int i = 0; i < 3; ++i) {
    if (Option3D1[i].value != 0) return i;
  }
  return kMonthlySummaries;
}

void Out_put::ApplyEnabling() {
  const bool hourly = OutputType() == kHourlyValues;
  Frame4.enabled = Check3D8.enabled = Check3D9.enabled = hourly;
  SetOutputBlock(hourly && Check3D8.value != 0);
  SetComfortBlock(hourly && Check3D9.value != 0);
}

void Out_put::SetOutputBlock(bool on) {
  const int color = on ? kDefaultColor : kGrey;
  Frame2.enabled = on;
  for (Label* heading : {&Label2, &Label4, &Label10, &Label5, &Label6, &Label7, &Label8, &Label9}) {
    heading->fore_color = color;
  }
  for (auto& row : rows_) {
    row->Label3.fore_color = color;
    for (auto& box : row->Quantity) box.enabled = on;
  }
}

void Out_put::SetComfortBlock(bool on) {
  Frame3.enabled = on;
  Label1.fore_color = on ? kDefaultColor : kGrey;
  for (auto& row : rows_) row->Check3D1.enabled = on;
}

void Out_put::OptionClick(int index) {
  for (int i = 0; i < 3; ++i) Option3D1[i].value = i == index ? 1 : 0;
  // Hourly values write both data files, from where the user can turn them off.
  if (index == kHourlyValues) Check3D8.value = Check3D9.value = 1;
  ApplyEnabling();
  if (!loading_) dirty_ = true;
}

void Out_put::VolLoadClick() {
  ApplyEnabling();
  dirty_ = true;
}

void Out_put::SurfTmpClick() {
  ApplyEnabling();
  dirty_ = true;
}

void Out_put::QuantityClick() { dirty_ = true; }

void Out_put::ComfortClick(int row) {
  for (int i = 0; i < static_cast<int>(rows_.size()); ++i) {
    rows_[i]->Check3D1.value = i == row ? 1 : 0;
  }
  if (loading_) return;
  // The comfort volume changes what every module has to deliver.
  MarkModulesStale(session_.ws, session_.ws.CasePath, kAllModules);
  dirty_ = true;
}

bool Out_put::CheckComfort() {
  int chosen = 0;
  for (const auto& row : rows_) chosen += row->Check3D1.value != 0 ? 1 : 0;
  if (chosen < 2) return true;
  session_.dialogs->MsgBox("Only one volume can be selected for comfort calculations ",
                           mb::kExclamation, "Message");
  return false;
}

void Out_put::Save() {
  OutputChoice choice;
  choice.type = OutputType();
  choice.vol_load = Check3D8.value != 0;
  choice.surf_tmp = Check3D9.value != 0;
  for (size_t i = 0; i < rows_.size(); ++i) {
    OutputChoice::Row row{volumes_[i], {}};
    for (int k = 0; k < kOutputQuantities; ++k) row.flags[k] = rows_[i]->Quantity[k].value != 0;
    row.flags[kComfortFlag] = rows_[i]->Check3D1.value != 0;
    choice.rows.push_back(row);
  }
  const Workspace& ws = session_.ws;
  if (!WriteOutputSpec(ws, choice)) {
    FailWrite(JoinPath(ws.CasePath, kOutputFile));
  }
  // What the modules report concerns the last module only.
  MarkModulesStale(ws, ws.CasePath, kSixthModule);
  dirty_ = false;
}

void Out_put::Ok() {
  OkAndClose(
      *this, [this] { return CheckComfort(); }, [this] { Save(); });
}

void Out_put::Cancel() {
  CancelAskingToSave(
      *this, *session_.dialogs, dirty_, "Output", [this] { return CheckComfort(); },
      [this] { Save(); });
}

void Out_put::Help() {
  if (session_.desktop) session_.desktop->ShowHelp(session_.ws.HelpFile, kHelpContext);
}

}  // namespace zelmo
