// FLUIDS.INP: the fluid of each volume.
#include "building/fluids.h"
#include "fuzz/fuzz_case.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  using namespace zelmo;
  fuzz::FuzzCase& c = fuzz::TheCase();
  c.Put("FLUIDS.INP", data, size);
  fuzz::Survive([&] { ReadFluids(c.ws(), {"1", "2", "8"}); });
  return 0;
}
