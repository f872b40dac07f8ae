// reference.csv: the reference programs' example results the validation
// report compares with.
#include <string>

#include "fuzz/fuzz_case.h"
#include "simulation/validation.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  using namespace zelmo;
  fuzz::Survive([&] {
    ParseReference("reference.csv", std::string(reinterpret_cast<const char*>(data), size));
  });
  return 0;
}
