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
using testing::ShownMessage;
using testing::Strings;
using Shown = std::vector<ShownMessage>;
using testing::TempDir;
using testing::WriteBytes;

const std::string kKey = "Zelmo-QRN/Project/";

// The enabled menus of the main window's bar and of its Project and
// Simulation menus, in their order.
std::string Enabled(StartForm& main) {
  std::string enabled;
  for (const auto& node : main.MenuTree()) {
    const bool shown =
        !node.parent || node.parent == &main.M_Project || node.parent == &main.M_Outsp_Calc;
    if (shown && node.item->enabled) enabled += node.item->name() + " ";
  }
  return enabled;
}

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
  EXPECT_EQ(Enabled(main), "M_File M_Project M_NewProject M_view M_HelpMain M_Help ");

  // With PROJECTS.LIB the project commands come back, the rest stays off.
  WriteBytes(JoinPath(data, "PROJECTS.LIB"), "demo - Demo\r\n");
  main.M_Case.enabled = main.M_Outsp_Calc.enabled = true;
  fake.dialogs.Clear();
  SysInit again(fake.session, main);
  EXPECT_EQ(again.Combo1.list_index, 1);
  again.LocalPath.text = data;
  EXPECT_TRUE(again.Save());
  EXPECT_TRUE(fake.dialogs.messages.empty());
  EXPECT_EQ(Enabled(main),
            "M_File M_Project M_NewProject M_OpenProject M_CopyProject M_DeleteProject "
            "M_RenameProject M_view M_HelpMain M_Help ");
  EXPECT_TRUE(main.LPO.enabled && main.LPC.enabled && main.LPD.enabled);
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
  EXPECT_EQ(fake.desktop.help_calls,
            (std::vector<std::pair<std::string, int>>{
                {JoinPath(JoinPath(prog, "Help_English"), "ZELMO_e.chm"), 12130}}));
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
