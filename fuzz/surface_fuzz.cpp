// SURFACE.INP: the element table and the volumes read from it.
#include "building/surface_file.h"
#include "fuzz/fuzz_case.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  using namespace zelmo;
  fuzz::FuzzCase& c = fuzz::TheCase();
  c.Put("SURFACE.INP", data, size);
  fuzz::Survive([&] {
    SurfaceTable table;
    ReadSurfaces(c.ws(), table);
  });
  fuzz::Survive([&] { ReadSurfaceVolumes(c.ws()); });
  return 0;
}
