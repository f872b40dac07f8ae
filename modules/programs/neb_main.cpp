// NEB.EXE: the shading of a case (modules/neb.h), started with the case
// folder as its one argument.
#include "modules/contract.h"
#include "modules/neb.h"

int main(int argc, char** argv) {
  using namespace zelmo::modules;
  return RunModule(argc, argv, kNeb, kNebPlorDamaged, RunNeb);
}
