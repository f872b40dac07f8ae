// Gastp.INP: the gas types, and Wndw.Lib written from what was read.
#include "fuzz/fuzz_case.h"
#include "libraries/gas_lib.h"
#include "libraries/glass_lib.h"
#include "libraries/window_library_export.h"
#include "libraries/window_types_lib.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  using namespace zelmo;
  fuzz::FuzzCase& c = fuzz::TheCase();
  c.Put("Gastp.INP", data, size, /*in_project=*/true);
  fuzz::Survive([&] {
    const GasTable gas = ReadGasTypes(c.ws());
    bool library_ok = true;
    WindowLibraryLines(GlassTable(), gas, WindowTable(), library_ok);
  });
  return 0;
}
