#include "tools/results/hourly_table.h"

#include <gtest/gtest.h>

#include "core/text_file.h"
#include "tools/results/diagram.h"

namespace zelmo::results {
namespace {

const char* const kTable =
    "Month\tDay\tHour\tT_out [C]\tV1 T_air [C]\tV1 Heating [W]\tV2 Cooling [W]\r\n"
    "1\t1\t1\t-3.50\t19.80\t1250.00\t0.00\r\n"
    "1\t1\t2\t-4.00\t19.60\t1300.50\t0.00\r\n"
    "1\t2\t1\t-1.25\t20.10\t900.00\t12.75\r\n";

TEST(HourlyTableTest, ReadsHeadersStampsAndValues) {
  HourlyTable table = ParseHourlyTable("HOURLY.TXT", kTable);
  ASSERT_EQ(table.columns.size(), 4u);
  EXPECT_EQ(table.columns[0].volume, 0);
  EXPECT_EQ(table.columns[0].quantity, "T_out");
  EXPECT_EQ(table.columns[1].volume, 1);
  EXPECT_EQ(table.columns[1].quantity, "T_air");
  EXPECT_EQ(table.columns[1].unit, "C");
  EXPECT_EQ(table.columns[3].volume, 2);
  EXPECT_EQ(table.columns[3].unit, "W");
  ASSERT_EQ(table.rows(), 3u);
  EXPECT_EQ(HourOfYear(table.stamps[2]), 25);
  EXPECT_DOUBLE_EQ(table.values[2][1], 1300.5);
  EXPECT_DOUBLE_EQ(table.values[0][2], -1.25);
}

TEST(HourlyTableTest, HoursOfTheYearAtTheEdges) {
  EXPECT_EQ(HourOfYear({1, 1, 1}), 1);
  EXPECT_EQ(HourOfYear({3, 1, 1}), (31 + 28) * 24 + 1);
  EXPECT_EQ(HourOfYear({12, 31, 24}), 8760);
}

TEST(HourlyTableTest, DamagedTablesNameTheLine) {
  const std::string head = "Month\tDay\tHour\tV1 T_air [C]\r\n";
  struct Case {
    std::string text;
    int line;
    std::string what;
  };
  const Case cases[] = {
      {"", 1, "The table has no header line."},
      {"Month\tDay\tHour\r\n1\t1\t1\r\n", 1,
       "The header line must start with Month, Day and Hour and name at least one column of "
       "values."},
      {"Day\tMonth\tHour\tX [C]\r\n", 1,
       "The header line must start with Month, Day and Hour and name at least one column of "
       "values."},
      {head, 2, "The table holds no hours."},
      {head + "1\t1\t1\t20.00\t3\r\n", 2, "The line has 5 values where the header names 4."},
      {head + "1\t1\t1\t20.00\r\n1\t1\t2\tabc\r\n", 3,
       "The value of V1 T_air [C] is not a number."},
      {head + "1\t1\t1\t20.00x\r\n", 2, "The value of V1 T_air [C] is not a number."},
      {head + "13\t1\t1\t20.00\r\n", 2, "The month, day or hour is not a date of the year."},
      {head + "2\t29\t1\t20.00\r\n", 2, "The month, day or hour is not a date of the year."},
      {head + "1\t1\t0\t20.00\r\n", 2, "The month, day or hour is not a date of the year."},
      {head + "1\t1\t25\t20.00\r\n", 2, "The month, day or hour is not a date of the year."},
      {head + "1\t1\t1.5\t20.00\r\n", 2, "The month, day or hour is not a date of the year."},
      {head + "1\t1\t2\t20.00\r\n1\t1\t2\t21.00\r\n", 3,
       "The hour does not follow the hour before it."},
      {head + "1\t1\t1\t20.00\r\n\r\n1\t1\t2\t21.00\r\n", 3,
       "An empty line stands among the hours."},
  };
  for (const Case& c : cases) {
    try {
      ParseHourlyTable("HOURLY.TXT", c.text);
      ADD_FAILURE() << "no error for: " << c.text;
    } catch (const FileError& error) {
      EXPECT_EQ(error.line(), c.line) << c.text;
      EXPECT_EQ(std::string(error.what()), c.what) << c.text;
      EXPECT_EQ(error.path(), "HOURLY.TXT");
    }
  }
}

TEST(HourlyTableTest, LimitsJustInsideAreRead) {
  HourlyTable table = ParseHourlyTable(
      "T", "Month\tDay\tHour\tV8 Sol_abs [W]\n2\t28\t24\t-0.01\n12\t31\t24\t1e3\n\n\n");
  ASSERT_EQ(table.rows(), 2u);
  EXPECT_EQ(table.columns[0].volume, 8);
  EXPECT_DOUBLE_EQ(table.values[0][1], 1000.0);
}

TEST(HourlyTableTest, MissingFileIsAnErrorAtLineZero) {
  try {
    ReadHourlyTable("/nonexistent/HOURLY.TXT");
    FAIL();
  } catch (const FileError& error) {
    EXPECT_EQ(error.line(), 0);
  }
}

}  // namespace
}  // namespace zelmo::results
