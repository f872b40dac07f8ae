// DAT2.DAT read by the conduction module: the walls discretised, their
// results written as lines and read back, and the whole module run on the
// case folder. A damaged file fails with FileError or the module's
// ModuleFailure, never otherwise.
#include <string>

#include "fuzz/fuzz_case.h"
#include "modules/corv.h"
#include "modules/dat2.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  using namespace zelmo;
  fuzz::FuzzCase& c = fuzz::TheCase();
  const std::string path = c.Put("DAT2.DAT", data, size);
  fuzz::Survive([&] {
    try {
      const modules::CorvResult result = modules::ComputeCorv(modules::ReadDat2(path));
      modules::ParseCorvResult(modules::CorvLines(result), 601);
    } catch (const modules::ModuleFailure&) {
    }
  });
  fuzz::Survive([&] {
    try {
      modules::RunCorv(c.ws().CasePath);
    } catch (const modules::ModuleFailure&) {
    }
  });
  return 0;
}
