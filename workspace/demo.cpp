#include "workspace/demo.h"

#include <exception>
#include <string>
#include <vector>

#include "core/fields.h"
#include "core/file_system.h"
#include "core/session.h"
#include "core/text_file.h"
#include "workspace/project_store.h"
#include "workspace/start_form.h"
#include "workspace/sysinit.h"

namespace zelmo {

namespace {

constexpr const char* kDemoTitle = "Project Example";

void Activate(Session& session, StartForm& main) {
  Dialogs& dialogs = *session.dialogs;
  // The example lies in the program tree, or, where a user's first start
  // copied it out of a tree he cannot write, in his data folder.
  const std::string& data = session.ws.LocalPath;
  const std::string root =
      FolderExists(JoinPath(data, "Example")) ? data : JoinPath(session.ws.SystemPath, "ZELMOPROJ");
  if (!FileCanOpen(JoinPath(root, kProjectsFile))) {
    dialogs.MsgBox("No demo project found", mb::kInformation, kDemoTitle);
    return;
  }
  const std::string climate = JoinPath(root, kDemoClimateFile);
  const std::string parked_climate = climate + "_Temp";
  if (!FileCanOpen(parked_climate)) {
    dialogs.MsgBox("The demo project is already active", mb::kInformation, kDemoTitle);
    return;
  }
  if (!RenamePath(parked_climate, climate)) return;

  // The site file gets the path of the example's climate file where it
  // stands in this tree; the parked file, a header without hours, only
  // when the tree lacks it.
  const std::string shipped =
      JoinPath(JoinPath(session.ws.SystemPath, "Climate"), kExampleClimateFile);
  const std::string site_climate = FileCanOpen(shipped) ? shipped : climate;
  const std::string project = JoinPath(root, "Example");
  if (!PointSiteAtClimate(JoinPath(project, "Case1"), site_climate)) return;
  // The validation cases read the same Denver year of the program's Climate
  // folder; the project is left out where a user has deleted it.
  const std::string bestest = JoinPath(root, kBestestProject);
  if (auto cases = ReadAllLines(JoinPath(bestest, "CASES.LIB"))) {
    for (const std::string& line : *cases) {
      const std::string name = ToLower(TrimBlanks(FieldBefore(line, " -")));
      if (!name.empty() && !PointSiteAtClimate(JoinPath(bestest, name), shipped)) return;
    }
  }

  for (const char* name : {"GASTP.INP", "GLASSTP.INP", "OPAQUE.LIB", "WNDTP.LIB"}) {
    const std::string plain = JoinPath(project, name);
    if (!RenamePath(plain + "_Temp", plain)) return;
  }

  SysInit settings(session, main);
  settings.LocalPath.text = root;
  // Save says itself what it refuses; the activation is done either way.
  settings.Save();
  dialogs.MsgBox("The demo project is successfully activated", mb::kInformation, kDemoTitle);
}

}  // namespace

bool PointSiteAtClimate(const std::string& case_folder, const std::string& climate) {
  const std::string site = JoinPath(case_folder, "Site.inp");
  const std::string site_copy = JoinPath(case_folder, "SiteX.inp");
  auto lines = ReadAllLines(site);
  if (!lines) return false;
  for (auto& line : *lines) {
    if (ToLower(line).find("cli") != std::string::npos) line = climate;
  }
  if (!WriteAllLines(site_copy, *lines)) return false;
  // The copy replaces the site file in one step, so a kill in between never
  // leaves the case without one.
  return RenamePath(site_copy, site);
}

void ActivateDemoProject(Session& session, StartForm& main) {
  // A failing step ends the activation without a word.
  try {
    Activate(session, main);
  } catch (const std::exception&) {
  }
}

}  // namespace zelmo
