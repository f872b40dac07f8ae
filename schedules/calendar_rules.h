// The rules of operating periods, whatever screen asks: how dates compare,
// which periods overlap, the limits, what each cell of the hourly tables may
// hold, the "Fill" row, and which volumes an opening may join.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <vector>

#include "schedules/schedule_store.h"

namespace zelmo {

class Grid;
struct SurfaceTable;

// The names of the calendar types, in the order of PeriodType.
inline constexpr std::array<const char*, 3> kPeriodTypeNames = {"Weekend/Weekday", "Daily ",
                                                                "Monthly"};
inline constexpr std::array<const char*, 2> kDayKindNames = {"Weekend", "Weekday"};

inline constexpr const char* kPeriodCheckTitle = "Daily operating periods - check";
inline constexpr const char* kPeriodsOverlap = "Daily intervals are overlapping";
// The one text for a sixth Daily period and a sixth Monthly period.
inline constexpr const char* kMaxPeriodsReached = "Max number of daily operating periods reached ";
inline constexpr const char* kIntervalMissing = "Time interval is missing";

// A date as one number: day + 100 * month.
int DateKey(int day, int month);

// The length of a month when a typed day is checked: February has 29 days in
// every year.
int TypedMonthLength(int month);
// The length of a month for the day spin buttons: February has 28 days.
int SpinMonthLength(int month);
// The last day of a month in a given year, February 29 in years divisible by 4.
int LastDayOfMonth(int month, int year);

// Start and end keys of the Daily periods of a list, 0 in unused entries.
struct DateTable {
  std::array<int, kMaxPeriods> start{};
  std::array<int, kMaxPeriods> end{};
};
// The table of the items "d/m-d/m" of a Daily list. The item at `skip` (from
// 0; -1 for none) keeps (0, 0), so that an edited period is not held against
// itself.
DateTable BuildDateTable(const std::vector<std::string>& items, int skip = -1);
// True when the period shares a day with an entry of the table; periods that
// meet at a border day overlap.
bool DailyOverlap(const DateTable& table, int start_key, int end_key);
// True when a month of start..end is covered by an item "m-m" of a Monthly
// list, the item at `skip` left out.
bool MonthOverlap(const std::vector<std::string>& items, int start_month, int end_month,
                  int skip = -1);
// The hours 1 to 24 covered by the rows "a-b" of an hourly input table.
std::array<bool, kHours + 1> HourCoverage(const std::vector<std::string>& first_column);

// Every character a digit, and at least one.
bool Value_DayOk(const std::string& text);

// The fields of a Daily period, numbered as the dialogs' text boxes.
enum PeriodField { kNoField = 0, kStartDay = 1, kStartMonth = 2, kEndDay = 3, kEndMonth = 4 };

// The failures of a period: each message on a line of its own that begins
// with a CR, and the field (text box number) of the first one.
struct PeriodFaults {
  std::string text;
  int focus = kNoField;
  bool ok() const { return text.empty(); }
};

// The rules of a Daily period, typed as day and month texts, against the
// periods of `table`.
PeriodFaults CheckDailyPeriod(const std::string& start_day, const std::string& start_month,
                              const std::string& end_day, const std::string& end_month,
                              const DateTable& table);
// The rule of a Monthly period: no month shared with the list.
PeriodFaults CheckMonthlyPeriod(const std::vector<std::string>& items, int start_month,
                                int end_month, int skip = -1);

// The rules of the hourly input form (HVAC_Grid1_Input). Its buttons stay
// hidden, since hours are typed into the grid, but should it come back these
// are its checks.
inline constexpr const char* kHourlyCheckTitle = "Hourly operating periods - check";
inline constexpr const char* kMaxHourlyPeriods = "Max number of hourly operating periods reached ";
// Empty, or digits only; "-", "." or "+" alone fails.
bool Value_HourOk(const std::string& text);
// Empty, or a plain number: digits, one ".", a "+" or "-" in first place.
bool Value_SpaceOk(const std::string& text);
// The fields Text1 to Text8 (start and end hour, infiltration, powers and
// set points, internal loads); `covered` the hours of the rows already
// there, held against a row being added.
PeriodFaults CheckHourlyInput(const std::array<std::string, 8>& fields,
                              const std::array<bool, kHours + 1>& covered, bool adding);

// The cell rules of the hourly grids.
inline constexpr const char* kCellCheckTitle = "Check of input data";
inline constexpr const char* kFillToolTip = "To clear cells in a column use the character \"X\"";

// Which grid is checked: the loads (columns 1 to 8 at grid columns 1 to 8,
// or 2 to 9 in the fill row) or the openings (every pair column, from grid
// column 1, or 2 in the fill row).
enum class CellMode { kLoads, kLoadsFill, kOpenings, kOpeningsFill };

// The message of the rule of a column (1 to 8; an opening is column 9 or
// later) for a cell, nullptr when the cell passes. A blank cell always passes.
const char* CellRuleMessage(int column, const std::string& text);

struct CellFault {
  int row = 0;  // the grid's row and column of the cell at fault
  int col = 0;
  std::string message;
};
// The first failing cell, column by column: 1, 2, 3, 4, then Heating against
// Cooling row by row, then 5, 6, 7, 8; or each opening column in turn.
std::optional<CellFault> CheckCells(const Grid& grid, CellMode mode);

// The "Fill" button over a fill row that has passed CheckCells: the rows
// start to end of `target` take each non-blank fill cell, a cell holding the
// letter x in either case empties them, and each row's label is its number.
// Nothing happens unless start > 0 and end < 25; false then.
bool FillRows(const Grid& fill, Grid& target);

// Which pairs of volumes an opening may join: (a, b), a < b, is set when some
// element of the rectangle with a hole has volumes on both sides. Volumes are
// counted by their place in the case's volume list (numbers "1" to "8").
using PairTable = std::array<std::array<bool, kMaxVolumes + 1>, kMaxVolumes + 1>;
PairTable BuildPairConnected(const SurfaceTable& table,
                             const std::vector<std::string>& volume_list);

}  // namespace zelmo
