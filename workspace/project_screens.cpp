#include "workspace/project_screens.h"

#include "core/fields.h"
#include "core/file_system.h"
#include "core/form_helpers.h"
#include "core/session.h"
#include "core/text_file.h"
#include "workspace/case_store.h"
#include "workspace/project_store.h"
#include "workspace/start_form.h"

namespace zelmo {

namespace {

constexpr const char* kErrorTitle = "Error message";
constexpr int kNewProjectHelp = 12165;
constexpr int kOpenProjectHelp = 12163;
constexpr int kDelProjectHelp = 12167;
constexpr int kCopyProjectHelp = 12168;
constexpr int kRenProjectHelp = 12164;

std::string ExistingProjectsCaption(const Workspace& ws) {
  return "Existing projects ( " + LowerPathWhereCaseIgnored(ws.LocalPath) + " )";
}

// True when a line of PROJECTS.LIB has the name, or the path as its
// directory. The directory is a bare folder name, so a full path never
// matches it; the test is kept as it stands.
bool ProjectClashes(const Workspace& ws, const std::string& name, const std::string& path) {
  for (const auto& line : ReadProjectLines(ws)) {
    if (ToLower(name) == ToLower(line.name) || ToLower(path) == ToLower(line.directory)) {
      return true;
    }
  }
  return false;
}

}  // namespace

void FillProjectList(const Session& session, Control& list) {
  for (const auto& line : ReadProjectLines(session.ws)) list.AddItem(ProjectListItem(line));
}

// ---------------------------------------------------------------- NewProject

NewProject::NewProject(Session& session, StartForm& main)
    : Form("NewProject"), session_(session), main_(main) {
  caption = "New project";
  width = 6000;
  height = 4600;
  help_context = kNewProjectHelp;
  Label1.caption = "Name";
  Text1.max_length = 8;
  Command1.caption = "&New";
  Command2.caption = "&Close";
  Command3.caption = "&Help";
  default_button = "Command1";
  cancel_button = "Command2";
  Command1.on_click = [this] { New(); };
  Command2.on_click = [this] { Unload(); };
  Command3.on_click = [this] { ShowScreenHelp(session_, kNewProjectHelp); };
}

void NewProject::Load() {
  CenterForm(*this, session_.ws);
  Label2.caption = ExistingProjectsCaption(session_.ws);
  FillProjectList(session_, List1);
  if (!List1.items.empty()) List1.list_index = 0;
  Text1.SetFocus();
}

void NewProject::Fail(const std::string& message) {
  session_.dialogs->MsgBox(message, mb::kExclamation, kErrorTitle);
}

void NewProject::New() {
  // The screen closes after the attempt, whether it succeeded or not.
  Unload();
  Workspace& ws = session_.ws;
  const std::string name = TrimBlanks(Text1.text);
  const std::string path = JoinPath(ws.LocalPath, name);
  if (name.size() >= 9 || name.find(' ') != std::string::npos || UnfitName(name)) {
    Fail("Name must be <=  8 characters long and no spaces in the name !");
    return;
  }
  if (Text1.text.empty() || path.empty()) {
    Fail("Name and path must be set");
    return;
  }
  const std::string lower_path = ToLower(TrimBlanks(path));
  if (lower_path == ToLower(JoinPath(ws.LocalPath, "")) ||
      lower_path == ToLower(JoinPath(ws.MainDirectory, "")) ||
      lower_path == ToLower(JoinPath(ws.ThermalDirectory, ""))) {
    Fail("Projectpath can not be the same as System-, Local- or Thermal-path");
    return;
  }
  if (ProjectClashes(ws, name, path)) {
    Fail("A project with the same name or path already exists");
    return;
  }
  CreateProjectEntry(ws, main_, name, path);
  // The library files are copied after the project is registered: a missing
  // one ends the operation there.
  for (const auto& file : kDefaultLibraryFiles) {
    const std::string source = JoinPath(ws.MainDirectory, file);
    const std::string target = JoinPath(ws.ProjectPath, file);
    if (!CopyFileOver(source, target)) {
      // The message names the file that failed: the program's library, or
      // the project's copy when its folder could not be made.
      if (!FileCanOpen(source)) throw FileError(source, 0, "File not found");
      throw FileError(target, 0, "Path not found");
    }
  }
  main_.StateAfterNewProject();
  main_.SetTitle("Project : " + ws.ProjectName);
  ws.CaseName.clear();
  ws.CaseHeadline.clear();
  ws.CasePath.clear();
}

// --------------------------------------------------------------- OpenProject

OpenProject::OpenProject(Session& session, StartForm& main)
    : Form("OpenProject"), session_(session), main_(main) {
  caption = "Open project";
  width = 6000;
  height = 4200;
  help_context = kOpenProjectHelp;
  Command1.caption = "&Open";
  Command2.caption = "&Close";
  Command3.caption = "&Help";
  default_button = "Command1";
  cancel_button = "Command2";
  Command1.on_click = [this] { Open(); };
  List1.on_dbl_click = [this] { Open(); };
  Command2.on_click = [this] { Unload(); };
  Command3.on_click = [this] { ShowScreenHelp(session_, kOpenProjectHelp); };
}

void OpenProject::Load() {
  CenterForm(*this, session_.ws);
  Label1.caption = ExistingProjectsCaption(session_.ws);
  FillProjectList(session_, List1);
  if (!List1.items.empty()) List1.list_index = 0;
  List1.SetFocus();
}

void OpenProject::Open() {
  if (List1.list_index < 0) return;
  Workspace& ws = session_.ws;
  const std::string item = List1.SelectedItem();
  const std::string directory = FieldAfter(item, " - ");
  // A register line without a folder of its own would make the data folder,
  // or one above it, the project's folder: such a line is damaged.
  if (!IsPlainFolderName(directory)) {
    throw FileError(ProjectsFilePath(ws), List1.list_index + 1, "The line names no project folder");
  }
  ws.ProjectName = FieldBefore(item, " - ");
  ws.ProjectPath = FolderOnDisk(JoinPath(ws.LocalPath, directory));
  // Opening a project always closes the case. Nothing in the project is read
  // or repaired here.
  ws.CaseName.clear();
  ws.CaseHeadline.clear();
  ws.CasePath.clear();
  main_.StateAfterOpenProject(FileCanOpen(CasesFilePath(ws)));
  main_.SetTitle(" Project : " + ws.ProjectName);
  Unload();
}

// --------------------------------------------------------------- CopyProject

CopyProject::CopyProject(Session& session, StartForm& main)
    : Form("CopyProject"), session_(session), main_(main) {
  caption = "Copy project";
  width = 6000;
  height = 4800;
  Label1.caption = "Source projects";
  Label2.caption = "Name of the copy";
  Text1.max_length = 8;
  Command1.caption = "&Copy";
  Command2.caption = "&Close";
  Command3.caption = "&Help";
  default_button = "Command1";
  cancel_button = "Command2";
  List1.on_click = [this] { SourceClicked(); };
  Command1.on_click = [this] { Copy(); };
  Command2.on_click = [this] { Unload(); };
  Command3.on_click = [this] { ShowScreenHelp(session_, kCopyProjectHelp); };
}

void CopyProject::Load() {
  loading_ = true;
  CenterForm(*this, session_.ws);
  FillProjectList(session_, List1);
  if (!List1.items.empty()) List1.list_index = 0;
  loading_ = false;
}

void CopyProject::SourceClicked() {
  if (loading_) return;
  Text1.text.clear();
  Text1.SelectAll();
  Text1.SetFocus();
}

void CopyProject::Fail(const std::string& message) {
  session_.dialogs->MsgBox(message, mb::kExclamation, kErrorTitle);
}

void CopyProject::Copy() {
  BusyPointer busy(*session_.dialogs);
  Workspace& ws = session_.ws;
  const std::string name = TrimBlanks(Text1.text);
  const std::string target = JoinPath(ws.LocalPath, name);
  const std::string source_directory = FieldAfter(List1.SelectedItem(), " - ");
  const std::string source = JoinPath(ws.LocalPath, source_directory);
  if (name.size() >= 9 || UnfitName(name)) {
    Fail("Target name must be <=  8 characters long");
    return;
  }
  if (name.empty() || target.empty()) {
    Fail("Target name must be set");
    return;
  }
  if (ProjectClashes(ws, name, target)) {
    Fail("A project with the same name or path already exists");
    return;
  }
  // An item added by an earlier copy holds a full path, which is no folder
  // under the data folder: there is nothing to copy from.
  if (!IsPlainFolderName(source_directory) || !FolderExists(source)) {
    throw FileError(source, 0, "Path not found");
  }
  // The project's folder is named in lower case; the data folder keeps its own.
  List1.AddItem(
      ToLower(name) + " - " +
      LowerPathWhereCaseIgnored(JoinPath(ParentFolder(target), ToLower(LastName(target)))));
  CreateProjectEntry(ws, main_, name, target);
  if (!CopyFolderTree(source, ws.ProjectPath)) FailWrite(ws.ProjectPath);
  // The copy keeps the inputs and the module flags of its cases, not their
  // results.
  if (auto cases = ReadAllLines(CasesFilePath(ws))) {
    for (const auto& line : *cases) {
      const std::string case_name = TrimBlanks(FieldBefore(TrimBlanks(line), " -"));
      if (!IsPlainFolderName(case_name)) continue;
      DeleteFilesWithExtensions(JoinPath(ws.ProjectPath, case_name), kResultExtensions);
    }
  }
  main_.StateAfterCopyProject();
}

// ---------------------------------------------------------------- RenProject

RenProject::RenProject(Session& session, StartForm& main)
    : Form("RenProject"), session_(session), main_(main) {
  caption = "Rename project";
  width = 6000;
  height = 4800;
  Label1.caption = "Existing projects";
  Label2.caption = "New name";
  Text1.max_length = 20;
  Command1.caption = "&Rename";
  Command2.caption = "&Close";
  Command3.caption = "&Help";
  default_button = "Command1";
  cancel_button = "Command2";
  List1.on_click = [this] { ProjectClicked(); };
  Command1.on_click = [this] { Rename(); };
  Command2.on_click = [this] { Unload(); };
  Command3.on_click = [this] { ShowScreenHelp(session_, kRenProjectHelp); };
}

void RenProject::Load() {
  loading_ = true;
  CenterForm(*this, session_.ws);
  FillProjectList(session_, List1);
  if (!List1.items.empty()) List1.list_index = 0;
  loading_ = false;
}

void RenProject::ProjectClicked() {
  if (loading_) return;
  Text1.text = FieldBefore(List1.SelectedItem(), " - ");
  Text1.SelectAll();
  Text1.SetFocus();
}

void RenProject::Fail(const std::string& message) {
  session_.dialogs->MsgBox(message, mb::kExclamation, kErrorTitle);
}

void RenProject::Rename() {
  // The screen closes in every case.
  Unload();
  Workspace& ws = session_.ws;
  const std::string name = TrimBlanks(Text1.text);
  if (name.empty()) {
    Fail("Projectname must be set");
    return;
  }
  if (UnfitName(name)) {
    Fail("Name must be <=  8 characters long and no spaces in the name !");
    return;
  }
  if (!FileCanOpen(ProjectsFilePath(ws))) {
    Fail("Projectfile does not exist");
    return;
  }
  // An unchanged name is a clash too.
  for (const auto& line : ReadProjectLines(ws)) {
    if (ToLower(name) == ToLower(line.name)) {
      Fail("A project with the same name already exist");
      return;
    }
  }
  if (List1.list_index < 0) return;
  const std::string item = List1.SelectedItem();
  const std::string old_name = FieldBefore(item, " - ");
  // Only a current project follows: a damaged line without a name is no
  // current project when none is open.
  if (!ws.ProjectName.empty() && old_name == ToLower(ws.ProjectName)) {
    ws.ProjectName = ToLower(name);
  }
  RenameProjectLine(ws, ToLower(old_name), ToLower(name));
  List1.items[List1.list_index] = ToLower(name) + " - " + FieldAfter(item, " - ");
}

// ---------------------------------------------------------------- DelProject

DelProject::DelProject(Session& session, StartForm& main)
    : Form("DelProject"), session_(session), main_(main) {
  caption = "Delete project";
  width = 6000;
  height = 4200;
  help_context = kDelProjectHelp;
  Label1.caption = "Existing projects";
  Command1.caption = "&Delete";
  Command2.caption = "&Close";
  Command3.caption = "&Help";
  Command4.caption = "&Ok";
  cancel_button = "Command2";
  List1.on_click = [this] { Command1.enabled = true; };
  List1.on_dbl_click = [this] { DoubleClicked(); };
  Command1.on_click = [this] { DeleteClicked(); };
  Command2.on_click = [this] { Unload(); };
  Command3.on_click = [this] { ShowScreenHelp(session_, kDelProjectHelp); };
  Command4.on_click = [this] { Unload(); };
}

void DelProject::Load() {
  CenterForm(*this, session_.ws);
  FillProjectList(session_, List1);
  // Delete stays off until a project is clicked.
  Command1.enabled = false;
  Command2.SetFocus();
}

bool DelProject::AskDelete(const std::string& name) {
  const bool current = !session_.ws.ProjectName.empty() && name == session_.ws.ProjectName;
  std::string question = current ? "Do you really want to delete the CURRENT project"
                                 : "Do you want to delete the project";
  question += "\r" + name + " ?";
  return session_.dialogs->MsgBox(question, mb::kYesNo + mb::kExclamation, "") == Answer::kYes;
}

void DelProject::DeleteClicked() {
  if (List1.list_index < 0) return;
  const std::string item = List1.SelectedItem();
  const std::string name = FieldBefore(item, " - ");
  const std::string directory = FieldAfter(item, " - ");
  if (!AskDelete(name)) return;
  // The line is found by the directory compared with the register's first
  // field: a renamed project's line stays behind.
  if (!DeleteDirectoryAndEntry(session_, JoinPath(session_.ws.LocalPath, directory), directory,
                               true)) {
    return;
  }
  EndStep(name);
}

void DelProject::DoubleClicked() {
  if (List1.list_index < 0) return;
  const std::string item = List1.SelectedItem();
  const std::string name = FieldBefore(item, " - ");
  const std::string directory = FieldAfter(item, " - ");
  if (!AskDelete(name)) return;
  if (IsPlainFolderName(directory)) DeleteTree(JoinPath(session_.ws.LocalPath, directory));
  DeleteProjectLine(session_.ws, name);
  EndStep(name);
}

void DelProject::EndStep(const std::string& name) {
  Workspace& ws = session_.ws;
  const bool current = !ws.ProjectName.empty() && name == ws.ProjectName;
  if (current) {
    // ProjectPath and CasePath keep their values.
    ws.CaseName.clear();
    ws.CaseHeadline.clear();
    ws.ProjectName.clear();
    main_.SetTitle("");
  }
  List1.RemoveItem(List1.list_index);
  const bool empty = List1.items.empty();
  if (empty) {
    Command1.enabled = false;
    DeleteFile(ProjectsFilePath(ws));
  }
  main_.StateAfterDeleteProject(current, empty);
}

}  // namespace zelmo
