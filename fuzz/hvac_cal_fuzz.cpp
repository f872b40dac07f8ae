// HVAC_Cal.Inp: the schedules read as the screen and as a run read them, for
// a case of two and of eight volumes, then written and delivered again.
#include "fuzz/fuzz_case.h"
#include "schedules/hvac_cal_file.h"
#include "schedules/hvac_delivery.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  using namespace zelmo;
  fuzz::FuzzCase& c = fuzz::TheCase();
  c.Put(kHvacCalFile, data, size);
  for (int volumes : {2, kMaxVolumes}) {
    fuzz::Survive([&] {
      ScheduleStore store;
      ReadHvacCal(c.ws(), volumes, store);
      HvacCalText(store);
    });
    fuzz::Survive([&] {
      ScheduleStore store;
      ReadHvacCalForRun(c.ws(), volumes, store);
      HvacDeliveryLines(store, 2024);
    });
  }
  return 0;
}
