// MISCHED.INP: the curtain schedule and the screen that shows its months.
#include "fuzz/fuzz_case.h"
#include "libraries/misched.h"
#include "libraries/misched_screen.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  using namespace zelmo;
  fuzz::FuzzCase& c = fuzz::TheCase();
  c.Put(kMISchedFile, data, size);
  fuzz::Survive([&] { ReadMISched(c.ws()); });
  fuzz::Survive([&] {
    MISched screen(c.session());
    screen.Load();
    for (int month = 0; month < kMonths; ++month) {
      screen.MonthList.list_index = month;
      screen.MonthClick();
    }
  });
  return 0;
}
