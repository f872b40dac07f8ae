// The five screens of the project store: New, Open, Copy, Rename and Delete
// Project. Each is modal and centred, works on PROJECTS.LIB and the project
// folders, and sets the main window's commands and title itself.
#pragma once

#include <string>

#include "core/controls.h"

namespace zelmo {

struct Session;
class StartForm;

// Fills a list with "<name> - <directory>" per project, lower case. The lists
// of New and Open Project are captioned
// "Existing projects ( <LocalPath> )", the path lower-cased where case is
// ignored.
void FillProjectList(const Session& session, Control& list);

// "Current project" is a matter of the workspace state alone: ProjectName
// not empty. New and Copy title the main window "Project : <name>", Open
// " Project : <name>".
class NewProject : public Form {
 public:
  NewProject(Session& session, StartForm& main);
  void Load() override;
  void New();

  Label Label1{this, "Label1"};
  TextBox Text1{this, "Text1"};  // the name
  Label Label2{this, "Label2"};
  ListBox List1{this, "List1"};
  Button Command1{this, "Command1"};
  Button Command2{this, "Command2"};
  Button Command3{this, "Command3"};

 private:
  void Fail(const std::string& message);
  Session& session_;
  StartForm& main_;
};

class OpenProject : public Form {
 public:
  OpenProject(Session& session, StartForm& main);
  void Load() override;
  void Open();

  Label Label1{this, "Label1"};
  ListBox List1{this, "List1"};
  Button Command1{this, "Command1"};
  Button Command2{this, "Command2"};
  Button Command3{this, "Command3"};

 private:
  Session& session_;
  StartForm& main_;
};

// The copy's item in the list reads "<lower name> - <lower target directory>",
// a full path, unlike the bare directory the list shows after reloading.
class CopyProject : public Form {
 public:
  CopyProject(Session& session, StartForm& main);
  void Load() override;
  void SourceClicked();
  void Copy();

  Label Label1{this, "Label1"};
  ListBox List1{this, "List1"};  // the source projects
  Label Label2{this, "Label2"};
  TextBox Text1{this, "Text1"};  // the name of the copy
  Button Command1{this, "Command1"};
  Button Command2{this, "Command2"};
  Button Command3{this, "Command3"};

 private:
  void Fail(const std::string& message);
  Session& session_;
  StartForm& main_;
  bool loading_ = false;
};

// Changes the name only: the item becomes "<lower new> - <directory>" and the
// project keeps its folder.
class RenProject : public Form {
 public:
  RenProject(Session& session, StartForm& main);
  void Load() override;
  void ProjectClicked();
  void Rename();

  Label Label1{this, "Label1"};
  ListBox List1{this, "List1"};
  Label Label2{this, "Label2"};
  TextBox Text1{this, "Text1"};  // the new name
  Button Command1{this, "Command1"};
  Button Command2{this, "Command2"};
  Button Command3{this, "Command3"};

 private:
  void Fail(const std::string& message);
  Session& session_;
  StartForm& main_;
  bool loading_ = false;
};

class DelProject : public Form {
 public:
  DelProject(Session& session, StartForm& main);
  void Load() override;
  // The Delete button removes the folder named by the directory of the item;
  // a double click removes the tree and the line of the item's name.
  void DeleteClicked();
  void DoubleClicked();

  Label Label1{this, "Label1"};
  ListBox List1{this, "List1"};
  Button Command1{this, "Command1"};  // Delete
  Button Command2{this, "Command2"};  // Close
  Button Command3{this, "Command3"};  // Help
  Button Command4{this, "Command4"};  // Ok

 private:
  bool AskDelete(const std::string& name);
  void EndStep(const std::string& name);
  Session& session_;
  StartForm& main_;
};

}  // namespace zelmo
