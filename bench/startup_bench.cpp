// The main window's start and the Settings screen: both are waited on by the
// user, the start at every launch of the program.
#include <benchmark/benchmark.h>

#include "core/file_system.h"
#include "core/testing/fakes.h"
#include "core/text_file.h"
#include "workspace/start_form.h"
#include "workspace/startup.h"
#include "workspace/sysinit.h"

namespace zelmo {
namespace {

const std::string kKey = "Zelmo-QRN/Project/";

// A program tree and a data folder with a list of projects and many
// project folders beside it.
struct Tree {
  Tree() {
    for (const char* folder : {"TGZELMO", "TZELMO", "FELT", "DIAGRAM", "data"}) {
      CreateFolderTree(dir / folder);
    }
    std::vector<std::string> projects;
    for (int i = 0; i < 200; ++i) {
      std::string name = "proj" + std::to_string(i);
      CreateFolderTree(dir / ("data/" + name));
      projects.push_back(name + " - Project " + std::to_string(i));
    }
    WriteAllLines(dir / "data/PROJECTS.LIB", projects);
    fake.settings.values[kKey + "SystemPath"] = dir.path();
    fake.settings.values[kKey + "LocalPath"] = dir / "data";
  }
  testing::TempDir dir;
  testing::FakeSession fake;
};

void BM_StartUp(benchmark::State& state) {
  Tree tree;
  for (auto _ : state) {
    StartForm main(tree.fake.session);
    StartUp(tree.fake.session, main, tree.dir / "Tgzelmo");
    benchmark::DoNotOptimize(main.M_OpenProject.enabled);
  }
}
BENCHMARK(BM_StartUp)->Unit(benchmark::kMillisecond);

// Opening Settings lists the sub-folders of both folders.
void BM_SettingsLoad(benchmark::State& state) {
  Tree tree;
  StartForm main(tree.fake.session);
  StartUp(tree.fake.session, main, tree.dir / "Tgzelmo");
  for (auto _ : state) {
    SysInit screen(tree.fake.session, main);
    screen.Load();
    benchmark::DoNotOptimize(screen.Dir2.items.size());
  }
}
BENCHMARK(BM_SettingsLoad)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace zelmo

BENCHMARK_MAIN();
