#include "libraries/window_types_screen.h"

#include <gtest/gtest.h>

#include <deque>

#include "core/fields.h"
#include "libraries/library_test_case.h"

namespace zelmo {
namespace {

using testing::LibraryCase;
using Rows = std::vector<std::string>;

void Pick(ComboBox& combo, const std::string& item) {
  for (size_t i = 0; i < combo.items.size(); ++i) {
    if (combo.items[i] == item) combo.list_index = static_cast<int>(i);
  }
}

// AddGaGl answers each pane ("glass\tgas\tgap\treversed") in turn and records
// its title and whether the gap could be given.
void AnswerPanes(LibraryCase& c, std::deque<std::string> panes, Rows* seen) {
  c.fake.dialogs.screens["AddGaGl"] = [panes, seen](Form& form) mutable {
    auto& box = static_cast<AddGaGl&>(form);
    seen->push_back(box.caption + (box.Combo2.enabled ? "" : " (first)"));
    const auto pane = SplitTabs(panes.front());
    panes.pop_front();
    Pick(box.Combo1, pane[0]);
    Pick(box.Combo2, pane[1]);
    box.Text1.text = pane[2];
    box.Check1.value = pane[3] == "1";
    box.Ok();
  };
}

// The grid's rows 1 to 9 as "pane|glass|gas|gap|reversed", up to the last
// one filled.
Rows GridRows(const Wind_Types& s) {
  Rows rows;
  for (int row = 1; row <= 9; ++row) {
    std::string text;
    for (int col = 0; col < 5; ++col) text += s.Grid1.Cell(row, col) + (col < 4 ? "|" : "");
    rows.push_back(text == "||||" ? "" : text);
  }
  while (!rows.empty() && rows.back().empty()) rows.pop_back();
  return rows;
}

void Choose(Wind_Types& s, int index) {
  s.List1.list_index = index;
  s.TypeChosen();
}

// The three properties shown, "U g Tsol".
std::string Shown(const Wind_Types& s) {
  return s.UValue.text + " " + s.GVAlue.text + " " + s.Tsol.text;
}

// The library project and its window types screen, loaded.
class WindowTypes : public ::testing::Test {
 protected:
  WindowTypes() { s.Load(); }
  LibraryCase c;
  Wind_Types s{c.fake.session};
  Rows seen;
};

void Click(Wind_Types& s, int row, void (Wind_Types::*event)()) {
  s.Grid1.row = row;
  (s.*event)();
}

// Records each call and what the project held at the time.
struct RecordingProperties : WindowProperties {
  bool GETWINDOWPROPERTIES(int32_t&, int16_t& window, float& u, float& g, float& tsol,
                           int32_t& status, const std::string& file, int32_t length) override {
    calls.push_back(std::to_string(window) + " " + std::to_string(status) + " " +
                    (length == static_cast<int32_t>(file.size()) ? "fits" : "cut"));
    exchange = testing::ReadBytes(file);
    library = testing::Exists(JoinPath(project, "Wndw.Lib"));
    u = 1.234f, g = 0.5f, tsol = 0.4567f;
    return true;
  }
  Rows calls;
  std::string project, exchange;
  bool library = false;
};

TEST_F(WindowTypes, ANewTypeOfTwoPanesIsWrittenAndItsPropertiesAsked) {
  RecordingProperties properties;
  properties.project = c.fake.ws().ProjectPath;
  s.properties = &properties;
  EXPECT_EQ(s.List1.items.front() + "|" + s.caption, "01| Single4mm|Window types (Single4mm)");
  EXPECT_EQ(GridRows(s), Rows{" 1|Clear4mm|||No"});
  c.answers = {"Single4mm", " Test "};
  s.NewType();
  EXPECT_EQ(c.fake.dialogs.Last().text, "A window with the same name already exists");
  s.NewType();
  EXPECT_EQ(s.List1.SelectedItem() + "|" + s.caption, "07| Test|Window types (Test)");
  EXPECT_FALSE(s.Command9.enabled);
  AnswerPanes(c, {"Clear4mm\t\t\t1", "LowE4mm\tArgon\t 16\t0"}, &seen);
  s.AddPane();
  EXPECT_EQ(s.PaneEditCode, 101);
  EXPECT_EQ(Shown(s), "1.23 0.500 0.457");
  s.AddPane();
  EXPECT_EQ(s.PaneEditCode, 103);
  EXPECT_EQ(seen, (Rows{"Add data (first)", "Add data"}));
  EXPECT_EQ(GridRows(s), (Rows{" 1|Clear4mm|||Yes", "||Argon|16|", " 2|LowE4mm|||No"}));
  const std::string windows = c.Bytes("WNDTP.LIB");
  EXPECT_EQ(windows.substr(windows.find("7\t")),
            "7\tTest\t 2\tClear4mm\tYes\t16\tArgon\tLowE4mm\tNo\t\t\t\t\t\t\t\t\t\t\t\t\r\n");
  EXPECT_TRUE(c.AllStale());

  // Choosing a type asks for its properties through the exchange file, as
  // each pane added did.
  Choose(s, 6);
  EXPECT_EQ(properties.calls, Rows(3, "7 0 fits"));
  EXPECT_EQ(properties.exchange, JoinPath(c.fake.ws().ProjectPath, "") + "\r\n");
  EXPECT_TRUE(properties.library);
  EXPECT_FALSE(testing::Exists(JoinPath(c.fake.ws().MainDirectory, "UGFile.txt")));
  EXPECT_EQ(Shown(s), "1.23 0.500 0.457");
  const std::string library = c.Bytes("Wndw.Lib");
  EXPECT_NE(library.find("7 ! Number of window types\r\n"), std::string::npos);
  EXPECT_NE(library.find(" Test 2\r\n Clear4mm 1\r\n 16 Argon\r\n LowE4mm 0\r\n \r\n"),
            std::string::npos);
  s.Ok();
  EXPECT_TRUE(s.unloaded);
}

TEST_F(WindowTypes, PanesMoveAsTheGridSays) {
  Choose(s, 4);  // Triple4-12-4-12-4, gaps of 12 mm Air
  AnswerPanes(c, {"LowE4mm\tKrypton\t10\t0", "Float4mm\tXenon\t8\t0"}, &seen);
  Click(s, 1, &Wind_Types::InsertPane);
  EXPECT_EQ(s.PaneEditCode, 201);
  EXPECT_EQ(GridRows(s), (Rows{" 1|LowE4mm|||No", "||Krypton|10|", " 2|Clear4mm|||No", "||Air|12|",
                               " 3|Clear4mm|||No", "||Air|12|", " 4|Clear4mm|||No"}));
  Click(s, 5, &Wind_Types::InsertPane);
  const Rows rows = GridRows(s);
  EXPECT_EQ(Rows(rows.begin() + 3, rows.begin() + 6),
            (Rows{"||Xenon|8|", " 3|Float4mm|||No", "||Air|12|"}));
  s.InsertPane();
  s.AddPane();
  EXPECT_EQ(c.fake.dialogs.Texts(), Rows(2, "Maximum number of panes =  5"));
  // The first pane goes without its gaps: the one of row 2 stays, the last
  // one is lost.
  Click(s, 1, &Wind_Types::DeletePane);
  EXPECT_EQ(GridRows(s), (Rows{" 1|Clear4mm|||No", "||Krypton|10|", " 2|Float4mm|||No",
                               "||Xenon|8|", " 3|Clear4mm|||No", "||Air|12|", " 4|Clear4mm|||No"}));
  // A middle pane takes the gap in front of it along.
  Click(s, 3, &Wind_Types::DeletePane);
  EXPECT_EQ(GridRows(s), (Rows{" 1|Clear4mm|||No", "||Xenon|8|", " 2|Clear4mm|||No", "||Air|12|",
                               " 3|Clear4mm|||No"}));
  // Gap rows do nothing.
  Click(s, 2, &Wind_Types::DeletePane);
  s.EditPane();
  EXPECT_EQ(s.PaneCount, 3);
  EXPECT_NE(c.Bytes("WNDTP.LIB")
                .find("5\tTriple4-12-4-12-4\t 3\tClear4mm\tNo\t8\tXenon\tClear4mm\tNo"
                      "\t12\tAir\tClear4mm\tNo\t\t\t\t\t\t\t\t\r\n"),
            std::string::npos);
}

TEST_F(WindowTypes, EditingTheFirstPaneHidesItsGap) {
  c.fake.dialogs.screens["AddGaGl"] = [this](Form& form) {
    auto& box = static_cast<AddGaGl&>(form);
    seen.push_back(box.Combo1.SelectedItem() + (box.Combo2.visible ? "+gap" : "") +
                   box.Label5.caption);
    box.Check1.value = 1;
    box.ReversedClicked();
    box.Ok();
  };
  Choose(s, 1);  // Double4-12-4
  Click(s, 1, &Wind_Types::EditPane);
  Click(s, 3, &Wind_Types::EditPane);
  EXPECT_EQ(s.PaneEditCode, 303);
  EXPECT_EQ(seen, (Rows{"Clear4mm", "Clear4mm+gap"}));
  EXPECT_EQ(GridRows(s), (Rows{" 1|Clear4mm|||Yes", "||Air|12|", " 2|Clear4mm|||Yes"}));
}

TEST(AddGaGl, GapGasAndGlassExceptForTheFirstPane) {
  // Edit code, gap, gas, glass; the focus; the messages.
  const std::array<std::string, 3> cases[] = {
      {"103\t0.1\tAir\tClear4mm", "", ""},
      {"103\t100\tAir\tClear4mm", "", ""},
      {"103\t0.09\t\t", "Text1",
       "Thickness must be a value ( .1 -  100)\rNo gastype assigned \rNo glasstype assigned \r"},
      {"205\t100.1\tAir\tClear4mm", "Text1", "Thickness must be a value ( .1 -  100)\r"},
      {"101\t\t\t", "Combo1", "No glasstype assigned \r"},
      {"301\tx\t\tClear4mm", "", ""},
  };
  for (const auto& [input, focus, messages] : cases) {
    LibraryCase c;
    AddGaGl box(c.fake.session);
    const auto fields = SplitTabs(input);
    box.PaneEditCode = std::stoi(fields[0]);
    box.preset_gas = fields[2];
    box.preset_glass = fields[3];
    box.Load();
    box.Text1.text = fields[1];
    box.Ok();
    EXPECT_EQ(box.accepted, messages.empty()) << input;
    EXPECT_EQ(c.fake.dialogs.Last().text + "|" + box.focus, messages + "|" + focus) << input;
  }
}

TEST_F(WindowTypes, ATypeWithoutPanesIsRefusedAndFortyTypesAreTheLimit) {
  c.answers = {"Empty"};
  s.NewType();
  s.Ok();
  EXPECT_FALSE(s.unloaded);
  EXPECT_EQ(c.Said(), "Message|Panes are missing for one of the window types");
  // Leaving it writes it first, then the library refuses it.
  Choose(s, 0);
  EXPECT_EQ(c.fake.dialogs.Texts(), Rows(2, "Panes are missing for one of the window types"));
  EXPECT_NE(c.Bytes("WNDTP.LIB").find("7\tEmpty\t 0\t"), std::string::npos);

  std::string forty;
  for (int i = 1; i <= kMaxWindowTypes; ++i)
    forty += std::to_string(i) + "\tW" + std::to_string(i) + "\t 1\tClear4mm\tNo\t\r\n";
  c.Put("WNDTP.LIB", forty);
  Wind_Types full(c.fake.session);
  full.Load();
  full.NewType();
  EXPECT_EQ(c.Said(), "MESSAGE|Maximum number of window types =  40");
  c.answers = {"Two words"};
  c.Put("WNDTP.LIB", "");
  Wind_Types empty(c.fake.session);
  empty.Load();
  EXPECT_EQ(empty.WindowCurrentIndex, -1);
  empty.NewType();
  EXPECT_EQ(c.fake.dialogs.Last().text, "The name: Two words should not include spaces !");
  EXPECT_EQ(c.Style(), mb::kExclamation);
  // An empty library closes without a word.
  empty.Ok();
  EXPECT_TRUE(empty.unloaded);
}

// The screen's own routine: the type shown, from the opening on, shows its
// properties; one whose gas is not in the library leaves the three fields
// empty, without a word.
TEST_F(WindowTypes, TheChosenTypeShowsItsPropertiesOrNone) {
  // One pane of 4 mm glass (conductivity 1) between the surface resistances
  // 0.04 and 0.13 of EN ISO 6946: U = 1 / (0.04 + 0.004 + 0.13) = 5.747.
  EXPECT_EQ(Shown(s).substr(0, 5), "5.75 ");
  const std::string single = Shown(s);
  c.Put("GASTP.INP", c.Bytes("GASTP.INP").substr(0, c.Bytes("GASTP.INP").find("Argon")));
  Choose(s, 1);
  EXPECT_EQ(Shown(s), "2.86 0.755 0.691");
  Choose(s, 2);  // DoubleLowE4-16Ar-4
  EXPECT_EQ(Shown(s), "  ");
  EXPECT_TRUE(c.fake.dialogs.Texts().empty());

  // Panes deleted, added and edited: the values are those of the panes
  // shown.
  Choose(s, 1);  // Double4-12-4
  Click(s, 3, &Wind_Types::DeletePane);
  EXPECT_EQ(Shown(s), single);
  AnswerPanes(c, {"Clear4mm\tAir\t12\t0", "Clear4mm\tAir\t12\t0"}, &seen);
  s.AddPane();
  EXPECT_EQ(Shown(s), "2.86 0.755 0.691");
  Click(s, 1, &Wind_Types::DeletePane);
  EXPECT_EQ(Shown(s), single);
  Click(s, 1, &Wind_Types::InsertPane);
  EXPECT_EQ(Shown(s), "2.86 0.755 0.691");
  // A new type has no panes and so no properties.
  c.answers = {"Fresh"};
  s.NewType();
  EXPECT_EQ(Shown(s), "  ");
}

TEST_F(WindowTypes, DeletingAsksAndKeepsTheOtherNumbers) {
  c.Elements({{{27, "2"}}}, "case2");
  Choose(s, 1);
  s.DeleteType();
  EXPECT_EQ(c.fake.dialogs.Last().text,
            "The window is referenced in a surface and can not be deleted");
  Choose(s, 0);
  c.fake.dialogs.answers = {Answer::kNo, Answer::kYes};
  s.DeleteType();
  EXPECT_EQ(c.Said(), "DELETE WINDOW|Do you want to delete the window type 1?");
  EXPECT_EQ(c.Style(), mb::kYesNo + mb::kQuestion);
  EXPECT_EQ(s.List1.items.size(), 6u);
  s.DeleteType();
  EXPECT_EQ(s.List1.SelectedItem() + "|" + std::to_string(s.List1.items.size()),
            "02| Double4-12-4|5");
  EXPECT_EQ(c.Bytes("WNDTP.LIB").substr(0, 2), "2\t");
  c.answers = {"New"};
  s.NewType();
  EXPECT_EQ(s.List1.items.back(), "01| New");
}

}  // namespace
}  // namespace zelmo
