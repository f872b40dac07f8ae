#include "workspace/project_screens.h"

#include "workspace/store_commands.h"
#include "workspace/store_test_fixture.h"

namespace zelmo::testing {
namespace {

using ProjectScreens = StoreTest;

const std::string kBadName = "Name must be <=  8 characters long and no spaces in the name !";

TEST_F(ProjectScreens, NewProjectRegistersCopiesTheLibrariesAndSetsTheState) {
  auto& screen = Show<NewProject>();
  EXPECT_EQ(screen.Label2.caption, "Existing projects ( " + ws().LocalPath + " )");
  EXPECT_TRUE(screen.List1.items.empty());
  Act(screen, {"Text1= ABC ", "Command1"});
  EXPECT_TRUE(screen.unloaded && fake.dialogs.messages.empty());
  EXPECT_EQ(Projects(), "abc\tabc\r\n");
  EXPECT_EQ(ws().ProjectPath + "|" + main.caption, Data("abc") + "|Project : abc");
  // The library files are found whatever the case of their names.
  EXPECT_EQ(ReadBytes(Data("abc/GASTP.INP")) + ReadBytes(Data("abc/GLASSTP.INP")) +
                ReadBytes(Data("abc/Wndtp.LIB")) + ReadBytes(Data("abc/OPAQUE.LIB")),
            "gastp.inp\r\nGlasstp.INP\r\nWNDTP.LIB\r\nopaque.lib\r\n");
  // The commands of a new project (each state is checked whole by the main
  // window's tests): the menu's Simulate is on, the panel's is off.
  EXPECT_TRUE(main.M_ThermalLoads.enabled && !main.ss.enabled && !main.M_OpenCase.enabled);
  EXPECT_EQ(main.LCN.fore_color, Rgb(0, 0, 200));

  auto& again = Show<NewProject>();
  EXPECT_EQ(again.List1.items, Strings{"abc - abc"});
  EXPECT_EQ(again.List1.list_index, 0);
  Act(again, {"Text1=abc", "Command1"});
  EXPECT_TRUE(again.unloaded);  // closes after a failed attempt too
  EXPECT_EQ(fake.dialogs.Last(),
            (ShownMessage{"A project with the same name or path already exists", mb::kExclamation,
                          "Error message"}));
  EXPECT_EQ(Projects(), "abc\tabc\r\n");
}

TEST_F(ProjectScreens, NewProjectRefusesBadNamesAndCreatesNothing) {
  std::vector<std::pair<std::string, std::string>> refusals = {
      {"a b", kBadName},
      {"", "Name and path must be set"},
      {"   ", "Projectpath can not be the same as System-, Local- or Thermal-path"}};
  for (const auto& name : Words("abcdefghi a/b a\\b . .. ../x"))
    refusals.push_back({name, kBadName});
  for (const auto& [name, message] : refusals) {
    NewProject screen(fake.session, main);
    Act(screen, {"Text1=" + name, "Command1"});
    EXPECT_EQ(fake.dialogs.Last().text, message) << name;
  }
  EXPECT_TRUE(Listing(ws().LocalPath).empty());
  EXPECT_EQ(Listing(dir.path()), (Strings{"Data", "Program"}));

  // A missing library file ends the operation after the project is
  // registered, as the register comes first.
  DeleteFile(JoinPath(ws().MainDirectory, "WNDTP.LIB"));
  NewProject screen(fake.session, main);
  EXPECT_EQ(FileErrorText([&] {
              Act(screen, {"Text1=p", "Command1"});
            }),
            "File not found\r" + JoinPath(ws().MainDirectory, "Wndtp.LIB"));
  EXPECT_EQ(Projects(), "p\tp\r\n");
  // A project folder that can't be made: the message names the folder, not
  // the program's library, and nothing is registered.
  WriteBytes(Data("q"), "a file where the folder should be\r\n");
  NewProject blocked(fake.session, main);
  EXPECT_EQ(FileErrorText([&] {
              Act(blocked, {"Text1=q", "Command1"});
            }),
            "Path not found\r" + Data("q"));
  EXPECT_EQ(Projects(), "p\tp\r\n");
}

TEST_F(ProjectScreens, OpenProjectClosesTheCaseAndEnablesCasesWithCasesLib) {
  AddProject("one", "one");
  AddProject("two", "two");
  OpenAs("one", "one");
  AddCase("c1", "first");
  ws().CaseName = "c1";
  ws().CasePath = InProject("c1");

  auto& screen = Show<OpenProject>();
  EXPECT_EQ(screen.List1.items, (Strings{"one - one", "two - two"}));
  Act(screen, {"List1#1*"});
  EXPECT_TRUE(screen.unloaded);
  EXPECT_EQ(ws().ProjectPath + "|" + ws().CaseName + "|" + ws().CasePath, Data("two") + "||");
  EXPECT_EQ(main.caption, " Project : two");
  // No CASES.LIB: only New Case works in the Case menu.
  EXPECT_TRUE(main.M_NewCase.enabled && main.ss.enabled && !main.M_OpenCase.enabled);

  Act(Show<OpenProject>(), {"Command1"});
  EXPECT_EQ(main.caption, " Project : one");
  EXPECT_TRUE(main.M_OpenCase.enabled);

  // A damaged line that names no folder, or one above the data folder, is
  // not opened: the current project stays.
  AppendLine(Data("PROJECTS.LIB"), "bare");
  AppendLine(Data("PROJECTS.LIB"), "up\t..");
  for (int index : {2, 3}) {
    ExpectOpenRefusesDamagedLine<OpenProject>(index, Data("PROJECTS.LIB"));
    EXPECT_EQ(ws().ProjectPath + "|" + main.caption, Data("one") + "| Project : one");
  }
}

TEST_F(ProjectScreens, CopyProjectDropsResultsKeepsFlagsAndStaysOpen) {
  AddProject("src", "src");
  OpenAs("src", "src");
  AddCase("c1", "first", "X--XX-");
  for (const auto& name : Words("a.txt B.LIS c.Ddd d.GGG e.ppp SURFACE.INP")) {
    WriteBytes(InProject("c1/" + name), "data\r\n");
  }
  WriteBytes(InProject("WALLS.LIB"), "wall\r\n");
  // A case registered in lower case whose folder keeps the case it was typed in.
  AppendLine(InProject("CASES.LIB"), "case2 - second");
  WriteBytes(InProject("Case2/R.TXT"), "data\r\n");
  WriteBytes(InProject("Case2/THERMAL.INP"), "XXXXXX\r\n");

  auto& screen = Show<CopyProject>();
  EXPECT_EQ(screen.List1.list_index, 0);
  Act(screen, {"Text1=old", "List1#0"});
  EXPECT_EQ(screen.Text1.text + "|" + screen.focus, "|Text1");
  Act(screen, {"Text1=Cp", "Command1"});
  EXPECT_TRUE(!screen.unloaded && fake.dialogs.messages.empty());
  EXPECT_EQ(fake.dialogs.busy_calls, (std::vector<bool>{true, false}));
  EXPECT_EQ(Projects(), "src\tsrc\r\ncp\tcp\r\n");
  EXPECT_EQ(screen.List1.items.back(), "cp - " + Data("cp"));
  EXPECT_EQ(main.caption, "Project : cp");
  EXPECT_EQ(ReadBytes(Data("cp/c1/THERMAL.INP")) + ReadBytes(Data("cp/WALLS.LIB")),
            "X--XX-\r\nwall\r\n");
  EXPECT_EQ(Listing(Data("cp/c1")), (Strings{"SURFACE.INP", "THERMAL.INP"}));
  EXPECT_EQ(Listing(Data("cp/Case2")), Strings{"THERMAL.INP"});
  EXPECT_EQ(Listing(Data("src/c1")).size(), 7u);
  EXPECT_TRUE(main.RDL.enabled && !main.M_Model.enabled);

  // The item of the copy holds a full path, which is nothing to copy from.
  const auto before = Listing(ws().LocalPath);
  Fill(screen, {"List1#1", "Text1=cp2"});
  EXPECT_THROW(screen.Copy(), FileError);
  EXPECT_EQ(Listing(ws().LocalPath), before);

  screen.List1.list_index = 0;
  std::vector<std::pair<std::string, std::string>> refusals = {
      {" ", "Target name must be set"},
      {"SRC", "A project with the same name or path already exists"}};
  for (const auto& name : Words("abcdefghi a/b .. .")) {
    refusals.push_back({name, "Target name must be <=  8 characters long"});
  }
  refusals.push_back({"a - b", "Target name must be <=  8 characters long"});
  for (const auto& [name, message] : refusals) {
    Act(screen, {"Text1=" + name, "Command1"});
    EXPECT_EQ(fake.dialogs.Last(), (ShownMessage{message, mb::kExclamation, "Error message"}))
        << name;
  }
  EXPECT_EQ(Listing(ws().LocalPath), before);
  EXPECT_EQ(Projects(), "src\tsrc\r\ncp\tcp\r\n");
}

TEST_F(ProjectScreens, RenameProjectChangesTheNameOnlyAndTheTitle) {
  AddProject("abc", "abc");
  AddProject("xyz", "xyz");
  OpenAs("abc", "abc");
  ws().CaseName = "c1";
  // Rename Project from its menu entry: the user's acts on the screen.
  auto RenameThroughMenu = [this](const Strings& acts) {
    fake.dialogs.screens["RenProject"] = [acts](Form& form) { Act(form, acts); };
    RunRenameProject(main);
  };
  fake.dialogs.screens["RenProject"] = [](Form& form) {
    auto& screen = static_cast<RenProject&>(form);
    EXPECT_EQ(screen.Text1.text, "");  // the selection of the load fills nothing
    Act(screen, {"List1#0"});
    EXPECT_EQ(screen.Text1.text + "|" + std::to_string(screen.Text1.sel_length), "abc|3");
    Act(screen, {"Text1=NewName", "Command1"});
    EXPECT_EQ(screen.List1.items[0], "newname - abc");
  };
  RunRenameProject(main);
  EXPECT_EQ(Projects(), "newname\tabc\r\nxyz\txyz\r\n");
  EXPECT_TRUE(!Exists(Data("newname")) && Exists(Data("abc")));
  EXPECT_EQ(main.caption, " (newname - c1)");

  // Another project: the title stays.
  RenameThroughMenu({"List1#1", "Text1=other", "Command1"});
  EXPECT_EQ(Projects(), "newname\tabc\r\nother\txyz\r\n");
  EXPECT_EQ(main.caption, " (newname - c1)");

  // The renamed project, "<new name> - <old directory>", still opens its old
  // folder.
  Show<OpenProject>().Open();
  EXPECT_EQ(ws().ProjectPath, Data("abc"));

  fake.dialogs.screens.clear();
  const std::pair<std::string, std::string> refusals[] = {
      {"", "Projectname must be set"},
      {"OTHER", "A project with the same name already exist"},
      {"newname", "A project with the same name already exist"},
      {"a/b", kBadName},
      // The lists cut "<name> - <folder>" at the first " - ".
      {"a - b", kBadName},
      {"ab -", kBadName},
      {"x -y", kBadName}};
  for (const auto& [name, message] : refusals) {
    auto& screen = Show<RenProject>();
    Act(screen, {"Text1=" + name, "Command1"});
    EXPECT_TRUE(screen.unloaded);
    EXPECT_EQ(fake.dialogs.Last().text, message);
  }
  EXPECT_EQ(Projects(), "newname\tabc\r\nother\txyz\r\n");

  // With no project open, a line without a name is no current project: the
  // rename leaves the workspace and the title alone.
  ws().ProjectName.clear();
  main.SetTitle("");
  AppendLine(Data("PROJECTS.LIB"), "\tlost");
  RenameThroughMenu({"List1#2", "Text1=found", "Command1"});
  fake.dialogs.screens.clear();
  EXPECT_EQ(Projects(), "newname\tabc\r\nother\txyz\r\nfound\tlost\r\n");
  EXPECT_EQ(ws().ProjectName + "|" + main.caption, "|");
  DeleteFile(Data("PROJECTS.LIB"));
  RenProject screen(fake.session, main);
  Act(screen, {"Text1=z", "Command1"});
  EXPECT_EQ(fake.dialogs.Last().text, "Projectfile does not exist");
}

TEST_F(ProjectScreens, DeleteProjectByButtonAndByDoubleClick) {
  AddProject("keep", "keep");
  AddProject("renamed", "old");  // a renamed project: name and folder differ
  AddProject("abc", "abc");
  OpenAs("abc", "abc");
  ws().CaseName = "c1";
  ws().CasePath = Data("abc/c1");

  auto& screen = Show<DelProject>();
  EXPECT_FALSE(screen.Command1.enabled);
  Act(screen, {"List1#2"});
  EXPECT_TRUE(screen.Command1.enabled);
  fake.dialogs.answers = {Answer::kNo};
  Act(screen, {"Command1"});
  EXPECT_EQ(fake.dialogs.Last(),
            (ShownMessage{"Do you really want to delete the CURRENT project\rabc ?", 52, ""}));
  EXPECT_TRUE(Exists(Data("abc")));

  Act(screen, {"Command1"});
  EXPECT_FALSE(Exists(Data("abc")) || Exists(Data("PROJECTS.XXX")));
  EXPECT_EQ(Projects(), "keep\tkeep\r\nrenamed\told\r\n");
  // The paths are kept.
  EXPECT_EQ(ws().ProjectName + "|" + ws().CaseName + "|" + ws().ProjectPath + "|" + ws().CasePath +
                "|" + main.caption,
            "||" + Data("abc") + "|" + Data("abc/c1") + "|");
  EXPECT_TRUE(main.M_ThermalLoads.enabled && !main.M_Case.enabled);

  // The Delete button finds the line by the folder: a renamed project's
  // line stays behind.
  Act(screen, {"List1#1", "Command1"});
  EXPECT_EQ(fake.dialogs.Last().text, "Do you want to delete the project\rrenamed ?");
  EXPECT_FALSE(Exists(Data("old")));
  EXPECT_EQ(Projects(), "keep\tkeep\r\nrenamed\told\r\n");
  EXPECT_EQ(screen.List1.items, Strings{"keep - keep"});

  // A folder that is not there: two messages, the register stays.
  DeleteFolderTree(Data("keep"));
  fake.dialogs.Clear();
  Act(screen, {"List1#0", "Command1"});
  ASSERT_EQ(fake.dialogs.messages.size(), 3u);
  EXPECT_EQ(fake.dialogs.messages[1].text, "Can't delete the directory and its contents !");
  EXPECT_EQ(fake.dialogs.messages[2], (ShownMessage{"Some error has occurred !", 0, ""}));
  EXPECT_EQ(screen.List1.items.size(), 1u);

  // The double click deletes by the name; the last one removes the register
  // and leaves only New Project.
  auto& again = Show<DelProject>();
  EXPECT_EQ(again.List1.items, (Strings{"keep - keep", "renamed - old"}));
  Act(again, {"List1#1*"});
  EXPECT_EQ(Projects(), "keep\tkeep\r\n");
  main.StateAfterNewCase();
  auto& last = Show<DelProject>();
  Act(last, {"List1#0*"});
  EXPECT_FALSE(last.Command1.enabled || Exists(Data("PROJECTS.LIB")));
  EXPECT_TRUE(main.M_NewProject.enabled && !main.M_OpenProject.enabled && !main.RT.enabled);
  // From the menu the commands are set from the files again: still none.
  main.StateAfterNewCase();
  RunDeleteProject(main);
  EXPECT_TRUE(main.M_NewProject.enabled && !main.M_OpenProject.enabled && !main.RT.enabled);
}

}  // namespace
}  // namespace zelmo::testing
