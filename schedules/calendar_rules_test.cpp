#include "schedules/calendar_rules.h"

#include <gtest/gtest.h>

#include <tuple>
#include <utility>

#include "building/surface_file.h"
#include "core/controls.h"
#include "core/fields.h"
#include "schedules/hvac_delivery.h"

namespace zelmo {
namespace {

TEST(CalendarRules, PeriodsThatShareABorderDayOverlapAndTheMonthLengths) {
  std::vector<std::string> items = {"1/3-31/3", "1/6- 30/6"};
  DateTable table = BuildDateTable(items);
  for (auto [item, overlaps] : {std::pair{"31/3-5/4", true}, {"1/4-5/4", false}}) {
    DateTable period = BuildDateTable({item});
    EXPECT_EQ(DailyOverlap(table, period.start[0], period.end[0]), overlaps) << item;
  }
  EXPECT_TRUE(DailyOverlap(table, DateKey(1, 1), DateKey(31, 12)));
  // An edited period is not held against itself.
  EXPECT_FALSE(DailyOverlap(BuildDateTable(items, 0), DateKey(1, 3), DateKey(31, 3)));

  EXPECT_TRUE(MonthOverlap({"1-3", "6-6"}, 3, 4));
  EXPECT_FALSE(MonthOverlap({"1-3", "6-6"}, 4, 5));
  EXPECT_FALSE(MonthOverlap({"1-3", "6-6"}, 6, 7, 1));
  EXPECT_EQ(CheckMonthlyPeriod({"1-3"}, 2, 2).text, "\rDaily intervals are overlapping");

  auto hours = HourCoverage({"01-03", "", "23-24"});
  EXPECT_TRUE(hours[1] && hours[3] && hours[24]);
  EXPECT_FALSE(hours[4] || hours[22]);

  // February has 29 days when typed, 28 on the spin buttons, 29 in a
  // delivered leap year.
  EXPECT_EQ(TypedMonthLength(2), 29);
  const int spin[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  for (int month = 1; month <= 12; ++month) EXPECT_EQ(SpinMonthLength(month), spin[month - 1]);
}

TEST(CalendarRules, DailyPeriodMessagesInTheirOrderWithTheFirstFieldAtFault) {
  DateTable table = BuildDateTable({"1/12-31/12"});
  struct Case {
    std::vector<std::string> fields;  // start day, start month, end day, end month
    std::string text;
    PeriodField focus;
  } cases[] = {
      {{"29", "2", "29", "2"}, "", kNoField},  // "29/2" in any year
      {{" 1", " 1", " 1", " 1"}, "", kNoField},
      {{"1", "11", "1", "12"}, "\rDaily intervals are overlapping", kStartDay},
      {{"1", "13", "1", "0"},
       "\rStart/Month must be a value (1 - 12)\rEnd/Month must be a value (1 - 12)"
       "\rStart/Month > End/Month",
       kStartMonth},
      {{"31", "2", "31", "4"},
       "\rStart/Day must be a value (1 - 29)\rEnd/Day must be a value (1 - 30)",
       kStartDay},
      {{"1", "5", "x", "+6"}, "\rEnd/Month must be a value (1 - 12)", kEndMonth},
      {{"1", "5", "1.5", "6"}, "\rEnd/Day must be a value (1 - 30)", kEndDay},
      {{"20", "5", "10", "5"}, "\rStart/Day > End/Day", kStartDay},
  };
  for (const auto& k : cases) {
    auto faults = CheckDailyPeriod(k.fields[0], k.fields[1], k.fields[2], k.fields[3], table);
    EXPECT_EQ(faults.text, k.text) << k.fields[0] << "/" << k.fields[1];
    EXPECT_EQ(faults.focus, k.focus) << k.fields[0] << "/" << k.fields[1];
  }
}

TEST(CalendarRules, TheHourlyInputFormChecksItsFieldsInOrder) {
  std::array<bool, kHours + 1> covered{};
  covered[4] = covered[5] = covered[6] = true;
  struct Case {
    std::array<std::string, 8> fields;
    std::string text;
    int focus;
  } cases[] = {
      {{"1", "3", "", "", "", "", "", ""}, "", 0},
      {{"25", "0"},
       "\rStart must be a value ( 1 -  24)\rEnd must be a value ( 1 -  24)\rStart must be <= End ",
       1},
      {{"6", "8"}, "\rHourly intervals are overlapping ", 1},
      {{"9", "7", "501", "-1"},
       "\rStart must be <= End \rInfiltration must be empty or a value ( 0 -  500)"
       "\rPower Heating must be empty or a value ( 0 -  1000000)",
       1},
      // Each value at its lower bound, then at its upper one.
      {{"7", "24", "0", "0", "-100", "0", "-100", "-99999"}, "", 0},
      {{"7", "24", "500", "1000000", "100", "1000000", "100", "999999"}, "", 0},
      {{"1", "2", "", "", "-101", "", "+-1", "1e3"},
       "\rHeating must be empty or a value (-100 -  100)"
       "\rCooling must be empty or a value (-100 -  100)"
       "\rInternal Loads must be empty or a value (-99999 -  999999)",
       5},
  };
  for (const auto& k : cases) {
    auto faults = CheckHourlyInput(k.fields, covered, true);
    EXPECT_EQ(faults.text, k.text) << k.fields[0];
    EXPECT_EQ(faults.focus, k.focus) << k.fields[0];
  }
  EXPECT_TRUE(CheckHourlyInput({"6", "8"}, covered, false).ok());
}

// HVACGRID1 with the TAB-separated columns 1 to 8 of rows 1, 2, ...
void SetLoads(Grid& grid, const std::vector<std::string>& rows) {
  grid.SetRows(0);
  grid.SetCols(9);
  grid.SetRows(25);
  for (size_t r = 0; r < rows.size(); ++r) {
    auto cells = SplitTabs(rows[r]);
    for (size_t c = 0; c < cells.size(); ++c) grid.Cell(static_cast<int>(r) + 1, c + 1) = cells[c];
  }
}

TEST(CalendarRules, CheckCellsNamesTheFirstCellAtFaultColumnByColumn) {
  const std::string whole = "Number should be greater or equal 0 with no decimals. ";
  const std::string flow =
      "Number should be a positive real number with max 4 digits (including the decimalpoint)";
  const std::string percent =
      "Number should be greater or equal 0 and less or equal 100 with no decimals";
  struct Case {
    std::vector<std::string> rows;  // TAB-separated columns 1 to 8 of rows 1, 2, ...
    int row, col;
    std::string message;
  } cases[] = {
      {{"1000\t-5\t2000\t25\t300\t12.5\t1234\t100", "X\t\t \t\t\t.5\t\t"}, 0, 0, ""},
      {{"\t\t\t\t\t\t\t50.5", "1.5"}, 2, 1, whole},
      {{"\t\t\t\t-1"}, 1, 5, whole},
      {{"\t5-", "\t-"}, 1, 2, "Number should have no decimals. "},
      {{"\t-", "\t\t\t2.5"}, 1, 2, "Number should have no decimals. "},
      {{"\t21\t\t20", "\t22\t\t", "\t\t\t20"}, 1, 2, "Heating should be less or equal to Cooling."},
      // Every column at its lowest, and heating equal to cooling.
      {{"0\t-100\t0\t-100\t0\t0\t0\t0", "\t21\t\t21"}, 0, 0, ""},
      {{"\t\t\t\t\t12345"}, 1, 6, flow},
      {{"\t\t\t\t\t\t.5."}, 1, 7, flow},
      {{"\t\t\t\t\t-1\t101"}, 1, 6, flow},
      {{"\t\t\t\t\t\t\t101"}, 1, 8, percent},
      {{"\t\t\t\t\t\t\t50.5"}, 1, 8, percent},
  };
  Form form("HVAC");
  Grid grid(&form, "HVACGRID1");
  for (const auto& k : cases) {
    SetLoads(grid, k.rows);
    auto fault = CheckCells(grid, CellMode::kLoads);
    EXPECT_EQ(fault ? fault->message : "", k.message) << k.rows[0];
    EXPECT_EQ(fault ? std::make_pair(fault->row, fault->col) : std::make_pair(0, 0),
              std::make_pair(k.row, k.col));
  }
  // The fill row is one row whose columns 2 to 9 are the columns 1 to 8; the
  // openings view checks every pair column as a percentage.
  Grid fill(&form, "HVACGRID1_Fill");
  fill.fixed_rows = 0;
  fill.SetCols(10);
  fill.SetRows(1);
  fill.Cell(0, 0) = "1.5";
  fill.Cell(0, 9) = "x";
  EXPECT_FALSE(CheckCells(fill, CellMode::kLoadsFill));
  fill.Cell(0, 3) = "3.5";
  EXPECT_EQ(CheckCells(fill, CellMode::kLoadsFill)->col, 3);
  Grid openings(&form, "HVACGRID2");
  openings.SetCols(3);
  openings.SetRows(25);
  openings.Cell(24, 2) = "101";
  auto fault = CheckCells(openings, CellMode::kOpenings);
  EXPECT_EQ(std::make_pair(fault->row, fault->col), std::make_pair(24, 2));
  EXPECT_EQ(fault->message, percent);
}

TEST(CalendarRules, FillSetsTheChosenRowsAndXEmpties) {
  Form form("HVAC");
  Grid grid(&form, "HVACGRID1");
  SetLoads(grid, {"1\t2\t3", "1\t2\t3", "1\t2\t3", "1\t2\t3"});
  Grid fill(&form, "HVACGRID1_Fill");
  fill.fixed_rows = 0;
  fill.SetCols(10);
  fill.SetRows(1);
  for (auto [start, end] : {std::pair{"0", "2"}, {"1", "25"}, {"3", "2"}}) {
    fill.Cell(0, 0) = start;
    fill.Cell(0, 1) = end;
    fill.Cell(0, 2) = "9";
    bool done = FillRows(fill, grid);
    EXPECT_EQ(done, std::string(start) == "3") << start << "-" << end;
    EXPECT_EQ(grid.Cell(1, 1), "1");
  }
  fill.Cell(0, 0) = "2";
  fill.Cell(0, 1) = "3";
  fill.Cell(0, 3) = "x";
  fill.Cell(0, 4) = "X5";
  fill.Cell(0, 9) = "100";
  ASSERT_TRUE(FillRows(fill, grid));
  for (int row = 1; row <= 4; ++row) {
    bool filled = row == 2 || row == 3;
    EXPECT_EQ(grid.Cell(row, 1), filled ? "9" : "1");
    EXPECT_EQ(grid.Cell(row, 2), filled ? "" : "2");
    EXPECT_EQ(grid.Cell(row, 3), filled ? "" : "3");
    EXPECT_EQ(grid.Cell(row, 4), "");
    EXPECT_EQ(grid.Cell(row, 8), filled ? "100" : "");
  }
  EXPECT_EQ(grid.Cell(2, 0), "2");
  // The last hours of the day, up to the 24th.
  fill.Cell(0, 0) = "20";
  fill.Cell(0, 1) = "24";
  ASSERT_TRUE(FillRows(fill, grid));
  for (int row = 19; row <= 24; ++row) {
    EXPECT_EQ(grid.Cell(row, 1) + "|" + grid.Cell(row, 8), row < 20 ? "|" : "9|100") << row;
    EXPECT_EQ(grid.Cell(row, 0), row < 20 ? "" : std::to_string(row));
  }
}

TEST(CalendarRules, OpeningsJoinVolumesOnBothSidesOfARectangleWithAHole) {
  SurfaceTable table;
  auto element = [&](int slot, const char* shape, const char* front, const char* back) {
    table.SurfName[slot] = "E" + std::to_string(slot);
    table.SurfData[slot][1] = shape;
    table.SurfData[slot][7] = front;
    table.SurfData[slot][8] = back;
    table.SurfCount = slot;
  };
  element(1, "2", "3", "1");
  element(2, "0", "1", "2");
  element(3, "2", "0", "2");
  element(4, "2", "5", "3");
  PairTable connected = BuildPairConnected(table, {"1", "3", "5"});
  EXPECT_TRUE(connected[1][2]);  // volumes 1 and 3, the first and the second
  EXPECT_TRUE(connected[2][3]);
  EXPECT_FALSE(connected[1][3] || connected[2][1]);
}

TEST(HvacDelivery, EachCalendarTypeAsTheModulesReadIt) {
  ScheduleStore store;
  store.VolumeCount = 3;
  store.HeatExchangerEfficiency = "85";
  store.HasBypass = true;
  store.InternalLoadFile = " /l/a.ILD ";
  store.ScheduleName(1) = "Office";
  store.HourCell(1, 1, kWeekendSlot, 1, 1) = " 800 ";
  store.HourCell(1, 1, kWeekendSlot, 1, PairColumn(2, 3, 3)) = "40";
  store.PeriodType(1, 2) = kDaily;
  store.PeriodCount(1, 2, kDaily) = 1;
  store.PeriodDates(1, 2, 1, 1) = "1/3";
  store.PeriodDates(1, 2, 1, 2) = "31/10";
  store.PeriodType(1, 3) = kMonthly;
  store.PeriodCount(1, 3, kMonthly) = 2;
  store.PeriodDates(1, 3, 8, 1) = "1";
  store.PeriodDates(1, 3, 8, 2) = "2";
  store.PeriodDates(1, 3, 9, 1) = "4";
  store.PeriodDates(1, 3, 9, 2) = "11";
  auto lines = HvacDeliveryLines(store, 2024);
  ASSERT_EQ(lines.size(), 3u + 2 + 2 * 26 + 2 + 26 + 2 + 2 * 26);
  EXPECT_EQ(lines[0], " 0\t 1\t 85\t 1\t");
  EXPECT_EQ(lines[1], "/l/a.ILD");
  EXPECT_EQ(lines[2], "Office");
  EXPECT_EQ(lines[4], " 2");
  EXPECT_EQ(lines[5], "1\t1\t30\t6");
  // 28 pair columns whatever the volumes: (2, 3) is the eighth of them.
  std::string pairs;
  for (int n = 1; n <= 28; ++n)
    pairs += std::string(n == 8 ? "40" : "0") + (n < 28 ? "\t\t" : "\t");
  EXPECT_EQ(lines[7], "1\t1\t800\t-1E+20\t1E+20\t1E+20\t0\t0\t0\t0\t" + pairs);
  EXPECT_EQ(lines[31], "1\t7\t31\t12");
  EXPECT_EQ(lines[58], " 1");
  EXPECT_EQ(lines[59], "1\t3\t31\t10");
  EXPECT_EQ(lines[85], " 1\t1E+20\t1E+20");  // Monthly goes out as Daily
  EXPECT_EQ(lines[87], "01\t1\t29\t2");
  EXPECT_EQ(lines[113], "01\t4\t30\t11");
  // A period that ends in February ends on its last day in the year run,
  // the 29th in 2000 as in every fourth year.
  for (const auto& [year, line] : {std::pair{2023, "01\t1\t28\t2"}, {2000, "01\t1\t29\t2"}}) {
    EXPECT_EQ(HvacDeliveryLines(store, year)[87], line) << year;
  }
  // The bypass goes out only with a heat exchanger to pass by.
  for (const auto& [exchanger, bypass, line] : {std::tuple{true, true, " 0\t 1\t 85\t 1\t"},
                                                {true, false, " 0\t 1\t 85\t 0\t"},
                                                {false, true, " 0\t 0\t 85\t 0\t"},
                                                {false, false, " 0\t 0\t 85\t 0\t"}}) {
    store.HasHeatExchanger = exchanger;
    store.HasBypass = bypass;
    EXPECT_EQ(HvacDeliveryLines(store, 2024)[0], line) << exchanger << bypass;
  }
}

}  // namespace
}  // namespace zelmo
