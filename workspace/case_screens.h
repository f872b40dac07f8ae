// The five screens of the case store: New, Open, Copy, Rename and Delete
// Case. Each is modal and centred, works on CASES.LIB of the current project
// and the case folders, and sets the main window's commands and title itself.
#pragma once

#include <string>

#include "core/controls.h"

namespace zelmo {

struct Session;
class StartForm;

// "Current case" is a matter of the workspace state alone: CaseName not
// empty. New and Copy title the main window
// "Project : <ProjectName>, Case : <CaseName>", Open
// " Project : <ProjectName>, Case : <CaseName>"; deleting the current case
// leaves "Project : <ProjectName>".
class NewCase : public Form {
 public:
  NewCase(Session& session, StartForm& main);
  void Load() override;
  void New();

  Label Label1{this, "Label1"};
  TextBox Text1{this, "Text1"};  // the name
  Label Label2{this, "Label2"};
  TextBox Text2{this, "Text2"};  // the headline
  Label Label3{this, "Label3"};
  ListBox List1{this, "List1"};
  Button Command1{this, "Command1"};
  Button Command2{this, "Command2"};
  Button Command3{this, "Command3"};

 private:
  void Fail(const std::string& message);
  Session& session_;
  StartForm& main_;
};

class OpenCase : public Form {
 public:
  OpenCase(Session& session, StartForm& main);
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

// The copy's item in the list reads "<lower name> - <headline>".
class CopyCase : public Form {
 public:
  CopyCase(Session& session, StartForm& main);
  void Load() override;
  void SourceClicked();
  void Copy();

  Label Label1{this, "Label1"};
  ListBox List1{this, "List1"};  // the source cases
  Label Label2{this, "Label2"};
  TextBox Text1{this, "Text1"};  // the name of the copy
  Label Label3{this, "Label3"};
  TextBox Text2{this, "Text2"};  // the headline of the copy
  Button Command1{this, "Command1"};
  Button Command2{this, "Command2"};
  Button Command3{this, "Command3"};

 private:
  void Fail(const std::string& message);
  Session& session_;
  StartForm& main_;
};

class RenCase : public Form {
 public:
  RenCase(Session& session, StartForm& main);
  void Load() override;
  void CaseClicked();
  void Rename();

  Label Label1{this, "Label1"};
  ListBox List1{this, "List1"};
  Label Label2{this, "Label2"};
  TextBox Text1{this, "Text1"};  // the new name
  Label Label3{this, "Label3"};
  TextBox Text2{this, "Text2"};  // the headline
  Button Command1{this, "Command1"};
  Button Command2{this, "Command2"};
  Button Command3{this, "Command3"};

 private:
  Session& session_;
  StartForm& main_;
};

class DelCase : public Form {
 public:
  DelCase(Session& session, StartForm& main);
  void Load() override;
  // The Delete button removes the folder and the line and closes the
  // screen; a double click shows the name, removes the case and stays.
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
