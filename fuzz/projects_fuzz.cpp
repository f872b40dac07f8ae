// PROJECTS.LIB: the register of the projects.
#include "fuzz/fuzz_case.h"
#include "workspace/project_store.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  using namespace zelmo;
  fuzz::FuzzCase& c = fuzz::TheCase();
  c.Put("PROJECTS.LIB", data, size, true);
  c.ws().LocalPath = c.ws().ProjectPath;
  fuzz::Survive([&] {
    for (const auto& line : ReadProjectLines(c.ws())) ProjectListItem(line);
  });
  return 0;
}
