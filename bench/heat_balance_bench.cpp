// The heat balance per simulated hour: a one-volume box the size of the
// validation cases (8 x 6 x 2.7 m, light walls, 12 m2 of double glazing)
// and the largest case the limits allow (8 volumes in a row, 100 surfaces),
// through a year of hours of a synthetic climate.
#include <benchmark/benchmark.h>

#include <cmath>

#include "modules/conduction.h"
#include "modules/heat_balance.h"

namespace {

using namespace zelmo::modules;

HbSurface Wall(int volume, double area, double tilt, const Construction& c) {
  HbSurface s;
  s.volume = volume;
  s.area = area;
  s.tilt = tilt;
  s.capacity = c.capacity;
  s.conductance = c.conductance;
  s.sky_view = (1 + std::cos(tilt * 3.14159265 / 180)) / 2;
  s.ground_view = 1 - s.sky_view;
  return s;
}

HbSurface Glazing(int volume, double area) {
  HbSurface w;
  w.volume = volume;
  w.area = area;
  w.window = true;
  w.capacity = {5646, 5646};
  w.gaps = {WindowGap{2.08, 0.84, 0.84, 0.003}};
  w.emittance_front = w.emittance_back = 0.84;
  w.back_transmittance = 0.6;
  w.back_pane_absorptance = {0.05, 0.05};
  return w;
}

Construction LightWall() {
  return Discretise({{0.009, 0.14, 530, 900}, {0.066, 0.04, 12, 840}, {0.012, 0.16, 950, 840}});
}

HbModel Row(int volumes) {
  HbModel m;
  const Construction wall = LightWall();
  const Construction roof =
      Discretise({{0.019, 0.14, 530, 900}, {0.1118, 0.04, 12, 840}, {0.010, 0.16, 950, 840}});
  const Construction floor = Discretise({{1.003, 0.04, 0, 0}, {0.025, 0.14, 650, 1200}});
  for (int v = 0; v < volumes; ++v) {
    m.volumes.push_back({129.6, {}});
    const int parts = volumes == 1 ? 1 : 2;
    for (int k = 0; k < parts; ++k) {
      m.surfaces.push_back(Wall(v, 48.0 / parts, 0, roof));
      m.surfaces.push_back(Wall(v, 48.0 / parts, 180, floor));
      m.surfaces.push_back(Glazing(v, 12.0 / parts));
      m.surfaces.push_back(Wall(v, 9.6 / parts, 90, wall));
    }
    for (int k = 0; k < (volumes == 1 ? 1 : 3); ++k) {
      m.surfaces.push_back(Wall(v, 21.6 / (volumes == 1 ? 1 : 3), 90, wall));
    }
    if (v == 0) m.surfaces.push_back(Wall(v, 16.2, 90, wall));
    if (v == volumes - 1) m.surfaces.push_back(Wall(v, 16.2, 90, wall));
    if (v > 0) {
      HbSurface shared = Wall(v, 16.2, 90, wall);
      shared.outside = OutsideKind::kVolume;
      shared.other_volume = v - 1;
      m.surfaces.push_back(shared);
    }
  }
  m.settings.elevation = 1650;
  return m;
}

HbHour Weather(const HbModel& m, int i) {
  HbHour h;
  h.outdoor = 10 + 12 * std::sin(i * 6.2832 / 8760) + 6 * std::sin(i * 0.2618);
  h.sky = h.outdoor - 15;
  h.ground = 10;
  double sun = std::max(0.0, 500 * std::sin((i % 24 - 6) * 0.2618));
  h.surfaces.resize(m.surfaces.size());
  for (size_t s = 0; s < m.surfaces.size(); ++s) {
    h.surfaces[s].absorbed.assign(m.surfaces[s].capacity.size(), 0.0);
    h.surfaces[s].absorbed[0] = 0.3 * sun;
    if (m.surfaces[s].window) {
      h.surfaces[s].transmitted_beam = 0.5 * sun;
      h.surfaces[s].transmitted_diffuse = 0.1 * sun;
    }
  }
  h.volumes.resize(m.volumes.size());
  for (auto& v : h.volumes) {
    v.heating_setpoint = 20;
    v.cooling_setpoint = 27;
    v.internal_load = 200;
    v.leakage = 0.018;
  }
  return h;
}

void RunYear(benchmark::State& state, int volumes) {
  const HbModel m = Row(volumes);
  std::vector<HbHour> year;
  for (int i = 0; i < 8760; ++i) year.push_back(Weather(m, i));
  for (auto _ : state) {
    HeatBalance hb(m);
    double heating = 0;
    for (const auto& h : year) heating += hb.Hour(h).volumes[0].heating;
    benchmark::DoNotOptimize(heating);
  }
  state.counters["surfaces"] = static_cast<double>(m.surfaces.size());
  state.counters["per_simulated_hour"] = benchmark::Counter(
      8760, benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

void BM_OneVolumeYear(benchmark::State& state) { RunYear(state, 1); }
void BM_EightVolumesYear(benchmark::State& state) { RunYear(state, 8); }

BENCHMARK(BM_OneVolumeYear)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_EightVolumesYear)->Unit(benchmark::kMillisecond)->Iterations(1);

}  // namespace

BENCHMARK_MAIN();
