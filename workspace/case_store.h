// The register of a project's cases: CASES.LIB in the project folder, one
// line per case, "<name> - <headline>", the name in lower case. Each case
// folder holds THERMAL.INP, one flag per calculation module.
#pragma once

#include <cstddef>
#include <string>

namespace zelmo {

class Form;
struct Workspace;

inline constexpr const char* kCasesFile = "CASES.LIB";

// The longest case name; the register holds it in lower case.
inline constexpr size_t kCaseNameLength = 8;

std::string CasesFilePath(const Workspace& ws);
// True when a case of CASES.LIB has this name, the case of letters ignored.
bool CaseNameTaken(const Workspace& ws, const std::string& name);

// Registers a case and makes it the current one: makes the folder and its
// THERMAL.INP "XXXXXX", appends its line (the headline kept to one line),
// sets CaseName, CaseHeadline and CasePath (the name as typed) and writes the
// main window's title. A step that fails throws FileError naming the file
// or folder, after the steps before it are undone: nothing is registered.
void CreateCaseEntry(Workspace& ws, Form& main_window, const std::string& name,
                     const std::string& headline);

// Removes the case folder, then the line whose name equals `name` (both
// trimmed), through CASES.XXX. A register that cannot be rewritten throws
// FileError.
void DeleteCaseLine(const Workspace& ws, const std::string& name);

// Rewrites the line of `old_name` with `old_headline` (both must match) as
// the new name and headline, follows the current case, and moves the folder
// unless the name stays the same. A register that cannot be rewritten
// throws FileError and nothing changes.
void RenameCaseEntry(Workspace& ws, const std::string& old_name, const std::string& new_name,
                     const std::string& old_headline, const std::string& new_headline,
                     bool same_name);

// A name with neither a blank nor a ".".
bool IsPlainCaseName(const std::string& name);

}  // namespace zelmo
