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

// The fields of each line of a file that must be Windows-1252 text with CR LF
// line ends: no control characters but TAB, CR and LF, none of the five
// codes that page leaves undefined, and no byte order mark.
std::vector<Strings> Rows(const std::string& relative) {
  const std::string bytes = ReadBytes(TreeFile(relative));
  EXPECT_NE(bytes.rfind("\xEF\xBB\xBF", 0), 0u) << relative;
  std::string lines;
  for (size_t i = 0; i < bytes.size(); ++i) {
    const auto byte = static_cast<unsigned char>(bytes[i]);
    const bool text = byte >= 0x20 && byte != 0x7F &&
                      std::string("\x81\x8D\x8F\x90\x9D").find(bytes[i]) == std::string::npos;
    EXPECT_TRUE(text || byte == '\t' || (byte == '\r' && bytes[i + 1] == '\n') ||
                (byte == '\n' && i > 0 && bytes[i - 1] == '\r'))
        << relative << " byte " << i;
  }
  EXPECT_EQ(bytes.substr(bytes.size() - 2), "\r\n") << relative;
  std::vector<Strings> rows;
  for (const auto& line : ReadAllLines(TreeFile(relative)).value_or(Strings{})) {
    rows.push_back(SplitTabs(line));
  }
  return rows;
}

bool InRange(const std::string& text, double low, double high) {
  return IsSignedNumberText(text) && Val(text) >= low && Val(text) <= high;
}
bool Above(const std::string& text, double low) {
  return IsSignedNumberText(text) && Val(text) > low;
}
bool Has(const std::string& text, char c) { return text.find(c) != std::string::npos; }

TEST(DefaultLibraries, OpaqueMaterialsOneToFortySeven) {
  auto rows = Rows("TGZELMO/OPAQUE.LIB");
  ASSERT_EQ(rows.size(), 47u);
  for (size_t i = 0; i < rows.size(); ++i) {
    const Strings& f = rows[i];
    ASSERT_EQ(f.size(), 5u) << i;
    // The cells as the screen writes them: trimmed, a point for a comma.
    for (const auto& field : f) EXPECT_TRUE(field == TrimBlanks(field) && !Has(field, ','));
    EXPECT_EQ(f[0], std::to_string(i + 1));
    EXPECT_TRUE(!f[1].empty() && InRange(f[2], 0.01, 500) && InRange(f[3], 0.01, 5000) &&
                InRange(f[4], 0.01, 100000))
        << f[1];
  }
  EXPECT_EQ(rows[5], (Strings{"6", "Mineral wool", "0.04", "0.24", "50"}));
}

