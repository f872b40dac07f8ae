// DAT4.DAT as the calculation modules read it: a damaged file is refused
// with its line, never a crash or a hang.
#include "fuzz/fuzz_case.h"
#include "modules/dat4.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  using namespace zelmo;
  const std::string bytes(reinterpret_cast<const char*>(data), size);
  for (int volumes : {1, 2, 8})
    fuzz::Survive([&] { modules::ParseDat4("DAT4.DAT", bytes, volumes); });
  return 0;
}
