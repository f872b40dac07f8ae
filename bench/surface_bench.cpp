// The building elements of the largest case (100 elements): reading the file,
// opening the screen, moving from element to element (each move checks the
// element left) and writing the file must all be immediate.
#include <benchmark/benchmark.h>

#include "building/surface_file.h"
#include "building/surface_screen.h"
#include "building/surface_test_case.h"

namespace {

using zelmo::testing::OuterWall;
using zelmo::testing::SurfaceCase;

void HundredElements(SurfaceCase& c) {
  std::vector<std::pair<std::string, std::vector<std::string>>> elements;
  for (int i = 1; i <= zelmo::kMaxElements; ++i) {
    auto fields = OuterWall();
    fields[7] = std::to_string(1 + i % 8);  // the back side on Volume 1 to 8
    elements.push_back({"Element" + std::to_string(i), fields});
  }
  c.Elements(elements);
}

void BM_ReadSurfaces(benchmark::State& state) {
  SurfaceCase c;
  HundredElements(c);
  zelmo::SurfaceTable table;
  for (auto _ : state) {
    zelmo::ReadSurfaces(c.fake.ws(), table);
    benchmark::DoNotOptimize(table.SurfCount);
  }
}
BENCHMARK(BM_ReadSurfaces)->Unit(benchmark::kMicrosecond);

void BM_OpenSurfaceScreen(benchmark::State& state) {
  SurfaceCase c;
  HundredElements(c);
  for (auto _ : state) {
    zelmo::Surface screen(c.fake.session);
    screen.Load();
    benchmark::DoNotOptimize(screen.SurfList.items.size());
  }
}
BENCHMARK(BM_OpenSurfaceScreen)->Unit(benchmark::kMicrosecond);

void BM_MoveToNextElement(benchmark::State& state) {
  SurfaceCase c;
  HundredElements(c);
  zelmo::Surface screen(c.fake.session);
  screen.Load();
  int row = 0;
  for (auto _ : state) {
    row = (row + 1) % zelmo::kMaxElements;
    screen.SurfList.list_index = row;
    screen.SurfListClick();
    if (screen.CurrentElement != row + 1) state.SkipWithError("an element was refused");
  }
}
BENCHMARK(BM_MoveToNextElement)->Unit(benchmark::kMicrosecond);

void BM_CheckSurface(benchmark::State& state) {
  SurfaceCase c;
  HundredElements(c);
  zelmo::Surface screen(c.fake.session);
  screen.Load();
  for (auto _ : state) benchmark::DoNotOptimize(screen.CheckSurface());
}
BENCHMARK(BM_CheckSurface)->Unit(benchmark::kMicrosecond);

void BM_WriteSurfaces(benchmark::State& state) {
  SurfaceCase c;
  HundredElements(c);
  zelmo::SurfaceTable table;
  zelmo::ReadSurfaces(c.fake.ws(), table);
  for (auto _ : state) benchmark::DoNotOptimize(zelmo::WriteSurfaces(c.fake.ws(), table));
}
BENCHMARK(BM_WriteSurfaces)->Unit(benchmark::kMicrosecond);

}  // namespace

BENCHMARK_MAIN();
