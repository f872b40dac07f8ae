// A climate file: its keys, its dates and its wind mark.
#include "fuzz/fuzz_case.h"
#include "site/climate_file.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  using namespace zelmo;
  fuzz::FuzzCase& c = fuzz::TheCase();
  const std::string path = c.Put("CLIMATE.CLI", data, size);
  fuzz::Survive([&] {
    for (ClimateKey key : {ClimateKey::kLatitude, ClimateKey::kLongitude, ClimateKey::kTimem}) {
      ReadClimateKey(c.dialogs(), path, key);
    }
  });
  fuzz::Survive([&] { ReadClimateDates(c.dialogs(), path); });
  fuzz::Survive([&] { ReadWindMark(path); });
  c.dialogs().Clear();
  return 0;
}
