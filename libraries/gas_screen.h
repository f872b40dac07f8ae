// Gases, "Gas types": the gas type library of the project in one grid, with
// Addgas, the nine inputs of one gas.
#pragma once

#include <array>
#include <string>

#include "core/controls.h"
#include "libraries/gas_lib.h"

namespace zelmo {

struct Session;

inline constexpr int kGasesHelp = 12030;

class Addgas : public Form {
 public:
  explicit Addgas(Session& session);
  void Load() override;
  void QueryUnload() override { Cancel(); }
  void Ok();
  void Cancel();
  bool accepted = false;

  // The inputs in column order.
  std::array<TextBox*, kGasFields> Inputs();

  Label Label1{this, "Label1"};
  TextBox namegas{this, "namegas"};
  Label Label2{this, "Label2"};
  TextBox k{this, "k"};
  Label Label3{this, "Label3"};
  TextBox dk{this, "dk"};
  Label Label4{this, "Label4"};
  TextBox u{this, "u"};
  Label Label5{this, "Label5"};
  TextBox du{this, "du"};
  Label Label6{this, "Label6"};
  TextBox r{this, "r"};
  Label Label7{this, "Label7"};
  TextBox dr{this, "dr"};
  Label Label8{this, "Label8"};
  TextBox p{this, "p"};
  Label Label9{this, "Label9"};
  TextBox dp{this, "dp"};
  // Units of the values.
  Label Label10{this, "Label10"};
  Label Label11{this, "Label11"};
  Label Label12{this, "Label12"};
  Label Label13{this, "Label13"};
  Button OK{this, "OK"};
  Button Command2{this, "Command2"};
  Button Command3{this, "Command3"};

 private:
  Session& session_;
};

class Gases : public Form {
 public:
  explicit Gases(Session& session);
  void Load() override;
  void QueryUnload() override { Cancel(); }

  void AddGas();     // Command4
  void InsertGas();  // Command7
  void EditGas();    // Command5
  void DeleteGas();  // Command6
  // The grid into the table, Gastp.INP, and every module of every case
  // stale.
  void Ok();
  void Cancel() { Unload(); }

  int GasCount() const { return gas_count_; }
  int GasCurrentRow = 1;

  Label Label1{this, "Label1"};
  Grid Grid1{this, "Grid1"};
  Button Command4{this, "Command4"};
  Button Command7{this, "Command7"};
  Button Command5{this, "Command5"};
  Button Command6{this, "Command6"};
  Button Command1{this, "Command1"};
  Button Command2{this, "Command2"};
  Button Command3{this, "Command3"};

 private:
  bool AtLimit();
  // Addgas with `title` and the cells; false on Cancel.
  bool AskGas(const std::string& title, std::array<std::string, kGasFields>& cells);
  void PutRow(int row, const std::array<std::string, kGasFields>& cells);
  // The current row when it holds a gas, otherwise 0.
  int SelectedRow() const;

  Session& session_;
  int gas_count_ = 0;
};

}  // namespace zelmo
