// MOVEINS.LIB: the curtain library and the screen that shows it.
#include "fuzz/fuzz_case.h"
#include "libraries/moveins_lib.h"
#include "libraries/moveins_screen.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  using namespace zelmo;
  fuzz::FuzzCase& c = fuzz::TheCase();
  c.Put(kMoveInsFile, data, size, /*in_project=*/true);
  fuzz::Survive([&] { ReadMoveInsLib(c.ws()); });
  fuzz::Survive([&] {
    MoveIns screen(c.session());
    screen.Load();
    screen.NextCurtainNumber();
  });
  return 0;
}
