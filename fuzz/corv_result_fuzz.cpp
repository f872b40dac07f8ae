// CORV.RES read back by the modules after CORV: any lines fail with the
// reader's code, never otherwise.
#include <string>

#include "fuzz/fuzz_case.h"
#include "modules/corv.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  using namespace zelmo;
  fuzz::FuzzCase& c = fuzz::TheCase();
  const auto lines = ReadAllLines(c.Put("CORV.RES", data, size));
  if (!lines) return 0;
  try {
    modules::ParseCorvResult(*lines, 601);
  } catch (const modules::ModuleFailure&) {
  }
  return 0;
}
