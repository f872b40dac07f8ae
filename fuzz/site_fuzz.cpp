// SITE.INP: the site of a case.
#include "fuzz/fuzz_case.h"
#include "site/site_file.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  using namespace zelmo;
  fuzz::FuzzCase& c = fuzz::TheCase();
  c.Put("SITE.INP", data, size);
  fuzz::Survive([&] { ReadSite(c.ws()); });
  return 0;
}
