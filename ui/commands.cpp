#include "ui/commands.h"

#include <QCoreApplication>

#include "building/fluid_adv_screen.h"
#include "building/force_vent_screen.h"
#include "building/genpars.h"
#include "building/surface_screen.h"
#include "schedules/hvac_screen.h"
#include "simulation/launchers.h"
#include "simulation/results_screen.h"
#include "site/move_climatic_files.h"
#include "site/site_screen.h"
#include "workspace/demo.h"
#include "workspace/start_form.h"
#include "workspace/store_commands.h"

namespace zelmo::ui {

void WireCommands(StartForm& main) {
  // The main window's own commands.
  main.M_EditSystemFile.on_click = [&main] { main.OpenSettings(); };
  main.M_CloseZelmo.on_click = [&main] { main.ExitProgram(); };
  main.M_AboutZelmo.on_click = [&main] { main.ShowAbout(); };
  main.M_Support.on_click = [&main] { main.ShowSupport(); };
  main.M_MainForm.on_click = [&main] { main.ShowHelpTopic(12100); };
  // File
  main.M_Copyclimaticdatafiles.on_click = [&main] {
    MoveClimaticFiles screen(main.session());
    main.session().dialogs->ShowModal(screen);
  };
  main.M_ActivetaDemo.on_click = [&main] { ActivateDemoProject(main.session(), main); };
  // Project
  main.M_NewProject.on_click = [&main] { RunNewProject(main); };
  main.M_OpenProject.on_click = [&main] { RunOpenProject(main); };
  main.M_CopyProject.on_click = [&main] { RunCopyProject(main); };
  main.M_DeleteProject.on_click = [&main] { RunDeleteProject(main); };
  main.M_RenameProject.on_click = [&main] { RunRenameProject(main); };
  // Case
  main.M_NewCase.on_click = [&main] { RunNewCase(main); };
  main.M_OpenCase.on_click = [&main] { RunOpenCase(main); };
  main.M_CopyCase.on_click = [&main] { RunCopyCase(main); };
  main.M_DeleteCase.on_click = [&main] { RunDeleteCase(main); };
  main.M_RenameCase.on_click = [&main] { RunRenameCase(main); };
  // Model
  main.M_Surface.on_click = [&main] {
    Surface screen(main.session());
    // The screen's fatal box ends the program, as it says.
    screen.end_program = [] { QCoreApplication::exit(1); };
    main.session().dialogs->ShowModal(screen);
  };
  main.M_Site.on_click = [&main] {
    Site screen(main.session());
    main.session().dialogs->ShowModal(screen);
  };
  main.M_GeneralParameters.on_click = [&main] {
    GenPars screen(main.session());
    main.session().dialogs->ShowModal(screen);
  };
  main.M_ForcedVent.on_click = [&main] {
    ForceVent screen(main.session());
    main.session().dialogs->ShowModal(screen);
  };
  main.M_IHCI.on_click = [&main] {
    HVAC screen(main.session());
    main.session().dialogs->ShowModal(screen);
  };
  main.M_FluidAdvConn.on_click = [&main] {
    FluidAdv screen(main.session());
    main.session().dialogs->ShowModal(screen);
  };
  // Results
  main.M_Textfiles.on_click = [&main] {
    Results results(main.session());
    main.session().dialogs->ShowModal(results);
  };
  main.M_Line.on_click = [&main] { RunLineDiagram(main.session()); };
  main.M_Comfort.on_click = [&main] { RunThermalComfort(main.session()); };
  main.M_VComfort.on_click = [&main] { RunVisualComfort(main.session()); };
  // Help
  main.M_HelpInfo.on_click = [&main] { ShowUsersManual(main.session()); };
}

}  // namespace zelmo::ui
