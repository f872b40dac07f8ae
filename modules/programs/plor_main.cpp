// PLOR.EXE: the geometry of a case (modules/plor.h), started with the case
// folder as its one argument.
#include "modules/contract.h"
#include "modules/plor.h"

int main(int argc, char** argv) {
  using namespace zelmo::modules;
  return RunModule(argc, argv, kPlor, kPlorDat1Damaged, RunPlor);
}
