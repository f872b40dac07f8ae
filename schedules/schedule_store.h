// ScheduleStore: the operating schedules of a case as the schedules screen
// edits them and HVAC_Cal.Inp keeps them. Four schedules by eight volumes by
// twelve period slots by 24 hours by 36 columns of text cells, dimensioned
// once and never grown; every index runs from 1. Every value stays text, as
// typed, until a consumer needs the number.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "building/surface_file.h"

namespace zelmo {

inline constexpr int kMaxSchedules = 4;
inline constexpr int kPeriodSlots = 12;
// Daily and Monthly periods each; Weekend/Weekday always has its two.
inline constexpr int kMaxPeriods = 5;
inline constexpr int kDayKinds = 2;
inline constexpr int kHours = 24;
inline constexpr int kHourColumns = 36;
// Columns 1 to 8 are the loads; 9 to 36 the openings between pairs of volumes.
inline constexpr int kLoadColumns = 8;
inline constexpr int kMaxPairs = kHourColumns - kLoadColumns;

// PeriodType: the kind of calendar of a (schedule, volume).
inline constexpr int kWeekendWeekday = 0;
inline constexpr int kDaily = 1;
inline constexpr int kMonthly = 2;

// The two fixed slots of Weekend/Weekday, and their stamped dates.
inline constexpr int kWeekendSlot = 6;
inline constexpr int kWeekdaySlot = 7;

// The slot of period `period` (from 1) of a calendar type: Daily periods in
// 1 to 5, Weekend 6 and Weekday 7 (period 1 and 2 of type 0), Monthly 8 to 12.
int PeriodSlot(int type, int period);

// Pairs (a, b) of volumes with a < b are numbered a = 1 .. count - 1, and
// inside it b = a + 1 .. count; the n-th pair's openings are column 8 + n.
int PairCount(int volume_count);
int PairColumn(int a, int b, int volume_count);

class ScheduleStore {
 public:
  // A store in the state of ClearSchedules.
  ScheduleStore();

  // Every name one blank, counts and types 0, dates empty, every hour cell
  // one blank, ScheduleCount and CurrentSchedule 0. The settings of the heat
  // exchanger and the internal-load file are left as they are.
  void ClearSchedules();

  std::string& ScheduleName(int schedule) { return names_[Check(schedule, kMaxSchedules)]; }
  const std::string& ScheduleName(int schedule) const {
    return names_[Check(schedule, kMaxSchedules)];
  }
  int16_t& PeriodType(int schedule, int volume) { return types_[Pair(schedule, volume)]; }
  int16_t PeriodType(int schedule, int volume) const { return types_[Pair(schedule, volume)]; }
  // The number of periods of type 1 or 2; the entry of type 0 stays 0.
  int16_t& PeriodCount(int schedule, int volume, int type) {
    return counts_[Pair(schedule, volume) * 3 + Check(type, 2, 0)];
  }
  int16_t PeriodCount(int schedule, int volume, int type) const {
    return counts_[Pair(schedule, volume) * 3 + Check(type, 2, 0)];
  }
  // Start (end 1) and end (end 2) of the period in a slot.
  std::string& PeriodDates(int schedule, int volume, int slot, int end) {
    return dates_[Slot(schedule, volume, slot) * 2 + Check(end, 2) - 1];
  }
  const std::string& PeriodDates(int schedule, int volume, int slot, int end) const {
    return dates_[Slot(schedule, volume, slot) * 2 + Check(end, 2) - 1];
  }
  std::string& HourCell(int schedule, int volume, int slot, int hour, int column);
  const std::string& HourCell(int schedule, int volume, int slot, int hour, int column) const;
  // The 24 x 36 cells of a period hour by hour, column 1 first, for walks
  // over whole periods; nullptr from the const form when no cell was set.
  std::vector<std::string>& PeriodCells(int schedule, int volume, int slot);
  const std::vector<std::string>* PeriodCells(int schedule, int volume, int slot) const;
  // The same for a caller that writes every cell itself, as a reader does:
  // the old texts are left in place to be overwritten.
  std::vector<std::string>& PeriodCellsToFill(int schedule, int volume, int slot);

  // The type, the counts and the dates of every slot of a volume, and the
  // cells of columns first to last of every slot, into another volume or
  // schedule.
  void CopyVolume(int from_schedule, int from_volume, int to_schedule, int to_volume,
                  int first_column = 1, int last_column = kHourColumns);
  // The dates and cells of a period into another slot of the same volume.
  void CopyPeriod(int schedule, int volume, int from_slot, int to_slot);
  // Dates empty and every cell one blank.
  void ClearPeriod(int schedule, int volume, int slot);
  // A blank name, and every volume as ClearSchedules leaves it.
  void ClearSchedule(int schedule);

  // How many schedules are in use, and the one shown when the screen was
  // last left (0 when there is none).
  int ScheduleCount = 0;
  int CurrentSchedule = 0;
  // The volumes of the case, counted from its building elements.
  int VolumeCount = 0;
  bool HasHeatExchanger = true;  // Option2: "Yes"
  std::string HeatExchangerEfficiency;
  bool HasBypass = false;  // Option3: "No"
  bool UseInternalLoadFile = false;
  std::string InternalLoadFile;

 private:
  static int Check(int index, int high, int low = 1);
  static int Pair(int schedule, int volume);
  static int Slot(int schedule, int volume, int slot);
  static size_t CellIndex(int hour, int column);

  std::array<std::string, kMaxSchedules + 1> names_;
  std::vector<int16_t> types_;
  std::vector<int16_t> counts_;
  std::vector<std::string> dates_;
  // The 24 x 36 cells of each (schedule, volume, slot), made on the first
  // change: a table not made holds one blank in every cell, so clearing and
  // reading a file touch only the periods in use, and a table once made
  // keeps its texts' room for the next file.
  struct Table {
    bool made = false;
    std::vector<std::string> cells;
  };
  std::vector<Table> tables_;
};

}  // namespace zelmo
