// Wndw.Lib read back for the window properties, and the properties of every
// window type computed: from the bytes as Wndw.Lib itself, and from the
// library written of the bytes as the window types, the glass types or the
// gas types beside sound ones of the other two.
#include <string>

#include "fuzz/fuzz_case.h"
#include "libraries/gas_lib.h"
#include "libraries/glass_lib.h"
#include "libraries/window_library_export.h"
#include "libraries/window_properties.h"
#include "libraries/window_types_lib.h"
#include "modules/fent.h"
#include "modules/glazing_library.h"

namespace {

constexpr const char* kGlass =
    "Clear4mm\t84\t84\t1\t\t\t\t 2\t\r\n82.9\t0.0\t\t\r\n7.6\t100.0\t\t\r\n7.6\t100.0\t\t\r\n"
    "Float4mm\t84\t84\t2\t4\t1.526\t25\t 0\t\r\n\t\r\n\t\r\n\t\r\n"
    "LowE4mm\t4\t84\t3\t52\t30\t\t 0\t\r\n\t\r\n\t\r\n\t\r\n";
constexpr const char* kGas =
    "Air\t0.02496\t7.8e-5\t1.761e-5\t4.9e-8\t1.2466\t-0.00440\t0.7112\t-2.436e-4\t\r\n"
    "Argon\t0.01684\t5.3e-5\t2.164e-5\t6e-8\t1.7193\t-0.00607\t519\t0\t\r\n";
constexpr const char* kWindows =
    "1\tA\t 1\tFloat4mm\tYes\t\t\t\t\t\t\t\t\t\t\t\t\t\t\t\t\r\n"
    "2\tB\t 3\tClear4mm\tNo\t12\tAir\tLowE4mm\tYes\t16\tArgon\tFloat4mm\tNo\t\t\t\t\t\t\t\t\r\n";

void Put(zelmo::fuzz::FuzzCase& c, const char* name, const std::string& bytes) {
  c.Put(name, reinterpret_cast<const uint8_t*>(bytes.data()), bytes.size(), /*in_project=*/true);
}

// Each window type as the screen and as the window module take it.
void EveryType(zelmo::TextReader& reader) {
  const zelmo::WindowLibrary library = zelmo::modules::ReadWindowLibrary(reader);
  for (int window = 0; window <= static_cast<int>(library.windows.size()) + 1; ++window) {
    zelmo::WindowPropertiesIn(library, reader.path(), window);
    try {
      zelmo::modules::ComputeFentWindow(library, reader.path(), window);
    } catch (const zelmo::modules::ModuleFailure&) {
    }
  }
}

// The sound tables, read once.
struct Sound {
  zelmo::GlassTable glass;
  zelmo::GasTable gas;
  zelmo::WindowTable windows;
};

const Sound& SoundTables(zelmo::fuzz::FuzzCase& c) {
  static const Sound sound = [&] {
    Put(c, "Glasstp.INP", kGlass);
    Put(c, "Gastp.INP", kGas);
    Put(c, "Wndtp.LIB", kWindows);
    return Sound{zelmo::ReadGlassTypes(c.ws()), zelmo::ReadGasTypes(c.ws()),
                 zelmo::ReadWindowTypes(c.ws())};
  }();
  return sound;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  using namespace zelmo;
  fuzz::FuzzCase& c = fuzz::TheCase();
  const Sound& sound = SoundTables(c);
  const std::string path = c.Put("Wndw.Lib", data, size, /*in_project=*/true);
  fuzz::Survive([&] {
    TextReader reader(path);
    EveryType(reader);
  });
  // Each library fuzzed beside the sound other two.
  auto library = [&](const GlassTable& glass, const GasTable& gas, const WindowTable& windows) {
    bool library_ok = true;
    TextReader reader(path, WindowLibraryLines(glass, gas, windows, library_ok));
    EveryType(reader);
  };
  c.Put("Glasstp.INP", data, size, /*in_project=*/true);
  c.Put("Gastp.INP", data, size, /*in_project=*/true);
  c.Put("Wndtp.LIB", data, size, /*in_project=*/true);
  fuzz::Survive([&] { library(ReadGlassTypes(c.ws()), sound.gas, sound.windows); });
  fuzz::Survive([&] { library(sound.glass, ReadGasTypes(c.ws()), sound.windows); });
  fuzz::Survive([&] { library(sound.glass, sound.gas, ReadWindowTypes(c.ws())); });
  return 0;
}
