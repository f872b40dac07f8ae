// Eight cases of a project run by the command line, one after another
// (-j 1) and two at a time (-j 2), with stand-in modules that each take
// 50 ms: two at a time must take little more than half the time. What the
// wall time of -j 1 holds beyond the modules' 8 x 6 x 50 ms is the module
// input of eight cases, the stand-ins' own reading and writing, and the
// starts of 48 processes; the driver's own share per module is measured
// apart in module_driver_bench.
#include <benchmark/benchmark.h>

#include <cstdlib>
#include <sstream>

#include "cli/commands.h"
#include "core/file_system.h"
#include "core/testing/fakes.h"
#include "core/text_file.h"
#include "platform/qt_process.h"

namespace {

using namespace zelmo;

constexpr int kCases = 8;
constexpr double kModuleSeconds = 0.05;

struct EightCases {
  EightCases() {
    // The stand-ins steered by STANDIN.INP: a module of known duration.
    const std::string dist = ZELMO_BENCH_STANDIN_TREE;
    CopyFolderTree(dist + "/ZELMOPROJ/Example", dir / "Example");
    std::string cases;
    for (int n = 1; n <= kCases; ++n) {
      const std::string name = "case" + std::to_string(n);
      if (n > 1) CopyFolderTree(dir / "Example/Case1", dir / ("Example/" + name));
      testing::WriteBytes(dir / ("Example/" + (n > 1 ? name : "Case1") + "/STANDIN.INP"),
                          "ALL DELAY " + std::to_string(kModuleSeconds) + "\r\n");
      cases += name + " - Variant " + std::to_string(n) + "\r\n";
    }
    testing::WriteBytes(dir / "Example/CASES.LIB", cases);
    settings.values["Zelmo-QRN/Project/SystemPath"] = dist;
    program = JoinPath(ZELMO_BENCH_DIST_DIR, "zelmo");
  }
  testing::TempDir dir;
  testing::FakeSettings settings;
  platform::QtProcessRunner processes;
  std::string program;
};

void BM_EightCases(benchmark::State& state) {
  EightCases c;
  const std::string jobs = "-j" + std::to_string(state.range(0));
  for (auto _ : state) {
    std::ostringstream out, err;
    if (cli::RunCommandLine({"run", c.dir / "Example", "--all", jobs}, c.program, c.settings,
                            c.processes, out, err) != cli::kExitOk) {
      state.SkipWithError(err.str().c_str());
    }
  }
  state.counters["modules_s"] = kCases * 6 * kModuleSeconds;
}
BENCHMARK(BM_EightCases)
    ->Arg(1)
    ->Arg(2)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime()
    ->Iterations(3);

}  // namespace

BENCHMARK_MAIN();
