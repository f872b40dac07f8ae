#include "workspace/case_store.h"

#include "core/controls.h"
#include "core/fields.h"
#include "core/file_system.h"
#include "core/stale.h"
#include "core/text_file.h"
#include "core/workspace.h"
#include "workspace/project_store.h"

namespace zelmo {

std::string CasesFilePath(const Workspace& ws) { return JoinPath(ws.ProjectPath, kCasesFile); }

bool CaseNameTaken(const Workspace& ws, const std::string& name) {
  auto lines = ReadAllLines(CasesFilePath(ws));
  if (!lines) return false;
  const std::string wanted = ToLower(name);
  for (const auto& line : *lines) {
    if (wanted == ToLower(FieldBefore(TrimBlanks(line), " -"))) return true;
  }
  return false;
}

void CreateCaseEntry(Workspace& ws, Form& main_window, const std::string& name,
                     const std::string& given_headline) {
  const std::string headline = OneLineText(given_headline);
  const std::string case_path = JoinPath(ws.ProjectPath, name);
  // A folder left behind by a delete that failed is used again.
  const bool made = CreateFolder(case_path);
  if (!made && !FolderExists(case_path)) throw FileError(case_path, 0, "Path not found");
  const std::string thermal = JoinPath(case_path, kThermalFile);
  const std::string register_file = CasesFilePath(ws);
  const bool flags = WriteAllLines(thermal, {"XXXXXX"});
  if (!flags || !AppendLine(register_file, ToLower(name) + " - " + headline)) {
    if (made) DeleteFolderTree(case_path);
    FailWrite(flags ? register_file : thermal);
  }
  ws.CaseName = ToLower(name);
  ws.CaseHeadline = headline;
  ws.CasePath = case_path;
  main_window.caption = "Project : " + ws.ProjectName + ", Case : " + ws.CaseName;
}

void DeleteCaseLine(const Workspace& ws, const std::string& name) {
  const std::string key = TrimBlanks(name);
  // A name that is no plain folder name would take the delete outside the
  // project: only the line goes then.
  if (IsPlainFolderName(key)) DeleteTree(JoinPath(ws.ProjectPath, key));
  const bool rewritten = RewriteListFile(
      CasesFilePath(ws), [&key](const std::string& line) -> std::optional<std::string> {
        if (TrimBlanks(FieldBefore(line, " -")) == key) return std::nullopt;
        return line;
      });
  if (!rewritten && FileCanOpen(CasesFilePath(ws))) FailWrite(CasesFilePath(ws));
}

void RenameCaseEntry(Workspace& ws, const std::string& old_name, const std::string& new_name,
                     const std::string& old_headline, const std::string& given_headline,
                     bool same_name) {
  const std::string stored_name = ToLower(new_name);
  const std::string new_headline = OneLineText(given_headline);
  const std::string name_key = TrimBlanks(old_name);
  const std::string headline_key = TrimBlanks(old_headline);
  // The folder moves first and comes back when the register cannot follow,
  // so the register always names the folders that are there.
  const std::string old_folder = JoinPath(ws.ProjectPath, old_name);
  const std::string new_folder = JoinPath(ws.ProjectPath, new_name);
  const bool move = !same_name && FolderExists(old_folder);
  if (move && !RenamePath(old_folder, new_folder)) FailWrite(old_folder);
  const bool rewritten = RewriteListFile(
      CasesFilePath(ws), [&](const std::string& line) -> std::optional<std::string> {
        if (TrimBlanks(FieldBefore(line, " -")) == name_key &&
            TrimBlanks(FieldAfter(line, " -")) == headline_key) {
          return stored_name + " - " + new_headline;
        }
        return line;
      });
  if (!rewritten) {
    if (move) RenamePath(new_folder, old_folder);
    FailWrite(CasesFilePath(ws));
  }
  if (old_name == ws.CaseName) {
    ws.CaseName = stored_name;
    ws.CaseHeadline = new_headline;
  }
}

bool IsPlainCaseName(const std::string& name) {
  std::string copy = ToUpper(name);
  return copy.find(' ') == std::string::npos && copy.find('.') == std::string::npos;
}

}  // namespace zelmo
