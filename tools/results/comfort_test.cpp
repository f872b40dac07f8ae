#include "tools/results/comfort.h"

#include <gtest/gtest.h>

#include <cmath>

#include "core/testing/fakes.h"
#include "core/text_file.h"

namespace zelmo::results {
namespace {

// ISO 7730:2005, Annex D, Table D.1, runs 1, 2, 4, 5 and 6: the inputs and
// the PMV to two decimals and the PPD in whole percent the standard's
// program gives.
TEST(ComfortTest, PmvAndPpdOfTheStandardsExamples) {
  struct Row {
    double ta, tr, var, rh, met, clo, pmv, ppd;
  };
  const Row rows[] = {
      {22, 22, 0.1, 60, 1.2, 0.5, -0.75, 17},    {27, 27, 0.1, 60, 1.2, 0.5, 0.77, 17},
      {23.5, 25.5, 0.1, 60, 1.2, 0.5, -0.01, 5}, {23.5, 25.5, 0.3, 60, 1.2, 0.5, -0.55, 11},
      {19, 19, 0.1, 40, 1.2, 1.0, -0.60, 13},
  };
  for (const Row& r : rows) {
    PmvPpd index = ComputePmvPpd(r.ta, r.tr, r.var, r.rh, r.met, r.clo);
    EXPECT_NEAR(index.pmv, r.pmv, 0.005 + 1e-9) << r.ta << " " << r.tr << " " << r.var;
    EXPECT_EQ(std::round(index.ppd), r.ppd) << r.ta << " " << r.tr << " " << r.var;
  }
}

TEST(ComfortTest, PpdOfPmvByTheStandardsEquation) {
  // 100 - 95 exp(-0.03353 PMV^4 - 0.2179 PMV^2), by hand.
  EXPECT_DOUBLE_EQ(PpdOfPmv(0), 5);
  EXPECT_NEAR(PpdOfPmv(0.5), 10.23, 0.01);
  EXPECT_NEAR(PpdOfPmv(-1.0), 26.12, 0.01);
  EXPECT_NEAR(PpdOfPmv(3.0), 99.12, 0.01);
}

TEST(ComfortTest, SettingsLimitsJustInsideAndOutside) {
  struct Case {
    ComfortSettings settings;
    bool good;
  };
  auto with = [](auto change) {
    ComfortSettings s;
    change(s);
    return s;
  };
  const Case cases[] = {
      {ComfortSettings{}, true},
      {with([](auto& s) { s.met = 0.8; }), true},
      {with([](auto& s) { s.met = 0.79; }), false},
      {with([](auto& s) { s.met = 4.0; }), true},
      {with([](auto& s) { s.met = 4.01; }), false},
      {with([](auto& s) { s.clo_summer = 0; }), true},
      {with([](auto& s) { s.clo_winter = 2.01; }), false},
      {with([](auto& s) { s.air_speed = 1.0; }), true},
      {with([](auto& s) { s.air_speed = -0.01; }), false},
      {with([](auto& s) { s.humidity = 100; }), true},
      {with([](auto& s) { s.humidity = 100.5; }), false},
      {with([](auto& s) { s.summer_to = 13; }), false},
      {with([](auto& s) { s.summer_from = 0; }), false},
  };
  for (const Case& c : cases) {
    EXPECT_EQ(!CheckComfortSettings(c.settings).has_value(), c.good) << c.settings.met;
  }
  EXPECT_EQ(*CheckComfortSettings(with([](auto& s) {
    s.met = 5;
    s.humidity = -1;
  })),
            "The activity must lie between 0.8 and 4 met. The relative humidity must lie "
            "between 0 and 100 %.");
}

TEST(ComfortTest, SettingsFileBytesAndRoundTrip) {
  testing::TempDir dir;
  EXPECT_EQ(ReadComfortSettings(dir.path()), ComfortSettings{});
  ComfortSettings s;
  s.met = 1.6;
  s.clo_summer = 0.6;
  s.summer_from = 6;
  s.humidity = 45;
  ASSERT_TRUE(WriteComfortSettings(dir.path(), s));
  EXPECT_EQ(testing::ReadBytes(dir / "FELT.INP"),
            "M [met]\tI_cl winter [clo]\tI_cl summer [clo]\tSummer from\tSummer to\tv_ar "
            "[m/s]\tRH [%]\r\n1.60\t1.00\t0.60\t6\t9\t0.10\t45\r\n");
  EXPECT_EQ(ReadComfortSettings(dir.path()), s);
}

TEST(ComfortTest, DamagedSettingsNameFileAndLine) {
  testing::TempDir dir;
  const std::string head = ComfortSettingsText({}).substr(0, ComfortSettingsText({}).find('\r'));
  struct Case {
    std::string text;
    int line;
    std::string what;
  };
  const Case cases[] = {
      {"", 1, "The line must read " + head + "."},
      {head + "\r\n", 2, "The line of values is missing."},
      {head + "\r\n1.2\t1\t0.5\t5\t9\t0.1\r\n", 2,
       "The line must hold 7 values, separated by tabs."},
      {head + "\r\n1.2\t1\t0.5\t5.5\t9\t0.1\t50\r\n", 2,
       "The summer months must be whole numbers."},
      {head + "\r\n1.2\tx\t0.5\t5\t9\t0.1\t50\r\n", 2,
       "The value of I_cl winter [clo] is not a number."},
      {head + "\r\n9\t1\t0.5\t5\t9\t0.1\t50\r\n", 2,
       "The activity must lie between 0.8 and 4 met."},
  };
  for (const Case& c : cases) {
    ASSERT_TRUE(WriteAllBytes(dir / "FELT.INP", c.text));
    try {
      ReadComfortSettings(dir.path());
      ADD_FAILURE() << c.text;
    } catch (const FileError& error) {
      EXPECT_EQ(error.line(), c.line) << c.text;
      EXPECT_EQ(std::string(error.what()), c.what);
    }
  }
}

const char* const kComfortTable =
    "Month\tDay\tHour\tV2 T_air [C]\tV2 T_mrt [C]\r\n"
    "1\t1\t1\t22.00\t22.00\r\n"
    "7\t1\t1\t27.00\t27.00\r\n";

TEST(ComfortTest, HoursTakeTheClothingOfTheirSeason) {
  ComfortSettings s;
  s.humidity = 60;
  ComfortResult result =
      ComputeComfort("COMFORT.TXT", ParseHourlyTable("COMFORT.TXT", kComfortTable), s);
  EXPECT_EQ(result.volume, 2);
  ASSERT_EQ(result.hours.size(), 2u);
  // January in winter clothing, July in summer clothing (Table D.1, run 2).
  EXPECT_NEAR(result.hours[0].pmv, ComputePmvPpd(22, 22, 0.1, 60, 1.2, 1.0).pmv, 1e-12);
  EXPECT_NEAR(result.hours[1].pmv, 0.77, 0.005);
}

TEST(ComfortTest, TablesWithoutTheTwoTemperaturesOfOneVolumeAreRefused) {
  for (const char* text : {"Month\tDay\tHour\tV1 T_air [C]\r\n1\t1\t1\t20\r\n",
                           "Month\tDay\tHour\tV1 T_air [C]\tV2 T_mrt [C]\r\n1\t1\t1\t20\t20\r\n",
                           "Month\tDay\tHour\tT_air [C]\tT_mrt [C]\r\n1\t1\t1\t20\t20\r\n"}) {
    try {
      ComputeComfort("COMFORT.TXT", ParseHourlyTable("COMFORT.TXT", text), {});
      ADD_FAILURE() << text;
    } catch (const FileError& error) {
      EXPECT_EQ(std::string(error.what()),
                "The table must hold the air and the mean radiant temperature of one volume.");
    }
  }
}

TEST(ComfortTest, ResultFileBytesAndRoundTrip) {
  ComfortResult result;
  result.volume = 3;
  result.hours = {{{1, 1, 1}, 22.004, 21.5, -0.754, 17.04}, {{1, 1, 2}, 22.5, 22, 0.1, 5.2}};
  std::string text = ComfortResultText(result);
  EXPECT_EQ(text, "ZELMO-QRN FELT V3\r\n" + ComfortSettingsText({}) +
                      "Month\tDay\tHour\tT_air [C]\tT_mrt [C]\tPMV\tPPD [%]\r\n"
                      "1\t1\t1\t22.00\t21.50\t-0.75\t17.0\r\n"
                      "1\t1\t2\t22.50\t22.00\t0.10\t5.2\r\n");
  ComfortResult back = ParseComfortResult("Felt.GGG", text);
  EXPECT_EQ(back.volume, 3);
  ASSERT_EQ(back.hours.size(), 2u);
  EXPECT_DOUBLE_EQ(back.hours[0].pmv, -0.75);
  EXPECT_DOUBLE_EQ(back.hours[1].ppd, 5.2);
  EXPECT_EQ(back.settings, ComfortSettings{});
}

TEST(ComfortTest, DamagedResultFilesNameTheLine) {
  ComfortResult result;
  result.volume = 1;
  result.hours = {{{1, 1, 1}, 22, 22, 0, 5}};
  const std::string good = ComfortResultText(result);
  struct Case {
    std::string text;
    int line;
  };
  const Case cases[] = {
      {"", 1},
      {"ZELMO-QRN FELT V9\r\n" + good.substr(good.find('\n') + 1), 1},
      {"ZELMO-QRN FELT V1\r\n", 2},
      {good.substr(0, good.find("Month")), 4},
      {good.substr(0, good.rfind("1\t1\t1")), 5},
      {good + "1\t1\t1\t22.00\t22.00\t0.00\t5.0\r\n", 6},
      {good + "1\t1\t2\t22.00\t22.00\t0.00\r\n", 6},
  };
  for (const Case& c : cases) {
    try {
      ParseComfortResult("Felt.GGG", c.text);
      ADD_FAILURE() << c.text;
    } catch (const FileError& error) {
      EXPECT_EQ(error.line(), c.line) << c.text;
    }
  }
}

TEST(ComfortTest, CategoriesCountEachHourOnceByPpdAndPmv) {
  auto hour = [](double pmv) { return ComfortHour{{1, 1, 1}, 22, 22, pmv, PpdOfPmv(pmv)}; };
  // By hand: PPD(0.19) = 5.75, A; |-0.2| is not below 0.2, B; PPD(0.48) =
  // 9.81, B; PPD(0.49) = 10.02, C; PPD(-0.68) = 14.72, C; PPD(0.69) = 15.01,
  // outside C and IV of EN 16798-1; PPD(0.97) = 24.87, IV; PPD(0.99) =
  // 25.70, outside IV.
  std::vector<ComfortHour> hours = {hour(0.19),  hour(-0.2), hour(0.48), hour(0.49),
                                    hour(-0.68), hour(0.69), hour(0.97), hour(0.99)};
  auto iso = CountCategories(hours, ComfortScheme::kIso7730);
  ASSERT_EQ(iso.size(), 4u);
  EXPECT_EQ(iso[0].name, "A");
  EXPECT_EQ(iso[0].limits, "PPD < 6 %, -0.2 < PMV < +0.2");
  std::vector<int> counts;
  for (const auto& c : iso) counts.push_back(c.hours);
  EXPECT_EQ(counts, (std::vector<int>{1, 2, 2, 3}));
  auto en = CountCategories(hours, ComfortScheme::kEn16798);
  counts.clear();
  for (const auto& c : en) counts.push_back(c.hours);
  EXPECT_EQ(counts, (std::vector<int>{1, 2, 2, 2, 1}));
  EXPECT_EQ(en.back().name, "Outside IV");
  EXPECT_EQ(HoursAbovePpd(hours, 10), 5);
  EXPECT_EQ(HoursAbovePpd(hours, 26), 0);
}

TEST(ComfortTest, HoursOutsideTheStandardsRange) {
  std::vector<ComfortHour> hours = {{{1, 1, 1}, 10, 40, 0, 5},
                                    {{1, 1, 2}, 9.99, 20, 0, 5},
                                    {{1, 1, 3}, 30.01, 20, 0, 5},
                                    {{1, 1, 4}, 20, 40.01, 0, 5}};
  EXPECT_EQ(HoursOutsideRange(hours), 3);
}

}  // namespace
}  // namespace zelmo::results

