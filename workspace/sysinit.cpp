#include "workspace/sysinit.h"

#include <filesystem>

#include "core/fields.h"
#include "core/file_system.h"
#include "core/form_helpers.h"
#include "core/text_file.h"
#include "workspace/start_form.h"
#include "workspace/startup.h"

namespace zelmo {

namespace fs = std::filesystem;

namespace {

inline constexpr int kSysInitHelp = 12130;

std::string RootOf(const std::string& folder) { return FromFsPath(ToFsPath(folder).root_path()); }

bool SameRoot(const std::string& a, const std::string& b) {
#ifdef _WIN32
  return EqualsIgnoringCase(a, b);
#else
  return a == b;
#endif
}

// The folder itself when it exists, else its nearest existing parent, else
// the first root.
std::string NearestExistingFolder(const std::string& path) {
  std::string trimmed = TrimBlanks(path);
  if (!trimmed.empty() && ToFsPath(trimmed).is_absolute()) {
    fs::path walk = ToFsPath(trimmed).lexically_normal();
    while (true) {
      std::error_code ec;
      fs::path real = ResolvePath(walk);
      if (fs::is_directory(real, ec)) return FromFsPath(real);
      if (!walk.has_relative_path()) break;
      walk = walk.parent_path();
    }
  }
  std::vector<std::string> roots = FileSystemRoots();
  return roots.empty() ? std::string() : roots.front();
}

// The text a chosen folder puts into its field: without a trailing
// separator, except for a root ("C:\\", "/"), which is no folder without it.
std::string FieldTextOf(const std::string& folder) {
  if (!ToFsPath(folder).has_relative_path()) return folder;
  return StripTrailingSeparator(folder);
}

}  // namespace

std::vector<std::string> FileSystemRoots() {
#ifdef _WIN32
  std::vector<std::string> roots;
  for (char letter = 'A'; letter <= 'Z'; ++letter) {
    std::string root = std::string(1, letter) + ":\\";
    std::error_code ec;
    if (fs::is_directory(fs::path(root), ec)) roots.push_back(root);
  }
  return roots;
#else
  return {"/"};
#endif
}

SysInit::SysInit(Session& session, StartForm& main)
    : Form("SysInit"), session_(session), main_(main) {
  const Workspace& ws = session_.ws;
  caption = "Settings";
  width = 9000;
  height = 6300;
  help_context = kSysInitHelp;
  default_button = "Command1";
  cancel_button = "Command2";

  Label1.caption = "Program directory: ";
  Label2.caption = "Project directory:";
  Label3.caption = "Accuracy level :";
  Label4.caption = "User interface";
  SysPath.text = ws.SystemPath;
  LocalPath.text = ws.LocalPath;

  Combo1.items = {kAccuracyTimestep, kAccuracyIteration};
  Combo1.list_index = ws.AccuracyLevelTL == "4" ? 1 : 0;
  Combo1.text = Combo1.SelectedItem();
  Combo2.items = {"Menus", "Non-menus"};
  Combo2.list_index = 0;
  Combo2.text = "Menus";

  Command1.caption = "&Save";
  Command2.caption = "&Cancel";
  Command3.caption = "&Help";

  program_choice_ = {&SysPath, &Drive1, &Dir1, {}, {}};
  data_choice_ = {&LocalPath, &Drive2, &Dir2, {}, {}};
  for (FolderChoice* choice : {&program_choice_, &data_choice_}) {
    TextBox& field = *choice->field;
    field.on_got_focus = [&field] {
      field.SelectAll();
      field.SetFocus();
    };
    choice->drives->on_click = [this, choice] { DriveChanged(*choice); };
    choice->folders->on_click = [this, choice] { FolderClicked(*choice); };
    choice->folders->on_dbl_click = [this, choice] { FolderOpened(*choice); };
  }

  // The choice of layout always brings the layout with menus.
  Combo2.on_click = [this] { main_.ShowMenuLayout(); };
  Command1.on_click = [this] { Save(); };
  Command2.on_click = [this] { Unload(); };
  Command3.on_click = [this] { main_.ShowHelpTopic(kSysInitHelp); };
}

void SysInit::Load() {
  CenterForm(*this, session_.ws);
  ShowFolder(program_choice_, SysPath.text);
  ShowFolder(data_choice_, LocalPath.text);
}

void SysInit::ShowFolder(FolderChoice& choice, const std::string& folder) {
  std::string current = NearestExistingFolder(folder);
  std::string root = RootOf(current);

  ComboBox& drives = *choice.drives;
  drives.items = FileSystemRoots();
  drives.list_index = -1;
  for (size_t i = 0; i < drives.items.size(); ++i) {
    if (SameRoot(drives.items[i], root)) drives.list_index = static_cast<int>(i);
  }
  if (drives.list_index < 0 && !root.empty()) {
    drives.items.push_back(root);
    drives.list_index = static_cast<int>(drives.items.size()) - 1;
  }
  drives.text = drives.SelectedItem();

  // The way down from the root to the folder, then the folder's own
  // sub-folders one step further in.
  ListBox& list = *choice.folders;
  list.Clear();
  choice.paths.clear();
  choice.current = current;
  fs::path walk = ToFsPath(root);
  list.AddItem(root);
  choice.paths.push_back(root);
  std::string indent;
  for (const fs::path& part : ToFsPath(current).relative_path()) {
    if (part.empty()) continue;
    walk /= part;
    indent += "  ";
    list.AddItem(indent + FromFsPath(part));
    choice.paths.push_back(FromFsPath(walk));
  }
  list.list_index = static_cast<int>(list.items.size()) - 1;
  indent += "  ";
  for (const std::string& name : SubFolders(current)) {
    list.AddItem(indent + name);
    choice.paths.push_back(JoinPath(current, name));
  }
}

void SysInit::DriveChanged(FolderChoice& choice) {
  std::string root = choice.drives->SelectedItem();
  if (root.empty() || SameRoot(root, RootOf(choice.current))) return;
  ShowFolder(choice, root);
  choice.field->text = choice.current;
}

void SysInit::FolderClicked(FolderChoice& choice) {
  int index = choice.folders->list_index;
  if (index < 0 || index >= static_cast<int>(choice.paths.size())) return;
  choice.field->text = FieldTextOf(choice.paths[index]);
}

void SysInit::FolderOpened(FolderChoice& choice) {
  int index = choice.folders->list_index;
  if (index < 0 || index >= static_cast<int>(choice.paths.size())) return;
  ShowFolder(choice, choice.paths[index]);
  choice.field->text = FieldTextOf(choice.current);
}

void SysInit::RefreshProjectCommands(bool projects_exist) {
  for (MenuItem* menu : {&main_.M_OpenProject, &main_.M_CopyProject, &main_.M_DeleteProject,
                         &main_.M_RenameProject}) {
    menu->enabled = projects_exist;
  }
  for (Label* label : {&main_.LPO, &main_.LPC, &main_.LPD}) {
    main_.SetButtonsForMenu(*label, projects_exist);
  }
  main_.M_Outsp_Calc.enabled = false;
}

bool SysInit::Save() {
  Workspace& ws = session_.ws;
  Dialogs& dialogs = *session_.dialogs;
  std::string system_path = StoredPathForm(SysPath.text);
  std::string local_path = StoredPathForm(LocalPath.text);

  if (!CanChangeToFolder(JoinPath(system_path, "TGZELMO"))) {
    dialogs.MsgBox("Program path does not exist", mb::kExclamation, "Error message");
    SysPath.SelectAll();
    SysPath.SetFocus();
    return false;
  }
  if (!CanChangeToFolder(local_path)) {
    dialogs.MsgBox("Data path " + local_path + " is now created", mb::kInformation, "Message");
    bool created =
        !local_path.empty() && ToFsPath(local_path).is_absolute() && CreateFolderTree(local_path);
    if (!created) {
      dialogs.MsgBox("You may not create this data path : " + local_path + " !", mb::kExclamation,
                     "Error message");
      LocalPath.SelectAll();
      LocalPath.SetFocus();
      return false;
    }
  }
  if (!CanChangeToFolder(JoinPath(system_path, "TZELMO"))) {
    dialogs.MsgBox("Thermal path does not exist", mb::kExclamation, "Error message");
    SysPath.SelectAll();
    SysPath.SetFocus();
    return false;
  }

  bool projects_exist = FileCanOpen(JoinPath(local_path, "PROJECTS.LIB"));
  RefreshProjectCommands(projects_exist);

  std::string accuracy = TrimBlanks(Combo1.text.empty() ? Combo1.SelectedItem() : Combo1.text);
  SettingsStore& store = *session_.settings;
  store.Save(kSettingsApplication, kSettingsSection, kKeySystemPath, system_path);
  store.Save(kSettingsApplication, kSettingsSection, kKeyLocalPath, local_path);
  store.Save(kSettingsApplication, kSettingsSection, kKeyAccuracyLevel, accuracy);
  ws.SystemPath = system_path;
  ws.LocalPath = local_path;
  ws.AccuracyLevelTL = accuracy.substr(0, 1);
  DeriveDirectories(ws, false);

  // An open project stays in the workspace but is reached by menu only
  // after it is opened again.
  main_.M_Project.enabled = true;
  main_.M_NewProject.enabled = true;
  main_.SetButtonsForMenu(main_.LPN, true);
  for (MenuItem* menu : {&main_.M_OpenProject, &main_.M_CopyProject, &main_.M_DeleteProject,
                         &main_.M_RenameProject}) {
    menu->enabled = projects_exist;
  }
  for (MenuItem* menu : {&main_.M_ThermalLoads, &main_.M_Result, &main_.M_Case, &main_.M_Library,
                         &main_.M_Model, &main_.M_Output}) {
    menu->enabled = false;
  }
  main_.SetTitle("");

  ws.HelpFile = MainHelpFile(ws);
  Unload();
  return true;
}

}  // namespace zelmo
