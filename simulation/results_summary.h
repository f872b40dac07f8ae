// The yearly summary of a case's calculation: MUK.SUM in the case folder,
// written by the heat balance module. Its head line names the module and a
// fingerprint of the input; then a line of column names and one line per
// volume, tab separated, a point as decimal separator, CR LF:
//
//   ZELMO-QRN MUK <fingerprint>
//   Volume  Heating [kWh]  Cooling [kWh]  Peak heating [W]  Peak cooling [W]
//           T_min [C]  T_mean [C]  T_max [C]
//   1  4321.000  5876.000  3184.000  6024.000  20.000  23.123  27.000
//
// Peaks are the largest mean power over a clock hour; the temperatures are
// of the hourly mean air temperatures. `zelmo summary` prints it and the
// validation report compares it with the reference programs.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace zelmo {

inline constexpr const char* kSummaryFile = "MUK.SUM";
inline constexpr const char* kSummaryHead = "ZELMO-QRN MUK ";
inline constexpr const char* kSummaryColumns =
    "Volume\tHeating [kWh]\tCooling [kWh]\tPeak heating [W]\tPeak cooling [W]\tT_min [C]\t"
    "T_mean [C]\tT_max [C]";

struct VolumeSummary {
  int volume = 0;
  double heating_kwh = 0;
  double cooling_kwh = 0;
  double peak_heating_w = 0;
  double peak_cooling_w = 0;
  double t_min = 0;
  double t_mean = 0;
  double t_max = 0;
  bool operator==(const VolumeSummary&) const = default;
};

struct ResultsSummary {
  std::string fingerprint;
  std::vector<VolumeSummary> volumes;
};

// A number field as a program writes it: the whole field, finite, a point
// as decimal separator; nothing for anything else (blanks, "7,5", "nan").
std::optional<double> WrittenNumber(const std::string& field);

// Reads the bytes of a MUK.SUM. A head line of another form, other column
// names, a line of a field too few or too many, a value that is no finite
// number, a volume out of 1 to 8 or named twice: FileError with `path` and
// the line.
ResultsSummary ParseResultsSummary(const std::string& path, const std::string& bytes);

// The file's bytes for `summary`, as the module writes them.
std::string ResultsSummaryText(const ResultsSummary& summary);

// What a case's summary is worth reading: its results, or why there are
// none to show.
struct CaseSummary {
  std::optional<ResultsSummary> summary;
  std::string problem;  // empty when `summary` holds the results
};

// The fingerprint the results of a case must carry to be its present ones,
// computed from the case folder; empty when it cannot be told.
using SummaryFingerprint = std::function<std::string(const std::string& case_folder)>;

// Reads the summary of a case folder. No results: MUK.SUM is missing.
// Stale results: THERMAL.INP marks a module to run since the last run
// ("X"), or `fingerprint` (when given and not empty) differs from the file's.
// A damaged file: its FileError's text.
CaseSummary ReadCaseSummary(const std::string& case_folder,
                            const SummaryFingerprint& fingerprint = nullptr);

// One line of `zelmo summary`: the volume, then the seven values in the
// file's order, kWh and W with one decimal, temperatures with two, in
// right-aligned columns separated by blanks.
std::string SummaryLine(const VolumeSummary& volume);

}  // namespace zelmo
