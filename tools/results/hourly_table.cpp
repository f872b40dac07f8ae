#include "tools/results/hourly_table.h"

#include <array>
#include <charconv>
#include <cmath>

#include "core/fields.h"
#include "core/text_file.h"

namespace zelmo::results {

namespace {

constexpr std::array<int, 12> kMonthDays = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};

std::string_view Trim(std::string_view text) {
  while (!text.empty() && (text.front() == ' ' || text.front() == '\r')) text.remove_prefix(1);
  while (!text.empty() && (text.back() == ' ' || text.back() == '\r')) text.remove_suffix(1);
  return text;
}

// A whole cell read as a number; false when anything else stands in it.
bool ReadNumber(std::string_view cell, double& value) {
  cell = Trim(cell);
  if (cell.empty()) return false;
  if (cell.front() == '+') cell.remove_prefix(1);
  auto [end, ec] = std::from_chars(cell.data(), cell.data() + cell.size(), value);
  return ec == std::errc() && end == cell.data() + cell.size() && std::isfinite(value);
}

bool ReadWhole(std::string_view cell, int low, int high, int& value) {
  double number = 0;
  if (!ReadNumber(cell, number) || number != std::floor(number) || number < low || number > high) {
    return false;
  }
  value = static_cast<int>(number);
  return true;
}

}  // namespace

Column ParseColumn(const std::string& header) {
  Column column;
  column.header = header;
  std::string_view rest = Trim(header);
  size_t open = rest.rfind('[');
  if (open != std::string_view::npos && rest.back() == ']') {
    column.unit = std::string(rest.substr(open + 1, rest.size() - open - 2));
    rest = Trim(rest.substr(0, open));
  }
  if (rest.size() > 1 && rest[0] == 'V' && rest[1] >= '1' && rest[1] <= '9') {
    size_t blank = rest.find(' ');
    int volume = 0;
    std::string_view number =
        rest.substr(1, blank == std::string_view::npos ? rest.size() - 1 : blank - 1);
    auto [end, ec] = std::from_chars(number.data(), number.data() + number.size(), volume);
    if (ec == std::errc() && end == number.data() + number.size() &&
        blank != std::string_view::npos) {
      column.volume = volume;
      rest = Trim(rest.substr(blank + 1));
    }
  }
  column.quantity = std::string(rest);
  return column;
}

HourlyTable ParseHourlyTable(const std::string& path, std::string_view text, int first_line) {
  const int head_line = first_line;
  HourlyTable table;
  std::vector<std::string_view> lines;
  size_t start = 0;
  while (start < text.size()) {
    size_t end = text.find('\n', start);
    if (end == std::string_view::npos) end = text.size();
    lines.push_back(text.substr(start, end - start));
    start = end + 1;
  }
  if (lines.empty() || Trim(lines[0]).empty()) {
    throw FileError(path, head_line, "The table has no header line.");
  }
  std::vector<std::string> head = SplitTabs(std::string(Trim(lines[0])));
  if (head.size() < 4 || Trim(head[0]) != "Month" || Trim(head[1]) != "Day" ||
      Trim(head[2]) != "Hour") {
    throw FileError(path, head_line,
                    "The header line must start with Month, Day and Hour and name at least one "
                    "column of values.");
  }
  for (size_t c = 3; c < head.size(); ++c) {
    std::string header(Trim(head[c]));
    if (header.empty())
      throw FileError(path, head_line, "A column of the header line has no name.");
    table.columns.push_back(ParseColumn(header));
  }
  table.values.resize(table.columns.size());
  int last_hour = 0;
  for (size_t i = 1; i < lines.size(); ++i) {
    const int line_number = static_cast<int>(i) + first_line;
    std::string_view line = Trim(lines[i]);
    if (line.empty()) {
      // Blank lines at the end are no rows; one inside the table is damage.
      bool only_blank_after = true;
      for (size_t k = i + 1; k < lines.size(); ++k) {
        if (!Trim(lines[k]).empty()) only_blank_after = false;
      }
      if (only_blank_after) break;
      throw FileError(path, line_number, "An empty line stands among the hours.");
    }
    std::vector<std::string> cells = SplitTabs(std::string(line));
    if (cells.size() != head.size()) {
      throw FileError(path, line_number,
                      "The line has " + std::to_string(cells.size()) +
                          " values where the header "
                          "names " +
                          std::to_string(head.size()) + ".");
    }
    Stamp stamp;
    if (!ReadWhole(cells[0], 1, 12, stamp.month) ||
        !ReadWhole(cells[1], 1, DaysInMonth(stamp.month), stamp.day) ||
        !ReadWhole(cells[2], 1, 24, stamp.hour)) {
      throw FileError(path, line_number, "The month, day or hour is not a date of the year.");
    }
    int hour = HourOfYear(stamp);
    if (hour <= last_hour) {
      throw FileError(path, line_number, "The hour does not follow the hour before it.");
    }
    last_hour = hour;
    for (size_t c = 3; c < cells.size(); ++c) {
      double value = 0;
      if (!ReadNumber(cells[c], value)) {
        throw FileError(path, line_number,
                        "The value of " + table.columns[c - 3].header + " is not a number.");
      }
      table.values[c - 3].push_back(value);
    }
    table.stamps.push_back(stamp);
  }
  if (table.stamps.empty()) throw FileError(path, first_line + 1, "The table holds no hours.");
  return table;
}

HourlyTable ReadHourlyTable(const std::string& path) {
  std::optional<std::string> bytes = ReadAllBytes(path);
  if (!bytes) throw FileError(path, 0, "The file cannot be read.");
  return ParseHourlyTable(path, *bytes);
}

int DaysBeforeMonth(int month) {
  int days = 0;
  for (int m = 1; m < month && m <= 12; ++m) days += kMonthDays[m - 1];
  return days;
}

int DaysInMonth(int month) { return month >= 1 && month <= 12 ? kMonthDays[month - 1] : 0; }

int HourOfYear(const Stamp& stamp) {
  return (DaysBeforeMonth(stamp.month) + stamp.day - 1) * 24 + stamp.hour;
}

}  // namespace zelmo::results
