#include <gtest/gtest.h>

#include "core/form_helpers.h"
#include "core/grid_helpers.h"
#include "core/inpbox.h"
#include "core/stale.h"
#include "core/testing/fakes.h"
#include "core/text_file.h"

namespace zelmo {
namespace {

using testing::FakeSession;
using testing::ReadBytes;
using testing::TempDir;
using testing::WriteBytes;

TEST(MarkModulesStale, OneCaseShortLinesAndAll) {
  TempDir dir;
  Workspace ws;
  ws.ProjectPath = dir.path();
  WriteBytes(dir / "case1/THERMAL.INP", "------\r\n");
  MarkModulesStale(ws, dir / "case1", kSiteModules);
  EXPECT_EQ(ReadBytes(dir / "case1/THERMAL.INP"), "----XX\r\n");
  // A line shorter than the position changes nothing beyond its end.
  WriteBytes(dir / "case2/THERMAL.INP", "---");
  MarkModulesStale(ws, dir / "case2", kAllModules);
  EXPECT_EQ(ReadBytes(dir / "case2/THERMAL.INP"), "XXX\r\n");
  // "ALL" walks CASES.LIB; the case names there are lower case.
  WriteBytes(dir / "CASES.LIB", "case1 - First\r\nCASE2 - Second - part\r\n");
  WriteBytes(dir / "case1/THERMAL.INP", "------\r\n");
  WriteBytes(dir / "case2/THERMAL.INP", "------\r\n");
  MarkModulesStale(ws, "ALL", kSixthModule);
  EXPECT_EQ(ReadBytes(dir / "case1/THERMAL.INP"), "-----X\r\n");
  EXPECT_EQ(ReadBytes(dir / "case2/THERMAL.INP"), "-----X\r\n");
  // A damaged line that names a folder outside the project is passed over.
  Workspace project;
  project.ProjectPath = dir / "proj";
  WriteBytes(dir / "proj/CASES.LIB", "../case2 - Damaged\r\n.. - Damaged\r\nc3 - Third\r\n");
  WriteBytes(dir / "THERMAL.INP", "------\r\n");
  WriteBytes(dir / "proj/c3/THERMAL.INP", "------\r\n");
  MarkModulesStale(project, "ALL", kAllModules);
  EXPECT_EQ(ReadBytes(dir / "case2/THERMAL.INP"), "-----X\r\n");
  EXPECT_EQ(ReadBytes(dir / "THERMAL.INP"), "------\r\n");
  EXPECT_EQ(ReadBytes(dir / "proj/c3/THERMAL.INP"), "XXXXXX\r\n");
  // No THERMAL.INP: nothing is created.
  MarkModulesStale(ws, dir / "case3", kAllModules);
  EXPECT_FALSE(testing::Exists(dir / "case3/THERMAL.INP"));
}

TEST(GridHelpers, FirstCommaOnlyAndTheProgramsOwnMark) {
  Form form("F");
  Grid grid(&form, "Grid1");
  grid.SetCols(3);
  grid.SetRows(3);
  grid.tag = "user";
  grid.row = 2;
  grid.col = 1;
  grid.Cell(1, 1) = "1,5,6";
  EXPECT_EQ(GridCellText(grid, 1, 1), "1.5,6");
  SetGridCellText(grid, 1, 2, "2,5");
  EXPECT_EQ(grid.Cell(1, 2), "2.5");
  SetGridCellRaw(grid, 1, 0, "3,5");
  EXPECT_EQ(grid.Cell(1, 0), "3,5");
  EXPECT_EQ(grid.tag, "user");
  EXPECT_EQ(grid.row, 2);
  EXPECT_EQ(grid.col, 1);
  // A change handler sees "*" while the program writes.
  std::string seen;
  grid.on_cell_changed = [&](int, int) { seen = grid.tag; };
  grid.on_click = [&] {};
  SetGridCellText(grid, 2, 2, "x");
  EXPECT_EQ(grid.tag, "user");
}

TEST(GridHelpers, InsertRowMovesRowsDownTrimmed) {
  Form form("F");
  Grid grid(&form, "Grid1");
  grid.SetCols(3);
  grid.AddRow("h1\th2\th3");
  grid.AddRow(" a \tb\tc");
  grid.AddRow("d\te\tf");
  GridInsertRow(grid, 1, " x \ty");
  ASSERT_EQ(grid.rows(), 4);
  EXPECT_EQ(grid.Cell(1, 0), "x");
  EXPECT_EQ(grid.Cell(1, 1), "y");
  EXPECT_EQ(grid.Cell(1, 2), "");
  EXPECT_EQ(grid.Cell(2, 0), "a");
  EXPECT_EQ(grid.Cell(3, 2), "f");
}

TEST(GridHelpers, SelectRowBringsItIntoView) {
  Form form("F");
  Grid grid(&form, "Grid1");
  grid.SetCols(4);
  grid.SetRows(20);
  GridSelectRow(grid, 5, 1, 8);
  EXPECT_EQ(grid.top_row, 5);
  GridSelectRow(grid, 18, 1, 8);  // below the last full page
  EXPECT_EQ(grid.top_row, 12);
  EXPECT_EQ(grid.row, 18);
  EXPECT_EQ(grid.col, 1);
  EXPECT_EQ(grid.row_sel, 18);
  EXPECT_EQ(grid.col_sel, 3);
  GridSelectRowTop(grid, 18, 0, 8);
  EXPECT_EQ(grid.top_row, 1);
  grid.SetRows(4);
  GridSelectRow(grid, 2, 0, 8);  // fewer rows than fit
  EXPECT_EQ(grid.top_row, 1);
}

TEST(SortRows, SortsTheRangeOnOneKeyMovingWholeRows) {
  TextTable table = {{"h", "h"}, {"c", "3"}, {"a", "1"}, {"d", "4"}, {"b", "2"}, {"z", "0"}};
  SortRows(table, 1, 4, 0, 0, 1);
  EXPECT_EQ(table,
            (TextTable{{"h", "h"}, {"a", "1"}, {"b", "2"}, {"c", "3"}, {"d", "4"}, {"z", "0"}}));
  // Exact comparison: capitals before small letters, digits as text.
  TextTable numbers = {{"10"}, {"9"}, {"B"}, {"a"}};
  SortRows(numbers, 0, 3, 0, 0, 0);
  EXPECT_EQ(numbers, (TextTable{{"10"}, {"9"}, {"B"}, {"a"}}));
}

TEST(FormHelpers, CancelAsksOnlyWithChangesAndSavesOnlyWhatPassesTheCheck) {
  FakeSession fake;
  bool passes = true;
  int saved = 0;
  auto check = [&passes] { return passes; };
  auto save = [&saved] { ++saved; };
  auto cancel = [&](bool dirty, Answer answer) {
    Form form("F");
    fake.dialogs.Clear();
    fake.dialogs.answers = {answer};
    CancelAskingToSave(form, fake.dialogs, dirty, "Site", check, save);
    return form.unloaded;
  };
  EXPECT_TRUE(cancel(false, Answer::kYes));
  EXPECT_TRUE(fake.dialogs.messages.empty());
  EXPECT_TRUE(cancel(true, Answer::kNo));
  EXPECT_EQ(fake.dialogs.Last().text, "Do you want to save changes ?\r\rSite");
  EXPECT_EQ(saved, 0);
  EXPECT_FALSE(cancel(true, Answer::kCancel));
  EXPECT_TRUE(cancel(true, Answer::kYes));
  EXPECT_EQ(saved, 1);
  passes = false;
  EXPECT_FALSE(cancel(true, Answer::kYes));
  Form form("F");
  OkAndClose(form, check, save);
  EXPECT_FALSE(form.unloaded);
  EXPECT_EQ(saved, 1);
}

TEST(FormHelpers, SaveQuestionCentreAndCaseList) {
  FakeSession fake;
  std::string text = "Surface";
  fake.dialogs.answers.push_back(Answer::kNo);
  EXPECT_EQ(AskSaveChanges(fake.dialogs, text), Answer::kNo);
  EXPECT_EQ(text, "Do you want to save changes ?\r\rSurface");
  EXPECT_EQ(fake.dialogs.Last().title, "Save");
  EXPECT_EQ(fake.dialogs.Last().style, mb::kYesNoCancel + mb::kExclamation);
  std::string none;
  AskSaveChanges(fake.dialogs, none);
  EXPECT_EQ(fake.dialogs.Last().text, "Do you want to save changes ?");

  Form form("F");
  form.width = 6000;
  form.height = 4000;
  fake.ws().ScreenWidth = 20000;
  fake.ws().ScreenHeight = 15000;
  CenterForm(form, fake.ws());
  EXPECT_EQ(form.left, 7000);
  EXPECT_EQ(form.top, 5750);

  TempDir dir;
  fake.ws().ProjectPath = dir.path();
  ListBox list(&form, "List1");
  FillCaseList(fake.ws(), list);
  EXPECT_TRUE(list.items.empty());
  WriteBytes(dir / "CASES.LIB", "case1 - First - with dash\r\nCASE2 - Second\r\n");
  FillCaseList(fake.ws(), list);
  EXPECT_EQ(list.items, (std::vector<std::string>{"case1 - First - with dash", "case2 - Second"}));

  std::vector<std::string> fields(30, "x");
  ClearElementRow(fields);
  ASSERT_EQ(fields.size(), 30u);
  EXPECT_EQ(fields[1] + fields[4] + fields[5] + fields[6], "0000");
  EXPECT_EQ(fields[0] + fields[2] + fields[3] + fields[7] + fields[29], "");
}

TEST(InpBox, NumberChecksAndTheirMessages) {
  FakeSession fake;
  std::vector<std::string> tries = {"13", "abc", "", " 7 "};
  size_t next = 0;
  fake.dialogs.screens["InpBox"] = [&](Form& form) {
    auto& box = static_cast<InpBox&>(form);
    EXPECT_EQ(box.caption, "Copy month");
    EXPECT_EQ(box.Label1.caption, "Target month (0= all other) ");
    EXPECT_EQ(box.Text1.max_length, 2);
    EXPECT_EQ(box.Text1.text, "1");
    EXPECT_EQ(box.Text1.sel_length, 1);
    EXPECT_EQ(box.focus, "Text1");
    while (!box.unloaded && next < tries.size()) {
      box.Text1.text = tries[next++];
      box.Ok();
    }
  };
  std::string result = AskInput(fake.session, "Target month (0= all other) ", "1", "Copy month", 2,
                                -1, 0, 12, false);
  EXPECT_EQ(result, " 7 ");  // returned untrimmed
  ASSERT_EQ(fake.dialogs.messages.size(), 3u);
  EXPECT_EQ(fake.dialogs.messages[0].text, "Input value (Min:  0, Max:  12)");
  EXPECT_EQ(fake.dialogs.messages[0].title, "MESSAGE");
  EXPECT_EQ(fake.dialogs.messages[0].style, mb::kExclamation);
  EXPECT_EQ(fake.dialogs.messages[1].text, "Input must be a value");
  EXPECT_EQ(fake.dialogs.messages[2].text, "Input must be a value");
}

TEST(InpBox, FreeTextCancelMaskAndWidth) {
  FakeSession fake;
  fake.dialogs.screens["InpBox"] = [](Form& form) {
    auto& box = static_cast<InpBox&>(form);
    EXPECT_EQ(box.Text1.password_char, '*');
    // The window fits the longer of the prompt and the field, at least 3855.
    EXPECT_EQ(box.width, 3855);
    box.Text1.text = "secret";
    box.Cancel();
  };
  EXPECT_EQ(AskInput(fake.session, "Name", "", "T", 5, 0, 0, 0, true), "");
  fake.dialogs.screens["InpBox"] = [](Form& form) {
    auto& box = static_cast<InpBox&>(form);
    EXPECT_EQ(box.width, 100 * 40 + 400);  // the 40-letter prompt is the longer
    box.Text1.text = "";
    box.Ok();
  };
  EXPECT_EQ(AskInput(fake.session, std::string(40, 'p'), "x", "T", 16, 0, 0, 0, false), "");
  fake.dialogs.screens["InpBox"] = [](Form& form) {
    auto& box = static_cast<InpBox&>(form);
    EXPECT_EQ(box.width, 100 * 45 + 400);  // 45 letters "M" are the longer
    box.Text1.text = "Clear 4 mm";
    box.Ok();
  };
  EXPECT_EQ(AskInput(fake.session, "Glass type name", "", "ADD GLASS TYPE", 45, 0, 0, 0, false),
            "Clear 4 mm");
  // A default longer than the field is cut to it, so Ok returns what is shown.
  fake.dialogs.screens["InpBox"] = [](Form& form) { static_cast<InpBox&>(form).Ok(); };
  EXPECT_EQ(
      AskInput(fake.session, "Type a name ", "Outer wall 365 mm brick", "T", 16, 0, 0, 0, false),
      "Outer wall 365 m");
  EXPECT_TRUE(fake.dialogs.messages.empty());
}

TEST(InpBox, LimitsComparedInSinglePrecision) {
  FakeSession fake;
  fake.dialogs.screens["InpBox"] = [](Form& form) {
    auto& box = static_cast<InpBox&>(form);
    box.Text1.text = "99999.001";  // 99999.0 as a single: inside the limit
    box.Ok();
  };
  EXPECT_EQ(
      AskInput(fake.session, "Type thickness (mm) ", "", "Add wall-layer", 5, -1, 1, 99999, false),
      "99999.001");
  EXPECT_TRUE(fake.dialogs.messages.empty());
}

}  // namespace
}  // namespace zelmo

