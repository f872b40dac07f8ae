// ErrorsZelmo.err: the texts of the modules' error codes.
#include "core/text_file.h"
#include "fuzz/fuzz_case.h"
#include "simulation/module_error.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  using namespace zelmo;
  fuzz::FuzzCase& c = fuzz::TheCase();
  const std::string path = c.Put("ErrorsZelmo.err", data, size);
  fuzz::Survive([&] {
    auto lines = ReadAllLines(path);
    if (!lines) return;
    for (int code : {0, 1, 101, -4, 999}) FindErrorEntries(*lines, code);
  });
  return 0;
}
