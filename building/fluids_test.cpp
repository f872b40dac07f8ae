#include "building/fluids.h"

#include <gtest/gtest.h>

#include "building/advconn.h"
#include "building/fluids_test_case.h"
#include "building/forcevent.h"
#include "building/volumes.h"
#include "core/text_file.h"

namespace zelmo {
namespace {

using testing::FluidsCase;

testing::Strings Rows(const std::vector<AdvConnRow>& rows) {
  testing::Strings texts;
  for (const auto& row : rows) texts.push_back(row.pair + "|" + row.distance + "|" + row.area);
  return texts;
}

TEST(ReadFluids, AirForEveryVolumeThenTheFileLaidOver) {
  FluidsCase c;
  FluidTable missing = ReadFluids(c.fake.ws(), {"1", "3"});
  EXPECT_EQ(missing.FluidOf("1") + missing.FluidOf("3"), "11");
  EXPECT_EQ(missing.rows[3].volume + "|" + missing.rows[2].volume, "3|");

  // Lines address the slot by volume number, up to Volume 8; a volume no
  // longer present and lines of no volume are harmless.
  c.Put("FLUIDS.INP", " 3 \t 2 \r\n1\t3\r\n7\t2\r\n8\t3\r\nabc\t2\r\n\r\n0\t3\r\nno tab\r\n");
  FluidTable table = ReadFluids(c.fake.ws(), {"1", "3", "8"});
  EXPECT_EQ(table.FluidOf("1") + table.FluidOf("3") + table.FluidOf("7") + table.FluidOf("8") +
                table.FluidOf("2"),
            "32231");

  // A number past the table is a damaged file, named with its line.
  for (const char* bad : {"9", "-1", "12"}) {
    c.Put("FLUIDS.INP", std::string("1\t2\r\n") + bad + "\t3\r\n");
    try {
      ReadFluids(c.fake.ws(), {"1", "3"});
      ADD_FAILURE() << bad;
    } catch (const FileError& e) {
      EXPECT_STREQ(e.what(), "Subscript out of range");
      EXPECT_EQ(e.path(), c.dir / "FLUIDS.INP");
      EXPECT_EQ(e.line(), 2);
    }
  }

  ASSERT_TRUE(WriteFluids(c.fake.ws(), {{"1", "3"}, {"3", ""}, {"4", "1"}}));
  EXPECT_EQ(c.Bytes("FLUIDS.INP"), "1\t3\r\n3\t\r\n4\t1\r\n");
}

TEST(ReadAdvConn, OneRowPerPairOfVolumesInTheOrderOfTheElements) {
  FluidsCase c;
  SurfaceVolumes volumes;
  volumes.front = {"0", "2", "1", "-1", "3", "2", "", "1"};
  volumes.back = {"1", "1", "2", "2", "2", "0", "3", "3"};
  // 2 to 1 and 1 to 2 make one row.
  EXPECT_EQ(Rows(ReadAdvConn(c.fake.ws(), volumes)),
            (testing::Strings{"1 - 2|0|0", "2 - 3|0|0", "1 - 3|0|0"}));
  EXPECT_EQ(AdvPairName("3", "1"), "1 - 3");
}

TEST(VentBalanceMessage, SumsInSinglePrecisionAgainstTheThreshold) {
  // 25 in from Outdoor, on to Volume 2 and back out by a backward flow.
  std::vector<VentRow> rows = {{"1", "2", "25"}, {"0", "1", "25"}, {"0", "2", "-25"}};
  EXPECT_EQ(VentBalanceMessage(rows, {"1", "2"}), "");

  rows = {{"1", "2", "0.004"}, {"0", "1", "0"}, {"0", "2", "0"}};
  EXPECT_EQ(VentBalanceMessage(rows, {"1", "2"}), "");
  rows[0].flow = "0.0049";
  EXPECT_EQ(VentBalanceMessage(rows, {"1", "2"}), "");
  rows[0].flow = "0.005";
  EXPECT_EQ(VentBalanceMessage(rows, {"1", "2"}), "Volume 1: .005\rVolume 2: -.005\r");

  // Flows that leave a remainder of 0.004 pass, of 0.005 are reported.
  rows = {{"1", "2", "30"}, {"0", "1", "30.004"}, {"0", "2", "-30"}};
  EXPECT_EQ(VentBalanceMessage(rows, {"1", "2"}), "");
  rows[1].flow = "30.005";
  EXPECT_EQ(VentBalanceMessage(rows, {"1", "2"}), "Volume 1: -.005\r");

  // Outdoor need not balance, and numbers follow the number rule.
  rows = {{"0", "1", "10abc"}, {"1", "2", "10"}, {"0", "2", "x"}};
  EXPECT_EQ(VentBalanceMessage(rows, {"1", "2"}), "Volume 2: -10\r");
}

}  // namespace
}  // namespace zelmo
