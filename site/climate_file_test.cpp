#include "site/climate_file.h"

#include <gtest/gtest.h>

#include "core/testing/fakes.h"

namespace zelmo {
namespace {

using testing::WriteBytes;

TEST(ClimateFile, KeysAnywhereInALineAndInAnyCase) {
  testing::TempDir dir;
  testing::FakeDialogs dialogs;
  const std::string file = dir / "Lund.CLI";
  WriteBytes(file,
             " *1 Lund hourly data\r\n"
             "Station LATITUDE:   55.72 N\r\n"
             "  Longitude: 13.2\r\n"
             "x time Meridian:15 \r\n"
             "First 1:ST DAY: 1995.01.02\r\n"
             "LAST day:1995.12.31\r\n");
  EXPECT_EQ(ReadClimateKey(dialogs, file, ClimateKey::kLatitude), "55.72");
  EXPECT_EQ(ReadClimateKey(dialogs, file, ClimateKey::kLongitude), "13.2");
  EXPECT_EQ(ReadClimateKey(dialogs, file, ClimateKey::kTimem), "15");
  ClimateDates dates = ReadClimateDates(dialogs, file);
  EXPECT_EQ(dates.first_year, "1995");
  EXPECT_EQ(dates.first_month, "01");
  EXPECT_EQ(dates.first_day, "02");
  EXPECT_EQ(dates.last_year, "1995");
  EXPECT_EQ(dates.last_month, "12");
  EXPECT_EQ(dates.last_day, "31");
  EXPECT_TRUE(dialogs.messages.empty());
  EXPECT_EQ(ReadWindMark(" " + file + " "), std::optional<bool>(true));
}

TEST(ClimateFile, MissingKeysAreReportedWithThePath) {
  testing::TempDir dir;
  testing::FakeDialogs dialogs;
  const std::string file = dir / "Bare.cli";
  WriteBytes(file, "X0 no keys here\r\n");
  EXPECT_EQ(ReadClimateKey(dialogs, file, ClimateKey::kLatitude), "");
  EXPECT_EQ(ReadClimateKey(dialogs, file, ClimateKey::kLongitude), "");
  EXPECT_EQ(ReadClimateKey(dialogs, file, ClimateKey::kTimem), "");
  ClimateDates dates = ReadClimateDates(dialogs, file);
  EXPECT_EQ(dates.first_year + dates.last_day, "");
  ASSERT_EQ(dialogs.messages.size(), 5u);
  EXPECT_EQ(dialogs.messages[0].text,
            " No entry for the latitude was found in the climate data file " + file);
  EXPECT_EQ(dialogs.messages[0].title, "Latitude");
  EXPECT_EQ(dialogs.messages[0].style, mb::kExclamation);
  EXPECT_EQ(dialogs.messages[1].text,
            " No entry for the longitude was found in the climate data file " + file);
  EXPECT_EQ(dialogs.messages[1].title, "Longitude");
  EXPECT_EQ(dialogs.messages[2].text,
            " No entry for the time meridian was found in the climate data file " + file);
  EXPECT_EQ(dialogs.messages[2].title, "Timem");
  EXPECT_EQ(dialogs.messages[3].text,
            " No entry for the Start date was found in the climate data file " + file);
  EXPECT_EQ(dialogs.messages[3].title, "Latitude");
  EXPECT_EQ(dialogs.messages[4].text,
            " No entry for the End date was found in the climate data file " + file);
  EXPECT_EQ(dialogs.messages[4].title, "Latitude");
  EXPECT_EQ(ReadWindMark(file), std::optional<bool>(false));
  EXPECT_EQ(ReadWindMark(dir / "missing.cli"), std::nullopt);
}

TEST(ClimateFile, FilesAreFoundWhateverTheCaseOfTheExtension) {
  testing::TempDir dir;
  WriteBytes(dir / "a.cli", "");
  WriteBytes(dir / "b.CLI", "");
  WriteBytes(dir / "c.Cli", "");
  WriteBytes(dir / "StockholmW(SE).cli_Temp", "");
  WriteBytes(dir / "d.txt", "");
  EXPECT_EQ(ClimateFilesIn(dir.path()), (std::vector<std::string>{"a.cli", "b.CLI", "c.Cli"}));
}

}  // namespace
}  // namespace zelmo
