// The library files a new project gets from the program tree, read back by
// the rules of their formats.
#include <gtest/gtest.h>

#include <cstdlib>
#include <set>
#include <string>
#include <vector>

#include "core/fields.h"
#include "core/numbers.h"
#include "core/testing/fakes.h"
#include "core/text_file.h"

namespace zelmo::testing {
namespace {

std::string TreeFile(const std::string& relative) {
  const char* source = std::getenv("ZELMO_SOURCE_DIR");
  EXPECT_NE(source, nullptr);
  return JoinPath(JoinPath(JoinPath(source ? source : ".", "system"), "tree"), relative);
}

// The lines of a file that must be single-byte text with CR LF line ends.
std::vector<std::string> Lines(const std::string& relative) {
  const std::string bytes = ReadBytes(TreeFile(relative));
  EXPECT_TRUE(bytes.size() >= 2 && bytes.substr(bytes.size() - 2) == "\r\n") << relative;
  EXPECT_NE(bytes.rfind("\xEF\xBB\xBF", 0), 0u) << relative;  // no byte order mark
  for (size_t i = 0; i < bytes.size(); ++i) {
    // Windows-1252 text: no control characters but TAB, CR and LF, and none
    // of the five codes that page leaves undefined.
    const auto byte = static_cast<unsigned char>(bytes[i]);
    EXPECT_TRUE((byte >= 0x20 && byte != 0x7F && byte != 0x81 && byte != 0x8D && byte != 0x8F &&
                 byte != 0x90 && byte != 0x9D) ||
                byte == '\t' || byte == '\r' || byte == '\n')
        << relative << " byte " << i;
    if (bytes[i] == '\n') {
      EXPECT_TRUE(i > 0 && bytes[i - 1] == '\r') << relative;
    }
    if (bytes[i] == '\r') {
      EXPECT_TRUE(i + 1 < bytes.size() && bytes[i + 1] == '\n') << relative;
    }
  }
  return ReadAllLines(TreeFile(relative)).value_or(std::vector<std::string>{});
}

bool InRange(const std::string& text, double low, double high) {
  return IsSignedNumberText(text) && Val(text) >= low && Val(text) <= high;
}

TEST(DefaultLibraries, OpaqueMaterialsOneToFortySeven) {
  auto lines = Lines("TGZELMO/OPAQUE.LIB");
  ASSERT_EQ(lines.size(), 47u);
  for (size_t i = 0; i < lines.size(); ++i) {
    auto fields = SplitTabs(lines[i]);
    ASSERT_EQ(fields.size(), 5u) << lines[i];
    EXPECT_EQ(fields[0], std::to_string(i + 1));
    // The cells as the screen writes them: trimmed, a point for a comma.
    for (const auto& field : fields) {
      EXPECT_EQ(field, TrimBlanks(field)) << lines[i];
      EXPECT_EQ(field.find(','), std::string::npos) << lines[i];
    }
    EXPECT_FALSE(TrimBlanks(fields[1]).empty());
    EXPECT_TRUE(InRange(fields[2], 0.01, 500)) << lines[i];
    EXPECT_TRUE(InRange(fields[3], 0.01, 5000)) << lines[i];
    EXPECT_TRUE(InRange(fields[4], 0.01, 100000)) << lines[i];
  }
  EXPECT_EQ(lines[5], "6\tMineral wool\t0.04\t0.24\t50");
}

TEST(DefaultLibraries, GasesGlassAndWindowTypesFollowTheirRules) {
  std::set<std::string> gases;
  for (const auto& line : Lines("TGZELMO/GASTP.INP")) {
    ASSERT_EQ(line.back(), '\t') << line;
    auto fields = SplitTabs(line);
    ASSERT_EQ(fields.size(), 10u) << line;  // nine cells, each with its TAB
    EXPECT_FALSE(TrimBlanks(fields[0]).empty());
    gases.insert(fields[0]);
    // The number test of the gas editor reads at most 11 characters.
    for (int i = 1; i < 9; ++i) {
      EXPECT_TRUE(IsRealNumberText(fields[i]) && fields[i].size() <= 11) << fields[i];
    }
    EXPECT_GT(Val(fields[1]), 0);  // conductivity
    EXPECT_LT(Val(fields[6]), 0);  // a gas thins as it warms
  }
  EXPECT_TRUE(gases.count("Air") && gases.count("Argon") && gases.count("Krypton"));

  auto glass = Lines("TGZELMO/GLASSTP.INP");
  ASSERT_EQ(glass.size() % 4, 0u);
  std::set<std::string> glasses;
  std::set<std::string> forms;
  for (size_t g = 0; g < glass.size(); g += 4) {
    auto head = SplitTabs(glass[g]);
    ASSERT_EQ(head.size(), 9u) << glass[g];
    const std::string& name = head[0];
    EXPECT_EQ(name.find(' '), std::string::npos);
    EXPECT_TRUE(!name.empty() && name.size() <= 30) << name;
    glasses.insert(name);
    forms.insert(head[3]);
    EXPECT_TRUE(InRange(head[1], 0, 100)) << name;
    EXPECT_TRUE(InRange(head[2], 1, 100)) << name;
    std::vector<std::vector<std::string>> blocks;
    for (int b = 1; b <= 3; ++b) {
      ASSERT_EQ(glass[g + b].back(), '\t');
      blocks.push_back(SplitTabs(glass[g + b]));
      ASSERT_EQ(blocks.back().size(), 13u) << name;  // twelve cells
    }
    // Column 8 as the screen stores it, and nothing behind the rows in use:
    // the twelfth cell of each block is always empty.
    const int rows = static_cast<int>(Val(head[7]));
    EXPECT_EQ(head[7], " " + std::to_string(rows)) << name;
    EXPECT_TRUE(rows >= 0 && rows <= 11) << name;
    for (const auto& block : blocks) {
      for (int r = rows; r < 12; ++r) EXPECT_EQ(block[r], "") << name << " row " << r + 1;
    }
    if (head[3] == "1") {
      ASSERT_GE(rows, 2) << name;
      for (int r = 0; r < rows; ++r) {
        const std::string &t = blocks[0][r], &rf = blocks[1][r], &rb = blocks[2][r];
        EXPECT_TRUE(InRange(t, 0, 100) && InRange(rf, 0, 100) && InRange(rb, 0, 100));
        EXPECT_LE(Val(t) + Val(rf), 100);
        EXPECT_LE(Val(t) + Val(rb), 100);
      }
      EXPECT_EQ(Val(blocks[0][rows - 1]), 0);
      EXPECT_GE(Val(blocks[1][rows - 1]) + Val(blocks[2][rows - 1]), 200);
    } else if (head[3] == "2") {
      EXPECT_TRUE(InRange(head[4], 0, 100));
      EXPECT_TRUE(IsSignedNumberText(head[5]) && Val(head[5]) > 1);
      EXPECT_TRUE(IsSignedNumberText(head[6]) && Val(head[6]) > 1);
    } else {
      ASSERT_EQ(head[3], "3");
      const double t = Val(head[4]), r = Val(head[5]);
      EXPECT_TRUE(IsSignedNumberText(head[4]) && t > 0 && t < 100);
      EXPECT_TRUE(IsSignedNumberText(head[5]) && r > 0 && r < 100);
      EXPECT_LT(t + r, 100);
      EXPECT_EQ((head[4] + head[5]).find('.'), std::string::npos);
    }
  }
  EXPECT_EQ(forms, (std::set<std::string>{"1", "2", "3"}));

  std::set<int> panes;
  int last_number = 0;
  for (const auto& line : Lines("TGZELMO/Wndtp.LIB")) {
    auto fields = SplitTabs(line);
    ASSERT_EQ(fields.size(), 21u) << line;
    // Ascending numbers of the 40 rows, a name of at most 30 characters.
    EXPECT_TRUE(IsDigitsOnly(fields[0]));
    const int number = static_cast<int>(Val(fields[0]));
    EXPECT_TRUE(number > last_number && number <= 40) << line;
    last_number = number;
    EXPECT_TRUE(!fields[1].empty() && fields[1].size() <= 30) << line;
    EXPECT_EQ(fields[1].find(' '), std::string::npos);
    const int n = static_cast<int>(Val(fields[2]));
    EXPECT_EQ(fields[2], " " + std::to_string(n));
    ASSERT_TRUE(n >= 1 && n <= 5) << line;
    for (int column = 4 * n + 1; column <= 20; ++column) EXPECT_EQ(fields[column], "") << line;
    panes.insert(n);
    for (int j = 1; j <= n; ++j) {
      EXPECT_TRUE(glasses.count(fields[4 * j - 1])) << line;
      EXPECT_TRUE(fields[4 * j] == "Yes" || fields[4 * j] == "No") << line;
      if (j == n) continue;
      EXPECT_TRUE(InRange(fields[4 * j + 1], 0.1, 100)) << line;
      EXPECT_TRUE(gases.count(fields[4 * j + 2])) << line;
    }
  }
  EXPECT_EQ(panes, (std::set<int>{1, 2, 3}));
}

TEST(DefaultLibraries, TheExampleClimateFileCarriesItsKeys) {
  auto lines = Lines("ZELMOPROJ/StockholmW(SE).cli_Temp");
  ASSERT_FALSE(lines.empty());
  EXPECT_EQ(TrimBlanks(lines[0])[1], '1');  // hourly wind data
  std::string all;
  for (const auto& line : lines) all += ToLower(line) + "\n";
  for (const char* key : {"latitude: 59.35", "longitude: 18.07", "time meridian: 15",
                          "1:st day: 2001.01.01", "last day: 2001.12.31"}) {
    EXPECT_NE(all.find(key), std::string::npos) << key;
  }
  EXPECT_EQ(Lines("ZELMOPROJ/PROJECTS.LIB"), std::vector<std::string>{"example\texample"});
  EXPECT_EQ(Lines("ZELMOPROJ/Example/Case1/Site.inp").size(), 14u);
  // The activation rewrites the site file through SiteX.inp, which the
  // example carries in the same form.
  EXPECT_EQ(Lines("ZELMOPROJ/Example/Case1/SiteX.inp").size(), 14u);
}

TEST(DefaultLibraries, TheExampleWallsUseItsOwnMaterials) {
  std::set<std::string> materials;
  for (const auto& line : Lines("ZELMOPROJ/Example/OPAQUE.LIB_Temp")) {
    materials.insert(SplitTabs(line)[0]);
  }
  int walls = 0;
  for (const auto& line : Lines("ZELMOPROJ/Example/WALLS.LIB")) {
    auto fields = SplitTabs(line);
    if (!line.empty() && line[0] != '\t') {
      // A header: the number, then a name of at most 16 characters.
      ASSERT_EQ(fields.size(), 2u) << line;
      EXPECT_EQ(fields[0], std::to_string(++walls));
      EXPECT_TRUE(!fields[1].empty() && fields[1].size() <= 16) << line;
      continue;
    }
    ASSERT_EQ(fields.size(), 3u) << line;
    EXPECT_TRUE(materials.count(fields[1])) << line;
    EXPECT_TRUE(InRange(fields[2], 1, 99999)) << line;
  }
  EXPECT_EQ(walls, 5);
}

}  // namespace
}  // namespace zelmo::testing
