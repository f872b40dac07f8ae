#include "modules/epw_import.h"

#include <charconv>
#include <cmath>
#include <cstdio>
#include <limits>
#include <string_view>

#include "core/text_file.h"

namespace zelmo::modules {

namespace {

// The header lines of an EPW, in their order.
constexpr const char* kEpwHeader[] = {"LOCATION",
                                      "DESIGN CONDITIONS",
                                      "TYPICAL/EXTREME PERIODS",
                                      "GROUND TEMPERATURES",
                                      "HOLIDAYS/DAYLIGHT SAVINGS",
                                      "COMMENTS 1",
                                      "COMMENTS 2",
                                      "DATA PERIODS"};
constexpr int kEpwHeaderLines = 8;
// The fields of an hourly line: date and time, a field of source flags,
// then 29 values.
constexpr size_t kEpwFields = 35;
// Where each column of the climate file stands in an hourly line.
constexpr int kEpwField[kClimateColumns] = {6, 7, 9, 13, 14, 15, 12, 20, 21};

std::vector<std::string_view> SplitFields(std::string_view line) {
  std::vector<std::string_view> fields;
  while (true) {
    size_t comma = line.find(',');
    fields.push_back(line.substr(0, comma));
    if (comma == std::string_view::npos) break;
    line.remove_prefix(comma + 1);
  }
  return fields;
}

std::string_view Trim(std::string_view text) {
  size_t start = text.find_first_not_of(' ');
  if (start == std::string_view::npos) return {};
  size_t end = text.find_last_not_of(' ');
  return text.substr(start, end - start + 1);
}

bool ToNumber(std::string_view text, double& value) { return ParseNumberField(Trim(text), value); }

bool ToInt(std::string_view text, int& value) {
  double number = 0;
  if (!ToNumber(text, number) || number != std::floor(number) || std::fabs(number) > 1e6) {
    return false;
  }
  value = static_cast<int>(number);
  return true;
}

class EpwParser {
 public:
  EpwParser(const std::string& path, const std::string& bytes)
      : path_(path), lines_(SplitLines(bytes)) {
    while (!lines_.empty() && Trim(lines_.back()).empty()) lines_.pop_back();
  }

  EpwImport Parse() {
    EpwImport result;
    ClimateHeader& header = result.data.header;
    if (lines_.empty() || lines_[0].substr(0, 9) != "LOCATION,") {
      Fail(1, "This is no EnergyPlus weather file: its first line is no LOCATION line");
    }
    for (int i = 1; i < kEpwHeaderLines; ++i) {
      if (static_cast<size_t>(i) >= lines_.size()) {
        Fail(i + 1, "The weather file ends in its header");
      }
      std::string_view key = lines_[i].substr(0, lines_[i].find(','));
      if (key != kEpwHeader[i]) {
        Fail(i + 1, std::string("The weather file has no ") + kEpwHeader[i] + " line here");
      }
    }
    ParseLocation(header);
    ParseDataPeriod();

    bool continuous = true;
    std::vector<ClimateHour>& hours = result.data.hours;
    hours.reserve(lines_.size());
    std::array<MissingValues, kClimateColumns> missing{};
    for (size_t at = kEpwHeaderLines; at < lines_.size(); ++at) {
      const int number = static_cast<int>(at) + 1;
      ClimateHour hour = ParseHour(number);
      if (!hours.empty()) {
        const ClimateHour& before = hours.back();
        if (!Follows(before, hour)) Fail(number, "This hour does not follow the hour before it");
        const bool new_year = hour.month == 1 && hour.day == 1 && hour.hour == 1;
        if (hour.year != before.year + (new_year ? 1 : 0)) continuous = false;
      }
      for (int c = 0; c < kClimateColumns; ++c) {
        if (!std::isnan(hour.value[c])) continue;
        MissingValues& m = missing[c];
        if (m.count++ == 0) {
          m.first_day = {hour.year, hour.month, hour.day};
          m.first_hour = hour.hour;
        }
      }
      hours.push_back(hour);
    }
    if (hours.empty()) Fail(kEpwHeaderLines + 1, "The weather file holds no hours");
    const ClimateHour& first = hours.front();
    const ClimateHour& last = hours.back();
    if (first.month != start_month_ || first.day != start_day_ || first.hour != 1) {
      Fail(kEpwHeaderLines + 1, "The first hour is not hour 1 of the first day of the data period");
    }
    if (last.month != end_month_ || last.day != end_day_ || last.hour != 24) {
      Fail(static_cast<int>(lines_.size()) + 1,
           "The weather file ends before hour 24 of the last day of its data period (" +
               std::to_string(end_month_) + "/" + std::to_string(end_day_) + ")");
    }
    header.first_day = {first.year, first.month, first.day};
    // A typical year joins months of different years: its period is told in
    // the year of its first hour.
    header.last_day = {continuous ? last.year : first.year, last.month, last.day};
    header.hourly_wind = true;
    for (int c = 0; c < kClimateColumns; ++c) {
      missing[c].column = static_cast<ClimateColumn>(c);
      if (missing[c].count > 0) {
        result.missing.push_back(missing[c]);
        if (c == kWindDirection || c == kWindSpeed) header.hourly_wind = false;
      }
    }
    return result;
  }

 private:
  [[noreturn]] void Fail(int line, const std::string& what) const {
    throw FileError(path_, line, what);
  }

