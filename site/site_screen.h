// Site, "Site / Period / Climate": edits SITE.INP: the position of the site,
// the rotation of the building's coordinates, the period of simulation, the
// climate file, and three overrides: wind recalculation, sun and outdoor
// temperature.
#pragma once

#include <string>
#include <vector>

#include "core/controls.h"
#include "site/folder_lists.h"

namespace zelmo {

struct Session;

class Site : public Form {
 public:
  explicit Site(Session& session);

  // Fills the inputs from SITE.INP, or the empty defaults when it is missing.
  void Load() override;
  void QueryUnload() override { Cancel(); }

  // The climate path was typed or chosen: the wind message and the wind box
  // follow the file's wind mark.
  void ClimateChanged();
  // A file of the file list: it becomes the climate file, and the position
  // and the period are read from it.
  void FileChosen();
  void DriveChosen();
  void DirOpened();
  void WindClicked();
  void TerrainChosen(int index);
  void SolarChosen(bool no_sun);
  void TemperatureChosen(bool set);

  // The fourteen rules; all faults in one box, the focus on the first.
  bool CheckSite();
  // SITE.INP; the last two modules stale when anything changed. Throws
  // FileError when the file cannot be written.
  void Save();
  void Ok();
  void Cancel();
  void Help();
  void GeneralParameters();

  bool dirty() const { return Dirty; }
  int solar_switch() const { return SolarSwitch; }
  int temp_switch() const { return TempSwitch; }
  int terrain_index() const { return TerrainIndex; }
  // The 14 lines SITE.INP gets from the inputs.
  std::vector<std::string> SiteLines() const;
  FolderLists& folder_lists() { return lists_; }

  Label Label1{this, "Label1"};
  TextBox Latitude{this, "Latitude"};
  Label Label2{this, "Label2"};
  Label Label3{this, "Label3"};
  TextBox Longitude{this, "Longitude"};
  Label Label4{this, "Label4"};
  Label Label5{this, "Label5"};
  TextBox Timem{this, "Timem"};
  Label Label6{this, "Label6"};
  Label Label7{this, "Label7"};
  TextBox Rotation{this, "Rotation"};
  Label Label8{this, "Label8"};
  Label Label9{this, "Label9"};
  Label Label10{this, "Label10"};
  ComboBox Drive1{this, "Drive1"};
  ListBox Dir1{this, "Dir1"};
  ListBox File1{this, "File1"};
  TextBox Climate{this, "Climate"};
  Label Windlabel{this, "Windlabel"};
  Label Winddata{this, "Winddata"};
  CheckBox Wind{this, "Wind"};
  Frame Terrain{this, "Terrain"};
  OptionButton Option5[4]{
      {this, "Option5(0)"}, {this, "Option5(1)"}, {this, "Option5(2)"}, {this, "Option5(3)"}};
  Label Label11{this, "Label11"};
  Label Label12{this, "Label12"};
  Label Label13{this, "Label13"};
  Label Label14{this, "Label14"};
  Label Label15{this, "Label15"};
  Label Label16{this, "Label16"};
  TextBox FDYear{this, "FDYear"};
  TextBox FDMonth{this, "FDMonth"};
  TextBox FDDay{this, "FDDay"};
  TextBox LDYear{this, "LDYear"};
  TextBox LDMonth{this, "LDMonth"};
  TextBox LDDay{this, "LDDay"};
  Frame Solarradiation{this, "Solarradiation"};
  OptionButton Option1{this, "Option1"};
  OptionButton Option2{this, "Option2"};
  Frame Temperatures{this, "Temperatures"};
  OptionButton Option3{this, "Option3"};
  OptionButton Option4{this, "Option4"};
  TextBox T_T{this, "T_T"};
  Label Label17{this, "Label17"};
  Button Command4{this, "Command4"};
  Button Command1{this, "Command1"};
  Button Command2{this, "Command2"};
  Button Command3{this, "Command3"};

 private:
  void ShowTerrain() { Terrain.visible = Wind.value != 0; }
  // Where the lists start when the climate file cannot be found.
  std::string StartFolder() const;

  Session& session_;
  FolderLists lists_{Drive1, Dir1, &File1, ".CLI"};
  int SolarSwitch = 0;
  int TempSwitch = 0;
  int TerrainIndex = 0;
  bool Dirty = false;
};

}  // namespace zelmo
