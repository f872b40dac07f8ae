#include "tools/results/comfort.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <filesystem>

#include "core/text_file.h"

namespace zelmo::results {

namespace {

const char* const kSettingsHeader =
    "M [met]\tI_cl winter [clo]\tI_cl summer [clo]\tSummer from\tSummer to\tv_ar [m/s]\tRH [%]";
const char* const kResultHeader = "Month\tDay\tHour\tT_air [C]\tT_mrt [C]\tPMV\tPPD [%]";
const char* const kResultHead = "ZELMO-QRN FELT V";

std::string Format(const char* format, double value) {
  char text[64];
  std::snprintf(text, sizeof text, format, value);
  return text;
}

std::vector<std::string_view> Lines(std::string_view text) {
  std::vector<std::string_view> lines;
  size_t start = 0;
  while (start < text.size()) {
    size_t end = text.find('\n', start);
    if (end == std::string_view::npos) end = text.size();
    std::string_view line = text.substr(start, end - start);
    if (!line.empty() && line.back() == '\r') line.remove_suffix(1);
    lines.push_back(line);
    start = end + 1;
  }
  return lines;
}

// The settings from their header line and value line, `line` the number of
// the header line in the file.
ComfortSettings ParseSettings(const std::string& path, const std::vector<std::string_view>& lines,
                              size_t at, int line) {
  if (lines.size() <= at || lines[at] != kSettingsHeader) {
    throw FileError(path, line, std::string("The line must read ") + kSettingsHeader + ".");
  }
  // The values go through the table reader, with a stamp in front, so a
  // number is read by one rule.
  if (lines.size() <= at + 1) throw FileError(path, line + 1, "The line of values is missing.");
  if (std::count(lines[at + 1].begin(), lines[at + 1].end(), '\t') != 6) {
    throw FileError(path, line + 1, "The line must hold 7 values, separated by tabs.");
  }
  std::string table = std::string("Month\tDay\tHour\t") + kSettingsHeader + "\n1\t1\t1\t" +
                      std::string(lines[at + 1]) + "\n";
  HourlyTable values;
  try {
    values = ParseHourlyTable(path, table, line);
  } catch (const FileError& error) {
    throw FileError(path, line + 1, error.what());
  }
  ComfortSettings settings;
  auto value = [&](int c) { return values.values[c][0]; };
  settings.met = value(0);
  settings.clo_winter = value(1);
  settings.clo_summer = value(2);
  settings.summer_from = static_cast<int>(value(3));
  settings.summer_to = static_cast<int>(value(4));
  settings.air_speed = value(5);
  settings.humidity = value(6);
  if (value(3) != settings.summer_from || value(4) != settings.summer_to) {
    throw FileError(path, line + 1, "The summer months must be whole numbers.");
  }
  if (auto problem = CheckComfortSettings(settings)) throw FileError(path, line + 1, *problem);
  return settings;
}

std::string SettingsLines(const ComfortSettings& s) {
  return std::string(kSettingsHeader) + "\r\n" + Format("%.2f", s.met) + "\t" +
         Format("%.2f", s.clo_winter) + "\t" + Format("%.2f", s.clo_summer) + "\t" +
         std::to_string(s.summer_from) + "\t" + std::to_string(s.summer_to) + "\t" +
         Format("%.2f", s.air_speed) + "\t" + Format("%.0f", s.humidity) + "\r\n";
}

}  // namespace

PmvPpd ComputePmvPpd(double ta, double tr, double var, double rh, double met, double clo,
                     double wme) {
  // Water vapour partial pressure [Pa] from the relative humidity and the
  // saturation pressure of the standard's program.
  const double pa = rh * 10 * std::exp(16.6536 - 4030.183 / (ta + 235));
  const double icl = 0.155 * clo;  // m2K/W
  const double m = met * 58.15;    // W/m2
  const double w = wme * 58.15;
  const double mw = m - w;
  const double fcl = icl <= 0.078 ? 1 + 1.29 * icl : 1.05 + 0.645 * icl;
  const double hcf = 12.1 * std::sqrt(std::max(var, 0.0));
  const double taa = ta + 273;
  const double tra = tr + 273;
  // The clothing surface temperature by iteration, as the standard's
  // program finds it.
  double tcla = taa + (35.5 - ta) / (3.5 * icl + 0.1);
  const double p1 = icl * fcl;
  const double p2 = p1 * 3.96;
  const double p3 = p1 * 100;
  const double p4 = p1 * taa;
  const double p5 = 308.7 - 0.028 * mw + p2 * std::pow(tra / 100, 4);
  double xn = tcla / 100;
  double xf = tcla / 50;
  double hc = hcf;
  for (int n = 0; n < 150 && std::abs(xn - xf) > 0.00015; ++n) {
    xf = (xf + xn) / 2;
    const double hcn = 2.38 * std::pow(std::abs(100 * xf - taa), 0.25);
    hc = std::max(hcf, hcn);
    xn = (p5 + p4 * hc - p2 * std::pow(xf, 4)) / (100 + p3 * hc);
  }
  const double tcl = 100 * xn - 273;
  const double hl1 = 3.05 * 0.001 * (5733 - 6.99 * mw - pa);                   // skin diffusion
  const double hl2 = mw > 58.15 ? 0.42 * (mw - 58.15) : 0;                     // sweating
  const double hl3 = 1.7 * 0.00001 * m * (5867 - pa);                          // latent respiration
  const double hl4 = 0.0014 * m * (34 - ta);                                   // dry respiration
  const double hl5 = 3.96 * fcl * (std::pow(xn, 4) - std::pow(tra / 100, 4));  // radiation
  const double hl6 = fcl * hc * (tcl - ta);                                    // convection
  const double ts = 0.303 * std::exp(-0.036 * m) + 0.028;
  PmvPpd result;
  result.pmv = ts * (mw - hl1 - hl2 - hl3 - hl4 - hl5 - hl6);
  result.ppd = PpdOfPmv(result.pmv);
  return result;
}

double PpdOfPmv(double pmv) {
  return 100 - 95 * std::exp(-0.03353 * std::pow(pmv, 4) - 0.2179 * pmv * pmv);
}

std::optional<std::string> CheckComfortSettings(const ComfortSettings& s) {
  std::string problems;
  auto check = [&](bool good, const char* text) {
    if (!good) problems += std::string(problems.empty() ? "" : " ") + text;
  };
  check(s.met >= 0.8 && s.met <= 4, "The activity must lie between 0.8 and 4 met.");
  check(s.clo_winter >= 0 && s.clo_winter <= 2 && s.clo_summer >= 0 && s.clo_summer <= 2,
        "The clothing must lie between 0 and 2 clo.");
  check(s.summer_from >= 1 && s.summer_from <= 12 && s.summer_to >= 1 && s.summer_to <= 12,
        "The summer months must lie between 1 and 12.");
  check(s.air_speed >= 0 && s.air_speed <= 1, "The air speed must lie between 0 and 1 m/s.");
  check(s.humidity >= 0 && s.humidity <= 100,
        "The relative humidity must lie between 0 and 100 %.");
  if (problems.empty()) return std::nullopt;
  return problems;
}

std::string ComfortSettingsText(const ComfortSettings& settings) { return SettingsLines(settings); }

ComfortSettings ReadComfortSettings(const std::string& case_folder) {
  std::string path = JoinPath(case_folder, kComfortSettingsFile);
  if (!FileCanOpen(path)) return {};
  std::optional<std::string> bytes = ReadAllBytes(path);
  if (!bytes) throw FileError(path, 0, "The file cannot be read.");
  return ParseSettings(path, Lines(*bytes), 0, 1);
}

bool WriteComfortSettings(const std::string& case_folder, const ComfortSettings& settings) {
  return WriteAllBytes(JoinPath(case_folder, kComfortSettingsFile), SettingsLines(settings));
}

ComfortResult ComputeComfort(const std::string& path, const HourlyTable& table,
                             const ComfortSettings& settings) {
  int air = -1, radiant = -1;
  for (size_t c = 0; c < table.columns.size(); ++c) {
    if (table.columns[c].quantity == "T_air" && air < 0) air = static_cast<int>(c);
    if (table.columns[c].quantity == "T_mrt" && radiant < 0) radiant = static_cast<int>(c);
  }
  if (air < 0 || radiant < 0 || table.columns[air].volume < 1 ||
      table.columns[air].volume != table.columns[radiant].volume) {
    throw FileError(path, 1,
                    "The table must hold the air and the mean radiant temperature of one volume.");
  }
  ComfortResult result;
  result.volume = table.columns[air].volume;
  result.settings = settings;
  for (size_t r = 0; r < table.rows(); ++r) {
    ComfortHour hour;
    hour.stamp = table.stamps[r];
    hour.t_air = table.values[air][r];
    hour.t_mrt = table.values[radiant][r];
    PmvPpd index = ComputePmvPpd(hour.t_air, hour.t_mrt, settings.air_speed, settings.humidity,
                                 settings.met, settings.ClothingIn(hour.stamp.month));
    hour.pmv = index.pmv;
    hour.ppd = index.ppd;
    result.hours.push_back(hour);
  }
  return result;
}

std::string ComfortResultText(const ComfortResult& result) {
  std::string text = kResultHead + std::to_string(result.volume) + "\r\n" +
                     SettingsLines(result.settings) + kResultHeader + "\r\n";
  for (const ComfortHour& h : result.hours) {
    text += std::to_string(h.stamp.month) + "\t" + std::to_string(h.stamp.day) + "\t" +
            std::to_string(h.stamp.hour) + "\t" + Format("%.2f", h.t_air) + "\t" +
            Format("%.2f", h.t_mrt) + "\t" + Format("%.2f", h.pmv) + "\t" + Format("%.1f", h.ppd) +
            "\r\n";
  }
  return text;
}

ComfortResult ParseComfortResult(const std::string& path, std::string_view text) {
  std::vector<std::string_view> lines = Lines(text);
  ComfortResult result;
  std::string_view head = lines.empty() ? std::string_view() : lines[0];
  const std::string_view prefix = kResultHead;
  if (head.substr(0, prefix.size()) != prefix || head.size() != prefix.size() + 1 ||
      head.back() < '1' || head.back() > '8') {
    throw FileError(path, 1, "The first line must read ZELMO-QRN FELT V and a volume 1 to 8.");
  }
  result.volume = head.back() - '0';
  result.settings = ParseSettings(path, lines, 1, 2);
  if (lines.size() < 4 || lines[3] != kResultHeader) {
    throw FileError(path, 4, std::string("The line must read ") + kResultHeader + ".");
  }
  size_t offset = 0;
  for (int k = 0; k < 3; ++k) offset = text.find('\n', offset) + 1;
  HourlyTable table = ParseHourlyTable(path, text.substr(offset), 4);
  for (size_t r = 0; r < table.rows(); ++r) {
    ComfortHour hour;
    hour.stamp = table.stamps[r];
    hour.t_air = table.values[0][r];
    hour.t_mrt = table.values[1][r];
    hour.pmv = table.values[2][r];
    hour.ppd = table.values[3][r];
    result.hours.push_back(hour);
  }
  return result;
}

ComfortResult ReadComfortResult(const std::string& path) {
  std::optional<std::string> bytes = ReadAllBytes(path);
  if (!bytes) throw FileError(path, 0, "The file cannot be read.");
  return ParseComfortResult(path, *bytes);
}

std::vector<CategoryHours> CountCategories(const std::vector<ComfortHour>& hours,
                                           ComfortScheme scheme) {
  // ISO 7730:2005 Table A.1 and EN 16798-1:2019 Annex B: a category
  // holds an hour whose PPD and PMV both keep within its limits.
  struct Limit {
    const char* name;
    double ppd, pmv;
  };
  std::vector<Limit> limits;
  const char* outside;
  if (scheme == ComfortScheme::kIso7730) {
    limits = {{"A", 6, 0.2}, {"B", 10, 0.5}, {"C", 15, 0.7}};
    outside = "Outside C";
  } else {
    limits = {{"I", 6, 0.2}, {"II", 10, 0.5}, {"III", 15, 0.7}, {"IV", 25, 1.0}};
    outside = "Outside IV";
  }
  std::vector<CategoryHours> counts;
  for (const Limit& limit : limits) {
    counts.push_back({limit.name,
                      "PPD < " + Format("%.0f", limit.ppd) + " %, -" + Format("%.1f", limit.pmv) +
                          " < PMV < +" + Format("%.1f", limit.pmv),
                      0});
  }
  counts.push_back({outside, "", 0});
  for (const ComfortHour& hour : hours) {
    size_t k = 0;
    while (k < limits.size() && !(hour.ppd < limits[k].ppd && std::abs(hour.pmv) < limits[k].pmv)) {
      ++k;
    }
    ++counts[k].hours;
  }
  return counts;
}

int HoursAbovePpd(const std::vector<ComfortHour>& hours, double ppd_limit) {
  int count = 0;
  for (const ComfortHour& hour : hours) count += hour.ppd > ppd_limit ? 1 : 0;
  return count;
}

int HoursOutsideRange(const std::vector<ComfortHour>& hours) {
  int count = 0;
  for (const ComfortHour& h : hours) {
    count += (h.t_air < 10 || h.t_air > 30 || h.t_mrt < 10 || h.t_mrt > 40) ? 1 : 0;
  }
  return count;
}

std::string NoComfortResultsText(const std::string& case_folder) {
  return "No comfort results in " + case_folder +
         ": choose a volume for comfort in the output specification and run the case again.";
}

std::string WriteComfortResult(const std::string& case_folder) {
  const std::string result_path = JoinPath(case_folder, kComfortResultFile);
  std::error_code ignored;
  std::filesystem::remove(ResolvePath(ToFsPath(result_path)), ignored);
  const std::string table_path = JoinPath(case_folder, kComfortFile);
  if (!FileCanOpen(table_path)) return NoComfortResultsText(case_folder);
  try {
    ComfortSettings settings = ReadComfortSettings(case_folder);
    ComfortResult result = ComputeComfort(table_path, ReadHourlyTable(table_path), settings);
    if (!WriteAllBytes(result_path, ComfortResultText(result))) {
      return "The comfort results cannot be written to " + result_path + ".";
    }
  } catch (const FileError& error) {
    return "The comfort results cannot be computed.\r" + error.UserText();
  }
  return {};
}

}  // namespace zelmo::results
