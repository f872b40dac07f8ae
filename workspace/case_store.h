// The register of a project's cases: CASES.LIB in the project folder, one
// line per case, "<name> - <headline>", the name in lower case. Each case
// folder holds THERMAL.INP, one flag per calculation module.
#pragma once

#include <string>

namespace zelmo {

class Form;
struct Workspace;

inline constexpr const char* kCasesFile = "CASES.LIB";

std::string CasesFilePath(const Workspace& ws);
// True when a case of CASES.LIB has this name, the case of letters ignored.
bool CaseNameTaken(const Workspace& ws, const std::string& name);

// Registers a case and makes it the current one: appends its line, sets
// CaseName, CaseHeadline and CasePath (the name as typed), writes the main
// window's title, makes the folder and its THERMAL.INP "XXXXXX". A failing
// step is skipped and the rest goes on.
void CreateCaseEntry(Workspace& ws, Form& main_window, const std::string& name,
                     const std::string& headline);

// Removes the case folder, then the line whose name equals `name` (both
// trimmed), through CASES.XXX.
void DeleteCaseLine(const Workspace& ws, const std::string& name);

// Rewrites the line of `old_name` with `old_headline` (both must match) as
// the new name and headline, follows the current case, and moves the folder
// unless the name stays the same.
void RenameCaseEntry(Workspace& ws, const std::string& old_name, const std::string& new_name,
                     const std::string& old_headline, const std::string& new_headline,
                     bool same_name);

// A name with neither a blank nor a ".".
bool IsPlainCaseName(const std::string& name);

}  // namespace zelmo
