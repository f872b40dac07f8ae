// The registers when a write fails, when a line is damaged and when a text
// holds a line break: every failure is told with the file's name, and the
// registers stay as they were.
#include <filesystem>

#include "core/guard.h"
#include "workspace/case_screens.h"
#include "workspace/case_store.h"
#include "workspace/store_test_fixture.h"

namespace zelmo::testing {
namespace {

namespace fs = std::filesystem;

class StoreFailures : public StoreTest {
 protected:
  StoreFailures() {
    AddProject("abc", "abc");
    OpenAs("abc", "abc");
    AddCase("base", "Base case");
    ws().CaseName = "base";
    ws().CasePath = InProject("base");
  }
  void ReadOnly(const std::string& path) {
    fs::permissions(ToFsPath(path),
                    fs::perms::owner_write | fs::perms::group_write | fs::perms::others_write,
                    fs::perm_options::remove);
  }
  // A screen shown, then the user's acts on it.
  template <class Screen>
  std::function<void()> On(const Strings& acts) {
    return [this, acts] {
      Screen screen(fake.session, main);
      fake.dialogs.ShowModal(screen);
      Act(screen, acts);
    };
  }
  // Runs a screen's event as the window does, and gives what it showed.
  std::string Shown(const std::function<void()>& event) {
    fake.dialogs.Clear();
    RunGuarded(fake.dialogs, event);
    return fake.dialogs.messages.empty() ? "" : fake.dialogs.Last().text;
  }
};

TEST_F(StoreFailures, AFailedWriteIsToldAndLeavesTheRegisterAsItWas) {
  const std::string cases = InProject("CASES.LIB");
  const std::string written = "The file could not be written.\r" + cases;
  struct Row {
    const char* what;
    std::function<void()> event;
  };
  const Row rows[] = {
      {"new case", On<NewCase>({"Text1=second", "Text2=Second", "Command1"})},
      {"copy case", On<CopyCase>({"Text1=copy", "Command1"})},
      {"headline", On<RenCase>({"List1#0", "Text2=New headline", "Command1"})},
      {"rename", On<RenCase>({"List1#0", "Text1=moved", "Command1"})},
      {"delete line", [this] { DeleteCaseLine(ws(), "base"); }},
  };
  ReadOnly(cases);
  for (const Row& row : rows) {
    const auto folders = SubFolders(ws().ProjectPath);
    EXPECT_EQ(Shown([&] { row.event(); }), written) << row.what;
    EXPECT_EQ(Cases(), "base - Base case\r\n") << row.what;
    EXPECT_EQ(ws().CaseName, "base") << row.what;
    EXPECT_EQ(ws().CaseHeadline, "") << row.what;
    // A folder made or moved for the case is taken back with the line; the
    // delete removes the folder before its line, as it always has.
    if (std::string(row.what) != "delete line") {
      EXPECT_EQ(SubFolders(ws().ProjectPath), folders) << row.what;
      EXPECT_EQ(ReadBytes(InProject("base/THERMAL.INP")), "XXXXXX\r\n") << row.what;
    }
  }
}

TEST_F(StoreFailures, ACaseFolderThatCannotBeMadeRegistersNothing) {
  // A file where the folder would go: no folder can be made there.
  WriteBytes(InProject("second"), "");
  NewCase screen(fake.session, main);
  screen.Text1.text = "second";
  EXPECT_EQ(Shown([&] { screen.New(); }), "Path not found\r" + InProject("second"));
  EXPECT_EQ(Cases(), "base - Base case\r\n");
  EXPECT_EQ(ws().CaseName, "base");
}

TEST_F(StoreFailures, ALineBreakTypedIntoAHeadlineStaysInItsLine) {
  NewCase screen(fake.session, main);
  screen.Text1.text = "h";
  screen.Text2.text = "h\r\n../../outside - x\t";
  screen.New();
  EXPECT_EQ(Cases(), "base - Base case\r\nh - h../../outside - x\r\n");
  EXPECT_EQ(ws().CaseHeadline, "h../../outside - x");

  RenCase rename(fake.session, main);
  fake.dialogs.ShowModal(rename);
  rename.List1.list_index = 1;
  rename.CaseClicked();
  rename.Text2.text = "one\rtwo";
  rename.Rename();
  EXPECT_EQ(Cases(), "base - Base case\r\nh - onetwo\r\n");

  // A name with a line break never makes a register line of its own.
  NewCase refused(fake.session, main);
  refused.Text1.text = "a\r\nb";
  refused.New();
  EXPECT_EQ(fake.dialogs.Last().text,
            "Case name must be <= 8 characters long with no spacec in the name !");
}

TEST_F(StoreFailures, RenameRefusesARegisterLineThatNamesNoFolderOfTheProject) {
  const std::string outside = dir / "outside";
  CreateFolder(outside);
  AppendLine(InProject("CASES.LIB"), "../../outside - x");
  RenCase screen(fake.session, main);
  fake.dialogs.ShowModal(screen);
  screen.List1.list_index = 1;
  screen.CaseClicked();
  screen.Text1.text = "inside";
  EXPECT_EQ(Shown([&] { screen.Rename(); }),
            "The line names no case folder\r" + InProject("CASES.LIB") + ", line 2");
  EXPECT_TRUE(FolderExists(outside));
  EXPECT_FALSE(FolderExists(InProject("inside")));
}

TEST_F(StoreFailures, TheScreensThemselvesHoldANameToEightCharacters) {
  const std::string long_name = "ninechars";
  NewCase new_case(fake.session, main);
  new_case.Text1.text = long_name;
  new_case.New();
  CopyCase copy_case(fake.session, main);
  fake.dialogs.ShowModal(copy_case);
  copy_case.Text1.text = long_name;
  copy_case.Copy();
  RenCase ren_case(fake.session, main);
  fake.dialogs.ShowModal(ren_case);
  ren_case.List1.list_index = 0;
  ren_case.Text1.text = long_name;
  ren_case.Rename();
  EXPECT_EQ(fake.dialogs.Texts(),
            (std::vector<std::string>{
                "Case name must be <= 8 characters long with no spacec in the name !",
                "Casename not correct",
                "Case name must be <= 8 characters long with no spacec in the name !"}));
  EXPECT_EQ(Cases(), "base - Base case\r\n");
}

}  // namespace
}  // namespace zelmo::testing
