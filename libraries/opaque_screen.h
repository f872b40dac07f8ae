// OpaqueMtrl, "Opaque materials": the project's material library in a grid,
// with its editor AddOpaque. The predefined materials (Type 47 and lower)
// are shown only; the user's own are added with the lowest free Type from
// 48, changed, and deleted when no wall uses them.
#pragma once

#include <string>

#include "core/controls.h"
#include "libraries/opaque_lib.h"

namespace zelmo {

struct Session;
class OpaqueMtrl;

class AddOpaque : public Form {
 public:
  AddOpaque(Session& session, OpaqueMtrl& owner);

  void Load() override;
  void QueryUnload() override { Cancel(); }

  // Checks the four fields; all faults in one box, the focus on the first.
  bool CheckMaterial();
  // After the check, stores the material in the owner's grid and closes.
  void Ok();
  void Cancel() { Unload(); }
  void Help();

  Label Label1{this, "Label1"};
  TextBox Mtrl{this, "Mtrl"};
  Label Label2{this, "Label2"};
  TextBox Conduct{this, "Conduct"};
  Label Label3{this, "Label3"};
  TextBox Heat{this, "Heat"};
  Label Label4{this, "Label4"};
  TextBox Density{this, "Density"};
  Label Label5{this, "Label5"};
  Button Command1{this, "Command1"};
  Button Command2{this, "Command2"};
  Button Command3{this, "Command3"};

 private:
  Session& session_;
  OpaqueMtrl& owner_;
};

class OpaqueMtrl : public Form {
 public:
  explicit OpaqueMtrl(Session& session);

  void Load() override;
  void QueryUnload() override { Cancel(); }

  // The selected row changed: a predefined material can be neither changed
  // nor deleted.
  void SelectionChanged();
  void Add();
  void Edit();
  void Delete();
  // Writes OPAQUE.LIB, changed or not, and closes.
  void Ok();
  void Cancel();
  void Help();

  // Puts a material checked by the editor into the grid: a new Type in its
  // place by number, a known one over its row.
  void StoreNew(const std::string& type, const std::array<std::string, 4>& fields);
  void StoreChanged(const std::array<std::string, 4>& fields);
  // OPAQUE.LIB from the grid. Throws FileError when it cannot be written.
  void Save();

  // True once the screen has written the file: the walls' material list
  // must be read again.
  bool written() const { return written_; }

  // When not empty, the row whose Type it is is selected on showing.
  std::string Tag;

  int OpaqueCount = 0;
  int PredefinedMaterialCount = 0;
  int MaterialRowLimit = 0;
  int MaterialNumberOffset = 0;
  bool OpaqueDirty = false;

  Label Label1{this, "Label1"};
  Grid OpaqueList{this, "OpaqueList"};
  Button Command1{this, "Command1"};
  Button Command2{this, "Command2"};
  Button Command3{this, "Command3"};
  Button Command4{this, "Command4"};
  Button Command5{this, "Command5"};
  Button Command6{this, "Command6"};

 private:
  std::string TypeOf(int row) const;
  OpaqueTable GridRows();

  Session& session_;
  bool written_ = false;
};

}  // namespace zelmo
