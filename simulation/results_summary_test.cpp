#include "simulation/results_summary.h"

#include <gtest/gtest.h>

#include "core/testing/fakes.h"
#include "core/text_file.h"

namespace zelmo::testing {
namespace {

const std::string kColumns = std::string(kSummaryColumns) + "\r\n";
const std::string kTwoVolumes =
    "ZELMO-QRN MUK 0123456789abcdef\r\n" + kColumns +
    "1\t4321.500\t5876.260\t3184.000\t6024.125\t-12.500\t25.230\t64.600\r\n"
    "3\t0.000\t0.000\t0.000\t0.000\t20.000\t20.000\t20.000\r\n";

TEST(ResultsSummary, ReadsEachVolumeAndWritesTheSameBytes) {
  const ResultsSummary summary = ParseResultsSummary("MUK.SUM", kTwoVolumes);
  EXPECT_EQ(summary.fingerprint, "0123456789abcdef");
  ASSERT_EQ(summary.volumes.size(), 2u);
  EXPECT_EQ(summary.volumes[0],
            (VolumeSummary{1, 4321.5, 5876.26, 3184, 6024.125, -12.5, 25.23, 64.6}));
  EXPECT_EQ(summary.volumes[1].volume, 3);
  EXPECT_EQ(ResultsSummaryText(summary), kTwoVolumes);
  EXPECT_EQ(SummaryLine(summary.volumes[0]),
            "1     4321.5     5876.3     3184.0     6024.1  -12.50   25.23   64.60");
}

// Each damage is refused with the line it stands on.
TEST(ResultsSummary, RefusesADamagedFileNamingTheLine) {
  const std::string head = "ZELMO-QRN MUK 0123456789abcdef\r\n";
  const std::string good = "1\t1\t2\t3\t4\t5\t6\t7\r\n";
  const struct {
    std::string bytes;
    int line;
    std::string fault;
  } cases[] = {
      {"", 1, "no head line"},
      {"ZELMO-QRN DANE 0123\r\n" + kColumns + good, 1, "no head line"},
      {"ZELMO-QRN MUK \r\n" + kColumns + good, 1, "no head line"},
      {"ZELMO-QRN MUK 01 23\r\n" + kColumns + good, 1, "no head line"},
      {head + "Volume\tHeating\r\n" + good, 2, "column names"},
      {head + kColumns, 3, "no volume"},
      {head + kColumns + "1\t1\t2\t3\t4\t5\t6\r\n", 3, "8 fields"},
      {head + kColumns + "1\t1\t2\t3\t4\t5\t6\t7\t8\r\n", 3, "8 fields"},
      {head + kColumns + "1\t1\t2\t3\t4\t5\t6\tnan\r\n", 3, "no number: nan"},
      {head + kColumns + "1\t1\t2\t3\t4\t5\t6\t7,5\r\n", 3, "no number: 7,5"},
      {head + kColumns + "1\t1\t2\t3\t4\t5\t6\t 7\r\n", 3, "no number:  7"},
      {head + kColumns + "0\t1\t2\t3\t4\t5\t6\t7\r\n", 3, "volume"},
      {head + kColumns + "9\t1\t2\t3\t4\t5\t6\t7\r\n", 3, "volume"},
      {head + kColumns + "1.5\t1\t2\t3\t4\t5\t6\t7\r\n", 3, "volume"},
      {head + kColumns + good + good, 4, "volume"},
      {head + kColumns + "1\t1\t2\t3\t4\t5\t6\t7\n", 3, "CR LF"},
  };
  for (const auto& c : cases) {
    try {
      ParseResultsSummary("MUK.SUM", c.bytes);
      ADD_FAILURE() << c.bytes;
    } catch (const FileError& error) {
      EXPECT_EQ(error.line(), c.line) << c.bytes;
      EXPECT_NE(std::string(error.what()).find(c.fault), std::string::npos) << error.what();
    }
  }
  // The limits themselves pass, and a last line without its CR LF.
  EXPECT_EQ(ParseResultsSummary("MUK.SUM", head + kColumns + "8\t0\t0\t0\t0\t-1e3\t0\t1e3")
                .volumes[0]
                .t_min,
            -1000);
}

struct CaseFolder {
  CaseFolder() { WriteBytes(dir / "THERMAL.INP", "------\r\n"); }
  TempDir dir;
};

TEST(CaseSummary, TellsMissingStaleAndDamagedResultsApart) {
  CaseFolder c;
  const std::string sum = c.dir / "MUK.SUM";
  EXPECT_EQ(ReadCaseSummary(c.dir.path()).problem,
            "no results: " + sum + " is missing; run the case first");
  WriteBytes(sum, kTwoVolumes);
  const CaseSummary good = ReadCaseSummary(c.dir.path());
  ASSERT_TRUE(good.summary) << good.problem;
  EXPECT_EQ(good.summary->volumes.size(), 2u);
  // A fingerprint that matches, or that cannot be told, leaves them good.
  EXPECT_TRUE(ReadCaseSummary(c.dir.path(), [](const std::string&) {
                return std::string("0123456789abcdef");
              }).summary);
  EXPECT_TRUE(
      ReadCaseSummary(c.dir.path(), [](const std::string&) { return std::string(); }).summary);
  EXPECT_EQ(
      ReadCaseSummary(c.dir.path(), [](const std::string&) { return std::string("ffff"); }).problem,
      "stale results: " + sum +
          " was computed from another input than the case holds now; run "
          "it again");
  // A screen that saved since the run marks the modules.
  WriteBytes(c.dir / "THERMAL.INP", "-----X\r\n");
  EXPECT_EQ(ReadCaseSummary(c.dir.path()).problem,
            "stale results: the case has changed since its last run (" + (c.dir / "THERMAL.INP") +
                " marks modules to run); run it again");
  WriteBytes(c.dir / "THERMAL.INP", "------\r\n");
  WriteBytes(sum, "ZELMO-QRN MUK 01\r\n");
  const CaseSummary damaged = ReadCaseSummary(c.dir.path());
  EXPECT_FALSE(damaged.summary);
  EXPECT_NE(damaged.problem.find(sum), std::string::npos) << damaged.problem;
}

}  // namespace
}  // namespace zelmo::testing
