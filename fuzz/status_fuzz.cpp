// ECM.Dat: the status a calculation module leaves.
#include "fuzz/fuzz_case.h"
#include "simulation/modules.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  using namespace zelmo;
  fuzz::FuzzCase& c = fuzz::TheCase();
  c.Put("ECM.Dat", data, size);
  fuzz::Survive([&] {
    int code = 0;
    std::string module, text;
    double number = 0;
    ReadStatusFile(c.ws(), code, module, text, number);
  });
  return 0;
}
