// The comparison of the validation cases with the reference programs'
// example results of ANSI/ASHRAE Standard 140-2020, Annex B8
// (docs/validation/reference.csv): the reader of that table, the value of
// each quantity from a case's yearly summary, the comparison of every row
// with the range of the six programs, and the table of the report.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <vector>

#include "simulation/results_summary.h"

namespace zelmo {

inline constexpr int kReferencePrograms = 6;

struct ReferenceRow {
  std::string case_name;  // as the standard names it: "600", "600FF"
  std::string quantity;   // "annual_heating", ...
  std::string unit;       // "MWh", "kW" or "degC"
  std::array<double, kReferencePrograms> programs{};
  double min = 0, max = 0, mean = 0;
};

struct ReferenceTable {
  std::array<std::string, kReferencePrograms> programs;  // the column names
  std::vector<ReferenceRow> rows;
};

// Reads the CSV (comma separated, a point as decimal separator, LF or CR LF
// line ends): the head line "case,quantity,unit,<six programs>,min,max,mean",
// then a row of 12 fields each. A head of other columns, a row of another
// field count, a value that is no number, or a min above its max: FileError
// with `path` and the line.
ReferenceTable ParseReference(const std::string& path, const std::string& bytes);

// The folder of a reference case in the project bestest: "600FF" -> "c600ff".
std::string BestestCaseFolder(const std::string& reference_case);

// A quantity of the reference table from a volume's summary, in the
// table's unit (MWh, kW, degC); nothing for a quantity it does not know.
std::optional<double> QuantityValue(const VolumeSummary& volume, const std::string& quantity);

// One row of the comparison: this program's value, or why there is none.
struct Comparison {
  ReferenceRow reference;
  std::optional<double> value;
  std::string problem;  // no results, stale results, unknown quantity
  bool Inside() const { return value && *value >= reference.min && *value <= reference.max; }
};

// Compares every row with volume 1 of the case's summary in `project`.
std::vector<Comparison> CompareWithReference(const ReferenceTable& table,
                                             const std::string& project,
                                             const SummaryFingerprint& fingerprint = nullptr);

// The report's table in Markdown: case, quantity, unit, this program, the
// six programs, min, max, and "inside", "OUTSIDE" or the missing result's
// reason.
std::string ComparisonMarkdown(const ReferenceTable& table,
                               const std::vector<Comparison>& comparisons);
// The same as CSV, the program's value in the column "ZELMO-QRN" (empty
// when there is none) and the verdict in "range".
std::string ComparisonCsv(const ReferenceTable& table, const std::vector<Comparison>& comparisons);

// The whole report in Markdown: a title, how many rows lie inside the
// range, the table, the chart `chart_file` when not empty, and the settings
// of the project.
std::string ValidationReport(const ReferenceTable& table,
                             const std::vector<Comparison>& comparisons,
                             const std::string& chart_file);

// Where the program's input cannot say what a case says, the setting the
// project bestest takes instead, as a Markdown table: the report prints it
// beside the results.
std::string BestestSettingsMarkdown();

}  // namespace zelmo
