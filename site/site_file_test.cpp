#include "site/site_file.h"

#include <gtest/gtest.h>

#include "core/file_system.h"
#include "core/testing/fakes.h"
#include "core/text_file.h"
#include "site/climate_file.h"
#include "site/move_climatic_files.h"

namespace zelmo {
namespace {

using testing::ReadBytes;
using testing::WriteBytes;

TEST(SiteFile, WritesFourteenLinesAndMarksTheLastTwoModulesOnlyWhenChanged) {
  testing::TempDir dir;
  Workspace ws;
  ws.CasePath = dir.path();
  WriteBytes(dir / "THERMAL.INP", "------\r\n");
  std::vector<std::string> lines =
      testing::Words("12.1 15 -30 /c/StockholmW(SE).cli 1995 01 01 1995 12 31 0 1 -1000");
  lines.insert(lines.begin(), SiteFirstLineText(" 55.7 ", 1, 2));
  EXPECT_EQ(lines[0], "55.7\t 1\t 2\t");
  ASSERT_TRUE(WriteSite(ws, lines, /*changed=*/false));
  EXPECT_EQ(ReadBytes(dir / "SITE.INP"),
            "55.7\t 1\t 2\t\r\n12.1\r\n15\r\n-30\r\n/c/StockholmW(SE).cli\r\n1995\r\n01\r\n"
            "01\r\n1995\r\n12\r\n31\r\n0\r\n1\r\n-1000\r\n");
  EXPECT_EQ(ReadBytes(dir / "THERMAL.INP"), "------\r\n");
  ASSERT_TRUE(WriteSite(ws, lines, /*changed=*/true));
  EXPECT_EQ(ReadBytes(dir / "THERMAL.INP"), "----XX\r\n");

  // Read back as it stands; line 1 keeps its TABs and is cut by its user.
  std::vector<std::string> read = ReadSite(ws);
  EXPECT_EQ(read, lines);
}

TEST(SiteFile, FirstLineWithoutItsLastTabOrWithDamageReadsSafely) {
  auto parsed = [](const std::string& line) {
    SiteFirstLine first = ParseSiteFirstLine(line);
    return first.latitude + "|" + std::to_string(first.wind) + "|" + std::to_string(first.terrain);
  };
  EXPECT_EQ(parsed("55.7\t 1\t 2\t"), "55.7|1|2");
  EXPECT_EQ(parsed("59.35\t 0\t 3"), "59.35|0|3");
  EXPECT_EQ(parsed("59.35\t1e300\tabc\t"), "59.35|0|0");
  EXPECT_EQ(ParseSiteFirstLine("59.35").latitude, "");
}

TEST(SiteFile, MissingFileIsEmptyAndAShortFileNamesItsLine) {
  testing::TempDir dir;
  Workspace ws;
  ws.CasePath = dir.path();
  EXPECT_TRUE(ReadSite(ws).empty());
  WriteBytes(dir / "site.inp", "55.7\t 0\t 0\t\r\n12\r\n15\r\n");
  const std::string reported = testing::FileErrorText([&ws] { ReadSite(ws); });
  EXPECT_NE(reported.find("SITE.INP, line 4"), std::string::npos) << reported;
}

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

TEST(MoveClimaticFiles, CopiesTheListedFilesIntoTheClimateFolder) {
  testing::FakeSession fake;
  testing::TempDir dir;
  fake.ws().SystemPath = dir / "Zelmo";
  fake.ws().LocalPath = dir / "Downloads";
  CreateFolderTree(dir / "Zelmo/Climate");
  CreateFolder(dir / "Downloads");
  CreateFolder(dir / "Downloads/old");
  MoveClimaticFiles screen(fake.session);
  screen.Load();
  EXPECT_EQ(screen.caption, "Move climatic data files to ZELMO-QRN");
  EXPECT_EQ(screen.Selecteddirectory.caption, dir / "Downloads");
  screen.Copy.on_click();
  EXPECT_EQ(fake.dialogs.Last(),
            (testing::ShownMessage{"There are no files to copy", mb::kExclamation,
                                   "Check of copy climatic data files"}));

  WriteBytes(dir / "Downloads/Lund.cli", "lund");
  WriteBytes(dir / "Downloads/Kiruna.CLI", "kiruna");
  WriteBytes(dir / "Downloads/notes.txt", "x");
  // Into a sub-folder and back, by the folder list.
  screen.Dir1.list_index = static_cast<int>(screen.Dir1.items.size()) - 1;
  screen.Dir1.on_dbl_click();
  EXPECT_EQ(screen.Selecteddirectory.caption, dir / "Downloads/old");
  EXPECT_TRUE(screen.File1.items.empty());
  screen.Dir1.list_index -= 1;
  screen.Dir1.on_dbl_click();
  EXPECT_EQ(screen.File1.items, (std::vector<std::string>{"Kiruna.CLI", "Lund.cli"}));
  screen.Copy.on_click();
  EXPECT_EQ(fake.dialogs.Last(),
            (testing::ShownMessage{"Climatic files are successfully moved to ZELMO-QRN ",
                                   mb::kInformation, "Move message"}));
  EXPECT_EQ(ReadBytes(dir / "Zelmo/Climate/Lund.cli") + ReadBytes(dir / "Zelmo/Climate/Kiruna.CLI"),
            "lundkiruna");

  // A file gone before the move.
  DeleteFile(dir / "Downloads/Lund.cli");
  screen.Copy.on_click();
  EXPECT_EQ(fake.dialogs.Last(),
            (testing::ShownMessage{"Some problems occurred when moving, no files are moved",
                                   mb::kExclamation, "Error message"}));
  screen.Ok.on_click();
  EXPECT_TRUE(screen.unloaded);
}

}  // namespace
}  // namespace zelmo
