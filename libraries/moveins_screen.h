// MoveIns, "Interior curtains": the project's curtain library in a grid, with
// AddMoveIns, the small form that adds or edits one curtain.
#pragma once

#include <string>

#include "core/controls.h"
#include "libraries/moveins_lib.h"

namespace zelmo {

struct Session;

class MoveIns : public Form {
 public:
  explicit MoveIns(Session& session);

  // The curtains of MOVEINS.LIB as rows; an empty library shows one blank row.
  void Load() override;
  void QueryUnload() override { Cancel(); }

  // Opens AddMoveIns for the lowest free number.
  void Add();
  // Opens AddMoveIns on the selected curtain.
  void Edit();
  // Removes the selected curtain unless a window uses it.
  void Delete();
  void Ok();
  // Asks about unsaved changes, then closes or stays.
  void Cancel();
  void Help();

  // The lowest number from 1 that no row holds in its place.
  int NextCurtainNumber() const;
  // A new curtain from AddMoveIns: placed by its number and selected.
  void StoreNew(const std::string& number, const CurtainRecord& values);
  // The four values of the selected curtain from AddMoveIns.
  void StoreEdit(const CurtainRecord& values);
  // MOVEINS.LIB from the rows. Throws FileError when it cannot be written.
  void Save();

  bool dirty() const { return dirty_; }
  int CurtainCount() const { return curtain_count_; }

  Grid MoveInsList{this, "MoveInsList"};
  Button Command3D1{this, "Command3D1"};
  Button Command3D2{this, "Command3D2"};
  Button Command3D4{this, "Command3D4"};
  Button Command1{this, "Command1"};
  Button Command2{this, "Command2"};
  Button Command3{this, "Command3"};

 private:
  void UpdateButtons();

  Session& session_;
  int curtain_count_ = 0;
  bool dirty_ = false;
};

class AddMoveIns : public Form {
 public:
  // `edit` false: a new curtain with `number`; true: the selected curtain of
  // `owner`, whose values the fields start with.
  AddMoveIns(Session& session, MoveIns& owner, bool edit, const std::string& number);

  void Load() override;
  // The four rules in one box, the focus on the first faulty field.
  bool CheckAddMoveIns();
  void Ok();
  void Cancel() { Unload(); }

  Label Label4{this, "Label4"};
  Label Label5{this, "Label5"};
  TextBox NAmeMI{this, "NAmeMI"};
  Label Label1{this, "Label1"};
  TextBox Solar{this, "Solar"};
  Label Label2{this, "Label2"};
  TextBox Absorp{this, "Absorp"};
  Label Label3{this, "Label3"};
  TextBox RValue{this, "RValue"};
  Button Command1{this, "Command1"};
  Button Command2{this, "Command2"};

 private:
  Session& session_;
  MoveIns& owner_;
  bool edit_;
};

}  // namespace zelmo
