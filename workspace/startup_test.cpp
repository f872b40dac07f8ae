#include "workspace/startup.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <locale>
#include <memory>
#include <stdexcept>

#include "workspace/program_tree_test_fixture.h"
#include "workspace/sysinit.h"

namespace zelmo::testing {
namespace {

const std::string kKey = "Zelmo-QRN/Project/";

using StartUpTest = ProgramTree;

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

TEST_F(StartUpTest, PathsOfAnyLengthAreReadWholeAndTheAccuracyIsAlwaysTwo) {
  EXPECT_EQ(SettingsPathRead("  /srv/data  "), "/srv/data");
  for (size_t length : {63u, 64u, 65u, 300u}) {
    const std::string path = "/" + std::string(length - 1, 'a');
    EXPECT_EQ(SettingsPathRead(path), path) << length;
  }
  EXPECT_EQ(SettingsPathRead("/data" + std::string(60, ' ') + "tail"),
            "/data" + std::string(60, ' ') + "tail");

  StoreTree();
  Store("LocalPath", data + std::string(64, 'x'));
  Store("AccuracyLevelTL", "4-New coeff. each iteration");
  Start();
  EXPECT_EQ(fake.ws().LocalPath, data + std::string(64, 'x'));
  EXPECT_EQ(fake.ws().AccuracyLevelTL, "2");
  SysInit settings(fake.session, main);
  EXPECT_EQ(settings.Combo1.text + std::to_string(settings.Combo1.list_index),
            "2-New coeff. each timestep0");
}

// A program tree deep in the file system, with nothing stored: the folder
// taken from the program's own place reaches the modules, and Settings
// stores both folders whole for the next start.
TEST(StartUpDeep, AProgramTreeInAFolderOverAHundredCharactersIsFoundWhole) {
  TempDir root;
  const std::string deep = root / (std::string(70, 'd') + "/" + std::string(70, 'e'));
  for (const char* folder : {"TGZELMO", "TZELMO", "FELT", "DIAGRAM", "data"}) {
    ASSERT_TRUE(CreateFolderTree(JoinPath(deep, folder)));
  }
  FakeSession fake;
  StartForm main(fake.session);
  fake.settings.values["Zelmo-QRN/Project/LocalPath"] = JoinPath(deep, "data");
  StartUp(fake.session, main, JoinPath(deep, "Tgzelmo"));
  EXPECT_EQ(fake.ws().SystemPath, deep);
  EXPECT_EQ(fake.ws().ThermalDirectory, JoinPath(deep, "TZELMO"));
  EXPECT_TRUE(FolderExists(fake.ws().ThermalDirectory));
  EXPECT_TRUE(fake.dialogs.messages.empty());

  SysInit settings(fake.session, main);
  settings.SysPath.text = deep;
  settings.LocalPath.text = JoinPath(deep, "data");
  ASSERT_TRUE(settings.Save());
  FakeSession next;
  next.settings.values = fake.settings.values;
  StartForm again(next.session);
  StartUp(next.session, again, "/elsewhere/Tgzelmo");
  EXPECT_EQ(next.ws().SystemPath, deep);
  EXPECT_EQ(next.ws().LocalPath, JoinPath(deep, "data"));
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

using Shown = std::vector<ShownMessage>;

// The program started once on the tree, its Settings screen open.
class SettingsFixture : public ProgramTree {
 protected:
  void SetUp() override {
    StoreTree();
    Start();
    fake.settings.saves = 0;
    screen = std::make_unique<SysInit>(fake.session, main);
  }
  // Shows the screen and presses Save.
  bool SaveWith(const std::string& sys_path, const std::string& local_path) {
    screen->SysPath.text = sys_path;
    screen->LocalPath.text = local_path;
    return screen->Save();
  }

  std::string prog = dir.path();
  std::unique_ptr<SysInit> screen;
};

TEST_F(SettingsFixture, RefusedFoldersLeaveTheStoreUntouched) {
  const Workspace before = fake.ws();

  auto error = [](const std::string& text) {
    return ShownMessage{text, mb::kExclamation, "Error message"};
  };
  // Step 1: no TGZELMO under the program folder.
  EXPECT_FALSE(SaveWith(data, data));
  EXPECT_EQ(fake.dialogs.messages, (Shown{error("Program path does not exist")}));
  EXPECT_EQ(screen->focus, "SysPath");
  EXPECT_EQ(screen->SysPath.sel_length, static_cast<int>(data.size()));

  // Step 2: a data path that cannot be made, after it was announced.
  WriteBytes(dir / "file", "x");
  fake.dialogs.Clear();
  std::string impossible = JoinPath(dir / "file", "sub");
  EXPECT_FALSE(SaveWith(prog, impossible));
  EXPECT_EQ(fake.dialogs.messages,
            (Shown{{"Data path " + impossible + " is now created", mb::kInformation, "Message"},
                   error("You may not create this data path : " + impossible + " !")}));
  EXPECT_EQ(screen->focus, "LocalPath");

  // Step 3: no TZELMO, checked after the data path.
  DeleteFolderTree(JoinPath(prog, "TZELMO"));
  fake.dialogs.Clear();
  EXPECT_FALSE(SaveWith(prog, data));
  EXPECT_EQ(fake.dialogs.messages, (Shown{error("Thermal path does not exist")}));
  EXPECT_EQ(screen->focus, "SysPath");

  EXPECT_EQ(fake.settings.saves, 0);
  EXPECT_EQ(fake.ws().SystemPath + "|" + fake.ws().LocalPath,
            before.SystemPath + "|" + before.LocalPath);
  EXPECT_FALSE(screen->unloaded);
}

TEST_F(SettingsFixture, SaveCreatesTheDataPathStoresAndRefreshesTheProjectCommands) {
  // A folder of the user keeps its case; blanks around it go.
  std::string fresh = dir / "New Data/Level2";
  main.SetTitle(" Project : old");
  fake.ws().DiagramDirectory = "kept";
  screen->Combo1.list_index = 1;
  screen->Combo1.text = "4-New coeff. each iteration ";
  EXPECT_TRUE(SaveWith("  " + prog + " ", fresh + "  "));

  EXPECT_EQ(fake.dialogs.Texts(), Strings{"Data path " + fresh + " is now created"});
  EXPECT_TRUE(FolderExists(fresh));
  EXPECT_EQ(fake.settings.values[kKey + "SystemPath"] + "|" +
                fake.settings.values[kKey + "LocalPath"] + "|" +
                fake.settings.values[kKey + "AccuracyLevelTL"],
            prog + "|" + fresh + "|4-New coeff. each iteration");
  const Workspace& ws = fake.ws();
  // The program's folders are derived at start only.
  EXPECT_EQ((Strings{ws.LocalPath, ws.AccuracyLevelTL, ws.MainDirectory, ws.DiagramDirectory}),
            (Strings{fresh, "4", JoinPath(prog, "TGZELMO"), "kept"}));
  EXPECT_EQ(main.caption, "");
  EXPECT_TRUE(screen->unloaded);

  // No PROJECTS.LIB there: only New Project.
  EXPECT_EQ(Usable(), Names(kAlways));

  // With PROJECTS.LIB the project commands come back, the rest stays off.
  WriteBytes(JoinPath(data, "PROJECTS.LIB"), "demo - Demo\r\n");
  main.M_Case.enabled = main.M_Outsp_Calc.enabled = true;
  fake.dialogs.Clear();
  SysInit again(fake.session, main);
  EXPECT_EQ(again.Combo1.list_index, 1);
  again.LocalPath.text = data;
  EXPECT_TRUE(again.Save());
  EXPECT_TRUE(fake.dialogs.messages.empty());
  EXPECT_EQ(Usable(),
            Names(std::string(kAlways) +
                  "M_OpenProject M_CopyProject M_DeleteProject M_RenameProject LPO LPC LPD"));
  EXPECT_EQ(fake.settings.saves, 6);
}

TEST_F(SettingsFixture, FolderListsFillTheFields) {
  CreateFolderTree(JoinPath(data, "alpha"));
  CreateFolderTree(JoinPath(data, "beta"));
  screen->Load();
  // The data list shows the way down to the data folder, then its
  // sub-folders.
  const auto& items = screen->Dir2.items;
  ASSERT_GE(items.size(), 3u);
  std::string selected = screen->Dir2.SelectedItem();
  std::string deeper(selected.find_first_not_of(' ') + 2, ' ');
  EXPECT_EQ((Strings{TrimBlanks(selected), items.front(), items[items.size() - 2], items.back(),
                     screen->Drive2.SelectedItem()}),
            (Strings{"data", FileSystemRoots().front(), deeper + "alpha", deeper + "beta",
                     FileSystemRoots().front()}));

  // A click writes the folder into the field, a double click opens it.
  const int beta = static_cast<int>(items.size()) - 1;
  Act(*screen, {"Dir2#" + std::to_string(beta)});
  EXPECT_EQ(screen->LocalPath.text, JoinPath(data, "beta"));
  Act(*screen, {"Dir2#" + std::to_string(beta - 1) + "*"});
  EXPECT_EQ(screen->LocalPath.text, JoinPath(data, "alpha"));
  EXPECT_TRUE(screen->Dir2.SelectedItem().ends_with("alpha"));
  EXPECT_EQ(screen->SysPath.text, prog);
  // A root keeps its separator: "C:\\" is the drive's root, "C:" is not.
  Act(*screen, {"Dir2#0"});
  EXPECT_EQ(screen->LocalPath.text, FileSystemRoots().front());

  // Focus on a field selects its whole text.
  screen->SysPath.on_got_focus();
  EXPECT_EQ(screen->SysPath.sel_length, static_cast<int>(prog.size()));

  // Help at the screen's topic; the layout choice shows the menus.
  main.M_Model.visible = false;
  Act(*screen, {"Command3", "Combo2#1"});
  EXPECT_TRUE(main.M_Model.visible);
  EXPECT_EQ(fake.desktop.help_calls,
            (std::vector<std::pair<std::string, int>>{
                {JoinPath(JoinPath(prog, "Help_English"), "ZELMO_e.chm"), 12130}}));
  Act(*screen, {"Command2"});
  EXPECT_TRUE(screen->unloaded);
  EXPECT_EQ(fake.settings.saves, 0);
}

}  // namespace
}  // namespace zelmo::testing
