#include "ui/commands.h"

#include <QCoreApplication>
#include <functional>

#include "building/fluid_adv_screen.h"
#include "building/force_vent_screen.h"
#include "building/genpars.h"
#include "building/surface_screen.h"
#include "libraries/gas_screen.h"
#include "libraries/glass_types_screen.h"
#include "libraries/misched_screen.h"
#include "libraries/moveins_screen.h"
#include "libraries/opaque_screen.h"
#include "libraries/output_screen.h"
#include "libraries/walls_screen.h"
#include "libraries/window_types_screen.h"
#include "schedules/hvac_screen.h"
#include "simulation/launchers.h"
#include "simulation/list_of_elements.h"
#include "simulation/results_screen.h"
#include "simulation/therm_load_screen.h"
#include "simulation/view_of_build.h"
#include "site/convert_v20.h"
#include "site/move_climatic_files.h"
#include "site/site_screen.h"
#include "workspace/demo.h"
#include "workspace/start_form.h"
#include "workspace/store_commands.h"

namespace zelmo::ui {

namespace {

// A command that shows a screen of the session modally.
template <class Screen>
std::function<void()> Opens(StartForm& main) {
  return [&main] {
    Screen screen(main.session());
    main.session().dialogs->ShowModal(screen);
  };
}

}  // namespace

void WireCommands(StartForm& main) {
  // The main window's own commands.
  main.M_EditSystemFile.on_click = [&main] { main.OpenSettings(); };
  main.M_CloseZelmo.on_click = [&main] { main.ExitProgram(); };
  main.M_AboutZelmo.on_click = [&main] { main.ShowAbout(); };
  main.M_Support.on_click = [&main] { main.ShowSupport(); };
  main.M_MainForm.on_click = [&main] { main.ShowHelpTopic(12100); };
  // File
  main.M_Copyclimaticdatafiles.on_click = Opens<MoveClimaticFiles>(main);
  main.M_ConvertV20.on_click = Opens<Cv12TOv20>(main);
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
  // Library
  main.M_Glass_Types.on_click = Opens<Glass_types>(main);
  main.M_Gases.on_click = Opens<Gases>(main);
  // Both window entries open the window types.
  for (MenuItem* item : {&main.M_Windows_9701, &main.M_Window_types}) {
    item->on_click = Opens<Wind_Types>(main);
  }
  main.M_OpaqueMaterial.on_click = [&main] {
    OpaqueMtrl screen(main.session());
    screen.Tag.clear();
    main.session().dialogs->ShowModal(screen);
  };
  main.M_Wall.on_click = Opens<Walls>(main);
  main.M_MovableInsulation.on_click = Opens<MoveIns>(main);
  // Model
  main.M_Surface.on_click = [&main] {
    Surface screen(main.session());
    // The screen's fatal box ends the program, as it says.
    screen.end_program = [] { QCoreApplication::exit(1); };
    main.session().dialogs->ShowModal(screen);
  };
  main.M_Site.on_click = Opens<Site>(main);
  main.M_GeneralParameters.on_click = Opens<GenPars>(main);
  main.M_MISchedule.on_click = Opens<MISched>(main);
  main.M_ForcedVent.on_click = Opens<ForceVent>(main);
  main.M_IHCI.on_click = Opens<HVAC>(main);
  main.M_FluidAdvConn.on_click = Opens<FluidAdv>(main);
  // Simulation
  main.M_Output.on_click = Opens<Out_put>(main);
  main.M_ThermalLoads.on_click = Opens<ThermLoad>(main);
  // Results
  main.M_Textfiles.on_click = [&main] {
    Results results(main.session());
    main.session().dialogs->ShowModal(results);
  };
  main.M_Line.on_click = [&main] { RunLineDiagram(main.session()); };
  main.M_Comfort.on_click = [&main] { RunThermalComfort(main.session()); };
  main.M_VComfort.on_click = [&main] { RunVisualComfort(main.session()); };
  // View of building
  main.M_ViewOfBuilding.on_click = [&main] { ViewOfBuild(main.session()); };
  main.M_LIstOfBuildíngElements.on_click = Opens<ListOfBuildingElements>(main);
  // Help
  main.M_HelpInfo.on_click = [&main] { ShowUsersManual(main.session()); };
}

}  // namespace zelmo::ui
