// ADVCONN.INP: the advection connections between volumes.
#include "building/advconn.h"
#include "fuzz/fuzz_case.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  using namespace zelmo;
  fuzz::FuzzCase& c = fuzz::TheCase();
  c.Put("ADVCONN.INP", data, size);
  SurfaceVolumes volumes;
  volumes.front = {"1", "2", "3"};
  volumes.back = {"0", "1", "2"};
  fuzz::Survive([&] { ReadAdvConn(c.ws(), volumes); });
  return 0;
}
