#include "building/surface_file.h"

#include <gtest/gtest.h>

#include "building/volumes.h"
#include "core/testing/fakes.h"
#include "core/text_file.h"

namespace zelmo {
namespace {

using testing::ReadBytes;
using testing::TempDir;
using testing::WriteBytes;

// One block: the name line and 29 field lines, field k holding `fields[k-1]`
// or "0" past the given ones.
std::string Block(const std::string& name, const std::vector<std::string>& fields) {
  std::string bytes = name + "\r\n";
  for (int k = 1; k <= kSurfaceFields; ++k) {
    bytes +=
        "\t" + (k <= static_cast<int>(fields.size()) ? fields[k - 1] : std::string("0")) + "\r\n";
  }
  return bytes;
}

struct SurfaceCase {
  SurfaceCase() {
    ws.CasePath = dir.path();
    WriteBytes(dir / "THERMAL.INP", "------\r\n");
  }
  void Put(const std::string& bytes) const { WriteBytes(dir / "SURFACE.INP", bytes); }
  std::string Bytes() const { return ReadBytes(dir / "SURFACE.INP"); }
  TempDir dir;
  Workspace ws;
};

TEST(ReadSurfaces, MissingOrEmptyFileIsAnEmptyBuilding) {
  SurfaceCase c;
  SurfaceTable table;
  table.SurfName[1] = "old";
  ReadSurfaces(c.ws, table);
  EXPECT_EQ(table.SurfCount, 0);
  EXPECT_EQ(table.SurfName[1] + "|" + table.SurfData[1][1] + "|" + table.SurfData[1][7], "|0|");
  EXPECT_EQ(ReadSurfaceVolumes(c.ws).count(), 0);
  c.Put("");
  ReadSurfaces(c.ws, table);
  EXPECT_EQ(table.SurfCount, 0);
}

TEST(ReadSurfaces, GapRaisesTheCountAndWritingClosesIt) {
  SurfaceCase c;
  // A gap line between the blocks, a field line without a TAB, and a field
  // whose blank after the TAB survives the read.
  std::string second = Block("Roof", {"0", "0", "0", "0", "0", "0", "0", "1"});
  c.Put(Block("South wall", {"0", "90", "180", "0", "0", "0", "0", "1", "6", "2.7"}) + "\r\n" +
        second.replace(second.find("\t0\r\n"), 4, "no tab\r\n")
            .replace(second.find("\t1\r\n"), 4, "\t 2 \r\n"));
  SurfaceTable table;
  ReadSurfaces(c.ws, table);
  ASSERT_EQ(table.SurfCount, 3);
  EXPECT_EQ(table.SurfName[1] + "|" + table.SurfData[1][3] + "|" + table.SurfData[1][10],
            "South wall|180|2.7");
  EXPECT_EQ(table.SurfName[2] + "|" + table.SurfName[3] + "|" + table.SurfData[3][1] + "|" +
                table.SurfData[3][8],
            "|Roof|| 2");

  SurfaceVolumes volumes = ReadSurfaceVolumes(c.ws);
  EXPECT_EQ(volumes.front, (std::vector<std::string>{"0", "0"}));
  EXPECT_EQ(volumes.back, (std::vector<std::string>{"1", "2"}));

  table.SurfName[1] = " South wall ";
  ASSERT_TRUE(WriteSurfaces(c.ws, table));
  std::string expected =
      Block("South wall", {"0", "90", "180", "0", "0", "0", "0", "1", "6", "2.7"}) +
      Block("Roof", {"", "0", "0", "0", "0", "0", "0", "2"});
  EXPECT_EQ(c.Bytes(), expected);
  EXPECT_EQ(ReadBytes(c.dir / "THERMAL.INP"), "XXXXXX\r\n");

  SurfaceTable again;
  ReadSurfaces(c.ws, again);
  EXPECT_EQ(std::to_string(again.SurfCount) + again.SurfName[2], "2Roof");
}

TEST(ReadSurfaces, CutFileOrElement101IsReportedAndLeavesTheTable) {
  SurfaceCase c;
  std::string block = Block("Wall", {});
  // The second block stops after its 19th field line: line 51 is missing.
  size_t cut = 0;
  for (int line = 0; line < 20; ++line) cut = block.find("\r\n", cut) + 2;
  c.Put(block + block.substr(0, cut));
  SurfaceTable table;
  table.SurfName[1] = "kept";
  table.SurfCount = 1;
  const std::string path = c.dir / "SURFACE.INP";
  EXPECT_EQ(testing::FileErrorText([&] { ReadSurfaces(c.ws, table); }),
            "Input past end of file\r" + path + ", line 51");
  EXPECT_EQ(table.SurfName[1], "kept");
  EXPECT_THROW(ReadSurfaceVolumes(c.ws), FileError);

  std::string hundred;
  for (int i = 0; i < kMaxElements; ++i) hundred += Block("E" + std::to_string(i), {});
  c.Put(hundred);
  ReadSurfaces(c.ws, table);
  EXPECT_EQ(table.SurfCount, 100);
  c.Put(hundred + Block("E101", {}));
  EXPECT_EQ(testing::FileErrorText([&] { ReadSurfaces(c.ws, table); }),
            "More than 100 building elements\r" + path + ", line 3001");
  EXPECT_EQ(table.SurfName[100], "E99");
  EXPECT_THROW(ReadSurfaceVolumes(c.ws), FileError);
}

TEST(Volumes, ListPairsAndFacings) {
  SurfaceVolumes volumes;
  volumes.front = {"-1", "0", "", "8 "};
  volumes.back = {"3", "1", "0", "0"};
  EXPECT_EQ(BuildVolumeList(volumes), (std::vector<std::string>{"1", "3", "8"}));
  volumes.front = {"-1", "0"};
  volumes.back = {"0", "0"};
  EXPECT_TRUE(BuildVolumeList(volumes).empty());

  std::vector<std::string> all = {"1", "2", "3", "4", "5", "6", "7", "8"};
  EXPECT_EQ(BuildVolumePairs(all, true).size(), 36u);
  EXPECT_EQ(BuildVolumePairs(all, false).size(), 28u);
  EXPECT_EQ(BuildVolumePairs({"1", "3"}, false), (std::vector<std::string>{"1 -> 3"}));
  EXPECT_EQ(BuildVolumePairs({"1", "2", "3"}, true),
            (std::vector<std::string>{"1 -> 2", "1 -> 3", "0 -> 1", "2 -> 3", "0 -> 2", "0 -> 3"}));

  SurfaceTable table;
  auto add = [&](int slot, const std::string& front, const std::string& back) {
    table.SurfName[slot] = "E" + std::to_string(slot);
    table.SurfData[slot][7] = front;
    table.SurfData[slot][8] = back;
    table.SurfCount = slot;
  };
  add(1, "1", "2");   // once in each volume
  add(2, "0", "1");   // Outdoor and Volume 1
  add(3, "0", "0");   // not counted at all
  add(4, "-1", "2");  // Ground and Volume 2
  add(6, "0", "3");   // after a gap
  Facings f = CountFacings(table);
  EXPECT_EQ(f.FacingMax, 3);
  EXPECT_EQ((std::vector<int>{f.FacingCount[1], f.FacingCount[2], f.FacingCount[3],
                              f.FacingCount[4], f.FacingCount[5]}),
            (std::vector<int>{1, 2, 2, 2, 1}));
  EXPECT_EQ(CountFacings(SurfaceTable()).FacingMax, -2);
}

}  // namespace
}  // namespace zelmo
