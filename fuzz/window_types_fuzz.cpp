// Wndtp.LIB and WINDS.LIB: the window types with the references sought in
// them, the older window list, and Wndw.Lib written from what was read; and
// the walk of SURFACE.INP for the elements that use a window type.
#include "fuzz/fuzz_case.h"
#include "libraries/gas_lib.h"
#include "libraries/glass_lib.h"
#include "libraries/window_library_export.h"
#include "libraries/window_types_lib.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  using namespace zelmo;
  fuzz::FuzzCase& c = fuzz::TheCase();
  c.Put("Wndtp.LIB", data, size, /*in_project=*/true);
  c.Put("WINDS.LIB", data, size, /*in_project=*/true);
  fuzz::Survive([&] {
    const WindowTable windows = ReadWindowTypes(c.ws());
    bool library_ok = true;
    WindowLibraryLines(GlassTable(), GasTable(), windows, library_ok);
  });
  fuzz::Survive([&] { GlassIsReferenced(c.ws(), "Clear4mm"); });
  fuzz::Survive([&] { GasIsReferenced(c.ws(), "Air"); });
  fuzz::Survive([&] { ReadWindsLib(c.ws()); });
  static const char kCases[] = "case1 - fuzzed\r\n";
  c.Put("CASES.LIB", reinterpret_cast<const uint8_t*>(kCases), sizeof kCases - 1,
        /*in_project=*/true);
  c.Put("SURFACE.INP", data, size);
  fuzz::Survive([&] { WindowIsReferenced(c.ws(), 2); });
  return 0;
}
