#include "modules/climate_file.h"

#include <gtest/gtest.h>

#include <cmath>
#include <filesystem>
#include <limits>

#include "core/text_file.h"

namespace zelmo::modules {
namespace {

// A small file of two hours, as the writer must lay it out.
const std::string kTwoHours =
    "01 Testtown climate data, hourly wind included\r\n"
    "Station: Testtown, XX (test 1)\r\n"
    "Latitude: 39.83 degrees, positive to the north\r\n"
    "Longitude: -104.65 degrees, positive to the east\r\n"
    "Time meridian: -105 degrees, positive to the east\r\n"
    "Elevation: 1650 metres above sea level\r\n"
    "1:st day: 1995.12.31\r\n"
    "Last day: 1996.01.01\r\n"
    "Hours: 2\r\n"
    "Columns: Date Hour T_dry[C] T_dew[C] P[Pa] G_hor[W/m2] B_normal[W/m2] D_hor[W/m2] "
    "IR_hor[W/m2] Wind_dir[deg] Wind_speed[m/s]\r\n"
    "1995.12.31 24 -18.0 -19.7  83700    0    0    0  181 320  2.1\r\n"
    "1996.01.01  1  -0.5     ?  83500 1000  950 1999  188 360 10.0\r\n";

ClimateData TwoHours() {
  ClimateData data;
  data.header.title = "Testtown";
  data.header.hourly_wind = true;
  data.header.station = "Testtown, XX (test 1)";
  data.header.latitude = 39.83;
  data.header.longitude = -104.65;
  data.header.time_meridian = -105;
  data.header.elevation = 1650;
  data.header.first_day = {1995, 12, 31};
  data.header.last_day = {1996, 1, 1};
  ClimateHour a{1995, 12, 31, 24, {-18.0, -19.7, 83700, 0, 0, 0, 181, 320, 2.1}};
  ClimateHour b{1996, 1, 1, 1, {-0.5, std::nan(""), 83500, 1000, 950, 1999, 188, 360, 10}};
  data.hours = {a, b};
  return data;
}

TEST(ClimateFile, TheWriterLaysItOutByteForByte) {
  EXPECT_EQ(ClimateFileText(TwoHours()), kTwoHours);
}

TEST(ClimateFile, TheReaderTakesBackWhatTheWriterWrote) {
  ClimateData data = ParseClimateText("x.CLI", kTwoHours);
  EXPECT_EQ(data.header.title, "Testtown");
  EXPECT_EQ(data.header.last_day, (ClimateDate{1996, 1, 1}));
  EXPECT_DOUBLE_EQ(data.hours[1].direct_normal(), 950);
  EXPECT_EQ(MissingCount(data, kDewPoint), 1);
  EXPECT_EQ(ClimateFileText(data), kTwoHours);
}

std::string Replace(std::string text, const std::string& from, const std::string& to) {
  size_t at = text.find(from);
  EXPECT_NE(at, std::string::npos) << from;
  return at == std::string::npos ? text : text.replace(at, from.size(), to);
}

TEST(ClimateFile, ADamagedFileIsRefusedWithItsLine) {
  struct Case {
    std::string from, to;
    int line;
    std::string message;
  };
  const std::string hour2 = "1996.01.01  1  -0.5     ?  83500 1000  950 1999  188 360 10.0";
  const Case cases[] = {
      {"01 Testtown", "1 Testtown", 1,
       "This is no hourly climate file: its first line must start with \"01 \" or \"00 \""},
      {"Latitude: 39.83", "Latitude: north", 3, "The value behind \"Latitude: \" is no number"},
      {"Latitude: 39.83", "Latitude: 90.01", 3, "The latitude is not -90 to 90"},
      {"1:st day: 1995.12.31", "1:st day: 1995.02.30", 7,
       "The value behind \"1:st day: \" is no date year.month.day"},
      {"Hours: 2", "Hours: 3", 13, "The climate file ends before its 3 hours"},
      {"Hours: 2", "Hours: 1", 12, "More hours than the climate file's 1 stand in it"},
      {"Columns: ", "Kolumner: ", 10, "The climate file has no \"Columns: \" here"},
      {hour2, "1996.01.01  1  -0.5     ?  83500 1000  950 1999  188 360", 12,
       "This hour has 10 fields instead of 11"},
      {hour2, hour2 + " 1", 12, "This hour has more values than the columns"},
      {hour2, "1996.01.01  2  -0.5     ?  83500 1000  950 1999  188 360 10.0", 12,
       "This hour does not follow the hour before it"},
      {hour2, "1996.01.01 25  -0.5     ?  83500 1000  950 1999  188 360 10.0", 12,
       "The hour is not 1 to 24"},
      {hour2, "1996.13.01  1  -0.5     ?  83500 1000  950 1999  188 360 10.0", 12,
       "The date of this hour is no year.month.day"},
      {hour2, "1996.01.01  1  -0.5     ?  83500 1000  950 2001  188 360 10.0", 12,
       "The value of D_hor[W/m2] lies outside 0 to 2000"},
      {hour2, "1996.01.01  1  -0.5     ?  83500 1000  950 1999  188 360 inf", 12,
       "The value of Wind_speed[m/s] is no number"},
  };
  for (const Case& c : cases) {
    std::string text = Replace(kTwoHours, c.from, c.to);
    try {
      ParseClimateText("/data/x.CLI", text);
      ADD_FAILURE() << "accepted: " << c.to;
    } catch (const FileError& error) {
      EXPECT_EQ(error.what(), c.message) << c.to;
      EXPECT_EQ(error.line(), c.line) << c.to;
      EXPECT_EQ(error.path(), "/data/x.CLI");
    }
  }
}

TEST(ClimateFile, TheLimitsOfAColumnAreInside) {
  std::string text = Replace(kTwoHours, "-18.0 -19.7  83700    0    0    0  181 320  2.1",
                             "-70.0  70.0 120000 2000    0    0 1000   0 60.0");
  ClimateData data = ParseClimateText("x.CLI", text);
  EXPECT_DOUBLE_EQ(data.hours[0].pressure(), 120000);
  EXPECT_DOUBLE_EQ(data.hours[0].wind_speed(), 60);
}

TEST(ClimateFile, AFileThatCannotBeReadOrWrittenIsTold) {
  EXPECT_THROW(ReadClimateFile("/nonexistent-folder/x.CLI"), FileError);
  EXPECT_FALSE(WriteClimateFile("/nonexistent-folder/x.CLI", TwoHours()));
}

}  // namespace
}  // namespace zelmo::modules
