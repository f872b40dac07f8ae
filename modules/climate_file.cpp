#include "modules/climate_file.h"

#include <charconv>
#include <cmath>
#include <cstdio>
#include <limits>
#include <string_view>

#include "core/text_file.h"

namespace zelmo::modules {

const std::array<const char*, kClimateColumns> kClimateColumnNames = {
    "T_dry[C]",    "T_dew[C]",     "P[Pa]",         "G_hor[W/m2]",    "B_normal[W/m2]",
    "D_hor[W/m2]", "IR_hor[W/m2]", "Wind_dir[deg]", "Wind_speed[m/s]"};

const std::array<ClimateLimits, kClimateColumns> kClimateLimits = {{
    {-70, 70},        // dry bulb
    {-70, 70},        // dew point
    {31000, 120000},  // pressure
    {0, 2000},        // global horizontal
    {0, 2000},        // direct normal
    {0, 2000},        // diffuse horizontal
    {0, 1000},        // horizontal infrared
    {0, 360},         // wind direction
    {0, 60},          // wind speed
}};

namespace {

constexpr const char* kLatitudeKey = "Latitude: ";
constexpr const char* kLongitudeKey = "Longitude: ";
constexpr const char* kMeridianKey = "Time meridian: ";
constexpr const char* kElevationKey = "Elevation: ";
constexpr const char* kFirstDayKey = "1:st day: ";
constexpr const char* kLastDayKey = "Last day: ";
constexpr const char* kHoursKey = "Hours: ";
constexpr const char* kStationKey = "Station: ";
constexpr const char* kColumnsKey = "Columns: ";
constexpr const char* kTitleTail = " climate data, ";
constexpr const char* kWindText = "hourly wind included";
constexpr const char* kNoWindText = "hourly wind not included";
constexpr int kHeaderLines = 10;
constexpr const char* kMissing = "?";

// How each column is written: its width and decimals.
struct ColumnFormat {
  int width, decimals;
};
constexpr std::array<ColumnFormat, kClimateColumns> kFormats = {
    {{5, 1}, {5, 1}, {6, 0}, {4, 0}, {4, 0}, {4, 0}, {4, 0}, {3, 0}, {4, 1}}};

bool StartsWithIgnoringCase(std::string_view text, std::string_view key) {
  if (text.size() < key.size()) return false;
  for (size_t i = 0; i < key.size(); ++i) {
    auto lower = [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; };
    if (lower(text[i]) != lower(key[i])) return false;
  }
  return true;
}

bool ParseInt(std::string_view text, int& value) {
  auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  return error == std::errc() && end == text.data() + text.size();
}

// The first blank-separated word of `text`.
std::string_view FirstWord(std::string_view text) {
  size_t start = text.find_first_not_of(' ');
  if (start == std::string_view::npos) return {};
  text.remove_prefix(start);
  return text.substr(0, text.find(' '));
}

bool ParseDate(std::string_view text, ClimateDate& date) {
  // yyyy.mm.dd
  size_t first = text.find('.');
  size_t second = first == std::string_view::npos ? first : text.find('.', first + 1);
  if (second == std::string_view::npos) return false;
  return ParseInt(text.substr(0, first), date.year) &&
         ParseInt(text.substr(first + 1, second - first - 1), date.month) &&
         ParseInt(text.substr(second + 1), date.day) && IsClimateDate(date);
}

class Parser {
 public:
  Parser(const std::string& path, const std::string& bytes)
      : path_(path), lines_(SplitLines(bytes)) {}

  ClimateData Parse() {
    ClimateData data;
    ParseHeader(data.header);
    data.hours.reserve(static_cast<size_t>(count_));
    for (int i = 0; i < count_; ++i) {
      const int number = kHeaderLines + 1 + i;
      if (static_cast<size_t>(number) > lines_.size()) {
        Fail(number, "The climate file ends before its " + std::to_string(count_) + " hours");
      }
      data.hours.push_back(ParseHour(number));
      if (i > 0 && !Follows(data.hours[i - 1], data.hours[i])) {
        Fail(number, "This hour does not follow the hour before it");
      }
    }
    for (size_t at = kHeaderLines + count_; at < lines_.size(); ++at) {
      if (!FirstWord(lines_[at]).empty()) {
        Fail(static_cast<int>(at) + 1,
             "More hours than the climate file's " + std::to_string(count_) + " stand in it");
      }
    }
    return data;
  }

 private:
  [[noreturn]] void Fail(int line, const std::string& what) const {
    throw FileError(path_, line, what);
  }

  std::string_view Line(int number) const {
    if (static_cast<size_t>(number) > lines_.size()) {
      Fail(number, "The climate file ends in its header");
    }
    return lines_[number - 1];
  }

  // The text behind the key that line `number` must start with.
  std::string_view Behind(int number, const char* key) const {
    std::string_view line = Line(number);
    if (!StartsWithIgnoringCase(line, key)) {
      Fail(number, std::string("The climate file has no \"") + key + "\" here");
    }
    return line.substr(std::string_view(key).size());
  }

