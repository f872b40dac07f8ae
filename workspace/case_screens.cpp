#include "workspace/case_screens.h"

#include "core/fields.h"
#include "core/file_system.h"
#include "core/form_helpers.h"
#include "core/session.h"
#include "core/stale.h"
#include "core/text_file.h"
#include "workspace/case_store.h"
#include "workspace/project_store.h"
#include "workspace/start_form.h"

namespace zelmo {

namespace {

constexpr const char* kErrorTitle = "Error message";
constexpr int kNewCaseHelp = 12166;
constexpr int kOpenCaseHelp = 12170;
constexpr int kCopyCaseHelp = 12169;
constexpr int kRenCaseHelp = 12001;
constexpr int kDelCaseHelp = 12002;

// The name of a case in a list item "<name> - <headline>".
std::string ItemName(const std::string& item) { return TrimBlanks(FieldBefore(item, " -")); }
std::string ItemHeadline(const std::string& item) { return FieldAfter(item, " - "); }

std::string ProjectTitle(const Workspace& ws) { return "Project : " + ws.ProjectName; }

void SetupButtons(Form& form, Button& ok, Button& close, Button& help,
                  const std::string& ok_caption) {
  ok.caption = ok_caption;
  close.caption = "&Close";
  help.caption = "&Help";
  form.default_button = ok.name();
  form.cancel_button = close.name();
  close.on_click = [&form] { form.Unload(); };
}

}  // namespace

// ------------------------------------------------------------------- NewCase

NewCase::NewCase(Session& session, StartForm& main)
    : Form("NewCase"), session_(session), main_(main) {
  caption = "New case";
  width = 6000;
  height = 5200;
  Label1.caption = "Name";
  Label2.caption = "Headline";
  Label3.caption = "Existing cases";
  Text1.max_length = kCaseNameLength;
  Text2.max_length = 30;
  SetupButtons(*this, Command1, Command2, Command3, "&New");
  Command1.on_click = [this] { New(); };
  Command3.on_click = [this] { ShowScreenHelp(session_, kNewCaseHelp); };
}

void NewCase::Load() {
  CenterForm(*this, session_.ws);
  FillCaseList(session_.ws, List1);
  if (!List1.items.empty()) List1.list_index = 0;
  Text1.text.clear();
  Text2.text.clear();
  Text1.SetFocus();
}

void NewCase::Fail(const std::string& message) {
  session_.dialogs->MsgBox(message, mb::kExclamation, kErrorTitle);
  Text1.SetFocus();
}

void NewCase::New() {
  Workspace& ws = session_.ws;
  const std::string& name = Text1.text;
  if (name.empty()) {
    Fail("Casename must be set");
    return;
  }
  if (name.size() > kCaseNameLength || name.find(':') != std::string::npos ||
      name.find('\\') != std::string::npos || !IsPlainCaseName(name) || UnfitName(name)) {
    Fail("Case name must be <= 8 characters long with no spacec in the name !");
    return;
  }
  if (CaseNameTaken(ws, name)) {
    Fail("A case with the same name already exists");
    return;
  }
  // The folder keeps the name as typed; the register holds it in lower case.
  CreateCaseEntry(ws, main_, Text1.text, Text2.text);
  main_.StateAfterNewCase();
  Unload();
}

// ------------------------------------------------------------------ OpenCase

OpenCase::OpenCase(Session& session, StartForm& main)
    : Form("OpenCase"), session_(session), main_(main) {
  caption = "Open case";
  width = 6000;
  height = 4200;
  Label1.caption = "Existing cases";
  SetupButtons(*this, Command1, Command2, Command3, "&Open");
  Command1.on_click = [this] { Open(); };
  List1.on_dbl_click = [this] { Open(); };
  Command3.on_click = [this] { ShowScreenHelp(session_, kOpenCaseHelp); };
}

void OpenCase::Load() {
  CenterForm(*this, session_.ws);
  FillCaseList(session_.ws, List1);
  if (!List1.items.empty()) List1.list_index = 0;
  Command1.enabled = !List1.items.empty();
  List1.SetFocus();
}

void OpenCase::Open() {
  if (List1.list_index < 0) return;
  Workspace& ws = session_.ws;
  const std::string item = List1.SelectedItem();
  // A register line without a name would make the project's folder, or one
  // above it, the case's folder: such a line is damaged.
  const std::string name = ItemName(item);
  if (!IsPlainFolderName(name)) {
    throw FileError(CasesFilePath(ws), List1.list_index + 1, "The line names no case folder");
  }
  ws.CaseName = name;
  ws.CaseHeadline = ItemHeadline(item);
  // The folder keeps the case its name was typed in when the case was made.
  ws.CasePath = FolderOnDisk(JoinPath(ws.ProjectPath, ws.CaseName));
  // Nothing in the case is read or repaired here.
  main_.StateAfterOpenCase();
  main_.SetTitle(" Project : " + ws.ProjectName + ", Case : " + ws.CaseName);
  Unload();
}

// ------------------------------------------------------------------ CopyCase

CopyCase::CopyCase(Session& session, StartForm& main)
    : Form("CopyCase"), session_(session), main_(main) {
  caption = "Copy case";
  width = 6000;
  height = 5600;
  Label1.caption = "Source cases";
  Label2.caption = "Name of the copy";
  Label3.caption = "Headline for the copy";
  Text1.max_length = kCaseNameLength;
  Text2.max_length = 30;
  SetupButtons(*this, Command1, Command2, Command3, "&Copy");
  List1.on_click = [this] { SourceClicked(); };
  Command1.on_click = [this] { Copy(); };
  Command3.on_click = [this] { ShowScreenHelp(session_, kCopyCaseHelp); };
}

void CopyCase::Load() {
  CenterForm(*this, session_.ws);
  FillCaseList(session_.ws, List1);
  if (!List1.items.empty()) {
    List1.list_index = 0;
    SourceClicked();
  }
}

void CopyCase::SourceClicked() {
  Text1.text = ItemName(List1.SelectedItem());
  Text1.SelectAll();
  Text1.SetFocus();
}

void CopyCase::Fail(const std::string& message) {
  session_.dialogs->MsgBox(message, mb::kExclamation, kErrorTitle);
  Text1.SetFocus();
}

void CopyCase::Copy() {
  BusyPointer busy(*session_.dialogs);
  Workspace& ws = session_.ws;
  const std::string name = Text1.text;
  const std::string headline = Text2.text;
  if (name.empty()) {
    Fail("Casename must be set");
    return;
  }
  if (name.size() > kCaseNameLength || !IsPlainCaseName(name) || UnfitName(name)) {
    Fail("Casename not correct");
    return;
  }
  if (CaseNameTaken(ws, name)) {
    Fail("A case with the same name already exists");
    return;
  }
  const std::string source_name = ItemName(List1.SelectedItem());
  const std::string source = JoinPath(ws.ProjectPath, source_name);
  if (!IsPlainFolderName(source_name) || !FolderExists(source)) {
    throw FileError(source, 0, "Path not found");
  }
  CreateCaseEntry(ws, main_, name, headline);
  List1.AddItem(ToLower(name) + " - " + ws.CaseHeadline);
  // THERMAL.INP comes along, so the copy keeps the source's module flags;
  // the results stay behind.
  if (!CopyFolderTree(source, ws.CasePath)) FailWrite(ws.CasePath);
  DeleteFilesWithExtensions(ws.CasePath, kResultExtensions);
  // The copy is the current case now, as a new case would be.
  main_.StateAfterNewCase();
  Text1.text.clear();
  Text2.text.clear();
  Text1.SetFocus();
  Unload();
}

// ------------------------------------------------------------------- RenCase

RenCase::RenCase(Session& session, StartForm& main)
    : Form("RenCase"), session_(session), main_(main) {
  caption = "Rename case";
  width = 6000;
  height = 5600;
  Label1.caption = "Existing cases";
  Label2.caption = "New name";
  Label3.caption = "Headline";
  Text1.max_length = kCaseNameLength;
  Text2.max_length = 30;
  SetupButtons(*this, Command1, Command2, Command3, "&Rename");
  List1.on_click = [this] { CaseClicked(); };
  Command1.on_click = [this] { Rename(); };
  Command3.on_click = [this] { ShowScreenHelp(session_, kRenCaseHelp); };
}

void RenCase::Load() {
  CenterForm(*this, session_.ws);
  FillCaseList(session_.ws, List1);
  // No case is taken until one is clicked.
  Text1.SetFocus();
}

void RenCase::CaseClicked() {
  const std::string item = List1.SelectedItem();
  Text1.text = ItemName(item);
  Text2.text = ItemHeadline(item);
}

void RenCase::Rename() {
  Workspace& ws = session_.ws;
  Dialogs& dialogs = *session_.dialogs;
  // A case must be open to rename any case.
  if (ws.CasePath.empty()) {
    dialogs.MsgBox("No Case has been opened", mb::kExclamation, kErrorTitle);
    Unload();
    return;
  }
  const std::string name = TrimBlanks(Text1.text);
  if (name.empty()) {
    dialogs.MsgBox("Casename must be set", mb::kExclamation, kErrorTitle);
    Text1.SelectAll();
    Text1.SetFocus();
    return;
  }
  // The name moves the folder: it must stay a folder of the project.
  if (name.size() > kCaseNameLength || UnfitName(name)) {
    dialogs.MsgBox("Case name must be <= 8 characters long with no spacec in the name !",
                   mb::kExclamation, kErrorTitle);
    Text1.SelectAll();
    Text1.SetFocus();
    return;
  }
  Unload();
  if (List1.list_index < 0) return;
  const std::string item = List1.SelectedItem();
  const std::string old_name = ItemName(item);
  // The folder that moves is named by the register line: a line that names
  // no folder of the project is damaged.
  if (!IsPlainFolderName(old_name)) {
    throw FileError(CasesFilePath(ws), List1.list_index + 1, "The line names no case folder");
  }
  const std::string old_headline = ItemHeadline(item);
  const std::string headline = OneLineText(Text2.text);
  const bool same_name = name == old_name;
  if (!same_name) {
    if (!FileCanOpen(CasesFilePath(ws))) {
      dialogs.MsgBox("Casefile does not exist", mb::kExclamation, kErrorTitle);
      return;
    }
    // A clash stops the rename without a word.
    if (CaseNameTaken(ws, name)) return;
  }
  const bool was_current = EqualsIgnoringCase(ws.CasePath, JoinPath(ws.ProjectPath, old_name));
  RenameCaseEntry(ws, old_name, name, old_headline, headline, same_name);
  List1.items[List1.list_index] = ToLower(name) + " - " + headline;
  if (was_current) ws.CasePath = JoinPath(ws.ProjectPath, name);
  // A new headline marks the current case, whichever case was renamed.
  if (headline != old_headline) MarkModulesStale(ws, ws.CasePath, kAllModules);
}

// ------------------------------------------------------------------- DelCase

DelCase::DelCase(Session& session, StartForm& main)
    : Form("DelCase"), session_(session), main_(main) {
  caption = "Delete case";
  width = 6000;
  height = 4200;
  Label1.caption = "Existing cases";
  Command1.caption = "&Delete";
  Command2.caption = "&Close";
  Command3.caption = "&Help";
  Command4.caption = "&Ok";
  cancel_button = "Command2";
  List1.on_click = [this] { Command1.enabled = true; };
  List1.on_dbl_click = [this] { DoubleClicked(); };
  Command1.on_click = [this] { DeleteClicked(); };
  Command2.on_click = [this] { Unload(); };
  Command3.on_click = [this] { ShowScreenHelp(session_, kDelCaseHelp); };
  Command4.on_click = [this] { Unload(); };
}

void DelCase::Load() {
  CenterForm(*this, session_.ws);
  FillCaseList(session_.ws, List1);
  // Delete stays off until a case is clicked.
  Command1.enabled = false;
  Command2.SetFocus();
}

bool DelCase::AskDelete(const std::string& name) {
  const bool current = !session_.ws.CaseName.empty() && name == session_.ws.CaseName;
  std::string question =
      current ? "Do you really want to delete the CURRENT case" : "Do you want to delete the case";
  question += "\r" + name + " ?";
  return session_.dialogs->MsgBox(question, mb::kYesNo + mb::kExclamation, "") == Answer::kYes;
}

void DelCase::DeleteClicked() {
  if (List1.list_index < 0) return;
  const std::string name = ItemName(List1.SelectedItem());
  if (!AskDelete(name)) return;
  Unload();
  if (!DeleteDirectoryAndEntry(session_, JoinPath(session_.ws.ProjectPath, name), name, false)) {
    return;
  }
  EndStep(name);
}

void DelCase::DoubleClicked() {
  if (List1.list_index < 0) return;
  const std::string name = ItemName(List1.SelectedItem());
  if (!AskDelete(name)) return;
  session_.dialogs->MsgBox(name, mb::kOkOnly, "");
  DeleteCaseLine(session_.ws, name);
  EndStep(name);
}

void DelCase::EndStep(const std::string& name) {
  Workspace& ws = session_.ws;
  const bool current = !ws.CaseName.empty() && name == ws.CaseName;
  List1.RemoveItem(List1.list_index);
  const bool empty = List1.items.empty();
  if (empty) {
    DeleteFile(CasesFilePath(ws));
    ws.CaseName.clear();
    ws.CaseHeadline.clear();
    main_.SetTitle(ProjectTitle(ws));
  } else {
    List1.list_index = 0;
  }
  Command1.enabled = false;
  if (current) {
    // CasePath keeps the deleted path.
    ws.CaseName.clear();
    ws.CaseHeadline.clear();
    main_.SetTitle(ProjectTitle(ws));
  }
  main_.StateAfterDeleteCase(current, empty);
}

}  // namespace zelmo
