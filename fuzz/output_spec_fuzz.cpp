// OUTPUT.INP: the output specification, read for the modules and by its
// screen over the volumes of a fixed element file.
#include "fuzz/fuzz_case.h"
#include "libraries/output_screen.h"
#include "libraries/output_spec.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  using namespace zelmo;
  fuzz::FuzzCase& c = fuzz::TheCase();
  static const bool elements = [&c] {
    // Two elements: Volume 1 against Volume 2, and Volume 2 against Outdoor.
    std::string bytes;
    for (const char* sides : {"12", "20"}) {
      bytes += "E\r\n";
      for (int field = 1; field <= 29; ++field) {
        bytes += std::string("\t") + (field == 7 ? sides[0] : field == 8 ? sides[1] : '0') + "\r\n";
      }
    }
    c.Put("SURFACE.INP", reinterpret_cast<const uint8_t*>(bytes.data()), bytes.size());
    return true;
  }();
  (void)elements;
  c.Put(kOutputFile, data, size);
  fuzz::Survive([&] {
    if (auto spec = ReadOutputSpec(c.ws())) {
      for (int volume = 1; volume <= 8; ++volume) spec->RowOf(volume);
      spec->OutputType();
    }
  });
  fuzz::Survive([&] {
    Out_put screen(c.session());
    screen.Load();
  });
  return 0;
}
