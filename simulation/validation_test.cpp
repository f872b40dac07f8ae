#include "simulation/validation.h"

#include <gtest/gtest.h>

#include <cstdlib>

#include "core/file_system.h"
#include "core/testing/fakes.h"
#include "core/text_file.h"

namespace zelmo::testing {
namespace {

const std::string kHead =
    "case,quantity,unit,BSIMAC,CSE,DeST,EnergyPlus,ESP-r,TRNSYS,min,max,mean\n";
const std::string kTwoRows = kHead +
                             "600,annual_heating,MWh,4.05,3.99,4.05,4.32,4.36,4.50,3.99,4.50,4.21\n"
                             "600FF,annual_min_zone_temperature,degC,-13,-12,-11,-10,-9.9,-13.8,"
                             "-13.8,-9.9,-11.6\n";

TEST(Reference, TheShippedTableHoldsEveryCaseAndQuantity) {
  const std::string path =
      std::string(std::getenv("ZELMO_SOURCE_DIR")) + "/docs/validation/reference.csv";
  const ReferenceTable table = ParseReference(path, *ReadAllBytes(path));
  EXPECT_EQ(table.programs,
            (std::array<std::string, 6>{"BSIMAC", "CSE", "DeST", "EnergyPlus", "ESP-r", "TRNSYS"}));
  ASSERT_EQ(table.rows.size(), 34u);
  // Case 600's annual heating, as the workbook has it.
  EXPECT_EQ(table.rows[0].case_name + " " + table.rows[0].quantity + " " + table.rows[0].unit,
            "600 annual_heating MWh");
  EXPECT_DOUBLE_EQ(table.rows[0].min, 3.9927549886299);
  EXPECT_DOUBLE_EQ(table.rows[0].max, 4.503550000000001);
  VolumeSummary any;
  for (const ReferenceRow& row : table.rows) {
    EXPECT_TRUE(QuantityValue(any, row.quantity)) << row.quantity;
    EXPECT_LE(row.min, row.max);
  }
}

TEST(Reference, RefusesADamagedTableNamingTheLine) {
  const struct {
    std::string bytes;
    int line;
  } cases[] = {
      {"", 1},
      {"case,quantity,unit,A,B,C,D,E,F,min,max\n", 1},
      {kHead + "600,annual_heating,MWh,1,2,3,4,5,6,1,6\n", 2},
      {kHead + "600,annual_heating,MWh,1,2,3,4,5,x,1,6,3\n", 2},
      {kHead + kTwoRows.substr(kHead.size()) + "600,peak_heating,kW,1,2,3,4,5,6,6,1,3\n", 4},
      {kHead + ",annual_heating,MWh,1,2,3,4,5,6,1,6,3\r\n", 2},
  };
  for (const auto& c : cases) {
    try {
      ParseReference("reference.csv", c.bytes);
      ADD_FAILURE() << c.bytes;
    } catch (const FileError& error) {
      EXPECT_EQ(error.line(), c.line) << c.bytes;
    }
  }
}

TEST(Reference, EachQuantityInTheTablesUnit) {
  const VolumeSummary v{1, 4321, 5876, 3184, 6024, -12.5, 25.25, 64.5};
  const struct {
    const char* quantity;
    double expected;
  } cases[] = {
      {"annual_heating", 4.321},
      {"annual_sensible_cooling", 5.876},
      {"peak_heating", 3.184},
      {"peak_sensible_cooling", 6.024},
      {"annual_max_zone_temperature", 64.5},
      {"annual_min_zone_temperature", -12.5},
      {"annual_mean_zone_temperature", 25.25},
  };
  for (const auto& c : cases) EXPECT_DOUBLE_EQ(*QuantityValue(v, c.quantity), c.expected);
  EXPECT_FALSE(QuantityValue(v, "annual_fan_energy"));
  EXPECT_EQ(BestestCaseFolder("600FF"), "c600ff");
}

// Hand-made results of the modules: in the range, outside, missing, stale.
struct HandMadeProject {
  void Case(const std::string& name, const std::string& volume_line,
            const std::string& flags = "------") {
    WriteBytes(dir / name + "/THERMAL.INP", flags + "\r\n");
    WriteBytes(dir / name + "/MUK.SUM", "ZELMO-QRN MUK 00000000000000ff\r\n" +
                                            std::string(kSummaryColumns) + "\r\n" + volume_line +
                                            "\r\n");
  }
  TempDir dir;
};

TEST(Reference, ComparesEachRowWithTheRangeOfTheSixPrograms) {
  const ReferenceTable table = ParseReference("reference.csv", kTwoRows);
  HandMadeProject p;
  // Just inside at the lower bound of heating; the minimum 0.1 K below the
  // lower bound.
  p.Case("c600", "1\t3990.000\t0\t0\t0\t0\t0\t0");
  p.Case("c600ff", "1\t0\t0\t0\t0\t-13.900\t25\t60");
  auto rows = CompareWithReference(table, p.dir.path());
  ASSERT_EQ(rows.size(), 2u);
  EXPECT_TRUE(rows[0].Inside());
  EXPECT_DOUBLE_EQ(*rows[0].value, 3.99);
  EXPECT_FALSE(rows[1].Inside());
  EXPECT_DOUBLE_EQ(*rows[1].value, -13.9);
  EXPECT_EQ(ComparisonMarkdown(table, rows),
            "| Case | Quantity | Unit | ZELMO-QRN | BSIMAC | CSE | DeST | EnergyPlus | ESP-r | "
            "TRNSYS | min | max | Range |\n"
            "|---|---|---|---:|---:|---:|---:|---:|---:|---:|---:|---:|---|\n"
            "| 600 | annual_heating | MWh | **3.990** | 4.050 | 3.990 | 4.050 | 4.320 | 4.360 | "
            "4.500 | 3.990 | 4.500 | inside |\n"
            "| 600FF | annual_min_zone_temperature | degC | **-13.90** | -13.00 | -12.00 | "
            "-11.00 | -10.00 | -9.90 | -13.80 | -13.80 | -9.90 | OUTSIDE |\n");
  // The upper bound passes; results a screen has since made stale, or
  // none, are no value.
  p.Case("c600", "1\t4500.000\t0\t0\t0\t0\t0\t0", "-----X");
  DeleteFile(p.dir / "c600ff/MUK.SUM");
  rows = CompareWithReference(table, p.dir.path());
  EXPECT_FALSE(rows[0].value);
  EXPECT_EQ(rows[0].problem.substr(0, 14), "stale results:");
  EXPECT_EQ(rows[1].problem.substr(0, 11), "no results:");
  p.Case("c600", "1\t4500.000\t0\t0\t0\t0\t0\t0");
  rows = CompareWithReference(table, p.dir.path());
  EXPECT_TRUE(rows[0].Inside());
  EXPECT_EQ(ComparisonCsv(table, rows),
            "case,quantity,unit,ZELMO-QRN,BSIMAC,CSE,DeST,EnergyPlus,ESP-r,TRNSYS,min,max,range\n"
            "600,annual_heating,MWh,4.500,4.050,3.990,4.050,4.320,4.360,4.500,3.990,4.500,inside\n"
            "600FF,annual_min_zone_temperature,degC,,-13.00,-12.00,-11.00,-10.00,-9.90,-13.80,"
            "-13.80,-9.90,no results: " +
                (p.dir / "c600ff/MUK.SUM") + " is missing; run the case first\n");
}

}  // namespace
}  // namespace zelmo::testing
