// The schedules of the largest case the limits allow (4 schedules x 8 volumes
// x 5 periods, every cell set): reading HVAC_Cal.Inp, checking the hourly
// tables, writing the file, and the schedules screen opened, moved from
// volume to volume and left with OK, must all be immediate.
#include <benchmark/benchmark.h>

#include "bench/largest_store.h"
#include "core/controls.h"
#include "core/testing/fakes.h"
#include "core/workspace.h"
#include "schedules/calendar_rules.h"
#include "schedules/hvac_cal_file.h"
#include "schedules/hvac_screen.h"

namespace {

using namespace zelmo;

struct LargestCase {
  LargestCase() {
    ws.CasePath = dir.path();
    fake.ws().CasePath = dir.path();
    testing::WriteBytes(dir / "THERMAL.INP", "------\r\n");
    // Eight rooms in a row, each with a door to the next.
    std::string elements;
    for (int v = 1; v < kMaxVolumes; ++v) {
      elements += "Door" + std::to_string(v) + "\r\n";
      for (int field = 1; field <= 29; ++field) {
        std::string text = field == 1   ? "2"
                           : field == 7 ? std::to_string(v)
                           : field == 8 ? std::to_string(v + 1)
                                        : "";
        elements += "\t" + text + "\r\n";
      }
    }
    testing::WriteBytes(dir / "SURFACE.INP", elements);
    FillLargestStore(store);
    WriteHvacCal(ws, store);
  }
  testing::TempDir dir;
  testing::FakeSession fake;
  Workspace ws;
  ScheduleStore store;
};

// Every period of the store through the loads grid and its check, as the
// screen loads and checks them one after the other.
bool CheckEveryPeriod(const ScheduleStore& store, Grid& grid) {
  bool ok = true;
  for (int s = 1; s <= kMaxSchedules; ++s) {
    for (int v = 1; v <= kMaxVolumes; ++v) {
      int type = store.PeriodType(s, v);
      for (int p = 1; p <= store.PeriodCount(s, v, type); ++p) {
        const std::vector<std::string>* cells = store.PeriodCells(s, v, PeriodSlot(type, p));
        if (!cells) return false;
        for (int h = 1; h <= kHours; ++h) {
          for (int c = 1; c <= kLoadColumns; ++c) {
            grid.Cell(h, c) = (*cells)[(h - 1) * kHourColumns + c - 1];
          }
        }
        ok = !CheckCells(grid, CellMode::kLoads) && ok;
      }
    }
  }
  return ok;
}

void BM_ReadCheckWriteLargestStore(benchmark::State& state) {
  LargestCase c;
  Form form("HVAC");
  Grid grid(&form, "HVACGRID1");
  grid.SetCols(kLoadColumns + 1);
  grid.SetRows(kHours + 1);
  ScheduleStore store;
  for (auto _ : state) {
    ReadHvacCal(c.ws, kMaxVolumes, store);
    if (!CheckEveryPeriod(store, grid)) state.SkipWithError("a cell was refused");
    if (!WriteHvacCal(c.ws, store)) state.SkipWithError("not written");
  }
}
BENCHMARK(BM_ReadCheckWriteLargestStore)->Unit(benchmark::kMillisecond);

void BM_ReadLargestStore(benchmark::State& state) {
  LargestCase c;
  ScheduleStore store;
  for (auto _ : state) ReadHvacCal(c.ws, kMaxVolumes, store);
}
BENCHMARK(BM_ReadLargestStore)->Unit(benchmark::kMillisecond);

void BM_CheckLargestStore(benchmark::State& state) {
  LargestCase c;
  Form form("HVAC");
  Grid grid(&form, "HVACGRID1");
  grid.SetCols(kLoadColumns + 1);
  grid.SetRows(kHours + 1);
  for (auto _ : state) benchmark::DoNotOptimize(CheckEveryPeriod(c.store, grid));
}
BENCHMARK(BM_CheckLargestStore)->Unit(benchmark::kMillisecond);

void BM_WriteLargestStore(benchmark::State& state) {
  LargestCase c;
  for (auto _ : state) benchmark::DoNotOptimize(WriteHvacCal(c.ws, c.store));
}
BENCHMARK(BM_WriteLargestStore)->Unit(benchmark::kMillisecond);

// The screen as the user meets it: opened on the largest store and left
// with OK, which checks the table shown and writes the whole file.
void BM_OpenAndOkLargestStore(benchmark::State& state) {
  LargestCase c;
  for (auto _ : state) {
    HVAC screen(c.fake.session);
    screen.Load();
    screen.Ok();
    if (!screen.unloaded) state.SkipWithError("OK was refused");
  }
}
BENCHMARK(BM_OpenAndOkLargestStore)->Unit(benchmark::kMillisecond);

// From volume to volume: the table left is checked and stored, the next shown.
void BM_SwitchVolume(benchmark::State& state) {
  LargestCase c;
  HVAC screen(c.fake.session);
  screen.Load();
  int volume = 0;
  for (auto _ : state) {
    volume = (volume + 1) % kMaxVolumes;
    screen.Combo3.list_index = volume;
    screen.Combo3Click();
    if (screen.SelVolume != volume + 1) state.SkipWithError("the move was refused");
  }
}
BENCHMARK(BM_SwitchVolume)->Unit(benchmark::kMicrosecond);

}  // namespace

BENCHMARK_MAIN();
