#include "modules/dat1.h"

#include <gtest/gtest.h>

#include <cstdlib>

#include "core/testing/fakes.h"
#include "core/text_file.h"

namespace zelmo::modules {
namespace {

std::string ExampleCase() {
  return std::string(std::getenv("ZELMO_SOURCE_DIR")) + "/simulation/testdata/Case1/";
}

// One element's lines after a head of one volume.
std::string OneElement(const std::string& lines) {
  return "C - test\r\n   1.00   1.00\r\n   1.00\r\n" + lines;
}

TEST(Dat1File, TheExampleCaseAsTheSimulationWritesIt) {
  Dat1Building b = ReadCaseDat1(ExampleCase());
  EXPECT_EQ(b.headline, "Office room in Stockholm");
  EXPECT_EQ(b.volumes, 2);
  EXPECT_EQ(b.fluids, (std::vector<double>{1, 1}));
  EXPECT_EQ(b.advection, (std::vector<std::array<double, 2>>{{5, 1.88}}));
  ASSERT_EQ(b.elements.size(), 11u);
  std::string summary;
  for (const Dat1Element& el : b.elements) {
    summary += el.name + ":" + std::to_string(el.shape) + std::to_string(el.front) +
               std::to_string(el.back) + "-ws"[static_cast<int>(el.main.construction)] +
               (el.main.window ? "W" : "") + "-ws"[static_cast<int>(el.hole.construction)] +
               (el.hole.window ? "W" : "") + " ";
  }
  EXPECT_EQ(summary,
            "South 1:301w-W West 1:101w- North 1:101w- Floor 1:1-11w- Roof 1:101w- "
            "South 2:302w-W East 2:302w-W North 2:102w- Floor 2:1-12w- Roof 2:102w- "
            "Inner wall:312ww ");
  const Dat1Element& inner = b.elements[10];
  EXPECT_EQ(inner.zenith, 90);
  EXPECT_EQ(inner.azimuth, 90);
  EXPECT_EQ(inner.x, 5);
  EXPECT_EQ(inner.dims, (std::array<double, 6>{4, 2.7, 0.01, 1.5, 2.1, 2.4}));
}

// Each shape with what follows its geometry, as the module input lays it
// down: a construction or a window ends the geometry's line; an element
// without either leaves it open for the next element.
TEST(Dat1File, ShapesConstructionsWindowsAndOpenLines) {
  const std::string screen_triangle =
      "Screen          2.00     90.00      0.00      0.00      0.00      0.00 0.00 0.00\r\n"
      "   4.00   2.00   1.00   0.00   0.00   0.00 0.00 0.00 0.30 0.45 0.00    0.0000\r\n";
  const std::string window_quad =
      "Window          4.00     45.00    -30.00      1.00      2.00      3.00 0.00 1.00\r\n"
      "   4.00   3.00   2.00   1.00   3.00   0.00 6.00 1.00 0.00 0.00 0.00    0.5000\r\n7\r\n";
  const std::string bare_pentagon =
      "Bare            5.00     90.00      0.00      0.00      0.00      0.00 1.00 2.00\r\n"
      "   1.00   2.00   3.00   4.00   5.00   6.00";
  const std::string hole =
      "Holed wall      3.00    180.00      0.00      0.00      0.00      0.00-1.00 1.00\r\n"
      "   5.00   3.00   1.00   1.00   2.00   2.00 1.00 3.00 0.10 0.10 0.00    1.0000\r\n"
      " .9  .9\r\n 0.00 0.00 0.20 0.30 0.00\r\n 6.00 1.00 0.00 0.00 1.00\r\n4\r\n";
  std::string text = "Head\r\n   1.00   4.00\r\n   1.00\r\n" + screen_triangle + window_quad +
                     bare_pentagon + hole;
  Dat1Building b = ParseDat1("DAT1.DAT", text);
  ASSERT_EQ(b.elements.size(), 4u);
  const Dat1Element &screen = b.elements[0], &window = b.elements[1], &bare = b.elements[2],
                    &holed = b.elements[3];
  EXPECT_EQ(screen.main.construction, Part::kShadingScreen);
  EXPECT_EQ(screen.shape, 2);
  EXPECT_EQ(screen.main.absorptance_front, 0.3);
  EXPECT_EQ(screen.main.absorptance_back, 0.45);  // its transmittance
  EXPECT_EQ(window.main.construction, Part::kNone);
  EXPECT_TRUE(window.main.window);
  EXPECT_EQ(window.main.window_type, "7");
  EXPECT_FALSE(window.main.curtain);
  EXPECT_EQ(window.leakage, 0.5);
  EXPECT_EQ(window.azimuth, -30);
  EXPECT_EQ(window.z, 3);
  EXPECT_EQ(window.texts, (std::array<std::string, 5>{"45.00", "-30.00", "1.00", "2.00", "3.00"}));
  EXPECT_EQ(window.line, 6);
  EXPECT_EQ(bare.main.construction, Part::kNone);
  EXPECT_FALSE(bare.main.window);
  EXPECT_EQ(bare.dims, (std::array<double, 6>{1, 2, 3, 4, 5, 6}));
  EXPECT_EQ(holed.name, "Holed wall");
  EXPECT_EQ(holed.line, 10);  // it begins on the pentagon's open line
  EXPECT_EQ(holed.front, -1);
  EXPECT_EQ(holed.main.construction, Part::kWall);
  EXPECT_EQ(holed.main.wall, 3);
  EXPECT_EQ(holed.main.emittance_front, 0.9);
  EXPECT_EQ(holed.main.emittance_back, 0.9);
  EXPECT_EQ(holed.hole.construction, Part::kShadingScreen);
  EXPECT_EQ(holed.hole.absorptance_front, 0.2);
  EXPECT_TRUE(holed.hole.window);
  EXPECT_TRUE(holed.hole.curtain);
  EXPECT_EQ(holed.hole.window_type, "4");
  // The last element may leave its line open at the end of the file.
  Dat1Building last = ParseDat1("DAT1.DAT", OneElement(bare_pentagon));
  EXPECT_EQ(last.elements.at(0).shape, 5);
}

TEST(Dat1File, DamageIsReportedWithTheFileAndTheLine) {
  const std::string element =
      "Wall            1.00     90.00      0.00      0.00      0.00      0.00 0.00 1.00\r\n";
  const std::string geometry = "   4.00   2.00   0.00   0.00   0.00   0.00";
  const struct {
    std::string text;
    int line;
    const char* what;
  } rows[] = {
      {"Head\r\n   1.50   1.00\r\n", 2, "The count of volumes must be a whole number from 0 to 8"},
      {"Head\r\n   9.00   1.00\r\n", 2, "The count of volumes must be a whole number from 0 to 8"},
      {"Head\r\n   1.00 101.00\r\n", 2,
       "The count of elements must be a whole number from 0 to 100"},
      {"Head\r\n   1.00\r\n", 2, "The line ends before column 14"},
      {"Head\r\n   1.00   1.00\r\n", 3, "The file ends too early"},
      {OneElement(""), 4, "The file ends before element 1 of 1"},
      {OneElement("Wall 1.00\r\n"), 4, "An element's first line must hold 80 characters"},
      {OneElement("Wall            6.00" + element.substr(20) + geometry), 4,
       "The shape code must be a whole number from 1 to 5"},
      {OneElement(element.substr(0, 30) + "     9a.00" + element.substr(40) + geometry), 4,
       "A number was expected in columns 31 to 40"},
      {OneElement(element + "   4.00   2.00\r\n"), 5, "The line ends before column 21"},
      {OneElement(element + geometry + "\r\nmore\r\n"), 6, "Text follows the last element"},
      {OneElement(element + geometry + " 1.00 2.50 0.70 0.70 0.00    1.0000\r\n .9\r\n"), 5,
       "The construction number must be a whole number from 0 to 99999"},
      {OneElement(element + geometry + " 1.00 2.00 0.70 0.70 0.00    1.0000\r\n .9\r\n"), 6,
       "Two emittances were expected on the line"},
      {OneElement(element + geometry + " 1.00 2.00 0.70 0.70 0.00    1.0000\r\n .9 x\r\n"), 6,
       "Two emittances were expected on the line"},
      {"Head\r\n   2.00   0.00\r\n   1.00\r\n   1.00\r\n   0.00\r\n", 5,
       "The line ends before column 14"},
  };
  for (const auto& row : rows) {
    try {
      ParseDat1("/case/DAT1.DAT", row.text);
      ADD_FAILURE() << row.what;
    } catch (const FileError& error) {
      EXPECT_EQ(error.what(), std::string(row.what)) << row.text;
      EXPECT_EQ(error.line(), row.line) << row.what;
      EXPECT_EQ(error.path(), "/case/DAT1.DAT");
    }
  }
  testing::TempDir dir;
  try {
    ReadCaseDat1(dir.path() + "/");
    ADD_FAILURE();
  } catch (const FileError& error) {
    EXPECT_EQ(error.UserText(), "The file cannot be opened\r" + (dir / "DAT1.DAT"));
  }
}

}  // namespace
}  // namespace zelmo::modules
