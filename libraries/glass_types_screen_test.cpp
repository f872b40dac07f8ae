#include "libraries/glass_types_screen.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <deque>

#include "core/fields.h"
#include "libraries/library_test_case.h"

namespace zelmo {
namespace {

using testing::LibraryCase;

// AddAngle answers each row ("transm\tfront\tback") in turn and records its
// title; an empty queue cancels.
void AnswerAngles(LibraryCase& c, std::deque<std::string> rows, std::vector<std::string>* titles) {
  c.fake.dialogs.screens["AddAngle"] = [rows, titles](Form& form) mutable {
    auto& box = static_cast<AddAngle&>(form);
    titles->push_back(box.caption);
    if (rows.empty()) return box.Cancel();
    const auto cells = SplitTabs(rows.front());
    rows.pop_front();
    box.transm.text = cells[0], box.Absf.text = cells[1], box.Absb.text = cells[2];
    box.Ok();
  };
}

std::vector<std::string> AngleColumn(const Glass_types& s) {
  std::vector<std::string> angles;
  for (int row = 1; row <= kMaxAngles; ++row) angles.push_back(s.Grid1.Cell(row, 0));
  return angles;
}

void Choose(Glass_types& s, int index) {
  s.List1.list_index = index;
  s.GlassChosen();
}

TEST(GlassTypes, EachDataTypeShowsItsOwnInputs) {
  EXPECT_EQ(AngleText(1, 1) + AngleText(2, 2) + AngleText(2, 3) + AngleText(3, 4), "?? 90 45 60");
  LibraryCase c;
  Glass_types s(c.fake.session);
  s.Load();
  EXPECT_EQ(s.List1.items.size(), 8u);
  EXPECT_EQ(s.Label15.caption, "Table for transm., Refl. front and back");
  EXPECT_TRUE(s.Grid1.visible && s.Command4.visible && !s.Text3.visible && !s.Text5.visible);
  EXPECT_EQ(AngleColumn(s), (std::vector<std::string>{" 0", " 9", " 18", " 27", " 36", " 45", " 54",
                                                      " 63", " 72", " 81", " 90"}));
  Choose(s, 3);  // Float4mm
  EXPECT_EQ(s.Label15.caption, "Fresnel glass");
  EXPECT_EQ(s.Text3.text + s.Text4.text + s.Text5.text, "41.52625");
  EXPECT_TRUE(!s.Grid1.visible && !s.Command4.visible && s.Text5.visible);
  Choose(s, 5);  // HardLowE4mm
  EXPECT_EQ(s.Label15.caption, "Fresnel glass : Normal transm. and refl.");
  EXPECT_EQ(s.Label8.caption + s.Label9.caption + s.Label11.caption + s.Label12.caption,
            " transm. : refl. :%%");
  EXPECT_TRUE(s.Text4.visible && !s.Text5.visible && !s.Grid1.visible);
  // Switching the type changes only what is shown.
  s.Combo1.list_index = 0;
  s.DataTypeChosen();
  EXPECT_TRUE(s.Grid1.visible);
  EXPECT_EQ(s.Text3.text, "66");
}

TEST(GlassTypes, ANewGlassIsBuiltRowByRowAndWritten) {
  LibraryCase c;
  std::vector<std::string> titles;
  Glass_types s(c.fake.session);
  s.Load();
  c.answers = {"Test Glass", " New "};
  s.NewGlass();
  EXPECT_EQ(c.Said(), "Test for spaces in name|The name: Test Glass should not include spaces !");
  EXPECT_EQ(s.List1.items.size(), 8u);
  s.NewGlass();
  EXPECT_EQ(s.List1.SelectedItem(), "New");
  EXPECT_EQ(s.text1.text + s.Text2.text + s.Combo1.SelectedItem(), "87871");
  AnswerAngles(c, {" 75\t10\t10", "0\t100\t100", "50\t20\t20", "70\t12\t12"}, &titles);
  s.AddRow();
  EXPECT_EQ(s.Grid1.Cell(1, 0) + s.Grid1.Cell(1, 1), "??75");
  s.AddRow();
  s.Grid1.row = 2;
  s.InsertRow();
  EXPECT_EQ(AngleColumn(s)[2], " 90");
  EXPECT_EQ(s.Grid1.Cell(2, 1) + s.Grid1.Cell(3, 1), "500");
  s.Grid1.row = 1;
  s.EditRow();
  EXPECT_EQ(titles, (std::vector<std::string>{"Add data", "Add data", "Insert data", "Edit data"}));
  s.Grid1.row = 2;
  s.DeleteRow();
  EXPECT_EQ(s.AngleRows(), 2);
  EXPECT_EQ(AngleColumn(s)[1] + "|" + s.Grid1.Cell(3, 1) + s.Grid1.Cell(3, 0), " 90|");
  s.Ok();
  EXPECT_TRUE(s.unloaded);
  const std::string bytes = c.Bytes("GLASSTP.INP");
  EXPECT_EQ(bytes.substr(bytes.find("New\t")),
            "New\t87\t87\t1\t\t\t\t 2\t\r\n70\t0\t\t\t\t\t\t\t\t\t\t\t\r\n"
            "12\t100\t\t\t\t\t\t\t\t\t\t\t\r\n12\t100\t\t\t\t\t\t\t\t\t\t\t\r\n");
  EXPECT_TRUE(c.AllStale());
}

TEST(GlassTypes, EveryRuleAndItsFocus) {
  const std::string fresnel = "Refraction must be a value >  1\rExtinction must be a value >  1\r";
  const std::string both = "Transmission + Reflection must be a value  (> 0 - < 100)\r";
  // Data type, front, back, Text3, Text4, Text5; the focus; the messages.
  const std::array<std::string, 3> cases[] = {
      {"2\t0\t1\t0\t1.01\t1.01", "", ""},
      {"2\t100\t100\t100\t2\t2", "", ""},
      {"2\t-0.1\t0.9\t100.1\t1\tx", "text1",
       "Emittance front must be a value  ( 0 -  100)\rEmittance back must be a value  ( 1 -  "
       "100)\rThickness must be a value  ( 0 -  100)\r" +
           fresnel},
      {"3\t84\t100.5\t66\t13\t", "Text2", "Emittance back must be a value  ( 1 -  100)\r"},
      {"3\t84\t84\t0\t100\t", "Text3",
       "Transmission must be a value  (> 0 - < 100)\rReflection must be a value  (> 0 - < 100)\r" +
           both},
      {"3\t84\t84\t60.5\t40\t", "Text3", both + "Transmission : Only integer values allowed\r"},
      {"3\t84\t84\t60\t39.\t", "Text4", "Reflection : Only integer values allowed\r"},
      {"3\t84\t84\t60\t39\t", "", ""},
  };
  for (const auto& [input, focus, messages] : cases) {
    LibraryCase c;
    Glass_types s(c.fake.session);
    s.Load();
    const auto fields = SplitTabs(input);
    s.Combo1.list_index = std::stoi(fields[0]) - 1;
    TextBox* inputs[] = {&s.text1, &s.Text2, &s.Text3, &s.Text4, &s.Text5};
    for (int i = 0; i < 5; ++i) inputs[i]->text = fields[i + 1];
    EXPECT_EQ(s.CheckGlass(), messages.empty());
    EXPECT_EQ(c.Said(), (messages.empty() ? "|" : "MESSAGE|") + messages);
    EXPECT_EQ(s.focus, focus);
    EXPECT_EQ(c.Style(), messages.empty() ? 0 : mb::kExclamation);
  }
}

TEST(GlassTypes, TheAngleTableMustEndInTheNinetyDegreeTriplet) {
  LibraryCase c;
  std::vector<std::string> titles;
  Glass_types s(c.fake.session);
  s.Load();
  c.answers = {"New", "Other"};
  s.NewGlass();
  // The present glass keeps the screen until its table is right.
  s.NewGlass();
  EXPECT_EQ(c.fake.dialogs.Last().text, "Too few properties given \r");
  EXPECT_EQ(s.focus, "Combo1");
  AnswerAngles(c, {"80\t8\t8", "0\t90\t100", "0\t100\t100"}, &titles);
  s.AddRow();
  Choose(s, 0);
  EXPECT_EQ(s.List1.list_index, 8);
  s.AddRow();
  s.Ok();
  EXPECT_EQ(c.fake.dialogs.Last().text,
            "Angle 90 should have the triplet (transm =0, refl.f. =100, refl.b. = 100) \r");
  EXPECT_EQ(s.focus, "Grid1");
  EXPECT_FALSE(s.unloaded);
  s.Grid1.row = 2;
  s.EditRow();
  const size_t shown = c.fake.dialogs.messages.size();
  Choose(s, 0);
  EXPECT_EQ(c.fake.dialogs.messages.size(), shown);
  EXPECT_EQ(s.List1.list_index, 0);
}

TEST(GlassTypes, AngleRowsAndGlassesStopAtTheirLimits) {
  LibraryCase c;
  Glass_types s(c.fake.session);
  s.Load();
  s.AddRow();
  s.InsertRow();
  EXPECT_EQ(c.fake.dialogs.Texts(), std::vector<std::string>(2, "Maximum number of angles =  11"));
  EXPECT_EQ(c.Said(), "MESSAGE|Maximum number of angles =  11");
  EXPECT_TRUE(c.fake.dialogs.shown_forms.empty());
  std::string many;
  for (int i = 0; i < kMaxGlassTypes; ++i)
    many += "G\t84\t84\t2\t4\t1.5\t25\t 0\t\r\n\t\r\n\t\r\n\t\r\n";
  c.Put("GLASSTP.INP", many);
  Glass_types full(c.fake.session);
  full.Load();
  full.NewGlass();
  EXPECT_EQ(c.Said(), "|Maximum number of Glass types =  40");
  EXPECT_EQ(c.Style(), mb::kOkOnly);
}

TEST(GlassTypes, AGlassOfAWindowTypeStaysAndAnotherGoesWithoutAQuestion) {
  LibraryCase c;
  Glass_types s(c.fake.session);
  s.Load();
  s.DeleteGlass();  // Clear4mm is a pane of Single4mm
  EXPECT_EQ(c.Said(),
            "MESSAGE|This type of glass is referenced in a window and can not be deleted");
  Choose(s, 1);  // Clear6mm
  s.DeleteGlass();
  EXPECT_EQ(c.fake.dialogs.messages.size(), 1u);
  EXPECT_EQ(s.List1.items.size(), 7u);
  EXPECT_EQ(s.List1.items[1], "LowE4mm");
  EXPECT_EQ(s.List1.list_index, 0);
  EXPECT_EQ(s.table().Cell(7, 1) + "|" + s.table().Cell(8, 1), "SolarCtrl6mm|");
  s.Cancel();
  EXPECT_EQ(c.Bytes("GLASSTP.INP"), testing::ExampleFile("GLASSTP.INP_Temp"));
  EXPECT_EQ(c.Bytes("case1/THERMAL.INP"), "------\r\n");
}

// Float4mm is only the last pane of a double window, SoftLowE4mm only the
// last of a triple one: both stay.
TEST(GlassTypes, AGlassOnlyAsAWindowsLastPaneStays) {
  for (const char* glass : {"Float4mm", "SoftLowE4mm"}) {
    LibraryCase c;
    Glass_types s(c.fake.session);
    s.Load();
    const auto at = std::find(s.List1.items.begin(), s.List1.items.end(), glass);
    ASSERT_NE(at, s.List1.items.end()) << glass;
    Choose(s, static_cast<int>(at - s.List1.items.begin()));
    s.DeleteGlass();
    EXPECT_EQ(c.Said(),
              "MESSAGE|This type of glass is referenced in a window and can not be deleted")
        << glass;
    EXPECT_EQ(s.List1.items.size(), 8u) << glass;
  }
}

TEST(AddAngle, EachValueWithinAPercentThenTheSums) {
  const std::pair<std::string, std::string> cases[] = {
      {"0\t0\t100", ""},
      {"100.1\t-1\tx",
       "Transmission must be a value  ( 0 -  100)\rReflection front must be a value  ( 0 -  100)\r"
       "Reflection back must be a value  ( 0 -  100)\r"},
      {"50\t50.5\t51",
       "Transmission + Reflection front must be a value  ( 0 -  100)\r"
       "Transmission + Reflection back must be a value  ( 0 -  100)\r"},
  };
  for (const auto& [row, messages] : cases) {
    LibraryCase c(false);
    AddAngle box(c.fake.session);
    const auto cells = SplitTabs(row);
    box.transm.text = cells[0], box.Absf.text = cells[1], box.Absb.text = cells[2];
    box.Ok();
    EXPECT_EQ(box.accepted, messages.empty());
    EXPECT_EQ(c.fake.dialogs.Last().text, messages);
    EXPECT_EQ(box.focus, messages.empty() ? box.focus : "transm");
  }
}

}  // namespace
}  // namespace zelmo
