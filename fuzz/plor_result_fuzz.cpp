// PLOR.RES and NEB.RES as the modules after PLOR and NEB read them: the
// lines after the head line.
#include <sstream>
#include <string>
#include <vector>

#include "fuzz/fuzz_case.h"
#include "modules/neb.h"
#include "modules/plor.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  using namespace zelmo;
  std::vector<std::string> lines;
  std::istringstream in(std::string(reinterpret_cast<const char*>(data), size));
  for (std::string line; std::getline(in, line);) {
    if (!line.empty() && line.back() == '\r') line.pop_back();
    lines.push_back(line);
  }
  fuzz::Survive([&] {
    modules::NebResult neb = modules::ParseNebResult("NEB.RES", lines);
    for (size_t k = 0; k < neb.surfaces.size(); ++k) {
      modules::SunlitFraction(neb, k, modules::SunDirection(12.3, 201));
    }
  });
  fuzz::Survive([&] { modules::ParsePlorResult("PLOR.RES", lines); });
  return 0;
}
