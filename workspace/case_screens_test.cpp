#include "workspace/case_screens.h"

#include "workspace/case_store.h"
#include "workspace/store_commands.h"
#include "workspace/store_test_fixture.h"

namespace zelmo::testing {
namespace {

const std::string kBadName = "Case name must be <= 8 characters long with no spacec in the name !";

class CaseScreens : public StoreTest {
 protected:
  CaseScreens() {
    AddProject("abc", "abc");
    OpenAs("abc", "abc");
    main.StateAfterOpenProject(false);
  }
  // The open case: its name, headline and folder.
  std::string Current() { return ws().CaseName + "|" + ws().CaseHeadline + "|" + ws().CasePath; }
  // Rename Case from its menu entry: the user's acts on the screen.
  void RenameThroughMenu(const Strings& acts) {
    fake.dialogs.screens["RenCase"] = [acts](Form& form) {
      Act(form, acts);
      EXPECT_TRUE(form.unloaded);
    };
    RunRenameCase(main);
  }
};

TEST_F(CaseScreens, NewCaseMakesTheFirstCaseAndRefusesClashesAndBadNames) {
  auto& screen = Show<NewCase>();
  EXPECT_TRUE(screen.List1.items.empty());
  Act(screen, {"Text1=Case1", "Text2=Office - north side", "Command1"});
  EXPECT_TRUE(screen.unloaded);
  EXPECT_EQ(Cases(), "case1 - Office - north side\r\n");
  // The folder keeps the name as typed.
  EXPECT_EQ(SubFolders(ws().ProjectPath), Strings{"Case1"});
  EXPECT_EQ(ReadBytes(InProject("Case1/THERMAL.INP")), "XXXXXX\r\n");
  EXPECT_EQ(Current(), "case1|Office - north side|" + InProject("Case1"));
  EXPECT_EQ(main.caption, "Project : abc, Case : case1");
  EXPECT_TRUE(main.M_Model.enabled && main.MBS.enabled && main.M_Output.enabled &&
              main.M_OpenCase.enabled && main.ss.enabled && main.RDL.enabled && main.MV.enabled &&
              main.M_Diagram.enabled);

  // The headline with " - " inside survives the round trip.
  auto& list = Show<NewCase>();
  EXPECT_EQ(list.List1.items, Strings{"case1 - Office - north side"});
  EXPECT_EQ(list.List1.list_index, 0);

  const auto before = Listing(ws().ProjectPath);
  std::vector<std::pair<std::string, std::string>> refusals = {
      {"", "Casename must be set"},
      {"CASE1", "A case with the same name already exists"},
      {"a b", kBadName}};
  for (const auto& name : Words("a.b a:b a\\b a/b . ..")) refusals.push_back({name, kBadName});
  for (const auto& [name, message] : refusals) {
    NewCase refused(fake.session, main);
    Act(refused, {"Text1=" + name, "Command1"});
    EXPECT_FALSE(refused.unloaded);
    EXPECT_EQ(refused.focus, "Text1");
    EXPECT_EQ(fake.dialogs.Last(), (ShownMessage{message, mb::kExclamation, "Error message"}))
        << name;
  }
  EXPECT_EQ(Listing(ws().ProjectPath), before);
  EXPECT_EQ(Cases(), "case1 - Office - north side\r\n");
}

TEST_F(CaseScreens, OpenCaseSetsTheCaseAndItsState) {
  auto& none = Show<OpenCase>();
  EXPECT_FALSE(none.Command1.enabled);

  AddCase("c1", "first");
  AddCase("c2", "second - part");
  auto& screen = Show<OpenCase>();
  EXPECT_TRUE(screen.Command1.enabled);
  Act(screen, {"List1#1*"});
  EXPECT_TRUE(screen.unloaded);
  EXPECT_EQ(Current(), "c2|second - part|" + InProject("c2"));
  EXPECT_EQ(main.caption, " Project : abc, Case : c2");
  EXPECT_TRUE(main.M_Model.enabled && main.M_Output.enabled && main.RC.enabled &&
              main.M_CopyCase.enabled && main.M_DeleteCase.enabled);
  // Open Case and Rename Case are left as they were.
  EXPECT_FALSE(main.M_OpenCase.enabled || main.M_RenameCase.enabled);

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
  for (const auto& name : Words("R.TXT r.lis x.DdD y.ggg z.PPP SURFACE.INP")) {
    WriteBytes(InProject("c1/" + name), "data\r\n");
  }
  auto& screen = Show<CopyCase>();
  EXPECT_EQ(screen.Text1.text, "c1");
  EXPECT_EQ(screen.Text1.sel_length, 2);
  const auto before = Listing(ws().ProjectPath);
  std::vector<std::pair<std::string, std::string>> refusals = {
      {"a b", "Casename not correct"},
      {"", "Casename must be set"},
      {"C1", "A case with the same name already exists"}};
  for (const auto& name : Words("a.b a/b .. .")) refusals.push_back({name, "Casename not correct"});
  for (const auto& [name, message] : refusals) {
    Act(screen, {"Text1=" + name, "Command1"});
    EXPECT_EQ(fake.dialogs.Last().text, message) << name;
  }
  EXPECT_EQ(Listing(ws().ProjectPath), before);
  EXPECT_FALSE(screen.unloaded);

  Act(screen, {"Text1=Copy2", "Text2=the copy", "Command1"});
  EXPECT_TRUE(screen.unloaded);
  EXPECT_EQ(Cases(), "c1 - first\r\ncopy2 - the copy\r\n");
  EXPECT_EQ(screen.List1.items.back(), "copy2 - the copy");
  EXPECT_EQ(ReadBytes(InProject("Copy2/THERMAL.INP")), "--X---\r\n");
  EXPECT_EQ(Listing(InProject("Copy2")), (Strings{"SURFACE.INP", "THERMAL.INP"}));
  EXPECT_EQ(Listing(InProject("c1")).size(), 7u);
  EXPECT_EQ(ws().CaseName + "|" + main.caption + "|" + screen.Text1.text,
            "copy2|Project : abc, Case : copy2|");
  EXPECT_EQ(fake.dialogs.busy_calls.back(), false);
}

TEST_F(CaseScreens, RenameCaseMovesTheFolderAndMarksTheOpenCase) {
  AddCase("c1", "first", "------");
  AddCase("c2", "second", "------");
  // A case must be open to rename any case; the main window writes its
  // title all the same.
  RenameThroughMenu({"List1#0", "Command1"});
  EXPECT_EQ(fake.dialogs.Last(),
            (ShownMessage{"No Case has been opened", mb::kExclamation, "Error message"}));
  EXPECT_EQ(main.caption, "Project : abc, Case : ");
  EXPECT_EQ(Cases(), "c1 - first\r\nc2 - second\r\n");

  ws().CaseName = "c1";
  ws().CaseHeadline = "first";
  ws().CasePath = InProject("c1");
  fake.dialogs.screens["RenCase"] = [](Form& form) {
    auto& screen = static_cast<RenCase&>(form);
    Act(screen, {"List1#0"});
    EXPECT_EQ(screen.Text1.text + "|" + screen.Text2.text, "c1|first");
    Act(screen, {"Text1=Office", "Command1"});
  };
  RunRenameCase(main);
  EXPECT_EQ(Cases(), "office - first\r\nc2 - second\r\n");
  EXPECT_EQ(SubFolders(ws().ProjectPath), (Strings{"c2", "Office"}));
  EXPECT_EQ(Current(), "office|first|" + InProject("Office"));
  EXPECT_EQ(main.caption, "Project : abc, Case : office");
  EXPECT_EQ(ReadBytes(InProject("Office/THERMAL.INP")), "------\r\n");

  // A new headline of another case marks the open case.
  RenameThroughMenu({"List1#1", "Text2=second, changed", "Command1"});
  EXPECT_EQ(Cases(), "office - first\r\nc2 - second, changed\r\n");
  EXPECT_EQ(ReadBytes(InProject("Office/THERMAL.INP")) + ReadBytes(InProject("c2/THERMAL.INP")),
            "XXXXXX\r\n------\r\n");

  // A clash stops without a word; names that leave the project are refused.
  fake.dialogs.screens.clear();
  fake.dialogs.Clear();
  for (const std::string name : {"OFFICE", "../c2", "..", "a - b", " "}) {
    auto& refused = Show<RenCase>();
    Act(refused, {"List1#1", "Text1=" + name, "Command1"});
    if (name == "OFFICE") continue;
    EXPECT_FALSE(refused.unloaded);
    EXPECT_EQ(refused.focus, "Text1");
  }
  EXPECT_EQ(fake.dialogs.Texts(), (Strings{kBadName, kBadName, kBadName, "Casename must be set"}));
  EXPECT_EQ(Cases(), "office - first\r\nc2 - second, changed\r\n");
  EXPECT_EQ(SubFolders(ws().ProjectPath), (Strings{"c2", "Office"}));
}

TEST_F(CaseScreens, DeleteCaseByButtonAndByDoubleClick) {
  AddCase("c1", "first");
  AddCase("c2", "second");
  AddCase("c3", "third");
  ws().CaseName = "c2";
  ws().CasePath = InProject("c2");
  main.StateAfterNewCase();

  auto& screen = Show<DelCase>();
  EXPECT_FALSE(screen.Command1.enabled);
  Act(screen, {"List1#1", "Command1"});
  EXPECT_EQ(fake.dialogs.Last(),
            (ShownMessage{"Do you really want to delete the CURRENT case\rc2 ?", 52, ""}));
  EXPECT_TRUE(screen.unloaded);
  EXPECT_EQ(Cases(), "c1 - first\r\nc3 - third\r\n");
  EXPECT_FALSE(Exists(InProject("c2")) || Exists(InProject("CASES.XXX")));
  EXPECT_EQ(ws().CaseName + "|" + ws().CasePath, "|" + InProject("c2"));  // the path is kept
  EXPECT_EQ(main.caption, "Project : abc");
  EXPECT_FALSE(main.M_Model.enabled || main.MBB.enabled || main.M_Output.enabled);
  EXPECT_TRUE(main.M_OpenCase.enabled);

  // The double click shows the name alone and stays open.
  auto& again = Show<DelCase>();
  fake.dialogs.Clear();
  Act(again, {"List1#1*"});
  EXPECT_EQ(fake.dialogs.Texts(), (Strings{"Do you want to delete the case\rc3 ?", "c3"}));
  EXPECT_EQ(fake.dialogs.Last().style, mb::kOkOnly);
  EXPECT_FALSE(again.unloaded || again.Command1.enabled || Exists(InProject("c3")));
  EXPECT_EQ(again.List1.items, Strings{"c1 - first"});
  EXPECT_EQ(again.List1.list_index, 0);

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
  EXPECT_FALSE(IsPlainCaseName("a b") || IsPlainCaseName("a.b"));
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
