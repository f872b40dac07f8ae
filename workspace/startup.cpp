#include "workspace/startup.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <iomanip>
#include <locale>
#include <sstream>
#include <stdexcept>

#include "core/fields.h"
#include "core/file_system.h"
#include "core/form_helpers.h"
#include "core/session.h"
#include "core/text_file.h"
#include "workspace/project_store.h"
#include "workspace/start_form.h"
#include "workspace/sysinit.h"

namespace zelmo {

std::string DefaultSystemPath(const std::string& program_directory) {
#ifdef _WIN32
  (void)program_directory;
  return "C:\\Zelmo";
#else
  return program_directory;
#endif
}

std::string DefaultLocalPath() {
#ifdef _WIN32
  return "C:\\ZELMOPROJ";
#else
  const char* home = std::getenv("HOME");
  if (!home || !*home) return "/ZELMOPROJ";
  return JoinPath(FromFsPath(std::filesystem::path(home)), "ZELMOPROJ");
#endif
}

std::string SettingsPathRead(const std::string& value) {
  // A program tree or data folder deep in the file system is found where it
  // is: no length cuts a path short.
  return TrimBlanks(value);
}

std::string StoredPathForm(const std::string& path) {
#ifdef _WIN32
  return ToUpper(TrimBlanks(path));
#else
  return TrimBlanks(path);
#endif
}

void DeriveDirectories(Workspace& ws, bool with_diagram) {
  ws.MainDirectory = JoinPath(ws.SystemPath, "TGZELMO");
  ws.ThermalDirectory = JoinPath(ws.SystemPath, "TZELMO");
  ws.ComfortDirectory = JoinPath(ws.SystemPath, "FELT");
  if (with_diagram) ws.DiagramDirectory = JoinPath(ws.SystemPath, "DIAGRAM");
}

std::string MainHelpFile(const Workspace& ws) {
  return JoinPath(JoinPath(ws.ProgramDirectory, "Help_English"), "ZELMO_e.chm");
}

bool SystemDecimalComma() {
  try {
    std::ostringstream two;
    two.imbue(std::locale(""));
    two << std::fixed << std::setprecision(2) << 2.0;
    return two.str().find(',') != std::string::npos;
  } catch (const std::runtime_error&) {
    // A number format the runtime does not know writes a point.
    return false;
  }
}

bool CanChangeToFolder(const std::string& path) {
  if (path.empty() || !ToFsPath(path).is_absolute()) return false;
  return FolderExists(path);
}

namespace {

// Step 5: a marker beside the program makes its folder both the program and
// the data folder, as if the user had saved them in Settings.
void AdoptInstallLocation(Session& session, StartForm& main, const std::string& program_path) {
  if (!EqualsIgnoringCase(LastName(program_path), kProgramFileName)) return;
  std::string directory = StripTrailingSeparator(ParentFolder(program_path));
  std::string marker = JoinPath(directory, kFirstStartMarker);
  if (!FileCanOpen(marker)) return;
  SysInit settings(session, main);
  settings.SysPath.text = directory;
  settings.LocalPath.text = directory;
  settings.Combo1.list_index = 0;
  settings.Combo1.text = kAccuracyTimestep;
  settings.Save();
  DeleteFile(marker);
}

// A user's first start where no marker adopts the tree, as for a program
// installed in a folder the user cannot write: with no data folder stored
// for this user, the data folder is made under the home folder with a copy
// of the tree's example project, and both paths are stored as Settings would
// store them.
void AdoptUserDataFolder(Session& session, StartForm& main, const std::string& directory) {
  if (!session.settings->Get(kSettingsApplication, kSettingsSection, kKeyLocalPath, "").empty()) {
    return;
  }
  const std::string example = JoinPath(directory, "ZELMOPROJ");
  if (!FileCanOpen(JoinPath(example, kProjectsFile))) return;
  const std::string data = DefaultLocalPath();
  if (!FolderExists(data) && !CopyFolderTree(example, data)) return;
  SysInit settings(session, main);
  settings.SysPath.text = directory;
  settings.LocalPath.text = data;
  settings.Combo1.list_index = 0;
  settings.Combo1.text = kAccuracyTimestep;
  settings.Save();
}

}  // namespace

void ReadStoredSettings(SettingsStore& store, Workspace& ws) {
  ws.SystemPath = SettingsPathRead(store.Get(kSettingsApplication, kSettingsSection, kKeySystemPath,
                                             DefaultSystemPath(ws.ProgramDirectory)));
  ws.LocalPath = SettingsPathRead(
      store.Get(kSettingsApplication, kSettingsSection, kKeyLocalPath, DefaultLocalPath()));
  // The stored accuracy is not read back: every start calculates with a new
  // coefficient each timestep.
  ws.AccuracyLevelTL = "2";
}

void StartUp(Session& session, StartForm& main, const std::string& given_program_path) {
  Workspace& ws = session.ws;
  // The folders taken from the program's own path are shown and stored with
  // the platform's separator, whatever form the toolkit hands it in.
  const std::string program_path = FromFsPath(ToFsPath(given_program_path).make_preferred());
  main.SetTitle("");
  main.SetButtonsForMenu(main.LPN, true);
  main.LblVersion.caption = kVersionText;
  main.LblVersion.visible = true;
  main.SetTitle(kVersionText);

  ws.ProgramDirectory = StripTrailingSeparator(ParentFolder(program_path));
  ws.HelpFile = MainHelpFile(ws);
  AdoptInstallLocation(session, main, program_path);
  AdoptUserDataFolder(session, main, ws.ProgramDirectory);

  main.SetTitle("");
  main.LblVersion.visible = false;
  ws.DecimalComma = SystemDecimalComma();

  ReadStoredSettings(*session.settings, ws);
  DeriveDirectories(ws, true);

  CenterForm(main, ws);
  main.RefreshCommandState();
}

}  // namespace zelmo
