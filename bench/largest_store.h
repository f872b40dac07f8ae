// The largest schedule store the limits allow: 4 schedules x 8 volumes x 5
// periods, Daily and Monthly volumes in turn, every hour cell set.
#pragma once

#include <string>

#include "schedules/schedule_store.h"

namespace zelmo {

inline void FillLargestStore(ScheduleStore& store) {
  store.VolumeCount = kMaxVolumes;
  store.ScheduleCount = kMaxSchedules;
  store.CurrentSchedule = 1;
  const char* loads[] = {"2000", "21", "3000", "26", "450", "12.5", "12.5", "20"};
  for (int s = 1; s <= kMaxSchedules; ++s) {
    store.ScheduleName(s) = "Schedule" + std::to_string(s);
    for (int v = 1; v <= kMaxVolumes; ++v) {
      int type = v % 2 ? kDaily : kMonthly;
      store.PeriodType(s, v) = static_cast<int16_t>(type);
      store.PeriodCount(s, v, type) = kMaxPeriods;
      for (int p = 1; p <= kMaxPeriods; ++p) {
        int slot = PeriodSlot(type, p);
        store.PeriodDates(s, v, slot, 1) = type == kDaily ? "1/" + std::to_string(p) : "1";
        store.PeriodDates(s, v, slot, 2) = type == kDaily ? "28/" + std::to_string(p) : "2";
        for (int h = 1; h <= kHours; ++h) {
          for (int c = 1; c <= kHourColumns; ++c) {
            store.HourCell(s, v, slot, h, c) = c <= kLoadColumns ? loads[c - 1] : "100";
          }
        }
      }
    }
  }
}

}  // namespace zelmo
