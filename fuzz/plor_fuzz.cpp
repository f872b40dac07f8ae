// DAT1.DAT as PLOR reads it, and the geometry computed from it: a damaged
// file is a FileError, a building the geometry cannot take a ModuleFailure;
// nothing else may escape, and the view factors and shadows must end.
#include <string_view>

#include "fuzz/fuzz_case.h"
#include "modules/neb.h"
#include "modules/plor.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  using namespace zelmo;
  fuzz::Survive([&] {
    try {
      modules::PlorResult plor = modules::ComputePlor(modules::ParseDat1(
          "DAT1.DAT", std::string_view(reinterpret_cast<const char*>(data), size)));
      modules::ParsePlorResult("PLOR.RES", modules::PlorResultLines(plor));
      for (size_t k = 0; k < plor.outside.size(); ++k) {
        modules::SunlitFractionFor(plor, k, modules::SunDirection(30, 180));
      }
    } catch (const modules::ModuleFailure&) {
    }
  });
  return 0;
}
