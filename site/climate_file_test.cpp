#include "site/climate_file.h"

#include <gtest/gtest.h>

#include "core/testing/fakes.h"

namespace zelmo {
namespace {

using testing::WriteBytes;

// The keys of a climate file: latitude, longitude, time meridian, first and
// last day.
std::string Keys(testing::FakeDialogs& dialogs, const std::string& file) {
  std::string keys;
  for (ClimateKey key : {ClimateKey::kLatitude, ClimateKey::kLongitude, ClimateKey::kTimem}) {
    keys += ReadClimateKey(dialogs, file, key) + "|";
  }
  ClimateDates d = ReadClimateDates(dialogs, file);
  return keys + d.first_year + "." + d.first_month + "." + d.first_day + "|" + d.last_year + "." +
         d.last_month + "." + d.last_day;
}

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
  EXPECT_EQ(Keys(dialogs, file), "55.72|13.2|15|1995.01.02|1995.12.31");
  EXPECT_TRUE(dialogs.messages.empty());
  EXPECT_EQ(ReadWindMark(" " + file + " "), std::optional<bool>(true));
}

TEST(ClimateFile, MissingKeysAreReportedWithThePath) {
  testing::TempDir dir;
  testing::FakeDialogs dialogs;
  const std::string file = dir / "Bare.cli";
  WriteBytes(file, "X0 no keys here\r\n");
  EXPECT_EQ(Keys(dialogs, file), "|||..|..");
  std::vector<testing::ShownMessage> expected;
  for (auto [what, title] : {std::pair{"latitude", "Latitude"},
                             {"longitude", "Longitude"},
                             {"time meridian", "Timem"},
                             {"Start date", "Latitude"},
                             {"End date", "Latitude"}}) {
    expected.push_back(
        {" No entry for the " + std::string(what) + " was found in the climate data file " + file,
         mb::kExclamation, title});
  }
  EXPECT_EQ(dialogs.messages, expected);
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
