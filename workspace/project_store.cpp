#include "workspace/project_store.h"

#include "core/controls.h"
#include "core/fields.h"
#include "core/file_system.h"
#include "core/session.h"
#include "core/text_file.h"
#include "workspace/case_store.h"

namespace zelmo {

std::string ProjectsFilePath(const Workspace& ws) { return JoinPath(ws.LocalPath, kProjectsFile); }

std::vector<ProjectLine> ReadProjectLines(const Workspace& ws) {
  std::vector<ProjectLine> projects;
  auto lines = ReadAllLines(ProjectsFilePath(ws));
  if (!lines) return projects;
  for (const auto& raw : *lines) {
    std::string line = TrimBlanks(raw);
    projects.push_back({TrimBlanks(FieldBefore(line, kTab)), TrimBlanks(FieldAfter(line, kTab))});
  }
  return projects;
}

std::string ProjectListItem(const ProjectLine& line) {
  return ToLower(line.name + " - " + line.directory);
}

void CreateProjectEntry(Workspace& ws, Form& main_window, const std::string& name,
                        const std::string& directory) {
  std::string folder = StripTrailingSeparator(directory);
  AppendLine(ProjectsFilePath(ws), ToLower(name + kTab + name));
  // The register holds the folder's name in lower case; the folder is made
  // so, under the data folder as the user gave it.
  std::string project_path = JoinPath(ParentFolder(folder), ToLower(LastName(folder)));
  CreateFolder(project_path);
  ws.ProjectName = ToLower(name);
  ws.ProjectPath = project_path;
  ws.CaseName.clear();
  main_window.caption = "Project : " + ws.ProjectName;
}

void DeleteProjectLine(const Workspace& ws, const std::string& name) {
  const std::string key = TrimBlanks(name);
  RewriteListFile(ProjectsFilePath(ws),
                  [&key](const std::string& line) -> std::optional<std::string> {
                    if (TrimBlanks(FieldBefore(line, kTab)) == key) return std::nullopt;
                    return line;
                  });
}

void RenameProjectLine(const Workspace& ws, const std::string& old_name,
                       const std::string& new_name) {
  const std::string key = TrimBlanks(old_name);
  RewriteListFile(ProjectsFilePath(ws), [&](const std::string& line) -> std::optional<std::string> {
    if (TrimBlanks(FieldBefore(line, kTab)) != key) return line;
    return new_name + kTab + FieldAfter(line, kTab);
  });
}

void DeleteTree(const std::string& path) {
  if (path.empty()) return;
  DeleteFolderTree(path);
}

namespace {

// The list file of a delete screen is rewritten through its .XXX file, which
// is then copied over the list and deleted.
void RemoveListLineByCopy(const std::string& list_path, const std::string& key, bool is_project) {
  auto lines = ReadAllLines(list_path);
  if (!lines) return;
  std::vector<std::string> kept;
  for (const auto& raw : *lines) {
    std::string line = TrimBlanks(raw);
    std::string first = is_project ? FieldBefore(line, kTab) : FieldBefore(line, " -");
    if (TrimBlanks(first) == TrimBlanks(key)) continue;
    kept.push_back(line);
  }
  const std::string temp = ListTempPath(list_path);
  if (!WriteAllLines(temp, kept)) return;
  CopyFileOver(temp, list_path);
  DeleteFile(temp);
}

}  // namespace

bool DeleteDirectoryAndEntry(Session& session, const std::string& full_path, const std::string& key,
                             bool is_project) {
  // A key that is no plain folder name would take the delete outside the
  // data: such a folder is never removed.
  const bool plain = !TrimBlanks(key).empty() && !EscapesFolder(key);
  if (!plain || !FolderExists(full_path) || !DeleteFolderTree(full_path)) {
    session.dialogs->MsgBox("Can't delete the directory and its contents !", mb::kOkOnly, "");
    session.dialogs->MsgBox("Some error has occurred !", mb::kOkOnly, "");
    return false;
  }
  const Workspace& ws = session.ws;
  RemoveListLineByCopy(is_project ? ProjectsFilePath(ws) : CasesFilePath(ws), key, is_project);
  return true;
}

void ShowScreenHelp(Session& session, int context) {
  if (!session.desktop) return;
  std::string help_file = session.ws.HelpFile;
  if (help_file.empty()) {
    help_file = JoinPath(JoinPath(session.ws.ProgramDirectory, "Help_English"), "ZELMO_e.chm");
  }
  session.desktop->ShowHelp(help_file, context);
}

}  // namespace zelmo
