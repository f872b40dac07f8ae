#include "site/site_file.h"

#include <gtest/gtest.h>

#include "core/testing/fakes.h"
#include "core/text_file.h"

namespace zelmo {
namespace {

using testing::ReadBytes;
using testing::WriteBytes;

TEST(SiteFile, WritesFourteenLinesAndMarksTheLastTwoModulesOnlyWhenChanged) {
  testing::TempDir dir;
  Workspace ws;
  ws.CasePath = dir.path();
  WriteBytes(dir / "THERMAL.INP", "------\r\n");
  std::vector<std::string> lines = {SiteFirstLineText(" 55.7 ", 1, 2),
                                    "12.1",
                                    "15",
                                    "-30",
                                    "/c/StockholmW(SE).cli",
                                    "1995",
                                    "01",
                                    "01",
                                    "1995",
                                    "12",
                                    "31",
                                    "0",
                                    "1",
                                    "-1000"};
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
  ASSERT_EQ(read.size(), 14u);
  EXPECT_EQ(read[0], "55.7\t 1\t 2\t");
  EXPECT_EQ(read[13], "-1000");
  SiteFirstLine first = ParseSiteFirstLine(read[0]);
  EXPECT_EQ(first.latitude, "55.7");
  EXPECT_EQ(first.wind, 1);
  EXPECT_EQ(first.terrain, 2);
}

TEST(SiteFile, FirstLineWithoutItsLastTabOrWithDamageReadsSafely) {
  SiteFirstLine first = ParseSiteFirstLine("59.35\t 0\t 3");
  EXPECT_EQ(first.latitude, "59.35");
  EXPECT_EQ(first.wind, 0);
  EXPECT_EQ(first.terrain, 3);
  first = ParseSiteFirstLine("59.35\t1e300\tabc\t");
  EXPECT_EQ(first.wind, 0);
  EXPECT_EQ(first.terrain, 0);
  EXPECT_EQ(ParseSiteFirstLine("59.35").latitude, "");
}

TEST(SiteFile, MissingFileIsEmptyAndAShortFileNamesItsLine) {
  testing::TempDir dir;
  Workspace ws;
  ws.CasePath = dir.path();
  EXPECT_TRUE(ReadSite(ws).empty());
  WriteBytes(dir / "site.inp", "55.7\t 0\t 0\t\r\n12\r\n15\r\n");
  try {
    ReadSite(ws);
    FAIL() << "a file cut short must be reported";
  } catch (const FileError& error) {
    EXPECT_EQ(error.line(), 4);
    EXPECT_NE(error.UserText().find("SITE.INP, line 4"), std::string::npos) << error.UserText();
  }
}

}  // namespace
}  // namespace zelmo
