// DANE.RES as MUK reads it after its head line: a damaged file is refused
// with its line, never a crash or a hang.
#include <sstream>

#include "fuzz/fuzz_case.h"
#include "modules/dane.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  using namespace zelmo;
  std::vector<std::string> lines;
  std::string line;
  std::istringstream in(std::string(reinterpret_cast<const char*>(data), size));
  while (std::getline(in, line)) lines.push_back(line);
  fuzz::Survive([&] { modules::ParseDaneResult("DANE.RES", lines); });
  return 0;
}
