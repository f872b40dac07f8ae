#include "tools/validation_report/chart.h"

#include <gtest/gtest.h>

#include <QGuiApplication>
#include <QProcess>
#include <cstdlib>

#include "core/testing/fakes.h"
#include "core/text_file.h"

namespace zelmo::validation {
namespace {

// Pixels of a colour inside a panel.
int Count(const QImage& image, int panel, QRgb colour) {
  const int x0 = (panel % kPanelColumns) * kPanelWidth, y0 = (panel / kPanelColumns) * kPanelHeight;
  int count = 0;
  for (int y = y0; y < y0 + kPanelHeight; ++y) {
    for (int x = x0; x < x0 + kPanelWidth; ++x) count += image.pixel(x, y) == colour;
  }
  return count;
}

ReferenceTable Table() {
  ReferenceTable table;
  table.programs = {"BSIMAC", "CSE", "DeST", "EnergyPlus", "ESP-r", "TRNSYS"};
  table.rows = {
      {"600", "annual_heating", "MWh", {4.05, 3.99, 4.05, 4.32, 4.36, 4.50}, 3.99, 4.50, 4.21},
      {"600FF",
       "annual_min_zone_temperature",
       "degC",
       {-13, -12, -11, -10, -9.9, -13.8},
       -13.8,
       -9.9,
       -11.6},
      {"900", "peak_heating", "kW", {2.5, 2.6, 2.7, 2.6, 2.5, 2.4}, 2.4, 2.7, 2.55}};
  return table;
}

TEST(ValidationChart, ShowsEachValueGreenInsideRedOutsideAndWhyOneIsMissing) {
  int argc = 1;
  char name[] = "test";
  char* argv[] = {name};
  QGuiApplication app(argc, argv);
  const ReferenceTable table = Table();
  const std::vector<Comparison> rows = {
      {table.rows[0], 4.2, ""},
      {table.rows[1], -15.0, ""},
      {table.rows[2], std::nullopt, "no results: MUK.SUM is missing"}};
  const QImage image = ValidationChart(table, rows);
  EXPECT_EQ(image.size(), QSize(kPanelColumns * kPanelWidth, kPanelHeight));
  // Inside: a green mark and no red; outside: a red mark and no green.
  EXPECT_EQ(Count(image, 0, kInsideColour), 13 * 13);
  EXPECT_EQ(Count(image, 0, kOutsideColour), 0);
  EXPECT_EQ(Count(image, 1, kOutsideColour), 13 * 13);
  EXPECT_EQ(Count(image, 1, kInsideColour), 0);
  // Missing: a line of text, no mark of this program.
  EXPECT_EQ(Count(image, 2, kInsideColour), 0);
  EXPECT_LT(Count(image, 2, kOutsideColour), 13 * 13);
  // The six programs' marks in every panel; two fall together in the first.
  for (int panel = 1; panel < 3; ++panel) EXPECT_GE(Count(image, panel, 0xff9a9a9a), 6 * 9 * 9);
}

// The command writes the three files from a project with hand-made results.
TEST(ValidationReport, TheCommandWritesTableCsvAndChart) {
  testing::TempDir dir;
  testing::WriteBytes(dir / "bestest/c600/THERMAL.INP", "------\r\n");
  testing::WriteBytes(
      dir / "bestest/c600/MUK.SUM",
      "ZELMO-QRN MUK 00000000000000ff\r\n" + std::string(kSummaryColumns) +
          "\r\n1\t4200.000\t5800.000\t3100.000\t6000.000\t20.000\t23.000\t27.000\r\n");
  testing::WriteBytes(dir / "reference.csv",
                      "case,quantity,unit,BSIMAC,CSE,DeST,EnergyPlus,ESP-r,TRNSYS,min,max,mean\n"
                      "600,annual_heating,MWh,4.05,3.99,4.05,4.32,4.36,4.50,3.99,4.50,4.21\n"
                      "900,annual_heating,MWh,1.5,1.4,1.6,1.7,1.8,1.6,1.4,1.8,1.6\n");
  const QString program =
      QString::fromStdString(std::string(std::getenv("ZELMO_DIST_DIR")) + "/zelmo-validate");
  QProcess run;
  run.start(program,
            {QString::fromStdString(dir / "bestest"), QString::fromStdString(dir / "reference.csv"),
             QString::fromStdString(dir / "out")});
  ASSERT_TRUE(run.waitForFinished(30000));
  EXPECT_EQ(run.exitCode(), 0) << run.readAllStandardError().toStdString();
  EXPECT_EQ(run.readAllStandardOutput().toStdString(),
            "1 of 2 inside the reference range; " + (dir / "out/validation.md") + "\n");
  const std::string csv = testing::ReadBytes(dir / "out/validation.csv");
  EXPECT_NE(csv.find("600,annual_heating,MWh,4.200,"), std::string::npos) << csv;
  EXPECT_NE(csv.find(",no results: "), std::string::npos) << csv;
  const std::string md = testing::ReadBytes(dir / "out/validation.md");
  EXPECT_NE(md.find("1 of 2 quantities lie inside"), std::string::npos);
  EXPECT_NE(md.find("![The quantities beside the six programs](validation.png)"),
            std::string::npos);
  QImage chart(QString::fromStdString(dir / "out/validation.png"));
  EXPECT_EQ(chart.size(), QSize(kPanelColumns * kPanelWidth, kPanelHeight));

  // A wrong command line, and a damaged table.
  run.start(program, {QString::fromStdString(dir / "bestest")});
  ASSERT_TRUE(run.waitForFinished(30000));
  EXPECT_EQ(run.exitCode(), 2);
  testing::WriteBytes(dir / "reference.csv", "case,quantity\n");
  run.start(program,
            {QString::fromStdString(dir / "bestest"), QString::fromStdString(dir / "reference.csv"),
             QString::fromStdString(dir / "out")});
  ASSERT_TRUE(run.waitForFinished(30000));
  EXPECT_EQ(run.exitCode(), 1);
}

}  // namespace
}  // namespace zelmo::validation
