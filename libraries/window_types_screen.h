// Wind_Types, "Window types": the window type library of the project, with
// AddGaGl, one pane and the gap in front of it.
#pragma once

#include <string>

#include "core/controls.h"
#include "libraries/window_properties.h"
#include "libraries/window_types_lib.h"

namespace zelmo {

struct Session;

inline constexpr int kWindowTypesHelp = 12005;
inline constexpr int kAddGaGlHelp = 12040;

class AddGaGl : public Form {
 public:
  explicit AddGaGl(Session& session);
  // Fills the combos from Glasstp.INP and Gastp.INP and selects the glass
  // and gas given below.
  void Load() override;
  void QueryUnload() override { Cancel(); }
  void ReversedClicked();  // Check1
  void Ok();
  void Cancel();

  // Set by the caller before the form is shown: what the pane is for (the
  // first pane has no gap in front of it) and what to select.
  int PaneEditCode = 0;
  std::string preset_glass, preset_gas;
  bool accepted = false;

  Label Label1{this, "Label1"};
  ComboBox Combo1{this, "Combo1"};
  Label Label2{this, "Label2"};
  ComboBox Combo2{this, "Combo2"};
  Label Label3{this, "Label3"};
  TextBox Text1{this, "Text1"};
  CheckBox Check1{this, "Check1"};
  Label Label5{this, "Label5"};
  Button Command1{this, "Command1"};
  Button Command2{this, "Command2"};
  Button Command3{this, "Command3"};

 private:
  Session& session_;
};

class Wind_Types : public Form {
 public:
  explicit Wind_Types(Session& session);

  // Reads Wndtp.LIB and shows the first type with its properties.
  void Load() override;
  void QueryUnload() override { Cancel(); }

  // A type chosen in List1 by the user: the present one is stored and
  // written, the chosen one shown with its properties.
  void TypeChosen();
  void NewType();     // Command1
  void DeleteType();  // Command2
  void AddPane();     // Command6
  void InsertPane();  // Command7
  void DeletePane();  // Command8
  void EditPane();    // Command9
  void OpenGlassTypes();
  void OpenGases();
  void Ok();
  // What earlier steps wrote stays written.
  void Cancel() { Unload(); }

  const WindowTable& table() const { return table_; }

  // The calculation of the window properties; a test may give another.
  WindowProperties* properties;

  int WindowCurrentIndex = -1;
  int PaneCount = 0;
  int PaneEditCode = 0;

  Label Label1{this, "Label1"};
  ListBox List1{this, "List1"};
  Button Command1{this, "Command1"};
  Button Command2{this, "Command2"};
  Label Label2{this, "Label2"};
  Grid Grid1{this, "Grid1"};
  Button Command6{this, "Command6"};
  Button Command7{this, "Command7"};
  Button Command8{this, "Command8"};
  Button Command9{this, "Command9"};
  Frame Frame1{this, "Frame1"};
  Label Label3{this, "Label3"};
  TextBox UValue{this, "UValue"};
  Label Label4{this, "Label4"};
  Label Label5{this, "Label5"};
  TextBox GVAlue{this, "GVAlue"};
  Label Label6{this, "Label6"};
  Label Label7{this, "Label7"};
  TextBox Tsol{this, "Tsol"};
  Label Label8{this, "Label8"};
  Frame Frame2{this, "Frame2"};
  Button Command10{this, "Command10"};
  Button Command11{this, "Command11"};
  Button Command3{this, "Command3"};
  Button Command4{this, "Command4"};
  Button Command5{this, "Command5"};

 private:
  int NumberOf(int index) const;
  std::string NameOf(int index) const;
  // Clears the grid and the properties, then shows the type of list item
  // `index` from the table.
  void ShowType(int index);
  void ClearType();
  void StoreType();
  // Wndtp.LIB written, every module of every case stale.
  void SaveTypes();
  // The pane of the selected row, or 0 on a gap row or an empty row.
  int SelectedPane() const;
  // AddGaGl for the pane; false on Cancel.
  bool AskPane(AddGaGl& form, const std::string& title);
  void PutPane(int row, int pane, const AddGaGl& form);
  void PutGap(int row, const AddGaGl& form);
  void PaneChanged();
  // The properties of the type shown, from the files as they are now: Wndw.Lib
  // is written and the type asked for. Nothing is shown when there is no type
  // or the library cannot be written, which `say_why` tells the user.
  void ShowProperties(bool say_why);

  Session& session_;
  WindowTable table_;
  GlazingWindowProperties glazing_properties_;
};

}  // namespace zelmo
