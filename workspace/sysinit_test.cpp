#include "workspace/sysinit.h"

#include <gtest/gtest.h>

#include <memory>

#include "core/file_system.h"
#include "core/testing/fakes.h"
#include "core/text_file.h"
#include "workspace/start_form.h"
#include "workspace/startup.h"

namespace zelmo {
namespace {

using testing::Exists;
using testing::FakeSession;
using testing::TempDir;
using testing::WriteBytes;

const std::string kKey = "Zelmo-QRN/Project/";

// A program tree under <temp>/prog and a data folder <temp>/data, the
// program started once with them stored.
struct SettingsFixture : ::testing::Test {
  void SetUp() override {
    for (const char* folder : {"TGZELMO", "TZELMO", "FELT", "DIAGRAM"}) {
      CreateFolderTree(JoinPath(prog, folder));
    }
    CreateFolderTree(data);
    fake.settings.values[kKey + "SystemPath"] = prog;
    fake.settings.values[kKey + "LocalPath"] = data;
    StartUp(fake.session, main, JoinPath(prog, "Tgzelmo"));
    fake.settings.saves = 0;
    screen = std::make_unique<SysInit>(fake.session, main);
  }
  // Shows the screen and presses Save.
  bool SaveWith(const std::string& sys_path, const std::string& local_path) {
    screen->SysPath.text = sys_path;
    screen->LocalPath.text = local_path;
    return screen->Save();
  }

