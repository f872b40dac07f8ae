#include "schedules/schedule_store.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

namespace zelmo {

namespace {

constexpr int kPairsOfStore = kMaxSchedules * kMaxVolumes;
constexpr size_t kCellsOfPeriod = static_cast<size_t>(kHours) * kHourColumns;
const std::string kNeverSet = " ";

}  // namespace

int PeriodSlot(int type, int period) {
  if (type == kWeekendWeekday) return kWeekendSlot - 1 + period;
  if (type == kDaily) return period;
  return kWeekdaySlot + period;
}

int PairCount(int volume_count) { return volume_count * (volume_count - 1) / 2; }

int PairColumn(int a, int b, int volume_count) {
  int number = 0;
  for (int first = 1; first < a; ++first) number += volume_count - first;
  return kLoadColumns + number + (b - a);
}

ScheduleStore::ScheduleStore()
    : types_(kPairsOfStore),
      counts_(kPairsOfStore * 3),
      dates_(kPairsOfStore * kPeriodSlots * 2),
      tables_(kPairsOfStore * kPeriodSlots) {
  names_.fill(" ");
}

void ScheduleStore::ClearSchedules() {
  names_.fill(" ");
  std::fill(types_.begin(), types_.end(), 0);
  std::fill(counts_.begin(), counts_.end(), 0);
  for (auto& date : dates_) date.clear();
  for (auto& table : tables_) table.made = false;
  ScheduleCount = 0;
  CurrentSchedule = 0;
}

void ScheduleStore::CopyVolume(int from_schedule, int from_volume, int to_schedule, int to_volume,
                               int first_column, int last_column) {
  if (from_schedule == to_schedule && from_volume == to_volume) return;
  PeriodType(to_schedule, to_volume) = PeriodType(from_schedule, from_volume);
  for (int type = kWeekendWeekday; type <= kMonthly; ++type) {
    PeriodCount(to_schedule, to_volume, type) = PeriodCount(from_schedule, from_volume, type);
  }
  for (int slot = 1; slot <= kPeriodSlots; ++slot) {
    for (int end = 1; end <= 2; ++end) {
      PeriodDates(to_schedule, to_volume, slot, end) =
          PeriodDates(from_schedule, from_volume, slot, end);
    }
    const Table& from = tables_[Slot(from_schedule, from_volume, slot)];
    Table& to = tables_[Slot(to_schedule, to_volume, slot)];
    if (first_column == 1 && last_column == kHourColumns) {
      to.made = from.made;
      if (from.made) to.cells = from.cells;
      continue;
    }
    if (!from.made && !to.made) continue;
    for (int hour = 1; hour <= kHours; ++hour) {
      for (int column = first_column; column <= last_column; ++column) {
        HourCell(to_schedule, to_volume, slot, hour, column) =
            std::as_const(*this).HourCell(from_schedule, from_volume, slot, hour, column);
      }
    }
  }
}

void ScheduleStore::CopyPeriod(int schedule, int volume, int from_slot, int to_slot) {
  for (int end = 1; end <= 2; ++end) {
    PeriodDates(schedule, volume, to_slot, end) = PeriodDates(schedule, volume, from_slot, end);
  }
  const Table& from = tables_[Slot(schedule, volume, from_slot)];
  Table& to = tables_[Slot(schedule, volume, to_slot)];
  to.made = from.made;
  if (from.made) to.cells = from.cells;
}

void ScheduleStore::ClearPeriod(int schedule, int volume, int slot) {
  PeriodDates(schedule, volume, slot, 1).clear();
  PeriodDates(schedule, volume, slot, 2).clear();
  tables_[Slot(schedule, volume, slot)].made = false;
}

void ScheduleStore::ClearSchedule(int schedule) {
  ScheduleName(schedule) = " ";
  for (int volume = 1; volume <= kMaxVolumes; ++volume) {
    PeriodType(schedule, volume) = 0;
    for (int type = kWeekendWeekday; type <= kMonthly; ++type) {
      PeriodCount(schedule, volume, type) = 0;
    }
    for (int slot = 1; slot <= kPeriodSlots; ++slot) ClearPeriod(schedule, volume, slot);
  }
}

int ScheduleStore::Check(int index, int high, int low) {
  // The tables are the design's limits: an index outside them is a fault of
  // the program, never of a file, whose readers refuse such numbers first.
  if (index < low || index > high) throw std::out_of_range("Subscript out of range");
  return index;
}

int ScheduleStore::Pair(int schedule, int volume) {
  return (Check(schedule, kMaxSchedules) - 1) * kMaxVolumes + Check(volume, kMaxVolumes) - 1;
}

int ScheduleStore::Slot(int schedule, int volume, int slot) {
  return Pair(schedule, volume) * kPeriodSlots + Check(slot, kPeriodSlots) - 1;
}

size_t ScheduleStore::CellIndex(int hour, int column) {
  return static_cast<size_t>(Check(hour, kHours) - 1) * kHourColumns +
         static_cast<size_t>(Check(column, kHourColumns) - 1);
}

std::string& ScheduleStore::HourCell(int schedule, int volume, int slot, int hour, int column) {
  size_t index = CellIndex(hour, column);
  return PeriodCells(schedule, volume, slot)[index];
}

std::vector<std::string>& ScheduleStore::PeriodCells(int schedule, int volume, int slot) {
  Table& table = tables_[Slot(schedule, volume, slot)];
  if (!table.made) {
    table.cells.resize(kCellsOfPeriod);
    for (auto& cell : table.cells) cell.assign(kNeverSet);
    table.made = true;
  }
  return table.cells;
}

std::vector<std::string>& ScheduleStore::PeriodCellsToFill(int schedule, int volume, int slot) {
  Table& table = tables_[Slot(schedule, volume, slot)];
  table.cells.resize(kCellsOfPeriod);
  table.made = true;
  return table.cells;
}

const std::vector<std::string>* ScheduleStore::PeriodCells(int schedule, int volume,
                                                           int slot) const {
  const Table& table = tables_[Slot(schedule, volume, slot)];
  return table.made ? &table.cells : nullptr;
}

const std::string& ScheduleStore::HourCell(int schedule, int volume, int slot, int hour,
                                           int column) const {
  size_t index = CellIndex(hour, column);
  const Table& table = tables_[Slot(schedule, volume, slot)];
  return table.made ? table.cells[index] : kNeverSet;
}

}  // namespace zelmo
