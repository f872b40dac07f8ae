// Felt.GGG as the comfort viewer reads it, with the categories counted from
// what was read, and the same bytes as the FELT.INP of a case.
#include <string_view>

#include "fuzz/fuzz_case.h"
#include "tools/results/comfort.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  using namespace zelmo;
  fuzz::Survive([&] {
    results::ComfortResult result = results::ParseComfortResult(
        "Felt.GGG", std::string_view(reinterpret_cast<const char*>(data), size));
    results::CountCategories(result.hours, results::ComfortScheme::kEn16798);
    results::HoursAbovePpd(result.hours, 10);
  });
  fuzz::Survive([&] {
    fuzz::FuzzCase& the_case = fuzz::TheCase();
    the_case.Put("FELT.INP", data, size);
    results::ReadComfortSettings(the_case.ws().CasePath);
  });
  return 0;
}
