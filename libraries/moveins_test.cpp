#include <gtest/gtest.h>

#include "core/guard.h"
#include "libraries/library_test_case.h"
#include "libraries/moveins_screen.h"

namespace zelmo {
namespace {

using testing::LibraryCase;

std::string Lib(const std::vector<int>& types) {
  std::string bytes;
  for (int t : types) bytes += std::to_string(t) + "\tC" + std::to_string(t) + "\t10\t20\t.5\r\n";
  return bytes;
}

// AddMoveIns as the user finds it (number, title, name) and fills it in
// (name, transmittance, absorption, R-value), then OK; `shown` gets what it
// showed and, when it stays, where the focus went.
void Fill(LibraryCase& c, const std::array<std::string, 4>& values, std::string& shown) {
  c.fake.dialogs.screens["AddMoveIns"] = [values, &shown](Form& form) {
    auto& add = static_cast<AddMoveIns&>(form);
    shown = add.Label4.caption + "|" + form.caption + "|" + add.NAmeMI.text;
    add.NAmeMI.text = values[0], add.Solar.text = values[1];
    add.Absorp.text = values[2], add.RValue.text = values[3];
    form.focus.clear();
    add.Ok();
    if (!form.unloaded) shown = form.focus;
  };
}

TEST(MoveIns, ANewCurtainTakesTheLowestFreeNumberInItsPlace) {
  const struct {
    std::vector<int> before;
    int added;
    std::vector<int> after;
  } rows[] = {
      {{}, 1, {1}},
      {{1, 2, 4}, 3, {1, 2, 3, 4}},
      {{2, 3}, 1, {1, 2, 3}},
      {{1, 2, 3}, 4, {1, 2, 3, 4}},
      // Types compare as text while a gap is filled: 5 goes behind 10.
      {{1, 2, 3, 4, 6, 7, 8, 9, 10}, 5, {1, 2, 3, 4, 6, 7, 8, 9, 10, 5}},
  };
  for (const auto& row : rows) {
    LibraryCase c(false);
    if (!row.before.empty()) c.Put("MOVEINS.LIB", Lib(row.before));
    MoveIns screen(c.fake.session);
    screen.Load();
    std::string shown;
    Fill(c, {" Drape ", "30", "40", "0.25"}, shown);
    screen.Add();
    const std::string added = std::to_string(row.added);
    EXPECT_EQ(shown, "Type: " + added + "|Add Moveable Insulation|");
    EXPECT_EQ(screen.MoveInsList.Cell(screen.MoveInsList.row, 0), added);
    screen.Ok();
    std::string expected;
    for (int t : row.after)
      expected += t == row.added ? added + "\tDrape\t30\t40\t0.25\r\n" : Lib({t});
    EXPECT_EQ(c.Bytes("MOVEINS.LIB"), expected) << added;
    EXPECT_EQ(c.Bytes("case1/THERMAL.INP"), "------\r\n");
  }
}

TEST(MoveIns, EachRuleOfAddMoveInsAtItsBounds) {
  const std::string solar = "Transmittance must be a value ( 0 -  100)\r";
  const std::string absorp = "Absorptions must be a value ( 0 -  100)\r";
  const std::string r_value = "R-value must be a value (>  0 -  1000000)\r";
  // Name, transmittance, absorption, R-value; the focus; the messages.
  const std::array<std::string, 6> rows[] = {
      {"N", "0", "100", "1000000", "", ""},
      {"N", "100", "0", ".001", "", ""},
      {"", "-0.1", "100.1", "0", "Solar", solar + absorp + r_value + "Name is missing\r"},
      {"N", "5%", "1", "1", "Solar", solar},
      {"N", "1", "1e2", "1", "Absorp", absorp},
      {"N", "1", "1", "1000001", "RValue", r_value},
      {"  ", "1", "1", "1", "NAmeMI", "Name is missing\r"},
  };
  for (const auto& row : rows) {
    LibraryCase c(false);
    MoveIns screen(c.fake.session);
    screen.Load();
    std::string shown;
    Fill(c, {row[0], row[1], row[2], row[3]}, shown);
    screen.Add();
    EXPECT_EQ(screen.CurtainCount(), row[5].empty() ? 1 : 0);
    EXPECT_EQ(c.Said(), (row[5].empty() ? "|" : "MESSAGE|") + row[5]);
    EXPECT_EQ(row[5].empty() ? std::string() : shown, row[4]) << row[5];
  }
}

TEST(MoveIns, OnlyACurtainOnAWindowIsKeptFromDeletion) {
  LibraryCase c(false);
  c.Put("MOVEINS.LIB", Lib({1, 2, 3}));
  // Curtain 2 hangs on a main window; 3 lies on a hole without a window.
  c.Elements({{{20, "1"}, {21, "2"}, {27, ""}, {28, "3"}}});
  MoveIns screen(c.fake.session);
  screen.Load();
  for (int row : {2, 3, 1}) {
    screen.MoveInsList.row = row;
    screen.Delete();
  }
  ASSERT_EQ(c.fake.dialogs.messages.size(), 1u);
  EXPECT_EQ(c.Said(), "|The MI is referenced in a surface and can not be deleted ");
  EXPECT_EQ(c.Style(), mb::kExclamation);
  EXPECT_EQ(std::pair(screen.CurtainCount(), screen.MoveInsList.row), std::pair(1, 1));

  // Edit keeps the number; Cancel asks, and No leaves the file alone.
  std::string shown;
  Fill(c, {"Blind", "0", "90", "2"}, shown);
  screen.Edit();
  EXPECT_EQ(shown, "MI-no: 2|Edit Moveable Insulation|C2");
  c.fake.dialogs.answers = {Answer::kNo};
  screen.Cancel();
  EXPECT_EQ(c.fake.dialogs.Last().text, "Do you want to save changes ?\r\rMovable insulations");
  EXPECT_TRUE(screen.unloaded);
  EXPECT_EQ(c.Bytes("MOVEINS.LIB"), Lib({1, 2, 3}));
  screen.Ok();
  EXPECT_EQ(c.Bytes("MOVEINS.LIB"), "2\tBlind\t0\t90\t2\r\n");
  // The last curtain gone, the library has no file.
  c.Elements({});
  screen.Delete();
  EXPECT_EQ(screen.MoveInsList.rows(), 2);
  EXPECT_FALSE(screen.Command3D2.enabled || screen.Command3D4.enabled);
  EXPECT_TRUE(screen.Command3D1.enabled);
  screen.Ok();
  EXPECT_FALSE(testing::Exists(c.Path("MOVEINS.LIB")));
}

// A curtain on the window of a hole alone, with no curtain on the main
// window, is kept all the same; on a hole without a window it is not.
TEST(MoveIns, ACurtainOnlyOnAHolesWindowIsKeptFromDeletion) {
  const struct {
    testing::Element element;
    bool kept;
  } rows[] = {
      {{{20, ""}, {21, ""}, {27, "1"}, {28, "3"}}, true},
      {{{20, ""}, {21, "3"}, {27, "1"}, {28, "3"}}, true},
      {{{20, ""}, {21, "3"}, {27, ""}, {28, "3"}}, false},
  };
  for (const auto& row : rows) {
    LibraryCase c(false);
    c.Put("MOVEINS.LIB", Lib({1, 2, 3}));
    c.Elements({row.element});
    MoveIns screen(c.fake.session);
    screen.Load();
    screen.MoveInsList.row = 3;
    screen.Delete();
    EXPECT_EQ(screen.CurtainCount(), row.kept ? 3 : 2);
    EXPECT_EQ(c.fake.dialogs.Texts(),
              row.kept
                  ? testing::Strings{"The MI is referenced in a surface and can not be deleted "}
                  : testing::Strings{});
  }
}

TEST(MoveIns, SeventySixCurtainsFillTheLibrary) {
  LibraryCase c(false);
  std::vector<int> full;
  for (int t = 1; t <= 76; ++t) full.push_back(t);
  c.Put("MOVEINS.LIB", "\r\n" + Lib(full));
  MoveIns screen(c.fake.session);
  screen.Load();
  EXPECT_EQ(screen.CurtainCount(), 76);
  EXPECT_FALSE(screen.Command3D1.enabled);
  // One more is a damaged library, named with its line.
  c.Put("MOVEINS.LIB", Lib(full) + "77\tX\t1\t1\t1\r\n");
  MoveIns more(c.fake.session);
  EXPECT_FALSE(RunGuarded(c.fake.dialogs, [&more] { more.Load(); }));
  EXPECT_NE(c.fake.dialogs.Last().text.find("MOVEINS.LIB, line 77"), std::string::npos);
}

}  // namespace
}  // namespace zelmo
