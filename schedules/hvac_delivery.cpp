#include "schedules/hvac_delivery.h"

#include <algorithm>
#include <cmath>
#include <string_view>

#include "core/fields.h"
#include "core/numbers.h"
#include "core/text_file.h"
#include "schedules/calendar_rules.h"
#include "schedules/hvac_cal_file.h"

namespace zelmo {

namespace {

// "d/m" as the two fields day and month.
std::string DayAndMonth(const std::string& date) {
  std::string text = TrimBlanks(date);
  std::replace(text.begin(), text.end(), '/', '\t');
  return text;
}

std::string MonthDates(const std::string& start_month, const std::string& end_month, int year) {
  std::string start = TrimBlanks(start_month), end = TrimBlanks(end_month);
  double month = std::nearbyint(Val(end));
  int last = month >= 1 && month <= 12 ? LastDayOfMonth(static_cast<int>(month), year) : 0;
  return std::string("01") + kTab + start + kTab + std::to_string(last) + kTab + end;
}

// A cell as delivered: its text without blanks, or what an empty cell of its
// column stands for.
void AppendDelivered(std::string& line, const std::string* cell, int column) {
  std::string_view text = cell ? std::string_view(*cell) : std::string_view();
  while (!text.empty() && text.front() == ' ') text.remove_prefix(1);
  while (!text.empty() && text.back() == ' ') text.remove_suffix(1);
  line.append(text.empty() ? std::string_view(DeliveredBlank(column)) : text);
}

void Line(std::string& out, std::string_view line) {
  out += line;
  out += "\r\n";
}

void AppendPeriod(std::string& out, const ScheduleStore& store, int schedule, int volume, int slot,
                  const std::string& dates) {
  Line(out, dates);
  Line(out, std::to_string(kHours));
  const int volumes = std::min(store.VolumeCount, kMaxVolumes);
  // A period whose cells were never set delivers blanks throughout.
  const std::vector<std::string>* cells = store.PeriodCells(schedule, volume, slot);
  for (int hour = 1; hour <= kHours; ++hour) {
    const std::string* row = cells ? &(*cells)[(hour - 1) * kHourColumns] : nullptr;
    std::string& line = out;
    const std::string label = std::to_string(hour);
    line += label;
    line += '\t';
    line += label;
    line += '\t';
    for (int column = 1; column <= kLoadColumns; ++column) {
      AppendDelivered(line, row ? &row[column - 1] : nullptr, column);
      line += '\t';
    }
    // The modules take the openings of all 28 pairs of eight volumes.
    for (int a = 1; a < kMaxVolumes; ++a) {
      for (int b = a + 1; b <= kMaxVolumes; ++b) {
        bool held = row && b <= volumes;
        AppendDelivered(line, held ? &row[PairColumn(a, b, volumes) - 1] : nullptr,
                        kLoadColumns + 1);
        line += a == kMaxVolumes - 1 ? "\t" : "\t\t";
      }
    }
    line += "\r\n";
  }
}

}  // namespace

const char* DeliveredBlank(int column) {
  switch (column) {
    case 1:
    case 3:
    case 4:
      return kReservedField;
    case 2:
      return "-1E+20";
    default:
      return "0";
  }
}

void AppendHvacDelivery(std::string& out, const ScheduleStore& store, int year) {
  const int schedule = std::clamp(store.CurrentSchedule, 1, kMaxSchedules);
  Line(out, NumText(store.UseInternalLoadFile ? 1 : 0) + kTab +
                NumText(store.HasHeatExchanger ? 1 : 0) + kTab +
                NumText(Val(store.HeatExchangerEfficiency)) + kTab +
                NumText(store.HasHeatExchanger && store.HasBypass ? 1 : 0) + kTab);
  Line(out, TrimBlanks(store.InternalLoadFile));
  Line(out, store.ScheduleName(schedule));
  for (int volume = 1; volume <= std::min(store.VolumeCount, kMaxVolumes); ++volume) {
    const int type = store.PeriodType(schedule, volume);
    Line(out,
         NumText(type == kMonthly ? kDaily : type) + kTab + kReservedField + kTab + kReservedField);
    if (type == kWeekendWeekday) {
      Line(out, NumText(kDayKinds));
      AppendPeriod(out, store, schedule, volume, kWeekendSlot, "1\t1\t30\t6");
      AppendPeriod(out, store, schedule, volume, kWeekdaySlot, "1\t7\t31\t12");
      continue;
    }
    const int count = store.PeriodCount(schedule, volume, type);
    Line(out, NumText(count));
    for (int period = 1; period <= count; ++period) {
      const int slot = PeriodSlot(type, period);
      const std::string& start = store.PeriodDates(schedule, volume, slot, 1);
      const std::string& end = store.PeriodDates(schedule, volume, slot, 2);
      AppendPeriod(out, store, schedule, volume, slot,
                   type == kMonthly ? MonthDates(start, end, year)
                                    : DayAndMonth(start) + kTab + DayAndMonth(end));
    }
  }
}

std::vector<std::string> HvacDeliveryLines(const ScheduleStore& store, int year) {
  std::string text;
  AppendHvacDelivery(text, store, year);
  std::vector<std::string> lines;
  for (size_t at = 0, end; (end = text.find("\r\n", at)) != std::string::npos; at = end + 2) {
    lines.emplace_back(text, at, end - at);
  }
  return lines;
}

}  // namespace zelmo