namespace zelmo {
namespace {

// Every question the libraries ask through the input box: the title, prompt
// and length reach the box, and a value out of range names the limits.
TEST(InpBox, TheLibrariesQuestions) {
  struct Use {
    const char* prompt;
    const char* title;
    int max_length;
    int kind;
    float min, max;
    const char* limits;
  };
  const Use uses[] = {
      {"Type a name ", "Add Walls/Floors/Roofs/Doors", 16, 0, 0, 0, ""},
      {"Type name of target ", "Copy Walls/Floors/Roofs/Doors", 16, 0, 0, 0, ""},
      {"Type a new name ", "Rename Walls/Floors/Roofs/Doors", 16, 0, 0, 0, ""},
      {"Type thickness (mm) ", "Add wall-layer", 5, -1, 1, 99999,
       "Input value (Min:  1, Max:  99999)"},
      {"Type thickness (mm) ", "Edit thickness", 5, -1, 1, 99999,
       "Input value (Min:  1, Max:  99999)"},
      {"Glass type name", "ADD GLASS TYPE", 30, 0, 0, 0, ""},
      {"Type name", "ADD WINDOW", 30, 0, 0, 0, ""},
      {"Target month (0= all other) ", "Copy month", 2, -1, 0, 12,
       "Input value (Min:  0, Max:  12)"},
  };
  for (const Use& use : uses) {
    testing::FakeSession fake;
    fake.dialogs.screens["InpBox"] = [&](Form& form) {
      auto& box = static_cast<InpBox&>(form);
      EXPECT_EQ(box.caption, use.title);
      EXPECT_EQ(box.Label1.caption, use.prompt);
      EXPECT_EQ(box.Text1.max_length, use.max_length);
      box.Text1.text = "-5";
      box.Ok();
      if (!box.unloaded) {
        box.Text1.text = "5";
        box.Ok();
      }
    };
    std::string answer = AskInput(fake.session, use.prompt, "", use.title, use.max_length, use.kind,
                                  use.min, use.max, false);
    if (use.kind == 0) {
      EXPECT_EQ(answer, "-5") << use.title;
      EXPECT_TRUE(fake.dialogs.messages.empty()) << use.title;
    } else {
      EXPECT_EQ(answer, "5") << use.title;
      ASSERT_EQ(fake.dialogs.messages.size(), 1u) << use.title;
      EXPECT_EQ(fake.dialogs.Last().text, use.limits);
    }
  }
}

}  // namespace
}  // namespace zelmo
