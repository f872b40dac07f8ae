// DAT3.DAT as the calculation modules read it: a damaged file is refused
// with its line, never a crash or a hang.
#include "fuzz/fuzz_case.h"
#include "modules/dat3.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  using namespace zelmo;
  const std::string bytes(reinterpret_cast<const char*>(data), size);
  fuzz::Survive([&] { modules::ParseDat3("DAT3.DAT", bytes); });
  return 0;
}
