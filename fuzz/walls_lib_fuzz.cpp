// WALLS.LIB: the wall tables, their rewrite, and the wall screen over them.
#include "fuzz/fuzz_case.h"
#include "libraries/walls_lib.h"
#include "libraries/walls_screen.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  using namespace zelmo;
  fuzz::FuzzCase& c = fuzz::TheCase();
  c.dialogs().Clear();
  c.Put(kWallsFile, data, size, /*in_project=*/true);
  fuzz::Survive([&] {
    const WallsLib lib = ReadWallsLib(c.ws());
    const OpaqueTable materials = {{"1", "A", "1", "1", "1"}, {"2", "B", "-1", "1", "1"}};
    for (int slot = 1; slot <= lib.highest; ++slot) {
      UValueText(WallResistance(lib, slot, materials, c.ws()));
    }
    MaterialInWalls(lib, "1");
  });
  fuzz::Survive([&] {
    Walls screen(c.session());
    screen.Load();
    for (int i = 0; i < static_cast<int>(screen.WallList.items.size()); ++i) {
      screen.WallList.list_index = i;
      screen.WallListClick();
    }
    screen.DeleteLayer();
  });
  return 0;
}
