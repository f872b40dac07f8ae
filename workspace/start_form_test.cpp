#include "workspace/start_form.h"

#include <gtest/gtest.h>

#include <functional>
#include <map>

#include "core/testing/fakes.h"
#include "workspace/program_tree_test_fixture.h"

namespace zelmo::testing {
namespace {

using StartFormFixture = ProgramTree;

const std::string kProjectOpen =
    std::string(ProgramTree::kAlways) +
    " M_OpenProject M_CopyProject M_DeleteProject M_RenameProject LPO LPC LPD";

TEST_F(StartFormFixture, ProjectsAnOpenProjectAndACaseWidenTheCommands) {
  WriteBytes(dir / "data/PROJECTS.LIB", "demo - Demonstration\r\n");
  StoreTree();
  Start();
  EXPECT_EQ(Usable(), Names(kProjectOpen));
  for (Label* label : {&main.LPN, &main.LPO, &main.LPC, &main.LPD}) {
    EXPECT_EQ(label->fore_color, Rgb(0, 0, 200)) << label->name();
  }
  fake.ws().ProjectName = "demo";
  main.StateAfterOpenProject(false);
  EXPECT_EQ(
      Usable(),
      Names(kProjectOpen +
            " M_Case M_NewCase LCN LCO LCC LCD LCR M_Library M_OpaqueMaterial M_Wall M_Windows_9701"
            " M_MovableInsulation M_Glass_Types M_Gases M_Window_types Om LW LWi LCu M_Outsp_Calc"
            " M_ThermalLoads ss M_Result M_Textfiles RT"));

  // With a case every command of the window is usable.
  fake.ws().CaseName = "case1";
  main.StateAfterNewCase();
  std::set<std::string> everything;
  for (const auto& node : main.MenuTree()) everything.insert(node.item->name());
  for (const Control* control : main.controls()) {
    if (control->kind() == ControlKind::kLabel && control->on_click) {
      everything.insert(control->name());
    }
  }
  EXPECT_EQ(Usable(), everything);
}

TEST_F(StartFormFixture, LabelsRunTheirMenuEntryAndGoBlueWhenEnabled) {
  // Every label of the panel stands for one menu entry, wired after the
  // window is made.
  std::vector<std::string> ran;
  for (const auto& node : main.MenuTree()) {
    MenuItem* item = node.item;
    item->on_click = [&ran, item] { ran.push_back(item->name()); };
  }
  // Each label with its entry.
  const auto shortcuts = Words(
      "LPN M_NewProject LPO M_OpenProject LPC M_CopyProject LPD M_DeleteProject LCN M_NewCase "
      "LCO M_OpenCase LCC M_CopyCase LCD M_DeleteCase LCR M_RenameCase Om M_OpaqueMaterial "
      "LW M_Wall LWi M_Windows_9701 LCu M_MovableInsulation MBS M_Site MBG M_GeneralParameters "
      "MBB M_Surface MBF M_FluidAdvConn MBC M_MISchedule MHS M_IHCI MHF M_ForcedVent "
      "MV M_ViewOfBuilding LoBe M_LIstOfBuild\xEDngElements OUtput M_Output ss M_ThermalLoads "
      "RT M_Textfiles RDL M_Line RC M_Comfort");
  for (size_t i = 0; i < shortcuts.size(); i += 2) {
    const std::string &label = shortcuts[i], &entry = shortcuts[i + 1];
    ran.clear();
    Control& control = *main.Find(label);
    // A greyed label is dead, whatever its menu entry says.
    main.SetButtonsForMenu(control, false);
    control.on_click();
    EXPECT_TRUE(ran.empty()) << label;
    main.SetButtonsForMenu(control, true);
    control.on_click();
    EXPECT_EQ(ran, std::vector<std::string>{entry}) << label;
    EXPECT_TRUE(control.enabled && control.fore_color == Rgb(0, 0, 200)) << label;
  }
  // Disabled, the label's colour is the toolkit's affair.
  main.SetButtonsForMenu(main.ss, false);
  EXPECT_FALSE(main.ss.enabled);
  EXPECT_EQ(main.ss.fore_color, Rgb(0, 0, 200));
}

TEST_F(StartFormFixture, HelpAndExit) {
  StoreTree();
  Start();
  main.MoreAbout.on_click();
  main.ShowHelpTopic(12100);
  std::string help = JoinPath(dir / "Help_English", "ZELMO_e.chm");
  EXPECT_EQ(fake.desktop.help_calls,
            (std::vector<std::pair<std::string, int>>{{help, 12000}, {help, 12100}}));
  // The download entry opens the page of climate data in the browser.
  main.M_Downloadclimaticdatafiles.on_click();
  ASSERT_EQ(fake.desktop.urls.size(), 1u);
  EXPECT_EQ(fake.desktop.urls[0].rfind("https://", 0), 0u);
  EXPECT_FALSE(main.unloaded);
  main.ExitProgram();
  EXPECT_TRUE(main.unloaded);
}

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
  // Each operation in turn, with the commands it leaves on and off.
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
      {[&] { m.StateAfterOpenProject(false); }, "", ""},
      // Open Case leaves Open and Rename as they were.
      {[&] { m.StateAfterOpenCase(); },
       "M_CopyCase M_DeleteCase case_menu library model output simulation case_results",
       "M_OpenCase M_RenameCase"},
      {[&] { m.StateAfterCopyProject(); }, "RT RDL RC ss M_CopyCase M_DeleteCase",
       "M_Comfort M_VComfort M_Diagram MV LoBe model output"},
      {[&] { m.StateAfterNewCase(); }, "", ""},
      {[&] { m.StateAfterDeleteCase(true, false); }, "case_commands", "model output"},
      {[&] { m.StateAfterNewCase(); }, "", ""},
      {[&] { m.StateAfterDeleteCase(false, true); }, "M_NewCase LCN LCO LCC LCD LCR RT",
       "model case_commands MV LoBe RDL RC ss"},
      {[&] { m.StateAfterNewCase(); }, "", ""},
      // The labels of the menus turned off are left as they were.
      {[&] { m.StateAfterDeleteProject(true, false); }, "M_ThermalLoads LCN Om MBS OUtput RT",
       "M_Case M_Library M_Model M_Output M_Result"},
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
