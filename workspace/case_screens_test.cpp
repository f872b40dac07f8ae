#include "workspace/case_screens.h"

#include "workspace/case_store.h"
#include "workspace/store_commands.h"
#include "workspace/store_test_fixture.h"

namespace zelmo::testing {
namespace {

class CaseScreens : public StoreTest {
 protected:
  CaseScreens() {
    AddProject("abc", "abc");
    OpenAs("abc", "abc");
    main.StateAfterOpenProject(false);
  }
};

TEST_F(CaseScreens, NewCaseMakesTheFirstCaseAndRefusesClashesAndBadNames) {
  NewCase screen(fake.session, main);
  fake.dialogs.ShowModal(screen);
  EXPECT_TRUE(screen.List1.items.empty());
  screen.Text1.text = "Case1";
  screen.Text2.text = "Office - north side";
  screen.New();
  EXPECT_TRUE(screen.unloaded);
  EXPECT_EQ(Cases(), "case1 - Office - north side\r\n");
  // The folder keeps the name as typed.
  EXPECT_EQ(SubFolders(ws().ProjectPath), std::vector<std::string>{"Case1"});
  EXPECT_EQ(ReadBytes(InProject("Case1/THERMAL.INP")), "XXXXXX\r\n");
  EXPECT_EQ(ws().CaseName, "case1");
  EXPECT_EQ(ws().CaseHeadline, "Office - north side");
  EXPECT_EQ(ws().CasePath, InProject("Case1"));
  EXPECT_EQ(main.caption, "Project : abc, Case : case1");
  EXPECT_TRUE(main.M_Model.enabled && main.MBS.enabled && main.M_Output.enabled &&
              main.M_OpenCase.enabled && main.ss.enabled && main.RDL.enabled && main.MV.enabled &&
              main.M_Diagram.enabled);

  // The headline with " - " inside survives the round trip.
  NewCase list(fake.session, main);
  fake.dialogs.ShowModal(list);
  EXPECT_EQ(list.List1.items, std::vector<std::string>{"case1 - Office - north side"});
  EXPECT_EQ(list.List1.list_index, 0);

  const auto before = Listing(ws().ProjectPath);
  const std::string bad = "Case name must be <= 8 characters long with no spacec in the name !";
  const std::vector<std::pair<std::string, std::string>> refusals = {
      {"", "Casename must be set"},
      {"CASE1", "A case with the same name already exists"},
      {"a b", bad},
      {"a.b", bad},
      {"a:b", bad},
      {"a\\b", bad},
      {"a/b", bad},
      {".", bad},
      {"..", bad}};
  for (const auto& [name, message] : refusals) {
    NewCase refused(fake.session, main);
    refused.Text1.text = name;
    refused.New();
    EXPECT_FALSE(refused.unloaded);
    EXPECT_EQ(refused.focus, "Text1");
    EXPECT_EQ(fake.dialogs.Last().text, message) << name;
    EXPECT_EQ(fake.dialogs.Last().title, "Error message");
    EXPECT_EQ(fake.dialogs.Last().style, mb::kExclamation);
  }
  EXPECT_EQ(Listing(ws().ProjectPath), before);
  EXPECT_EQ(Cases(), "case1 - Office - north side\r\n");
}

TEST_F(CaseScreens, OpenCaseSetsTheCaseAndItsState) {
  OpenCase none(fake.session, main);
  fake.dialogs.ShowModal(none);
  EXPECT_FALSE(none.Command1.enabled);

  AddCase("c1", "first");
  AddCase("c2", "second - part");
  OpenCase screen(fake.session, main);
  fake.dialogs.ShowModal(screen);
  EXPECT_TRUE(screen.Command1.enabled);
  screen.List1.list_index = 1;
  screen.List1.on_dbl_click();
  EXPECT_TRUE(screen.unloaded);
  EXPECT_EQ(ws().CaseName, "c2");
  EXPECT_EQ(ws().CaseHeadline, "second - part");
  EXPECT_EQ(ws().CasePath, InProject("c2"));
  EXPECT_EQ(main.caption, " Project : abc, Case : c2");
  EXPECT_TRUE(main.M_Model.enabled && main.M_Output.enabled && main.RC.enabled);
  // Open Case and Rename Case are left as they were.
  EXPECT_FALSE(main.M_OpenCase.enabled || main.M_RenameCase.enabled);
  EXPECT_TRUE(main.M_CopyCase.enabled && main.M_DeleteCase.enabled);

  // A line with no name, or a name above the project, is damaged.
  AppendLine(InProject("CASES.LIB"), "headline only");
  AppendLine(InProject("CASES.LIB"), ".. - up");
  for (int index : {2, 3}) {
    ExpectOpenRefusesDamagedLine<OpenCase>(index, InProject("CASES.LIB"));
    EXPECT_EQ(ws().CasePath, InProject("c2"));
  }
}

TEST_F(CaseScreens, CopyCaseKeepsFlagsAndInputsAndDropsResults) {
  AddCase("c1", "first", "--X---");
  for (const char* name : {"R.TXT", "r.lis", "x.DdD", "y.ggg", "z.PPP", "SURFACE.INP"}) {
    WriteBytes(InProject(std::string("c1/") + name), "data\r\n");
  }
  CopyCase screen(fake.session, main);
  fake.dialogs.ShowModal(screen);
  EXPECT_EQ(screen.Text1.text, "c1");
  EXPECT_EQ(screen.Text1.sel_length, 2);
  const auto before = Listing(ws().ProjectPath);
  for (const char* name : {"a.b", "a b", "a/b", "..", "."}) {
    screen.Text1.text = name;
    screen.Copy();
    EXPECT_EQ(fake.dialogs.Last().text, "Casename not correct") << name;
  }
  screen.Text1.text = "";
  screen.Copy();
  EXPECT_EQ(fake.dialogs.Last().text, "Casename must be set");
  screen.Text1.text = "C1";
  screen.Copy();
  EXPECT_EQ(fake.dialogs.Last().text, "A case with the same name already exists");
  EXPECT_EQ(Listing(ws().ProjectPath), before);
  EXPECT_FALSE(screen.unloaded);

  screen.Text1.text = "Copy2";
  screen.Text2.text = "the copy";
  screen.Copy();
  EXPECT_TRUE(screen.unloaded);
  EXPECT_EQ(Cases(), "c1 - first\r\ncopy2 - the copy\r\n");
  EXPECT_EQ(screen.List1.items.back(), "copy2 - the copy");
  EXPECT_EQ(ReadBytes(InProject("Copy2/THERMAL.INP")), "--X---\r\n");
  EXPECT_EQ(Listing(InProject("Copy2")), (std::vector<std::string>{"SURFACE.INP", "THERMAL.INP"}));
  EXPECT_EQ(Listing(InProject("c1")).size(), 7u);
  EXPECT_EQ(ws().CaseName, "copy2");
  EXPECT_EQ(main.caption, "Project : abc, Case : copy2");
  EXPECT_EQ(screen.Text1.text, "");
  EXPECT_EQ(fake.dialogs.busy_calls.back(), false);
}

TEST_F(CaseScreens, RenameCaseMovesTheFolderAndMarksTheOpenCase) {
  AddCase("c1", "first", "------");
  AddCase("c2", "second", "------");
  // A case must be open to rename any case; the main window writes its
  // title all the same.
  fake.dialogs.screens["RenCase"] = [](Form& form) {
    auto& screen = static_cast<RenCase&>(form);
    screen.List1.list_index = 0;
    screen.List1.on_click();
    screen.Command1.on_click();
    EXPECT_TRUE(screen.unloaded);
  };
  RunRenameCase(main);
  EXPECT_EQ(fake.dialogs.Last().text, "No Case has been opened");
  EXPECT_EQ(fake.dialogs.Last().title, "Error message");
  EXPECT_EQ(main.caption, "Project : abc, Case : ");
  EXPECT_EQ(Cases(), "c1 - first\r\nc2 - second\r\n");

  ws().CaseName = "c1";
  ws().CaseHeadline = "first";
  ws().CasePath = InProject("c1");
  fake.dialogs.screens["RenCase"] = [](Form& form) {
    auto& screen = static_cast<RenCase&>(form);
    screen.List1.list_index = 0;
    screen.List1.on_click();
    EXPECT_EQ(screen.Text1.text, "c1");
    EXPECT_EQ(screen.Text2.text, "first");
    screen.Text1.text = "Office";
    screen.Command1.on_click();
  };
  RunRenameCase(main);
  EXPECT_EQ(Cases(), "office - first\r\nc2 - second\r\n");
  EXPECT_EQ(SubFolders(ws().ProjectPath), (std::vector<std::string>{"c2", "Office"}));
  EXPECT_EQ(ws().CaseName, "office");
  EXPECT_EQ(ws().CasePath, InProject("Office"));
  EXPECT_EQ(main.caption, "Project : abc, Case : office");
  EXPECT_EQ(ReadBytes(InProject("Office/THERMAL.INP")), "------\r\n");

  // A new headline of another case marks the open case.
  fake.dialogs.screens["RenCase"] = [](Form& form) {
    auto& screen = static_cast<RenCase&>(form);
    screen.List1.list_index = 1;
    screen.List1.on_click();
    screen.Text2.text = "second, changed";
    screen.Rename();
  };
  RunRenameCase(main);
  EXPECT_EQ(Cases(), "office - first\r\nc2 - second, changed\r\n");
  EXPECT_EQ(ReadBytes(InProject("Office/THERMAL.INP")), "XXXXXX\r\n");
  EXPECT_EQ(ReadBytes(InProject("c2/THERMAL.INP")), "------\r\n");

  // A clash stops without a word; names that leave the project are refused.
  fake.dialogs.screens.clear();
  fake.dialogs.Clear();
  RenCase clash(fake.session, main);
  fake.dialogs.ShowModal(clash);
  clash.List1.list_index = 1;
  clash.List1.on_click();
  clash.Text1.text = "OFFICE";
  clash.Rename();
  EXPECT_TRUE(fake.dialogs.messages.empty());
  for (const char* name : {"../c2", "..", " "}) {
    RenCase refused(fake.session, main);
    fake.dialogs.ShowModal(refused);
    refused.List1.list_index = 1;
    refused.List1.on_click();
    refused.Text1.text = name;
    refused.Rename();
    EXPECT_FALSE(refused.unloaded);
    EXPECT_EQ(refused.focus, "Text1");
  }
  EXPECT_EQ(fake.dialogs.Texts(),
            (std::vector<std::string>{
                "Case name must be <= 8 characters long with no spacec in the name !",
                "Case name must be <= 8 characters long with no spacec in the name !",
                "Casename must be set"}));
  EXPECT_EQ(Cases(), "office - first\r\nc2 - second, changed\r\n");
  EXPECT_EQ(SubFolders(ws().ProjectPath), (std::vector<std::string>{"c2", "Office"}));
}

TEST_F(CaseScreens, DeleteCaseByButtonAndByDoubleClick) {
  AddCase("c1", "first");
  AddCase("c2", "second");
  AddCase("c3", "third");
  ws().CaseName = "c2";
  ws().CasePath = InProject("c2");
  main.StateAfterNewCase();

  DelCase screen(fake.session, main);
  fake.dialogs.ShowModal(screen);
  EXPECT_FALSE(screen.Command1.enabled);
  screen.List1.list_index = 1;
  screen.List1.on_click();
  screen.Command1.on_click();
  EXPECT_EQ(fake.dialogs.Last().text, "Do you really want to delete the CURRENT case\rc2 ?");
  EXPECT_EQ(fake.dialogs.Last().style, 52);
  EXPECT_TRUE(screen.unloaded);
  EXPECT_EQ(Cases(), "c1 - first\r\nc3 - third\r\n");
  EXPECT_FALSE(Exists(InProject("c2")));
  EXPECT_FALSE(Exists(InProject("CASES.XXX")));
  EXPECT_EQ(ws().CaseName, "");
  EXPECT_EQ(ws().CasePath, InProject("c2"));  // kept
  EXPECT_EQ(main.caption, "Project : abc");
  EXPECT_FALSE(main.M_Model.enabled || main.MBB.enabled || main.M_Output.enabled);
  EXPECT_TRUE(main.M_OpenCase.enabled);

  // The double click shows the name alone and stays open.
  DelCase again(fake.session, main);
  fake.dialogs.ShowModal(again);
  fake.dialogs.Clear();
  again.List1.list_index = 1;
  again.List1.on_dbl_click();
  EXPECT_EQ(fake.dialogs.Texts(),
            (std::vector<std::string>{"Do you want to delete the case\rc3 ?", "c3"}));
  EXPECT_EQ(fake.dialogs.Last().style, mb::kOkOnly);
  EXPECT_FALSE(again.unloaded);
  EXPECT_EQ(again.List1.items, std::vector<std::string>{"c1 - first"});
  EXPECT_EQ(again.List1.list_index, 0);
  EXPECT_FALSE(again.Command1.enabled);
  EXPECT_FALSE(Exists(InProject("c3")));

  // The last case removes CASES.LIB; New Case stays.
  again.List1.on_dbl_click();
  EXPECT_FALSE(Exists(InProject("CASES.LIB")));
  EXPECT_TRUE(again.List1.items.empty());
  EXPECT_FALSE(main.M_OpenCase.enabled || main.M_CopyCase.enabled || main.M_DeleteCase.enabled ||
               main.M_RenameCase.enabled || main.ss.enabled || main.MV.enabled);
  EXPECT_TRUE(main.M_NewCase.enabled && main.LCN.enabled && main.LCR.enabled && main.RT.enabled);
}

TEST(CaseStore, PlainNamesAndTheRegister) {
  EXPECT_TRUE(IsPlainCaseName("abc"));
  EXPECT_FALSE(IsPlainCaseName("a b"));
  EXPECT_FALSE(IsPlainCaseName("a.b"));
  TempDir dir;
  Workspace ws;
  ws.ProjectPath = dir.path();
  WriteBytes(dir / "CASES.LIB", "a - x\r\nb - y\r\na - z\r\n");
  CreateFolder(dir / "a");
  // Both the name and the headline must match.
  RenameCaseEntry(ws, "a", "B2", "z", "new", true);
  EXPECT_EQ(ReadBytes(dir / "CASES.LIB"), "a - x\r\nb - y\r\nb2 - new\r\n");
  EXPECT_TRUE(Exists(dir / "a"));
  DeleteCaseLine(ws, "a");
  EXPECT_EQ(ReadBytes(dir / "CASES.LIB"), "b - y\r\nb2 - new\r\n");
  EXPECT_FALSE(Exists(dir / "a"));
}

}  // namespace
}  // namespace zelmo::testing
