#include "schedules/hvac_cal_file.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>

#include "core/fields.h"
#include "core/testing/fakes.h"
#include "core/text_file.h"
#include "core/workspace.h"
#include "schedules/hvac_delivery.h"

namespace zelmo {
namespace {

using testing::ReadBytes;
using testing::TempDir;
using testing::WriteBytes;

struct HvacCase {
  HvacCase() { ws.CasePath = dir.path(); }
  std::string Bytes() const { return ReadBytes(dir / kHvacCalFile); }
  void Put(const std::string& bytes) const { WriteBytes(dir / kHvacCalFile, bytes); }
  ScheduleStore Read(int volumes) const {
    ScheduleStore store;
    ReadHvacCal(ws, volumes, store);
    return store;
  }
  TempDir dir;
  Workspace ws;
};

TEST(HvacCalFile, EachPeriodTypeWritesItsOwnLinesAndReadsBackToTheSameBytes) {
  HvacCase c;
  ScheduleStore store;
  store.VolumeCount = 3;
  store.ScheduleCount = 1;
  store.CurrentSchedule = 1;
  store.ScheduleName(1) = " Office ";
  store.HasBypass = true;
  store.UseInternalLoadFile = true;
  store.InternalLoadFile = " /data/loads.ILD ";
  store.HourCell(1, 1, kWeekdaySlot, 3, 2) = " 21 ";  // Weekend/Weekday keeps blanks
  store.PeriodType(1, 2) = kDaily;
  store.PeriodCount(1, 2, kDaily) = 2;
  store.PeriodDates(1, 2, 1, 1) = " 1/1";
  store.PeriodDates(1, 2, 1, 2) = "31/3 ";
  store.PeriodDates(1, 2, 2, 1) = "1/4";
  store.PeriodDates(1, 2, 2, 2) = "31/12";
  store.HourCell(1, 2, 2, 24, PairColumn(2, 3, 3)) = " 50 ";
  store.PeriodType(1, 3) = kMonthly;
  store.PeriodCount(1, 3, kMonthly) = 1;
  store.PeriodDates(1, 3, 8, 1) = "2";
  store.PeriodDates(1, 3, 8, 2) = "11";
  store.HourCell(1, 3, 8, 1, 1) = "500";
  ASSERT_TRUE(WriteHvacCal(c.ws, store));
  EXPECT_EQ(store.HeatExchangerEfficiency, "85");
  const std::string bytes = c.Bytes();
  auto lines = *ReadAllLines(c.dir / kHvacCalFile);
  std::string never_set;
  for (int i = 0; i < kHourColumns; ++i) never_set += " \t";
  // Weekend/Weekday: a bare count, cells as held; Daily: the count between
  // blanks, cells trimmed; Monthly: the hour lines end at their last cell.
  const std::pair<int, std::string> expected[] = {
      {0, "1\t1\t85\t1\t"},
      {1, "/data/loads.ILD\t"},
      {2, " 1\t 1\t 3"},
      {5, "2"},
      {8, "1\t1\t" + never_set},
      {32, "1/7\t31/12"},
      {36, "3\t3\t \t 21 \t" + never_set.substr(4)},
      {59, " 2 "},
      {62, "1\t1\t" + std::string(kHourColumns, '\t')},
      {111, "24\t24" + std::string(11, '\t') + "50" + std::string(26, '\t')},
      {113, " 1 "},
      {116, "1\t1\t500" + std::string(kHourColumns - 1, '\t')},
      {410, "Default_schedule-2"},
  };
  for (const auto& [index, line] : expected) EXPECT_EQ(lines[index], line) << index;

  ScheduleStore again = c.Read(3);
  EXPECT_EQ(again.ScheduleCount, 1);
  EXPECT_TRUE(again.HasBypass && again.UseInternalLoadFile);
  EXPECT_EQ(again.HourCell(1, 1, kWeekdaySlot, 3, 1), " ");
  EXPECT_EQ(again.HourCell(1, 2, 1, 3, 1), "");  // a Daily cell comes back empty
  EXPECT_EQ(again.PeriodCount(1, 2, kDaily), 2);
  EXPECT_EQ(again.PeriodDates(1, 2, 1, 1), "1/1");
  ASSERT_TRUE(WriteHvacCal(c.ws, again));
  EXPECT_EQ(c.Bytes(), bytes);
}

TEST(HvacCalFile, FourSchedulesOfEightVolumesRoundTrip) {
  HvacCase c;
  ScheduleStore store;
  store.VolumeCount = 8;
  store.ScheduleCount = 4;
  store.CurrentSchedule = 3;
  for (int schedule = 1; schedule <= kMaxSchedules; ++schedule) {
    store.ScheduleName(schedule) = "S" + std::to_string(schedule);
    for (int volume = 1; volume <= kMaxVolumes; ++volume) {
      int type = (schedule + volume) % 3;
      store.PeriodType(schedule, volume) = static_cast<int16_t>(type);
      int count = type == kWeekendWeekday ? kDayKinds : kMaxPeriods;
      if (type != kWeekendWeekday) store.PeriodCount(schedule, volume, type) = kMaxPeriods;
      for (int period = 1; period <= count; ++period) {
        int slot = PeriodSlot(type, period);
        store.PeriodDates(schedule, volume, slot, 1) = std::to_string(period);
        store.PeriodDates(schedule, volume, slot, 2) = std::to_string(period + 1);
        auto& cells = store.PeriodCells(schedule, volume, slot);
        for (size_t i = 0; i < cells.size(); ++i) cells[i] = std::to_string(slot * 1000 + i);
      }
    }
  }
  ASSERT_TRUE(WriteHvacCal(c.ws, store));
  const std::string bytes = c.Bytes();
  ScheduleStore again = c.Read(8);
  EXPECT_EQ(again.CurrentSchedule, 3);
  EXPECT_EQ(again.HourCell(4, 8, 12, 24, 36), store.HourCell(4, 8, 12, 24, 36));
  EXPECT_EQ(again.HourCell(2, 7, kWeekendSlot, 1, 9), store.HourCell(2, 7, kWeekendSlot, 1, 9));
  ASSERT_TRUE(WriteHvacCal(c.ws, again));
  EXPECT_EQ(c.Bytes(), bytes);

  // With three volumes left in the case only the pairs of three are read:
  // column 9 onwards take the first three fields, the rest stay unset.
  ScheduleStore fewer = c.Read(3);
  EXPECT_EQ(fewer.VolumeCount, 3);
  EXPECT_EQ(fewer.HourCell(1, 1, 1, 1, 11), store.HourCell(1, 1, 1, 1, 11));
  EXPECT_EQ(fewer.HourCell(1, 1, 1, 1, 12), " ");
  EXPECT_EQ(fewer.PeriodType(1, 8), store.PeriodType(1, 8));  // volume blocks stay
}

TEST(HvacCalFile, AMissingFileIsNoScheduleAndARunAssumesOneCalendar) {
  HvacCase c;
  ScheduleStore store;
  store.ScheduleCount = 2;
  ReadHvacCal(c.ws, 2, store);
  EXPECT_EQ(std::make_pair(store.ScheduleCount, store.CurrentSchedule), std::make_pair(0, 0));
  EXPECT_EQ(store.ScheduleName(1), " ");

  ReadHvacCalForRun(c.ws, 2, store);
  EXPECT_EQ(store.ScheduleName(1), "Default_Schedule-1 ");
  EXPECT_EQ(store.HeatExchangerEfficiency, "85");
  EXPECT_FALSE(store.HasHeatExchanger);
  EXPECT_EQ(store.PeriodType(1, 2), kWeekendWeekday);
  EXPECT_EQ(store.PeriodDates(1, 2, kWeekdaySlot, 2), "31/12");
  EXPECT_EQ(store.PeriodDates(1, 3, kWeekdaySlot, 2), "");

  // No heat exchanger: the bypass is saved off, the efficiency as it stands.
  ScheduleStore off;
  off.HasHeatExchanger = false;
  off.HasBypass = true;
  off.HeatExchangerEfficiency = "70";
  EXPECT_EQ(HvacCalText(off).substr(0, 14), "0\t0\t70\t0\t\r\n\t\r\n");
}

// A store read again for another case: a period of that case with fewer
// than 24 hour lines has the hours after them blank, not the first case's.
// And a file with no schedule shown still delivers its first schedule.
TEST(HvacCalFile, AShortPeriodReadAfterAnotherCaseAndAFileShowingNoSchedule) {
  HvacCase c;
  ScheduleStore first;
  first.VolumeCount = 1;
  first.ScheduleCount = 2;
  first.CurrentSchedule = 0;
  first.ScheduleName(1) = "First";
  first.ScheduleName(2) = "Second";
  first.PeriodType(1, 1) = kDaily;
  first.PeriodCount(1, 1, kDaily) = 1;
  first.PeriodDates(1, 1, 1, 1) = "1/1";
  first.PeriodDates(1, 1, 1, 2) = "31/12";
  for (int hour = 1; hour <= 24; ++hour) first.HourCell(1, 1, 1, hour, 1) = "7";
  ASSERT_TRUE(WriteHvacCal(c.ws, first));
  ScheduleStore store = c.Read(1);
  ASSERT_EQ(store.HourCell(1, 1, 1, 24, 1), "7");

  // The same file with the period's hours cut to 20.
  auto lines = *ReadAllLines(c.dir / kHvacCalFile);
  const auto dates = std::find(lines.begin(), lines.end(), "1/1\t31/12");
  ASSERT_NE(dates, lines.end());
  ASSERT_EQ(TrimBlanks(*(dates + 1)), "24");
  *(dates + 1) = "20";
  lines.erase(dates + 22, dates + 26);
  std::string bytes;
  for (const auto& line : lines) bytes += line + "\r\n";
  c.Put(bytes);
  ReadHvacCal(c.ws, 1, store);
  for (int hour = 19; hour <= 24; ++hour) {
    EXPECT_EQ(store.HourCell(1, 1, 1, hour, 1), hour <= 20 ? "7" : " ") << hour;
  }

  ScheduleStore run;
  ReadHvacCalForRun(c.ws, 1, run);
  EXPECT_EQ(run.CurrentSchedule, 0);
  const auto delivered = HvacDeliveryLines(run, 2024);
  EXPECT_EQ(delivered[2], "First");
  EXPECT_EQ(delivered[3], " 1\t1E+20\t1E+20");  // its Daily period, not the default's week
}

TEST(HvacCalFile, TheExampleCaseReadsWithItsTwoRoomsAndWritesTheSameBytes) {
  const char* source = std::getenv("ZELMO_SOURCE_DIR");
  ASSERT_NE(source, nullptr);
  Workspace ws;
  ws.CasePath = std::string(source) + "/system/tree/ZELMOPROJ/Example/Case1";
  ScheduleStore store;
  ReadHvacCal(ws, CaseVolumeCount(ws), store);
  EXPECT_EQ(store.VolumeCount, 2);
  EXPECT_EQ(store.ScheduleCount, 2);
  EXPECT_EQ(store.PeriodType(1, 2), kWeekendWeekday);
  EXPECT_EQ(store.PeriodCount(2, 2, kDaily), 2);
  EXPECT_EQ(HvacCalText(store), ReadBytes(JoinPath(ws.CasePath, kHvacCalFile)));
}

TEST(HvacCalFile, ADamagedFileNamesItsLineAndLeavesTheStore) {
  HvacCase c;
  ScheduleStore written;
  written.VolumeCount = 2;
  written.ScheduleCount = 1;
  written.CurrentSchedule = 1;
  written.PeriodType(1, 1) = kDaily;
  written.PeriodCount(1, 1, kDaily) = 1;
  ASSERT_TRUE(WriteHvacCal(c.ws, written));
  auto good = *ReadAllLines(c.dir / kHvacCalFile);
  struct Case {
    int line;  // from 1; 0 cuts the file after the last line but one
    std::string text;
    int fault_line;
    std::string what;
  } cases[] = {
      {1, "1\t2\t85\t0\t", 1, "Invalid property value"},
      {3, " 5\t 1\t 2", 3, "Subscript out of range"},
      {3, " 2\t 3\t 2", 3, "Invalid property value"},
      {5, " 3\t1E+20\t1E+20", 5, "Subscript out of range"},
      {6, " 6 ", 6, "Subscript out of range"},
      {8, "25", 8, "Subscript out of range"},
      {0, "", static_cast<int>(good.size()), "Input past end of file"},
  };
  for (const auto& k : cases) {
    auto lines = good;
    if (k.line == 0) {
      lines.pop_back();
    } else {
      lines[k.line - 1] = k.text;
    }
    std::string bytes;
    for (const auto& line : lines) bytes += line + "\r\n";
    c.Put(bytes);
    ScheduleStore store;
    store.ScheduleName(1) = "kept";
    try {
      ReadHvacCal(c.ws, 2, store);
      ADD_FAILURE() << k.text;
    } catch (const FileError& e) {
      EXPECT_EQ(e.what(), k.what) << k.text;
      EXPECT_EQ(e.line(), k.fault_line) << k.text;
      EXPECT_EQ(e.path(), c.dir / kHvacCalFile);
    }
    EXPECT_EQ(store.ScheduleName(1), "kept");
  }
}

}  // namespace
}  // namespace zelmo
