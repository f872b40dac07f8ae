#include "schedules/hvac_cal_file.h"

#include <algorithm>
#include <cmath>

#include "building/surface_file.h"
#include "building/volumes.h"
#include "core/fields.h"
#include "core/numbers.h"
#include "core/text_file.h"
#include "core/workspace.h"

namespace zelmo {

namespace {

constexpr const char* kOutOfRange = "Subscript out of range";
constexpr const char* kBadFlag = "Invalid property value";

// The stamped dates of the two halves of the year under Weekend and Weekday.
constexpr const char* kWeekendDates = "1/1\t30/6";
constexpr const char* kWeekdayDates = "1/7\t31/12";

std::string HvacCalPath(const Workspace& ws) { return JoinPath(ws.CasePath, kHvacCalFile); }

// A whole number read by the number rule, as the runtime's integers take it.
double WholeOf(const std::string& text) { return std::nearbyint(Val(text)); }

// A number read by the number rule that must lie in low..high; anything
// else means the file has lost its shape.
int Within(const TextReader& reader, const std::string& text, int low, int high,
           const char* what = kOutOfRange) {
  double value = WholeOf(text);
  if (!(value >= low && value <= high)) reader.Fail(what);
  return static_cast<int>(value);
}

// The field `n` (from 0) of a TAB line, or empty.
std::string TabField(const std::string& line, size_t n) {
  auto fields = SplitTabs(line);
  return n < fields.size() ? fields[n] : std::string();
}

// One hour line: two hour fields, the eight loads, then one field per pair of
// the present volumes. Cells keep their blanks; missing fields are empty.
void ReadHourLine(const std::string& line, int pairs, std::string* row) {
  const char* at = line.data();
  const char* const end = at + line.size();
  // Fields are short: a plain walk beats a search call per field.
  auto next = [&at, end](std::string* cell) {
    const char* start = at;
    while (at < end && *at != '\t') ++at;
    if (cell) cell->assign(start, at);
    if (at < end) ++at;
  };
  next(nullptr);
  next(nullptr);
  for (int column = 0; column < kLoadColumns + pairs; ++column) next(&row[column]);
}

void ReadVolumeBlock(TextReader& reader, int pairs, ScheduleStore& store, int schedule,
                     int volume) {
  std::string type_line = reader.ReadLine();
  int type = Within(reader, TrimBlanks(FieldBefore(type_line, kTab)), kWeekendWeekday, kMonthly);
  store.PeriodType(schedule, volume) = static_cast<int16_t>(type);
  int count =
      Within(reader, reader.ReadLine(), 0, type == kWeekendWeekday ? kDayKinds : kMaxPeriods);
  // Weekend/Weekday always has its two slots; its count is not kept.
  if (type != kWeekendWeekday)
    store.PeriodCount(schedule, volume, type) = static_cast<int16_t>(count);
  for (int period = 1; period <= count; ++period) {
    int slot = PeriodSlot(type, period);
    std::string dates = reader.ReadLine();
    store.PeriodDates(schedule, volume, slot, 1) = TrimBlanks(FieldBefore(dates, kTab));
    store.PeriodDates(schedule, volume, slot, 2) = TrimBlanks(FieldAfter(dates, kTab));
    int hours = Within(reader, reader.ReadLine(), 0, kHours);
    if (hours == 0) continue;
    auto& cells = store.PeriodCells(schedule, volume, slot);
    for (int hour = 1; hour <= hours; ++hour) {
      ReadHourLine(reader.ReadLine(), pairs, &cells[(hour - 1) * kHourColumns]);
    }
  }
}

void RunDefaults(int volume_count, ScheduleStore& store) {
  store.ClearSchedules();
  store.UseInternalLoadFile = false;
  store.InternalLoadFile.clear();
  store.HasHeatExchanger = false;
  store.HasBypass = false;
  store.HeatExchangerEfficiency = kDefaultEfficiency;
  store.ScheduleName(1) = kRunDefaultScheduleName;
  for (int volume = 1; volume <= volume_count && volume <= kMaxVolumes; ++volume) {
    store.PeriodType(1, volume) = kWeekendWeekday;
    store.PeriodDates(1, volume, kWeekendSlot, 1) = "1/1";
    store.PeriodDates(1, volume, kWeekendSlot, 2) = "30/6";
    store.PeriodDates(1, volume, kWeekdaySlot, 1) = "1/7";
    store.PeriodDates(1, volume, kWeekdaySlot, 2) = "31/12";
  }
  store.VolumeCount = volume_count;
}

// Cells of Weekend/Weekday hours go out as held (a cell never set is one
// blank); those of Daily and Monthly hours trimmed.
void AppendCell(std::string& line, const std::string& cell, bool as_held) {
  if (as_held) {
    line += cell;
    return;
  }
  size_t first = cell.find_first_not_of(' ');
  if (first == std::string::npos) return;
  line.append(cell, first, cell.find_last_not_of(' ') - first + 1);
}

void AppendLine(std::string& text, const std::string& line) {
  text += line;
  text += "\r\n";
}

void AppendPeriod(std::string& text, const ScheduleStore& store, int schedule, int volume, int type,
                  int slot, const std::string& dates) {
  AppendLine(text, dates);
  AppendLine(text, std::to_string(kHours));
  const std::vector<std::string>* cells = store.PeriodCells(schedule, volume, slot);
  const std::string never_set = " ";
  for (int hour = 1; hour <= kHours; ++hour) {
    text += std::to_string(hour) + kTab + std::to_string(hour);
    for (int column = 0; column < kHourColumns; ++column) {
      text += '\t';
      AppendCell(text, cells ? (*cells)[(hour - 1) * kHourColumns + column] : never_set,
                 type == kWeekendWeekday);
    }
    // Monthly hour lines end at their last cell; the others with a TAB.
    if (type != kMonthly) text += '\t';
    text += "\r\n";
  }
}

}  // namespace

int CaseVolumeCount(const Workspace& ws) {
  return static_cast<int>(BuildVolumeList(ReadSurfaceVolumes(ws)).size());
}

void ReadHvacCalFrom(TextReader& reader, int volume_count, bool every_block, ScheduleStore& store) {
  ScheduleStore fresh;
  fresh.VolumeCount = volume_count;
  std::string settings = reader.ReadLine();
  fresh.UseInternalLoadFile = Within(reader, TabField(settings, 0), 0, 1, kBadFlag) == 1;
  fresh.HasHeatExchanger = Within(reader, TabField(settings, 1), 0, 1, kBadFlag) == 1;
  fresh.HeatExchangerEfficiency = TabField(settings, 2);
  fresh.HasBypass = Within(reader, TabField(settings, 3), 0, 1, kBadFlag) == 1;
  fresh.InternalLoadFile = TabField(reader.ReadLine(), 0);
  std::string counts = reader.ReadLine();
  fresh.ScheduleCount = std::max(0, Within(reader, TabField(counts, 0), -32768, kMaxSchedules));
  // The schedule shown is one of those in use; with none in use, none.
  if (fresh.ScheduleCount > 0) {
    fresh.CurrentSchedule = Within(reader, TabField(counts, 1), 0, fresh.ScheduleCount, kBadFlag);
  }
  if (fresh.ScheduleCount > 0 || every_block) {
    const int pairs = PairCount(std::min(volume_count, kMaxVolumes));
    for (int schedule = 1; schedule <= kMaxSchedules; ++schedule) {
      fresh.ScheduleName(schedule) = TrimBlanks(reader.ReadLine());
      for (int volume = 1; volume <= kMaxVolumes; ++volume) {
        ReadVolumeBlock(reader, pairs, fresh, schedule, volume);
      }
    }
  }
  store = std::move(fresh);
}

void ReadHvacCal(const Workspace& ws, int volume_count, ScheduleStore& store) {
  const std::string path = HvacCalPath(ws);
  if (!FileCanOpen(path)) {
    store.ClearSchedules();
    store.VolumeCount = volume_count;
    return;
  }
  TextReader reader(path);
  ReadHvacCalFrom(reader, volume_count, false, store);
}

void ReadHvacCalForRun(const Workspace& ws, int volume_count, ScheduleStore& store) {
  const std::string path = HvacCalPath(ws);
  if (!FileCanOpen(path)) {
    RunDefaults(volume_count, store);
    return;
  }
  TextReader reader(path);
  ReadHvacCalFrom(reader, volume_count, true, store);
}

void DefaultBlankEfficiency(ScheduleStore& store) {
  if (TrimBlanks(store.HeatExchangerEfficiency).empty()) {
    store.HeatExchangerEfficiency = kDefaultEfficiency;
  }
}

std::string HvacCalText(const ScheduleStore& store) {
  std::string text;
  text.reserve(1 << 20);
  // The bypass works only behind a heat exchanger.
  AppendLine(text, std::string(store.UseInternalLoadFile ? "1" : "0") + kTab +
                       (store.HasHeatExchanger ? "1" : "0") + kTab + store.HeatExchangerEfficiency +
                       kTab + (store.HasHeatExchanger && store.HasBypass ? "1" : "0") + kTab);
  AppendLine(text, TrimBlanks(store.InternalLoadFile) + kTab);
  AppendLine(text, NumText(store.ScheduleCount) + kTab + NumText(store.CurrentSchedule) + kTab +
                       NumText(store.VolumeCount));
  for (int schedule = 1; schedule <= kMaxSchedules; ++schedule) {
    std::string name = TrimBlanks(store.ScheduleName(schedule));
    if (name.empty()) name = kUnusedScheduleName + std::to_string(schedule);
    AppendLine(text, name);
    for (int volume = 1; volume <= kMaxVolumes; ++volume) {
      const int type = store.PeriodType(schedule, volume);
      AppendLine(text, NumText(type) + kTab + kReservedField + kTab + kReservedField);
      if (type == kWeekendWeekday) {
        AppendLine(text, std::to_string(kDayKinds));
        AppendPeriod(text, store, schedule, volume, type, kWeekendSlot, kWeekendDates);
        AppendPeriod(text, store, schedule, volume, type, kWeekdaySlot, kWeekdayDates);
      } else if (type == kDaily || type == kMonthly) {
        const int count = store.PeriodCount(schedule, volume, type);
        AppendLine(text, NumText(count) + " ");
        for (int period = 1; period <= count; ++period) {
          int slot = PeriodSlot(type, period);
          AppendPeriod(text, store, schedule, volume, type, slot,
                       TrimBlanks(store.PeriodDates(schedule, volume, slot, 1)) + kTab +
                           TrimBlanks(store.PeriodDates(schedule, volume, slot, 2)));
        }
      }
    }
  }
  return text;
}

bool WriteHvacCal(const Workspace& ws, ScheduleStore& store) {
  DefaultBlankEfficiency(store);
  return WriteAllBytes(HvacCalPath(ws), HvacCalText(store));
}

}  // namespace zelmo
