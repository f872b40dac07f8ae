// The line diagram's model: which columns of an hourly table are drawn over
// which period, the points of each line, the data shown as CSV, and the
// title that names the project and the case.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "tools/results/hourly_table.h"

namespace zelmo::results {

struct Date {
  int month = 1, day = 1;
};

// "d.m", as 24.12; nothing when it is no date of a year of 365 days.
std::optional<Date> ParseDate(std::string_view text);

// A span of whole days, as hours of the year: the first hour's stamp ends at
// first_hour, the last at last_hour, both counted as HourOfYear does.
struct Period {
  int first_hour = 1;
  int last_hour = 8760;
  bool Holds(int hour) const { return hour >= first_hour && hour <= last_hour; }
};

Period DayPeriod(Date day);
// Seven days from the date, cut at the end of the year.
Period WeekPeriod(Date first);
Period MonthPeriod(int month);
Period YearPeriod();
// From the first date's first hour to the last date's last; the dates in
// either order.
Period DatesPeriod(Date from, Date to);
// The date of an hour of the year.
Date DateOfHour(int hour_of_year);

// A column's name for the legend: "V2 air temp. [C]", "Outdoor temp. [C]".
std::string SeriesName(const Column& column);

struct Series {
  int column = 0;
  std::string name;
  std::string unit;
  // (hour of the year at the hour's end, value)
  std::vector<std::pair<double, double>> points;
};

// The lines of the chosen columns over the period, in the order chosen.
std::vector<Series> BuildSeries(const HourlyTable& table, const std::vector<int>& columns,
                                const Period& period);

// The rows of the period and the chosen columns as comma separated text:
// "Month,Day,Hour" and the columns' headers, then the rows with the values
// as the table gives them to two decimals; CR LF after each line.
std::string SliceCsv(const HourlyTable& table, const std::vector<int>& columns,
                     const Period& period);

// The columns drawn when the diagram opens: every air temperature, heating
// and cooling, else everything.
std::vector<int> DefaultColumns(const HourlyTable& table);

// "Project <project>, case <case>": the case folder's parent folder names
// the project, the folder itself the case.
std::string CaseTitle(const std::string& case_folder);

// The message of a case that has no hourly results.
std::string NoHourlyResultsText(const std::string& case_folder);

}  // namespace zelmo::results
