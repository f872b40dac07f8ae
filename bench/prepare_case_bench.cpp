// The module input of the largest case the limits allow: 100 elements over 8
// volumes (36 pairs with the outdoors), every element with a wall, a window
// and a curtain, 100 walls of 20 layers, and 4 schedules x 8 volumes x 5
// periods. Beside it, the same four files' bytes written plain and written
// safely, which is what the translation itself cannot go below.
#include <benchmark/benchmark.h>

#include <fstream>

#include "bench/largest_store.h"
#include "core/testing/fakes.h"
#include "core/text_file.h"
#include "core/workspace.h"
#include "schedules/hvac_cal_file.h"
#include "simulation/prepare_case.h"

namespace {

using namespace zelmo;

struct LargestCase {
  LargestCase() {
    ws.ProjectPath = dir.path();
    ws.CasePath = dir / "case";
    ws.CaseHeadline = "case - the largest";
    ws.AccuracyLevelTL = "2";
    testing::WriteBytes(dir / "case/THERMAL.INP", "------\r\n");
    std::string elements, fluids, advection, flows;
    for (int e = 1; e <= 100; ++e) {
      // Every volume faces the next one and the outdoors.
      int front = (e - 1) % kMaxVolumes + 1;
      int back = e % 2 ? front % kMaxVolumes + 1 : 0;
      const std::string fields[29] = {"2",
                                      "90",
                                      std::to_string(e % 360),
                                      "1.5",
                                      "2.5",
                                      "3.5",
                                      std::to_string(front),
                                      std::to_string(back),
                                      "5",
                                      "3",
                                      "1",
                                      "1",
                                      "2",
                                      "2",
                                      std::to_string(e),
                                      "70",
                                      "70",
                                      "90",
                                      "90",
                                      std::to_string(e % 40 + 1),
                                      std::to_string(e % 76 + 1),
                                      std::to_string(e),
                                      "60",
                                      "60",
                                      "88",
                                      "88",
                                      std::to_string(e % 40 + 1),
                                      std::to_string(e % 75 + 2),
                                      "1.5"};
      elements += "Element" + std::to_string(e) + "\r\n";
      for (const auto& field : fields) elements += "\t" + field + "\r\n";
    }
    for (int a = 1; a <= kMaxVolumes; ++a) {
      fluids += std::to_string(a) + "\t1\r\n";
      flows += "0\t" + std::to_string(a) + "\t12.5\r\n";
      for (int b = a + 1; b <= kMaxVolumes; ++b) {
        advection += std::to_string(a) + " - " + std::to_string(b) + "\t2.5\t1.75\r\n";
        flows += std::to_string(a) + "\t" + std::to_string(b) + "\t-7.5\r\n";
      }
    }
    testing::WriteBytes(dir / "case/SURFACE.INP", elements);
    testing::WriteBytes(dir / "case/FLUIDS.INP", fluids);
    testing::WriteBytes(dir / "case/ADVCONN.INP", advection);
    testing::WriteBytes(dir / "case/FORCEVEN.INP", flows);
    testing::WriteBytes(dir / "case/GENPARS.INP", "N\r\n20\r\n1.87\r\n15.0\r\n-1\r\n20\r\nY\r\n");
    testing::WriteBytes(dir / "case/SITE.INP",
                        "59.35\t 1\t 2\t\r\n18.07\r\n15\r\n0\r\nC:\\X.cli\r\n2001\r\n1\r\n1\r\n"
                        "2002\r\n12\r\n31\r\n0\r\n0\r\n-1000\r\n");
    std::string months, output = "2\r\n-1 \r\n-1 \r\n";
    for (int m = 1; m <= 12; ++m) {
      months += std::to_string(m) + "\t2\t000000000111111111000000\r\n";
    }
    for (int v = 1; v <= kMaxVolumes; ++v) {
      output += std::to_string(v) + "\t-1\t-1\t-1\t0\t0\t-1\t-1\t\r\n";
    }
    testing::WriteBytes(dir / "case/MISCHED.INP", months);
    testing::WriteBytes(dir / "case/OUTPUT.INP", output);
    std::string materials, walls, curtains;
    for (int m = 1; m <= 200; ++m) {
      materials += std::to_string(m) + "\tMaterial " + std::to_string(m) + "\t0.04\t0.24\t50\r\n";
    }
    for (int w = 1; w <= 100; ++w) {
      walls += std::to_string(w) + "\tWall " + std::to_string(w) + "\r\n";
      for (int layer = 1; layer <= 20; ++layer) {
        walls += "\t" + std::to_string((w * 20 + layer) % 200 + 1) + "\t25\r\n";
      }
    }
    for (int c = 1; c <= 76; ++c) {
      curtains += std::to_string(c) + "\tCurtain " + std::to_string(c) + "\t40\t20\t.05\r\n";
    }
    testing::WriteBytes(dir / "OPAQUE.LIB", materials);
    testing::WriteBytes(dir / "WALLS.LIB", walls);
    testing::WriteBytes(dir / "MOVEINS.LIB", curtains);
    ScheduleStore store;
    FillLargestStore(store);
    WriteHvacCal(ws, store);
  }
  testing::TempDir dir;
  Workspace ws;
};

const char* const kDatFiles[] = {"DAT1.DAT", "DAT2.DAT", "DAT3.DAT", "DAT4.DAT"};

void BM_PrepareLargestCase(benchmark::State& state) {
  LargestCase c;
  for (auto _ : state) PrepareCase(c.ws);
}
BENCHMARK(BM_PrepareLargestCase)->Unit(benchmark::kMillisecond);

// The four files' bytes written through the same whole-file writes
// (a temporary, renamed).
void BM_WriteSameBytesSafely(benchmark::State& state) {
  LargestCase c;
  PrepareCase(c.ws);
  std::vector<std::pair<std::string, std::string>> files;
  for (const char* name : kDatFiles) {
    std::string path = JoinPath(c.ws.CasePath, name);
    files.emplace_back(path, testing::ReadBytes(path));
  }
  for (auto _ : state) {
    for (const auto& [path, bytes] : files)
      benchmark::DoNotOptimize(WriteDerivedBytes(path, bytes));
  }
}
BENCHMARK(BM_WriteSameBytesSafely)->Unit(benchmark::kMillisecond);

// And written raw: opened, written, closed.
void BM_WriteSameBytesRaw(benchmark::State& state) {
  LargestCase c;
  PrepareCase(c.ws);
  std::vector<std::pair<std::string, std::string>> files;
  for (const char* name : kDatFiles) {
    std::string path = JoinPath(c.ws.CasePath, name);
    files.emplace_back(path, testing::ReadBytes(path));
  }
  for (auto _ : state) {
    for (const auto& [path, bytes] : files) {
      std::ofstream out(path, std::ios::binary | std::ios::trunc);
      out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    }
  }
}
BENCHMARK(BM_WriteSameBytesRaw)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
