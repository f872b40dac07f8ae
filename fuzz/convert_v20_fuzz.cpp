// The files of version 1.2 brought to the new form: SITE.INP, SURFACE.INP
// (either form, with or without a site file beside it) and MOVEINS.LIB.
#include "core/file_system.h"
#include "fuzz/fuzz_case.h"
#include "site/convert_v20.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  using namespace zelmo;
  if (size == 0) return 0;
  fuzz::FuzzCase& c = fuzz::TheCase();
  const std::string folder = c.ws().CasePath;
  DeleteFile(JoinPath(folder, "Site.inp"));
  DeleteFile(JoinPath(folder, "Surface.inp"));
  switch (data[0] % 3) {
    case 0:
      c.Put("Site.inp", data + 1, size - 1);
      break;
    case 1:
      c.Put("Surface.inp", data + 1, size - 1);
      break;
    default: {
      const std::string path = c.Put("Moveins.Lib", data + 1, size - 1, /*in_project=*/true);
      fuzz::Survive([&] {
        TextReader in(path);
        NewMoveInsBytes(in);
      });
      return 0;
    }
  }
  fuzz::Survive([&] { ConvertCase(PlanCaseConversion(folder, c.ws().LeakageMode)); });
  return 0;
}
