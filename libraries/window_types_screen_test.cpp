#include "libraries/window_types_screen.h"

#include <gtest/gtest.h>

#include <deque>

#include "libraries/library_test_case.h"

namespace zelmo {
namespace {

using testing::LibraryCase;

struct Pane {
  std::string glass, gas, gap;
  bool reversed = false;
};

// AddGaGl answers each pane in turn and records its title and whether the
// gap could be given.
void AnswerPanes(LibraryCase& c, std::deque<Pane> panes, std::vector<std::string>* seen) {
  c.fake.dialogs.screens["AddGaGl"] = [panes, seen](Form& form) mutable {
    auto& box = static_cast<AddGaGl&>(form);
    seen->push_back(box.caption + (box.Combo2.enabled ? "" : " (first)"));
    auto pick = [](ComboBox& combo, const std::string& item) {
      for (size_t i = 0; i < combo.items.size(); ++i) {
        if (combo.items[i] == item) combo.list_index = static_cast<int>(i);
      }
    };
    pick(box.Combo1, panes.front().glass);
    pick(box.Combo2, panes.front().gas);
    box.Text1.text = panes.front().gap;
    box.Check1.value = panes.front().reversed;
    panes.pop_front();
    box.Ok();
  };
}

// The grid's rows 1 to 9 as "pane glass gas gap reversed" texts.
std::vector<std::string> Rows(const Wind_Types& s) {
  std::vector<std::string> rows;
  for (int row = 1; row <= 9; ++row) {
    std::string text;
    for (int col = 0; col < 5; ++col) text += s.Grid1.Cell(row, col) + (col < 4 ? "|" : "");
    rows.push_back(text == "||||" ? "" : text);
  }
  while (!rows.empty() && rows.back().empty()) rows.pop_back();
  return rows;
}

class RecordingProperties : public WindowProperties {
 public:
  bool GETWINDOWPROPERTIES(int32_t&, int16_t& window, float& u, float& g, float& tsol,
                           int32_t& status, const std::string& file, int32_t length) override {
    calls.push_back({window, status, length == static_cast<int32_t>(file.size())});
    exchange = testing::ReadBytes(file);
    library = testing::Exists(JoinPath(project, "Wndw.Lib"));
    u = 1.234f;
    g = 0.5f;
    tsol = 0.4567f;
    return true;
  }
  struct Call {
    int window, status;
    bool length_fits;
  };
  std::vector<Call> calls;
  std::string project, exchange;
  bool library = false;
};

TEST(WindowTypes, ANewTypeOfTwoPanesIsWrittenAndItsPropertiesAsked) {
  LibraryCase c;
  std::vector<std::string> seen;
  RecordingProperties properties;
  properties.project = c.fake.ws().ProjectPath;
  Wind_Types s(c.fake.session);
  s.properties = &properties;
  s.Load();
  EXPECT_EQ(s.List1.items.front(), "01| Single4mm");
  EXPECT_EQ(s.caption, "Window types (Single4mm)");
  EXPECT_EQ(Rows(s), (std::vector<std::string>{" 1|Clear4mm|||No"}));
  c.AnswerInput("Single4mm");
  s.NewType();
  EXPECT_EQ(c.fake.dialogs.Last().text, "A window with the same name already exists");
  c.AnswerInput(" Test ");
  s.NewType();
  EXPECT_EQ(s.List1.SelectedItem(), "07| Test");
  EXPECT_EQ(s.caption, "Window types (Test)");
  EXPECT_FALSE(s.Command9.enabled);
  AnswerPanes(c, {{"Clear4mm", "", "", true}, {"LowE4mm", "Argon", " 16", false}}, &seen);
  s.AddPane();
  EXPECT_EQ(s.PaneEditCode, 101);
  s.AddPane();
  EXPECT_EQ(s.PaneEditCode, 103);
  EXPECT_EQ(seen, (std::vector<std::string>{"Add data (first)", "Add data"}));
  EXPECT_EQ(Rows(s),
            (std::vector<std::string>{" 1|Clear4mm|||Yes", "||Argon|16|", " 2|LowE4mm|||No"}));
  const std::string windows = c.Bytes("WNDTP.LIB");
  EXPECT_EQ(windows.substr(windows.find("7\t")),
            "7\tTest\t 2\tClear4mm\tYes\t16\tArgon\tLowE4mm\tNo\t\t\t\t\t\t\t\t\t\t\t\t\r\n");
  EXPECT_TRUE(c.AllStale());

  // Choosing a type asks for its properties through the exchange file.
  s.List1.list_index = 6;
  s.TypeChosen();
  ASSERT_EQ(properties.calls.size(), 1u);
  EXPECT_EQ(properties.calls[0].window, 7);
  EXPECT_EQ(properties.calls[0].status, 0);
  EXPECT_TRUE(properties.calls[0].length_fits);
  EXPECT_EQ(properties.exchange, JoinPath(c.fake.ws().ProjectPath, "") + "\r\n");
  EXPECT_TRUE(properties.library);
  EXPECT_FALSE(testing::Exists(JoinPath(c.fake.ws().MainDirectory, "UGFile.txt")));
  EXPECT_EQ(s.UValue.text + " " + s.GVAlue.text + " " + s.Tsol.text, "1.23 0.500 0.457");
  const std::string library = c.Bytes("Wndw.Lib");
  EXPECT_NE(library.find("7 ! Number of window types\r\n"), std::string::npos);
  EXPECT_NE(library.find(" Test 2\r\n Clear4mm 1\r\n 16 Argon\r\n LowE4mm 0\r\n \r\n"),
            std::string::npos);
  s.Ok();
  EXPECT_TRUE(s.unloaded);
}

TEST(WindowTypes, PanesMoveAsTheGridSays) {
  LibraryCase c;
  std::vector<std::string> seen;
  Wind_Types s(c.fake.session);
  s.Load();
  s.List1.list_index = 4;  // Triple4-12-4-12-4, gaps of 12 mm Air
  s.TypeChosen();
  AnswerPanes(c, {{"LowE4mm", "Krypton", "10"}, {"Float4mm", "Xenon", "8"}}, &seen);
  s.Grid1.row = 1;
  s.InsertPane();
  EXPECT_EQ(s.PaneEditCode, 201);
  EXPECT_EQ(Rows(s), (std::vector<std::string>{" 1|LowE4mm|||No", "||Krypton|10|",
                                               " 2|Clear4mm|||No", "||Air|12|", " 3|Clear4mm|||No",
                                               "||Air|12|", " 4|Clear4mm|||No"}));
  s.Grid1.row = 5;
  s.InsertPane();
  EXPECT_EQ(Rows(s)[3] + Rows(s)[4] + Rows(s)[5], "||Xenon|8| 3|Float4mm|||No||Air|12|");
  s.InsertPane();
  EXPECT_EQ(c.fake.dialogs.Last().text, "Maximum number of panes =  5");
  s.AddPane();
  EXPECT_EQ(c.fake.dialogs.messages.size(), 2u);
  // The first pane goes without its gaps: the one of row 2 stays, the last
  // one is lost.
  s.Grid1.row = 1;
  s.DeletePane();
  EXPECT_EQ(Rows(s), (std::vector<std::string>{" 1|Clear4mm|||No", "||Krypton|10|",
                                               " 2|Float4mm|||No", "||Xenon|8|", " 3|Clear4mm|||No",
                                               "||Air|12|", " 4|Clear4mm|||No"}));
  // A middle pane takes the gap in front of it along.
  s.Grid1.row = 3;
  s.DeletePane();
  EXPECT_EQ(Rows(s), (std::vector<std::string>{" 1|Clear4mm|||No", "||Xenon|8|", " 2|Clear4mm|||No",
                                               "||Air|12|", " 3|Clear4mm|||No"}));
  // Gap rows do nothing.
  s.Grid1.row = 2;
  s.DeletePane();
  s.EditPane();
  EXPECT_EQ(s.PaneCount, 3);
  const std::string windows = c.Bytes("WNDTP.LIB");
  EXPECT_NE(windows.find("5\tTriple4-12-4-12-4\t 3\tClear4mm\tNo\t8\tXenon\tClear4mm\tNo\t12\tAir\t"
                         "Clear4mm\tNo\t\t\t\t\t\t\t\t\r\n"),
            std::string::npos);
}

TEST(WindowTypes, EditingTheFirstPaneHidesItsGap) {
  LibraryCase c;
  std::vector<std::string> seen;
  Wind_Types s(c.fake.session);
  s.Load();
  c.fake.dialogs.screens["AddGaGl"] = [&seen](Form& form) {
    auto& box = static_cast<AddGaGl&>(form);
    seen.push_back(box.Combo1.SelectedItem() + (box.Combo2.visible ? "+gap" : "") +
                   box.Label5.caption);
    box.Check1.value = 1;
    box.ReversedClicked();
    box.Ok();
  };
  s.List1.list_index = 1;  // Double4-12-4
  s.TypeChosen();
  s.Grid1.row = 1;
  s.EditPane();
  s.Grid1.row = 3;
  s.EditPane();
  EXPECT_EQ(s.PaneEditCode, 303);
  EXPECT_EQ(seen, (std::vector<std::string>{"Clear4mm", "Clear4mm+gap"}));
  EXPECT_EQ(Rows(s),
            (std::vector<std::string>{" 1|Clear4mm|||Yes", "||Air|12|", " 2|Clear4mm|||Yes"}));
}

TEST(AddGaGl, GapGasAndGlassExceptForTheFirstPane) {
  struct Case {
    int code;
    std::string gap, gas, glass, messages, focus;
  };
  const Case cases[] = {
      {103, "0.1", "Air", "Clear4mm", "", ""},
      {103, "100", "Air", "Clear4mm", "", ""},
      {103, "0.09", "", "",
       "Thickness must be a value ( .1 -  100)\rNo gastype assigned \rNo glasstype assigned \r",
       "Text1"},
      {205, "100.1", "Air", "Clear4mm", "Thickness must be a value ( .1 -  100)\r", "Text1"},
      {101, "", "", "", "No glasstype assigned \r", "Combo1"},
      {301, "x", "", "Clear4mm", "", ""},
  };
  for (const auto& test : cases) {
    LibraryCase c;
    AddGaGl box(c.fake.session);
    box.PaneEditCode = test.code;
    box.preset_glass = test.glass;
    box.preset_gas = test.gas;
    box.Load();
    box.Text1.text = test.gap;
    box.Ok();
    EXPECT_EQ(box.accepted, test.messages.empty()) << test.gap;
    EXPECT_EQ(c.fake.dialogs.Last().text, test.messages);
    EXPECT_EQ(box.focus, test.focus);
  }
}

TEST(WindowTypes, ATypeWithoutPanesIsRefused) {
  LibraryCase c;
  Wind_Types s(c.fake.session);
  s.Load();
  c.AnswerInput("Empty");
  s.NewType();
  s.Ok();
  EXPECT_FALSE(s.unloaded);
  EXPECT_EQ(c.fake.dialogs.Last().text, "Panes are missing for one of the window types");
  EXPECT_EQ(c.fake.dialogs.Last().title, "Message");
  // Leaving it writes it first, then the library refuses it.
  s.List1.list_index = 0;
  s.TypeChosen();
  EXPECT_EQ(c.fake.dialogs.messages.size(), 2u);
  EXPECT_EQ(c.fake.dialogs.Last().text, "Panes are missing for one of the window types");
  EXPECT_NE(c.Bytes("WNDTP.LIB").find("7\tEmpty\t 0\t"), std::string::npos);
}

TEST(WindowTypes, DeletingAsksAndKeepsTheOtherNumbers) {
  LibraryCase c;
  c.Put("case2/SURFACE.INP", [] {
    std::string bytes = "South\r\n";
    for (int field = 1; field <= 29; ++field) bytes += field == 27 ? "\t2\r\n" : "\t\r\n";
    return bytes;
  }());
  Wind_Types s(c.fake.session);
  s.Load();
  s.List1.list_index = 1;
  s.TypeChosen();
  s.DeleteType();
  EXPECT_EQ(c.fake.dialogs.Last().text,
            "The window is referenced in a surface and can not be deleted");
  s.List1.list_index = 0;
  s.TypeChosen();
  c.fake.dialogs.answers = {Answer::kNo, Answer::kYes};
  s.DeleteType();
  EXPECT_EQ(c.fake.dialogs.Last().text, "Do you want to delete the window type 1?");
  EXPECT_EQ(c.fake.dialogs.Last().title, "DELETE WINDOW");
  EXPECT_EQ(c.fake.dialogs.Last().style, mb::kYesNo + mb::kQuestion);
  EXPECT_EQ(s.List1.items.size(), 6u);
  s.DeleteType();
  EXPECT_EQ(s.List1.items.size(), 5u);
  EXPECT_EQ(s.List1.SelectedItem(), "02| Double4-12-4");
  EXPECT_EQ(c.Bytes("WNDTP.LIB").substr(0, 2), "2\t");
  c.AnswerInput("New");
  s.NewType();
  EXPECT_EQ(s.List1.items.back(), "01| New");
}

TEST(WindowTypes, FortyTypesAreTheLimit) {
  LibraryCase c;
  std::string forty;
  for (int i = 1; i <= kMaxWindowTypes; ++i)
    forty += std::to_string(i) + "\tW" + std::to_string(i) + "\t 1\tClear4mm\tNo\t\r\n";
  c.Put("WNDTP.LIB", forty);
  Wind_Types s(c.fake.session);
  s.Load();
  s.NewType();
  EXPECT_EQ(c.fake.dialogs.Last().text, "Maximum number of window types =  40");
  EXPECT_EQ(c.fake.dialogs.Last().title, "MESSAGE");
  c.AnswerInput("Two words");
  c.Put("WNDTP.LIB", "");
  Wind_Types empty(c.fake.session);
  empty.Load();
  EXPECT_EQ(empty.WindowCurrentIndex, -1);
  empty.NewType();
  EXPECT_EQ(c.fake.dialogs.Last().text, "The name: Two words should not include spaces !");
  EXPECT_EQ(c.fake.dialogs.Last().style, mb::kExclamation);
  // An empty library closes without a word.
  empty.Ok();
  EXPECT_TRUE(empty.unloaded);
}

}  // namespace
}  // namespace zelmo
