// SysInit ("Settings"): the program and data folders and the accuracy
// level. Save checks the folders, creates a missing data folder, stores the
// settings and brings the project commands of the main window in line.
#pragma once

#include <string>
#include <vector>

#include "core/controls.h"
#include "core/session.h"

namespace zelmo {

class StartForm;

class SysInit : public Form {
 public:
  // The fields start from the workspace, so Save can run without the screen
  // being shown (first start, activation of the demo project).
  SysInit(Session& session, StartForm& main);
  void Load() override;

  // The three checks, then the store and the main window's commands. False
  // when a check refused the folders; the store is then untouched.
  bool Save();

  Label Label1{this, "Label1"};
  TextBox SysPath{this, "SysPath"};
  ComboBox Drive1{this, "Drive1"};
  ListBox Dir1{this, "Dir1"};
  Label Label2{this, "Label2"};
  TextBox LocalPath{this, "LocalPath"};
  ComboBox Drive2{this, "Drive2"};
  ListBox Dir2{this, "Dir2"};
  Label Label3{this, "Label3"};
  ComboBox Combo1{this, "Combo1"};
  Label Label4{this, "Label4"};
  ComboBox Combo2{this, "Combo2"};
  Button Command1{this, "Command1"};  // Save
  Button Command2{this, "Command2"};  // Cancel
  Button Command3{this, "Command3"};  // Help

 private:
  // A drive list, its directory list and the field they fill.
  struct FolderChoice {
    TextBox* field;
    ComboBox* drives;
    ListBox* folders;
    std::string current;             // the folder the directory list shows
    std::vector<std::string> paths;  // the folder of each item
  };
  void ShowFolder(FolderChoice& choice, const std::string& folder);
  void DriveChanged(FolderChoice& choice);
  void FolderClicked(FolderChoice& choice);
  void FolderOpened(FolderChoice& choice);
  void RefreshProjectCommands(bool projects_exist);

  Session& session_;
  StartForm& main_;
  FolderChoice program_choice_;
  FolderChoice data_choice_;
};

// The roots of the file system to choose from: the drives where the
// platform has drive letters, "/" elsewhere.
std::vector<std::string> FileSystemRoots();

}  // namespace zelmo
