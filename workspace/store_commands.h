// The main window's commands of the Project and Case menus: each shows its
// screen modally and, where the main window has more to do once the screen
// is closed, does it.
#pragma once

namespace zelmo {

class StartForm;

void RunNewProject(StartForm& main);
void RunOpenProject(StartForm& main);
void RunCopyProject(StartForm& main);
// Writes the bracket title " (<project>)", or " (<project> - <case>)" with a
// case open, when the current project's name changed.
void RunRenameProject(StartForm& main);
// Refreshes the command state afterwards.
void RunDeleteProject(StartForm& main);
void RunNewCase(StartForm& main);
void RunOpenCase(StartForm& main);
void RunCopyCase(StartForm& main);
// Writes the title afterwards, "Project : <ProjectName>, Case : <CaseName>",
// whatever the screen did.
void RunRenameCase(StartForm& main);
void RunDeleteCase(StartForm& main);

}  // namespace zelmo
