// The driver's own cost per module: the status read before, the start of the
// module's process, the wait and the status read back, with a module that
// does nothing. Beside it the bare start and wait of the same program, which
// is the module's own share.
#include <benchmark/benchmark.h>

#include <filesystem>

#include "core/session.h"
#include "core/testing/fakes.h"
#include "core/text_file.h"
#include "platform/qt_process.h"
#include "simulation/modules.h"

namespace {

using namespace zelmo;

// A program that ends at once, standing in for every module.
constexpr const char* kNothing = "/bin/true";

struct EmptyModules {
  EmptyModules() {
    session.processes = &runner;
    session.ws.CasePath = dir / "case";
    session.ws.ThermalDirectory = dir / "TZELMO";
    std::filesystem::create_directories(ToFsPath(session.ws.CasePath));
    std::filesystem::create_directories(ToFsPath(session.ws.ThermalDirectory));
    for (const std::string& program : kModulePrograms) {
      std::filesystem::create_symlink(kNothing,
                                      ToFsPath(JoinPath(session.ws.ThermalDirectory, program)));
    }
    InitStatusFile(session.ws);
  }
  testing::TempDir dir;
  platform::QtProcessRunner runner;
  Session session;
};

void BM_DriverStepOfAModule(benchmark::State& state) {
  EmptyModules m;
  int code = 0;
  std::string module, text;
  double number = 0;
  for (auto _ : state) {
    if (!ReadStatusFile(m.session.ws, code, module, text, number)) state.SkipWithError("status");
    RunModule(m.session, kModulePrograms[0]);
    if (!ReadStatusFile(m.session.ws, code, module, text, number)) state.SkipWithError("status");
  }
}
BENCHMARK(BM_DriverStepOfAModule)->Unit(benchmark::kMillisecond);

void BM_BareStartAndWait(benchmark::State& state) {
  platform::QtProcessRunner runner;
  for (auto _ : state) runner.Run(kNothing, {}, 7);
}
BENCHMARK(BM_BareStartAndWait)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
