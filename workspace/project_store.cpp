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
  // The register holds the folder's name in lower case; the folder is made
  // so, under the data folder as the user gave it. A folder that is there
  // already is taken.
  std::string project_path = JoinPath(ParentFolder(folder), ToLower(LastName(folder)));
  const bool made = CreateFolder(project_path);
  if (!made && !FolderExists(project_path)) throw FileError(project_path, 0, "Path not found");
  if (!AppendLine(ProjectsFilePath(ws), ToLower(name + kTab + name))) {
    if (made) DeleteFolderTree(project_path);
    FailWrite(ProjectsFilePath(ws));
  }
  ws.ProjectName = ToLower(name);
  ws.ProjectPath = project_path;
  ws.CaseName.clear();
  main_window.caption = "Project : " + ws.ProjectName;
}

void DeleteProjectLine(const Workspace& ws, const std::string& name) {
  const std::string key = TrimBlanks(name);
  const bool rewritten = RewriteListFile(
      ProjectsFilePath(ws), [&key](const std::string& line) -> std::optional<std::string> {
        if (TrimBlanks(FieldBefore(line, kTab)) == key) return std::nullopt;
        return line;
      });
  if (!rewritten && FileCanOpen(ProjectsFilePath(ws))) FailWrite(ProjectsFilePath(ws));
}

void RenameProjectLine(const Workspace& ws, const std::string& old_name,
                       const std::string& new_name) {
  const std::string key = TrimBlanks(old_name);
  const bool rewritten = RewriteListFile(
      ProjectsFilePath(ws), [&](const std::string& line) -> std::optional<std::string> {
        if (TrimBlanks(FieldBefore(line, kTab)) != key) return line;
        return new_name + kTab + FieldAfter(line, kTab);
      });
  if (!rewritten && FileCanOpen(ProjectsFilePath(ws))) FailWrite(ProjectsFilePath(ws));
}

void DeleteTree(const std::string& path) {
  if (path.empty()) return;
  DeleteFolderTree(path);
}

namespace {

// The list file of a delete screen loses the line of `key`, through its
// .XXX file renamed over it in one step.
void RemoveListLine(const std::string& list_path, const std::string& key, bool is_project) {
  const bool rewritten =
      RewriteListFile(list_path, [&](const std::string& line) -> std::optional<std::string> {
        std::string first = is_project ? FieldBefore(line, kTab) : FieldBefore(line, " -");
        if (TrimBlanks(first) == TrimBlanks(key)) return std::nullopt;
        return line;
      });
  if (!rewritten && FileCanOpen(list_path)) FailWrite(list_path);
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
  RemoveListLine(is_project ? ProjectsFilePath(ws) : CasesFilePath(ws), key, is_project);
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
