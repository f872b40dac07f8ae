#include "libraries/opaque_screen.h"

#include <gtest/gtest.h>

#include "libraries/library_test_case.h"

namespace zelmo {
namespace {

using testing::Materials;

// The screen over a library, with the editor answered by `fields` (name,
// conduct, heat, density) and what it showed kept in `shown`, what it said
// when it stayed in `focus`.
struct OpaqueCase : testing::LibraryCase {
  explicit OpaqueCase(const std::string& library = "") {
    if (!library.empty()) Put("OPAQUE.LIB", library);
    fake.dialogs.screens["AddOpaque"] = [this](Form& form) {
      auto& editor = static_cast<AddOpaque&>(form);
      shown = editor.caption + " " + editor.Label5.caption + ": " + editor.Mtrl.text + "|" +
              editor.Conduct.text + "|" + editor.Heat.text + "|" + editor.Density.text;
      editor.Mtrl.text = fields[0], editor.Conduct.text = fields[1];
      editor.Heat.text = fields[2], editor.Density.text = fields[3];
      editor.Ok();
      focus = editor.unloaded ? "closed" : editor.focus;
    };
    screen.Load();
  }
  void Select(int row) {
    screen.OpaqueList.row = row;
    screen.SelectionChanged();
  }
  std::array<std::string, 4> fields = {"New", "1", "1", "1"};
  std::string shown, focus;
  OpaqueMtrl screen{fake.session};
};

TEST(OpaqueMtrlScreen, ANewMaterialTakesTheLowestFreeTypeFrom48) {
  const struct {
    std::string library, offered;
    std::string at_end;  // the file's last lines after the add
  } cases[] = {
      {Materials(47, {48, 49, 51}), "50",
       "49\tOwn49\t1\t1\t1\r\n50\tNew\t1\t1\t1\r\n51\tOwn51\t1\t1\t1\r\n"},
      {Materials(47), "48", "47\tM47\t1\t.2\t1000\r\n48\tNew\t1\t1\t1\r\n"},
      {Materials(10, {49}), "48",
       "10\tM10\t1\t.2\t1000\r\n48\tNew\t1\t1\t1\r\n49\tOwn49\t1\t1\t1\r\n"},
      {Materials(10, {48}), "49", "48\tOwn48\t1\t1\t1\r\n49\tNew\t1\t1\t1\r\n"},
      {"", "48", "48\tNew\t1\t1\t1\r\n"},  // no OPAQUE.LIB at all
  };
  for (const auto& t : cases) {
    OpaqueCase c(t.library);
    OpaqueMtrl& s = c.screen;
    EXPECT_TRUE(s.Command1.enabled);
    s.Add();
    EXPECT_EQ(c.shown, "Add opaque material Material no: " + t.offered + ": |||");
    EXPECT_EQ(c.focus, "closed");
    EXPECT_EQ(s.OpaqueList.Cell(s.OpaqueList.row, 0), t.offered);
    EXPECT_TRUE(s.Command2.enabled && s.Command3.enabled);
    s.Ok();
    const std::string bytes = c.Bytes("OPAQUE.LIB");
    ASSERT_GE(bytes.size(), t.at_end.size());
    EXPECT_EQ(bytes.substr(bytes.size() - t.at_end.size()), t.at_end) << t.offered;
    EXPECT_EQ(c.Bytes("case1/THERMAL.INP"), "------\r\n");
  }
}

TEST(OpaqueMtrlScreen, PredefinedRowsAreShownOnlyAndAFullLibraryTakesNoMore) {
  std::vector<int> own;
  for (int type = 48; type <= 200; ++type) own.push_back(type);
  OpaqueCase c(Materials(47, own));
  OpaqueMtrl& s = c.screen;
  EXPECT_EQ(s.OpaqueList.Cell(0, 3), "Sp. Heat (Wh/kg,K)");
  for (auto [row, own] : {std::pair{47, false}, {48, true}, {1, false}}) {
    c.Select(row);
    EXPECT_EQ(s.Command2.enabled && s.Command3.enabled, own) << row;
  }
  EXPECT_FALSE(s.Command1.enabled);
  s.Add();
  EXPECT_EQ(c.Said(), "Error message|Maximum number of opaque materials exceeded");
  EXPECT_TRUE(c.shown.empty());
}

TEST(OpaqueMtrlScreen, ADeletedTypeIsTheNextOneAddedUnlessAWallHasIt) {
  OpaqueCase c(Materials(0, {48, 49, 50}));
  OpaqueMtrl& s = c.screen;
  c.Select(2);
  c.fake.dialogs.answers = {Answer::kNo, Answer::kYes};
  s.Delete();
  s.Delete();
  EXPECT_EQ(c.Said(), "Delete |Do you want to delete the material type Own49  ?");
  EXPECT_EQ(c.Style(), mb::kYesNo + mb::kQuestion);
  EXPECT_TRUE(s.OpaqueDirty);
  s.Ok();
  EXPECT_EQ(c.Bytes("OPAQUE.LIB"), "48\tOwn48\t1\t1\t1\r\n50\tOwn50\t1\t1\t1\r\n");

  // A material of a wall is not deleted, without a question.
  c.Put("WALLS.LIB", "1\tW\r\n\t 50 \t10\r\n");
  OpaqueMtrl again(c.fake.session);
  again.Load();
  again.OpaqueList.row = 2;
  again.SelectionChanged();
  again.Delete();
  EXPECT_EQ(c.Said(), "Delete |The material is referenced in a wall and can not be deleted ");
  EXPECT_EQ(c.fake.dialogs.messages.size(), 3u);
  EXPECT_FALSE(again.OpaqueDirty);
  EXPECT_EQ(again.OpaqueCount, 2);
  c.fields = {" Clay ", "1,5", "0,8", "1500"};
  again.Add();
  EXPECT_EQ(again.OpaqueList.row, 2);
  again.Ok();
  EXPECT_EQ(c.Bytes("OPAQUE.LIB"),
            "48\tOwn48\t1\t1\t1\r\n49\tClay\t1.5\t0.8\t1500\r\n50\tOwn50\t1\t1\t1\r\n");
}

TEST(OpaqueMtrlScreen, TheEditorRefusesEveryBoundAndFocusesTheFirst) {
  OpaqueCase c(" 48 \t Own \t 2 \t 3\t4 \r\n");
  OpaqueMtrl& s = c.screen;
  c.Select(1);
  c.fields = {"Own", "0", "3", "100001"};
  s.Edit();
  EXPECT_EQ(c.shown, "Change opaque material Material no: 48: Own|2|3|4");
  EXPECT_EQ(c.focus, "Conduct");
  EXPECT_EQ(c.Said(),
            "MESSAGE|Conduct must be a value ( .01 -  500)\rDensity must be a value ( "
            ".01 -  100000)\r");

  // Cancel after a change asks; No leaves the file as it was.
  c.fields = {"Own", "0,5", "3", "4"};
  s.Edit();
  EXPECT_EQ(c.focus, "closed");
  EXPECT_EQ(s.OpaqueList.Cell(1, 2), "0.5");
  c.fake.dialogs.answers = {Answer::kNo};
  s.Cancel();
  EXPECT_EQ(c.fake.dialogs.Last().text, "Do you want to save changes ?\r\rOpaque materials");
  EXPECT_TRUE(s.unloaded);
  EXPECT_EQ(c.Bytes("OPAQUE.LIB"), " 48 \t Own \t 2 \t 3\t4 \r\n");

  // OK without a change still rewrites the file.
  OpaqueMtrl again(c.fake.session);
  again.Load();
  again.Ok();
  EXPECT_TRUE(again.written());
  EXPECT_EQ(c.Bytes("OPAQUE.LIB"), "48\tOwn\t2\t3\t4\r\n");
}

}  // namespace
}  // namespace zelmo
