#include "modules/dat4.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <sstream>

#include "core/text_file.h"
#include "modules/dat3.h"

namespace zelmo::modules {
namespace {

std::string Testdata(const std::string& name) {
  std::ifstream in(
      std::string(std::getenv("ZELMO_SOURCE_DIR")) + "/simulation/testdata/Case1/" + name,
      std::ios::binary);
  std::stringstream s;
  s << in.rdbuf();
  return s.str();
}

TEST(Dat3, ReadsThePeriodSiteAndCurtainScheduleOfTheWrittenInput) {
  Dat3 d = ParseDat3("DAT3.DAT", Testdata("DAT3.DAT"));
  EXPECT_EQ(d.headline, "Office room in Stockholm");
  EXPECT_EQ(d.rotation, 0);
  EXPECT_DOUBLE_EQ(d.latitude, 39.83);
  EXPECT_DOUBLE_EQ(d.longitude, -104.65);
  EXPECT_DOUBLE_EQ(d.meridian, -105);
  EXPECT_EQ(d.first_month, 7);
  EXPECT_EQ(d.last_day, 31);
  ASSERT_TRUE(d.has_curtains);
  ASSERT_EQ(d.months.size(), 1u);
  EXPECT_EQ(d.months[0].mode, 2);
  EXPECT_FALSE(d.months[0].hours[8]);
  EXPECT_TRUE(d.months[0].hours[9]);
  EXPECT_TRUE(d.months[0].hours[17]);
  EXPECT_FALSE(d.months[0].hours[18]);
}

TEST(Dat3, RefusesDamageNamingTheLine) {
  const std::string head = "H\r\n     0.000\r\n    59.350    18.070    15.000\r\n";
  struct Row {
    std::string dates;
    int line;
    const char* what;
  };
  const Row rows[] = {
      {"  2001.000\r\n     7.000\r\n", 6, "past end"},
      {"  2001.000\r\n    13.000\r\n     1.000\r\n  2001.000\r\n     7.000\r\n    31.000\r\n", 5,
       "first month out of range"},
      {"  2001.000\r\n     2.000\r\n    29.000\r\n  2001.000\r\n     7.000\r\n    31.000\r\n", 6,
       "first day does not exist"},
      {"  2001.000\r\n     7.000\r\n     1.000\r\n  2001.000\r\n     6.000\r\n    30.000\r\n", 9,
       "the period ends before it starts"},
      {"  2001.000\r\n     7.000\r\n     1.000\r\n  2001.000\r\n     7.000\r\n    3x.000\r\n", 9,
       "\"3x.000\" is no number"},
      {"  2001.000\r\n     7.000\r\n     1.000\r\n  2001.000\r\n     7.000\r\n    31.000\r\n"
       "     2.000\r\n0 0 1 \r\n",
       11, "an hourly curtain mask is damaged"},
  };
  for (const auto& row : rows) {
    try {
      ParseDat3("DAT3.DAT", head + row.dates);
      ADD_FAILURE() << row.what;
    } catch (const FileError& e) {
      EXPECT_EQ(e.line(), row.line) << row.what;
      EXPECT_NE(std::string(e.what()).find(row.what), std::string::npos) << e.what();
    }
  }
  // February 29 exists in a leap year.
  EXPECT_NO_THROW(ParseDat3("DAT3.DAT", head + "  2004.000\r\n     2.000\r\n    29.000\r\n"
                                               "  2004.000\r\n     3.000\r\n     1.000\r\n"));
}

TEST(Dat4, ReadsControlOutputsScheduleVentilationAndCurtainsOfTheWrittenInput) {
  Dat4 d = ParseDat4("DAT4.DAT", Testdata("DAT4.DAT"), 2);
  EXPECT_EQ(d.accuracy, 2);
  EXPECT_FALSE(d.no_sun);
  EXPECT_FALSE(d.fixed_temperature);
  EXPECT_EQ(d.climate_file, "Climate/DenverCO(US).CLI");
  EXPECT_TRUE(d.external_ir);
  EXPECT_EQ(d.loops, 20);
  EXPECT_EQ(d.output_type, 2);
  EXPECT_DOUBLE_EQ(d.soil_resistance, 1.87);
  EXPECT_DOUBLE_EQ(d.exterior_film, 11);
  EXPECT_DOUBLE_EQ(d.interior_film, -1);
  EXPECT_DOUBLE_EQ(d.ground_reflectivity, 0.2);
  EXPECT_EQ(d.outputs, (std::vector<std::vector<int>>{{1, 2, 3}, {1, 2, 3}}));
  EXPECT_TRUE(d.comfort[0]);
  EXPECT_FALSE(d.comfort[1]);
  EXPECT_TRUE(d.heat_exchanger);
  EXPECT_DOUBLE_EQ(d.heat_exchanger_efficiency, 0.85);
  EXPECT_EQ(d.schedule_name, "Office_week");
  ASSERT_EQ(d.hvac.size(), 2u);
  const auto& v1 = d.hvac[0];
  EXPECT_EQ(v1.type, 0);
  ASSERT_EQ(v1.periods.size(), 2u);
  EXPECT_EQ(v1.periods[0].hours[0][kMaxHeating], 1e20);
  EXPECT_EQ(v1.periods[0].hours[0][kHeatingSetpoint], 16);
  EXPECT_EQ(v1.periods[0].hours[0][kCoolingSetpoint], 28);
  EXPECT_EQ(v1.periods[0].hours[0][OpeningColumn(1, 2)], 100);
  EXPECT_EQ(d.forced, (std::vector<std::vector<double>>{{-25, 25}, {-25}}));
  EXPECT_EQ(d.curtain_mode, 0);
  ASSERT_EQ(d.curtains.size(), 1u);
  EXPECT_DOUBLE_EQ(d.curtains[0].absorptance, 0.2);
  EXPECT_DOUBLE_EQ(d.curtains[0].resistance, 0.05);
  EXPECT_DOUBLE_EQ(d.curtains[0].transmittance, 0.4);
}

TEST(Dat4, RefusesAFileForAnotherBuildingOrCutShort) {
  const std::string bytes = Testdata("DAT4.DAT");
  EXPECT_THROW(ParseDat4("DAT4.DAT", bytes, 3), FileError);
  EXPECT_THROW(ParseDat4("DAT4.DAT", bytes.substr(0, bytes.size() / 2), 2), FileError);
}

TEST(Dat4, TheScheduleRowFollowsTheDayKindOrTheDates) {
  HvacVolume week;
  week.type = 0;
  week.periods.resize(2);
  week.periods[0].hours[3][kInternalLoad] = 1;  // weekend
  week.periods[1].hours[3][kInternalLoad] = 2;  // weekday
  // 2026-11-28 is a Saturday, 2026-11-30 a Monday.
  EXPECT_EQ(Weekday(2026, 11, 28), 5);
  EXPECT_EQ(Weekday(2026, 11, 30), 0);
  EXPECT_EQ(Weekday(2000, 1, 1), 5);
  EXPECT_EQ((*week.Row(11, 28, 5, 4))[kInternalLoad], 1);
  EXPECT_EQ((*week.Row(11, 30, 0, 4))[kInternalLoad], 2);
  HvacVolume daily;
  daily.type = 1;
  daily.periods.resize(1);
  daily.periods[0].start_day = 1;
  daily.periods[0].start_month = 3;
  daily.periods[0].end_day = 31;
  daily.periods[0].end_month = 3;
  EXPECT_NE(daily.Row(3, 1, 0, 1), nullptr);
  EXPECT_NE(daily.Row(3, 31, 0, 24), nullptr);
  EXPECT_EQ(daily.Row(2, 28, 0, 1), nullptr);
  EXPECT_EQ(daily.Row(4, 1, 0, 1), nullptr);
  EXPECT_EQ(OpeningColumn(1, 2), 8);
  EXPECT_EQ(OpeningColumn(7, 8), 35);
}

}  // namespace
}  // namespace zelmo::modules
