// OPAQUE.LIB: the material table, the material screen over it and the U-value
// of a wall made of its first materials.
#include "fuzz/fuzz_case.h"
#include "libraries/opaque_lib.h"
#include "libraries/opaque_screen.h"
#include "libraries/walls_lib.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  using namespace zelmo;
  fuzz::FuzzCase& c = fuzz::TheCase();
  c.dialogs().Clear();
  c.Put(kOpaqueFile, data, size, /*in_project=*/true);
  fuzz::Survive([&] {
    const OpaqueTable rows = ReadOpaqueLib(c.ws());
    WallsLib lib;
    lib.names[1] = "W";
    for (size_t k = 0; k < rows.size() && k < kMaxLayers; ++k) {
      lib.layers[1][k + 1] = {rows[k][0], rows[k][3]};
      CheckMaterial({rows[k][1], rows[k][2], rows[k][3], rows[k][4]});
    }
    UValueText(WallResistance(lib, 1, rows, c.ws()));
  });
  fuzz::Survive([&] {
    OpaqueMtrl screen(c.session());
    screen.Load();
    screen.Add();
    screen.OpaqueList.row = screen.OpaqueList.rows() - 1;
    screen.SelectionChanged();
    screen.Delete();
  });
  return 0;
}
