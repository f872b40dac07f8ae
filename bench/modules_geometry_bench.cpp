// PLOR and NEB on the largest case the limits allow: 8 volumes and 100
// elements. Eight rooms of 5 by 4 by 3 m in a row, the walls between them
// shared, each with a window of 3 by 1.5 m in its south wall under an
// overhang and between two fins, and 35 free-standing screens to the south
// that shade the facade: 108 surfaces, 60 of them shaded. Each module as a
// user waits for it, reading its input and writing its results in a case
// folder; each must take well under 0.5 s (a Release build).
#include <benchmark/benchmark.h>

#include "core/testing/fakes.h"
#include "modules/dat1_test_buildings.h"
#include "modules/neb.h"
#include "modules/plor.h"

namespace {

using namespace zelmo;
using modules::test_buildings::ElementSpec;

std::vector<ElementSpec> LargestBuilding() {
  std::vector<ElementSpec> e;
  const double w = 5, d = 4, h = 3;
  for (int v = 1; v <= 8; ++v) {
    const double x = (v - 1) * w;
    e.push_back({"South", 3, 90, 180, x, 0, 0, 0, v, {w, h, 0.8, 1, 2.3, 4}});
    e.push_back({"North", 1, 90, 0, x + w, d, 0, 0, v, {w, h}});
    e.push_back({"Roof", 1, 0, 0, x, 0, h, 0, v, {w, d}});
    e.push_back({"Floor", 1, 180, 0, x, d, 0, -1, v, {w, d}});
    // The wall to the next room faces east into it.
    if (v < 8) e.push_back({"Inner", 1, 90, 90, x + w, 0, 0, v + 1, v, {d, h}});
    e.push_back({"Overhang", 1, 0, 0, x + 0.5, -0.8, 2.5, 0, 0, {4, 0.8}, 0});
    e.push_back({"Fin W", 1, 90, 90, x + 0.7, -0.6, 0.5, 0, 0, {0.6, 2}, 0});
    e.push_back({"Fin E", 1, 90, 270, x + 4.3, 0, 0.5, 0, 0, {0.6, 2}, 0});
  }
  e.push_back({"East end", 1, 90, 90, 8 * w, 0, 0, 0, 8, {d, h}});
  e.push_back({"West end", 1, 90, 270, 0, d, 0, 0, 1, {d, h}});
  for (int k = 0; e.size() < 100; ++k) {
    e.push_back({"Tree", 1, 90, 180, -2 + 1.2 * k, -6.0 - (k % 3), 0, 0, 0, {0.8, 4}, 0});
  }
  return e;
}

struct LargestCase {
  LargestCase() {
    testing::WriteBytes(dir / "DAT1.DAT", modules::test_buildings::Dat1Text(8, LargestBuilding()));
  }
  testing::TempDir dir;
  std::string folder = dir.path() + "/";
};

void BM_Plor(benchmark::State& state) {
  LargestCase c;
  for (auto _ : state) modules::RunPlor(c.folder);
  const modules::PlorResult plor = modules::ReadPlorResult(c.folder, 1);
  state.counters["surfaces"] = static_cast<double>(plor.surfaces.size());
}

void BM_Neb(benchmark::State& state) {
  LargestCase c;
  modules::RunPlor(c.folder);
  for (auto _ : state) modules::RunNeb(c.folder);
  const modules::NebResult neb = modules::ReadNebResult(c.folder, 1);
  double shaded = 0;
  for (const auto& s : neb.surfaces) shaded += s.open ? 0 : 1;
  state.counters["shaded"] = shaded;
}

BENCHMARK(BM_Plor)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Neb)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
