#include "tools/results/diagram.h"

#include <algorithm>
#include <charconv>
#include <cstdio>
#include <filesystem>

#include "core/text_file.h"

namespace zelmo::results {

namespace {

int DayOfYear(Date date) { return DaysBeforeMonth(date.month) + date.day; }

Period DaySpan(int first_day, int last_day) { return {(first_day - 1) * 24 + 1, last_day * 24}; }

std::string Fixed2(double value) {
  char text[64];
  std::snprintf(text, sizeof text, "%.2f", value);
  return text;
}

std::string QuantityName(const std::string& quantity) {
  if (quantity == "T_out") return "Outdoor temp.";
  if (quantity == "T_air") return "air temp.";
  if (quantity == "T_mrt") return "radiant temp.";
  if (quantity == "Heating") return "heating";
  if (quantity == "Cooling") return "cooling";
  if (quantity == "Sol_out") return "solar out";
  if (quantity == "Sol_in") return "solar in";
  if (quantity == "Sol_abs") return "solar absorbed";
  return quantity;
}

}  // namespace

std::optional<Date> ParseDate(std::string_view text) {
  size_t dot = text.find('.');
  if (dot == std::string_view::npos) return std::nullopt;
  Date date;
  auto read = [](std::string_view part, int& value) {
    auto [end, ec] = std::from_chars(part.data(), part.data() + part.size(), value);
    return !part.empty() && ec == std::errc() && end == part.data() + part.size();
  };
  if (!read(text.substr(0, dot), date.day) || !read(text.substr(dot + 1), date.month)) {
    return std::nullopt;
  }
  if (date.month < 1 || date.month > 12 || date.day < 1 || date.day > DaysInMonth(date.month)) {
    return std::nullopt;
  }
  return date;
}

Period DayPeriod(Date day) { return DaySpan(DayOfYear(day), DayOfYear(day)); }

Period WeekPeriod(Date first) {
  int day = DayOfYear(first);
  return DaySpan(day, std::min(day + 6, 365));
}

Period MonthPeriod(int month) {
  month = std::clamp(month, 1, 12);
  return DaySpan(DaysBeforeMonth(month) + 1, DaysBeforeMonth(month) + DaysInMonth(month));
}

Period YearPeriod() { return DaySpan(1, 365); }

Period DatesPeriod(Date from, Date to) {
  int a = DayOfYear(from), b = DayOfYear(to);
  return DaySpan(std::min(a, b), std::max(a, b));
}

Date DateOfHour(int hour_of_year) {
  int day = std::clamp((hour_of_year - 1) / 24 + 1, 1, 365);
  Date date;
  while (date.month < 12 && day > DaysBeforeMonth(date.month + 1)) ++date.month;
  date.day = day - DaysBeforeMonth(date.month);
  return date;
}

std::string SeriesName(const Column& column) {
  std::string name = QuantityName(column.quantity);
  if (column.volume > 0) name = "V" + std::to_string(column.volume) + " " + name;
  if (!column.unit.empty()) name += " [" + column.unit + "]";
  return name;
}

std::vector<Series> BuildSeries(const HourlyTable& table, const std::vector<int>& columns,
                                const Period& period) {
  std::vector<Series> lines;
  for (int c : columns) {
    if (c < 0 || c >= static_cast<int>(table.columns.size())) continue;
    Series series;
    series.column = c;
    series.name = SeriesName(table.columns[c]);
    series.unit = table.columns[c].unit;
    for (size_t r = 0; r < table.rows(); ++r) {
      int hour = HourOfYear(table.stamps[r]);
      if (period.Holds(hour)) series.points.emplace_back(hour, table.values[c][r]);
    }
    lines.push_back(std::move(series));
  }
  return lines;
}

std::string SliceCsv(const HourlyTable& table, const std::vector<int>& columns,
                     const Period& period) {
  std::string csv = "Month,Day,Hour";
  std::vector<int> shown;
  for (int c : columns) {
    if (c < 0 || c >= static_cast<int>(table.columns.size())) continue;
    shown.push_back(c);
    csv += "," + table.columns[c].header;
  }
  csv += "\r\n";
  for (size_t r = 0; r < table.rows(); ++r) {
    const Stamp& stamp = table.stamps[r];
    if (!period.Holds(HourOfYear(stamp))) continue;
    csv += std::to_string(stamp.month) + "," + std::to_string(stamp.day) + "," +
           std::to_string(stamp.hour);
    for (int c : shown) csv += "," + Fixed2(table.values[c][r]);
    csv += "\r\n";
  }
  return csv;
}

std::vector<int> DefaultColumns(const HourlyTable& table) {
  std::vector<int> chosen;
  for (size_t c = 0; c < table.columns.size(); ++c) {
    const std::string& q = table.columns[c].quantity;
    if (table.columns[c].volume > 0 && (q == "T_air" || q == "Heating" || q == "Cooling")) {
      chosen.push_back(static_cast<int>(c));
    }
  }
  if (chosen.empty()) {
    for (size_t c = 0; c < table.columns.size(); ++c) chosen.push_back(static_cast<int>(c));
  }
  return chosen;
}

std::string CaseTitle(const std::string& case_folder) {
  std::filesystem::path folder = ToFsPath(case_folder);
  if (!folder.has_filename()) folder = folder.parent_path();
  std::string name = FromFsPath(folder.filename());
  std::string project = FromFsPath(folder.parent_path().filename());
  return "Project " + project + ", case " + name;
}

std::string NoHourlyResultsText(const std::string& case_folder) {
  return "No hourly results in " + case_folder +
         ": choose Hourly values in the output specification and run the case again.";
}

}  // namespace zelmo::results
