// An EnergyPlus weather file taken apart for the import; a file it accepts
// becomes a climate file the climate file's reader takes.
#include <string>

#include "fuzz/fuzz_case.h"
#include "modules/climate_file.h"
#include "modules/epw_import.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  using namespace zelmo;
  const std::string bytes(reinterpret_cast<const char*>(data), size);
  fuzz::Survive([&] {
    const modules::EpwImport import = modules::ParseEpw("WEATHER.epw", bytes);
    modules::MissingReport(import);
    try {
      modules::ParseClimateText("made.CLI", modules::ClimateFileText(import.data));
    } catch (const FileError&) {
      __builtin_trap();  // the import wrote what its own reader refuses
    }
  });
  return 0;
}
