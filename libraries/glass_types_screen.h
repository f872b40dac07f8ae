// Glass_types, "Glass types": the glass type library of the project, with
// AddAngle, the row of the angle table, and AddGlass, the entry of the older
// glass list.
#pragma once

#include <array>
#include <string>

#include "core/controls.h"
#include "libraries/glass_lib.h"

namespace zelmo {

struct Session;

inline constexpr int kGlassTypesHelp = 12006;

// One row of the angle table: transmission and the reflections of the front
// and the back. Its title says what the row is for: "Add data", "Insert
// data" or "Edit data".
class AddAngle : public Form {
 public:
  explicit AddAngle(Session& session);
  void Load() override;
  void QueryUnload() override { Cancel(); }
  void Ok();
  void Cancel();
  // Set by a checked Ok.
  bool accepted = false;

  Label Label1{this, "Label1"};
  TextBox transm{this, "transm"};
  Label Label2{this, "Label2"};
  Label Label3{this, "Label3"};
  TextBox Absf{this, "Absf"};
  Label Label4{this, "Label4"};
  Label Label5{this, "Label5"};
  TextBox Absb{this, "Absb"};
  Label Label6{this, "Label6"};
  Button Command1{this, "Command1"};
  Button Command2{this, "Command2"};

 private:
  Session& session_;
};

// A glass of GLASS.LIB: name, transmittance and reflectance. Nothing opens
// it; it keeps its checks for the list it belongs to.
class AddGlass : public Form {
 public:
  explicit AddGlass(Session& session);
  void Ok();
  void Cancel() { Unload(); }
  bool accepted = false;

  Label Label1{this, "Label1"};
  TextBox Text1{this, "Text1"};
  Label Label2{this, "Label2"};
  TextBox Text2{this, "Text2"};
  Label Label3{this, "Label3"};
  TextBox Text3{this, "Text3"};
  Button Command1{this, "Command1"};
  Button Command2{this, "Command2"};

 private:
  Session& session_;
};

class Glass_types : public Form {
 public:
  explicit Glass_types(Session& session);

  // Reads Glasstp.INP and shows the first glass.
  void Load() override;
  void QueryUnload() override { Cancel(); }

  // Another glass chosen in List1: the present one must pass its checks.
  void GlassChosen();
  // Combo1: only what is shown changes; the fields keep their values.
  void DataTypeChosen();
  void NewGlass();     // Command1
  void DeleteGlass();  // Command2
  void AddRow();       // Command4
  void InsertRow();    // Command5
  void DeleteRow();    // Command6
  void EditRow();      // Command7
  // Checks, stores, writes Glasstp.INP and marks every module of every case.
  void Ok();
  void Cancel() { Unload(); }

  // The checks of the glass shown, all in one box.
  bool CheckGlass();

  const GlassTable& table() const { return table_; }
  int AngleRows() const { return rows_; }

  Label Label1{this, "Label1"};
  ListBox List1{this, "List1"};
  Button Command1{this, "Command1"};
  Button Command2{this, "Command2"};
  Label Label2{this, "Label2"};
  Label Label3{this, "Label3"};
  TextBox text1{this, "text1"};
  Label Label4{this, "Label4"};
  Label Label5{this, "Label5"};
  TextBox Text2{this, "Text2"};
  Label Label6{this, "Label6"};
  Label Label7{this, "Label7"};
  ComboBox Combo1{this, "Combo1"};
  Label Label15{this, "Label15"};
  // The Fresnel data or the normal values, with their labels and units.
  Label Label8{this, "Label8"};
  TextBox Text3{this, "Text3"};
  Label Label11{this, "Label11"};
  Label Label9{this, "Label9"};
  TextBox Text4{this, "Text4"};
  Label Label12{this, "Label12"};
  Label Label10{this, "Label10"};
  TextBox Text5{this, "Text5"};
  Label Label13{this, "Label13"};
  // The angle table.
  Label Label14{this, "Label14"};
  Grid Grid1{this, "Grid1"};
  Button Command4{this, "Command4"};
  Button Command5{this, "Command5"};
  Button Command6{this, "Command6"};
  Button Command7{this, "Command7"};
  Button Command3{this, "Command3"};
  Button Command8{this, "Command8"};
  Button Command9{this, "Command9"};

 private:
  void FillList();
  void ShowGlass(int index);
  void StoreGlass(int index);
  void ClearScreen();
  void ShowDataType();
  void WriteAngles();
  // The selected angle row when it is one in use, otherwise 0.
  int SelectedRow() const;
  // AddAngle with `title` and the cells; false on Cancel.
  bool AskAngle(const std::string& title, std::array<std::string, 3>& cells);
  void PutRow(int row, const std::array<std::string, 3>& cells);
  void MoveRow(int from, int to);

  Session& session_;
  GlassTable table_;
  int current_ = -1;  // list index of the glass shown
  int rows_ = 0;      // angle rows in use
};

}  // namespace zelmo
