// MoveClimaticFiles, "Move climatic data files to ZELMO-QRN": copies the .CLI
// files of a chosen folder into the program tree's Climate folder, where the
// Site screen finds them.
#pragma once

#include <string>

#include "core/controls.h"
#include "site/folder_lists.h"

namespace zelmo {

struct Session;

class MoveClimaticFiles : public Form {
 public:
  explicit MoveClimaticFiles(Session& session);

  void Load() override;

  void DriveChosen();
  void DirOpened();
  // Copies every file of the list into `SystemPath`/Climate.
  void Move();
  // Asks for an EnergyPlus weather file, writes it as a climate file into
  // the climate folder under its own name and shows that folder.
  void ImportWeatherFile();
  void HelpClick();

  // Where the files go.
  std::string ClimateFolder() const;
  FolderLists& folder_lists() { return lists_; }

  Frame Frame1{this, "Frame1"};
  ComboBox Drive1{this, "Drive1"};
  ListBox Dir1{this, "Dir1"};
  Label Label1{this, "Label1"};
  ListBox File1{this, "File1"};
  Label Label2{this, "Label2"};
  Label Selecteddirectory{this, "Selecteddirectory"};
  Button Copy{this, "Copy"};
  Button ImportEpw{this, "ImportEpw"};
  Button Ok{this, "Ok"};
  Button Help{this, "Help"};

 private:
  void ShowFolder();

  Session& session_;
  FolderLists lists_{Drive1, Dir1, &File1, ".CLI"};
};

}  // namespace zelmo