  double Number(int number, const char* key) const {
    double value = 0;
    if (!ParseNumberField(FirstWord(Behind(number, key)), value)) {
      Fail(number, std::string("The value behind \"") + key + "\" is no number");
    }
    return value;
  }

  ClimateDate Date(int number, const char* key) const {
    ClimateDate date;
    if (!ParseDate(FirstWord(Behind(number, key)), date)) {
      Fail(number, std::string("The value behind \"") + key + "\" is no date year.month.day");
    }
    return date;
  }

  void ParseHeader(ClimateHeader& header) {
    std::string_view first = Line(1);
    if (first.size() < 3 || first[0] != '0' || (first[1] != '0' && first[1] != '1') ||
        first[2] != ' ') {
      Fail(1, "This is no hourly climate file: its first line must start with \"01 \" or \"00 \"");
    }
    header.hourly_wind = first[1] == '1';
    std::string_view title = first.substr(3);
    size_t tail = title.rfind(kTitleTail);
    header.title = std::string(tail == std::string_view::npos ? title : title.substr(0, tail));
    header.station = std::string(Behind(2, kStationKey));
    header.latitude = Number(3, kLatitudeKey);
    header.longitude = Number(4, kLongitudeKey);
    header.time_meridian = Number(5, kMeridianKey);
    header.elevation = Number(6, kElevationKey);
    if (header.latitude < -90 || header.latitude > 90) Fail(3, "The latitude is not -90 to 90");
    if (header.longitude < -180 || header.longitude > 180) {
      Fail(4, "The longitude is not -180 to 180");
    }
    if (header.time_meridian < -180 || header.time_meridian > 180) {
      Fail(5, "The time meridian is not -180 to 180");
    }
    header.first_day = Date(7, kFirstDayKey);
    header.last_day = Date(8, kLastDayKey);
    if (!ParseInt(FirstWord(Behind(9, kHoursKey)), count_) || count_ < 1 ||
        count_ > 24 * 366 * 200) {
      Fail(9, "The number of hours behind \"Hours: \" is no whole number above 0");
    }
    Behind(10, kColumnsKey);
  }

  ClimateHour ParseHour(int number) const {
    std::string_view line = lines_[number - 1];
    std::array<std::string_view, 2 + kClimateColumns> fields;
    size_t count = 0;
    size_t at = 0;
    while (true) {
      at = line.find_first_not_of(' ', at);
      if (at == std::string_view::npos) break;
      size_t end = line.find(' ', at);
      if (end == std::string_view::npos) end = line.size();
      if (count == fields.size()) Fail(number, "This hour has more values than the columns");
      fields[count++] = line.substr(at, end - at);
      at = end;
    }
    if (count < fields.size()) {
      Fail(number, "This hour has " + std::to_string(count) + " fields instead of " +
                       std::to_string(fields.size()));
    }
    ClimateHour hour;
    ClimateDate date;
    if (!ParseDate(fields[0], date)) Fail(number, "The date of this hour is no year.month.day");
    hour.year = date.year;
    hour.month = date.month;
    hour.day = date.day;
    if (!ParseInt(fields[1], hour.hour) || hour.hour < 1 || hour.hour > 24) {
      Fail(number, "The hour is not 1 to 24");
    }
    for (int c = 0; c < kClimateColumns; ++c) {
      std::string_view field = fields[2 + c];
      double& value = hour.value[c];
      if (field == kMissing) {
        value = std::numeric_limits<double>::quiet_NaN();
        continue;
      }
      if (!ParseNumberField(field, value)) {
        Fail(number, std::string("The value of ") + kClimateColumnNames[c] + " is no number");
      }
      if (value < kClimateLimits[c].min || value > kClimateLimits[c].max) {
        Fail(number, std::string("The value of ") + kClimateColumnNames[c] + " lies outside " +
                         FormatNumber(kClimateLimits[c].min) + " to " +
                         FormatNumber(kClimateLimits[c].max));
      }
    }
    return hour;
  }