  TempDir dir;
  std::string prog = dir / "prog";
  std::string data = dir / "data";
  FakeSession fake;
  StartForm main{fake.session};
  std::unique_ptr<SysInit> screen;
};

TEST_F(SettingsFixture, RefusedFoldersLeaveTheStoreUntouched) {
  const Workspace before = fake.ws();

  // Step 1: no TGZELMO under the program folder.
  EXPECT_FALSE(SaveWith(data, data));
  ASSERT_EQ(fake.dialogs.messages.size(), 1u);
  EXPECT_EQ(fake.dialogs.Last().text, "Program path does not exist");
  EXPECT_EQ(fake.dialogs.Last().title, "Error message");
  EXPECT_EQ(fake.dialogs.Last().style, mb::kExclamation);
  EXPECT_EQ(screen->focus, "SysPath");
  EXPECT_EQ(screen->SysPath.sel_length, static_cast<int>(data.size()));

  // Step 2: a data path that cannot be made, after it was announced.
  WriteBytes(dir / "file", "x");
  fake.dialogs.Clear();
  std::string impossible = JoinPath(dir / "file", "sub");
  EXPECT_FALSE(SaveWith(prog, impossible));
  EXPECT_EQ(fake.dialogs.Texts(),
            (std::vector<std::string>{"Data path " + impossible + " is now created",
                                      "You may not create this data path : " + impossible + " !"}));
  EXPECT_EQ(fake.dialogs.messages[0].title, "Message");
  EXPECT_EQ(fake.dialogs.messages[0].style, mb::kInformation);
  EXPECT_EQ(fake.dialogs.messages[1].title, "Error message");
  EXPECT_EQ(fake.dialogs.messages[1].style, mb::kExclamation);
  EXPECT_EQ(screen->focus, "LocalPath");

  // Step 3: no TZELMO, checked after the data path.
  DeleteFolderTree(JoinPath(prog, "TZELMO"));
  fake.dialogs.Clear();
  EXPECT_FALSE(SaveWith(prog, data));
  EXPECT_EQ(fake.dialogs.Texts(), std::vector<std::string>{"Thermal path does not exist"});
  EXPECT_EQ(fake.dialogs.Last().title, "Error message");
  EXPECT_EQ(fake.dialogs.Last().style, mb::kExclamation);
  EXPECT_EQ(screen->focus, "SysPath");

  EXPECT_EQ(fake.settings.saves, 0);
  EXPECT_EQ(fake.ws().SystemPath, before.SystemPath);
  EXPECT_EQ(fake.ws().LocalPath, before.LocalPath);
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

  EXPECT_EQ(fake.dialogs.Texts(),
            std::vector<std::string>{"Data path " + fresh + " is now created"});
  EXPECT_TRUE(FolderExists(fresh));
  EXPECT_EQ(fake.settings.values[kKey + "SystemPath"], prog);
  EXPECT_EQ(fake.settings.values[kKey + "LocalPath"], fresh);
  EXPECT_EQ(fake.settings.values[kKey + "AccuracyLevelTL"], "4-New coeff. each iteration");
  const Workspace& ws = fake.ws();
  EXPECT_EQ(ws.LocalPath, fresh);
  EXPECT_EQ(ws.AccuracyLevelTL, "4");
  EXPECT_EQ(ws.MainDirectory, JoinPath(prog, "TGZELMO"));
  EXPECT_EQ(ws.DiagramDirectory, "kept");  // derived at start only
  EXPECT_EQ(main.caption, "");
  EXPECT_TRUE(screen->unloaded);

  // No PROJECTS.LIB there: only New Project.
  EXPECT_TRUE(main.M_Project.enabled);
  EXPECT_TRUE(main.M_NewProject.enabled);
  for (const MenuItem* menu :
       {&main.M_OpenProject, &main.M_CopyProject, &main.M_DeleteProject, &main.M_RenameProject,
        &main.M_ThermalLoads, &main.M_Result, &main.M_Case, &main.M_Library, &main.M_Model,
        &main.M_Output, &main.M_Outsp_Calc}) {
    EXPECT_FALSE(menu->enabled) << menu->name();
  }

  // With PROJECTS.LIB the project commands come back, the rest stays off.
  WriteBytes(JoinPath(data, "PROJECTS.LIB"), "demo - Demo\r\n");
  main.M_Case.enabled = main.M_Outsp_Calc.enabled = true;
  fake.dialogs.Clear();
  SysInit again(fake.session, main);
  EXPECT_EQ(again.Combo1.list_index, 1);
  again.LocalPath.text = data;
  EXPECT_TRUE(again.Save());
  EXPECT_TRUE(fake.dialogs.messages.empty());
  for (const MenuItem* menu :
       {&main.M_OpenProject, &main.M_CopyProject, &main.M_DeleteProject, &main.M_RenameProject}) {
    EXPECT_TRUE(menu->enabled) << menu->name();
  }
  EXPECT_TRUE(main.LPO.enabled && main.LPC.enabled && main.LPD.enabled);
  EXPECT_FALSE(main.M_Case.enabled);
  EXPECT_FALSE(main.M_Outsp_Calc.enabled);
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
  EXPECT_EQ(TrimBlanks(selected), "data");
  EXPECT_EQ(items.front(), FileSystemRoots().front());
  std::string deeper(selected.find_first_not_of(' ') + 2, ' ');
  EXPECT_EQ(items[items.size() - 2], deeper + "alpha");
  EXPECT_EQ(items.back(), deeper + "beta");
  EXPECT_EQ(screen->Drive2.SelectedItem(), FileSystemRoots().front());

  // A click writes the folder into the field, a double click opens it.
  screen->Dir2.list_index = static_cast<int>(items.size()) - 1;
  screen->Dir2.on_click();
  EXPECT_EQ(screen->LocalPath.text, JoinPath(data, "beta"));
  screen->Dir2.list_index = static_cast<int>(items.size()) - 2;
  screen->Dir2.on_dbl_click();
  EXPECT_EQ(screen->LocalPath.text, JoinPath(data, "alpha"));
  EXPECT_TRUE(screen->Dir2.SelectedItem().ends_with("alpha"));
  EXPECT_EQ(screen->SysPath.text, prog);
  // A root keeps its separator: "C:\\" is the drive's root, "C:" is not.
  screen->Dir2.list_index = 0;
  screen->Dir2.on_click();
  EXPECT_EQ(screen->LocalPath.text, FileSystemRoots().front());

  // Focus on a field selects its whole text.
  screen->SysPath.on_got_focus();
  EXPECT_EQ(screen->SysPath.sel_length, static_cast<int>(prog.size()));

  // Help at the screen's topic; the layout choice shows the menus.
  screen->Command3.on_click();
  ASSERT_EQ(fake.desktop.help_calls.size(), 1u);
  EXPECT_EQ(fake.desktop.help_calls[0].second, 12130);
  EXPECT_EQ(fake.desktop.help_calls[0].first,
            JoinPath(JoinPath(prog, "Help_English"), "ZELMO_e.chm"));
  main.M_Model.visible = false;
  screen->Combo2.list_index = 1;
  screen->Combo2.on_click();
  EXPECT_TRUE(main.M_Model.visible);
  screen->Command2.on_click();
  EXPECT_TRUE(screen->unloaded);
  EXPECT_EQ(fake.settings.saves, 0);
}

}  // namespace
}  // namespace zelmo
