#include "libraries/walls_screen.h"

#include <gtest/gtest.h>

#include "libraries/library_test_case.h"
#include "libraries/opaque_screen.h"

namespace zelmo {
namespace {

constexpr const char* kTwoWalls = "1\tOuter\r\n\t1\t100\r\n3\tInner\r\n\t2\t50\r\n\t3\t50\r\n";

struct WallsCase : testing::LibraryCase {
  explicit WallsCase(const std::string& walls = kTwoWalls) {
    Put("OPAQUE.LIB", testing::Materials(3));
    Put("WALLS.LIB", walls);
    screen.Load();
  }
  void Click(int index) {
    screen.WallList.list_index = index;
    screen.WallListClick();
  }
  void Layer(int material, const std::string& thickness) {
    answers.push_back(thickness);
    screen.MaterialClicked(material);
  }
  std::string Row(int row) const {
    std::string text;
    for (int c = 0; c < 3; ++c) text += screen.WallLayerList.Cell(row, c) + " ";
    return text;
  }
  Walls screen{fake.session};
};

TEST(WallsScreen, ANewWallOfThreeLayersIsSavedAndEveryCaseGoesStale) {
  WallsCase c;
  Walls& s = c.screen;
  EXPECT_EQ(s.WallList.items, (std::vector<std::string>{"01| Outer", "03| Inner"}));
  EXPECT_EQ(s.caption, "Walls / Floors / Roofs / Doors (Outer)");
  EXPECT_EQ(c.Row(1) + s.WallLayerList.Cell(1, 3) + s.WallLayerList.Cell(1, 6), "1 100 1 M11000");
  EXPECT_EQ(s.UvalueWall.text, "3.704");
  EXPECT_EQ(s.MtrlList.items[0], "  1|M1                   |       1|    .2|    1000");
  c.answers = {"Roof"};
  s.AddWall();
  EXPECT_EQ(c.asked.back(), "Add Walls/Floors/Roofs/Doors: Type a name []");
  EXPECT_EQ(s.WallList.items.back(), "02| Roof");
  EXPECT_EQ(s.UvalueWall.text, "5.882");
  EXPECT_TRUE(s.dirty());
  // No layers yet: the wall cannot be left.
  c.Click(0);
  EXPECT_EQ(c.Said(),
            "Walls / Floors / Roofs / Doors - Check|There must be at least one layer in the wall");
  EXPECT_EQ(s.focus, "Command3D2");
  EXPECT_EQ(s.WallList.list_index, 2);

  s.AddLayers();
  EXPECT_EQ(s.Command3D3.caption, "Cl&ose");
  EXPECT_FALSE(s.Command1.visible || s.Command3D2.enabled || s.Command3D9.enabled);
  c.Layer(0, "100");
  c.Layer(2, " 50 ");
  EXPECT_EQ(c.asked.back(), "Add wall-layer: Type thickness (mm) []");
  s.InsertLayersOrClose();
  EXPECT_EQ(c.Bytes("WALLS.LIB"),
            std::string("1\tOuter\r\n\t1\t100\r\n2\tRoof\r\n\t1\t100\r\n\t3\t50\r\n") +
                "3\tInner\r\n\t2\t50\r\n\t3\t50\r\n");
  EXPECT_TRUE(c.AllStale());

  // Two layers inserted before the second keep the order they were chosen in.
  s.WallLayerList.row = 2;
  s.InsertLayersOrClose();
  c.Layer(1, "20");
  c.Layer(0, "5");
  EXPECT_EQ(c.Row(1) + c.Row(2) + c.Row(3) + c.Row(4), "1 100 1 2 20 2 3 5 1 4 50 3 ");
  s.CloseMaterials();
  c.Click(2);
  EXPECT_EQ(s.UvalueWall.text, "2.899");  // 1 / (0.17 + 0.1 + 0.02 + 0.005 + 0.05)
  s.Ok();
  EXPECT_NE(c.Bytes("WALLS.LIB").find("2\tRoof\r\n\t1\t100\r\n\t2\t20\r\n\t1\t5\r\n\t3\t50\r\n"),
            std::string::npos);
}

// The U-value shown follows every change of the wall's layers and of its
// materials: 1 / (0.17 + the layers' thickness / conductivity).
TEST(WallsScreen, TheUValueFollowsTheLayersAndTheirMaterials) {
  WallsCase c;
  Walls& s = c.screen;
  EXPECT_EQ(s.UvalueWall.text, "3.704");  // 1 / (0.17 + 0.1)
  s.AddLayers();
  c.Layer(2, "50");
  EXPECT_EQ(s.UvalueWall.text, "3.125");  // 1 / (0.17 + 0.1 + 0.05)
  c.Layer(0, "30");
  EXPECT_EQ(s.UvalueWall.text, "2.857");  // 1 / (0.17 + 0.1 + 0.05 + 0.03)
  s.CloseMaterials();
  // Material 1 conducts half as well.
  c.fake.dialogs.screens["OpaqueMtrl"] = [](Form& form) {
    auto& materials = static_cast<OpaqueMtrl&>(form);
    materials.OpaqueList.Cell(1, 2) = "0.5";
    materials.Ok();
  };
  s.OpaqueMaterials();
  EXPECT_EQ(s.UvalueWall.text, "2.083");  // 1 / (0.17 + 0.2 + 0.05 + 0.06)
  EXPECT_EQ(s.WallLayerList.Cell(1, 4), "0.5");
}

TEST(WallsScreen, NamesAreNotTakenTwice) {
  const struct {
    void (Walls::*event)();
    std::string answer, asked, text, title;
  } cases[] = {
      {&Walls::AddWall, "Outer", "Add Walls/Floors/Roofs/Doors: Type a name []",
       "A wall with the same name already exists", "Walls/Floors/Roofs/Doors - Check"},
      {&Walls::CopyWall, " Inner", "Copy Walls/Floors/Roofs/Doors: Type name of target []",
       "A wall with the same name already exists", "Walls/Floors/Roofs/Doors- Check"},
      {&Walls::RenameWall, "Outer ", "Rename Walls/Floors/Roofs/Doors: Type a new name [Outer]",
       "A wall with the same name already exists ", "Walls/Floors/Roofs/Doors- Check"},
  };
  for (const auto& t : cases) {
    WallsCase c;
    c.answers = {t.answer};
    (c.screen.*t.event)();
    EXPECT_EQ(c.asked.back(), t.asked);
    EXPECT_EQ(c.Said(), t.title + "|" + t.text);
    EXPECT_EQ(c.screen.WallList.items.size(), 2u);
    EXPECT_FALSE(c.screen.dirty());
  }
}

TEST(WallsScreen, AWallInUseStaysAndAFreedNumberIsTakenAgain) {
  WallsCase c("1\tA\r\n\t1\t1\r\n2\tB\r\n\t1\t1\r\n3\tC\r\n\t1\t1\r\n4\tD\r\n\t1\t1\r\n");
  Walls& s = c.screen;
  c.Elements({{{15, "0"}, {22, "2"}}}, "case2");
  c.Click(1);
  s.DeleteWall();
  EXPECT_EQ(
      c.Said(),
      "Walls/Floors/Roofs/Doors- Check|The wall is referenced in a surface and can not be deleted");
  c.Click(2);
  s.DeleteWall();
  EXPECT_EQ(c.Said(), "Delete wall|Do you want to delete the wall type 3?");
  EXPECT_EQ(c.Style(), mb::kYesNo + mb::kExclamation);
  EXPECT_EQ(c.Bytes("WALLS.LIB"), "1\tA\r\n\t1\t1\r\n2\tB\r\n\t1\t1\r\n4\tD\r\n\t1\t1\r\n");
  EXPECT_TRUE(c.AllStale());
  c.answers = {"E"};
  s.CopyWall();
  EXPECT_EQ(s.WallList.items, (std::vector<std::string>{"01| A", "02| B", "04| D", "03| E"}));
  EXPECT_EQ(s.tables().layers[3][1].material, "1");
}

TEST(WallsScreen, LayersAreDeletedAndTheirThicknessEdited) {
  WallsCase c;
  Walls& s = c.screen;
  c.Click(1);
  s.DeleteLayer();
  EXPECT_EQ(c.Bytes("WALLS.LIB"), "1\tOuter\r\n\t1\t100\r\n3\tInner\r\n\t3\t50\r\n");
  EXPECT_EQ(s.UvalueWall.text, "4.545");
  s.DeleteLayer();  // the only one: refused by the layer check
  EXPECT_EQ(c.fake.dialogs.Last().text, "There must be at least one layer in the wall");
  EXPECT_EQ(c.Bytes("WALLS.LIB"), "1\tOuter\r\n\t1\t100\r\n3\tInner\r\n\t3\t50\r\n");

  WallsCase e;
  e.answers = {"Renamed"};
  e.screen.RenameWall();
  // Editing first offers to save; No drops the rename.
  e.fake.dialogs.answers = {Answer::kNo};
  e.answers = {"200"};
  e.screen.EditThickness();
  EXPECT_EQ(e.fake.dialogs.Last().text, "Do you want to save changes ?\r\rWALLS");
  EXPECT_EQ(e.asked.back(), "Edit thickness: Type thickness (mm) [100]");
  EXPECT_EQ(e.screen.WallList.items[0], "01| Outer");
  EXPECT_EQ(e.Row(1), "1 200 1 ");
  EXPECT_EQ(e.screen.UvalueWall.text, "2.703");
  EXPECT_FALSE(e.screen.dirty());
  e.screen.Ok();
  EXPECT_EQ(e.Bytes("WALLS.LIB"), "1\tOuter\r\n\t1\t200\r\n3\tInner\r\n\t2\t50\r\n\t3\t50\r\n");
}

TEST(WallsScreen, TwentyLayersAndAHundredWallsAreTheLimits) {
  std::string walls;
  for (int n = 1; n <= 100; ++n)
    walls += std::to_string(n) + "\tW" + std::to_string(n) + "\r\n\t1\t1\r\n";
  WallsCase c(walls);
  Walls& s = c.screen;
  EXPECT_FALSE(s.Command3D1.enabled || s.Command3D6.enabled);
  EXPECT_TRUE(s.Command3D7.enabled && s.Command3D4.enabled);
  s.AddLayers();
  for (int k = 2; k <= 20; ++k) c.Layer(0, "1");
  EXPECT_FALSE(s.MtrlList.visible);
  EXPECT_FALSE(s.Command3D2.enabled || s.Command3D3.enabled);
  EXPECT_EQ(s.tables().layer_count[1], 20);
  EXPECT_EQ(c.asked.size(), 19u);
  s.DeleteWall();
  EXPECT_TRUE(s.Command3D1.enabled && s.Command3D6.enabled);
}

}  // namespace
}  // namespace zelmo
