// FORCEVEN.INP: the forced ventilation between volumes.
#include "building/forcevent.h"
#include "fuzz/fuzz_case.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  using namespace zelmo;
  fuzz::FuzzCase& c = fuzz::TheCase();
  c.Put("FORCEVEN.INP", data, size);
  fuzz::Survive([&] { ReadForcedVent(c.ws(), {"1 -> 2", "2 -> 1", "1 -> 0"}); });
  return 0;
}
