#include "schedules/calendar_rules.h"

#include <algorithm>
#include <cmath>
#include <string_view>

#include "building/surface_file.h"
#include "building/surface_rules.h"
#include "core/controls.h"
#include "core/fields.h"
#include "core/numbers.h"
#include "core/text_file.h"

namespace zelmo {

namespace {

constexpr std::array<int, 13> kTypedMonthLength = {0,  31, 29, 31, 30, 31, 30,
                                                   31, 31, 30, 31, 30, 31};

// A whole number by the number rule, kept inside what an int can hold.
int WholeValue(const std::string& text) {
  double value = std::nearbyint(Val(text));
  if (!(value > -1e9 && value < 1e9)) return 0;
  return static_cast<int>(value);
}

bool Holds(const std::string& text, char c) { return text.find(c) != std::string::npos; }

bool Blank(const std::string& text) { return text.find_first_not_of(' ') == std::string::npos; }

// "d/m" as its key.
int KeyOfDate(const std::string& date) {
  return DateKey(WholeValue(TrimBlanks(FieldBefore(date, "/"))),
                 WholeValue(TrimBlanks(FieldAfter(date, "/"))));
}

bool MonthSound(const std::string& month) {
  return Value_DayOk(month) && WholeValue(month) >= 1 && WholeValue(month) <= 12;
}

bool DaySound(const std::string& day, int length) {
  return Value_DayOk(day) && WholeValue(day) >= 1 && WholeValue(day) <= length;
}

void AddFault(PeriodFaults& faults, const std::string& message, int field) {
  faults.text += "\r" + message;
  if (faults.focus == kNoField) faults.focus = field;
}

constexpr const char* kWholeNotNegative = "Number should be greater or equal 0 with no decimals. ";
constexpr const char* kWhole = "Number should have no decimals. ";
constexpr const char* kHeatingAboveCooling = "Heating should be less or equal to Cooling.";
constexpr const char* kFlow =
    "Number should be a positive real number with max 4 digits (including the decimalpoint)";
constexpr const char* kPercent =
    "Number should be greater or equal 0 and less or equal 100 with no decimals";

// The grid column of a column of the hourly table, by the grid checked.
int GridColumn(int column, CellMode mode) {
  bool fill = mode == CellMode::kLoadsFill || mode == CellMode::kOpeningsFill;
  return fill ? column + 1 : column;
}

}  // namespace

int DateKey(int day, int month) { return day + 100 * month; }

int TypedMonthLength(int month) { return month >= 1 && month <= 12 ? kTypedMonthLength[month] : 0; }

int SpinMonthLength(int month) {
  if (month == 2) return 28;
  return month <= 7 ? 30 + month % 2 : 31 - month % 2;
}

int LastDayOfMonth(int month, int year) {
  if (month == 2 && year % 4 == 0) return 29;
  return SpinMonthLength(month);
}

DateTable BuildDateTable(const std::vector<std::string>& items, int skip) {
  DateTable table;
  for (int i = 0; i < static_cast<int>(items.size()) && i < kMaxPeriods; ++i) {
    if (i == skip) continue;
    table.start[i] = KeyOfDate(FieldBefore(items[i], "-"));
    table.end[i] = KeyOfDate(TrimBlanks(FieldAfter(items[i], "-")));
  }
  return table;
}

bool DailyOverlap(const DateTable& table, int start_key, int end_key) {
  for (int i = 0; i < kMaxPeriods; ++i) {
    if (!(start_key > table.end[i] || end_key < table.start[i])) return true;
  }
  return false;
}

bool MonthOverlap(const std::vector<std::string>& items, int start_month, int end_month, int skip) {
  std::array<bool, 13> covered{};
  for (int i = 0; i < static_cast<int>(items.size()); ++i) {
    if (i == skip) continue;
    int first = WholeValue(FieldBefore(items[i], "-"));
    int last = WholeValue(FieldAfter(items[i], "-"));
    for (int month = std::max(first, 1); month <= std::min(last, 12); ++month) {
      covered[month] = true;
    }
  }
  for (int month = std::max(start_month, 1); month <= std::min(end_month, 12); ++month) {
    if (covered[month]) return true;
  }
  return false;
}

std::array<bool, kHours + 1> HourCoverage(const std::vector<std::string>& first_column) {
  std::array<bool, kHours + 1> covered{};
  for (const auto& text : first_column) {
    if (!Holds(text, '-')) continue;
    int first = WholeValue(FieldBefore(text, "-"));
    int last = WholeValue(FieldAfter(text, "-"));
    for (int hour = std::max(first, 1); hour <= std::min(last, kHours); ++hour) {
      covered[hour] = true;
    }
  }
  return covered;
}

bool Value_DayOk(const std::string& text) { return IsDigitsOnly(text); }

PeriodFaults CheckDailyPeriod(const std::string& start_day, const std::string& start_month,
                              const std::string& end_day, const std::string& end_month,
                              const DateTable& table) {
  const std::string sd = TrimBlanks(start_day), sm = TrimBlanks(start_month);
  const std::string ed = TrimBlanks(end_day), em = TrimBlanks(end_month);
  PeriodFaults faults;
  if (DailyOverlap(table, DateKey(WholeValue(sd), WholeValue(sm)),
                   DateKey(WholeValue(ed), WholeValue(em)))) {
    AddFault(faults, kPeriodsOverlap, kStartDay);
  }
  if (!MonthSound(sm)) {
    AddFault(faults, "Start/Month must be a value (1 - 12)", kStartMonth);
  } else if (int length = TypedMonthLength(WholeValue(sm)); !DaySound(sd, length)) {
    AddFault(faults, "Start/Day must be a value (1 - " + std::to_string(length) + ")", kStartDay);
  }
  if (!MonthSound(em)) {
    AddFault(faults, "End/Month must be a value (1 - 12)", kEndMonth);
  } else if (int length = TypedMonthLength(WholeValue(em)); !DaySound(ed, length)) {
    AddFault(faults, "End/Day must be a value (1 - " + std::to_string(length) + ")", kEndDay);
  }
  if (WholeValue(sm) > WholeValue(em)) {
    AddFault(faults, "Start/Month > End/Month", kStartMonth);
  } else if (WholeValue(sm) == WholeValue(em) && WholeValue(sd) > WholeValue(ed)) {
    AddFault(faults, "Start/Day > End/Day", kStartDay);
  }
  return faults;
}

PeriodFaults CheckMonthlyPeriod(const std::vector<std::string>& items, int start_month,
                                int end_month, int skip) {
  PeriodFaults faults;
  if (MonthOverlap(items, start_month, end_month, skip)) {
    AddFault(faults, kPeriodsOverlap, kStartMonth);
  }
  return faults;
}

bool Value_HourOk(const std::string& text) {
  if (text.empty()) return true;
  return text != "-" && text != "." && text != "+" && IsDigitsOnly(text);
}

bool Value_SpaceOk(const std::string& text) { return text.empty() || IsSignedNumberText(text); }

PeriodFaults CheckHourlyInput(const std::array<std::string, 8>& fields,
                              const std::array<bool, kHours + 1>& covered, bool adding) {
  std::array<std::string, 8> text;
  for (size_t i = 0; i < text.size(); ++i) text[i] = TrimBlanks(fields[i]);
  // The bounds in a message: each number with its blank for the sign.
  auto bounds = [](double low, double high) { return NumText(low) + " - " + NumText(high) + ")"; };
  auto hour_ok = [](const std::string& hour) {
    return Value_HourOk(hour) && Val(hour) >= 1 && Val(hour) <= kHours;
  };
  PeriodFaults faults;
  const int start = WholeValue(text[0]), end = WholeValue(text[1]);
  if (!hour_ok(text[0])) AddFault(faults, "Start must be a value (" + bounds(1, kHours), 1);
  if (adding) {
    for (int hour = std::max(start, 1); hour <= std::min(end, kHours); ++hour) {
      if (!covered[hour]) continue;
      AddFault(faults, "Hourly intervals are overlapping ", 1);
      break;
    }
  }
  if (!hour_ok(text[1])) AddFault(faults, "End must be a value (" + bounds(1, kHours), 2);
  if (start > end) AddFault(faults, "Start must be <= End ", 1);
  struct Bound {
    const char* message;
    double low, high;
  } const values[] = {
      {"Infiltration must be empty or a value (", 0, 500},
      {"Power Heating must be empty or a value (", 0, 1000000},
      {"Heating must be empty or a value (", -100, 100},
      {"Power Cooling must be empty or a value (", 0, 1000000},
      {"Cooling must be empty or a value (", -100, 100},
      {"Internal Loads must be empty or a value (", -99999, 999999},
  };
  for (int i = 0; i < 6; ++i) {
    const std::string& value = text[i + 2];
    bool ok = Value_SpaceOk(value) &&
              (value.empty() || (Val(value) >= values[i].low && Val(value) <= values[i].high));
    if (!ok) AddFault(faults, values[i].message + bounds(values[i].low, values[i].high), i + 3);
  }
  return faults;
}

const char* CellRuleMessage(int column, const std::string& cell) {
  size_t first = cell.find_first_not_of(' ');
  if (first == std::string::npos) return nullptr;
  size_t last = cell.find_last_not_of(' ');
  // One look at the characters: the points, the minus signs, and whether a
  // minus stands anywhere but first.
  int points = 0, minuses = 0;
  bool inner_minus = false;
  for (size_t i = first; i <= last; ++i) {
    if (cell[i] == '.') ++points;
    if (cell[i] == '-') {
      ++minuses;
      inner_minus = inner_minus || i > first;
    }
  }
  const size_t length = last - first + 1;
  switch (column) {
    case 1:
    case 3:
    case 5:
      return points || minuses ? kWholeNotNegative : nullptr;
    case 2:
    case 4:
      return points || inner_minus || (minuses && length == 1) ? kWhole : nullptr;
    case 6:
    case 7:
      return length > 4 || points > 1 || minuses ? kFlow : nullptr;
    default:
      return points || minuses || Val(cell) > 100 ? kPercent : nullptr;
  }
}

std::optional<CellFault> CheckCells(const Grid& grid, CellMode mode) {
  const int first_row = grid.fixed_rows;
  auto check_column = [&](int column, int grid_col) -> std::optional<CellFault> {
    for (int row = first_row; row < grid.rows(); ++row) {
      const char* message = CellRuleMessage(column, grid.Cell(row, grid_col));
      if (message) return CellFault{row, grid_col, message};
    }
    return std::nullopt;
  };
  if (mode == CellMode::kOpenings || mode == CellMode::kOpeningsFill) {
    for (int grid_col = GridColumn(1, mode); grid_col < grid.cols(); ++grid_col) {
      if (auto fault = check_column(kLoadColumns + 1, grid_col)) return fault;
    }
    return std::nullopt;
  }
  for (int column : {1, 2, 3, 4}) {
    if (auto fault = check_column(column, GridColumn(column, mode))) return fault;
  }
  const int heating = GridColumn(2, mode), cooling = GridColumn(4, mode);
  for (int row = first_row; row < grid.rows(); ++row) {
    const std::string& heat = grid.Cell(row, heating);
    const std::string& cool = grid.Cell(row, cooling);
    if (Blank(heat) || Blank(cool)) continue;
    if (Val(heat) > Val(cool)) return CellFault{row, heating, kHeatingAboveCooling};
  }
  for (int column : {5, 6, 7, 8}) {
    if (auto fault = check_column(column, GridColumn(column, mode))) return fault;
  }
  return std::nullopt;
}

bool FillRows(const Grid& fill, Grid& target) {
  const int fill_row = fill.rows() - 1;
  const int start = WholeValue(fill.Cell(fill_row, 0));
  const int end = WholeValue(fill.Cell(fill_row, 1));
  if (!(start > 0 && end < kHours + 1)) return false;
  for (int row = start; row <= end; ++row) {
    target.Cell(row, 0) = std::to_string(row);
    // The fill row has two hour columns where the grid has one.
    for (int col = 2; col < fill.cols() && col - 1 < target.cols(); ++col) {
      const std::string& text = fill.Cell(fill_row, col);
      if (Blank(text)) continue;
      std::string& cell = target.Cell(row, col - 1);
      if (Holds(text, 'x') || Holds(text, 'X')) {
        cell.clear();
      } else {
        cell = text;
      }
    }
  }
  return true;
}

PairTable BuildPairConnected(const SurfaceTable& table,
                             const std::vector<std::string>& volume_list) {
  // A volume's number as its place in the list, 0 for none.
  auto place = [&](const std::string& code) {
    std::string number = TrimBlanks(code);
    for (size_t i = 0; i < volume_list.size() && i < kMaxVolumes; ++i) {
      if (volume_list[i] == number) return static_cast<int>(i) + 1;
    }
    return 0;
  };
  PairTable connected{};
  for (int slot = 1; slot <= table.SurfCount && slot <= kMaxElements; ++slot) {
    if (TrimBlanks(table.SurfName[slot]).empty()) continue;
    if (WholeValue(table.SurfData[slot][1]) != kShapeWithHole) continue;
    int front = place(table.SurfData[slot][7]);
    int back = place(table.SurfData[slot][8]);
    if (front == 0 || back == 0 || front == back) continue;
    connected[std::min(front, back)][std::max(front, back)] = true;
  }
  return connected;
}

}  // namespace zelmo
