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
                     const std::string& headline) {
  AppendLine(CasesFilePath(ws), ToLower(name) + " - " + headline);
  ws.CaseName = ToLower(name);
  ws.CaseHeadline = headline;
  ws.CasePath = JoinPath(ws.ProjectPath, name);
  main_window.caption = "Project : " + ws.ProjectName + ", Case : " + ws.CaseName;
  CreateFolder(ws.CasePath);
  WriteAllLines(JoinPath(ws.CasePath, kThermalFile), {"XXXXXX"});
}

void DeleteCaseLine(const Workspace& ws, const std::string& name) {
  const std::string key = TrimBlanks(name);
  // A name that is no plain folder name would take the delete outside the
  // project: only the line goes then.
  if (IsPlainFolderName(key)) DeleteTree(JoinPath(ws.ProjectPath, key));
  RewriteListFile(CasesFilePath(ws), [&key](const std::string& line) -> std::optional<std::string> {
    if (TrimBlanks(FieldBefore(line, " -")) == key) return std::nullopt;
    return line;
  });
}

void RenameCaseEntry(Workspace& ws, const std::string& old_name, const std::string& new_name,
                     const std::string& old_headline, const std::string& new_headline,
                     bool same_name) {
  const std::string stored_name = ToLower(new_name);
  const std::string name_key = TrimBlanks(old_name);
  const std::string headline_key = TrimBlanks(old_headline);
  RewriteListFile(CasesFilePath(ws), [&](const std::string& line) -> std::optional<std::string> {
    if (TrimBlanks(FieldBefore(line, " -")) == name_key &&
        TrimBlanks(FieldAfter(line, " -")) == headline_key) {
      return stored_name + " - " + new_headline;
    }
    return line;
  });
  if (old_name == ws.CaseName) {
    ws.CaseName = stored_name;
    ws.CaseHeadline = new_headline;
  }
  if (!same_name)
    RenamePath(JoinPath(ws.ProjectPath, old_name), JoinPath(ws.ProjectPath, new_name));
}

bool IsPlainCaseName(const std::string& name) {
  std::string copy = ToUpper(name);
  return copy.find(' ') == std::string::npos && copy.find('.') == std::string::npos;
}

}  // namespace zelmo
