#include "workspace/store_commands.h"

#include <string>

#include "workspace/case_screens.h"
#include "workspace/project_screens.h"
#include "workspace/start_form.h"

namespace zelmo {

namespace {

template <typename Screen>
void Show(StartForm& main) {
  Screen screen(main.session(), main);
  main.session().dialogs->ShowModal(screen);
}

}  // namespace

void RunNewProject(StartForm& main) { Show<NewProject>(main); }
void RunOpenProject(StartForm& main) { Show<OpenProject>(main); }
void RunCopyProject(StartForm& main) { Show<CopyProject>(main); }

void RunRenameProject(StartForm& main) {
  const Workspace& ws = main.session().ws;
  const std::string before = ws.ProjectName;
  Show<RenProject>(main);
  if (ws.ProjectName == before) return;
  if (ws.CaseName.empty()) {
    main.SetTitle(" (" + ws.ProjectName + ")");
  } else {
    main.SetTitle(" (" + ws.ProjectName + " - " + ws.CaseName + ")");
  }
}

void RunDeleteProject(StartForm& main) {
  Show<DelProject>(main);
  main.RefreshCommandState();
}

void RunNewCase(StartForm& main) { Show<NewCase>(main); }
void RunOpenCase(StartForm& main) { Show<OpenCase>(main); }
void RunCopyCase(StartForm& main) { Show<CopyCase>(main); }

void RunRenameCase(StartForm& main) {
  Show<RenCase>(main);
  // Written whatever the screen did, with no case open too.
  const Workspace& ws = main.session().ws;
  main.SetTitle("Project : " + ws.ProjectName + ", Case : " + ws.CaseName);
}

void RunDeleteCase(StartForm& main) { Show<DelCase>(main); }

}  // namespace zelmo
