// FENT.RES read back by the modules after FENT, and the window types read
// from the same bytes as DAT1.DAT: any lines fail with the reader's code,
// never otherwise.
#include <string>

#include "fuzz/fuzz_case.h"
#include "modules/fent.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  using namespace zelmo;
  fuzz::FuzzCase& c = fuzz::TheCase();
  const auto lines = ReadAllLines(c.Put("FENT.RES", data, size));
  if (!lines) return 0;
  try {
    const modules::FentResult result = modules::ParseFentResult(*lines, 501);
    for (const modules::FentWindow& window : result.windows) {
      window.FrontAt(37);
      window.BackAt(-3);
    }
  } catch (const modules::ModuleFailure&) {
  }
  modules::UsedWindowTypes(std::string(reinterpret_cast<const char*>(data), size));
  return 0;
}
