#include "workspace/start_form.h"

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
  }

  main.SetButtonsForMenu(main.ss, true);
  EXPECT_TRUE(main.ss.enabled);
  EXPECT_EQ(main.ss.fore_color, Rgb(0, 0, 200));
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
  main.ShowAbout();
  main.ShowSupport();
  main.OpenSettings();
  EXPECT_EQ(fake.dialogs.shown_forms, (std::vector<std::string>{"About", "Support", "SysInit"}));
  EXPECT_FALSE(main.unloaded);
  main.ExitProgram();
  EXPECT_TRUE(main.unloaded);
}

}  // namespace
}  // namespace zelmo::testing
