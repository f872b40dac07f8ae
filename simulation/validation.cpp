#include "simulation/validation.h"

#include <cmath>
#include <cstdio>

#include "core/fields.h"
#include "core/text_file.h"

namespace zelmo {

namespace {

std::vector<std::string> SplitCommas(const std::string& line) {
  std::vector<std::string> fields(1);
  for (char ch : line) {
    if (ch == ',') {
      fields.emplace_back();
    } else {
      fields.back() += ch;
    }
  }
  return fields;
}

std::string Value(double value, const std::string& unit) {
  char text[32];
  std::snprintf(text, sizeof text, unit == "degC" ? "%.2f" : "%.3f", value);
  return text;
}

std::string Verdict(const Comparison& c) {
  if (!c.value) return c.problem;
  return c.Inside() ? "inside" : "OUTSIDE";
}

}  // namespace

ReferenceTable ParseReference(const std::string& path, const std::string& bytes) {
  std::vector<std::string> lines;
  size_t start = 0;
  while (start < bytes.size()) {
    size_t end = bytes.find('\n', start);
    if (end == std::string::npos) end = bytes.size();
    std::string line = bytes.substr(start, end - start);
    if (!line.empty() && line.back() == '\r') line.pop_back();
    lines.push_back(line);
    start = end + 1;
  }
  const std::vector<std::string> head =
      lines.empty() ? std::vector<std::string>{} : SplitCommas(lines[0]);
  if (head.size() != 12 || head[0] != "case" || head[1] != "quantity" || head[2] != "unit" ||
      head[9] != "min" || head[10] != "max" || head[11] != "mean") {
    throw FileError(path, 1, "not the head line case,quantity,unit,<six programs>,min,max,mean");
  }
  ReferenceTable table;
  for (int p = 0; p < kReferencePrograms; ++p) table.programs[p] = head[3 + p];
  for (size_t i = 1; i < lines.size(); ++i) {
    const int number = static_cast<int>(i) + 1;
    if (lines[i].empty()) continue;
    const std::vector<std::string> fields = SplitCommas(lines[i]);
    if (fields.size() != 12) throw FileError(path, number, "a row needs 12 fields");
    ReferenceRow row{fields[0], fields[1], fields[2], {}, 0, 0, 0};
    if (row.case_name.empty() || row.quantity.empty()) {
      throw FileError(path, number, "a row without its case or quantity");
    }
    double values[9];
    for (int k = 0; k < 9; ++k) {
      const auto value = WrittenNumber(fields[3 + k]);
      if (!value) throw FileError(path, number, "no number: " + fields[3 + k]);
      values[k] = *value;
    }
    for (int p = 0; p < kReferencePrograms; ++p) row.programs[p] = values[p];
    row.min = values[6];
    row.max = values[7];
    row.mean = values[8];
    if (row.min > row.max) throw FileError(path, number, "min above max");
    table.rows.push_back(row);
  }
  return table;
}

std::string BestestCaseFolder(const std::string& reference_case) {
  return "c" + ToLower(reference_case);
}

std::optional<double> QuantityValue(const VolumeSummary& v, const std::string& quantity) {
  if (quantity == "annual_heating") return v.heating_kwh / 1000;
  if (quantity == "annual_sensible_cooling") return v.cooling_kwh / 1000;
  if (quantity == "peak_heating") return v.peak_heating_w / 1000;
  if (quantity == "peak_sensible_cooling") return v.peak_cooling_w / 1000;
  if (quantity == "annual_max_zone_temperature") return v.t_max;
  if (quantity == "annual_min_zone_temperature") return v.t_min;
  if (quantity == "annual_mean_zone_temperature") return v.t_mean;
  return std::nullopt;
}

std::vector<Comparison> CompareWithReference(const ReferenceTable& table,
                                             const std::string& project,
                                             const SummaryFingerprint& fingerprint) {
  std::vector<Comparison> comparisons;
  for (const ReferenceRow& row : table.rows) {
    Comparison c{row, std::nullopt, ""};
    const CaseSummary outcome =
        ReadCaseSummary(JoinPath(project, BestestCaseFolder(row.case_name)), fingerprint);
    if (!outcome.summary) {
      c.problem = OneLineText(outcome.problem);
    } else if (outcome.summary->volumes.front().volume != 1) {
      c.problem = "no volume 1 in the results";
    } else if (!(c.value = QuantityValue(outcome.summary->volumes.front(), row.quantity))) {
      c.problem = "unknown quantity " + row.quantity;
    }
    comparisons.push_back(c);
  }
  return comparisons;
}

std::string ComparisonMarkdown(const ReferenceTable& table,
                               const std::vector<Comparison>& comparisons) {
  std::string text = "| Case | Quantity | Unit | ZELMO-QRN |";
  std::string rule = "|---|---|---|---:|";
  for (const std::string& program : table.programs) {
    text += " " + program + " |";
    rule += "---:|";
  }
  text += " min | max | Range |\n" + rule + "---:|---:|---|\n";
  for (const Comparison& c : comparisons) {
    const ReferenceRow& r = c.reference;
    text += "| " + r.case_name + " | " + r.quantity + " | " + r.unit + " | " +
            (c.value ? "**" + Value(*c.value, r.unit) + "**" : std::string("-")) + " |";
    for (double value : r.programs) text += " " + Value(value, r.unit) + " |";
    text += " " + Value(r.min, r.unit) + " | " + Value(r.max, r.unit) + " | " + Verdict(c) + " |\n";
  }
  return text;
}

std::string ComparisonCsv(const ReferenceTable& table, const std::vector<Comparison>& comparisons) {
  std::string text = "case,quantity,unit,ZELMO-QRN";
  for (const std::string& program : table.programs) text += "," + program;
  text += ",min,max,range\n";
  for (const Comparison& c : comparisons) {
    const ReferenceRow& r = c.reference;
    text += r.case_name + "," + r.quantity + "," + r.unit + "," +
            (c.value ? Value(*c.value, r.unit) : std::string());
    for (double value : r.programs) text += "," + Value(value, r.unit);
    std::string verdict = Verdict(c);
    for (char& ch : verdict) ch = ch == ',' ? ';' : ch;
    text += "," + Value(r.min, r.unit) + "," + Value(r.max, r.unit) + "," + verdict + "\n";
  }
  return text;
}

std::string ValidationReport(const ReferenceTable& table,
                             const std::vector<Comparison>& comparisons,
                             const std::string& chart_file) {
  int inside = 0, results = 0;
  for (const Comparison& c : comparisons) {
    results += c.value.has_value();
    inside += c.Inside();
  }
  std::string text =
      "# ZELMO-QRN beside the reference programs: ANSI/ASHRAE Standard 140-2020, cases 600 to "
      "220\n\n" +
      std::to_string(inside) + " of " + std::to_string(comparisons.size()) +
      " quantities lie inside the range [min, max] of the six reference programs' example "
      "results; " +
      std::to_string(results) + " have a result of this program.\n\n";
  if (!chart_file.empty())
    text += "![The quantities beside the six programs](" + chart_file + ")\n\n";
  text += ComparisonMarkdown(table, comparisons) +
          "\nOne volume, results of the calculation modules (MUK.SUM): heating and cooling over "
          "the year, peaks as the largest hourly mean, temperatures of the hourly mean air "
          "temperature. The reference values are the example results of ASHRAE 140-2020 "
          "Annex B8, which are not acceptance criteria.\n\n"
          "## Settings the program's input cannot say exactly\n\n" +
          BestestSettingsMarkdown();
  return text;
}

std::string BestestSettingsMarkdown() {
  return "| The case says | The program's input cannot say it; bestest takes |\n"
         "|---|---|\n"
         "| Raised floor: its underside faces outdoor air, gets no sun and no wind | Floor "
         "element with Outdoor in front and solar absorptance 0 % on that face (no sun); its "
         "convection is the exterior film coefficient of every outside face (no still air) |\n"
         "| Program's own exterior convection, or the combined coefficients 21.6 (walls), "
         "21.8 (roof), 17.8 (windows), 5.2 (floor underside) W/(m2 K) | External long-wave "
         "radiation computed, and one exterior convective coefficient 17.0 W/(m2 K) for every "
         "outside face: the wall's combined 21.6 less its linearised long-wave part "
         "4 e s Tm^3 = 4.6 (e 0.9, Tm 283 K) |\n"
         "| Program's own interior convection | Interior film coefficient calculated (-1) |\n"
         "| Internal gains 200 W, 60 % radiative, 40 % convective | 200 W internal loads in the "
         "HVAC schedule; the split between air and surfaces is the heat balance module's own "
         "radiative fraction for every internal load (0.6) |\n"
         "| Infiltration 0.5 air changes per hour at the site's air density | Inflow and outflow "
         "of 18 l/s (64.8 m3/h = 0.5 x 129.6 m3) in the HVAC schedule, every hour; the module "
         "turns the flow into mass at the site's air density; element leakage 0 |\n"
         "| Ideal heating and cooling without limit, 100 % convective | Set points 20 and 27 C "
         "(20 and 20 in 195-220), maximum powers left empty (unlimited) |\n"
         "| Floor insulation without thermal mass | Density and specific heat 0.01, the "
         "library's least |\n"
         "| Air layer of 0.192 m2 K/W in the high-conductance element | 12 mm of a material of "
         "conductivity 0.0625 W/(m K) (0.012 / 0.192) |\n"
         "| Glass 3.048 mm, conductivity 1.0, solar transmittance 0.834 and reflectance 0.075 "
         "at normal incidence | Fresnel glass (data type 2) of 3.048 mm with refraction 1.521 "
         "and extinction 31.4 1/m, the values that give 0.834 and 0.075 at normal incidence "
         "(the normal-incidence data type takes whole percents only); the pane's conductivity "
         "has no field |\n"
         "| Six warm-up days or more | The first day calculated 20 times (Loop first day) |\n";
}

}  // namespace zelmo
