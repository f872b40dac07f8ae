#include <gtest/gtest.h>

#include <cstdlib>
#include <functional>

#include "building/surface_file.h"
#include "core/text_file.h"
#include "libraries/library_test_case.h"
#include "libraries/opaque_lib.h"
#include "libraries/walls_lib.h"

namespace zelmo {
namespace {

using testing::LibraryCase;

std::string Repeat(const std::string& line, int times) {
  std::string bytes;
  for (int i = 0; i < times; ++i) bytes += line;
  return bytes;
}

// What a reader says of a damaged file.
std::string Fault(const std::function<void()>& read) {
  try {
    read();
  } catch (const FileError& e) {
    return e.UserText();
  }
  return "no fault";
}

TEST(OpaqueLib, ReadsTrimmedFieldsWritesThemBackAndHoldsTwoHundred) {
  LibraryCase c;
  c.Put("OPAQUE.LIB", " 48 \t Brick \t0.6\t 0.23\t1700\textra \r\n49\tTail");
  OpaqueTable rows = ReadOpaqueLib(c.fake.ws());
  ASSERT_EQ(rows.size(), 2u);
  EXPECT_EQ(rows[0], (OpaqueRow{"48", "Brick", "0.6", "0.23", "1700\textra"}));
  // A field with no TAB behind it ends the line: the rest is lost.
  EXPECT_EQ(rows[1], (OpaqueRow{"49", "", "", "", ""}));
  ASSERT_TRUE(WriteOpaqueLib(c.fake.ws(), rows));
  EXPECT_EQ(c.Bytes("OPAQUE.LIB"), "48\tBrick\t0.6\t0.23\t1700\textra\r\n49\t\t\t\t\r\n");

  c.Put("OPAQUE.LIB", Repeat("1\ta\t1\t1\t1\r\n", 200));
  EXPECT_EQ(ReadOpaqueLib(c.fake.ws()).size(), 200u);
  c.Put("OPAQUE.LIB", Repeat("1\ta\t1\t1\t1\r\n", 201));
  EXPECT_EQ(Fault([&] { ReadOpaqueLib(c.fake.ws()); }),
            "More than 200 opaque materials\r" + c.Path("OPAQUE.LIB") + ", line 201");
}

TEST(WallsLib, DamagedFilesNameTheirLine) {
  const std::string layer = "\t1\t10\r\n";
  const std::pair<std::string, int> cases[] = {{layer, 1},
                                               {"0\tA\r\n", 1},
                                               {"101\tA\r\n", 1},
                                               {"1\tA\r\n\r\n", 2},
                                               {"100\tA\r\n" + Repeat(layer, 21), 22}};
  for (const auto& [bytes, line] : cases) {
    LibraryCase c;
    c.Put("WALLS.LIB", bytes);
    EXPECT_EQ(Fault([&] { ReadWallsLib(c.fake.ws()); }),
              "Subscript out of range\r" + c.Path("WALLS.LIB") + ", line " + std::to_string(line));
  }
}

TEST(WallsLib, SlotsByNumberWrittenInOrder) {
  LibraryCase c;
  c.Put("WALLS.LIB", "7\t Late \r\n\t 3 \t12 \r\n2\tEarly\r\n\t1\t5\r\n\t\t\r\n");
  WallsLib lib = ReadWallsLib(c.fake.ws());
  EXPECT_EQ(lib.highest, 7);
  EXPECT_EQ(lib.names[7], "Late");
  EXPECT_EQ(lib.layer_count[2], 2);
  EXPECT_EQ(lib.layers[7][1].material, " 3 ");
  EXPECT_EQ(lib.FirstFreeSlot(), 1);
  ASSERT_TRUE(WriteWallsLib(c.fake.ws(), lib));
  // A layer without a material is no layer.
  EXPECT_EQ(c.Bytes("WALLS.LIB"), "2\tEarly\r\n\t1\t5\r\n7\tLate\r\n\t 3 \t12\r\n");
}

TEST(WallsLib, UValuesAsComputedByHand) {
  LibraryCase c;
  c.Put("OPAQUE.LIB",
        "1\tA\t1.0\t1\t1\r\n2\tB\t0.04\t1\t1\r\n3\tC\t-.01\t1\t1\r\n4\tZ\t0\t1\t1\r\n");
  c.Put("WALLS.LIB",
        "1\tNone\r\n2\tOne\r\n\t1\t100\r\n3\tTwo\r\n\t2\t170\r\n\t9\t50\r\n\t1\t100\r\n"
        "4\tNegative\r\n\t3\t100\r\n5\tStops\r\n\t1\t100\r\n\t\t\r\n\t2\t100\r\n6\tZero\r\n\t4\t1\r"
        "\n");
  const WallsLib lib = ReadWallsLib(c.fake.ws());
  const OpaqueTable materials = ReadOpaqueLib(c.fake.ws());
  // R = 0.17 + sum of t / (1000 C); the unknown material 9 adds nothing.
  const struct {
    int wall;
    std::string shown;
  } cases[] = {{1, "5.882"}, {2, "3.704"}, {3, "0.221"}, {4, "None"}, {5, "3.704"}};
  for (const auto& wall : cases) {
    EXPECT_EQ(UValueText(WallResistance(lib, wall.wall, materials, c.fake.ws())), wall.shown)
        << wall.wall;
  }
  EXPECT_THROW(WallResistance(lib, 6, materials, c.fake.ws()), FileError);
}

TEST(WallsLib, ThicknessAndMaterialBounds) {
  const struct {
    std::string text;
    std::string fault;
  } thickness[] = {{" 1 ", ""},
                   {"99999", ""},
                   {".99", "Thickness value (Min:  1, Max:  99999)\r"},
                   {"100000", "Thickness value (Min:  1, Max:  99999)\r"},
                   {"1e3", "Thickness must be a value\r"}};
  for (const auto& t : thickness) EXPECT_EQ(CheckThickness(t.text), t.fault) << t.text;

  const std::string conduct = "Conduct must be a value ( .01 -  500)\r";
  const std::string heat = "Sp heat must be a value ( .01 -  5000)\r";
  const std::string density = "Density must be a value ( .01 -  100000)\r";
  const struct {
    std::array<std::string, 4> fields;
    std::string message;
    int first;
  } materials[] = {{{"a", ".01", "5000", "100000"}, "", -1},
                   {{"a", "1,5", "0,01", "1"}, "", -1},
                   {{" ", "500.01", "1", "1"}, "Name must be set\r" + conduct, 0},
                   {{"a", "1", ".0099", "x"}, heat + density, 2},
                   {{"a", "", "5000.1", "100001"}, conduct + heat + density, 1}};
  for (const auto& m : materials) {
    MaterialCheck check = CheckMaterial(m.fields);
    EXPECT_EQ(check.message, m.message) << m.fields[1];
    EXPECT_EQ(check.first_fault, m.first) << m.fields[1];
  }
}

// The example project: every wall its elements name exists, and the
// U-values are those computed by hand from the layers and their materials.
TEST(WallsLib, TheExampleProjectHoldsTogether) {
  LibraryCase c;
  c.Put("WALLS.LIB", testing::ExampleFile("WALLS.LIB"));
  c.Put("OPAQUE.LIB", testing::ExampleFile("OPAQUE.LIB_Temp"));
  const WallsLib lib = ReadWallsLib(c.fake.ws());
  const OpaqueTable materials = ReadOpaqueLib(c.fake.ws());
  std::string u_values;
  for (int wall = 1; wall <= 5; ++wall) {
    u_values += UValueText(WallResistance(lib, wall, materials, c.fake.ws())) + " ";
  }
  EXPECT_EQ(u_values, "0.214 0.324 0.151 0.491 2.550 ");
  c.fake.ws().CasePath =
      std::string(std::getenv("ZELMO_SOURCE_DIR")) + "/system/tree/ZELMOPROJ/Example/Case1";
  SurfaceTable elements;
  ReadSurfaces(c.fake.ws(), elements);
  ASSERT_GT(elements.SurfCount, 0);
  for (int slot = 1; slot <= elements.SurfCount; ++slot) {
    for (int field : {15, 22}) {
      const std::string& wall = elements.SurfData[slot][field];
      EXPECT_TRUE(wall.empty() || !lib.names[std::stoi(wall)].empty()) << elements.SurfName[slot];
    }
  }
}

}  // namespace
}  // namespace zelmo
