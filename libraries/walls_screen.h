// Walls, "Walls / Floors / Roofs / Doors": the project's constructions
// (WALLS.LIB). A wall is a named stack of up to 20 layers, each an opaque
// material by its Type and a thickness; the screen shows the layers with
// their materials and the wall's U-value.
#pragma once

#include <string>

#include "core/controls.h"
#include "libraries/opaque_lib.h"
#include "libraries/walls_lib.h"

namespace zelmo {

struct Session;

class Walls : public Form {
 public:
  explicit Walls(Session& session);

  void Load() override;
  void QueryUnload() override { Cancel(); }

  // A wall chosen in WallList: its layers, its U-value and the buttons.
  void WallListClick();
  // A wall must keep at least one layer; false (with the message) when the
  // wall shown has none.
  bool LayerCheck();

  void AddWall();     // Command3D1
  void CopyWall();    // Command3D6
  void RenameWall();  // Command3D7
  void DeleteWall();  // Command3D4
  // Command3D2 and Command3D3: the material list over the wall list, each
  // material clicked a layer appended (tag "2") or inserted before the
  // selected layer (tag "3"). Command3D3 reads "Cl&ose" meanwhile.
  void AddLayers();
  void InsertLayersOrClose();
  void CloseMaterials();
  void MaterialClicked(int index);
  void DeleteLayer();    // Command3D5
  void EditThickness();  // Command3D9
  // The "Opaque materials" button: the material library, after whose save
  // the material list is read again.
  void OpaqueMaterials();
  void Ok();
  void Cancel();
  void Help();

  // WALLS.LIB from the tables, then every module of every case stale.
  // Throws FileError when it cannot be written.
  void Save();

  bool dirty() const { return dirty_; }
  const WallsLib& tables() const { return lib_; }
  // The wall shown: its number, or 0.
  int CurrentWall() const;

  Label Label1{this, "Label1"};
  ListBox WallList{this, "WallList"};
  Button Command3D1{this, "Command3D1"};
  Button Command3D6{this, "Command3D6"};
  Button Command3D7{this, "Command3D7"};
  Button Command3D4{this, "Command3D4"};
  Label Label2{this, "Label2"};
  Grid WallLayerList{this, "WallLayerList"};
  ListBox MtrlList{this, "MtrlList"};
  Button Command3D2{this, "Command3D2"};
  Button Command3D3{this, "Command3D3"};
  Button Command3D5{this, "Command3D5"};
  Button Command3D9{this, "Command3D9"};
  Label Label3{this, "Label3"};
  TextBox UvalueWall{this, "UvalueWall"};
  Label Label4{this, "Label4"};
  Frame Frame1{this, "Frame1"};
  Button Command3D8{this, "Command3D8"};
  Button Command1{this, "Command1"};
  Button Command2{this, "Command2"};
  Button Command3{this, "Command3"};

 private:
  void ReadMaterials();
  void FillWallList();
  // Shows the wall at `index` of the list (-1: none) without the layer
  // check, as the screen does when it moves the selection itself.
  void ShowWall(int index);
  // The U-value of the wall shown, from its layers and materials as they
  // are now; empty with no wall.
  void ShowUValue();
  void UpdateButtons();
  // The grid's layers back into the tables, numbered from 1.
  void StoreGridLayers();
  // Asks for a name that no wall in the list has; empty when none is given.
  std::string AskNewName(const std::string& prompt, const std::string& default_text,
                         const std::string& title, const std::string& duplicate,
                         const std::string& duplicate_title);
  // Asks for a thickness until it passes or is empty.
  std::string AskThickness(const std::string& title, const std::string& default_text);
  std::string LayerRow(const std::string& thickness, int material) const;
  int LayerRows() const;
  void ReadTablesAgain();
  bool Adding() const { return MtrlList.visible; }

  Session& session_;
  WallsLib lib_;
  OpaqueTable materials_;
  bool dirty_ = false;
  // "2" while layers are appended, "3" while they are inserted.
  std::string mtrl_tag_;
  int previous_index_ = -1;
};

}  // namespace zelmo
