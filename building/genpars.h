// GenPars, "General Parameters": the seven values of a case that concern the
// whole building (GENPARS.INP): external long-wave radiation, ground
// reflectivity, soil resistance, the convective film coefficients and the
// number of passes over the first day.
#pragma once

#include <string>
#include <vector>

#include "core/controls.h"

namespace zelmo {

struct Session;
struct Workspace;

inline constexpr const char* kGenParsFile = "GENPARS.INP";
inline constexpr int kGenParsLines = 7;

// The seven lines of GENPARS.INP, trimmed. When the file cannot be opened:
// "Y", the five texts of `inputs` (reflectivity, soil resistance, exterior,
// interior, loops) and "Y". A file cut short throws FileError.
std::vector<std::string> ReadGenPars(const Workspace& ws, const std::vector<std::string>& inputs);
// The seven lines, each the trimmed value alone. False when not written.
bool WriteGenPars(const Workspace& ws, const std::vector<std::string>& lines);

class GenPars : public Form {
 public:
  explicit GenPars(Session& session);

  // The defaults, then the values of the file.
  void Load() override;
  void QueryUnload() override { Cancel(); }

  // External IR radiation Yes (0) or No (1): the exterior coefficient that
  // goes with it, shown in blue.
  void RadiationChosen(int index);
  // Interior coefficient calculated ("-1", not editable) or set.
  void CalculateChosen();
  void SetChosen();

  // The five bounds; all faults in one box, the focus on the first.
  bool CheckGenPars();
  // GENPARS.INP, then the last module of the case stale. Throws FileError
  // when the file cannot be written.
  void Save();
  void Ok();
  // Asks about unsaved changes, then closes or stays.
  void Cancel();

  bool dirty() const { return dirty_; }

  Label Label1{this, "Label1"};
  OptionButton Option1[2]{{this, "Option1(0)"}, {this, "Option1(1)"}};
  Label Label2{this, "Label2"};
  TextBox Reflect{this, "Reflect"};
  Label Label3{this, "Label3"};
  Label Label4{this, "Label4"};
  TextBox RSoil{this, "RSoil"};
  Label Label5{this, "Label5"};
  Label Label6{this, "Label6"};
  Label Label7{this, "Label7"};
  TextBox Exter{this, "Exter"};
  Label Label8{this, "Label8"};
  Label Label9{this, "Label9"};
  TextBox Inter{this, "Inter"};
  Label Label10{this, "Label10"};
  Frame Frame1{this, "Frame1"};
  OptionButton Option2{this, "Option2"};
  OptionButton Option3{this, "Option3"};
  Label Label11{this, "Label11"};
  TextBox Loops{this, "Loops"};
  Label Label12{this, "Label12"};
  Button Command1{this, "Command1"};
  Button Command2{this, "Command2"};

 private:
  void Changed() { dirty_ = true; }

  Session& session_;
  bool dirty_ = false;
};

}  // namespace zelmo
