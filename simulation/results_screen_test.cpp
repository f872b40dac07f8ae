#include "simulation/results_screen.h"

#include <gtest/gtest.h>

#include "core/fields.h"
#include "core/testing/fakes.h"
#include "core/text_file.h"

namespace zelmo {
namespace {

using testing::Exists;
using testing::FakeSession;
using testing::ReadBytes;
using testing::TempDir;
using testing::WriteBytes;

struct ResultsCase {
  ResultsCase() {
    ws().ProjectName = "Office";
    ws().ProjectPath = dir / "office";
    ws().CaseName = "case2";
    ws().CasePath = dir / "office/case2";
    ws().MainDirectory = dir / "TGZELMO";
    ws().ProgramDirectory = dir.path();
    WriteBytes(dir / "office/CASES.LIB", "case1 - First\r\ncase2 - Second\r\n");
    WriteBytes(dir / "office/case1/a.LIS", "one\r\n");
    WriteBytes(dir / "office/case2/PLOR.LIS", "PLOR report\r\nline 2");
    WriteBytes(dir / "office/case2/muk.lis", "MUK\r\n");
    WriteBytes(dir / "office/case2/LOADS.TXT", "1,5\t2,25\r\n3.0\r\n");
    std::filesystem::create_directories(ToFsPath(ws().MainDirectory));
  }
  Workspace& ws() { return fake.ws(); }
  TempDir dir;
  FakeSession fake;
};

TEST(Results, ListsCasesTypesAndFiles) {
  ResultsCase c;
  Results screen(c.fake.session);
  screen.Load();
  EXPECT_EQ(screen.caption + "|" + screen.Label1.caption,
            "TextFiles|Existing cases - Project : office");
  EXPECT_EQ(screen.CaseList.items, (testing::Strings{"case1 - First", "case2 - Second"}));
  EXPECT_EQ(screen.CaseList.list_index, 1);
  EXPECT_EQ(screen.TypeList.items, (testing::Strings{"LIS", "TXT"}));
  EXPECT_EQ(screen.File1.items.size(), 3u);  // no type chosen: every file
  testing::Act(screen, {"TypeList#0"});
  EXPECT_EQ(screen.File1.items, (testing::Strings{"muk.lis", "PLOR.LIS"}));
  testing::Act(screen, {"CaseList#0"});
  EXPECT_EQ(screen.File1.items, testing::Strings{"a.LIS"});

  // A case folder without result files: an empty list, and nothing happens.
  WriteBytes(c.dir / "office/CASES.LIB", "case3 - Empty\r\n");
  Results empty(c.fake.session);
  c.ws().CaseName = "case3";
  empty.Load();
  EXPECT_TRUE(empty.File1.items.empty());
  testing::Act(empty, {"File1", "File1*"});
  EXPECT_TRUE(c.fake.processes.calls.empty() && c.fake.dialogs.messages.empty());
}

TEST(Results, ShowsPrintsAndOpensAReport) {
  ResultsCase c;
  Results screen(c.fake.session);
  screen.Load();
  testing::Act(screen, {"TypeList#0"});
  EXPECT_FALSE(screen.Command1.visible);
  testing::Act(screen, {"File1#1"});
  EXPECT_EQ(screen.Text1.text, "PLOR report\r\nline 2\r\n");
  EXPECT_TRUE(screen.Command1.visible);
  testing::Act(screen, {"Command1"});
  EXPECT_EQ(c.fake.desktop.printed, testing::Strings{screen.Text1.text});

  // Without the editor in the program tree the registered program opens it.
  std::string path = c.dir / "office/case2/PLOR.LIS";
  testing::Act(screen, {"File1*"});
  EXPECT_EQ(c.fake.desktop.opened, testing::Strings{path});
  EXPECT_TRUE(c.fake.processes.calls.empty());
  WriteBytes(c.dir / "TGZELMO/QEDITOR.EXE", "");
  testing::Act(screen, {"File1*"});
  const std::vector<testing::RunCall> editor = {{c.dir / "TGZELMO/QEDITOR.EXE", {path}, 5}};
  EXPECT_EQ(c.fake.processes.calls, editor);
  EXPECT_EQ(screen.caption, "Results - " + ToLower(path));

  std::filesystem::remove(ToFsPath(path));
  testing::Act(screen, {"File1*"});
  EXPECT_EQ(c.fake.processes.calls, editor);
  EXPECT_EQ(c.fake.dialogs.Last(),
            (testing::ShownMessage{"Can not find the file " + path, mb::kExclamation, "MESSAGE"}));
  testing::Act(screen, {"Command3", "Command2"});
  EXPECT_EQ(
      c.fake.desktop.help_calls,
      (std::vector<std::pair<std::string, int>>{{c.dir / "Help_English/ZELMO_e.chm", 12120}}));
  EXPECT_TRUE(screen.unloaded);
}

TEST(Results, TablesGoToTheSpreadsheetWithTheSystemsSeparator) {
  ResultsCase c;
  c.ws().DecimalComma = true;
  c.fake.desktop.registered_program = "C:\\Office\\EXCEL.EXE \"%1\"";
  Results screen(c.fake.session);
  screen.Load();
  testing::Act(screen, {"TypeList#1", "File1#0"});
  ASSERT_EQ(screen.File1.SelectedItem(), "LOADS.TXT");
  EXPECT_EQ(screen.Text1.text, "");  // tables are not shown in the box
  EXPECT_FALSE(screen.Command1.visible);

  std::string path = c.dir / "office/case2/LOADS.TXT";
  testing::Act(screen, {"File1*"});
  EXPECT_EQ(ReadBytes(path), "1,5\t2,25\r\n3,0\r\n");
  EXPECT_FALSE(Exists(c.dir / "office/case2/TLOADS.TXT"));
  EXPECT_TRUE(Exists(c.dir / "TGZELMO/pq.xls"));
  std::vector<testing::RunCall> calls = {
      {"C:\\Office\\EXCEL.EXE", {c.dir / "TGZELMO/pq.xls", path}, 5}};
  EXPECT_EQ(c.fake.processes.calls, calls);

  // A point system turns every comma into a point; a last line gets its end.
  WriteBytes(path, "1,5\t2,25\r\n3.0");
  c.ws().DecimalComma = false;
  EXPECT_TRUE(RewriteDecimalSeparators(path, false));
  EXPECT_EQ(ReadBytes(path), "1.5\t2.25\r\n3.0\r\n");

  c.fake.desktop.has_registered_program = false;
  testing::Act(screen, {"File1*"});
  EXPECT_EQ(c.fake.dialogs.Last().text, "No Excel program was found ! ");
  EXPECT_EQ(ReadBytes(path), "1.5\t2.25\r\n3.0\r\n");

  // "Reports": the program registered for the file.
  c.fake.desktop.has_registered_program = true;
  c.fake.desktop.registered_program = "/usr/bin/editor";
  testing::Fill(screen, {"Option1#0", "Option2#1"});
  testing::Act(screen, {"File1*"});
  calls.push_back({"/usr/bin/editor", {path}, 5});
  EXPECT_EQ(c.fake.processes.calls, calls);
}

}  // namespace
}  // namespace zelmo
