#include "modules/dat3.h"

#include <cmath>
#include <cstdlib>

#include "core/text_file.h"

namespace zelmo::modules {

double ReadNumber(const TextReader& reader, std::string_view field) {
  std::string text = TrimBlanks(std::string(field));
  while (!text.empty() && (text.back() == '\t' || text.back() == '\r')) text.pop_back();
  while (!text.empty() && text.front() == '\t') text.erase(0, 1);
  if (text.empty()) reader.Fail("a number is missing");
  char* end = nullptr;
  double value = std::strtod(text.c_str(), &end);
  if (end != text.c_str() + text.size() || !std::isfinite(value)) {
    reader.Fail("\"" + text + "\" is no number");
  }
  return value;
}

std::vector<double> ReadNumbers(const TextReader& reader, std::string_view line, size_t count) {
  std::vector<std::string_view> fields;
  size_t i = 0;
  while (i < line.size()) {
    while (i < line.size() && (line[i] == ' ' || line[i] == '\t')) ++i;
    size_t start = i;
    while (i < line.size() && line[i] != ' ' && line[i] != '\t') ++i;
    if (i > start) fields.push_back(line.substr(start, i - start));
  }
  if (fields.size() != count && line.size() == 10 * count) {
    // Fields of ten places that filled their width and run together.
    fields.clear();
    for (size_t k = 0; k < count; ++k) fields.push_back(line.substr(10 * k, 10));
  }
  if (fields.size() != count) {
    reader.Fail(std::to_string(count) + " numbers expected, " + std::to_string(fields.size()) +
                " found");
  }
  std::vector<double> values;
  for (auto f : fields) values.push_back(ReadNumber(reader, f));
  return values;
}

std::vector<std::string> SplitInputLines(std::string_view bytes) {
  std::vector<std::string> lines;
  size_t start = 0;
  while (start < bytes.size()) {
    size_t end = bytes.find('\n', start);
    if (end == std::string_view::npos) end = bytes.size();
    std::string line(bytes.substr(start, end - start));
    if (!line.empty() && line.back() == '\r') line.pop_back();
    lines.push_back(std::move(line));
    start = end + 1;
  }
  return lines;
}

bool IsLeapYear(int year) { return (year % 4 == 0 && year % 100 != 0) || year % 400 == 0; }

int DaysInMonth(int year, int month) {
  static const int kDays[12] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  if (month < 1 || month > 12) return 0;
  return kDays[month - 1] + (month == 2 && IsLeapYear(year) ? 1 : 0);
}

namespace {

int WholeNumber(const TextReader& reader, double value, int low, int high, const char* what) {
  if (value != std::floor(value) || value < low || value > high) {
    reader.Fail(std::string(what) + " out of range");
  }
  return static_cast<int>(value);
}

}  // namespace

Dat3 ParseDat3(const std::string& path, std::string_view bytes) {
  const std::vector<std::string> lines = SplitInputLines(bytes);
  TextReader reader(path, lines);
  Dat3 d;
  d.headline = reader.ReadLine();
  d.rotation = ReadNumber(reader, reader.ReadLine());
  auto site = ReadNumbers(reader, reader.ReadLine(), 3);
  d.latitude = site[0];
  d.longitude = site[1];
  d.meridian = site[2];
  if (std::fabs(d.latitude) > 90) reader.Fail("latitude out of range");
  int date[6];
  const char* what[6] = {"first year", "first month", "first day",
                         "last year",  "last month",  "last day"};
  for (int k = 0; k < 6; ++k) {
    double v = ReadNumber(reader, reader.ReadLine());
    int high = k % 3 == 0 ? 9999 : (k % 3 == 1 ? 12 : 31);
    date[k] = WholeNumber(reader, v, 1, high, what[k]);
    if (k % 3 == 2 && date[k] > DaysInMonth(date[k - 2], date[k - 1])) {
      reader.Fail(std::string(what[k]) + " does not exist");
    }
  }
  d.first_year = date[0];
  d.first_month = date[1];
  d.first_day = date[2];
  d.last_year = date[3];
  d.last_month = date[4];
  d.last_day = date[5];
  long first = d.first_year * 10000L + d.first_month * 100 + d.first_day;
  long last = d.last_year * 10000L + d.last_month * 100 + d.last_day;
  if (last < first) reader.Fail("the period ends before it starts");
  if (d.last_year - d.first_year >= kMaxPeriodYears) reader.Fail("the period is too long");
  // Blank lines behind the dates are no schedule.
  bool more = false;
  while (!reader.AtEnd()) {
    if (!TrimBlanks(reader.NextLine()).empty()) {
      more = true;
      break;
    }
  }
  if (!more) return d;
  reader.Rewind();
  reader.Skip(9);
  d.has_curtains = true;
  for (int year = d.first_year; year <= d.last_year; ++year) {
    int from = year == d.first_year ? d.first_month : 1;
    int to = year == d.last_year ? d.last_month : 12;
    for (int month = from; month <= to; ++month) {
      Dat3Month m;
      m.year = year;
      m.month = month;
      m.mode = WholeNumber(reader, ReadNumber(reader, reader.ReadLine()), 0, 2, "curtain mode");
      if (m.mode == 2) {
        std::string line = reader.ReadLine();
        int hour = 0;
        for (char c : line) {
          if (c == ' ' || c == '\t') continue;
          if ((c != '0' && c != '1') || hour >= 24)
            reader.Fail("an hourly curtain mask is damaged");
          m.hours[hour++] = c == '1';
        }
        if (hour != 24) reader.Fail("an hourly curtain mask is damaged");
      }
      d.months.push_back(m);
    }
  }
  return d;
}

}  // namespace zelmo::modules
