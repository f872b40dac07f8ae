// The hourly climate file of the modules: read, and what was read written
// and read back to the same bytes.
#include <cstdlib>
#include <string>

#include "fuzz/fuzz_case.h"
#include "modules/climate_file.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  using namespace zelmo;
  const std::string bytes(reinterpret_cast<const char*>(data), size);
  fuzz::Survive([&] {
    const modules::ClimateData read = modules::ParseClimateText("CLIMATE.CLI", bytes);
    const std::string written = modules::ClimateFileText(read);
    // What the writer makes, the reader takes, and it stays as it is.
    if (modules::ClimateFileText(modules::ParseClimateText("again.CLI", written)) != written) {
      std::abort();
    }
  });
  return 0;
}
