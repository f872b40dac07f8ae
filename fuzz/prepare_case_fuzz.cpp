// The module input of a case: one of the files the translation reads takes
// the fuzzer's bytes, the others stay those of the example case.
#include <map>
#include <optional>

#include "fuzz/fuzz_case.h"
#include "simulation/prepare_case.h"

namespace {

struct Input {
  const char* name;
  bool in_project;
};
constexpr Input kInputs[] = {
    {"SURFACE.INP", false},  {"ADVCONN.INP", false}, {"FLUIDS.INP", false},
    {"FORCEVEN.INP", false}, {"GENPARS.INP", false}, {"SITE.INP", false},
    {"MISCHED.INP", false},  {"OUTPUT.INP", false},  {"HVAC_Cal.Inp", false},
    {"OPAQUE.LIB", true},    {"WALLS.LIB", true},    {"MOVEINS.LIB", true}};

// The example's files, by the name the case or project gives them, read
// from the program tree of the working folder (the fuzz runner starts in the
// source folder).
const std::map<std::string, std::string>& ExampleFiles() {
  static const std::map<std::string, std::string> files = [] {
    std::map<std::string, std::string> read;
    const std::string example = "system/tree/ZELMOPROJ/Example/";
    for (const Input& input : kInputs) {
      std::string from = example + (input.in_project ? "" : "Case1/") + input.name;
      std::optional<std::string> bytes = zelmo::ReadAllBytes(from);
      if (!bytes) bytes = zelmo::ReadAllBytes(from + "_Temp");
      if (bytes) read[input.name] = *bytes;
    }
    return read;
  }();
  return files;
}

void PutExample(zelmo::fuzz::FuzzCase& c, const Input& input) {
  auto found = ExampleFiles().find(input.name);
  const std::string bytes = found == ExampleFiles().end() ? "" : found->second;
  c.Put(input.name, reinterpret_cast<const uint8_t*>(bytes.data()), bytes.size(), input.in_project);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  using namespace zelmo;
  if (size == 0) return 0;
  fuzz::FuzzCase& c = fuzz::TheCase();
  static bool laid_out = false;
  if (!laid_out) {
    for (const Input& input : kInputs) PutExample(c, input);
    c.ws().CaseHeadline = "case1 - fuzz";
    c.ws().AccuracyLevelTL = "2";
    laid_out = true;
  }
  const Input& input = kInputs[data[0] % std::size(kInputs)];
  c.Put(input.name, data + 1, size - 1, input.in_project);
  fuzz::Survive([&] { PrepareCase(c.ws()); });
  PutExample(c, input);
  // A building of one volume loses its FORCEVEN.INP.
  PutExample(c, kInputs[3]);
  return 0;
}
