#include "libraries/glass_types_screen.h"

#include <gtest/gtest.h>

#include <deque>

#include "libraries/library_test_case.h"

namespace zelmo {
namespace {

using testing::LibraryCase;
using Cells = std::array<std::string, 3>;

// AddAngle answers each row in turn; an empty queue cancels.
void AnswerAngles(LibraryCase& c, std::deque<Cells> rows, std::vector<std::string>* titles) {
  c.fake.dialogs.screens["AddAngle"] = [rows, titles](Form& form) mutable {
    auto& box = static_cast<AddAngle&>(form);
    titles->push_back(box.caption);
    if (rows.empty()) return box.Cancel();
    box.transm.text = rows.front()[0];
    box.Absf.text = rows.front()[1];
    box.Absb.text = rows.front()[2];
    rows.pop_front();
    box.Ok();
  };
}

std::vector<std::string> AngleColumn(const Glass_types& s) {
  std::vector<std::string> angles;
  for (int row = 1; row <= kMaxAngles; ++row) angles.push_back(s.Grid1.Cell(row, 0));
  return angles;
}

TEST(GlassTypes, EachDataTypeShowsItsOwnInputs) {
  EXPECT_EQ(AngleText(1, 1), "??");
  EXPECT_EQ(AngleText(2, 2), " 90");
  EXPECT_EQ(AngleText(2, 3), " 45");
  EXPECT_EQ(AngleText(3, 4), " 60");
  LibraryCase c;
  Glass_types s(c.fake.session);
  s.Load();
  EXPECT_EQ(s.List1.items.size(), 8u);
  EXPECT_EQ(s.Label15.caption, "Table for transm., Refl. front and back");
  EXPECT_TRUE(s.Grid1.visible && s.Command4.visible && !s.Text3.visible && !s.Text5.visible);
  EXPECT_EQ(AngleColumn(s), (std::vector<std::string>{" 0", " 9", " 18", " 27", " 36", " 45", " 54",
                                                      " 63", " 72", " 81", " 90"}));
  s.List1.list_index = 3;  // Float4mm
  s.GlassChosen();
  EXPECT_EQ(s.Label15.caption, "Fresnel glass");
  EXPECT_EQ(s.Text3.text + s.Text4.text + s.Text5.text, "41.52625");
  EXPECT_TRUE(!s.Grid1.visible && !s.Command4.visible && s.Text5.visible);
  s.List1.list_index = 5;  // HardLowE4mm
  s.GlassChosen();
  EXPECT_EQ(s.Label15.caption, "Fresnel glass : Normal transm. and refl.");
  EXPECT_EQ(s.Label8.caption + s.Label9.caption, " transm. : refl. :");
  EXPECT_EQ(s.Label11.caption + s.Label12.caption, "%%");
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
  c.AnswerInput("Test Glass");
  s.NewGlass();
  EXPECT_EQ(c.fake.dialogs.Last().text, "The name: Test Glass should not include spaces !");
  EXPECT_EQ(c.fake.dialogs.Last().title, "Test for spaces in name");
  EXPECT_EQ(s.List1.items.size(), 8u);
  c.AnswerInput(" New ");
  s.NewGlass();
  EXPECT_EQ(s.List1.SelectedItem(), "New");
  EXPECT_EQ(s.text1.text + s.Text2.text + s.Combo1.SelectedItem(), "87871");
  AnswerAngles(c,
               {{" 75", "10", "10"}, {"0", "100", "100"}, {"50", "20", "20"}, {"70", "12", "12"}},
               &titles);
  s.AddRow();
  EXPECT_EQ(s.Grid1.Cell(1, 0), "??");
  EXPECT_EQ(s.Grid1.Cell(1, 1), "75");
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
  EXPECT_EQ(AngleColumn(s)[1], " 90");
  EXPECT_EQ(s.Grid1.Cell(3, 1) + s.Grid1.Cell(3, 0), "");
  s.Ok();
  EXPECT_TRUE(s.unloaded);
  const std::string bytes = c.Bytes("GLASSTP.INP");
  EXPECT_EQ(bytes.substr(bytes.find("New\t")),
            "New\t87\t87\t1\t\t\t\t 2\t\r\n70\t0\t\t\t\t\t\t\t\t\t\t\t\r\n"
            "12\t100\t\t\t\t\t\t\t\t\t\t\t\r\n12\t100\t\t\t\t\t\t\t\t\t\t\t\r\n");
  EXPECT_TRUE(c.AllStale());
}

TEST(GlassTypes, EveryRuleAndItsFocus) {
  struct Case {
    int type;
    std::vector<std::string> fields;  // front, back, Text3, Text4, Text5
    std::string messages;
    std::string focus;
  };
  const Case cases[] = {
      {2, {"0", "1", "0", "1.01", "1.01"}, "", ""},
      {2, {"100", "100", "100", "2", "2"}, "", ""},
      {2,
       {"-0.1", "0.9", "100.1", "1", "x"},
       "Emittance front must be a value  ( 0 -  100)\rEmittance back must be a value  ( 1 -  "
       "100)\rThickness must be a value  ( 0 -  100)\rRefraction must be a value >  1\r"
       "Extinction must be a value >  1\r",
       "text1"},
      {3,
       {"84", "100.5", "66", "13", ""},
       "Emittance back must be a value  ( 1 -  100)\r",
       "Text2"},
      {3,
       {"84", "84", "0", "100", ""},
       "Transmission must be a value  (> 0 - < 100)\rReflection must be a value  (> 0 - < 100)\r"
       "Transmission + Reflection must be a value  (> 0 - < 100)\r",
       "Text3"},
      {3,
       {"84", "84", "60.5", "40", ""},
       "Transmission + Reflection must be a value  (> 0 - < 100)\rTransmission : Only integer "
       "values allowed\r",
       "Text3"},
      {3, {"84", "84", "60", "39.", ""}, "Reflection : Only integer values allowed\r", "Text4"},
      {3, {"84", "84", "60", "39", ""}, "", ""},
  };
  for (const auto& test : cases) {
    LibraryCase c;
    Glass_types s(c.fake.session);
    s.Load();
    s.Combo1.list_index = test.type - 1;
    TextBox* inputs[] = {&s.text1, &s.Text2, &s.Text3, &s.Text4, &s.Text5};
    for (int i = 0; i < 5; ++i) inputs[i]->text = test.fields[i];
    EXPECT_EQ(s.CheckGlass(), test.messages.empty());
    EXPECT_EQ(c.fake.dialogs.Last().text, test.messages);
    if (test.messages.empty()) continue;
    EXPECT_EQ(c.fake.dialogs.Last().title, "MESSAGE");
    EXPECT_EQ(c.fake.dialogs.Last().style, mb::kExclamation);
    EXPECT_EQ(s.focus, test.focus);
  }
}

TEST(GlassTypes, TheAngleTableMustEndInTheNinetyDegreeTriplet) {
  LibraryCase c;
  std::vector<std::string> titles;
  Glass_types s(c.fake.session);
  s.Load();
  c.AnswerInput("New");
  s.NewGlass();
  // The present glass keeps the screen until its table is right.
  c.AnswerInput("Other");
  s.NewGlass();
  EXPECT_EQ(c.fake.dialogs.Last().text, "Too few properties given \r");
  EXPECT_EQ(s.focus, "Combo1");
  AnswerAngles(c, {{"80", "8", "8"}, {"0", "90", "100"}, {"0", "100", "100"}}, &titles);
  s.AddRow();
  s.List1.list_index = 0;
  s.GlassChosen();
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
  s.List1.list_index = 0;
  s.GlassChosen();
  EXPECT_EQ(c.fake.dialogs.messages.size(), shown);
  EXPECT_EQ(s.List1.list_index, 0);
}

TEST(GlassTypes, AngleRowsAndGlassesStopAtTheirLimits) {
  LibraryCase c;
  Glass_types s(c.fake.session);
  s.Load();
  s.AddRow();
  s.InsertRow();
  EXPECT_EQ(c.fake.dialogs.Texts(), (std::vector<std::string>{"Maximum number of angles =  11",
                                                              "Maximum number of angles =  11"}));
  EXPECT_EQ(c.fake.dialogs.Last().title, "MESSAGE");
  EXPECT_TRUE(c.fake.dialogs.shown_forms.empty());
  std::string many;
  for (int i = 0; i < kMaxGlassTypes; ++i)
    many += "G\t84\t84\t2\t4\t1.5\t25\t 0\t\r\n\t\r\n\t\r\n\t\r\n";
  c.Put("GLASSTP.INP", many);
  Glass_types full(c.fake.session);
  full.Load();
  full.NewGlass();
  EXPECT_EQ(c.fake.dialogs.Last().text, "Maximum number of Glass types =  40");
  EXPECT_EQ(c.fake.dialogs.Last().title, "");
  EXPECT_EQ(c.fake.dialogs.Last().style, mb::kOkOnly);
}

TEST(GlassTypes, AGlassOfAWindowTypeStaysAndAnotherGoesWithoutAQuestion) {
  LibraryCase c;
  Glass_types s(c.fake.session);
  s.Load();
  s.DeleteGlass();  // Clear4mm is a pane of Single4mm
  EXPECT_EQ(c.fake.dialogs.Last().text,
            "This type of glass is referenced in a window and can not be deleted");
  EXPECT_EQ(c.fake.dialogs.Last().title, "MESSAGE");
  s.List1.list_index = 1;  // Clear6mm
  s.GlassChosen();
  s.DeleteGlass();
  EXPECT_EQ(c.fake.dialogs.messages.size(), 1u);
  EXPECT_EQ(s.List1.items.size(), 7u);
  EXPECT_EQ(s.List1.items[1], "LowE4mm");
  EXPECT_EQ(s.List1.list_index, 0);
  EXPECT_EQ(s.table().Cell(7, 1), "SolarCtrl6mm");
  EXPECT_EQ(s.table().Cell(8, 1), "");
  s.Cancel();
  EXPECT_EQ(c.Bytes("GLASSTP.INP"), testing::ExampleFile("GLASSTP.INP_Temp"));
  EXPECT_EQ(c.Bytes("case1/THERMAL.INP"), "------\r\n");
}

TEST(AddAngle, EachValueWithinAPercentThenTheSums) {
  const std::pair<Cells, std::string> cases[] = {
      {{"0", "0", "100"}, ""},
      {{"100.1", "-1", "x"},
       "Transmission must be a value  ( 0 -  100)\rReflection front must be a value  ( 0 -  100)\r"
       "Reflection back must be a value  ( 0 -  100)\r"},
      {{"50", "50.5", "51"},
       "Transmission + Reflection front must be a value  ( 0 -  100)\r"
       "Transmission + Reflection back must be a value  ( 0 -  100)\r"},
  };
  for (const auto& [cells, messages] : cases) {
    LibraryCase c(false);
    AddAngle box(c.fake.session);
    box.transm.text = cells[0];
    box.Absf.text = cells[1];
    box.Absb.text = cells[2];
    box.Ok();
    EXPECT_EQ(box.accepted, messages.empty());
    EXPECT_EQ(c.fake.dialogs.Last().text, messages);
    if (!messages.empty()) {
      EXPECT_EQ(box.focus, "transm");
    }
  }
}

}  // namespace
}  // namespace zelmo
