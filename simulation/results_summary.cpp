#include "simulation/results_summary.h"

#include <charconv>
#include <cmath>
#include <cstdio>
#include <set>

#include "core/fields.h"
#include "core/stale.h"
#include "core/text_file.h"

namespace zelmo {

namespace {

constexpr int kValueCount = 7;

std::string Fixed(const char* format, double value) {
  char text[64];
  std::snprintf(text, sizeof text, format, value);
  return text;
}

// The lines of the bytes, each without its CR LF; a last line without one
// counts too.
std::vector<std::string> Lines(const std::string& path, const std::string& bytes) {
  std::vector<std::string> lines;
  size_t start = 0;
  while (start < bytes.size()) {
    const size_t end = bytes.find('\n', start);
    std::string line = bytes.substr(start, end == std::string::npos ? end : end - start);
    if (end != std::string::npos) {
      if (line.empty() || line.back() != '\r') {
        throw FileError(path, static_cast<int>(lines.size()) + 1, "a line not ended by CR LF");
      }
      line.pop_back();
    }
    lines.push_back(line);
    if (end == std::string::npos) break;
    start = end + 1;
  }
  return lines;
}

}  // namespace

std::optional<double> WrittenNumber(const std::string& field) {
  double value = 0;
  const char* end = field.data() + field.size();
  const auto [at, error] = std::from_chars(field.data(), end, value);
  if (field.empty() || error != std::errc() || at != end || !std::isfinite(value)) {
    return std::nullopt;
  }
  return value;
}

ResultsSummary ParseResultsSummary(const std::string& path, const std::string& bytes) {
  const std::vector<std::string> lines = Lines(path, bytes);
  const std::string head = kSummaryHead;
  if (lines.empty() || lines[0].compare(0, head.size(), head) != 0 ||
      lines[0].size() == head.size() ||
      lines[0].find_first_of(" \t", head.size()) != std::string::npos) {
    throw FileError(path, 1, "no head line \"" + head + "<fingerprint>\"");
  }
  if (lines.size() < 2 || lines[1] != kSummaryColumns) {
    throw FileError(path, 2, "not the column names of a yearly summary");
  }
  ResultsSummary summary;
  summary.fingerprint = lines[0].substr(head.size());
  std::set<int> seen;
  for (size_t i = 2; i < lines.size(); ++i) {
    const int number = static_cast<int>(i) + 1;
    const std::vector<std::string> fields = SplitTabs(lines[i]);
    if (fields.size() != kValueCount + 1) {
      throw FileError(path, number, "a volume's line needs 8 fields");
    }
    const auto volume = WrittenNumber(fields[0]);
    if (!volume || *volume != std::floor(*volume) || *volume < 1 || *volume > 8 ||
        !seen.insert(static_cast<int>(*volume)).second) {
      throw FileError(path, number, "no volume 1 to 8 of its own: " + fields[0]);
    }
    double values[kValueCount];
    for (int k = 0; k < kValueCount; ++k) {
      const auto value = WrittenNumber(fields[k + 1]);
      if (!value) throw FileError(path, number, "no number: " + fields[k + 1]);
      values[k] = *value;
    }
    summary.volumes.push_back({static_cast<int>(*volume), values[0], values[1], values[2],
                               values[3], values[4], values[5], values[6]});
  }
  if (summary.volumes.empty()) throw FileError(path, 3, "no volume");
  return summary;
}

std::string ResultsSummaryText(const ResultsSummary& summary) {
  std::string text = kSummaryHead + summary.fingerprint + "\r\n" + kSummaryColumns + "\r\n";
  for (const VolumeSummary& v : summary.volumes) {
    text += std::to_string(v.volume);
    for (double value : {v.heating_kwh, v.cooling_kwh, v.peak_heating_w, v.peak_cooling_w, v.t_min,
                         v.t_mean, v.t_max}) {
      text += "\t" + Fixed("%.3f", value);
    }
    text += "\r\n";
  }
  return text;
}

CaseSummary ReadCaseSummary(const std::string& case_folder, const SummaryFingerprint& fingerprint) {
  const std::string path = JoinPath(case_folder, kSummaryFile);
  const auto bytes = ReadAllBytes(path);
  if (!bytes) return {std::nullopt, "no results: " + path + " is missing; run the case first"};
  ResultsSummary summary;
  try {
    summary = ParseResultsSummary(path, *bytes);
  } catch (const FileError& error) {
    return {std::nullopt, error.UserText()};
  }
  const std::string thermal = JoinPath(case_folder, kThermalFile);
  if (const auto flags = ReadAllBytes(thermal)) {
    if (flags->substr(0, 6).find('X') != std::string::npos) {
      return {std::nullopt, "stale results: the case has changed since its last run (" + thermal +
                                " marks modules to run); run it again"};
    }
  }
  if (fingerprint) {
    const std::string expected = fingerprint(case_folder);
    if (!expected.empty() && expected != summary.fingerprint) {
      return {std::nullopt, "stale results: " + path +
                                " was computed from another input than the case holds now; "
                                "run it again"};
    }
  }
  return {summary, ""};
}

std::string SummaryLine(const VolumeSummary& v) {
  char line[160];
  std::snprintf(line, sizeof line, "%d %10.1f %10.1f %10.1f %10.1f %7.2f %7.2f %7.2f", v.volume,
                v.heating_kwh, v.cooling_kwh, v.peak_heating_w, v.peak_cooling_w, v.t_min, v.t_mean,
                v.t_max);
  return line;
}

}  // namespace zelmo
