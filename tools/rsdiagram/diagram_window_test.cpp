// The line diagram in an offscreen window: the lines drawn carry the table's
// values at the table's hours, the exports write the chosen slice and a PNG
// picture, and the program itself says why it shows nothing.
#include "tools/rsdiagram/diagram_window.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QDateTime>
#include <QDateTimeAxis>
#include <QFile>
#include <QImage>
#include <QLineSeries>
#include <QProcess>
#include <QValueAxis>

#include "core/testing/fakes.h"
#include "core/text_file.h"
#include "platform/qt_text.h"
#include "tools/test_app.h"

namespace zelmo::rsdiagram {
namespace {

QApplication& App() { return tools::TestApp(); }

const char* const kTable =
    "Month\tDay\tHour\tT_out [C]\tV1 T_air [C]\tV1 Heating [W]\tV2 T_air [C]\tV2 Cooling [W]\r\n"
    "1\t14\t24\t-6.00\t20.00\t800.00\t21.00\t0.00\r\n"
    "1\t15\t1\t-7.00\t19.50\t950.50\t20.75\t0.00\r\n"
    "1\t15\t2\t-7.50\t19.25\t975.00\t20.50\t0.00\r\n"
    "1\t16\t1\t-2.00\t20.50\t400.00\t22.00\t10.00\r\n";

results::HourlyTable Table() { return results::ParseHourlyTable("HOURLY.TXT", kTable); }

std::vector<QLineSeries*> Lines(QChart* chart) {
  std::vector<QLineSeries*> lines;
  for (QAbstractSeries* series : chart->series())
    lines.push_back(qobject_cast<QLineSeries*>(series));
  return lines;
}

TEST(DiagramWindowTest, LinesHoldTheTableValuesAtTheTableHours) {
  App();
  DiagramWindow window(Table(), "/data/ZELMOPROJ/office/case1/");
  EXPECT_EQ(window.Chosen(), (std::vector<int>{1, 2, 3, 4}));
  window.Choose({1, 2});
  ASSERT_TRUE(window.SetPeriod(DiagramWindow::kDay, "15.1"));
  std::vector<QLineSeries*> lines = Lines(window.chart());
  ASSERT_EQ(lines.size(), 2u);
  EXPECT_EQ(lines[0]->name(), "V1 air temp. [C]");
  EXPECT_EQ(lines[1]->name(), "V1 heating [W]");
  const int h1 = 14 * 24 + 1, h2 = 14 * 24 + 2;
  QList<QPointF> expected_t = {{ChartX(h1), 19.5}, {ChartX(h2), 19.25}};
  QList<QPointF> expected_h = {{ChartX(h1), 950.5}, {ChartX(h2), 975.0}};
  EXPECT_EQ(lines[0]->points(), expected_t);
  EXPECT_EQ(lines[1]->points(), expected_h);
  // The end of hour 1 of 15 January is 1:00 that day.
  EXPECT_EQ(QDateTime::fromMSecsSinceEpoch(static_cast<qint64>(ChartX(h1))),
            QDateTime(QDate(2001, 1, 15), QTime(1, 0)));
  // Temperatures on the left axis, powers on the right, each with its unit.
  auto left = window.chart()->axes(Qt::Vertical, lines[0]);
  auto right = window.chart()->axes(Qt::Vertical, lines[1]);
  ASSERT_EQ(left.size(), 1);
  ASSERT_EQ(right.size(), 1);
  EXPECT_EQ(left[0]->titleText(), "Temperature [C]");
  EXPECT_EQ(right[0]->titleText(), "Power [W]");
  EXPECT_EQ(left[0]->alignment(), Qt::AlignLeft);
  EXPECT_EQ(right[0]->alignment(), Qt::AlignRight);
  EXPECT_TRUE(window.chart()->title().contains("Project office, case case1"));
  EXPECT_TRUE(window.chart()->title().contains("15.1 - 15.1"));
}

TEST(DiagramWindowTest, PeriodsChooseTheirHours) {
  App();
  DiagramWindow window(Table(), "/p/c/");
  window.Choose({0});
  struct Case {
    DiagramWindow::Kind kind;
    QString from, to;
    int points;
  };
  for (const Case& c :
       {Case{DiagramWindow::kYear, "1.1", "", 4}, Case{DiagramWindow::kWeek, "15.1", "", 3},
        Case{DiagramWindow::kDates, "14.1", "15.1", 3}, Case{DiagramWindow::kMonth, "1.2", "", 0},
        Case{DiagramWindow::kDay, "16.1", "", 1}}) {
    ASSERT_TRUE(window.SetPeriod(c.kind, c.from, c.to));
    EXPECT_EQ(Lines(window.chart())[0]->count(), c.points) << c.from.toStdString();
  }
}

TEST(DiagramWindowTest, ExportsWriteTheSliceAndAPicture) {
  App();
  testing::TempDir dir;
  DiagramWindow window(Table(), "/p/c/");
  window.Choose({0, 4});
  ASSERT_TRUE(window.SetPeriod(DiagramWindow::kDates, "15.1", "16.1"));
  ASSERT_TRUE(window.ExportCsv(platform::Q(dir / "d.csv")));
  EXPECT_EQ(testing::ReadBytes(dir / "d.csv"),
            "Month,Day,Hour,T_out [C],V2 Cooling [W]\r\n"
            "1,15,1,-7.00,0.00\r\n"
            "1,15,2,-7.50,0.00\r\n"
            "1,16,1,-2.00,10.00\r\n");
  ASSERT_TRUE(window.ExportPng(platform::Q(dir / "d.png")));
  QImage picture(platform::Q(dir / "d.png"));
  EXPECT_FALSE(picture.isNull());
  EXPECT_GT(picture.width(), 100);
  EXPECT_FALSE(window.ExportCsv(platform::Q(dir / "missing/d.csv")));
}

// The staged program itself, run as a script runs it.
class RsDiagramProgramTest : public ::testing::Test {
 protected:
  QString Program() {
    return QString::fromLocal8Bit(std::getenv("ZELMO_DIST_DIR")) + "/DIAGRAM/RSDiagram.EXE";
  }
  int Run(const QStringList& arguments, QString* error = nullptr) {
    QProcess process;
    process.start(Program(), arguments);
    process.waitForFinished(60000);
    if (error) *error = QString::fromLocal8Bit(process.readAllStandardError()).trimmed();
    return process.exitCode();
  }
  testing::TempDir dir_;
};

TEST_F(RsDiagramProgramTest, ExportWritesTheChartWithoutAWindow) {
  App();
  std::string folder = dir_ / "office";
  std::filesystem::create_directories(ToFsPath(folder + "/case1"));
  ASSERT_TRUE(WriteAllBytes(folder + "/case1/HOURLY.TXT", kTable));
  QString png = platform::Q(dir_ / "year.png");
  EXPECT_EQ(
      Run({platform::Q(folder + "/case1/"), "--export", png, "--from", "15.1", "--to", "16.1"}), 0);
  EXPECT_FALSE(QImage(png).isNull());
}

TEST_F(RsDiagramProgramTest, CasesWithoutGoodResultsSaySo) {
  App();
  std::string folder = dir_ / "c";
  std::filesystem::create_directories(ToFsPath(folder));
  QString png = platform::Q(dir_ / "x.png");
  QString error;
  EXPECT_EQ(Run({platform::Q(folder), "--export", png}, &error), 1);
  // The platform may warn before the program's own line.
  EXPECT_TRUE(error.endsWith(platform::Q(results::NoHourlyResultsText(folder))))
      << error.toStdString();
  ASSERT_TRUE(
      WriteAllBytes(folder + "/HOURLY.TXT", "Month\tDay\tHour\tT_out [C]\r\n1\t1\tx\t2\r\n"));
  EXPECT_EQ(Run({platform::Q(folder), "--export", png}, &error), 1);
  EXPECT_TRUE(
      error.endsWith("The hourly results cannot be shown.\n"
                     "The month, day or hour is not a date of the year.\n" +
                     platform::Q(folder + "/HOURLY.TXT") + ", line 2"))
      << error.toStdString();
  EXPECT_FALSE(QFile::exists(png));
}

}  // namespace
}  // namespace zelmo::rsdiagram
