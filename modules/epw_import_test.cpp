#include "modules/epw_import.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <filesystem>

#include "core/text_file.h"

namespace zelmo::modules {
namespace {

namespace fs = std::filesystem;

const std::string kHeader =
    "LOCATION,TESTTOWN,ST,XXX,TMY3,123456,59.35,18.07,1.0,44.0\r\n"
    "DESIGN CONDITIONS,0\r\n"
    "TYPICAL/EXTREME PERIODS,0\r\n"
    "GROUND TEMPERATURES,0\r\n"
    "HOLIDAYS/DAYLIGHT SAVINGS,No,0,0,0\r\n"
    "COMMENTS 1,test\r\n"
    "COMMENTS 2,test\r\n";

// An hourly EPW line with the values the import takes, the others filled
// as EPW files fill them.
std::string EpwHour(int year, int month, int day, int hour, const std::string& dry = "5.5",
                    const std::string& wind_speed = "3.1") {
  char text[512];
  std::snprintf(text, sizeof text,
                "%d,%d,%d,%d,0,?9?9?9?9E0,%s,-1.2,85,101300,0,1415,300,%d,%d,%d,0,0,0,0,"
                "200,%s,5,5,20.0,7620,9,999999999,0,0.1,0,88,0.2,999.0,99.0\r\n",
                year, month, day, hour, dry.c_str(), 10 * hour, 20 * hour, 5 * hour,
                wind_speed.c_str());
  return text;
}

// The EPW of the days from month/day to month/day of `year`, 24 hours each.
std::string Epw(int year, int first_month, int first_day, int days) {
  std::string text = kHeader;
  int month = first_month, day = first_day;
  std::string body;
  int last_month = month, last_day = day;
  for (int d = 0; d < days; ++d) {
    for (int h = 1; h <= 24; ++h) body += EpwHour(year, month, day, h);
    last_month = month;
    last_day = day;
    const bool leap = year % 4 == 0;
    const int length = month == 2 ? (leap ? 29 : 28) : DaysInMonth(month);
    if (++day > length) {
      day = 1;
      month = month % 12 + 1;
    }
  }
  text += "DATA PERIODS,1,1,Data,Sunday, " + std::to_string(first_month) + "/" +
          std::to_string(first_day) + "," + std::to_string(last_month) + "/" +
          std::to_string(last_day) + "\r\n";
  return text + body;
}

TEST(ParseEpw, TakesTheLocationAndTheHours) {
  EpwImport import = ParseEpw("t.epw", Epw(2001, 7, 1, 2));
  ASSERT_EQ(import.data.hours.size(), 48u);
  EXPECT_TRUE(import.missing.empty());
  // The header and the noon hour of the first day as the climate file has them.
  std::string cli = ClimateFileText(import.data);
  EXPECT_EQ(cli.substr(0, cli.find("Columns:")),
            "01 TESTTOWN climate data, hourly wind included\r\n"
            "Station: TESTTOWN, ST, XXX (TMY3 123456)\r\n"
            "Latitude: 59.35 degrees, positive to the north\r\n"
            "Longitude: 18.07 degrees, positive to the east\r\n"
            "Time meridian: 15 degrees, positive to the east\r\n"
            "Elevation: 44 metres above sea level\r\n"
            "1:st day: 2001.07.01\r\nLast day: 2001.07.02\r\nHours: 48\r\n");
  EXPECT_NE(cli.find("\r\n2001.07.01 12   5.5  -1.2 101300  120  240   60  300 200  3.1\r\n"),
            std::string::npos);
}

TEST(ParseEpw, TheTimeZoneBecomesTheTimeMeridian) {
  struct Case {
    const char* zone;
    double meridian;
  };
  for (Case c : {Case{"-7.0", -105}, Case{"5.5", 82.5}, Case{"-12", -180}, Case{"12", 180}}) {
    std::string text = Epw(2001, 7, 1, 1);
    text.replace(text.find("1.0,44.0"), 3, c.zone);
    EXPECT_DOUBLE_EQ(ParseEpw("t.epw", text).data.header.time_meridian, c.meridian) << c.zone;
  }
}

TEST(ParseEpw, KeepsALeapDayAsItStands) {
  EpwImport import = ParseEpw("t.epw", Epw(1996, 2, 28, 3));
  ASSERT_EQ(import.data.hours.size(), 72u);
  EXPECT_EQ(import.data.hours[24].month, 2);
  EXPECT_EQ(import.data.hours[24].day, 29);
  EXPECT_EQ(import.data.header.last_day, (ClimateDate{1996, 3, 1}));
}

TEST(ParseEpw, ATypicalYearTellsItsPeriodInTheYearOfItsFirstHour) {
  std::string year = kHeader + "DATA PERIODS,1,1,Data,Sunday, 1/1,12/31\r\n";
  for (int month = 1; month <= 12; ++month) {
    const int y = month % 2 ? 1995 : 1990;
    for (int day = 1; day <= (month == 2 ? 28 : DaysInMonth(month)); ++day) {
      for (int h = 1; h <= 24; ++h) year += EpwHour(y, month, day, h);
    }
  }
  EpwImport import = ParseEpw("t.epw", year);
  EXPECT_EQ(import.data.hours.size(), 8760u);
  EXPECT_EQ(import.data.header.first_day, (ClimateDate{1995, 1, 1}));
  EXPECT_EQ(import.data.header.last_day, (ClimateDate{1995, 12, 31}));
  EXPECT_EQ(import.data.hours.back().year, 1990);  // the hours keep their own
}

TEST(ParseEpw, ReportsMissingValuesPerColumnWithTheFirstHour) {
  std::string text = Epw(2001, 7, 1, 2);
  text.replace(text.find(EpwHour(2001, 7, 1, 5)), EpwHour(2001, 7, 1, 5).size(),
               EpwHour(2001, 7, 1, 5, "99.9", "999"));
  text.replace(text.find(EpwHour(2001, 7, 2, 3)), EpwHour(2001, 7, 2, 3).size(),
               EpwHour(2001, 7, 2, 3, "99.9", "4"));
  EpwImport import = ParseEpw("t.epw", text);
  EXPECT_EQ(MissingReport(import),
            (std::vector<std::string>{
                "T_dry[C]: 2 hours without a value, the first 2001.07.01 hour 5",
                "Wind_speed[m/s]: 1 hour without a value, the first 2001.07.01 hour 5"}));
  EXPECT_TRUE(std::isnan(import.data.hours[4].dry_bulb()));
  EXPECT_FALSE(import.data.header.hourly_wind);
  // The file written keeps them unmeasured.
  std::string cli = ClimateFileText(import.data);
  EXPECT_NE(cli.find("2001.07.01  5     ?"), std::string::npos);
  EXPECT_EQ(cli.substr(0, 3), "00 ");
}

TEST(ParseEpw, ADamagedFileIsRefusedWithItsLine) {
  const std::string good = Epw(2001, 7, 1, 2);
  const std::string hour5 = EpwHour(2001, 7, 1, 5);
  struct Case {
    std::string text;
    int line;
    std::string message;
  };
  const Case cases[] = {
      {"Year,Month\r\n1,2\r\n", 1,
       "This is no EnergyPlus weather file: its first line is no LOCATION line"},
      {"", 1, "This is no EnergyPlus weather file: its first line is no LOCATION line"},
      {good.substr(0, good.find("COMMENTS 2")), 7, "The weather file ends in its header"},
      {std::string(good).replace(good.find("1.0,44.0"), 3, "13"), 1,
       "The time zone of the LOCATION line is no number from -12 to 12"},
      {std::string(good).replace(good.find("DATA PERIODS,1,1"), 16, "DATA PERIODS,1,4"), 8,
       "Only a weather file of one record an hour can be imported"},
      // Cut short: the last day's hours end early, or a line is cut.
      {good.substr(0, good.rfind("2001,7,2,20")), 52,
       "The weather file ends before hour 24 of the last day of its data period (7/2)"},
      {good.substr(0, good.rfind(",200,")), 56, "This hour has 20 fields instead of 35"},
      {std::string(good).replace(good.find(hour5), hour5.size(), ""), 13,
       "This hour does not follow the hour before it"},
      {std::string(good).replace(good.find(hour5), hour5.size(), EpwHour(2001, 7, 1, 5, "warm")),
       13, "The value of T_dry[C] is no number"},
      {std::string(good).replace(good.find("2001,7,1,1,"), 11, "2001,6,31,1,"), 9,
       "The date of this hour does not exist"},
  };
  for (const Case& c : cases) {
    try {
      ParseEpw("/in/t.epw", c.text);
      ADD_FAILURE() << "accepted: " << c.message;
    } catch (const FileError& error) {
      EXPECT_EQ(error.what(), c.message);
      EXPECT_EQ(error.line(), c.line) << c.message;
      EXPECT_EQ(error.path(), "/in/t.epw");
    }
  }
}

// The Denver year of the validation cases, beside the sources, and the
// climate file the program tree ships made from it.
std::string DenverEpw() {
  const char* source = std::getenv("ZELMO_SOURCE_DIR");
  for (const char* up : {"/../shared/bestest/", "/../../shared/bestest/"}) {
    std::string path = std::string(source ? source : ".") + up + "725650TYCST.epw";
    if (fs::exists(path)) return path;
  }
  return {};
}
std::string ShippedDenver() {
  const char* source = std::getenv("ZELMO_SOURCE_DIR");
  return std::string(source ? source : ".") + "/system/tree/Climate/DenverCO(US).CLI";
}

TEST(ImportEpw, DenverBecomesTheShippedClimateFile) {
  const std::string epw = DenverEpw();
  if (epw.empty()) GTEST_SKIP() << "the validation cases' weather file is not beside the sources";
  EpwImport import;
  const std::string made = (fs::temp_directory_path() / "zelmo_import_Denver.CLI").string();
  ASSERT_TRUE(ImportEpw(epw, made, &import));
  EXPECT_EQ(import.data.hours.size(), 8760u);
  EXPECT_TRUE(import.missing.empty());
  EXPECT_EQ(ReadAllBytes(made), ReadAllBytes(ShippedDenver()));
  fs::remove(made);
}

TEST(ShippedDenver, ReadsAsAYearOfDenverAndWritesBackUnchanged) {
  const std::string path = ShippedDenver();
  ClimateData data = ReadClimateFile(path);
  EXPECT_EQ(data.hours.size(), 8760u);
  EXPECT_DOUBLE_EQ(data.header.latitude, 39.83);
  EXPECT_DOUBLE_EQ(data.header.longitude, -104.65);
  EXPECT_DOUBLE_EQ(data.header.time_meridian, -105);
  EXPECT_DOUBLE_EQ(data.header.elevation, 1650);
  EXPECT_TRUE(data.header.hourly_wind);
  EXPECT_EQ(data.header.first_day, (ClimateDate{1995, 1, 1}));
  EXPECT_EQ(data.header.last_day, (ClimateDate{1995, 12, 31}));
  EXPECT_EQ(ClimateFileText(data), ReadAllBytes(path).value_or(""));
  ClimateCalendar calendar(data);
  EXPECT_EQ(calendar.Find(3, 1, 1), 59 * 24);
  EXPECT_EQ(calendar.Find(12, 31, 24), 8759);
  EXPECT_EQ(calendar.Find(2, 29, 1), -1);  // 1995 has none
}

}  // namespace
}  // namespace zelmo::modules
