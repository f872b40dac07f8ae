#include "workspace/startup.h"

#include <cstdlib>
#include <locale>
#include <stdexcept>

#include "workspace/program_tree_test_fixture.h"
#include "workspace/sysinit.h"

namespace zelmo::testing {
namespace {

using StartUpTest = ProgramTree;

const std::string kKey = "Zelmo-QRN/Project/";

TEST_F(StartUpTest, FirstStartAdoptsTheProgramFolderAndDeletesTheMarker) {
  // The marker and the program are found whatever the case of their names.
  WriteBytes(dir / "nyinstallation.DAT", "");
  Store("AccuracyLevelTL", "4-New coeff. each iteration");
  Start("tgzelmo");
  EXPECT_FALSE(Exists(dir / "nyinstallation.DAT"));
  EXPECT_EQ(fake.settings.values, (std::map<std::string, std::string>{
                                      {kKey + "AccuracyLevelTL", "2-New coeff. each timestep"},
                                      {kKey + "LocalPath", dir.path()},
                                      {kKey + "SystemPath", dir.path()}}));
  EXPECT_TRUE(fake.dialogs.messages.empty());
  const Workspace& ws = fake.ws();
  EXPECT_EQ((Strings{ws.SystemPath, ws.LocalPath, ws.MainDirectory, ws.ThermalDirectory,
                     ws.ComfortDirectory, ws.DiagramDirectory, ws.HelpFile, ws.AccuracyLevelTL}),
            (Strings{dir.path(), dir.path(), dir / "TGZELMO", dir / "TZELMO", dir / "FELT",
                     dir / "DIAGRAM", JoinPath(dir / "Help_English", "ZELMO_e.chm"), "2"}));
  // The window waits with no project open, its title and version gone.
  EXPECT_EQ(main.caption, "");
  EXPECT_FALSE(main.LblVersion.visible);
  EXPECT_EQ(Usable(), Names(kAlways));
  EXPECT_EQ(main.LPN.fore_color, Rgb(0, 0, 200));

  // The next start finds no marker and reads what the first one stored.
  fake.settings.saves = 0;
  StartForm again(fake.session);
  StartUp(fake.session, again, dir / "Tgzelmo");
  EXPECT_EQ(fake.settings.saves, 0);
  EXPECT_EQ(fake.ws().LocalPath, dir.path());
}

TEST_F(StartUpTest, MarkerBesideAnotherProgramIsLeftAlone) {
  WriteBytes(dir / "NYINSTALLATION.dat", "");
  StoreTree();
  Start("Tgzelmo_tests");
  EXPECT_TRUE(Exists(dir / "NYINSTALLATION.dat"));
  EXPECT_EQ(fake.settings.saves, 0);
}

TEST_F(StartUpTest, PathsAreCutAt64AndTheAccuracyIsAlwaysTwo) {
  EXPECT_EQ(CutSettingsPath("  /srv/data  "), "/srv/data");
  std::string long_path = "/" + std::string(70, 'a');
  EXPECT_EQ(CutSettingsPath(long_path), long_path.substr(0, 64));
  // Blanks before the cut are trimmed after it.
  EXPECT_EQ(CutSettingsPath("/data" + std::string(60, ' ') + "tail"), "/data");

  StoreTree();
  Store("SystemPath", dir.path() + std::string(64, 'x'));
  Store("AccuracyLevelTL", "4-New coeff. each iteration");
  Start();
  EXPECT_EQ(fake.ws().SystemPath, (dir.path() + std::string(64, 'x')).substr(0, 64));
  EXPECT_EQ(fake.ws().AccuracyLevelTL, "2");
  SysInit settings(fake.session, main);
  EXPECT_EQ(settings.Combo1.text + std::to_string(settings.Combo1.list_index),
            "2-New coeff. each timestep0");
}

TEST_F(StartUpTest, UnreachableDataPathLeavesOnlyFileAndHelp) {
  Store("LocalPath", dir / "gone");
  Start();
  // Without a stored program path the program's own folder is taken.
  EXPECT_EQ(fake.ws().SystemPath, dir.path());
  EXPECT_EQ(fake.dialogs.messages,
            (std::vector<ShownMessage>{{" The data path is not accessible or does not exist !\r"
                                        "  A new data path can be set in the Edit / File menu ",
                                        mb::kExclamation, "Zelmo-QRN 4W"}}));
  EXPECT_EQ(Usable(),
            Names("M_File M_EditSystemFile M_ClimaticDataFiles M_Downloadclimaticdatafiles "
                  "M_Copyclimaticdatafiles M_ConvertV20 M_ActivetaDemo M_CloseZelmo M_view "
                  "M_HelpMain M_AboutZelmo M_Support M_Help M_MainForm M_HelpInfo"));
}

TEST(StartUp, DecimalCommaFollowsTheNumberFormat) {
  const char* old = std::getenv("LC_ALL");
  std::string saved = old ? old : "";
  setenv("LC_ALL", "C", 1);
  EXPECT_FALSE(SystemDecimalComma());
  bool german = true;
  try {
    std::locale probe("de_DE.UTF-8");
  } catch (const std::runtime_error&) {
    german = false;
  }
  if (german) {
    setenv("LC_ALL", "de_DE.UTF-8", 1);
    EXPECT_TRUE(SystemDecimalComma());
  }
  if (old) {
    setenv("LC_ALL", saved.c_str(), 1);
  } else {
    unsetenv("LC_ALL");
  }
}

}  // namespace
}  // namespace zelmo::testing
