// Glasstp.INP and GLASS.LIB: the glass types and the older glass list, and
// Wndw.Lib written from what was read.
#include "fuzz/fuzz_case.h"
#include "libraries/gas_lib.h"
#include "libraries/glass_lib.h"
#include "libraries/window_library_export.h"
#include "libraries/window_types_lib.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  using namespace zelmo;
  fuzz::FuzzCase& c = fuzz::TheCase();
  c.Put("Glasstp.INP", data, size, /*in_project=*/true);
  c.Put("GLASS.LIB", data, size, /*in_project=*/true);
  fuzz::Survive([&] {
    const GlassTable glass = ReadGlassTypes(c.ws());
    bool library_ok = true;
    WindowLibraryLines(glass, GasTable(), WindowTable(), library_ok);
  });
  fuzz::Survive([&] { ReadGlassLib(c.ws()); });
  return 0;
}
