#include "tools/results/diagram.h"

#include <gtest/gtest.h>

namespace zelmo::results {
namespace {

HourlyTable ThreeDays() {
  return ParseHourlyTable(
      "HOURLY.TXT",
      "Month\tDay\tHour\tT_out [C]\tV1 T_air [C]\tV1 Heating [W]\tV1 Sol_in [W]\r\n"
      "1\t31\t24\t-2.00\t20.00\t500.00\t0.00\r\n"
      "2\t1\t1\t-3.00\t19.50\t650.25\t0.00\r\n"
      "2\t1\t24\t-4.00\t19.00\t700.00\t0.00\r\n"
      "2\t2\t1\t-5.00\t18.75\t710.00\t1.50\r\n");
}

TEST(DiagramTest, DatesAndPeriods) {
  struct Case {
    const char* text;
    bool valid;
  };
  for (Case c : {Case{"1.1", true}, Case{"31.12", true}, Case{"28.2", true}, Case{"29.2", false},
                 Case{"0.1", false}, Case{"1.13", false}, Case{"1", false}, Case{"a.b", false},
                 Case{"1.1.", false}}) {
    EXPECT_EQ(ParseDate(c.text).has_value(), c.valid) << c.text;
  }
  Period day = DayPeriod({2, 1});
  EXPECT_EQ(day.first_hour, 31 * 24 + 1);
  EXPECT_EQ(day.last_hour, 32 * 24);
  Period week = WeekPeriod({12, 28});
  EXPECT_EQ(week.first_hour, 361 * 24 + 1);
  EXPECT_EQ(week.last_hour, 8760);
  EXPECT_EQ(MonthPeriod(2).first_hour, 31 * 24 + 1);
  EXPECT_EQ(MonthPeriod(2).last_hour, 59 * 24);
  Period dates = DatesPeriod({3, 1}, {1, 15});
  EXPECT_EQ(dates.first_hour, 14 * 24 + 1);
  EXPECT_EQ(dates.last_hour, 60 * 24);
  Date last = DateOfHour(8760);
  EXPECT_EQ(last.month, 12);
  EXPECT_EQ(last.day, 31);
  Date feb = DateOfHour(31 * 24 + 1);
  EXPECT_EQ(feb.month, 2);
  EXPECT_EQ(feb.day, 1);
}

TEST(DiagramTest, SeriesHoldTheTableValuesAtTheTableHoursOfThePeriod) {
  HourlyTable table = ThreeDays();
  std::vector<Series> lines = BuildSeries(table, {1, 2}, DayPeriod({2, 1}));
  ASSERT_EQ(lines.size(), 2u);
  EXPECT_EQ(lines[0].name, "V1 air temp. [C]");
  EXPECT_EQ(lines[1].name, "V1 heating [W]");
  using Points = std::vector<std::pair<double, double>>;
  EXPECT_EQ(lines[0].points, (Points{{745, 19.5}, {768, 19.0}}));
  EXPECT_EQ(lines[1].points, (Points{{745, 650.25}, {768, 700.0}}));
}

TEST(DiagramTest, CsvIsTheChosenSlice) {
  HourlyTable table = ThreeDays();
  EXPECT_EQ(SliceCsv(table, {0, 3}, DatesPeriod({2, 1}, {2, 2})),
            "Month,Day,Hour,T_out [C],V1 Sol_in [W]\r\n"
            "2,1,1,-3.00,0.00\r\n"
            "2,1,24,-4.00,0.00\r\n"
            "2,2,1,-5.00,1.50\r\n");
  EXPECT_EQ(SliceCsv(table, {}, DayPeriod({3, 1})), "Month,Day,Hour\r\n");
}

TEST(DiagramTest, LegendNames) {
  EXPECT_EQ(SeriesName(ParseColumn("T_out [C]")), "Outdoor temp. [C]");
  EXPECT_EQ(SeriesName(ParseColumn("V3 Sol_abs [W]")), "V3 solar absorbed [W]");
  EXPECT_EQ(SeriesName(ParseColumn("Other")), "Other");
}

TEST(DiagramTest, DefaultColumnsAreTemperaturesHeatingAndCooling) {
  EXPECT_EQ(DefaultColumns(ThreeDays()), (std::vector<int>{1, 2}));
}

TEST(DiagramTest, TitleNamesProjectAndCase) {
  EXPECT_EQ(CaseTitle("/data/ZELMOPROJ/office/case1/"), "Project office, case case1");
  EXPECT_EQ(CaseTitle("/data/ZELMOPROJ/office/case1"), "Project office, case case1");
}

}  // namespace
}  // namespace zelmo::results
