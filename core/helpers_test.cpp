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
using testing::ShownMessage;
using testing::Strings;
using testing::TempDir;
using testing::Words;
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
  EXPECT_EQ(ReadBytes(dir / "case1/THERMAL.INP") + ReadBytes(dir / "case2/THERMAL.INP"),
            "-----X\r\n-----X\r\n");
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

TEST(GridHelpers, FirstCommaOnlyInsertedRowsTrimmedAndTheCurrentCellKept) {
  Form form("F");
  Grid grid(&form, "Grid1");
  grid.SetCols(3);
  grid.AddRow("h1\th2\th3");
  grid.AddRow(" a \t1,5,6\tc");
  grid.AddRow("d\te\tf");
  grid.tag = "user";
  grid.row = 2;
  grid.col = 1;
  EXPECT_EQ(GridCellText(grid, 1, 1), "1.5,6");
  SetGridCellText(grid, 1, 2, "2,5");
  SetGridCellRaw(grid, 2, 0, "3,5");
  EXPECT_EQ(grid.tag + std::to_string(grid.row) + std::to_string(grid.col), "user21");
  GridInsertRow(grid, 1, " x \ty");
  EXPECT_EQ(testing::GridRows(grid),
            (std::vector<std::string>{"h1|h2|h3", "x|y|", "a|1,5,6|2.5", "3,5|e|f"}));
}

TEST(GridHelpers, SelectRowBringsItIntoView) {
  Form form("F");
  Grid grid(&form, "Grid1");
  grid.SetCols(4);
  grid.SetRows(20);
  GridSelectRow(grid, 5, 1, 8);
  EXPECT_EQ(grid.top_row, 5);
  GridSelectRow(grid, 18, 1, 8);  // below the last full page
  EXPECT_EQ((std::vector<int>{grid.top_row, grid.row, grid.col, grid.row_sel, grid.col_sel}),
            (std::vector<int>{12, 18, 1, 18, 3}));
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
  // Whether the screen closed, and the saves so far.
  auto cancel = [&](bool dirty, Answer answer) {
    Form form("F");
    fake.dialogs.answers = {answer};
    CancelAskingToSave(form, fake.dialogs, dirty, "Site", check, save);
    return std::to_string(form.unloaded) + std::to_string(saved);
  };
  EXPECT_EQ(cancel(false, Answer::kYes), "10");
  EXPECT_TRUE(fake.dialogs.messages.empty());
  EXPECT_EQ(cancel(true, Answer::kNo), "10");
  EXPECT_EQ(fake.dialogs.Last(), (ShownMessage{"Do you want to save changes ?\r\rSite",
                                               mb::kYesNoCancel + mb::kExclamation, "Save"}));
  EXPECT_EQ(cancel(true, Answer::kCancel), "00");
  EXPECT_EQ(cancel(true, Answer::kYes), "11");
  passes = false;
  EXPECT_EQ(cancel(true, Answer::kYes), "01");
  Form form("F");
  OkAndClose(form, check, save);
  EXPECT_FALSE(form.unloaded);
  EXPECT_EQ(saved, 1);
}

TEST(FormHelpers, SaveQuestionCentreCaseListAndClearedRow) {
  FakeSession fake;
  std::string text = "Surface", none;
  fake.dialogs.answers.push_back(Answer::kNo);
  EXPECT_EQ(AskSaveChanges(fake.dialogs, text), Answer::kNo);
  AskSaveChanges(fake.dialogs, none);
  EXPECT_EQ(fake.dialogs.Texts(),
            (std::vector<std::string>{"Do you want to save changes ?\r\rSurface",
                                      "Do you want to save changes ?"}));
  EXPECT_EQ(text, fake.dialogs.messages[0].text);

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

// Every question asked through the input box: the box as it opens, the
// answers typed in turn, each followed by OK ("" presses OK on what is shown,
// "\x1b" presses Cancel), what AskInput returns and the messages shown.
TEST(InpBox, QuestionsAnswersAndLimits) {
  struct Ask {
    std::string prompt, default_text, title;
    int max_length, kind;
    float min, max;
    Strings typed;
    std::string result;
    Strings messages;
    int width = 3855;
    bool mask = false;
  };
  const std::string month = "Target month (0= all other) ", mm = "Type thickness (mm) ";
  const std::string months = "Input value (Min:  0, Max:  12)", value = "Input must be a value";
  const std::string mms = "Input value (Min:  1, Max:  99999)", name = "Type a name ";
  const std::string in = "99999.001", glass = "Clear 4 mm";
  const Strings no;
  const Ask asks[] = {
      // Each limit passes, just outside is refused; the answer is not trimmed.
      {month, "1", "Copy month", 2, -1, 0, 12, Words("13 abc -1 0"), "0", {months, value, months}},
      {month, "1", "Copy month", 2, -1, 0, 12, {"12"}, "12", no},
      {month, "1", "Copy month", 2, -1, 0, 12, {"", " 7 "}, " 7 ", {value}},
      // Limits compared in single precision: 99999.001 is 99999.0.
      {mm, "", "Add wall-layer", 5, -1, 1, 99999, {"0", "99999.01", in}, in, {mms, mms}},
      {mm, "", "Edit thickness", 5, -1, 1, 99999, {"-5", "1"}, "1", {mms}},
      // Free text takes anything; the window fits the longer of the prompt and
      // the field.
      {name, "", "Add Walls/Floors/Roofs/Doors", 16, 0, 0, 0, {"-5"}, "-5", no},
      {"Glass type name", "", "ADD GLASS TYPE", 45, 0, 0, 0, {glass}, glass, no, 100 * 45 + 400},
      {std::string(40, 'p'), "x", "T", 16, 0, 0, 0, {""}, "", no, 100 * 40 + 400},
      {"Name", "", "T", 5, 0, 0, 0, {"\x1b"}, "", no, 3855, true},
      // A default longer than the field is cut to it: OK returns what is shown.
      {name, "Outer wall 365 mm brick", "T", 16, 0, 0, 0, no, "Outer wall 365 m", no},
  };
  for (const Ask& ask : asks) {
    SCOPED_TRACE(ask.title + " " + ask.result);
    FakeSession fake;
    fake.dialogs.screens["InpBox"] = [&ask](Form& form) {
      auto& box = static_cast<InpBox&>(form);
      const std::string shown = ask.default_text.substr(0, ask.max_length);
      EXPECT_EQ(box.caption + "|" + box.Label1.caption + "|" + box.Text1.text + "|" + box.focus,
                ask.title + "|" + ask.prompt + "|" + shown + "|Text1");
      EXPECT_EQ((std::vector<int>{box.Text1.max_length, box.Text1.sel_length,
                                  box.Text1.password_char, box.width}),
                (std::vector<int>{ask.max_length, static_cast<int>(shown.size()),
                                  ask.mask ? '*' : 0, ask.width}));
      if (ask.typed.empty()) box.Ok();
      for (const std::string& text : ask.typed) {
        box.Text1.text = text;
        text == "\x1b" ? box.Cancel() : box.Ok();
      }
      EXPECT_TRUE(box.unloaded);
    };
    EXPECT_EQ(AskInput(fake.session, ask.prompt, ask.default_text, ask.title, ask.max_length,
                       ask.kind, ask.min, ask.max, ask.mask),
              ask.result);
    std::vector<ShownMessage> messages;
    for (const auto& text : ask.messages) messages.push_back({text, mb::kExclamation, "MESSAGE"});
    EXPECT_EQ(fake.dialogs.messages, messages);
  }
}

}  // namespace
}  // namespace zelmo