  void ParseLocation(ClimateHeader& header) {
    auto fields = SplitFields(lines_[0]);
    if (fields.size() < 10) Fail(1, "The LOCATION line has fewer than 10 fields");
    double time_zone = 0;
    if (!ToNumber(fields[6], header.latitude) || std::fabs(header.latitude) > 90) {
      Fail(1, "The latitude of the LOCATION line is no number from -90 to 90");
    }
    if (!ToNumber(fields[7], header.longitude) || std::fabs(header.longitude) > 180) {
      Fail(1, "The longitude of the LOCATION line is no number from -180 to 180");
    }
    if (!ToNumber(fields[8], time_zone) || std::fabs(time_zone) > 12) {
      // Zones 13 and 14 hours ahead would need a meridian past 180 degrees,
      // which no site can hold.
      Fail(1, "The time zone of the LOCATION line is no number from -12 to 12");
    }
    if (!ToNumber(fields[9], header.elevation) || header.elevation < -1000 ||
        header.elevation > 9000) {
      Fail(1, "The elevation of the LOCATION line is no number from -1000 to 9000");
    }
    // 15 degrees for each hour the zone's clock is ahead of universal time.
    header.time_meridian = time_zone * 15.0;
    header.title = std::string(Trim(fields[1]));
    std::string station = header.title;
    for (int i : {2, 3}) {
      if (!Trim(fields[i]).empty() && Trim(fields[i]) != "-")
        station += ", " + std::string(Trim(fields[i]));
    }
    station += " (" + std::string(Trim(fields[4])) + " " + std::string(Trim(fields[5])) + ")";
    header.station = station;
  }

  // DATA PERIODS,<periods>,<records per hour>,<name>,<weekday>,<start>,<end>
  void ParseDataPeriod() {
    const int number = kEpwHeaderLines;
    auto fields = SplitFields(lines_[number - 1]);
    int periods = 0, per_hour = 0;
    if (fields.size() < 7 || !ToInt(fields[1], periods) || !ToInt(fields[2], per_hour)) {
      Fail(number, "The DATA PERIODS line lacks its number of periods or of records an hour");
    }
    if (periods != 1) Fail(number, "Only a weather file of one data period can be imported");
    if (per_hour != 1) Fail(number, "Only a weather file of one record an hour can be imported");
    auto date = [this](std::string_view text, int& month, int& day) {
      text = Trim(text);
      size_t slash = text.find('/');
      std::string_view rest = slash == std::string_view::npos ? "" : text.substr(slash + 1);
      if (slash == std::string_view::npos || !ToInt(text.substr(0, slash), month) ||
          !ToInt(rest.substr(0, rest.find('/')), day) || !IsClimateDate({2000, month, day})) {
        Fail(kEpwHeaderLines, "A date of the DATA PERIODS line is no month/day");
      }
    };
    date(fields[5], start_month_, start_day_);
    date(fields[6], end_month_, end_day_);
  }

  ClimateHour ParseHour(int number) const {
    auto fields = SplitFields(lines_[number - 1]);
    if (fields.size() < kEpwFields) {
      Fail(number, "This hour has " + std::to_string(fields.size()) + " fields instead of " +
                       std::to_string(kEpwFields));
    }
    ClimateHour hour;
    int minute = 0;
    if (!ToInt(fields[0], hour.year) || !ToInt(fields[1], hour.month) ||
        !ToInt(fields[2], hour.day) || !ToInt(fields[3], hour.hour) || !ToInt(fields[4], minute)) {
      Fail(number, "The date and time of this hour are no whole numbers");
    }
    if (!IsClimateDate({hour.year, hour.month, hour.day})) {
      Fail(number, "The date of this hour does not exist");
    }
    if (hour.hour < 1 || hour.hour > 24) Fail(number, "The hour is not 1 to 24");
    for (int c = 0; c < kClimateColumns; ++c) {
      std::string_view field = fields[kEpwField[c]];
      double value = 0;
      if (Trim(field).empty()) {
        value = std::numeric_limits<double>::quiet_NaN();
      } else if (!ToNumber(field, value)) {
        Fail(number, std::string("The value of ") + kClimateColumnNames[c] + " is no number");
      }
      // The EPW's codes of a value not measured (99.9, 999, 9999, 999999)
      // lie outside every column's range.
      if (value < kClimateLimits[c].min || value > kClimateLimits[c].max) {
        value = std::numeric_limits<double>::quiet_NaN();
      }
      hour.value[c] = value;
    }
    return hour;
  }

  std::string path_;
  std::vector<std::string_view> lines_;
  int start_month_ = 1, start_day_ = 1, end_month_ = 12, end_day_ = 31;
};

}  // namespace

EpwImport ParseEpw(const std::string& path, const std::string& bytes) {
  return EpwParser(path, bytes).Parse();
}

EpwImport ReadEpw(const std::string& path) {
  auto bytes = ReadAllBytes(path);
  if (!bytes) throw FileError(path, 0, "The weather file cannot be read");
  return ParseEpw(path, *bytes);
}

std::vector<std::string> MissingReport(const EpwImport& import) {
  std::vector<std::string> lines;
  for (const MissingValues& m : import.missing) {
    lines.push_back(std::string(kClimateColumnNames[m.column]) + ": " + std::to_string(m.count) +
                    (m.count == 1 ? " hour" : " hours") + " without a value, the first " +
                    DateText(m.first_day) + " hour " + std::to_string(m.first_hour));
  }
  return lines;
}

bool ImportEpw(const std::string& epw_path, const std::string& cli_path, EpwImport* result) {
  EpwImport import = ReadEpw(epw_path);
  const bool written = WriteClimateFile(cli_path, import.data);
  if (result) *result = std::move(import);
  return written;
}

}  // namespace zelmo::modules
