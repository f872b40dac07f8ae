#include "site/site_screen.h"

#include "building/genpars.h"
#include "core/fields.h"
#include "core/file_system.h"
#include "core/form_helpers.h"
#include "core/numbers.h"
#include "core/session.h"
#include "core/text_file.h"
#include "site/climate_file.h"
#include "site/site_file.h"

namespace zelmo {

namespace {

constexpr const char* kCheckTitle = "Site / Period / Climate - Check";
constexpr int kSiteHelpContext = 12140;
constexpr int kWindRed = Rgb(250, 0, 0);
constexpr int kBlack = Rgb(0, 0, 0);
constexpr size_t kMaxClimatePath = 60;

// The number rule of the checks: the trimmed text a plain number whose single
// precision value lies within the bounds.
bool InBounds(const std::string& text, double low, double high) {
  std::string value = TrimBlanks(text);
  if (!IsSignedNumberText(value)) return false;
  float number = static_cast<float>(Val(value));
  return number >= static_cast<float>(low) && number <= static_cast<float>(high);
}

std::string Bounds(double low, double high) {
  return "(" + NumText(low) + " - " + NumText(high) + ")";
}

std::string SiteHelpFile(const Workspace& ws) {
  return JoinPath(JoinPath(ws.ProgramDirectory, "Help_English"), "ZELMO_e.chm");
}

double DateNumber(const Control& year, const Control& month, const Control& day) {
  return Val(year.text) * 10000 + Val(month.text) * 100 + Val(day.text);
}

}  // namespace

Site::Site(Session& session) : Form("Site"), session_(session) {
  caption = "Site / Period / Climate";
  width = 13800;
  height = 9300;
  Label1.caption = "Latitude:";
  Label2.caption = "\xB0   ( -90.0 to 90.0, positive to the north )";
  Label3.caption = "Longitude:";
  Label4.caption = "\xB0  ( -180 to 180, poitive to the east )";
  Label5.caption = "Time meridian:";
  Label6.caption = "\xB0  ( -180 to 180, positive to the east )";
  Label7.caption = "Rotation of the x-axis from south:";
  Label8.caption =
      "\xB0   (-360.0 to 360.0, positive                       anti-clockwise, 0\xB0 if not set)";
  Label9.caption = "Climate data file:";
  Label10.caption = "( Postfix: CLI )";
  Windlabel.caption = "Message: ";
  Wind.caption = "Recalculate wind data for building height";
  Terrain.caption = "Terrain type";
  for (int i = 0; i < 4; ++i) Option5[i].caption = kTerrainTypes[i];
  Label11.caption = "Period of simulation:";
  Label12.caption = "First date:";
  Label13.caption = "Last date:";
  Label14.caption = "Year";
  Label15.caption = "Month";
  Label16.caption = "Day";
  Solarradiation.caption = "Solar radiation";
  Option1.caption = "Use hourly values from the climatic file";
  Option2.caption = "No sun";
  Temperatures.caption = "Outdoor temperatures";
  Option3.caption = "Use hourly values from the climatic file";
  Option4.caption = "Set temperature to ";
  Label17.caption = "\xB0 C";
  Command4.caption = "General parameters";
  Command1.caption = "&OK";
  Command2.caption = "&Cancel";
  Command3.caption = "&Help";
  default_button = "Command1";
  cancel_button = "Command2";
  help_context = kSiteHelpContext;

  for (TextBox* box : {&Latitude, &Longitude, &Timem, &Rotation, &FDYear, &FDMonth, &FDDay, &LDYear,
                       &LDMonth, &LDDay, &T_T}) {
    box->on_change = [this] { Dirty = true; };
  }
  Climate.on_change = [this] { ClimateChanged(); };
  File1.on_click = [this] { FileChosen(); };
  Drive1.on_click = [this] { DriveChosen(); };
  Dir1.on_dbl_click = [this] { DirOpened(); };
  Dir1.on_key_press = [this](int& key) {
    if (key != keys::kReturn) return;
    key = 0;
    DirOpened();
  };
  Wind.on_click = [this] { WindClicked(); };
  for (int i = 0; i < 4; ++i) Option5[i].on_click = [this, i] { TerrainChosen(i); };
  Option1.on_click = [this] { SolarChosen(false); };
  Option2.on_click = [this] { SolarChosen(true); };
  Option3.on_click = [this] { TemperatureChosen(false); };
  Option4.on_click = [this] { TemperatureChosen(true); };
  Command4.on_click = [this] { GeneralParameters(); };
  Command1.on_click = [this] { Ok(); };
  Command2.on_click = [this] { Cancel(); };
  Command3.on_click = [this] { Help(); };
}

std::string Site::StartFolder() const {
  const Workspace& ws = session_.ws;
  for (const std::string& folder :
       {JoinPath(ws.SystemPath, "Climate"), ws.SystemPath, ws.LocalPath, ws.CasePath}) {
    if (!folder.empty() && FolderExists(folder)) return folder;
  }
  return DriveRoots().front();
}

void Site::Load() {
  CenterForm(*this, session_.ws);
  std::vector<std::string> lines = ReadSite(session_.ws);
  bool found = false;
  if (lines.size() == kSiteLines) {
    SiteFirstLine first = ParseSiteFirstLine(lines[0]);
    Latitude.text = first.latitude;
    Wind.value = first.wind != 0 ? 1 : 0;
    TerrainIndex = first.terrain >= 0 && first.terrain <= 3 ? first.terrain : 0;
    Longitude.text = lines[1];
    Timem.text = lines[2];
    Rotation.text = lines[3];
    Climate.text = lines[4];
    FDYear.text = lines[5];
    FDMonth.text = lines[6];
    FDDay.text = lines[7];
    LDYear.text = lines[8];
    LDMonth.text = lines[9];
    LDDay.text = lines[10];
    SolarSwitch = lines[11] == "1" ? 1 : 0;
    TempSwitch = lines[12] == "1" ? 1 : 0;
    T_T.text = lines[13] == kNoSetTemperature ? " " : lines[13];
    const std::string& climate = Climate.text;
    if (!climate.empty() && FileCanOpen(climate)) {
      found = lists_.SetFolder(ParentFolder(climate));
      for (size_t i = 0; found && i < File1.items.size(); ++i) {
        if (EqualsIgnoringCase(File1.items[i], LastName(climate))) {
          File1.list_index = static_cast<int>(i);
        }
      }
    } else {
      session_.dialogs->MsgBox(" No climatic data file found : " + climate, mb::kExclamation,
                               "Site");
    }
  } else {
    Rotation.text = "0";
    T_T.text = " ";
    Wind.value = 0;
    TerrainIndex = 0;
    SolarSwitch = 0;
    TempSwitch = 0;
  }
  if (!found) lists_.SetFolder(StartFolder());
  for (int i = 0; i < 4; ++i) Option5[i].value = i == TerrainIndex ? 1 : 0;
  Option1.value = SolarSwitch == 0 ? 1 : 0;
  Option2.value = SolarSwitch;
  Option3.value = TempSwitch == 0 ? 1 : 0;
  Option4.value = TempSwitch;
  ClimateChanged();
  ShowTerrain();
  Dirty = false;
}

void Site::ClimateChanged() {
  std::optional<bool> wind = ReadWindMark(Climate.text);
  Windlabel.visible = wind.has_value();
  Winddata.visible = wind.has_value();
  if (wind) {
    if (*wind) {
      Winddata.caption = "Hourly wind data is used in HVAC-calculations";
      Winddata.fore_color = kBlack;
      Wind.visible = true;
    } else {
      // Recalculation needs hourly wind from the file.
      Winddata.caption = "Hourly wind data is not used in HVAC-calculations";
      Winddata.fore_color = kWindRed;
      Wind.value = 0;
      Terrain.visible = false;
      Wind.visible = false;
    }
  }
  Dirty = true;
}

void Site::FileChosen() {
  std::string name = File1.SelectedItem();
  if (name.empty()) return;
  std::string file = JoinPath(lists_.folder(), name);
  // A file gone since the list was filled changes nothing: the list shows
  // what is there now and the choice is abandoned.
  if (!FileCanOpen(file)) {
    lists_.Refresh();
    throw FileError(file, 0, "File not found");
  }
  // Every choice reads the file again, the one already chosen included: a
  // second click brings back what the file says.
  Climate.text = file;
  ClimateChanged();
  Latitude.text = ReadClimateKey(*session_.dialogs, file, ClimateKey::kLatitude);
  Longitude.text = ReadClimateKey(*session_.dialogs, file, ClimateKey::kLongitude);
  Timem.text = ReadClimateKey(*session_.dialogs, file, ClimateKey::kTimem);
  ClimateDates dates = ReadClimateDates(*session_.dialogs, file);
  FDYear.text = dates.first_year;
  FDMonth.text = dates.first_month;
  FDDay.text = dates.first_day;
  LDYear.text = dates.last_year;
  LDMonth.text = dates.last_month;
  LDDay.text = dates.last_day;
}

void Site::DriveChosen() { lists_.DriveChosen(); }

void Site::DirOpened() { lists_.DirOpened(); }

void Site::WindClicked() {
  ShowTerrain();
  Dirty = true;
}

void Site::TerrainChosen(int index) {
  TerrainIndex = index;
  for (int i = 0; i < 4; ++i) Option5[i].value = i == index ? 1 : 0;
  Dirty = true;
}

void Site::SolarChosen(bool no_sun) {
  SolarSwitch = no_sun ? 1 : 0;
  Option1.value = no_sun ? 0 : 1;
  Option2.value = no_sun ? 1 : 0;
  Dirty = true;
}

void Site::TemperatureChosen(bool set) {
  TempSwitch = set ? 1 : 0;
  Option3.value = set ? 0 : 1;
  Option4.value = set ? 1 : 0;
  Dirty = true;
}

bool Site::CheckSite() {
  // The inputs by focus number, from 1.
  TextBox* focus_inputs[] = {nullptr,  &Latitude, &Rotation, &FDYear, &FDMonth,   &FDDay, &LDYear,
                             &LDMonth, &LDDay,    &Climate,  &T_T,    &Longitude, &Timem};
  std::string message;
  int focus = 0;
  auto fault = [&message, &focus](const std::string& text, int number) {
    message += text + "\r";
    if (focus == 0) focus = number;
  };
  auto rule = [&fault](const Control& input, double low, double high, const std::string& word,
                       int number) {
    if (!InBounds(input.text, low, high))
      fault(word + " must be a value " + Bounds(low, high), number);
  };
  rule(Latitude, -90, 90, "Latitude", 1);
  rule(Rotation, -360, 360, "Rotation", 2);
  rule(FDYear, 1901, 2099, "Year", 3);
  rule(FDMonth, 1, 12, "Month", 4);
  rule(FDDay, 1, 31, "Day", 5);
  rule(LDYear, 1901, 2099, "Year", 6);
  rule(LDMonth, 1, 12, "Month", 7);
  rule(LDDay, 1, 31, "Day", 8);
  // The day's bound does not depend on the month: 31 February passes.
  if (DateNumber(FDYear, FDMonth, FDDay) > DateNumber(LDYear, LDMonth, LDDay)) {
    fault("Last date must be greater than First date", 3);
  }
  // The modules take the path in a field of 60 characters, cut at a blank.
  std::string climate = TrimBlanks(Climate.text);
  if (climate.find(' ') != std::string::npos || climate.size() > kMaxClimatePath ||
      !FileCanOpen(climate)) {
    fault("File does not exist, or length > 60 characters long, or have spaces in it", 9);
  }
  if (!TrimBlanks(T_T.text).empty()) rule(T_T, -70, 70, "Temperatur", 10);
  if (Option4.value != 0 && TrimBlanks(T_T.text).empty()) {
    fault("No outdoor temparture set !", 10);
  }
  rule(Longitude, -180, 180, "Longitude", 11);
  rule(Timem, -180, 180, "Time meridian", 12);
  if (focus == 0) return true;
  session_.dialogs->MsgBox(message, mb::kExclamation, kCheckTitle);
  TextBox* input = focus_inputs[focus];
  input->SetFocus();
  input->SelectAll();
  return false;
}

std::vector<std::string> Site::SiteLines() const {
  std::string temperature = TrimBlanks(T_T.text);
  return {SiteFirstLineText(Latitude.text, Wind.value != 0 ? 1 : 0, TerrainIndex),
          TrimBlanks(Longitude.text),
          TrimBlanks(Timem.text),
          TrimBlanks(Rotation.text),
          TrimBlanks(Climate.text),
          TrimBlanks(FDYear.text),
          TrimBlanks(FDMonth.text),
          TrimBlanks(FDDay.text),
          TrimBlanks(LDYear.text),
          TrimBlanks(LDMonth.text),
          TrimBlanks(LDDay.text),
          SolarSwitch != 0 ? "1" : "0",
          TempSwitch != 0 ? "1" : "0",
          temperature.empty() ? kNoSetTemperature : temperature};
}

void Site::Save() {
  const Workspace& ws = session_.ws;
  if (!WriteSite(ws, SiteLines(), Dirty)) {
    FailWrite(JoinPath(ws.CasePath, kSiteFile));
  }
  Dirty = false;
}

void Site::Ok() {
  OkAndClose(
      *this, [this] { return CheckSite(); }, [this] { Save(); });
}

void Site::Cancel() {
  CancelAskingToSave(
      *this, *session_.dialogs, Dirty, "Site", [this] { return CheckSite(); }, [this] { Save(); });
}

void Site::Help() {
  if (session_.desktop) session_.desktop->ShowHelp(SiteHelpFile(session_.ws), kSiteHelpContext);
}

void Site::GeneralParameters() {
  GenPars pars(session_);
  session_.dialogs->ShowModal(pars);
}

}  // namespace zelmo
