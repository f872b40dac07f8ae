#include <gtest/gtest.h>

#include <initializer_list>

#include "core/testing/fakes.h"
#include "workspace/start_form.h"

namespace zelmo::testing {
namespace {

using Group = std::initializer_list<Control*>;

void ExpectAll(Group group, bool enabled, const char* when) {
  for (Control* control : group)
    EXPECT_EQ(control->enabled, enabled) << control->name() << " " << when;
}

TEST(CommandState, EachOperationSetsItsCommands) {
  FakeSession fake;
  StartForm m(fake.session);
  const Group project = {&m.M_OpenProject,
                         &m.M_CopyProject,
                         &m.M_DeleteProject,
                         &m.M_RenameProject,
                         &m.LPO,
                         &m.LPC,
                         &m.LPD};
  const Group case_menu = {&m.M_Case, &m.M_NewCase, &m.LCN, &m.LCO, &m.LCC, &m.LCD, &m.LCR};
  const Group case_commands = {&m.M_OpenCase, &m.M_CopyCase, &m.M_DeleteCase, &m.M_RenameCase};
  const Group library = {&m.M_Library, &m.Om, &m.LW, &m.LWi, &m.LCu};
  const Group model = {&m.M_Model, &m.MBS, &m.MBG, &m.MBB, &m.MBF, &m.MBC, &m.MHS, &m.MHF};
  const Group output = {&m.M_Output, &m.OUtput};
  const Group simulation = {&m.M_Outsp_Calc, &m.M_ThermalLoads, &m.M_Result, &m.RT};
  const Group case_results = {&m.RDL,
                              &m.RC,
                              &m.M_Comfort,
                              &m.M_VComfort,
                              &m.M_Diagram,
                              &m.M_ViewOfBuilding,
                              &m.M_LIstOfBuildíngElements,
                              &m.MV,
                              &m.LoBe};

  m.StateAfterNewProject();
  ExpectAll(project, true, "new project");
  ExpectAll(case_menu, true, "new project");
  ExpectAll(case_commands, false, "new project");
  ExpectAll(library, true, "new project");
  ExpectAll({&m.M_Outsp_Calc, &m.M_ThermalLoads, &m.M_Result}, true, "new project");
  ExpectAll({&m.ss, &m.RT}, false, "new project");
  ExpectAll(case_results, false, "new project");
  ExpectAll(model, false, "new project");
  ExpectAll(output, false, "new project");
  EXPECT_EQ(m.Om.fore_color, Rgb(0, 0, 200));

  m.StateAfterNewCase();
  for (Group group : {case_menu, case_commands, library, model, output, simulation, case_results}) {
    ExpectAll(group, true, "new case");
  }
  EXPECT_TRUE(m.ss.enabled);

  m.StateAfterOpenProject(false);
  ExpectAll(case_menu, true, "open project");
  ExpectAll(case_commands, false, "open project without cases");
  ExpectAll(library, true, "open project");
  ExpectAll(simulation, true, "open project");
  EXPECT_TRUE(m.ss.enabled);
  ExpectAll(case_results, false, "open project");
  ExpectAll(model, false, "open project");
  ExpectAll(output, false, "open project");
  m.StateAfterOpenProject(true);
  ExpectAll(case_commands, true, "open project with cases");

  m.StateAfterOpenProject(false);
  m.StateAfterOpenCase();
  ExpectAll({&m.M_OpenCase, &m.M_RenameCase}, false, "open case leaves them");
  ExpectAll({&m.M_CopyCase, &m.M_DeleteCase}, true, "open case");
  for (Group group : {case_menu, library, model, output, simulation, case_results}) {
    ExpectAll(group, true, "open case");
  }

  m.StateAfterCopyProject();
  ExpectAll({&m.RT, &m.RDL, &m.RC, &m.ss}, true, "copy project");
  ExpectAll({&m.M_Comfort, &m.M_VComfort, &m.M_Diagram, &m.MV, &m.LoBe}, false, "copy project");
  ExpectAll(model, false, "copy project");
  ExpectAll(output, false, "copy project");
  ExpectAll({&m.M_CopyCase, &m.M_DeleteCase}, true, "copy project leaves the case commands");

  m.StateAfterNewCase();
  m.StateAfterDeleteCase(true, false);
  ExpectAll(model, false, "current case deleted");
  ExpectAll(output, false, "current case deleted");
  ExpectAll(case_commands, true, "current case deleted");
  m.StateAfterNewCase();
  m.StateAfterDeleteCase(false, true);
  ExpectAll(model, false, "last case deleted");
  ExpectAll(case_commands, false, "last case deleted");
  ExpectAll({&m.MV, &m.LoBe, &m.RDL, &m.RC, &m.ss}, false, "last case deleted");
  ExpectAll({&m.M_NewCase, &m.LCN, &m.LCO, &m.LCC, &m.LCD, &m.LCR, &m.RT}, true,
            "last case deleted");

  m.StateAfterNewCase();
  m.StateAfterDeleteProject(true, false);
  ExpectAll({&m.M_Case, &m.M_Library, &m.M_Model, &m.M_Output, &m.M_Result}, false,
            "current project deleted");
  EXPECT_TRUE(m.M_ThermalLoads.enabled);
  // Their labels are left as they were.
  ExpectAll({&m.LCN, &m.Om, &m.MBS, &m.OUtput, &m.RT}, true, "current project deleted");
  m.StateAfterDeleteProject(false, true);
  for (Group group :
       {project, case_menu, case_commands, library, model, output, simulation, case_results}) {
    ExpectAll(group, false, "last project deleted");
  }
  EXPECT_TRUE(m.M_NewProject.enabled);
}

}  // namespace
}  // namespace zelmo::testing