TEST(DefaultLibraries, GasesGlassAndWindowTypesFollowTheirRules) {
  std::set<std::string> gases, glasses, forms;
  for (const auto& f : Rows("TGZELMO/GASTP.INP")) {
    // Nine cells, each with its TAB; the gas editor reads at most 11 characters a number.
    ASSERT_TRUE(f.size() == 10u && f[9].empty() && !TrimBlanks(f[0]).empty()) << f[0];
    gases.insert(f[0]);
    for (int i = 1; i < 9; ++i) EXPECT_TRUE(IsRealNumberText(f[i]) && f[i].size() <= 11) << f[i];
  }
  EXPECT_TRUE(gases.count("Air") && gases.count("Argon") && gases.count("Krypton"));

  // A glass: a head line and three blocks of twelve cells, the rows in use
  // first, the rest and the twelfth cell empty.
  auto glass = Rows("TGZELMO/GLASSTP.INP");
  ASSERT_EQ(glass.size() % 4, 0u);
  for (size_t g = 0; g < glass.size(); g += 4) {
    const Strings& head = glass[g];
    ASSERT_EQ(head.size(), 9u);
    const std::string& name = head[0];
    EXPECT_TRUE(!name.empty() && name.size() <= 30 && !Has(name, ' ')) << name;
    glasses.insert(name);
    forms.insert(head[3]);
    EXPECT_TRUE(InRange(head[1], 0, 100) && InRange(head[2], 1, 100)) << name;
    const int rows = static_cast<int>(Val(head[7]));
    EXPECT_TRUE(head[7] == " " + std::to_string(rows) && rows >= 0 && rows <= 11) << name;
    for (int b = 1; b <= 3; ++b) {
      ASSERT_EQ(glass[g + b].size(), 13u) << name;
      for (int r = rows; r < 13; ++r) EXPECT_EQ(glass[g + b][r], "") << name << " " << r;
    }
    if (head[3] == "1") {
      ASSERT_GE(rows, 2) << name;
      for (int r = 0; r < rows; ++r) {
        const std::string &t = glass[g + 1][r], &rf = glass[g + 2][r], &rb = glass[g + 3][r];
        EXPECT_TRUE(InRange(t, 0, 100) && InRange(rf, 0, 100) && InRange(rb, 0, 100) &&
                    Val(t) + Val(rf) <= 100 && Val(t) + Val(rb) <= 100)
            << name;
      }
      EXPECT_EQ(Val(glass[g + 1][rows - 1]), 0);
      EXPECT_GE(Val(glass[g + 2][rows - 1]) + Val(glass[g + 3][rows - 1]), 200);
    } else if (head[3] == "2") {
      EXPECT_TRUE(InRange(head[4], 0, 100) && Above(head[5], 1) && Above(head[6], 1)) << name;
    } else {
      ASSERT_EQ(head[3], "3");
      EXPECT_TRUE(Above(head[4], 0) && Above(head[5], 0) && Val(head[4]) + Val(head[5]) < 100 &&
                  !Has(head[4] + head[5], '.'))
          << name;
    }
  }
  EXPECT_EQ(forms, (std::set<std::string>{"1", "2", "3"}));

  // Window types: ascending numbers up to 40, a name of at most 30
  // characters, and per pane a glass, Yes or No, then the gap and its gas.
  std::set<int> panes;
  int last_number = 0;
  for (const auto& f : Rows("TGZELMO/Wndtp.LIB")) {
    ASSERT_EQ(f.size(), 21u) << f[1];
    const int number = static_cast<int>(Val(f[0])), n = static_cast<int>(Val(f[2]));
    EXPECT_TRUE(IsDigitsOnly(f[0]) && number > last_number && number <= 40) << f[1];
    last_number = number;
    EXPECT_TRUE(!f[1].empty() && f[1].size() <= 30 && !Has(f[1], ' ')) << f[1];
    ASSERT_TRUE(f[2] == " " + std::to_string(n) && n >= 1 && n <= 5) << f[1];
    for (int column = 4 * n + 1; column <= 20; ++column) EXPECT_EQ(f[column], "") << f[1];
    panes.insert(n);
    for (int j = 1; j <= n; ++j) {
      EXPECT_TRUE(glasses.count(f[4 * j - 1]) && (f[4 * j] == "Yes" || f[4 * j] == "No")) << f[1];
      EXPECT_TRUE(j == n || (InRange(f[4 * j + 1], 0.1, 100) && gases.count(f[4 * j + 2]))) << f[1];
    }
  }
  EXPECT_EQ(panes, (std::set<int>{1, 2, 3}));
}

TEST(DefaultLibraries, TheExampleClimateFileCarriesItsKeys) {
  auto rows = Rows("ZELMOPROJ/StockholmW(SE).cli_Temp");
  ASSERT_FALSE(rows.empty());
  EXPECT_EQ(TrimBlanks(rows[0][0])[1], '1');  // hourly wind data
  std::string all;
  for (const auto& row : rows) all += ToLower(row[0]) + "\n";
  for (const char* key : {"latitude: 59.35", "longitude: 18.07", "time meridian: 15",
                          "1:st day: 2001.01.01", "last day: 2001.12.31"}) {
    EXPECT_NE(all.find(key), std::string::npos) << key;
  }
  // Beside the example, a project in the form of version 1.2 to convert
  // and the validation cases.
  EXPECT_EQ(Rows("ZELMOPROJ/PROJECTS.LIB"),
            (std::vector<Strings>{
                {"example", "example"}, {"v12demo", "v12demo"}, {"bestest", "bestest"}}));
  // The activation rewrites the site file through SiteX.inp, which the
  // example carries in the same form.
  EXPECT_EQ(Rows("ZELMOPROJ/Example/Case1/Site.inp").size(), 14u);
  EXPECT_EQ(Rows("ZELMOPROJ/Example/Case1/SiteX.inp").size(), 14u);
}

TEST(DefaultLibraries, TheExampleWallsUseItsOwnMaterials) {
  std::set<std::string> materials;
  for (const auto& f : Rows("ZELMOPROJ/Example/OPAQUE.LIB_Temp")) materials.insert(f[0]);
  int walls = 0;
  for (const auto& f : Rows("ZELMOPROJ/Example/WALLS.LIB")) {
    if (f[0].empty()) {  // a layer: its material and thickness
      EXPECT_TRUE(f.size() == 3u && materials.count(f[1]) && InRange(f[2], 1, 99999)) << f[1];
    } else {  // a header: the number, then a name of at most 16 characters
      EXPECT_TRUE(f.size() == 2u && f[0] == std::to_string(++walls) && !f[1].empty() &&
                  f[1].size() <= 16)
          << f[0];
    }
  }
  EXPECT_EQ(walls, 5);
}

}  // namespace
}  // namespace zelmo::testing
