// THERMAL.INP: the flags of the modules of a case.
#include "core/stale.h"
#include "fuzz/fuzz_case.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  using namespace zelmo;
  fuzz::FuzzCase& c = fuzz::TheCase();
  c.Put("THERMAL.INP", data, size);
  fuzz::Survive([&] { MarkModulesStale(c.ws(), c.ws().CasePath, kSiteModules); });
  return 0;
}
