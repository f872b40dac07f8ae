// TrvComf's window offscreen: the counts of the categories, the hours above
// the chosen PPD, the PMV line at the table's hours, and a new calculation
// with other conditions.
#include "tools/felt/comfort_window.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QLineSeries>

#include "core/testing/fakes.h"
#include "core/text_file.h"
#include "tools/rsdiagram/diagram_window.h"
#include "tools/test_app.h"

namespace zelmo::felt {
namespace {

QApplication& App() { return tools::TestApp(); }

// Runs 4, 2 and 1 of ISO 7730 Table D.1, all at 1.2 met, 0.5 clo, 0.1 m/s
// and 60 %: PMV -0.01 (PPD 5, A and I), +0.77 and -0.75 (PPD 17, outside
// C, in IV).
const char* const kTable =
    "Month\tDay\tHour\tV1 T_air [C]\tV1 T_mrt [C]\r\n"
    "1\t10\t9\t23.50\t25.50\r\n"
    "7\t1\t1\t27.00\t27.00\r\n"
    "7\t1\t2\t22.00\t22.00\r\n";

class ComfortWindowTest : public ::testing::Test {
 protected:
  void SetUp() override {
    App();
    results::ComfortSettings s;
    s.humidity = 60;
    s.clo_winter = 0.5;
    ASSERT_TRUE(results::WriteComfortSettings(dir_.path(), s));
    ASSERT_TRUE(WriteAllBytes(dir_ / "COMFORT.TXT", kTable));
    ASSERT_EQ(results::WriteComfortResult(dir_.path()), "");
  }
  results::ComfortResult Result() { return results::ReadComfortResult(dir_ / "Felt.GGG"); }
  std::vector<int> Counts(const ComfortWindow& window) {
    std::vector<int> counts;
    for (int row = 0; row < window.categories()->rowCount(); ++row) {
      counts.push_back(window.categories()->item(row, 2)->text().toInt());
    }
    return counts;
  }
  testing::TempDir dir_;
};

TEST_F(ComfortWindowTest, CategoriesAndHoursAboveThePpd) {
  ComfortWindow window(dir_.path(), Result());
  EXPECT_EQ(Counts(window), (std::vector<int>{1, 0, 0, 2}));
  EXPECT_EQ(window.categories()->item(3, 0)->text(), "Outside C");
  EXPECT_EQ(window.categories()->item(0, 3)->text(), "33.3 %");
  window.scheme()->setCurrentIndex(1);
  EXPECT_EQ(Counts(window), (std::vector<int>{1, 0, 0, 2, 0}));
  EXPECT_EQ(window.categories()->item(0, 0)->text(), "I");
  window.ppd_limit()->setValue(10);
  EXPECT_EQ(window.above()->text(), ": 2 of 3 hours");
  window.ppd_limit()->setValue(18);
  EXPECT_EQ(window.above()->text(), ": 0 of 3 hours");
}

TEST_F(ComfortWindowTest, PmvLineAtTheTableHours) {
  ComfortWindow window(dir_.path(), Result());
  ASSERT_EQ(window.chart()->series().size(), 1);
  auto* line = qobject_cast<QLineSeries*>(window.chart()->series()[0]);
  ASSERT_EQ(line->count(), 3);
  EXPECT_EQ(line->at(1).x(), rsdiagram::ChartX(181 * 24 + 1));
  EXPECT_NEAR(line->at(1).y(), 0.77, 0.005);
  EXPECT_NEAR(line->at(2).y(), -0.75, 0.005);
}

TEST_F(ComfortWindowTest, RecalculateWritesTheConditionsAndComputesAgain) {
  ComfortWindow window(dir_.path(), Result());
  window.met()->setValue(1.6);
  window.humidity()->setValue(40);
  ASSERT_TRUE(window.Recalculate());
  results::ComfortSettings expected;
  expected.met = 1.6;
  expected.clo_winter = 0.5;
  expected.humidity = 40;
  EXPECT_EQ(testing::ReadBytes(dir_ / "FELT.INP"), results::ComfortSettingsText(expected));
  EXPECT_DOUBLE_EQ(window.result().settings.met, 1.6);
  EXPECT_NEAR(window.result().hours[0].pmv,
              results::ComputePmvPpd(23.5, 25.5, 0.1, 40, 1.6, 0.5).pmv, 0.005);
}

}  // namespace
}  // namespace zelmo::felt
