// MUK.SUM: the yearly summary of a case, as `zelmo summary` and the
// validation report read it.
#include <string>

#include "fuzz/fuzz_case.h"
#include "simulation/results_summary.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  using namespace zelmo;
  fuzz::Survive([&] {
    ParseResultsSummary("MUK.SUM", std::string(reinterpret_cast<const char*>(data), size));
  });
  return 0;
}
