#include "building/genpars.h"

#include "core/form_helpers.h"
#include "core/numbers.h"
#include "core/session.h"
#include "core/stale.h"
#include "core/text_file.h"

namespace zelmo {

namespace {

constexpr const char* kTitle = "MESSAGE";
constexpr int kBlue = Rgb(0, 0, 255);

// The number rule of the checks: the trimmed text a plain number whose single
// precision value lies within the bounds.
bool InBounds(const std::string& text, double low, double high) {
  std::string value = TrimBlanks(text);
  if (!IsSignedNumberText(value)) return false;
  float number = static_cast<float>(Val(value));
  return number >= static_cast<float>(low) && number <= static_cast<float>(high);
}

std::string BoundsMessage(const std::string& word, double low, double high) {
  return word + " must be a value (" + NumText(low) + " - " + NumText(high) + ")";
}

}  // namespace

std::vector<std::string> ReadGenPars(const Workspace& ws, const std::vector<std::string>& inputs) {
  const std::string path = JoinPath(ws.CasePath, kGenParsFile);
  if (!FileCanOpen(path)) {
    std::vector<std::string> lines{"Y"};
    lines.insert(lines.end(), inputs.begin(), inputs.end());
    lines.push_back("Y");
    return lines;
  }
  TextReader reader(path);
  std::vector<std::string> lines;
  for (int i = 0; i < kGenParsLines; ++i) lines.push_back(reader.ReadTrimmedLine());
  return lines;
}

bool WriteGenPars(const Workspace& ws, const std::vector<std::string>& lines) {
  std::vector<std::string> trimmed;
  for (const auto& line : lines) trimmed.push_back(TrimBlanks(line));
  return WriteAllLines(JoinPath(ws.CasePath, kGenParsFile), trimmed);
}

GenPars::GenPars(Session& session) : Form("GenPars"), session_(session) {
  caption = "General Parameters";
  width = 6300;
  height = 4800;
  Label1.caption = "External IR radiation:";
  Option1[0].caption = "Yes";
  Option1[1].caption = "No";
  Label2.caption = "Ground reflectivity:";
  Label3.caption = "%";
  Label4.caption = "Soil resistance:";
  Label5.caption = "m2,K/W";
  Label6.caption = "Convective film coefficients:";
  Label7.caption = "Exterior:";
  Label8.caption = "W/m2,K";
  Label9.caption = "Interior";
  Label10.caption = "W/m2,K";
  Frame1.caption = "Interior";
  Option2.caption = "Calculate";
  Option3.caption = "Set";
  Label11.caption = "Loop first day:";
  Label12.caption = "times";
  Command1.caption = "&OK";
  Command2.caption = "&Cancel";
  default_button = "Command1";
  cancel_button = "Command2";

  for (int i = 0; i < 2; ++i) Option1[i].on_click = [this, i] { RadiationChosen(i); };
  Option2.on_click = [this] { CalculateChosen(); };
  Option3.on_click = [this] { SetChosen(); };
  for (TextBox* box : {&Reflect, &RSoil, &Exter, &Inter, &Loops}) {
    box->on_change = [this] { Changed(); };
  }
  Command1.on_click = [this] { Ok(); };
  Command2.on_click = [this] { Cancel(); };
}

void GenPars::Load() {
  CenterForm(*this, session_.ws);
  Reflect.text = "20";
  RSoil.text = "1.87";
  Exter.text = "11.0";
  Inter.text = "-1";
  Loops.text = "20";
  TextBox* inputs[] = {&Reflect, &RSoil, &Exter, &Inter, &Loops};
  std::vector<std::string> lines =
      ReadGenPars(session_.ws, {Reflect.text, RSoil.text, Exter.text, Inter.text, Loops.text});
  bool radiation = lines[0] == "Y";
  Option1[0].value = radiation ? 1 : 0;
  Option1[1].value = radiation ? 0 : 1;
  for (int i = 0; i < 5; ++i) {
    if (!lines[i + 1].empty()) inputs[i]->text = lines[i + 1];
  }
  bool calculate = lines[6] == "Y";
  Option2.value = calculate ? 1 : 0;
  Option3.value = calculate ? 0 : 1;
  Inter.enabled = !calculate;
  dirty_ = false;
}

void GenPars::RadiationChosen(int index) {
  Option1[index].value = 1;
  Option1[1 - index].value = 0;
  Exter.text = index == 0 ? "11.0" : "15.0";
  Exter.fore_color = kBlue;
  Changed();
}

void GenPars::CalculateChosen() {
  Option2.value = 1;
  Option3.value = 0;
  Inter.text = "-1";
  Inter.enabled = false;
  Changed();
}

void GenPars::SetChosen() {
  Option2.value = 0;
  Option3.value = 1;
  Inter.enabled = true;
  if (TrimBlanks(Inter.text) == "-1") Inter.text.clear();
  Changed();
}

bool GenPars::CheckGenPars() {
  std::string message;
  TextBox* first = nullptr;
  auto rule = [&message, &first](bool passes, TextBox& input, const std::string& text) {
    if (passes) return;
    message += text + "\r";
    if (!first) first = &input;
  };
  rule(InBounds(Reflect.text, 0, 100), Reflect, BoundsMessage("Reflectivity", 0, 100));
  rule(InBounds(RSoil.text, 0.01, 999), RSoil, BoundsMessage("R-soil", 0.01, 999));
  rule(InBounds(Exter.text, 0.01, 999), Exter, BoundsMessage("Exterior coeff.", 0.01, 999));
  // A calculated interior coefficient is written as -1.
  bool calculated = Option2.value != 0 && InBounds(Inter.text, -1, -1);
  rule(calculated || InBounds(Inter.text, 0.01, 999), Inter,
       BoundsMessage("Interior coeff.", 0.01, 999));
  rule(InBounds(Loops.text, 1, 99), Loops, BoundsMessage("Loops", 1, 99));
  if (!first) return true;
  session_.dialogs->MsgBox(message, mb::kExclamation, kTitle);
  first->SetFocus();
  first->SelectAll();
  return false;
}

void GenPars::Save() {
  const Workspace& ws = session_.ws;
  std::vector<std::string> lines{Option1[0].value != 0 ? "Y" : "N",
                                 Reflect.text,
                                 RSoil.text,
                                 Exter.text,
                                 Inter.text,
                                 Loops.text,
                                 Option2.value != 0 ? "Y" : "N"};
  if (!WriteGenPars(ws, lines)) {
    FailWrite(JoinPath(ws.CasePath, kGenParsFile));
  }
  // General parameters feed the last module only.
  MarkModulesStale(ws, ws.CasePath, kSixthModule);
  dirty_ = false;
}

void GenPars::Ok() {
  OkAndClose(
      *this, [this] { return CheckGenPars(); }, [this] { Save(); });
}

void GenPars::Cancel() {
  CancelAskingToSave(
      *this, *session_.dialogs, dirty_, "General parameters", [this] { return CheckGenPars(); },
      [this] { Save(); });
}

}  // namespace zelmo
