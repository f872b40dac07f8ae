#include "modules/dane.h"

#include <gtest/gtest.h>

#include "core/text_file.h"
#include "modules/muk.h"

namespace zelmo::modules {
namespace {

DaneResult Sample() {
  DaneResult r;
  r.elevation = 1650;
  r.ground = 9.75;
  r.outside = {0, 3, 4};
  r.windows = {{4, 2}};
  for (int hour = 1; hour <= 2; ++hour) {
    DaneHour h;
    h.year = 1995;
    h.month = 1;
    h.day = 1;
    h.hour = hour;
    h.outdoor = -18.5 + hour;
    h.sky = -40.25;
    h.wind = 3.5;
    h.curtain = hour == 2;
    h.surfaces = {1, 2, 3, 4, 5, 6, 7, 8, 9.125};
    h.windows = {10, 11, 12, 13, 14, 15, 16};
    r.hours.push_back(h);
  }
  return r;
}

TEST(DaneResult, ItsLinesReadBackToTheSameHours) {
  DaneResult r = Sample();
  auto lines = DaneResultLines(r);
  ASSERT_EQ(lines.size(), 5u);
  EXPECT_EQ(lines[0], "Dane\t2\t3\t1\t1650\t9.75");
  EXPECT_EQ(lines[1], "Outside\t0\t3\t4");
  EXPECT_EQ(lines[2], "Window\t4\t2");
  EXPECT_EQ(lines[3],
            "1995\t1\t1\t1\t-17.5\t-40.25\t3.5\t0\t1\t2\t3\t4\t5\t6\t7\t8\t9."
            "125\t10\t11\t12\t13\t14\t15\t16");
  DaneResult back = ParseDaneResult("DANE.RES", lines);
  ASSERT_EQ(back.hours.size(), 2u);
  EXPECT_EQ(back.hours[1].curtain, true);
  EXPECT_EQ(back.hours[1].outdoor, -16.5);
  EXPECT_EQ(back.hours[1].surfaces, r.hours[1].surfaces);
  EXPECT_EQ(back.hours[1].windows, r.hours[1].windows);
  EXPECT_EQ(back.WindowOffset(1), 7u);
}

TEST(DaneResult, ADamagedFileIsRefusedAtItsLine) {
  auto good = DaneResultLines(Sample());
  struct Row {
    int line;  // 0-based among the lines after the head line
    std::string text;
    const char* what;
  };
  const Row rows[] = {
      {0, "Dane\t3\t3\t1\t1650\t9.75", "past end"},
      {0, "Dane\t2\t3\t4\t1650\t9.75", "out of range"},
      {1, "Outside\t0\t3", "list of outside surfaces"},
      {2, "Window\t4", "window line"},
      {3, "1995\t1\t1\t1\t-17.5", "wrong number of values"},
      {4,
       "1995\t13\t1\t2\t-17.5\t-40.25\t3."
       "5\t0\t1\t2\t3\t4\t5\t6\t7\t8\t9\t10\t11\t12\t13\t14\t15\t16",
       "out of range"},
      {4, "1995\t1\t1\t2\tx\t-40.25\t3.5\t0\t1\t2\t3\t4\t5\t6\t7\t8\t9\t10\t11\t12\t13\t14\t15\t16",
       "no number"},
  };
  for (const auto& row : rows) {
    auto lines = good;
    lines[row.line] = row.text;
    try {
      ParseDaneResult("DANE.RES", lines);
      ADD_FAILURE() << row.text;
    } catch (const FileError& e) {
      EXPECT_NE(std::string(e.what()).find(row.what), std::string::npos) << e.what();
    }
  }
  auto longer = good;
  longer.push_back(good.back());
  EXPECT_THROW(ParseDaneResult("DANE.RES", longer), FileError);
}

TEST(MukSummary, LinesHoldTheAgreedHeaderAndThreeDecimals) {
  MukSummary s{2, 4321.5, 0, 3350.25, 0, -12.3456, 24.5, 64.0};
  auto lines = MukSummaryLines({s});
  ASSERT_EQ(lines.size(), 2u);
  EXPECT_EQ(lines[0],
            "Volume\tHeating [kWh]\tCooling [kWh]\tPeak heating [W]\tPeak cooling [W]\tT_min "
            "[C]\tT_mean [C]\tT_max [C]");
  EXPECT_EQ(lines[1], "2\t4321.500\t0.000\t3350.250\t0.000\t-12.346\t24.500\t64.000");
}

}  // namespace
}  // namespace zelmo::modules
