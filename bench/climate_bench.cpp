// The climate a simulation stands on: a year of the hourly climate file
// read (under 20 ms), and the sun and the irradiance on 100 surfaces for
// every hour of a year (under 50 ms).
#include <benchmark/benchmark.h>

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <string>
#include <vector>

#include "modules/climate_file.h"
#include "modules/sky.h"
#include "modules/solar_position.h"

namespace {

using namespace zelmo::modules;

// A year of hours shaped like the Denver year: a daily course of
// temperature and a sun-shaped course of radiation.
ClimateData AYear() {
  ClimateData data;
  data.header = {"Bench", true, "Bench", 39.83, -104.65, -105, 1650, {1995, 1, 1}, {1995, 12, 31}};
  for (int month = 1; month <= 12; ++month) {
    const int days = month == 2 ? 28 : DaysInMonth(month);
    for (int day = 1; day <= days; ++day) {
      for (int hour = 1; hour <= 24; ++hour) {
        const double sun = std::max(0.0, std::sin((hour - 6.5) / 13.0 * M_PI));
        data.hours.push_back({1995,
                              month,
                              day,
                              hour,
                              {10 + 8 * sun, 2.5, 83400, 700 * sun, 800 * sun, 120 * sun, 280,
                               double((hour * 37) % 360), 3.5}});
      }
    }
  }
  return data;
}

void BM_ReadClimateYear(benchmark::State& state) {
  const std::string path =
      (std::filesystem::temp_directory_path() / "zelmo_bench_year.CLI").string();
  WriteClimateFile(path, AYear());
  for (auto _ : state) {
    ClimateData data = ReadClimateFile(path);
    benchmark::DoNotOptimize(data.hours.data());
  }
  std::filesystem::remove(path);
}
BENCHMARK(BM_ReadClimateYear)->Unit(benchmark::kMillisecond);

void BM_SunAndSkyOn100SurfacesForAYear(benchmark::State& state) {
  const ClimateData year = AYear();
  SolarSite site;
  site.latitude = 39.83;
  site.longitude = -104.65;
  site.time_meridian = -105;
  site.elevation = 1650;
  site.rotation = 20;
  std::vector<Direction> normals;
  for (int i = 0; i < 100; ++i) normals.push_back(DirectionOf((i % 7) * 30.0, i * 37.0));
  for (auto _ : state) {
    SunPath path(site);
    double total = 0;
    for (const ClimateHour& h : year.hours) {
      const SunPosition sun = path.ForClimateHour(h.year, h.month, h.day, h.hour);
      const PerezSky sky = PerezSkyAt(sun, h.direct_normal(), h.diffuse_horizontal(),
                                      DayOfYear(h.year, h.month, h.day));
      for (const Direction& normal : normals) {
        const SurfaceIrradiance s = PerezTilted(sky, normal);
        total += s.beam + s.sky_diffuse + s.ground_per_albedo;
      }
    }
    benchmark::DoNotOptimize(total);
  }
}
BENCHMARK(BM_SunAndSkyOn100SurfacesForAYear)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
