// CASES.LIB: the register of the cases of a project.
#include "core/controls.h"
#include "core/form_helpers.h"
#include "fuzz/fuzz_case.h"
#include "workspace/case_store.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  using namespace zelmo;
  fuzz::FuzzCase& c = fuzz::TheCase();
  c.Put("CASES.LIB", data, size, true);
  fuzz::Survive([&] {
    ListBox list(nullptr, "List1");
    FillCaseList(c.ws(), list);
    CaseNameTaken(c.ws(), "case1");
  });
  return 0;
}