  std::string path_;
  std::vector<std::string_view> lines_;
  int count_ = 0;
};

}  // namespace

std::string DateText(const ClimateDate& date) {
  char text[32];
  std::snprintf(text, sizeof text, "%04d.%02d.%02d", date.year, date.month, date.day);
  return text;
}

bool Follows(const ClimateHour& before, const ClimateHour& hour) {
  if (hour.month == before.month && hour.day == before.day) return hour.hour == before.hour + 1;
  if (before.hour != 24 || hour.hour != 1) return false;
  if (hour.month == before.month) return hour.day == before.day + 1;
  const bool next_month = hour.month == before.month % 12 + 1;
  const bool month_ended =
      before.day == DaysInMonth(before.month) || (before.month == 2 && before.day == 28);
  return next_month && month_ended && hour.day == 1;
}

std::vector<std::string_view> SplitLines(const std::string& bytes) {
  std::vector<std::string_view> lines;
  lines.reserve(bytes.size() / 60 + 16);
  std::string_view rest(bytes);
  while (!rest.empty()) {
    size_t end = rest.find_first_of("\r\n");
    if (end == std::string_view::npos) {
      lines.push_back(rest);
      break;
    }
    lines.push_back(rest.substr(0, end));
    size_t next = end + 1;
    if (rest[end] == '\r' && next < rest.size() && rest[next] == '\n') ++next;
    rest.remove_prefix(next);
  }
  return lines;
}

bool ParseNumberField(std::string_view text, double& value) {
  if (!text.empty() && text.front() == '+') text.remove_prefix(1);
  auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  return !text.empty() && error == std::errc() && end == text.data() + text.size() &&
         std::isfinite(value);
}

int DaysInMonth(int month) {
  static constexpr int kDays[] = {31, 29, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  return month >= 1 && month <= 12 ? kDays[month - 1] : 0;
}

bool IsClimateDate(const ClimateDate& date) {
  return date.year >= 1 && date.year <= 9999 && date.day >= 1 &&
         date.day <= DaysInMonth(date.month);
}

std::string FormatNumber(double value) {
  char text[64];
  std::snprintf(text, sizeof text, "%.6f", value);
  std::string out = text;
  out.erase(out.find_last_not_of('0') + 1);
  if (out.back() == '.') out.pop_back();
  if (out == "-0") out = "0";
  return out;
}

ClimateData ParseClimateText(const std::string& path, const std::string& bytes) {
  return Parser(path, bytes).Parse();
}

ClimateData ReadClimateFile(const std::string& path) {
  auto bytes = ReadAllBytes(path);
  if (!bytes) throw FileError(path, 0, "The climate file cannot be read");
  return ParseClimateText(path, *bytes);
}

std::string ClimateFileText(const ClimateData& data) {
  const ClimateHeader& h = data.header;
  std::string out;
  out.reserve(data.hours.size() * 64 + 1024);
  auto line = [&out](const std::string& text) {
    out += text;
    out += "\r\n";
  };
  line(std::string("0") + (h.hourly_wind ? "1 " : "0 ") + h.title + kTitleTail +
       (h.hourly_wind ? kWindText : kNoWindText));
  line(kStationKey + h.station);
  line(kLatitudeKey + FormatNumber(h.latitude) + " degrees, positive to the north");
  line(kLongitudeKey + FormatNumber(h.longitude) + " degrees, positive to the east");
  line(kMeridianKey + FormatNumber(h.time_meridian) + " degrees, positive to the east");
  line(kElevationKey + FormatNumber(h.elevation) + " metres above sea level");
  line(kFirstDayKey + DateText(h.first_day));
  line(kLastDayKey + DateText(h.last_day));
  line(kHoursKey + std::to_string(data.hours.size()));
  std::string columns = std::string(kColumnsKey) + "Date Hour";
  for (const char* name : kClimateColumnNames) columns += std::string(" ") + name;
  line(columns);
  char text[64];
  for (const ClimateHour& hour : data.hours) {
    std::snprintf(text, sizeof text, "%04d.%02d.%02d %2d", hour.year, hour.month, hour.day,
                  hour.hour);
    out += text;
    for (int c = 0; c < kClimateColumns; ++c) {
      const double value = hour.value[c];
      if (std::isnan(value)) {
        std::snprintf(text, sizeof text, " %*s", kFormats[c].width, kMissing);
      } else {
        std::snprintf(text, sizeof text, " %*.*f", kFormats[c].width, kFormats[c].decimals, value);
      }
      out += text;
    }
    out += "\r\n";
  }
  return out;
}

bool WriteClimateFile(const std::string& path, const ClimateData& data) {
  return WriteAllBytes(path, ClimateFileText(data));
}

namespace {

// The place of an hour in a leap year, from 0; -1 for no hour.
int CalendarSlot(int month, int day, int hour) {
  if (!IsClimateDate({2000, month, day}) || hour < 1 || hour > 24) return -1;
  int days = 0;
  for (int m = 1; m < month; ++m) days += DaysInMonth(m);
  return (days + day - 1) * 24 + hour - 1;
}

}  // namespace

ClimateCalendar::ClimateCalendar(const ClimateData& data) : index_(366 * 24, -1) {
  for (size_t i = 0; i < data.hours.size(); ++i) {
    const ClimateHour& h = data.hours[i];
    const int slot = CalendarSlot(h.month, h.day, h.hour);
    if (slot >= 0 && index_[slot] < 0) index_[slot] = static_cast<int>(i);
  }
}

int ClimateCalendar::Find(int month, int day, int hour) const {
  const int slot = CalendarSlot(month, day, hour);
  return slot < 0 ? -1 : index_[slot];
}

int MissingCount(const ClimateData& data, ClimateColumn column) {
  int count = 0;
  for (const ClimateHour& hour : data.hours) count += std::isnan(hour.value[column]) ? 1 : 0;
  return count;
}

}  // namespace zelmo::modules
