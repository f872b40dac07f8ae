#include <gtest/gtest.h>

#include <functional>
#include <map>

#include "core/testing/fakes.h"
#include "workspace/start_form.h"

namespace zelmo::testing {
namespace {

TEST(CommandState, EachOperationSetsItsCommands) {
  FakeSession fake;
  StartForm m(fake.session);
  const std::map<std::string, std::string> groups = {
      {"project", "M_OpenProject M_CopyProject M_DeleteProject M_RenameProject LPO LPC LPD"},
      {"case_menu", "M_Case M_NewCase LCN LCO LCC LCD LCR"},
      {"case_commands", "M_OpenCase M_CopyCase M_DeleteCase M_RenameCase"},
      {"library", "M_Library Om LW LWi LCu"},
      {"model", "M_Model MBS MBG MBB MBF MBC MHS MHF"},
      {"output", "M_Output OUtput"},
      {"simulation", "M_Outsp_Calc M_ThermalLoads M_Result RT"},
      {"case_results",
       "RDL RC M_Comfort M_VComfort M_Diagram M_ViewOfBuilding M_LIstOfBuild\xEDngElements MV "
       "LoBe"}};
  // The commands, named alone or by their group, that are not `enabled`.
  auto wrong = [&](const std::string& names, bool enabled) {
    std::string wrong;
    for (const auto& word : Words(names)) {
      auto group = groups.find(word);
      for (const auto& name : Words(group == groups.end() ? word : group->second)) {
        const Control* control = m.Find(name);
        if (!control || control->enabled != enabled) wrong += name + " ";
      }
    }
    return wrong;
  };
  struct Step {
    std::function<void()> operation;
    std::string on, off;
  };
  const Step steps[] = {
      {[&] { m.StateAfterNewProject(); },
       "project case_menu library M_Outsp_Calc M_ThermalLoads M_Result",
       "case_commands ss RT case_results model output"},
      {[&] { m.StateAfterNewCase(); },
       "case_menu case_commands library model output simulation case_results ss", ""},
      {[&] { m.StateAfterOpenProject(false); }, "case_menu library simulation ss",
       "case_commands case_results model output"},
      {[&] { m.StateAfterOpenProject(true); }, "case_commands", ""},
      // Open Case leaves Open and Rename as they were.
      {[&] {
         m.StateAfterOpenProject(false);
         m.StateAfterOpenCase();
       },
       "M_CopyCase M_DeleteCase case_menu library model output simulation case_results",
       "M_OpenCase M_RenameCase"},
      {[&] { m.StateAfterCopyProject(); }, "RT RDL RC ss M_CopyCase M_DeleteCase",
       "M_Comfort M_VComfort M_Diagram MV LoBe model output"},
      {[&] {
         m.StateAfterNewCase();
         m.StateAfterDeleteCase(true, false);
       },
       "case_commands", "model output"},
      {[&] {
         m.StateAfterNewCase();
         m.StateAfterDeleteCase(false, true);
       },
       "M_NewCase LCN LCO LCC LCD LCR RT", "model case_commands MV LoBe RDL RC ss"},
      // The labels of the menus turned off are left as they were.
      {[&] {
         m.StateAfterNewCase();
         m.StateAfterDeleteProject(true, false);
       },
       "M_ThermalLoads LCN Om MBS OUtput RT", "M_Case M_Library M_Model M_Output M_Result"},
      {[&] { m.StateAfterDeleteProject(false, true); }, "M_NewProject",
       "project case_menu case_commands library model output simulation case_results"},
  };
  for (const Step& step : steps) {
    step.operation();
    EXPECT_EQ(wrong(step.on, true) + "|" + wrong(step.off, false), "|") << step.on;
  }
  EXPECT_EQ(m.Om.fore_color, Rgb(0, 0, 200));
}

}  // namespace
}  // namespace zelmo::testing
