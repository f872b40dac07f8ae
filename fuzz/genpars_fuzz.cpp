// GENPARS.INP: the general parameters of a case.
#include "building/genpars.h"
#include "fuzz/fuzz_case.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  using namespace zelmo;
  fuzz::FuzzCase& c = fuzz::TheCase();
  c.Put("GENPARS.INP", data, size);
  fuzz::Survive([&] { ReadGenPars(c.ws(), {"20", "1.87", "11.0", "-1", "20"}); });
  return 0;
}
