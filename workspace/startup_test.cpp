#include "workspace/startup.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <locale>
#include <map>
#include <stdexcept>

#include "core/file_system.h"
#include "core/testing/fakes.h"
#include "core/text_file.h"
#include "workspace/start_form.h"
#include "workspace/sysinit.h"

namespace zelmo {
namespace {

using testing::Exists;
using testing::FakeSession;
using testing::Strings;
using testing::TempDir;
using testing::WriteBytes;

const std::string kKey = "Zelmo-QRN/Project/";

// A program tree as the installer leaves it.
void MakeProgramTree(const std::string& dir) {
  for (const char* folder : {"TGZELMO", "TZELMO", "FELT", "DIAGRAM"}) {
    CreateFolderTree(JoinPath(dir, folder));
  }
}

TEST(StartUp, FirstStartAdoptsTheProgramFolderAndDeletesTheMarker) {
  TempDir dir;
  MakeProgramTree(dir.path());
  // The marker and the program are found whatever the case of their names.
  WriteBytes(dir / "nyinstallation.DAT", "");
  FakeSession fake;
  fake.settings.values[kKey + "AccuracyLevelTL"] = "4-New coeff. each iteration";
  StartForm main(fake.session);
  StartUp(fake.session, main, dir / "tgzelmo");

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
  EXPECT_TRUE(main.M_Project.enabled && main.LPN.enabled);
  EXPECT_FALSE(main.LblVersion.visible || main.M_OpenProject.enabled);
  EXPECT_EQ(main.LPN.fore_color, Rgb(0, 0, 200));

  // The next start finds no marker and reads what the first one stored.
  fake.settings.saves = 0;
  StartForm again(fake.session);
  StartUp(fake.session, again, dir / "Tgzelmo");
  EXPECT_EQ(fake.settings.saves, 0);
  EXPECT_EQ(fake.ws().LocalPath, dir.path());
}

TEST(StartUp, MarkerBesideAnotherProgramIsLeftAlone) {
  TempDir dir;
  MakeProgramTree(dir.path());
  WriteBytes(dir / "NYINSTALLATION.dat", "");
  FakeSession fake;
  fake.settings.values[kKey + "SystemPath"] = dir.path();
  fake.settings.values[kKey + "LocalPath"] = dir.path();
  StartForm main(fake.session);
  StartUp(fake.session, main, dir / "Tgzelmo_tests");
  EXPECT_TRUE(Exists(dir / "NYINSTALLATION.dat"));
  EXPECT_EQ(fake.settings.saves, 0);
}

TEST(StartUp, PathsAreCutAt64AndTheAccuracyIsAlwaysTwo) {
  EXPECT_EQ(CutSettingsPath("  /srv/data  "), "/srv/data");
  std::string long_path = "/" + std::string(70, 'a');
  EXPECT_EQ(CutSettingsPath(long_path), long_path.substr(0, 64));
  // Blanks before the cut are trimmed after it.
  EXPECT_EQ(CutSettingsPath("/data" + std::string(60, ' ') + "tail"), "/data");

  TempDir dir;
  MakeProgramTree(dir.path());
  FakeSession fake;
  fake.settings.values[kKey + "SystemPath"] = dir.path() + std::string(64, 'x');
  fake.settings.values[kKey + "LocalPath"] = dir.path();
  fake.settings.values[kKey + "AccuracyLevelTL"] = "4-New coeff. each iteration";
  StartForm main(fake.session);
  StartUp(fake.session, main, dir / "Tgzelmo");
  EXPECT_EQ(fake.ws().SystemPath, (dir.path() + std::string(64, 'x')).substr(0, 64));
  EXPECT_EQ(fake.ws().AccuracyLevelTL, "2");
  SysInit settings(fake.session, main);
  EXPECT_EQ(settings.Combo1.text + std::to_string(settings.Combo1.list_index),
            "2-New coeff. each timestep0");
}

TEST(StartUp, UnreachableDataPathLeavesOnlyFileAndHelp) {
  TempDir dir;
  MakeProgramTree(dir.path());
  FakeSession fake;
  fake.settings.values[kKey + "LocalPath"] = dir / "gone";
  StartForm main(fake.session);
  StartUp(fake.session, main, dir / "Tgzelmo");

  // Without a stored program path the program's own folder is taken.
  EXPECT_EQ(fake.ws().SystemPath, dir.path());
  EXPECT_EQ(
      fake.dialogs.messages,
      (std::vector<testing::ShownMessage>{{" The data path is not accessible or does not exist !\r"
                                           "  A new data path can be set in the Edit / File menu ",
                                           mb::kExclamation, "Zelmo-QRN 4W"}}));
  for (const MenuItem* menu :
       {&main.M_Project, &main.M_Case, &main.M_Library, &main.M_Model, &main.M_Output,
        &main.M_ThermalLoads, &main.M_Result, &main.M_Outsp_Calc}) {
    EXPECT_FALSE(menu->enabled) << menu->name();
  }
  for (const MenuItem* menu :
       {&main.M_File, &main.M_EditSystemFile, &main.M_Help, &main.M_MainForm, &main.M_HelpMain}) {
    EXPECT_TRUE(menu->enabled) << menu->name();
  }
  for (const Control* control : main.controls()) {
    if (control->kind() == ControlKind::kLabel && !control->caption.empty() &&
        control->name().rfind("Lbl", 0) != 0) {
      EXPECT_FALSE(control->enabled) << control->name();
    }
  }
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
}  // namespace zelmo
