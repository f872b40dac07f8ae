#include "site/move_climatic_files.h"

#include <filesystem>
#include <optional>
#include <system_error>

#include "core/file_system.h"
#include "core/form_helpers.h"
#include "core/session.h"
#include "core/text_file.h"
#include "site/climate_import.h"

namespace zelmo {

namespace {

constexpr int kMoveHelpContext = 12141;
constexpr const char* kImportTitle = "Import of weather file";

}  // namespace

MoveClimaticFiles::MoveClimaticFiles(Session& session)
    : Form("MoveClimaticFiles"), session_(session) {
  caption = "Move climatic data files to ZELMO-QRN";
  width = 7200;
  height = 5600;
  Frame1.caption = "Directory with climatic data files";
  Label1.caption = "Climatic data files to be moved";
  Label2.caption = "Selected directory";
  Copy.caption = "Move";
  ImportEpw.caption = "&Import EPW...";
  ImportEpw.tool_tip = "Make a climatic data file of an EnergyPlus weather file (.epw)";
  Ok.caption = "Close";
  Help.caption = "&Help";
  cancel_button = "Ok";
  help_context = kMoveHelpContext;
  Drive1.on_click = [this] { DriveChosen(); };
  Dir1.on_dbl_click = [this] { DirOpened(); };
  Dir1.on_key_press = [this](int& key) {
    if (key != keys::kReturn) return;
    key = 0;
    DirOpened();
  };
  Copy.on_click = [this] { Move(); };
  ImportEpw.on_click = [this] { ImportWeatherFile(); };
  Ok.on_click = [this] { Unload(); };
  Help.on_click = [this] { HelpClick(); };
}

std::string MoveClimaticFiles::ClimateFolder() const {
  return JoinPath(session_.ws.SystemPath, "Climate");
}

void MoveClimaticFiles::Load() {
  CenterForm(*this, session_.ws);
  const Workspace& ws = session_.ws;
  bool shown = false;
  for (const std::string& folder : {ws.LocalPath, ws.SystemPath}) {
    if (!shown && !folder.empty()) shown = lists_.SetFolder(folder);
  }
  if (!shown) lists_.SetFolder(DriveRoots().front());
  ShowFolder();
}

void MoveClimaticFiles::ShowFolder() { Selecteddirectory.caption = lists_.folder(); }

void MoveClimaticFiles::DriveChosen() {
  lists_.DriveChosen();
  ShowFolder();
}

void MoveClimaticFiles::DirOpened() {
  lists_.DirOpened();
  ShowFolder();
}

void MoveClimaticFiles::Move() {
  Dialogs& dialogs = *session_.dialogs;
  if (File1.items.empty()) {
    dialogs.MsgBox("There are no files to copy", mb::kExclamation,
                   "Check of copy climatic data files");
    return;
  }
  const std::string target = ClimateFolder();
  bool copied = FolderExists(target) || CreateFolderTree(target);
  {
    BusyPointer busy(dialogs);
    // Files shown from the climate folder itself are there already.
    std::error_code ec;
    const bool same = std::filesystem::equivalent(ToFsPath(lists_.folder()), ToFsPath(target), ec);
    for (size_t i = 0; copied && !same && i < File1.items.size(); ++i) {
      std::string name = File1.items[i];
      while (!name.empty() && name.back() == ' ') name.pop_back();
      copied = CopyFileOver(JoinPath(lists_.folder(), name), JoinPath(target, name));
    }
  }
  if (copied) {
    dialogs.MsgBox("Climatic files are successfully moved to ZELMO-QRN ", mb::kInformation,
                   "Move message");
  } else {
    // Files copied before the failure stay where they are.
    dialogs.MsgBox("Some problems occurred when moving, no files are moved", mb::kExclamation,
                   "Error message");
  }
}

void MoveClimaticFiles::ImportWeatherFile() {
  Dialogs& dialogs = *session_.dialogs;
  FileChoice choice;
  choice.title = "Import an EnergyPlus weather file";
  choice.folder = lists_.folder();
  choice.filters = {kWeatherFilePattern};
  std::optional<std::string> epw = dialogs.ChooseFile(choice);
  if (!epw) return;
  const std::string target = ClimateFolder();
  if (!FolderExists(target) && !CreateFolderTree(target)) {
    dialogs.MsgBox("The climate folder cannot be made\r" + target, mb::kExclamation,
                   "Error message");
    return;
  }
  const std::string cli = ClimateFileFor(*epw, target);
  if (FileCanOpen(cli) &&
      dialogs.MsgBox("The climatic data file " + cli + " exists. Replace it?",
                     mb::kYesNo | mb::kQuestion, kImportTitle) != Answer::kYes) {
    return;
  }
  ClimateImportOutcome outcome;
  {
    BusyPointer busy(dialogs);
    outcome = ImportClimateFile(*epw, cli);
  }
  if (!outcome.written) {
    dialogs.MsgBox(outcome.fault + "\rNo climatic data file is written.", mb::kExclamation,
                   "Error message");
    return;
  }
  // The new file shows in the list of the climate folder.
  lists_.SetFolder(target);
  ShowFolder();
  std::string text;
  for (const std::string& line : outcome.report) text += line + "\r";
  dialogs.MsgBox(text, mb::kInformation, kImportTitle);
}

void MoveClimaticFiles::HelpClick() {
  const Workspace& ws = session_.ws;
  if (session_.desktop) {
    session_.desktop->ShowHelp(
        JoinPath(JoinPath(ws.ProgramDirectory, "Help_English"), "ZELMO_e.chm"), kMoveHelpContext);
  }
}

}  // namespace zelmo
