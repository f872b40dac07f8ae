// The register of projects: PROJECTS.LIB in the data folder, one line per
// project, "<name> TAB <directory>", both lower case. The directory is a bare
// folder name under the data folder; only Rename makes it differ from the
// name.
#pragma once

#include <string>
#include <vector>

namespace zelmo {

class Form;
struct Session;
struct Workspace;

inline constexpr const char* kProjectsFile = "PROJECTS.LIB";

// The four library files every new project gets from the program's folder.
inline const std::vector<std::string> kDefaultLibraryFiles = {"GASTP.INP", "GLASSTP.INP",
                                                              "Wndtp.LIB", "OPAQUE.LIB"};
// Result files of the calculation modules, dropped when a project or a case
// is copied.
inline const std::vector<std::string> kResultExtensions = {".TXT", ".LIS", ".DDD", ".GGG", ".PPP"};

std::string ProjectsFilePath(const Workspace& ws);

// One project of PROJECTS.LIB.
struct ProjectLine {
  std::string name;       // field 1, trimmed
  std::string directory;  // field 2, trimmed
};
// The lines of PROJECTS.LIB; nothing when the file cannot be opened.
std::vector<ProjectLine> ReadProjectLines(const Workspace& ws);
// The screens' list item of a project: "<name> - <directory>", lower case.
std::string ProjectListItem(const ProjectLine& line);

// Registers a project and makes it the current one: appends its line, makes
// its folder, sets ProjectName and ProjectPath, clears CaseName and writes
// the main window's title. A failing step is skipped and the rest goes on.
// `directory` is the project's folder under the data folder; the folder
// itself gets the lower-case name the register holds.
void CreateProjectEntry(Workspace& ws, Form& main_window, const std::string& name,
                        const std::string& directory);

// Removes the line whose first field equals `name` (both trimmed), through
// PROJECTS.XXX.
void DeleteProjectLine(const Workspace& ws, const std::string& name);
// Gives the line whose first field equals `old_name` the first field
// `new_name`; the directory stays.
void RenameProjectLine(const Workspace& ws, const std::string& old_name,
                       const std::string& new_name);

// Removes a folder with everything in it. Fails silently.
void DeleteTree(const std::string& path);

// The Delete button of the delete screens: removes the folder `full_path`
// whole, then the line of the list file whose first field equals `key`
// (PROJECTS.LIB when `is_project`, else CASES.LIB of the current project).
// A missing folder is reported and the list file is left alone; the answer
// is whether the folder was removed.
bool DeleteDirectoryAndEntry(Session& session, const std::string& full_path, const std::string& key,
                             bool is_project);

// The help file of the main window, for the screens' Help buttons.
void ShowScreenHelp(Session& session, int context);

}  // namespace zelmo