namespace zelmo::results {
namespace {

TEST(ComfortTest, TheComfortProgramWritesItsFileOrRemovesTheOldOne) {
  testing::TempDir dir;
  const std::string result = dir / "Felt.GGG";
  ASSERT_TRUE(WriteAllBytes(result, "old"));
  EXPECT_EQ(WriteComfortResult(dir.path()), NoComfortResultsText(dir.path()));
  EXPECT_FALSE(FileCanOpen(result));

  ASSERT_TRUE(WriteAllBytes(dir / "COMFORT.TXT", kComfortTable));
  EXPECT_EQ(WriteComfortResult(dir.path()), "");
  ComfortResult written = ReadComfortResult(result);
  EXPECT_EQ(written.volume, 2);
  ASSERT_EQ(written.hours.size(), 2u);
  EXPECT_DOUBLE_EQ(written.hours[1].t_air, 27);

  ASSERT_TRUE(WriteAllBytes(dir / "FELT.INP", "damaged"));
  EXPECT_EQ(WriteComfortResult(dir.path()),
            "The comfort results cannot be computed.\rThe line must read " +
                ComfortSettingsText({}).substr(0, ComfortSettingsText({}).find('\r')) + ".\r" +
                dir / "FELT.INP" + ", line 1");
  EXPECT_FALSE(FileCanOpen(result));
}

}  // namespace
}  // namespace zelmo::results
