// The conduction and window modules on the largest case the limits allow,
// each run whole on a case folder as its program runs (reading the input,
// computing, writing the results through temporaries and the report):
// CORV on 100 walls of 20 layers, every layer 2 m of concrete so that each is
// cut into the most cells (40), 80 100 nodes in all; FENT on 40 window types
// of five panes and four gaps, panes of all three data forms (an 11-row
// table, Fresnel data, normal values), every type used by the elements.
#include <benchmark/benchmark.h>

#include <cstdio>

#include "core/testing/fakes.h"
#include "core/text_file.h"
#include "modules/corv.h"
#include "modules/fent.h"

namespace {

using namespace zelmo;

std::string LargestDat2() {
  char line[64];
  std::string text = "case - the largest\r\n       100.\r\n";
  for (int wall = 1; wall <= 100; ++wall) {
    text += "        20.\r\n";
    for (int layer = 1; layer <= 20; ++layer) {
      const int material = (wall - 1) % 10 * 20 + layer;  // 1 to 200
      std::snprintf(line, sizeof line, "%10.3f%10.3f\r\n", 200.0, static_cast<double>(material));
      text += line;
      if (wall <= 10) {
        text += "Concrete  \r\n1.7 0.24 2300\r\n";
      }
    }
  }
  return text;
}

std::string LargestLibrary() {
  std::string text = "3 ! Number of glass types\r\n \r\n";
  text += "Clear4mm  0.84  0.84 1\r\n 11\r\n";
  text += " 0.829 0.829 0.827 0.824 0.817 0.804 0.777 0.719 0.596 0.349 0.000\r\n";
  text += " 0.076 0.076 0.076 0.077 0.080 0.090 0.113 0.167 0.288 0.540 1.000\r\n";
  text += " 0.076 0.076 0.076 0.077 0.080 0.090 0.113 0.167 0.288 0.540 1.000\r\n \r\n";
  text += "Float4mm  0.84  0.84 2\r\n    4.00    1.53   25.00\r\n \r\n";
  text += "LowE4mm  0.04  0.84 3\r\n   0.52  0.30\r\n \r\n";
  text += "2 ! Number of gas types  k   dk   u   du   r   dr   p   dp\r\n \r\n";
  text += "Air 0.02496 7.8e-5 1.761e-5 4.9e-8 1.2466 -0.00440 0.7112 -2.436e-4\r\n";
  text += "Argon 0.01684 5.3e-5 2.164e-5 6e-8 1.7193 -0.00607 0.6682 -2.503e-4\r\n \r\n";
  text += "40 ! Number of window types\r\n \r\n";
  const char* glasses[3] = {"Clear4mm", "Float4mm", "LowE4mm"};
  for (int w = 1; w <= 40; ++w) {
    text += " Five" + std::to_string(w) + " 5\r\n";
    for (int pane = 0; pane < 5; ++pane) {
      if (pane > 0) text += std::string(" 12 ") + (pane % 2 ? "Air" : "Argon") + "\r\n";
      text += std::string(" ") + glasses[(w + pane) % 3] + (pane == 4 ? " 1" : " 0") + "\r\n";
    }
    text += " \r\n";
  }
  return text;
}

std::string LargestDat1() {
  std::string text = "case - the largest\r\n   1.00 100.00\r\n";
  for (int w = 1; w <= 40; ++w) {
    text += "   4.00   3.00   2.00   1.00   3.00   0.00 6.00 1.00 0.00 0.00 0.00    0.5000\r\n" +
            std::to_string(w) + "\r\n";
  }
  return text;
}

struct LargestCase {
  LargestCase() {
    testing::WriteBytes(JoinPath(case_folder, "DAT2.DAT"), LargestDat2());
    testing::WriteBytes(JoinPath(case_folder, "DAT1.DAT"), LargestDat1());
    testing::WriteBytes(dir / "Wndw.Lib", LargestLibrary());
  }
  testing::TempDir dir;
  std::string case_folder = JoinPath(dir / "case", "");
};

void BM_CorvLargestCase(benchmark::State& state) {
  LargestCase c;
  for (auto _ : state) modules::RunCorv(c.case_folder);
  const modules::CorvResult result = modules::ReadCorvResult(c.case_folder, 601);
  size_t nodes = 0;
  for (const auto& wall : result.walls) nodes += wall.construction.capacity.size();
  state.counters["walls"] = static_cast<double>(result.walls.size());
  state.counters["nodes"] = static_cast<double>(nodes);
}
BENCHMARK(BM_CorvLargestCase)->Unit(benchmark::kMillisecond);

void BM_FentLargestCase(benchmark::State& state) {
  LargestCase c;
  for (auto _ : state) modules::RunFent(c.case_folder);
  state.counters["windows"] =
      static_cast<double>(modules::ReadFentResult(c.case_folder, 501).windows.size());
}
BENCHMARK(BM_FentLargestCase)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
