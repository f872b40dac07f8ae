#include "simulation/launchers.h"

#include <algorithm>
#include <filesystem>
#include <fstream>

#include "building/surface_file.h"
#include "building/volumes.h"
#include "core/dialogs.h"
#include "core/file_system.h"
#include "core/ports.h"
#include "core/session.h"
#include "core/text_file.h"
#include "libraries/output_spec.h"
#include "simulation/module_error.h"
#include "simulation/modules.h"

namespace zelmo {

namespace {

void NoComfort(Session& session) {
  session.dialogs->MsgBox("No Comfort calculations has been done", mb::kExclamation, "Comfort");
}

// Felt.EXE, then the viewer when Felt.EXE has left its Felt.GGG.
void RunComfortPrograms(Session& session, const std::string& viewer,
                        const std::string& viewer_argument) {
  const Workspace& ws = session.ws;
  // A comfort program that could not be started has been named to the user.
  if (!RunProgram(session, JoinPath(ws.ComfortDirectory, "Felt.EXE"), {CaseArgument(ws)},
                  window_mode::kNoActivate)) {
    return;
  }
  if (!FileCanOpen(JoinPath(ws.CasePath, "Felt.GGG"))) {
    NoComfort(session);
    return;
  }
  RunProgram(session, JoinPath(ws.ComfortDirectory, viewer), {viewer_argument},
             window_mode::kNormal);
}

}  // namespace

void RunLineDiagram(Session& session) {
  const Workspace& ws = session.ws;
  RunProgram(session, JoinPath(ws.DiagramDirectory, "RSDiagram.EXE"), {CaseArgument(ws)},
             window_mode::kNormal);
}

void RunThermalComfort(Session& session) {
  const Workspace& ws = session.ws;
  int code = 0;
  std::string module, text;
  double number = 0;
  if (!ReadStatusFile(ws, code, module, text, number)) {
    ShowPreviousRunError(session, code, module);
    return;
  }
  if (!ComfortVolumeChosen(ws)) {
    NoComfort(session);
    return;
  }
  RunComfortPrograms(session, "TrvComf.EXE", CaseArgument(ws) + "Felt");
}

void RunVisualComfort(Session& session) {
  // The daylight program of the family is no part of this program: the user
  // learns so, rather than seeing a program fail to start.
  session.dialogs->MsgBox(kNoVisualComfort, mb::kInformation, "Visual comfort");
}

void ShowUsersManual(Session& session) {
  const Workspace& ws = session.ws;
  std::string marker = JoinPath(ws.MainDirectory, "pq.pdf");
  TouchFile(marker);
  std::string reader = RegisteredProgram(session, marker);
  if (reader.empty()) {
    session.dialogs->MsgBox("No Excel program was found ! ", mb::kExclamation, "Error message");
    return;
  }
  // The manual lies on the medium the program came on, at the root of the
  // program's drive.
  std::string root = FromFsPath(ToFsPath(ws.MainDirectory).root_path());
  RunProgram(session, reader, {root + "document" + Separator() + "CD_Zelmo4w4.pdf"},
             window_mode::kNormal);
}

bool ComfortVolumeChosen(const Workspace& ws) {
  std::optional<OutputSpec> spec = ReadOutputSpec(ws);
  if (!spec) return false;
  // The output specification counts only the rows of volumes the elements
  // still name; a row left from a volume that is gone chooses nothing.
  std::vector<std::string> volumes = BuildVolumeList(ReadSurfaceVolumes(ws));
  for (const auto& row : spec->rows) {
    if (IsFlagOn(row.flags[kComfortFlag]) &&
        std::find(volumes.begin(), volumes.end(), row.volume) != volumes.end()) {
      return true;
    }
  }
  return false;
}

std::string RegisteredProgram(Session& session, const std::string& file) {
  std::string found = session.desktop ? session.desktop->FindExecutable(file) : std::string();
  size_t at = found.find(".exe");
  if (at == std::string::npos) at = found.find(".EXE");
  if (at != std::string::npos) return found.substr(0, at + 4);
#ifdef _WIN32
  return {};
#else
  // Programs here carry no .exe ending: the whole answer is the program.
  return found;
#endif
}

void TouchFile(const std::string& path) {
  std::ofstream touch(ResolvePath(ToFsPath(path)), std::ios::binary | std::ios::app);
}

}  // namespace zelmo
