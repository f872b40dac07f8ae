// DAT1.DAT read back at its fixed columns for the list of surfaces facing
// outdoors, with either decimal separator.
#include "fuzz/fuzz_case.h"
#include "simulation/list_of_elements.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  using namespace zelmo;
  fuzz::FuzzCase& c = fuzz::TheCase();
  const std::string path = c.Put("DAT1.DAT", data, size);
  for (bool comma : {false, true}) fuzz::Survive([&] { GetDat1(path, comma); });
  return 0;
}
